#include "Kit.h"
#include "Page.h"

#include <Velmora/QcMenu.h>
#include <Velmora/QcMenuTextButton.h>

#include <QContextMenuEvent>
#include <QEvent>
#include <QHBoxLayout>

#include <algorithm>

using namespace Gallery;
using Velmora::QcAction;
using Velmora::QcMenu;
using Velmora::QcMenuTextButton;

namespace {

QString IconPath(const char *name)
{
    return QStringLiteral(":/gallery/icons/%1.svg").arg(QLatin1String(name));
}

QcAction *AddAction(QcMenu *menu, const char *text, const char *icon, const QKeySequence &shortcut = QKeySequence())
{
    QcAction *action = menu->addQcAction(QLatin1String(text));
    if (icon)
        action->SetIconPath(IconPath(icon));
    action->setShortcut(shortcut);
    action->setShortcutContext(Qt::WidgetShortcut); // shown, and not in the way of the page's other menus
    return action;
}

// --- The menus, each made anew for a button and for a picture ---

QcMenu *MakeIcons(QWidget *parent)
{
    auto *menu = new QcMenu(QStringLiteral("&Icons and shortcuts"), parent);
    AddAction(menu, "&Undo", "undo", QKeySequence::Undo);
    AddAction(menu, "&Redo", "redo", QKeySequence::Redo)->setEnabled(false);
    menu->addSeparator();
    AddAction(menu, "&Copy", "copy", QKeySequence::Copy);
    AddAction(menu, "&Paste", "paste", QKeySequence::Paste)->SetIconColor(QStringLiteral("brand/brand"));
    AddAction(menu, "Paste &without its colours", nullptr);
    return menu;
}

QcMenu *MakeTicks(QWidget *parent)
{
    auto *menu = new QcMenu(QStringLiteral("&Ticks"), parent);
    for (const char *name : {"&Rulers", "&Grid", "G&uides", "&Status bar"}) {
        QcAction *action = menu->addQcAction(QLatin1String(name));
        action->setCheckable(true);
        action->setChecked(QLatin1String(name).contains(QLatin1Char('G')));
    }
    menu->actions().last()->setEnabled(false);
    return menu;
}

QcMenu *MakeSubmenus(QWidget *parent)
{
    auto *menu = new QcMenu(QStringLiteral("&Submenus"), parent);
    auto *align = new QcMenu(QStringLiteral("&Align"), menu);
    align->SetIconPath(IconPath("align_left"));
    for (const char *name : {"align_left", "align_center", "align_right"}) {
        QString text = QLatin1String(name + 6);
        text[0] = text.at(0).toUpper();
        text.prepend(QLatin1Char('&'));
        AddAction(align, qPrintable(text), name);
    }
    menu->addQcMenu(align);
    auto *text = new QcMenu(QStringLiteral("&Text"), menu);
    AddAction(text, "&Bold", "bold");
    AddAction(text, "&Italic", "italic");
    text->addQcMenu(MakeTicks(text))->setText(QStringLiteral("&Show"));
    menu->addQcMenu(text)->SetIconPath(IconPath("bold"));
    AddAction(menu, "&Properties", nullptr);
    return menu;
}

QcMenu *MakeLongLabels(QWidget *parent)
{
    auto *menu = new QcMenu(QStringLiteral("&Long labels"), parent);
    AddAction(menu, "Short", nullptr);
    AddAction(menu, "A label of more words than a menu ever has room for", nullptr);
    AddAction(menu, "One with a shortcut, which is never cut off", nullptr, Qt::CTRL | Qt::ALT | Qt::SHIFT | Qt::Key_PageDown);
    auto *submenu = new QcMenu(QStringLiteral("A submenu whose title is as long as the others"), menu);
    AddAction(submenu, "Beside its menu", nullptr);
    menu->addQcMenu(submenu);
    return menu;
}

QcMenu *MakeSixty(QWidget *parent)
{
    auto *menu = new QcMenu(QStringLiteral("Si&xty items"), parent);
    for (int i = 1; i <= 60; ++i)
        menu->addQcAction(QStringLiteral("Item %1").arg(i));
    return menu;
}

QcMenu *MakeRightToLeft(QWidget *parent)
{
    auto *menu = new QcMenu(QStringLiteral("&Right to left"), parent);
    menu->setLayoutDirection(Qt::RightToLeft);
    QcAction *copy = AddAction(menu, "", "copy", QKeySequence::Copy);
    copy->setText(QStringLiteral("\u0646\u0633\u062e"));
    QcAction *grid = menu->addQcAction(QStringLiteral("\u0634\u0628\u0643\u0629"));
    grid->setCheckable(true);
    grid->setChecked(true);
    auto *more = new QcMenu(QStringLiteral("\u0627\u0644\u0645\u0632\u064a\u062f"), menu);
    more->setLayoutDirection(Qt::RightToLeft);
    more->addQcAction(QStringLiteral("\u062e\u064a\u0627\u0631"));
    menu->addQcMenu(more);
    return menu;
}

struct Sample
{
    const char *name; ///< of the button
    QcMenu *(*make)(QWidget *parent);
};

constexpr Sample kSamples[] = {
    {"menuIcons", MakeIcons},     {"menuTicks", MakeTicks}, {"menuSubmenus", MakeSubmenus},
    {"menuLong", MakeLongLabels}, {"menuSixty", MakeSixty}, {"menuRightToLeft", MakeRightToLeft},
};

/// A surface with a context menu.
class ContextArea : public QcFrame
{
public:
    explicit ContextArea(QcMenu *menu)
        : m_menu(menu)
    {
        setBackgroundColorParams(QStringLiteral("bg/bg_transluent_subtle_hover"));
        setBorderRadius(kGrid / 2);
        setFixedHeight(10 * kGrid);
        setFocusPolicy(Qt::StrongFocus);
        setAccessibleName(QStringLiteral("Area with a context menu"));
        auto *layout = new QHBoxLayout(this);
        layout->addWidget(MakeLabel(QStringLiteral("Press the right mouse button, or the menu key"), QcLabel::BodySecondary), 0,
                          Qt::AlignCenter);
    }

protected:
    void contextMenuEvent(QContextMenuEvent *event) override { m_menu->popup(event->globalPos()); }

private:
    QcMenu *m_menu;
};

/// Fills \a action of a menu that is part of the page whenever the page is opened: Qt forgets the active item of a menu that is hidden.
class FilledItem : public QObject
{
public:
    FilledItem(QcMenu *menu, QAction *action)
        : QObject(menu)
        , m_menu(menu)
        , m_action(action)
    {
        menu->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show)
            m_menu->setActiveAction(m_action);
        return QObject::eventFilter(watched, event);
    }

private:
    QcMenu *m_menu;
    QAction *m_action;
};

