#pragma once

#include "windows/NativeFrame_p.h"

#include <Velmora/QtCompatibility.h>

#include <QAbstractNativeEventFilter>
#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>

namespace Velmora {

/// What a system frame would do for a frameless window: moving by its title row, resizing at its edges with the cursors for it.
///
/// Both go through the window system. It consumes no event. Beside those of its widget and the presses on its title bar it watches the
/// application's events only while there is an edge to serve or a cursor to take back: there may be thousands of windows.
class QcWindowHandler : public QObject, public QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    /// \a native are the calls of the native layer, which is off until setNativeFrame(); null leaves it off for good.
    explicit QcWindowHandler(QWidget *parent, const NativeFrame *native = SystemNativeFrame());
    ~QcWindowHandler() override;

    /// The window that is served; none at first. It may be a widget that becomes a window later.
    void setWidget(QWidget *widget);
    /// The widget on which a press of any mouse button moves the window; none at first.
    void setTitleBar(QWidget *titleBar);
    /// Width in pixels of the band along each edge that resizes; 0, the default, makes the window keep its size and its own cursor.
    void setBorderWidth(int width);
    /// Keeps the window in the system's care as if it had a frame, which is then not shown. Off at first; Windows only.
    void setNativeFrame(bool enabled);
    /// Gives the window the style of one with a frame, if it is to have it.
    void applyNativeStyle();

    /// Has the window system move the window, which was pressed at its title bar.
    void StartMove(const QEvent &press);

    bool eventFilter(QObject *watched, QEvent *event) override;
    bool nativeEventFilter(const QByteArray &eventType, void *message, NativeResult *result) override;

private:
    void WatchWhileNeeded();
    void ServeWidget(QEvent::Type type);
    void ServeWindow(const QObject *window, const QEvent &event);
    bool UsesNativeFrame() const { return m_nativeFrame && m_native; }
    bool IsResizable() const;
    Qt::Edges EdgesUnderCursor() const;
    void StartResize(const QObject *pressed, const QEvent &press);
    void UpdateCursor();
    bool HasCursor() const;
    void ClearCursor();
    void FollowScreenChanges();
    void UpdateMaximisedMargins();

    QPointer<QWidget> m_widget;
    QPointer<QWidget> m_titleBar;
    bool m_nativeFrame = false;
    int m_borderWidth = 0;
    bool m_firstShow = true;
    const NativeFrame *m_native;
    bool m_isWatching = false;
};

} // namespace Velmora
