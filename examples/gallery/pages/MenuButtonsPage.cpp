#include "Kit.h"
#include "Page.h"
#include "StateHolder.h"

#include <Velmora/QcMenu.h>
#include <Velmora/QcMenuTextButton.h>
#include <Velmora/QcMenuToolButton.h>

#include <QActionGroup>
#include <QGridLayout>
#include <QHBoxLayout>

using namespace Gallery;
using Velmora::QcMenu;
using Velmora::QcMenuTextButton;
using Velmora::QcMenuToolButton;

namespace {

QcMenuTextButton *MakeText(const QString &text)
{
    auto *button = new QcMenuTextButton;
    button->setText(text);
    button->setHorizontalMargin(kGrid);
    return button;
}

/// An icon in the size in which icons are drawn, in the colours of a toolbar's.
QcMenuToolButton *MakeTool(const QString &icon, const QString &name)
{
    auto *button = new QcMenuToolButton;
    button->setToolTip(name);
    for (const int state : kButtonStates) {
        Velmora::ImageParams params;
        params.path = icon;
        params.size = QSize(24, 24);
        params.color = state == 0 ? "icon/icon_toolbar_disable" : "icon/icon_toolbar";
        button->SetIconParam(QFlag(state), params);
    }
    return button;
}

class MenuButtonsPage : public StatesPage
{
public:
    MenuButtonsPage()
    {
        AddMenuBar();
        AddChoices();
        AddTools();
        AddShapes();
        AddMatrix();
    }

private:
    /// A menu whose entries are told in \a status.
    QMenu *MakeTelling(const QStringList &entries, QcLabel *status)
    {
        auto *menu = new QcMenu(this);
        for (const QString &entry : entries) {
            if (entry.isEmpty())
                menu->addSeparator();
            else
                menu->addAction(entry);
        }
        connect(menu, &QMenu::triggered, status, [status](const QAction *action) { status->setText(action->iconText()); });
        return menu;
    }

    void AddMenuBar()
    {
        Card *card = AddSection(
            QStringLiteral("A row of menus"),
            QStringLiteral("Space opens a menu, and so does Alt with its letter; arrows move in it, Enter chooses, Escape closes."));
        QcLabel *status = MakeLabel(QStringLiteral("Nothing chosen yet"), QcLabel::BodySecondary);
        QHBoxLayout *row = card->AddRow(kGrid / 2);
        const auto add = [&](const QString &text, const QStringList &entries) {
            QcMenuTextButton *button = MakeText(text);
            button->setObjectName(QStringLiteral("menu-") + text.toLower().remove(QLatin1Char('&')));
            button->setMenu(MakeTelling(entries, status));
            row->addWidget(button);
            return button;
        };
        add(QStringLiteral("&File"),
            {QStringLiteral("&New"), QStringLiteral("&Open"), QString(), QStringLiteral("&Save"), QStringLiteral("Save &as")});
        add(QStringLiteral("&Edit"), {QStringLiteral("&Undo"), QStringLiteral("&Redo"), QString(), QStringLiteral("Select &all")});
        QMenu *view = add(QStringLiteral("&View"), {QStringLiteral("Zoom &in"), QStringLiteral("Zoom &out"), QString()})->menu();
        auto *panels = new QcMenu(QStringLiteral("&Panels"), view);
        view->addMenu(panels);
        for (const char *name : {"&Layers", "&History", "&Properties"}) {
            QAction *action = panels->addAction(QLatin1String(name));
            action->setCheckable(true);
            action->setChecked(panels->actions().size() == 1);
        }
        QcMenuTextButton *help = add(QStringLiteral("&Help"), {QStringLiteral("&Contents")});
        help->setEnabled(false);
        row->addSpacing(2 * kGrid);
        row->addWidget(status);
        row->addStretch();
    }

