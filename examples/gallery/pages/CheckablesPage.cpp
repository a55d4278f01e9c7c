#include "Kit.h"
#include "Page.h"
#include "StateHolder.h"

#include <Velmora/QcCheckBox.h>
#include <Velmora/QcRadioButton.h>
#include <Velmora/QcSwitchButton.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Gallery;
using Velmora::QcCheckBox;
using Velmora::QcRadioButton;
using Velmora::QcSwitchButton;

namespace {

constexpr const char *kStateNames[] = {"Disabled", "Normal", "Hover", "Pressed"};
constexpr int kStates[] = {
    QStyle::State_None,
    QStyle::State_Enabled,
    QStyle::State_Enabled | QStyle::State_MouseOver,
    QStyle::State_Enabled | QStyle::State_Sunken,
};

/// A check box or radio button held in one state. Whether it is hovered depends on where a click would hit.
template <typename Button>
class Held : public Button
{
public:
    Held(const QString &text, int state, bool isChecked)
        : m_isHovered(state & QStyle::State_MouseOver)
    {
        this->setText(text);
        MakeSpecimen(this);
        this->setAutoExclusive(false);
        this->setChecked(isChecked);
        this->setEnabled(state & QStyle::State_Enabled);
        this->setDown(state & QStyle::State_Sunken);
    }

protected:
    bool hitButton(const QPoint & /*position*/) const override { return m_isHovered; }

private:
    bool m_isHovered;
};

class CheckablesPage : public StatesPage
{
public:
    CheckablesPage()
    {
        AddLive();
        AddMatrix();
    }

private:
    void AddLive()
    {
        Card *card = AddSection(QStringLiteral("Live"),
                                QStringLiteral("Space toggles, and so does Alt with a letter; arrows move among radio buttons."));
        QHBoxLayout *boxes = card->AddRow(3 * kGrid);
        auto *all = new QcCheckBox;
        all->setText(QStringLiteral("&All of them"));
        all->setTristate();
        boxes->addWidget(all);
        QVector<QcCheckBox *> parts;
        for (const char *name : {"&Rulers", "&Grid", "G&uides"}) {
            auto *part = new QcCheckBox;
            part->setText(QLatin1String(name));
            boxes->addWidget(part);
            parts.append(part);
        }
        boxes->addStretch();
        const auto follow = [all, parts] {
            int checked = 0;
            for (const QcCheckBox *part : parts)
                checked += part->isChecked() ? 1 : 0;
            all->setCheckState(checked == 0 ? Qt::Unchecked : checked == parts.size() ? Qt::Checked : Qt::PartiallyChecked);
        };
        for (QcCheckBox *part : qAsConst(parts))
            connect(part, &QAbstractButton::clicked, this, follow);
        connect(all, &QAbstractButton::clicked, this, [all, parts] {
            const bool isOn = all->checkState() != Qt::Unchecked;
            all->setCheckState(isOn ? Qt::Checked : Qt::Unchecked);
            for (QcCheckBox *part : parts)
                part->setChecked(isOn);
        });
        parts.first()->setChecked(true);
        follow();

        auto *group = new QWidget;
        auto *choices = new QHBoxLayout(group);
        choices->setContentsMargins(0, 0, 0, 0);
        choices->setSpacing(3 * kGrid);
        for (const char *name : {"&Left", "&Centre", "R&ight"}) {
            auto *choice = new QcRadioButton;
            choice->setText(QLatin1String(name));
            choice->setChecked(choices->isEmpty());
            choices->addWidget(choice);
        }
        auto *triggered = new QcRadioButton;
        triggered->setText(QStringLiteral("&Justified"));
        choices->addWidget(triggered);
        QcLabel *trigger = MakeLabel(QStringLiteral("(or click here)"), QcLabel::Hint);
        triggered->setTriggerWidget(trigger);
        choices->addWidget(trigger);
        choices->addStretch();
        card->Body()->addWidget(group);

        QHBoxLayout *row = card->AddRow();
        auto *toggle = new QcSwitchButton;
        toggle->setAccessibleName(QStringLiteral("Snap to grid"));
        row->addWidget(toggle);
        QcLabel *name = MakeLabel(QStringLiteral("&Snap to grid"), QcLabel::Body);
        name->setBuddy(toggle);
        row->addWidget(name);
        row->addStretch();

        QHBoxLayout *longTexts = card->AddRow(3 * kGrid);
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            longTexts->addWidget(MakeNarrow(new QcCheckBox, direction));
            longTexts->addWidget(MakeNarrow(new QcRadioButton, direction));
        }
        longTexts->addStretch();
    }

    static QWidget *MakeNarrow(QAbstractButton *button, Qt::LayoutDirection direction)
    {
        button->setText(QStringLiteral("A text too long for its place is elided at its end"));
        button->setFixedWidth(22 * kGrid);
        button->setLayoutDirection(direction);
        button->setAutoExclusive(false);
        return button;
    }

    void AddMatrix()
    {
        Card *card = AddSection(QStringLiteral("States"));
        m_grid = new QGridLayout;
        m_grid->setHorizontalSpacing(kGrid);
        m_grid->setVerticalSpacing(kGrid);
        for (int column = 0; column < 4; ++column) {
            m_grid->addWidget(MakeLabel(QLatin1String(kStateNames[column]), QcLabel::BodySecondary), 0, column + 1, Qt::AlignCenter);
            m_grid->setColumnStretch(column + 1, 1);
        }
        m_grid->addWidget(MakeDivider(), 1, 0, 1, 5);
        const QString text = QStringLiteral("Label");
        AddRow("QcCheckBox", "unchecked", [&](int state) { return new Held<QcCheckBox>(text, state, false); });
        AddRow("QcCheckBox", "partially checked", [&](int state) {
            auto *box = new Held<QcCheckBox>(text, state, false);
            box->setCheckState(Qt::PartiallyChecked);
            return box;
        });
        AddRow("QcCheckBox", "checked", [&](int state) { return new Held<QcCheckBox>(text, state, true); });
        AddRow("QcRadioButton", "unchecked", [&](int state) { return new Held<QcRadioButton>(text, state, false); });
        AddRow("QcRadioButton", "checked", [&](int state) { return new Held<QcRadioButton>(text, state, true); });
        AddRow("QcSwitchButton", "off", [this](int state) { return MakeSwitch(state); });
        AddRow("QcSwitchButton", "on", [this](int state) { return MakeSwitch(state | QStyle::State_Selected); });
        card->Body()->addLayout(m_grid);
    }

    template <typename Make>
    void AddRow(const char *name, const char *check, const Make &make)
    {
        const int row = m_grid->rowCount();
        m_grid->addWidget(MakeLabel(QStringLiteral("%1, %2").arg(QLatin1String(name), QLatin1String(check)), QcLabel::Body), row, 0);
        for (int column = 0; column < 4; ++column)
            m_grid->addWidget(make(kStates[column]), row, column + 1, Qt::AlignCenter);
    }

    QcSwitchButton *MakeSwitch(int state)
    {
        auto *button = new QcSwitchButton;
        button->setAccessibleName(QStringLiteral("QcSwitchButton"));
        m_holder->Add(button, state);
        return button;
    }

    QGridLayout *m_grid = nullptr;
};

const PageRegistrar registrar({QStringLiteral("checkables"), QStringLiteral("Controls"), QStringLiteral("Check, radio and switch"),
                               QStringLiteral("Controls that are on or off, or in between, in all their states."), 320,
                               [] { return new CheckablesPage; }});

} // namespace
