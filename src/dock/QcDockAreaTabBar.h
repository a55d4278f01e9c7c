#pragma once

#include <Velmora/VelmoraExport.h>

#include <QFrame>
#include <QPoint>

QT_BEGIN_NAMESPACE
class QButtonGroup;
class QHBoxLayout;
QT_END_NAMESPACE

namespace Velmora {

class QcDockAreaTabBarButton;

/// The row of tabs of a QcDockAreaTabFrame, one of them current. Tabs are up to 200 pixels wide and shrink to fit; they never scroll.
///
/// A left press selects a tab, and a move of more than QApplication::startDragDistance() from there begins to drag it. With the focus on
/// the current tab, which Tab reaches, Left, Right, Home and End select others and Delete asks to close it.
class VELMORA_EXPORT QcDockAreaTabBar : public QFrame
{
    Q_OBJECT

public:
    explicit QcDockAreaTabBar(QWidget *parent = nullptr);
    ~QcDockAreaTabBar() override;

    /// Appends a tab, which becomes the current one only if it is the first.
    void addTab(const QString &text);
    /// Takes the tab at \a index out of the row, but does not delete it: the caller does. The current one gives way to the next, or to
    /// the last. An unknown index changes nothing.
    void removeTab(int index);
    /// Null for an unknown index.
    QcDockAreaTabBarButton *getTab(int index);
    /// -1 while no tab is current.
    int currentIndex() const;
    /// An unknown index changes nothing.
    void setCurrentIndex(int index);

Q_SIGNALS:
    /// Another tab has become current. Not emitted for the first.
    void signalCurrentChanged(int index);
    void signalTabDragStart();
    void signalTabDraging();
    void signalTabDragFinished();
    /// The close button of the current tab was clicked.
    void signalCloseTab();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private Q_SLOTS:
    void onTabButtonToggled(bool checked);

private:
    friend class QcDockAreaTabFrame; // leaves the tab of its last page here, though no more than a button

    void adjustTabButtonsWidth();

    int Count() const;
    void UncheckCurrent();
    void ForgetPress();
    void Renumber(int from);
    void UpdateLines();
    void ServeMouse(QcDockAreaTabBarButton &tab, QEvent &event);
    bool ServeKey(QcDockAreaTabBarButton &tab, const QKeyEvent &event);

    QHBoxLayout *m_layout = nullptr;
    QButtonGroup *m_buttonGroup = nullptr;
    QPoint m_dragStartPos;
    bool m_dragging = false;
    bool m_isWidthPending = false;
};

} // namespace Velmora