    void AddChoices()
    {
        Card *card = AddSection(QStringLiteral("Choices"),
                                QStringLiteral("The text says what was chosen, and the button makes room for it. The "
                                               "host may give a button a border, another radius and other colours."));
        QHBoxLayout *row = card->AddRow(2 * kGrid);
        row->addWidget(MakeChoice(
            {QStringLiteral("Sort by name"), QStringLiteral("Sort by size"), QStringLiteral("Sort by the date of the last change")}));
        QcMenuTextButton *outlined = MakeChoice({QStringLiteral("All files"), QStringLiteral("Pictures"), QStringLiteral("Documents")});
        for (const int state : kButtonStates)
            outlined->SetBorderColorParams(QFlag(state), QStringLiteral("border/border_secondary"));
        row->addWidget(outlined);
        QcMenuTextButton *brand =
            MakeChoice({QStringLiteral("Publish"), QStringLiteral("Publish later"), QStringLiteral("Keep as a draft")});
        brand->SetBorderRadius(12);
        for (const int state : kButtonStates) {
            if (!(state & QStyle::State_Enabled))
                continue;
            brand->SetTextColorParams(QFlag(state), QStringLiteral("text/text_caption"));
            brand->SetBorderColorParams(QFlag(state), QStringLiteral("brand/brand"));
        }
        row->addWidget(brand);
        row->addStretch();
    }

    /// A button whose menu has one of \a entries checked, which is its text.
    QcMenuTextButton *MakeChoice(const QStringList &entries)
    {
        QcMenuTextButton *button = MakeText(entries.first());
        auto *menu = new QcMenu(this);
        auto *group = new QActionGroup(menu);
        for (const QString &entry : entries) {
            QAction *action = group->addAction(entry);
            action->setCheckable(true);
            action->setChecked(entry == entries.first());
        }
        menu->addActions(group->actions());
        connect(menu, &QMenu::triggered, button, [button](const QAction *action) { button->setText(action->text()); });
        button->setMenu(menu);
        return button;
    }

    void AddTools()
    {
        Card *card =
            AddSection(QStringLiteral("Icons"), QStringLiteral("How the menu opens is the host's choice, as for every tool button of Qt."));
        QcLabel *status = MakeLabel(QStringLiteral("Nothing chosen yet"), QcLabel::BodySecondary);
        QHBoxLayout *row = card->AddRow(kGrid);
        const auto add = [&](const char *icon, const QString &name, QToolButton::ToolButtonPopupMode mode, const QStringList &entries) {
            QcMenuToolButton *button = MakeTool(QLatin1String(icon), name);
            button->setPopupMode(mode);
            button->setMenu(MakeTelling(entries, status));
            row->addWidget(button);
            row->addWidget(MakeLabel(name, QcLabel::Hint));
            row->addSpacing(kGrid);
            return button;
        };
        const QStringList sides = {QStringLiteral("Left"), QStringLiteral("Centre"), QStringLiteral("Right")};
        const QStringList weights = {QStringLiteral("Medium"), QStringLiteral("Bold"), QStringLiteral("Black")};
        const QStringList shapes = {QStringLiteral("Rectangle"), QStringLiteral("Ellipse"), QStringLiteral("Line")};
        add(":/gallery/icons/align_left.svg", QStringLiteral("A press opens the menu"), QToolButton::InstantPopup, sides);
        add(":/gallery/icons/bold.svg", QStringLiteral("A long press opens it, a click toggles"), QToolButton::DelayedPopup, weights);
        add(":/gallery/icons/rectangle.svg", QStringLiteral("Without an arrow"), QToolButton::InstantPopup, shapes)
            ->SetArrowIconVisible(false);
        add(":/gallery/icons/paste.svg", QStringLiteral("Disabled"), QToolButton::InstantPopup, shapes)->setEnabled(false);
        row->addStretch();
        card->Body()->addWidget(status);
    }

