#include "windows/QcWindowHandler_p.h"

#include "core/ApplicationEvents_p.h"

#include <QCoreApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QMultiHash>
#include <QScreen>
#include <QWindow>

namespace Velmora {

namespace {

constexpr unsigned int kWmNcCalcSize = 0x0083;

// A press or move comes to the window first, at any place of it, and then to the widget there.
bool IsWindowOfWidget(const QObject *watched)
{
    return watched->inherits("QWidgetWindow");
}

// True for the window itself and for native windows inside of it, not for those that float over it.
bool LiesIn(const QObject *pressed, const QWindow &window)
{
    return pressed == &window || window.isAncestorOf(qobject_cast<const QWindow *>(pressed), QWindow::ExcludeTransients);
}

Qt::CursorShape CursorFor(Qt::Edges edges)
{
    if (edges == (Qt::TopEdge | Qt::LeftEdge) || edges == (Qt::BottomEdge | Qt::RightEdge))
        return Qt::SizeFDiagCursor;
    if (edges == (Qt::TopEdge | Qt::RightEdge) || edges == (Qt::BottomEdge | Qt::LeftEdge))
        return Qt::SizeBDiagCursor;
    return edges & (Qt::LeftEdge | Qt::RightEdge) ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

// The window system has taken the mouse, and on X11 its release never comes. Without one Qt would go on to give every move to
// what was pressed, so that nothing else could be hovered, and a button at the edge would stay down. It comes from outside of the
// window, so that it clicks nothing, and after the press, which is still on its way.
void PostReleaseOutside(QWindow *window, const QMouseEvent &press)
{
    const QPointF outside(-1, -1);
    const QPointF global = window->mapToGlobal(outside.toPoint());
    QCoreApplication::postEvent(
        window, new QMouseEvent(QEvent::MouseButtonRelease, outside, outside, global, press.button(), Qt::NoButton, press.modifiers()));
}

/// Knows the handlers by their title bars, and hands each press on a title bar to its handler, before the title bar or a filter on it has
/// it: one look a press, however many windows there are. The application's child.
class TitleBars : public QObject
{
public:
    static void Add(QObject *titleBar, QcWindowHandler *handler)
    {
        if (!Current())
            Current() = new TitleBars(QCoreApplication::instance()); // the application's child
        TitleBars *titleBars = Current();
        titleBars->m_handlers.insert(titleBar, handler);
        connect(titleBar, &QObject::destroyed, titleBars, [titleBars, titleBar] { titleBars->m_handlers.remove(titleBar); });
    }

    static void Remove(const QObject *titleBar, QcWindowHandler *handler)
    {
        if (Current())
            Current()->m_handlers.remove(titleBar, handler);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto handlers = m_handlers.values(watched);
        for (QcWindowHandler *handler : handlers)
            handler->StartMove(*event);
        return false;
    }

private:
    explicit TitleBars(QObject *application)
        : QObject(application)
    {
        WatchApplicationEvents(this, {QEvent::MouseButtonPress});
    }

    /// Those of the application that lives now; null before the first title bar and after the application.
    static QPointer<TitleBars> &Current()
    {
        static QPointer<TitleBars> titleBars;
        return titleBars;
    }

    QMultiHash<const QObject *, QcWindowHandler *> m_handlers;
};

} // namespace

QcWindowHandler::QcWindowHandler(QWidget *parent, const NativeFrame *native)
    : QObject(parent)
    , m_native(native)
{
}

QcWindowHandler::~QcWindowHandler()
{
    setTitleBar(nullptr);
}

void QcWindowHandler::setWidget(QWidget *widget)
{
    if (m_widget)
        m_widget->removeEventFilter(this);
    m_widget = widget;
    if (m_widget)
        m_widget->installEventFilter(this);
    WatchWhileNeeded();
    applyNativeStyle();
}

void QcWindowHandler::setTitleBar(QWidget *titleBar)
{
    if (m_titleBar)
        TitleBars::Remove(m_titleBar, this);
    m_titleBar = titleBar;
    if (m_titleBar)
        TitleBars::Add(m_titleBar, this);
}

void QcWindowHandler::setBorderWidth(int width)
{
    const bool hadEdges = m_borderWidth > 0;
    m_borderWidth = width;
    if (m_widget && hadEdges && width <= 0)
        ClearCursor();
    WatchWhileNeeded();
}

void QcWindowHandler::setNativeFrame(bool enabled)
{
    m_nativeFrame = enabled;
    // Only while it has something to answer: native messages are many, and so may be the windows.
    if (UsesNativeFrame())
        QCoreApplication::instance()->installNativeEventFilter(this);
    else
        QCoreApplication::instance()->removeNativeEventFilter(this);
    applyNativeStyle();
}

void QcWindowHandler::applyNativeStyle()
{
    if (m_widget && UsesNativeFrame())
        m_native->addFrameStyle(m_widget->winId());
}

// --- Events ---

void QcWindowHandler::WatchWhileNeeded()
{
    const bool isNeeded = m_widget && ((m_borderWidth > 0 && m_widget->isActiveWindow()) || HasCursor());
    if (isNeeded == m_isWatching)
        return;
    m_isWatching = isNeeded;
    if (isNeeded)
        WatchApplicationEvents(this, {QEvent::MouseButtonPress, QEvent::MouseMove});
    else
        UnwatchApplicationEvents(this);
}

bool QcWindowHandler::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_widget)
        ServeWidget(event->type());
    else if (m_widget && IsWindowOfWidget(watched))
        ServeWindow(watched, *event);
    return QObject::eventFilter(watched, event);
}

