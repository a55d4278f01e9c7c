#include "windows/VeilGuard_p.h"

#include "core/ApplicationEvents_p.h"
#include "core/QtCompatibility_p.h"

#include <Velmora/Veils.h>

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QFocusEvent>
#include <QMenu>
#include <QShortcut>
#include <QVector>

#include <algorithm>

namespace Velmora {

namespace {

bool stopsKeyboard = false;

/// Those of veils that are shown.
QVector<VeilGuard *> &Lowered()
{
    static QVector<VeilGuard *> guards;
    return guards;
}

bool IsTabStop(const QWidget &widget)
{
    return widget.isVisible() && widget.isEnabled() && !widget.focusProxy() && (widget.focusPolicy() & Qt::TabFocus);
}

/// The widgets from which a user would run the shortcut of \a receiver.
QList<QWidget *> OwnersOf(QObject *receiver)
{
    if (auto *widget = qobject_cast<QWidget *>(receiver))
        return {widget};
    if (auto *shortcut = qobject_cast<QShortcut *>(receiver))
        return {qobject_cast<QWidget *>(shortcut->parent())};
    auto *action = qobject_cast<QAction *>(receiver);
    QList<QWidget *> owners = action ? WidgetsWith(*action) : QList<QWidget *>();
    for (QWidget *&owner : owners) {
        if (qobject_cast<QMenu *>(owner) && owner->parentWidget())
            owner = owner->parentWidget();
    }
    return owners;
}

/// Where \a widget is seen in its window, on the screen.
QRect PlaceOf(const QWidget &widget)
{
    const QWidget *window = widget.window();
    return QRect(widget.mapToGlobal(QPoint()), widget.size()) & QRect(window->mapToGlobal(QPoint()), window->size());
}

void AnnounceFocus()
{
    if (!QAccessible::isActive() || !QApplication::focusWidget())
        return;
    QAccessibleEvent event(QApplication::focusWidget(), QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

} // namespace

void SetVeilsStopKeyboard(bool enabled)
{
    stopsKeyboard = enabled;
}

bool VeilsStopKeyboard()
{
    return stopsKeyboard;
}

VeilGuard::VeilGuard(QWidget &veil)
    : QObject(&veil)
    , m_veil(&veil)
{
    veil.installEventFilter(this);
}

VeilGuard::~VeilGuard()
{
    Lift();
}

bool VeilGuard::Guards(const QWidget &veil)
{
    const auto isOfVeil = [&veil](const VeilGuard *guard) { return guard->m_veil == &veil; };
    return std::any_of(Lowered().cbegin(), Lowered().cend(), isOfVeil);
}

bool VeilGuard::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    // Of the whole application, while the veil is shown
    case QEvent::FocusIn:
        if (watched != QApplication::focusWidget() || !KeepsFrom(*QApplication::focusWidget()))
            return false;
        m_refused = QApplication::focusWidget();
        PassFocusOn(*m_refused, static_cast<QFocusEvent *>(event)->reason());
        return true;
    case QEvent::FocusOut:
        if (watched != m_refused)
            return false;
        m_refused = nullptr;
        return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
        return IsRefused(watched);
    default:
        if (watched == m_veil)
            FollowVeil(event->type());
        return false;
    }
}

void VeilGuard::FollowVeil(QEvent::Type type)
{
    switch (type) {
    case QEvent::Show:
        if (stopsKeyboard && !m_isLowered)
            Lower();
        break;
    case QEvent::Hide:
        Lift();
        break;
    case QEvent::Move:
    case QEvent::Resize:
        if (m_isLowered)
            TakeFocus();
        break;
    default:
        break;
    }
}

void VeilGuard::Lower()
{
    m_isLowered = true;
    Lowered().append(this);
    WatchApplicationEvents(
        this, {QEvent::FocusIn, QEvent::FocusOut, QEvent::KeyPress, QEvent::KeyRelease, QEvent::ShortcutOverride, QEvent::Shortcut});
    TakeFocus();
}

void VeilGuard::Lift()
{
    if (!m_isLowered)
        return;
    m_isLowered = false;
    Lowered().removeOne(this);
    UnwatchApplicationEvents(this);
    // Unless the program has given the keyboard to something else meanwhile, or it is all going.
    const QPointer<QWidget> previous = m_previous;
    m_previous = nullptr;
    if (!previous || !previous->isVisible())
        return;
    const QWidget *focus = previous->window()->focusWidget();
    if (!focus || m_veil->isAncestorOf(focus))
        previous->setFocus(Qt::OtherFocusReason);
}

// --- What lies under it ---

/// Whether \a widget is one of those that the veil could cover.
bool VeilGuard::IsBelow(const QWidget &widget) const
{
    const QWidget *parent = m_veil->parentWidget();
    if (m_veil->isWindow())
        return parent && parent->window() == widget.window();
    if (widget.window() != m_veil->window() || m_veil->isAncestorOf(&widget))
        return false;
    if (widget.isAncestorOf(m_veil))
        return true;
    // The two siblings that they lie in, of which the later one is above.
    const QWidget *branch = &widget;
    while (!branch->parentWidget()->isAncestorOf(m_veil))
        branch = branch->parentWidget();
    const QObjectList &siblings = branch->parentWidget()->children();
    const auto holdsVeil = [this](const QObject *sibling) {
        return sibling->isWidgetType() && static_cast<const QWidget *>(sibling)->isAncestorOf(m_veil);
    };
    const auto veil = std::find_if(siblings.begin(), siblings.end(), holdsVeil);
    return std::find(siblings.begin(), veil, branch) != veil;
}

/// Whether it covers all of \a widget, or of something around that which the veil does not lie in itself: what was scrolled out of sight
/// there is no more to be had than the rest.
bool VeilGuard::Covers(const QWidget &widget) const
{
    const QRect place(m_veil->mapToGlobal(QPoint()), m_veil->size());
    for (const QWidget *outer = &widget; outer; outer = outer->isWindow() ? nullptr : outer->parentWidget()) {
        if (outer != &widget && outer->isAncestorOf(m_veil))
            return false;
        if (place.contains(PlaceOf(*outer)))
            return true;
    }
    return false;
}

bool VeilGuard::LiesUnderAny(const QWidget &widget)
{
    const auto lies = [&widget](const VeilGuard *guard) { return guard->KeepsFrom(widget); };
    return std::any_of(Lowered().cbegin(), Lowered().cend(), lies);
}

/// The keyboard that it passes on itself is kept from it in turn by a veil above.
bool VeilGuard::KeepsFrom(const QWidget &widget) const
{
    return IsBelow(widget) && Covers(widget);
}

/// Whether nothing from which \a receiver gets its keys can be reached.
bool VeilGuard::IsRefused(QObject *receiver) const
{
    const QList<QWidget *> owners = OwnersOf(receiver);
    return !owners.isEmpty() && std::all_of(owners.begin(), owners.end(), [](const QWidget *owner) { return LiesUnderAny(*owner); });
}

// --- The keyboard ---

/// From what lies under the veil.
void VeilGuard::TakeFocus()
{
    const QWidget *ground = m_veil->isWindow() ? m_veil->parentWidget() : m_veil;
    QWidget *focus = ground ? ground->window()->focusWidget() : nullptr;
    if (!focus || !LiesUnderAny(*focus))
        return;
    m_previous = focus;
    PassFocusOn(*focus, Qt::OtherFocusReason);
}

/// To the next widget that Tab reaches from \a from, or else to the veil.
void VeilGuard::PassFocusOn(QWidget &from, Qt::FocusReason reason)
{
    if (QAccessible::isActive()) // later, since Qt announces the one that was refused
        QMetaObject::invokeMethod(this, &AnnounceFocus, Qt::QueuedConnection);
    const bool goesOn = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
    const bool isBack = reason == Qt::BacktabFocusReason;
    QWidget *start = goesOn ? &from : m_veil;
    const auto next = [isBack](const QWidget *widget) { return isBack ? widget->previousInFocusChain() : widget->nextInFocusChain(); };
    for (QWidget *widget = next(start); widget != start; widget = next(widget)) {
        const bool isCandidate = goesOn || m_veil->isAncestorOf(widget);
        if (isCandidate && IsTabStop(*widget) && widget->window() == start->window() && !LiesUnderAny(*widget)) {
            widget->setFocus(reason);
            return;
        }
    }
    if (m_veil->isWindow()) {
        const QPointer<VeilGuard> alive(this);
        from.clearFocus(); // of which hosts hear
        if (!alive)
            return;
        m_veil->activateWindow();
    }
    m_veil->setFocus(reason);
}

} // namespace Velmora
