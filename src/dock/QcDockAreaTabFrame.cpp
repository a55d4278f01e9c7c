#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockAreaTabBar.h>
#include <Velmora/QcDockAreaTabBarButton.h>
#include <Velmora/QcDockAreaTabFrame.h>
#include <Velmora/QcDockAreaTabStackedWidget.h>
#include <Velmora/QcDockDragController.h>
#include <Velmora/QcDockWidget.h>
#include <Velmora/QcIconButton.h>

#include "buttons/IconButtonOfSize_p.h"
#include "core/LiesIn_p.h"
#include "dock/DockFocus_p.h"
#include "dock/PanelContents_p.h"
#include "theme/TokenPainting_p.h"

#include <QApplication>
#include <QButtonGroup>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>
#include <QVariant>

namespace Velmora {

namespace {

constexpr int kRowEnd = 8; // between the buttons and the area's edge
constexpr int kRowHeight = 30;
constexpr int kNavigationSize = 24;
constexpr double kCornerRadius = 4.0;

template <typename T>
T *AncestorOf(const QWidget &widget)
{
    for (QWidget *parent = widget.parentWidget(); parent; parent = parent->parentWidget()) {
        if (auto *found = qobject_cast<T *>(parent))
            return found;
    }
    return nullptr;
}

bool Holds(const QWidget *widget, const QWidget *focus)
{
    return widget == focus || (widget && widget->isAncestorOf(focus));
}

template <typename T>
T *Named(T *widget, const char *name)
{
    widget->setObjectName(QLatin1String(name));
    return widget;
}

} // namespace

QcDockAreaTabFrame::QcDockAreaTabFrame(QWidget *parent)
    : QFrame(parent)
{
    m_layout = new QVBoxLayout(this);
    m_layout->setObjectName(QStringLiteral("m_layout"));
    m_layout->setSpacing(0);
    m_layout->setContentsMargins(0, 0, 0, 0);
    MakeTopRow();
    m_stackedWidget = Named(new QcDockAreaTabStackedWidget(this), "m_stackedWidget");
    m_layout->addWidget(m_topFrame);
    m_layout->addWidget(m_stackedWidget);
    ConnectParts();
    adjustTabBarAndTitleVisible();
}

void QcDockAreaTabFrame::MakeTopRow()
{
    m_topFrame = Named(new QFrame(this), "m_topFrame");
    auto *row = new QHBoxLayout(m_topFrame);
    row->setSpacing(4);
    m_tabBarFrame = Named(new QFrame(m_topFrame), "m_tabBarFrame");
    m_tabBarFrame->setFixedHeight(kRowHeight);
    m_tabBarFrame->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_tabBar = Named(new QcDockAreaTabBar(m_tabBarFrame), "m_tabBar");
    m_tabBar->setFixedHeight(kRowHeight);
    m_navigationFrame = Named(new QFrame(m_topFrame), "m_navigationFrame");
    auto *navigation = new QHBoxLayout(m_navigationFrame);
    navigation->setContentsMargins(0, 0, 0, 0);
    navigation->setSpacing(8);
    const auto makeButton = [this, navigation](const char *name) {
        QcIconButton *button = MakeIconButton(*m_navigationFrame, QLatin1String(name), QString(), kNavigationSize);
        button->setFocusPolicy(Qt::TabFocus); // a click leaves the focus in the page
        navigation->addWidget(button);
        return button;
    };
    m_leftButton = makeButton("m_leftButton");
    m_rightButton = makeButton("m_rightButton");
    row->addWidget(m_tabBarFrame);
    row->addWidget(m_navigationFrame, 0, Qt::AlignRight);
    FollowDirection();
    NameNavigation();
}

void QcDockAreaTabFrame::ConnectParts()
{
    connect(m_tabBar, &QcDockAreaTabBar::signalCurrentChanged, this, &QcDockAreaTabFrame::onTabChanged);
    connect(m_tabBar, &QcDockAreaTabBar::signalCloseTab, this, &QcDockAreaTabFrame::onCloseTab);
    connect(m_tabBar, &QcDockAreaTabBar::signalTabDragStart, this, &QcDockAreaTabFrame::onTabDragStart);
    connect(m_tabBar, &QcDockAreaTabBar::signalTabDraging, this, &QcDockAreaTabFrame::onTabDraging);
    connect(m_tabBar, &QcDockAreaTabBar::signalTabDragFinished, this, &QcDockAreaTabFrame::onTabDragFinished);
    connect(m_leftButton, &QAbstractButton::clicked, this, &QcDockAreaTabFrame::onLeftButtonClicked);
    connect(m_rightButton, &QAbstractButton::clicked, this, &QcDockAreaTabFrame::onRightButtonClicked);
    connect(m_stackedWidget, &QStackedWidget::widgetRemoved, this, &QcDockAreaTabFrame::OnPageRemoved);
    m_topFrame->installEventFilter(this);
    m_tabBarFrame->installEventFilter(this);
}

QcDockAreaTabFrame::~QcDockAreaTabFrame()
{
    LetTabGo();
}

void QcDockAreaTabFrame::NameNavigation()
{
    const QString previous = QCoreApplication::translate("QcDockAreaTabFrame", "Previous tab");
    const QString next = QCoreApplication::translate("QcDockAreaTabFrame", "Next tab");
    m_leftButton->setAccessibleName(previous);
    m_rightButton->setAccessibleName(next);
}

void QcDockAreaTabFrame::FollowDirection()
{
    // From right to left the previous tab lies at the right, and so does its button.
    const QString left = QStringLiteral(":/images/dock/pre_normal.svg");
    const QString right = QStringLiteral(":/images/dock/next_normal.svg");
    m_leftButton->SetIconPath(isRightToLeft() ? right : left);
    m_rightButton->SetIconPath(isRightToLeft() ? left : right);
    m_topFrame->layout()->setContentsMargins(isRightToLeft() ? kRowEnd : 0, 0, isRightToLeft() ? 0 : kRowEnd, 1);
}

// --- Pages ---

void QcDockAreaTabFrame::addTab(const QString &title, QWidget *widget)
{
    if (!widget || LiesIn(this, widget))
        return;
    if (m_stackedWidget->indexOf(widget) >= 0) {
        setCurrentIndex(m_stackedWidget->indexOf(widget));
        return;
    }
    const QPointer<QWidget> self = this;
    const QPointer<QWidget> page = widget;
    const bool isOwnTitle = title == widget->windowTitle(); // which a host may change when it hears of the new place
    FocusKeeper focus(*widget);
    const QPointer<QWidget> area = LeavePresentPlace(*widget);
    if (!self || !page) {
        if (auto *old = page ? qobject_cast<QcDockArea *>(area.data()) : nullptr)
            old->addWidget(page); // a host took the new place away: it stays where it was
        return;
    }
    DeleteTabOfLastPage();
    m_tabBar->addTab(isOwnTitle ? widget->windowTitle() : title);
    const int index = m_stackedWidget->addWidget(widget);
    if (!self || !page)
        return;
    m_tabBar->getTab(index)->m_page = widget;
    m_tabBar->getTab(index)->installEventFilter(this);
    m_tabBar->setCurrentIndex(index);
    if (!self || !page)
        return;
    adjustTabBarAndTitleVisible();
    widget->installEventFilter(this);
    adjustNavigationButtonEnable();
    focus.GiveBack();
    if (area)
        QcDockDragController::instance()->processDockWidgetSwitchToFloating(area);
}

/// The area that \a widget leaves, which may be empty then. Null for one that was made where it is to stay.
QWidget *QcDockAreaTabFrame::LeavePresentPlace(QWidget &widget)
{
    auto *panel = qobject_cast<QcDockWidget *>(&widget);
    if (widget.isWindow()) {
        if (panel)
            panel->EndFloating();
        return nullptr;
    }
    if (widget.parentWidget() == m_stackedWidget)
        return nullptr;
    const QPointer<QWidget> area = AncestorOf<QcDockArea>(widget);
    auto *frame = AncestorOf<QcDockAreaTabFrame>(widget);
    const int index = frame ? frame->m_stackedWidget->indexOf(&widget) : -1;
    if (QcDockAreaTabBarButton *tab = index >= 0 ? frame->removeTab(index).first : nullptr)
        tab->deleteLater();
    return area;
}

void QcDockAreaTabFrame::DeleteTabOfLastPage()
{
    if (m_stackedWidget->count() > 0)
        return;
    while (QcDockAreaTabBarButton *tab = m_tabBar->getTab(0)) {
        m_tabBar->removeTab(0);
        tab->hide();
        tab->deleteLater(); // its close button may be on the stack: a content that is asked may bring another page
    }
}

QPair<QcDockAreaTabBarButton *, QcDockWidget *> QcDockAreaTabFrame::removeTab(int index)
{
    const QPointer<QWidget> self = this;
    const QPointer<QcDockAreaTabBarButton> tab = m_tabBar->getTab(index);
    const QPointer<QWidget> page = m_stackedWidget->widget(index);
    if (tab)
        m_tabBar->removeTab(index);
    if (self && page)
        m_stackedWidget->removeWidget(page);
    if (self) {
        adjustTabBarAndTitleVisible();
        adjustNavigationButtonEnable();
    }
    return {tab, qobject_cast<QcDockWidget *>(page)};
}

/// By whatever road. More than one may be missing: a host that hears of the selection that follows may take away others.
void QcDockAreaTabFrame::OnPageRemoved()
{
    const QPointer<QWidget> self = this;
    for (int index = TabWithoutPage(); index >= 0; index = TabWithoutPage()) {
        const QPointer<QWidget> tab = m_tabBar->getTab(index);
        m_tabBar->removeTab(index);
        if (tab)
            tab->deleteLater();
        if (!self)
            return;
    }
    if (count() == 0)
        m_tabBar->UncheckCurrent();
    else
        m_tabBar->setCurrentIndex(m_stackedWidget->currentIndex()); // a host may have selected one while they did not correspond
    if (!self)
        return;
    adjustTabBarAndTitleVisible();
    adjustNavigationButtonEnable();
}

/// The index of a tab that is to follow its page; -1 if there is none. The tab of a last page stays in the hidden row until another page
/// comes.
int QcDockAreaTabFrame::TabWithoutPage() const
{
    const auto tabs = m_tabBar->m_buttonGroup->buttons();
    if (count() == 0 && tabs.size() == 1)
        return -1;
    int page = 0;
    for (int i = 0; i < tabs.size(); ++i) {
        QWidget *expected = static_cast<QcDockAreaTabBarButton *>(tabs[i])->m_page;
        if (!expected) // its page is on the way
            continue;
        if (widget(page) != expected)
            page = m_stackedWidget->indexOf(expected);
        if (page < 0)
            return i;
        ++page;
    }
    return -1;
}

QWidget *QcDockAreaTabFrame::widget(int index) const
{
    return m_stackedWidget->widget(index);
}

int QcDockAreaTabFrame::count() const
{
    return m_stackedWidget->count();
}

int QcDockAreaTabFrame::currentIndex() const
{
    return m_tabBar->currentIndex();
}

void QcDockAreaTabFrame::setCurrentIndex(int index)
{
    if (index < count()) // the tab of a lost last page stands for none
        m_tabBar->setCurrentIndex(index);
}

void QcDockAreaTabFrame::adjustTabBarAndTitleVisible()
{
    const bool hasRow = m_stackedWidget->count() >= 2;
    if (m_topFrame->isHidden() == hasRow || !m_topFrame->testAttribute(Qt::WA_WState_ExplicitShowHide))
        m_topFrame->setVisible(hasRow);
    m_stackedWidget->setTitleVisible(!hasRow);
}

void QcDockAreaTabFrame::adjustNavigationButtonEnable()
{
    const int current = m_tabBar->currentIndex();
    m_leftButton->setEnabled(current > 0);
    m_rightButton->setEnabled(current < m_stackedWidget->count() - 1);
}

void QcDockAreaTabFrame::onTabChanged(int index)
{
    const QPointer<QWidget> self = this;
    m_stackedWidget->setCurrentIndex(index);
    if (self)
        adjustNavigationButtonEnable();
}

void QcDockAreaTabFrame::onLeftButtonClicked()
{
    if (currentIndex() > 0)
        setCurrentIndex(currentIndex() - 1);
}

void QcDockAreaTabFrame::onRightButtonClicked()
{
    if (currentIndex() < count() - 1)
        setCurrentIndex(currentIndex() + 1);
}

// --- Closing ---

void QcDockAreaTabFrame::onCloseTab()
{
    CloseTab(m_tabBar->currentIndex());
}

void QcDockAreaTabFrame::CloseTab(int index)
{
    const QPointer<QWidget> self = this;
    const QPointer<QcDockWidget> panel = qobject_cast<QcDockWidget *>(m_stackedWidget->widget(index));
    if (!panel)
        return;
    const QWidget *focus = QApplication::focusWidget();
    const bool isInTab = focus && Holds(m_tabBar->getTab(index), focus);
    const bool isInPage = focus && Holds(panel, focus);
    // A content that asks its user runs a loop, in which the panel may go, or move to another area.
    QWidget *content = panel->getContentWidget();
    if ((content && !CloseContent(*content)) || !panel)
        return;
    const int left = self ? m_stackedWidget->indexOf(panel) : -1;
    if (left >= 0) {
        if (QcDockAreaTabBarButton *tab = removeTab(left).first)
            tab->deleteLater();
    }
    if (panel)
        panel->deleteLater();
    if (self && (isInTab || isInPage))
        GiveFocusBack(isInTab);
}

/// To what took the place of a tab or page that had the focus.
void QcDockAreaTabFrame::GiveFocusBack(bool toTab)
{
    if (QcDockAreaTabBarButton *tab = toTab && count() >= 2 ? m_tabBar->getTab(currentIndex()) : nullptr)
        tab->setFocus(Qt::OtherFocusReason);
    else if (QWidget *page = widget(currentIndex()))
        FocusPage(*page);
}

void QcDockAreaTabFrame::CloseOnMiddleClick(QcDockAreaTabBarButton &tab, QEvent &event)
{
    const bool isPress = event.type() == QEvent::MouseButtonPress;
    if (!isPress && event.type() != QEvent::MouseButtonRelease)
        return;
    const auto &mouse = static_cast<QMouseEvent &>(event);
    if (mouse.button() != Qt::MiddleButton)
        return;
    const bool isClick = !isPress && m_middlePressedTab == &tab && tab.rect().contains(mouse.pos());
    m_middlePressedTab = isPress ? &tab : nullptr;
    if (isClick && m_tabBar->getTab(tab.getTabIndex()) == &tab)
        CloseTab(tab.getTabIndex());
}

// --- Events ---

bool QcDockAreaTabFrame::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_topFrame) {
        if (event->type() == QEvent::Paint) {
            QPainter painter(m_topFrame);
            painter.fillRect(m_topFrame->rect(), TokenColor(QStringLiteral("bg/bg_unselected")));
            return true;
        }
    } else if (watched == m_tabBarFrame) {
        if (event->type() == QEvent::Resize)
            m_tabBar->setFixedWidth(m_tabBarFrame->width());
    } else if (auto *tab = qobject_cast<QcDockAreaTabBarButton *>(watched)) {
        const QPointer<QWidget> living = tab;
        CloseOnMiddleClick(*tab, *event);
        return !living; // nobody is left to get the event
    } else if (auto *panel = qobject_cast<QcDockWidget *>(watched)) {
        if (event->type() == QEvent::WindowTitleChange)
            FollowTitleOf(*panel);
    }
    return QObject::eventFilter(watched, event);
}