void QcWindowHandler::ServeWidget(QEvent::Type type)
{
    switch (type) {
    case QEvent::Show:
        if (m_firstShow) {
            m_firstShow = false;
            FollowScreenChanges();
        }
        WatchWhileNeeded(); // it was told of no activation while hidden, and may have become a window, or a widget inside of one
        break;
    case QEvent::WindowDeactivate:
        WatchWhileNeeded();
        ClearCursor();
        break;
    case QEvent::WindowActivate:
    case QEvent::CursorChange:
        WatchWhileNeeded();
        break;
    case QEvent::WindowStateChange:
        if (UsesNativeFrame())
            UpdateMaximisedMargins();
        break;
    default:
        break;
    }
}

void QcWindowHandler::ServeWindow(const QObject *window, const QEvent &event)
{
    // At a press too: after a fast move out of the band none may have come, and a panel tells by its cursor whether a press resizes.
    if (event.type() == QEvent::MouseMove || m_borderWidth > 0)
        UpdateCursor();
    if (event.type() == QEvent::MouseButtonPress && IsResizable())
        StartResize(window, event);
}

void QcWindowHandler::StartMove(const QEvent &press)
{
    QWindow *window = m_widget ? m_widget->windowHandle() : nullptr;
    if (window && window->startSystemMove())
        PostReleaseOutside(window, static_cast<const QMouseEvent &>(press));
}

void QcWindowHandler::StartResize(const QObject *pressed, const QEvent &press)
{
    QWindow *window = m_widget->windowHandle();
    // Beyond an edge counts as on it, and the window stays active under a menu: a press there is for the menu.
    if (!window || !LiesIn(pressed, *window))
        return;
    const Qt::Edges edges = EdgesUnderCursor();
    if (edges && window->startSystemResize(edges))
        PostReleaseOutside(window, static_cast<const QMouseEvent &>(press));
}

bool QcWindowHandler::IsResizable() const
{
    return m_borderWidth > 0 && m_widget && !m_widget->isMaximized() && m_widget->isActiveWindow();
}

Qt::Edges QcWindowHandler::EdgesUnderCursor() const
{
    const QPoint p = m_widget->mapFromGlobal(QCursor::pos());
    // The column and row at the width itself belong to neither side.
    Qt::Edges edges;
    if (p.x() < m_borderWidth)
        edges |= Qt::LeftEdge;
    else if (p.x() > m_widget->width() - m_borderWidth)
        edges |= Qt::RightEdge;
    if (p.y() < m_borderWidth)
        edges |= Qt::TopEdge;
    else if (p.y() > m_widget->height() - m_borderWidth)
        edges |= Qt::BottomEdge;
    return edges;
}

// --- The cursor ---

void QcWindowHandler::UpdateCursor()
{
    const Qt::Edges edges = IsResizable() ? EdgesUnderCursor() : Qt::Edges();
    if (edges)
        m_widget->setCursor(CursorFor(edges));
    else
        ClearCursor();
}

bool QcWindowHandler::HasCursor() const
{
    // A window keeps the attribute, whatever its cursor.
    return m_widget->testAttribute(Qt::WA_SetCursor) && (!m_widget->isWindow() || m_widget->cursor().shape() != Qt::ArrowCursor);
}

void QcWindowHandler::ClearCursor()
{
    if (HasCursor())
        m_widget->unsetCursor();
}

// --- The native layer ---

void QcWindowHandler::FollowScreenChanges()
{
    QWindow *window = m_widget->windowHandle();
    if (!window || !UsesNativeFrame())
        return;
    connect(window, &QWindow::screenChanged, this, [native = m_native, window] { native->refreshFrame(window->winId()); });
}

void QcWindowHandler::UpdateMaximisedMargins()
{
    if (!m_widget->isMaximized()) {
        m_widget->setContentsMargins(0, 0, 0, 0);
        return;
    }
    // A maximised window reaches beyond the screen by its frame. The top takes the bottom's width: its own holds a caption, and
    // there is none.
    const NativeFrame::Edges frame = m_native->overlappedFrame();
    m_widget->setContentsMargins(-frame.left, frame.bottom, frame.right, frame.bottom);
}

bool QcWindowHandler::nativeEventFilter(const QByteArray &eventType, void *message, NativeResult *result)
{
    if (!UsesNativeFrame() || !m_widget || !m_widget->isVisible() || qstrcmp(eventType, "windows_generic_MSG") != 0)
        return false;
    const NativeFrame::Message native = m_native->readMessage(message);
    if (native.id != kWmNcCalcSize || native.window != m_widget->winId())
        return false;
    *result = 0; // all of the window is its inside
    return true;
}

} // namespace Velmora
