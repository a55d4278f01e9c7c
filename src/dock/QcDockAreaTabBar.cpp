#include <Velmora/QcDockAreaTabBar.h>
#include <Velmora/QcDockAreaTabBarButton.h>

#include "dock/DockAccessible_p.h"

#include <QApplication>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>

#include <algorithm>

namespace Velmora {

namespace {

constexpr int kMaximumTabWidth = 200;

} // namespace

QcDockAreaTabBar::QcDockAreaTabBar(QWidget *parent)
    : QFrame(parent)
{
    InstallDockAccessibility();
    m_layout = new QHBoxLayout(this);
    m_layout->setObjectName(QStringLiteral("m_layout"));
    m_layout->setSpacing(0);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->addStretch();
    m_buttonGroup = new QButtonGroup(this);
    m_buttonGroup->setExclusive(true);
}

QcDockAreaTabBar::~QcDockAreaTabBar() = default;

int QcDockAreaTabBar::Count() const
{
    return int(m_buttonGroup->buttons().size());
}

QcDockAreaTabBarButton *QcDockAreaTabBar::getTab(int index)
{
    return qobject_cast<QcDockAreaTabBarButton *>(m_buttonGroup->button(index));
}

int QcDockAreaTabBar::currentIndex() const
{
    return m_buttonGroup->checkedId();
}

void QcDockAreaTabBar::setCurrentIndex(int index)
{
    if (index >= 0 && index < Count() && index != currentIndex())
        getTab(index)->setChecked(true);
}

void QcDockAreaTabBar::addTab(const QString &text)
{
    const int index = Count();
    auto *tab = new QcDockAreaTabBarButton(this);
    tab->setText(text);
    tab->setTabIndex(index);
    m_buttonGroup->addButton(tab, index);
    m_layout->insertWidget(m_layout->count() - 1, tab); // before the stretch
    tab->installEventFilter(this);
    if (Count() == 1)
        setCurrentIndex(0);
    adjustTabButtonsWidth();
    UpdateLines();
    connect(tab, &QcDockAreaTabBarButton::signalCloseButtonClicked, this, &QcDockAreaTabBar::signalCloseTab);
    connect(tab, &QAbstractButton::toggled, this, &QcDockAreaTabBar::onTabButtonToggled);
}

void QcDockAreaTabBar::removeTab(int index)
{
    QcDockAreaTabBarButton *tab = getTab(index);
    if (!tab)
        return;
    const int current = currentIndex();
    m_buttonGroup->removeButton(tab);
    m_layout->removeWidget(tab);
    disconnect(tab, nullptr, this, nullptr); // it may live on, and is none of ours any more
    Renumber(index);
    const QPointer<QWidget> self = this;
    if (index == current)
        setCurrentIndex(std::min(index, Count() - 1));
    else if (index < current)
        setCurrentIndex(current - 1);
    if (!self)
        return;
    adjustTabButtonsWidth();
    UpdateLines();
}

void QcDockAreaTabBar::Renumber(int from)
{
    const auto tabs = m_buttonGroup->buttons();
    for (int i = from; i < tabs.size(); ++i) {
        static_cast<QcDockAreaTabBarButton *>(tabs[i])->setTabIndex(i);
        m_buttonGroup->setId(tabs[i], i);
    }
}

void QcDockAreaTabBar::UncheckCurrent()
{
    const int index = currentIndex();
    QAbstractButton *tab = m_buttonGroup->button(index);
    if (!tab)
        return;
    m_buttonGroup->removeButton(tab); // an exclusive group keeps one checked
    tab->setChecked(false);
    m_buttonGroup->addButton(tab, index);
}

void QcDockAreaTabBar::onTabButtonToggled(bool checked)
{
    if (!checked)
        return;
    const QPointer<QWidget> self = this;
    Q_EMIT signalCurrentChanged(currentIndex());
    if (self)
        UpdateLines();
}

void QcDockAreaTabBar::UpdateLines()
{
    const int current = currentIndex();
    const auto tabs = m_buttonGroup->buttons();
    for (int i = 0; i < tabs.size(); ++i)
        static_cast<QcDockAreaTabBarButton *>(tabs[i])->setDrawLine(i != current && i != current - 1 && i != tabs.size() - 1);
}

void QcDockAreaTabBar::adjustTabButtonsWidth()
{
    const auto tabs = m_buttonGroup->buttons();
    if (tabs.isEmpty())
        return;
    const int tabWidth = std::min(width() / int(tabs.size()), kMaximumTabWidth);
    for (QAbstractButton *tab : tabs) {
        if (tab->minimumWidth() != tabWidth || tab->maximumWidth() != tabWidth)
            tab->setFixedWidth(tabWidth);
    }
}

void QcDockAreaTabBar::resizeEvent(QResizeEvent *event)
{
    if (!m_isWidthPending) {
        m_isWidthPending = true;
        QTimer::singleShot(0, this, [this] {
            m_isWidthPending = false;
            adjustTabButtonsWidth();
        });
    }
    QWidget::resizeEvent(event);
}

bool QcDockAreaTabBar::eventFilter(QObject *watched, QEvent *event)
{
    if (auto *tab = qobject_cast<QcDockAreaTabBarButton *>(watched)) {
        if (event->type() == QEvent::KeyPress)
            return ServeKey(*tab, static_cast<QKeyEvent &>(*event));
        const QPointer<QWidget> self = this;
        const QPointer<QWidget> living = tab;
        ServeMouse(*tab, *event);
        if (!living)
            return true; // nobody is left to get the event
        if (!self)
            return false;
    }
    return QObject::eventFilter(watched, event);
}

void QcDockAreaTabBar::ServeMouse(QcDockAreaTabBarButton &tab, QEvent &event)
{
    const auto &mouse = static_cast<QMouseEvent &>(event); // read only where it is one
    switch (event.type()) {
    case QEvent::MouseButtonPress:
        if (mouse.button() != Qt::LeftButton)
            break;
        m_dragStartPos = mouse.pos();
        m_dragging = false;
        setCurrentIndex(m_buttonGroup->id(&tab)); // none for a tab that was torn out
        break;
    case QEvent::MouseButtonRelease:
        if (!m_dragging)
            break;
        ForgetPress();
        Q_EMIT signalTabDragFinished();
        break;
    case QEvent::MouseMove:
        if (!mouse.buttons().testFlag(Qt::LeftButton))
            break;
        if (m_dragging) {
            Q_EMIT signalTabDraging();
        } else if (m_buttonGroup->id(&tab) >= 0 // one that was torn out, whose drag was cancelled, is only waiting for its deletion
                   && (mouse.pos() - m_dragStartPos).manhattanLength() > QApplication::startDragDistance()) {
            m_dragging = true;
            Q_EMIT signalTabDragStart();
        }
        break;
    default:
        break;
    }
}

bool QcDockAreaTabBar::ServeKey(QcDockAreaTabBarButton &tab, const QKeyEvent &event)
{
    const int index = m_buttonGroup->id(&tab);
    if (index < 0 || !tab.hasFocus() || (event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    const int toTheRight = isRightToLeft() ? -1 : 1;
    int other = 0;
    switch (event.key()) {
    case Qt::Key_Left:
        other = index - toTheRight;
        break;
    case Qt::Key_Right:
        other = index + toTheRight;
        break;
    case Qt::Key_Home:
        break;
    case Qt::Key_End:
        other = Count() - 1;
        break;
    case Qt::Key_Delete:
        if (tab.isChecked())
            Q_EMIT signalCloseTab();
        return true;
    default:
        return false;
    }
    const QPointer<QcDockAreaTabBarButton> chosen = getTab(other);
    setCurrentIndex(other);
    if (chosen)
        chosen->setFocus(Qt::TabFocusReason);
    return true;
}

void QcDockAreaTabBar::ForgetPress()
{
    m_dragStartPos = QPoint();
    m_dragging = false;
}

} // namespace Velmora
