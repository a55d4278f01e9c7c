#include "Kit.h"
#include "Page.h"
#include "StateHolder.h"

#include <Velmora/QcCombinedToolButton.h>
#include <Velmora/QcMenu.h>
#include <Velmora/QcToolButton.h>
#include <Velmora/QcToolColorButton.h>

#include <QAction>
#include <QActionGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QMouseEvent>

using namespace Gallery;
using Velmora::QcCombinedToolButton;
using Velmora::QcMenu;
using Velmora::QcToolButton;
using Velmora::QcToolColorButton;

namespace {

QString IconPath(const char *name)
{
    return QStringLiteral(":/gallery/icons/%1.svg").arg(QLatin1String(name));
}

/// A combined button whose halves are held in one state each. What the mouse would tell the halves is told to the control.
class HeldCombined : public QcCombinedToolButton
{
public:
    explicit HeldCombined(int mainState, bool isArrowHovered = false)
    {
        MakeSpecimen(this);
        SetIconPath(IconPath("rectangle"));
        setAccessibleName(QStringLiteral("QcCombinedToolButton"));
        const QList<QcToolButton *> halves = findChildren<QcToolButton *>();
        QcToolButton *main = halves.first();
        main->setChecked(mainState & QStyle::State_Selected);
        setEnabled(mainState & QStyle::State_Enabled);
        if (mainState & (QStyle::State_MouseOver | QStyle::State_Sunken))
            Tell(main, QEvent::Enter);
        if (mainState & QStyle::State_Sunken)
            Tell(main, QEvent::MouseButtonPress);
        if (isArrowHovered)
            Tell(halves.last(), QEvent::Enter);
    }

private:
    void Tell(QcToolButton *half, QEvent::Type type)
    {
        QMouseEvent event(type, QPointF(1, 1), QCursor::pos(), Qt::RightButton, Qt::RightButton, Qt::NoModifier);
        eventFilter(half, &event);
    }
};

class ToolButtonsPage : public StatesPage
{
public:
    ToolButtonsPage()
    {
        AddToolbar();
        AddColors();
        AddMatrix();
    }

private:
    void AddToolbar()
    {
        Card *card =
            AddSection(QStringLiteral("Live"), QStringLiteral("Tab moves along the bar, Space presses, Down opens the menu of shapes."));
        auto *bar = new QcFrame;
        bar->setBackgroundColorParams(QStringLiteral("bg/bg_secondary"));
        bar->setBorderRadius(4);
        auto *row = new QHBoxLayout(bar);
        row->setContentsMargins(kGrid, kGrid / 2, kGrid, kGrid / 2);
        row->setSpacing(kGrid / 2);
        m_status = MakeLabel(QStringLiteral("Nothing pressed yet"), QcLabel::BodySecondary);

        AddTool(row, "undo", "Undo");
        AddTool(row, "redo", "Redo")->setEnabled(false);
        AddSeparator(row);
        AddTool(row, "copy", "Copy");
        AddTool(row, "paste", "Paste");
        AddSeparator(row);
        AddTool(row, "bold", "Bold")->setCheckable(true);
        AddTool(row, "italic", "Italic")->setCheckable(true);
        AddTool(row, "underline", "Underline")->setCheckable(true);
        AddSeparator(row);
        auto *sides = new QActionGroup(this); // one of them is checked at a time
        for (const char *side : {"left", "center", "right"}) {
            auto *action = new QAction(QStringLiteral("Align: %1").arg(QLatin1String(side)), sides);
            action->setCheckable(true);
            action->setChecked(sides->actions().size() == 1);
            AddTool(row, (QByteArray("align_") + side).constData(), side)->setDefaultAction(action);
        }
        AddSeparator(row);
        row->addWidget(MakeShapes());
        row->addStretch();
        card->Body()->addWidget(bar);
        card->Body()->addWidget(m_status);
    }

    QcToolButton *AddTool(QHBoxLayout *row, const char *icon, const char *name)
    {
        auto *button = new QcToolButton;
        button->setFixedWidth(24);
        button->setIconSize(QSize(16, 16));
        button->SetIconPath(IconPath(icon));
        button->setText(QLatin1String(name));
        button->setToolTip(QLatin1String(name));
        connect(button, &QAbstractButton::clicked, this, [this, button] { m_status->setText(button->text()); });
        row->addWidget(button);
        return button;
    }

    static void AddSeparator(QHBoxLayout *row)
    {
        auto *line = new QcFrame;
        line->setBackgroundColorParams(QStringLiteral("border/border_secondary"));
        line->setFixedSize(1, 2 * kGrid);
        row->addSpacing(kGrid / 2);
        row->addWidget(line);
        row->addSpacing(kGrid / 2);
    }

