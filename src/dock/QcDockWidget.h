#pragma once

#include <Velmora/VelmoraExport.h>

#include <QFrame>
#include <QPoint>
#include <QPointer>

#include <memory>

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

namespace Velmora {

class QcIconButton;
class QcWindowHandler;

/// A movable panel: one widget of the host under a title row of 30 pixels.
///
/// It is docked, as a page of a QcDockArea, or floats, as a frameless window and child of the root container. Its user tears it
/// out by its title row, or by its tab where it shares an area. Hosts seldom make one themselves:
/// QcDockContainer::addDockWidgetContent() does.
///
/// A panel that is closed is deleted, and the content with it. The content decides: it is closed first, and when it refuses
/// (QCloseEvent::ignore()) the panel stays.
///
/// F6 and Shift+F6 lead the keyboard from a floating panel to the next or previous one and to the areas, as from an area. Alt+Shift+F10,
/// unless the content takes it, and the key for context menus on a tab or title row open a menu that floats, moves or closes the panel.
/// Moved by the keyboard, it goes where arrows and Return say: the indicator shows the places, the mask what each would give it.
///
/// Two dynamic properties of the content are read by setContentWidget(): "dock_widget_content_type" (int) is the panel's type,
/// which says where it may dock and which content it gets back from a layout; "dock_widget_close_forbidden", whatever its
/// value, disables the close button of the title row. That of a tab closes all the same: to forbid closing, also refuse it in the
/// content.
class VELMORA_EXPORT QcDockWidget : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(int type MEMBER m_type WRITE setType)

public:
    explicit QcDockWidget(QWidget *parent = nullptr);
    ~QcDockWidget() override;

    /// Takes \a content, its type and its title; an earlier content is deleted on a later turn of the main loop. The title follows the
    /// content's window title. The present content again has its properties and title read anew. Null, or a widget that holds the
    /// panel, changes nothing.
    void setContentWidget(QWidget *content);
    /// Null until there is one, and when its host has deleted it or put it under another parent.
    QWidget *getContentWidget();
    /// 0 at first; that of a content comes with it.
    int getType();
    void setType(int type);
    /// True while the panel is a window.
    bool isFloating();
    /// A panel that shares its area shows its tab in place of its title row, and its title row again when it becomes a window.
    void setTitleVisible(bool visible);
    /// The tip under the title row that is shown while the panel is dragged and no place for it is under the mouse.
    void SetDragTipVisible(bool visible);
    /// Makes the panel a frameless window, hidden until it is shown.
    void SetWindowFlags();
    /// A floating panel resizes at its edges, 8 pixels wide, a docked one does not. Follows by itself when the panel floats or docks.
    void updateResizable();
    /// The look while being dragged: a border in "brand/brand".
    void setDragingStyle(bool draging);
    /// The look of a floating panel: a border with round corners.
    void setWindowStyle(bool window);
    /// Takes a docked panel out of its area and shows it as a window in the same place, under the root container of QcDockController or,
    /// without one, under no parent. What it left empty is deleted on a later turn of the main loop.
    void swichToFloating();

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private Q_SLOTS:
    void OnCloseButtonClicked();

private:
    friend class QcDockAreaTabFrame; // takes a panel in, and tears it out by its tab

    void MakeTitleRow();
    void MakeContentFrame();
    void MakeDragTip();
    void PutTipText();
    void FollowTitle();
    void NameCloseButton();
    void PutContentFirst();
    void PutCloseButtonLast();
    void PutCloseButtonBehind(QWidget *last);
    void EmptyContentLayout();
    void ForgetContent();
    void ReadContent();
    QWidget *ParentForFloating(const QWidget *cameFrom) const;
    void SetLook(const char *property, bool on);
    void DragTo(const QPoint &cursor);
    void ForgetPress();
    void KeepOnScreen();
    void EndFloating();

    QFrame *m_titleFrame = nullptr;
    QLabel *m_titleLabel = nullptr;
    QcIconButton *m_closeButton = nullptr;
    QFrame *m_contentFrame = nullptr;
    QPointer<QWidget> m_contentWidget;
    QLabel *m_dragTipLabel = nullptr;
    QcWindowHandler *m_windowHandler = nullptr;
    QPoint m_lastGlobalPos;
    bool m_resizing = false;
    int m_type = 0;

    struct Private;
    std::unique_ptr<Private> m_private;
    QPointer<QWidget> m_cameFrom; // the tab frame that it was torn out of by its tab
};

} // namespace Velmora