class MenuPage : public PageWidget
{
public:
    MenuPage()
    {
        AddMenus();
        AddPanels();
        AddContextMenu();
    }

private:
    void AddMenus()
    {
        Card *card =
            AddSection(QStringLiteral("Menus to open"),
                       QStringLiteral("A menu is 120 to 320 pixels wide. One that is taller than the screen scrolls: by the wheel, "
                                      "by the keys, and while the mouse rests on an arrow at its end."));
        m_status = MakeLabel(QStringLiteral("Nothing chosen yet"), QcLabel::BodySecondary);
        m_status->setObjectName(QStringLiteral("menuStatus"));
        QHBoxLayout *row = card->AddRow(kGrid / 2);
        for (const Sample &sample : kSamples) {
            auto *button = new QcMenuTextButton;
            button->setObjectName(QLatin1String(sample.name));
            QcMenu *menu = sample.make(this);
            button->setText(menu->title());
            button->setHorizontalMargin(kGrid);
            button->setMenu(menu);
            Tell(menu);
            row->addWidget(button);
        }
        row->addStretch();
        card->Body()->addWidget(m_status);
    }

    void AddPanels()
    {
        Card *card = AddSection(QStringLiteral("What they show"),
                                QStringLiteral("Icons and ticks stand in one column, which is there once an action is checked or has an "
                                               "icon. An item under the mouse or the keyboard is filled."));
        QHBoxLayout *row = card->AddRow(3 * kGrid);
        for (const Sample &sample : kSamples) {
            if (sample.make == MakeSixty || sample.make == MakeLongLabels)
                continue;
            row->addWidget(HeldOpen(sample.make(this)), 0, Qt::AlignTop);
        }
        row->addStretch();
        card->AddRow()->addWidget(HeldOpen(MakeLongLabels(this)), 0, Qt::AlignLeft);
    }

    /// \a menu as part of the page, an item of it filled.
    static QcMenu *HeldOpen(QcMenu *menu)
    {
        menu->setWindowFlags(Qt::Widget);
        const QList<QAction *> actions = menu->actions();
        const auto plain = std::find_if(actions.cbegin(), actions.cend(), [](const QAction *action) { return !action->menu(); });
        new FilledItem(menu, *plain); // one with a submenu would open it
        MakeSpecimen(menu);
        return menu;
    }

    void AddContextMenu()
    {
        Card *card = AddSection(QStringLiteral("A context menu"));
        QcMenu *menu = MakeIcons(this);
        Tell(menu);
        auto *area = new ContextArea(menu);
        area->setObjectName(QStringLiteral("contextArea"));
        card->Body()->addWidget(area);
    }

    void Tell(QMenu *menu)
    {
        connect(menu, &QMenu::triggered, m_status, [this](const QAction *action) { m_status->setText(action->iconText()); });
    }

    QcLabel *m_status = nullptr;
};

const PageRegistrar registrar({QStringLiteral("menu"), QStringLiteral("Menus"), QStringLiteral("Menu"),
                               QStringLiteral("QcMenu: a popup menu with themed icons, ticks, shortcuts and submenus."), 360,
                               [] { return new MenuPage; }});

} // namespace