    QcCombinedToolButton *MakeShapes()
    {
        auto *shapes = new QcCombinedToolButton;
        shapes->setToolTip(QStringLiteral("Shape to draw"));
        auto *menu = new QcMenu(this);
        auto *group = new QActionGroup(this);
        group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional); // one shape or none
        for (const char *name : {"rectangle", "ellipse", "line", "arrow"}) {
            QString title = QLatin1String(name);
            title[0] = title.at(0).toUpper();
            QAction *action = group->addAction(title);
            action->setCheckable(true);
            action->setProperty("ActionIconPath", IconPath(name)); // for the button
            action->setProperty(QcMenu::GetIconPathProperty(), IconPath(name));
            connect(action, &QAction::triggered, this, [this, title](bool isOn) {
                m_status->setText(isOn ? QStringLiteral("Drawing: %1").arg(title.toLower()) : QStringLiteral("Drawing: nothing"));
            });
        }
        menu->addActions(group->actions());
        shapes->setMenu(menu);
        shapes->SetCurrentAction(menu->actions().first());
        return shapes;
    }

    void AddColors()
    {
        Card *card =
            AddSection(QStringLiteral("Two colours of the host"),
                       QStringLiteral("QcToolColorButton takes another pair of tokens at any time and follows the table with it."));
        QHBoxLayout *row = card->AddRow(2 * kGrid);
        QVector<QcToolColorButton *> buttons;
        for (const char *icon : {"bold", "align_left", "ellipse", "copy"}) {
            auto *button = new QcToolColorButton;
            button->setFixedWidth(24);
            button->setIconSize(QSize(16, 16));
            button->SetIconPath(IconPath(icon));
            button->setToolTip(QLatin1String(icon));
            button->setCheckable(true);
            button->setEnabled(buttons.size() != 3);
            row->addWidget(button);
            buttons.append(button);
        }
        row->addSpacing(kGrid);
        auto *choice = new Segmented({QStringLiteral("Toolbar"), QStringLiteral("Brand"), QStringLiteral("Link")});
        row->addWidget(choice);
        row->addStretch();
        connect(choice, &Segmented::SignalCurrentChanged, this, [buttons](int index) {
            static constexpr const char *kPairs[][2] = {
                {"icon/icon_toolbar", "icon/icon_toolbar_disable"},
                {"brand/brand", "brand/brand_disable"},
                {"link/link", "link/link_disable"},
            };
            for (QcToolColorButton *button : buttons)
                button->setChangeColor(QLatin1String(kPairs[index][0]), QLatin1String(kPairs[index][1]));
        });
        choice->SetCurrentIndex(1);
    }

    void AddMatrix()
    {
        Card *card = AddSection(QStringLiteral("States"));
        QGridLayout *grid = MakeStateGrid();
        AddRow(grid, "QcToolButton", [this](int state) { return Hold(new QcToolButton, state); });
        AddRow(grid, "QcToolColorButton", [this](int state) {
            auto *button = new QcToolColorButton;
            button->setChangeColor(QStringLiteral("brand/brand"), QStringLiteral("brand/brand_disable"));
            return Hold(button, state);
        });
        AddRow(grid, "QcCombinedToolButton", [](int state) { return new HeldCombined(state); });
        AddRow(grid, "the same, arrow hovered", [](int state) { return new HeldCombined(state & ~QStyle::State_MouseOver, true); });
        AddRow(grid, "the same, right to left", [](int state) {
            auto *button = new HeldCombined(state);
            button->setLayoutDirection(Qt::RightToLeft);
            return button;
        });
        card->Body()->addLayout(grid);
    }

    template <typename Make>
    static void AddRow(QGridLayout *grid, const char *name, const Make &make)
    {
        const int row = grid->rowCount();
        QcLabel *label = MakeLabel(QLatin1String(name), QcLabel::Body);
        label->setFixedWidth(22 * kGrid);
        grid->addWidget(label, row, 0);
        for (int column = 0; column < 8; ++column)
            grid->addWidget(make(kButtonStates[column]), row, column + 1, Qt::AlignCenter);
    }

    QWidget *Hold(QcToolButton *button, int state)
    {
        button->setFixedWidth(24);
        button->setIconSize(QSize(16, 16));
        button->SetIconPath(IconPath("align_left"));
        button->setAccessibleName(QLatin1String(button->metaObject()->className()));
        m_holder->Add(button, state);
        return button;
    }

    QcLabel *m_status = nullptr;
};

const PageRegistrar registrar({QStringLiteral("tool-buttons"), QStringLiteral("Controls"), QStringLiteral("Tool buttons"),
                               QStringLiteral("Buttons for toolbars: icon only, in two colours of the host, and split with a menu."), 310,
                               [] { return new ToolButtonsPage; }});

} // namespace
