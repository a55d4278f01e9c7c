#include "windows/QcWindowHandler_p.h"

#include "core/ApplicationEvents_p.h"

#include <QCoreApplication>
#include <QCursor>
#include <QMouseEvent>
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

} // namespace

QcWindowHandler::QcWindowHandler(QWidget *parent, const NativeFrame *native)
    : QObject(parent)
    , m_native(native)
{
    WatchApplicationEvents(
        this, {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::Show, QEvent::WindowDeactivate, QEvent::WindowStateChange});
}

// Both filters forget an object that goes.
QcWindowHandler::~QcWindowHandler() = default;

void QcWindowHandler::setWidget(QWidget *widget)
{
    m_widget = widget;
    applyNativeStyle();
}

void QcWindowHandler::setTitleBar(QWidget *titleBar)
{
    m_titleBar = titleBar;
}

void QcWindowHandler::setBorderWidth(int width)
{
    m_borderWidth = width;
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

// --- The application's events ---

bool QcWindowHandler::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (watched == m_titleBar)
            StartMove(*event);
        else if (IsResizable() && IsWindowOfWidget(watched))
            StartResize(watched, *event);
        break;
    case QEvent::MouseMove:
        // Every handler comes here on every move of the mouse: mostly there is nothing to do, and the class's name is asked last.
        if (m_widget && (m_borderWidth > 0 || HasCursor()) && IsWindowOfWidget(watched))
            UpdateCursor();
        break;
    case QEvent::Show:
        if (watched == m_widget && m_firstShow) {
            m_firstShow = false;
            FollowScreenChanges();
        }
        break;
    case QEvent::WindowDeactivate:
        if (watched == m_widget)
            ClearCursor();
        break;
    case QEvent::WindowStateChange:
        if (watched == m_widget && UsesNativeFrame())
            UpdateMaximisedMargins();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
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

bool QcWindowHandler::nativeEventFilter(const QByteArray &eventType, void *message, long *result)
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