void QcDockAreaTabFrame::FollowTitleOf(QcDockWidget &panel)
{
    // A panel that has moved on has no tab here.
    if (QcDockAreaTabBarButton *tab = m_tabBar->getTab(m_stackedWidget->indexOf(&panel)))
        tab->setText(panel.windowTitle());
}

void QcDockAreaTabFrame::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LayoutDirectionChange)
        FollowDirection();
    else if (event->type() == QEvent::LanguageChange)
        NameNavigation();
    QFrame::changeEvent(event);
}

void QcDockAreaTabFrame::keyPressEvent(QKeyEvent *event)
{
    if (!ServeKey(*event))
        QFrame::keyPressEvent(event);
}

bool QcDockAreaTabFrame::ServeKey(const QKeyEvent &event)
{
    QWidget *page = widget(currentIndex());
    if (const int steps = page ? AreaStepsOf(event) : 0)
        return FocusOtherArea(*page, steps);
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (count() < 2 || !modifiers.testFlag(Qt::ControlModifier))
        return false;
    const bool isShifted = modifiers == (Qt::ControlModifier | Qt::ShiftModifier);
    const bool isPlain = modifiers == Qt::ControlModifier;
    const int key = event.key();
    if (isPlain && key == Qt::Key_W)
        CloseTab(currentIndex());
    else if (isPlain && (key == Qt::Key_Tab || key == Qt::Key_PageDown))
        StepBy(1);
    else if ((isShifted && (key == Qt::Key_Backtab || key == Qt::Key_Tab)) || (isPlain && key == Qt::Key_PageUp))
        StepBy(-1);
    else
        return false;
    return true;
}

/// The focus goes along: Qt hands it from a page to the next one shown.
void QcDockAreaTabFrame::StepBy(int steps)
{
    const QPointer<QWidget> self = this;
    const bool isInRow = m_tabBar->isAncestorOf(QApplication::focusWidget());
    setCurrentIndex((currentIndex() + steps + count()) % count());
    if (self && isInRow)
        GiveFocusBack(true);
}

void QcDockAreaTabFrame::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (m_maskSize == size())
        return;
    m_maskSize = size();
    QPainterPath path;
    path.addRoundedRect(rect(), kCornerRadius, kCornerRadius);
    setMask(QRegion(path.toFillPolygon().toPolygon(), Qt::OddEvenFill));
}

} // namespace Velmora
