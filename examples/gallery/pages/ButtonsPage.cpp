#include "Kit.h"
#include "Page.h"
#include "StateHolder.h"
#include "Tables.h"

#include <Velmora/QcGhostButton.h>
#include <Velmora/QcHighlightButton.h>
#include <Velmora/QcIconButton.h>
#include <Velmora/QcPrimaryButton.h>
#include <Velmora/QcSecondaryButton.h>
#include <Velmora/QcTertiaryButton.h>
#include <Velmora/QcTextButton.h>
#include <Velmora/QcTextLinkButton.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Gallery;
using Velmora::QcButton;

namespace {

template <typename Button>
QcButton *Make()
{
    return new Button;
}

// The base has no colours of its own and leaves them to the host, which gives the icon some here; the text takes the palette's.
QcButton *MakeBase()
{
    auto *button = new QcButton;
    for (const int enabled : {0, int(QStyle::State_Enabled)}) {
        Velmora::ImageParams icon;
        icon.color = enabled ? "icon/icon_primary" : "icon/icon_disabled";
        for (const int checked : {0, int(QStyle::State_Selected)}) {
            button->SetIconParam(QFlag(enabled | checked), icon);
            button->SetIconParam(QFlag(enabled | checked | QStyle::State_MouseOver), icon);
            button->SetIconParam(QFlag(enabled | checked | QStyle::State_Sunken), icon);
        }
    }
    return button;
}

struct Variant
{
    const char *name;
    const char *role;
    QcButton *(*make)();
    bool squareOnly;
};

constexpr Variant kVariants[] = {
    {"QcPrimaryButton", "The main action", Make<Velmora::QcPrimaryButton>, false},
    {"QcSecondaryButton", "Outlined in the brand colour", Make<Velmora::QcSecondaryButton>, false},
    {"QcTertiaryButton", "Outlined in a neutral colour", Make<Velmora::QcTertiaryButton>, false},
    {"QcGhostButton", "No outline, a soft fill under the mouse", Make<Velmora::QcGhostButton>, false},
    {"QcHighlightButton", "As the ghost, in primary text", Make<Velmora::QcHighlightButton>, false},
    {"QcTextButton", "Text in the colours of links", Make<Velmora::QcTextButton>, false},
    {"QcTextLinkButton", "The same, underlined", Make<Velmora::QcTextLinkButton>, false},
    {"QcIconButton", "Square, filled while checked", Make<Velmora::QcIconButton>, true},
    {"QcButton", "The base: the host fills its tables", MakeBase, false},
};

class ButtonsPage : public StatesPage
{
public:
    ButtonsPage()
    {
        AddLive();
        AddMatrix(QStringLiteral("Text"), QString(), QStringLiteral("Apply"));
        AddMatrix(QStringLiteral("Icon and text"), QStringLiteral(":/images/select.svg"), QStringLiteral("Apply"));
        AddMatrix(QStringLiteral("Icon"), QStringLiteral(":/images/close.svg"), QString());
    }

private:
    void AddLive()
    {
        Card *card = AddSection(QStringLiteral("Live"), QStringLiteral("Hover, press, toggle. Tab moves along the row, Space presses."));
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(3 * kGrid);
        grid->setVerticalSpacing(kGrid);
        int row = 0;
        int column = 1;
        for (const char *head : {"Text", "Icon and text", "Icon", "Checkable", "Disabled"}) {
            grid->setColumnStretch(column, 1);
            grid->addWidget(MakeLabel(QLatin1String(head), QcLabel::BodySecondary), row, column++, Qt::AlignCenter);
        }
        grid->addWidget(MakeDivider(), ++row, 0, 1, 6);
        ++row;
        for (const Variant &variant : kVariants) {
            auto *words = new QVBoxLayout;
            words->setSpacing(0);
            words->addWidget(MakeElidingLabel(QLatin1String(variant.name), QcLabel::Body));
            words->addWidget(MakeElidingLabel(QLatin1String(variant.role), QcLabel::Hint));
            grid->addLayout(words, row, 0);

            AddLiveButton(grid, row, 1, variant, QString(), variant.squareOnly ? QString() : QStringLiteral("Push"), false, true);
            AddLiveButton(grid, row, 2, variant, QStringLiteral(":/images/select.svg"),
                          variant.squareOnly ? QString() : QStringLiteral("Push"), false, true);
            AddLiveButton(grid, row, 3, variant, QStringLiteral(":/images/close.svg"), QString(), false, true);
            AddLiveButton(grid, row, 4, variant, QStringLiteral(":/images/select.svg"),
                          variant.squareOnly ? QString() : QStringLiteral("Toggle"), true, true);
            AddLiveButton(grid, row, 5, variant, variant.squareOnly ? QStringLiteral(":/images/close.svg") : QString(),
                          variant.squareOnly ? QString() : QStringLiteral("Disabled"), false, false);
            ++row;
        }
        grid->setColumnMinimumWidth(0, 30 * kGrid);
        card->Body()->addLayout(grid);
    }

    static void AddLiveButton(QGridLayout *grid, int row, int column, const Variant &variant, const QString &icon, const QString &text,
                              bool checkable, bool enabled)
    {
        if (icon.isEmpty() && text.isEmpty())
            return;
        QcButton *button = MakeButton(variant, icon, text);
        button->setCheckable(checkable);
        button->setEnabled(enabled);
        button->setToolTip(QStringLiteral("%1%2").arg(QLatin1String(variant.name), checkable ? QStringLiteral(", checkable") : QString()));
        grid->addWidget(button, row, column, Qt::AlignCenter);
    }

    static QcButton *MakeButton(const Variant &variant, const QString &icon, const QString &text)
    {
        QcButton *button = variant.make();
        button->setText(text);
        button->SetIconPath(icon);
        button->setHorizontalMargin(12);
        // An icon by itself is stretched over the button, so the button is square.
        button->setFixedWidth(text.isEmpty() ? 24 : 80);
        return button;
    }

    void AddMatrix(const QString &title, const QString &icon, const QString &text)
    {
        Card *card = AddSection(title);
        QGridLayout *grid = MakeStateGrid();
        int row = 3;
        for (const Variant &variant : kVariants) {
            if (variant.squareOnly && !text.isEmpty())
                continue;
            QcLabel *name = MakeLabel(QLatin1String(variant.name), QcLabel::Body);
            name->setFixedWidth(15 * kGrid);
            name->setFixedHeight(3 * kGrid);
            grid->addWidget(name, row, 0);
            for (int column = 0; column < 8; ++column) {
                QcButton *button = MakeButton(variant, icon, text);
                button->setAccessibleDescription(QLatin1String(kButtonStateNames[column]));
                if (text.isEmpty())
                    button->setAccessibleName(QLatin1String(variant.name));
                if (icon.isEmpty())
                    button->setObjectName(QStringLiteral("%1-%2").arg(QLatin1String(variant.name)).arg(kButtonStates[column]));
                m_holder->Add(button, kButtonStates[column]);
                grid->addWidget(button, row, column + 1, Qt::AlignCenter);
            }
            ++row;
        }
        card->Body()->addLayout(grid);
    }
};

const PageRegistrar registrar({QStringLiteral("buttons"), QStringLiteral("Controls"), QStringLiteral("Push buttons"),
                               QStringLiteral("The push button and its eight variants, in all eight states, with text, icon and both."),
                               300, [] { return new ButtonsPage; }});

} // namespace
