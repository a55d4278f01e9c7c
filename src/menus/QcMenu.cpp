#include <Velmora/KeyboardCues.h>
#include <Velmora/QcMenu.h>

#include "core/ApplicationEvents_p.h"
#include "menus/MenuAccessible_p.h"
#include "menus/MenuIcon_p.h"
#include "menus/QcMenuStyle_p.h"

#include <QKeyEvent>
#include <QPointer>

namespace Velmora {

namespace {

constexpr int kMinimumWidth = 120;
constexpr int kMaximumWidth = 320;

/// The key may still be held that opened the menu or a submenu, where another item would be chosen next.
bool IsRepeatedChoice(const QKeyEvent &event)
{
    return event.isAutoRepeat() && (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter);
}

} // namespace

QcMenu::QcMenu(QWidget *parent)
    : QMenu(parent)
{
    init();
}

QcMenu::QcMenu(const QString &title, QWidget *parent)
    : QMenu(title, parent)
{
    init();
}

void QcMenu::init()
{
    InstallMenuAccessibility();
    setMinimumWidth(kMinimumWidth);
    setMaximumWidth(kMaximumWidth);
    m_pMenuStyle = QcMenuStyle::Shared();
    setStyle(m_pMenuStyle);
    setWindowFlags(Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_NoSystemBackground);
}

// --- Icons ---

void QcMenu::SetIconPath(const QString &path)
{
    setProperty(kIconPath, path);
}

void QcMenu::SetIconColor(const QString &code)
{
    if (!code.isEmpty())
        setProperty(kIconColor, code);
}

const char *QcMenu::GetIconPathProperty()
{
    return kIconPath;
}

const char *QcMenu::GetIconColorProperty()
{
    return kIconColor;
}

const char *QcMenu::GetIconSrcMulColorProperty()
{
    return kIconMulColor;
}

// --- Actions ---

QcAction *QcMenu::addQcAction(const QString &text)
{
    auto *action = new QcAction(text, this);
    addAction(action);
    return action;
}

QcAction *QcMenu::addQcMenu(QMenu *menu)
{
    if (!menu || menu == this)
        return nullptr;
    auto *action = new QcAction(menu->title(), this);
    action->setMenu(menu);
    addAction(action);
    return action;
}

void QcMenu::actionEvent(QActionEvent *event)
{
    QMenu::actionEvent(event);
}

// --- Keys ---

void QcMenu::keyPressEvent(QKeyEvent *event)
{
    if (KeyboardCuesEnabled() && IsRepeatedChoice(*event))
        return;
    const QPointer<QcMenu> self(this); // an action may be triggered
    QMenu::keyPressEvent(event);
    // Qt leaves a long menu where it is when the first key goes to its last item.
    if (!self || !activeAction())
        return;
    const QRect item = actionGeometry(activeAction());
    if (item.top() < 0 || item.bottom() >= height())
        setActiveAction(activeAction());
}

// --- Submenus ---

void QcMenu::showEvent(QShowEvent *event)
{
    WatchApplicationEvents(this, {QEvent::Show});
    QMenu::showEvent(event);
}

void QcMenu::hideEvent(QHideEvent *event)
{
    UnwatchApplicationEvents(this);
    QMenu::hideEvent(event);
}

bool QcMenu::eventFilter(QObject *watched, QEvent *event)
{
    const QAction *action = event->type() == QEvent::Show ? activeAction() : nullptr;
    if (action && watched == action->menu())
        BringNear(*action->menu());
    return QMenu::eventFilter(watched, event);
}

/// Qt opens a submenu beside the end of its item, which may lie far outside of the menu. It is moved before it is on the screen. Only a
/// right end lies outside, in both directions of layout.
void QcMenu::BringNear(QMenu &submenu) const
{
    const int beside = mapToGlobal(rect().topRight()).x() + 1;
    if (submenu.x() > beside)
        submenu.move(beside, submenu.y());
}

} // namespace Velmora