    void AddShapes()
    {
        Card *card = AddSection(
            QStringLiteral("Sizes and directions"),
            QStringLiteral("The arrow is at most 32 pixels high and keeps to the top; it stands at the right in both directions."));
        QHBoxLayout *row = card->AddRow(2 * kGrid);
        for (const int height : {24, 32, 48}) {
            QcMenuTextButton *button = MakeChoice({QStringLiteral("%1 pixels").arg(height), QStringLiteral("Another")});
            button->setFixedHeight(height);
            ShowGround(button);
            row->addWidget(button);
        }
        QcMenuTextButton *mirrored =
            MakeChoice({QStringLiteral("\u0642\u0627\u0626\u0645\u0629"), QStringLiteral("\u062e\u064a\u0627\u0631")});
        mirrored->setLayoutDirection(Qt::RightToLeft);
        mirrored->menu()->setLayoutDirection(Qt::RightToLeft);
        ShowGround(mirrored);
        row->addWidget(mirrored);
        QcMenuTextButton *narrow = MakeChoice({QStringLiteral("A text wider than its button"), QStringLiteral("Short")});
        narrow->setFixedWidth(12 * kGrid);
        ShowGround(narrow);
        row->addWidget(narrow);
        QcMenuToolButton *large = MakeTool(QStringLiteral(":/gallery/icons/align_left.svg"), QStringLiteral("Twice as large"));
        large->setFixedSize(88, 64);
        large->SetBackgroundColorParams(QStyle::State_Enabled, QStringLiteral("bg/bg_transluent_subtle_hover"));
        large->setMenu(new QcMenu(this));
        large->menu()->addAction(QStringLiteral("Left"));
        row->addWidget(large);
        row->addStretch();
    }

    /// Lets a button's extent be seen at rest.
    static void ShowGround(QcMenuTextButton *button)
    {
        button->SetBackgroundColorParams(QStyle::State_Enabled, QStringLiteral("bg/bg_transluent_subtle_hover"));
    }

    void AddMatrix()
    {
        Card *card = AddSection(QStringLiteral("States"), QStringLiteral("An open menu shows the last one: checked and pressed."));
        QGridLayout *grid = MakeStateGrid();
        card->Body()->addLayout(grid);
        AddRow(grid, "QcMenuTextButton", [] { return MakeText(QStringLiteral("Save")); });
        AddRow(grid, "QcMenuToolButton", [] {
            auto *button = new QcMenuToolButton;
            button->SetIconPath(QStringLiteral(":/gallery/icons/align_left.svg"));
            return button;
        });
        AddRow(grid, "With an icon of its own size", [] { return MakeTool(QStringLiteral(":/gallery/icons/align_left.svg"), QString()); });
        AddRow(grid, "Without an arrow", [] {
            QcMenuToolButton *button = MakeTool(QStringLiteral(":/gallery/icons/align_left.svg"), QString());
            button->SetArrowIconVisible(false);
            return button;
        });
    }

    template <typename Make>
    void AddRow(QGridLayout *grid, const char *name, const Make &make)
    {
        const int row = grid->rowCount();
        grid->addWidget(MakeLabel(QLatin1String(name), QcLabel::Body), row, 0);
        for (int column = 0; column < 8; ++column) {
            auto *button = make();
            button->setObjectName(QStringLiteral("menu-%1-%2").arg(row).arg(kButtonStates[column]));
            button->setAccessibleName(QLatin1String(name));
            button->setAccessibleDescription(QLatin1String(kButtonStateNames[column]));
            m_holder->Add(button, kButtonStates[column]);
            grid->addWidget(button, row, column + 1, Qt::AlignCenter);
        }
    }
};

const PageRegistrar registrar({QStringLiteral("menu-buttons"), QStringLiteral("Controls"), QStringLiteral("Menu buttons"),
                               QStringLiteral("Buttons that carry a menu: with a text or an icon, and an arrow."), 312,
                               [] { return new MenuButtonsPage; }});

} // namespace
