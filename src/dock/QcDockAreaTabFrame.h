#pragma once

#include <Velmora/VelmoraExport.h>

#include <QFrame>
#include <QPair>
#include <QPoint>
#include <QPointer>

QT_BEGIN_NAMESPACE
class QVBoxLayout;
QT_END_NAMESPACE

namespace Velmora {

class QcDockAreaTabBar;
class QcDockAreaTabBarButton;
class QcDockAreaTabStackedWidget;
class QcDockWidget;
class QcIconButton;

/// The inside of a QcDockArea: a row of tabs over a stack of pages.
///
/// With two or more pages the row shows, and the panels among them hide their title rows; with one page it is the other way round.
/// Keys that the page does not use itself: Ctrl+Tab and Ctrl+PageDown show the next page, Ctrl+Shift+Tab and Ctrl+PageUp the one
/// before, Ctrl+W closes the page as the close button of its tab does, all of them while there are tabs. F6 and Shift+F6 lead to the next
/// or previous area, floating panels included. A click with the middle mouse button closes the page of any tab.
///
/// A tab goes with its page, whatever the page leaves by: a host may also delete it or give it another parent.
class VELMORA_EXPORT QcDockAreaTabFrame : public QFrame
{
    Q_OBJECT

public:
    explicit QcDockAreaTabFrame(QWidget *parent = nullptr);
    ~QcDockAreaTabFrame() override;

    /// Appends \a widget, takes it over and makes it the current page. A panel's later window titles replace \a title. One that is a page
    /// of another area leaves that first; one that is a page here becomes the current one, and no more. Null, or a widget that holds this
    /// one, changes nothing.
    void addTab(const QString &title, QWidget *widget);
    /// Takes the page at \a index out of the stack and its tab out of the row. The tab is the caller's to delete; the page, null unless it
    /// is a panel, stays a hidden child of the stack until the caller moves it.
    QPair<QcDockAreaTabBarButton *, QcDockWidget *> removeTab(int index);
    /// The page at \a index; null for an unknown one.
    QWidget *widget(int index) const;
    int count() const;
    /// -1 without a page.
    int currentIndex() const;
    /// An unknown index changes nothing.
    void setCurrentIndex(int index);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private Q_SLOTS:
    void onTabChanged(int index);
    void onTabDragStart();
    void onTabDraging();
    void onTabDragFinished();
    void onCloseTab();
    void onLeftButtonClicked();
    void onRightButtonClicked();

private:
    void adjustTabBarAndTitleVisible();
    void adjustNavigationButtonEnable();

    void MakeTopRow();
    void ConnectParts();
    void NameNavigation();
    void FollowDirection();
    QWidget *LeavePresentPlace(QWidget &widget);
    void DeleteTabOfLastPage();
    void OnPageRemoved();
    int TabWithoutPage() const;
    void FollowTitleOf(QcDockWidget &panel);
    void CloseTab(int index);
    void CloseOnMiddleClick(QcDockAreaTabBarButton &tab, QEvent &event);
    bool ServeKey(const QKeyEvent &event);
    void StepBy(int steps);
    void GiveFocusBack(bool toTab);
    void TearOut(QcDockAreaTabBarButton &tab, QcDockWidget &panel);
    void LetTabGo();

    QVBoxLayout *m_layout = nullptr;
    QFrame *m_topFrame = nullptr;
    QFrame *m_tabBarFrame = nullptr;
    QcDockAreaTabBar *m_tabBar = nullptr;
    QFrame *m_navigationFrame = nullptr;
    QcIconButton *m_leftButton = nullptr;
    QcIconButton *m_rightButton = nullptr;
    QcDockAreaTabStackedWidget *m_stackedWidget = nullptr;
    QPointer<QcDockAreaTabBarButton> m_dragTabButton;
    QPointer<QcDockWidget> m_dragDockWidget;
    QPoint m_dragOffset;
    QPointer<QWidget> m_middlePressedTab;
    QSize m_maskSize;
};

} // namespace Velmora
