#include <Velmora/QcStackedWidget.h>

#include "core/InstallAccessible_p.h"
#include "core/LiesIn_p.h"

#include <QChildEvent>
#include <QPointer>

#include <algorithm>
#include <limits>

namespace Velmora {

namespace {

/// A stack whose one child is the current page: Qt tells of hidden ones too.
class StackAccessible : public QAccessibleWidget
{
public:
    explicit StackAccessible(QcStackedWidget *stack)
        : QAccessibleWidget(stack, QAccessible::LayeredPane)
    {
    }

    int childCount() const override { return Page() ? 1 : 0; }
    QAccessibleInterface *child(int index) const override
    {
        return index == 0 && Page() ? QAccessible::queryAccessibleInterface(Page()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override { return child && Page() && child->object() == Page() ? 0 : -1; }

private:
    QWidget *Page() const { return static_cast<QcStackedWidget *>(widget())->currentWidget(); }
};

/// Whether \a widget takes the keyboard once \a page shows.
bool CanHoldKeyboard(const QWidget &widget, const QWidget *page)
{
    return widget.isVisibleTo(page) && widget.isEnabled();
}

/// The first widget on \a page at which the Tab key stops; null if there is none.
QWidget *FirstStopOf(QWidget *page)
{
    for (QWidget *next = page->nextInFocusChain(); next != page; next = next->nextInFocusChain()) {
        const bool isStop = (next->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && !next->focusProxy();
        if (isStop && page->isAncestorOf(next) && CanHoldKeyboard(*next, page))
            return next;
    }
    return nullptr;
}

void GiveKeyboardTo(QWidget *page)
{
    QWidget *target = page->focusWidget(); // may have been hidden or disabled since
    if (!target || !CanHoldKeyboard(*target, page))
        target = FirstStopOf(page);
    (target ? target : page)->setFocus();
}

} // namespace

QcStackedWidget::QcStackedWidget(QWidget *parent)
    : QFrame(parent, Qt::WindowFlags())
{
    InstallAccessible<StackAccessible, QcStackedWidget>();
}

int QcStackedWidget::addWidget(QWidget *widget)
{
    return insertWidget(std::numeric_limits<int>::max(), widget);
}

int QcStackedWidget::insertWidget(int index, QWidget *widget)
{
    const int present = indexOf(widget);
    if (present >= 0 || !widget || LiesIn(this, widget))
        return present;
    // Its old parent and its own handlers are heard in these two calls.
    const QPointer<QcStackedWidget> self(this);
    const QPointer<QWidget> page(widget);
    page->setParent(this);
    if (self && page)
        page->hide();
    if (!self || !page || page->parentWidget() != this)
        return -1;
    if (!m_pages.contains(page)) {
        m_pages.insert(qBound(0, index, m_pages.size()), page);
        if (m_pages.size() == 1) {
            m_currentIndex = 0;
            ShowWhole(page);
        }
    }
    return self ? indexOf(page) : -1;
}

int QcStackedWidget::removeWidget(QWidget *widget)
{
    const int index = indexOf(widget);
    if (index >= 0)
        TakeOut(index);
    return index;
}

int QcStackedWidget::count() const
{
    return int(m_pages.size());
}

int QcStackedWidget::currentIndex() const
{
    return m_currentIndex;
}

int QcStackedWidget::indexOf(QWidget *widget) const
{
    return int(m_pages.indexOf(widget));
}

QWidget *QcStackedWidget::widget(int index) const
{
    return m_pages.value(index);
}

QWidget *QcStackedWidget::currentWidget() const
{
    return widget(m_currentIndex);
}

void QcStackedWidget::setCurrentIndex(int index)
{
    if (index < 0 || index >= m_pages.size() || index == m_currentIndex)
        return;
    const QPointer<QcStackedWidget> self(this);
    const QPointer<QWidget> next(widget(index));
    const QPointer<QWidget> previous(currentWidget());
    // Handlers of focus, hide and show are the host's.
    const auto isStillAsked = [&] { return self && next && widget(index) == next && currentWidget() == previous; };
    const bool hadKeyboard = HoldKeyboardOf(previous);
    if (isStillAsked() && previous)
        previous->hide();
    if (isStillAsked())
        ShowWhole(next);
    if (!isStillAsked()) {
        if (self)
            ShowOnlyCurrent(next);
        if (self && hadKeyboard && currentWidget())
            GiveKeyboardTo(currentWidget());
        return;
    }
    m_currentIndex = index;
    if (hadKeyboard)
        GiveKeyboardTo(next);
    if (self && m_currentIndex == index)
        Q_EMIT currentChanged(index);
}

void QcStackedWidget::setCurrentWidget(QWidget *pWidget)
{
    setCurrentIndex(indexOf(pWidget));
}

void QcStackedWidget::resizeEvent(QResizeEvent *event)
{
    if (QWidget *page = currentWidget())
        page->setGeometry(0, 0, width(), height());
    QFrame::resizeEvent(event);
}

void QcStackedWidget::childEvent(QChildEvent *event)
{
    QFrame::childEvent(event);
    if (!event->removed())
        return;
    // It may be dying: compared, and not looked into.
    const auto page =
        std::find_if(m_pages.cbegin(), m_pages.cend(), [event](const QWidget *candidate) { return candidate == event->child(); });
    if (page != m_pages.cend())
        TakeOut(int(page - m_pages.cbegin()));
}

void QcStackedWidget::TakeOut(int index)
{
    QWidget *const page = m_pages.takeAt(index); // may be dying: for comparison only
    const QPointer<QcStackedWidget> self(this);
    if (index == m_currentIndex) {
        if (m_pages.isEmpty())
            m_currentIndex = -1;
        else
            setCurrentIndex(0);
    } else if (index < m_currentIndex) {
        --m_currentIndex;
    }
    if (self)
        Q_EMIT widgetRemoved(index, page);
}

void QcStackedWidget::ShowWhole(QWidget *page)
{
    const QPointer<QcStackedWidget> self(this);
    const QPointer<QWidget> shown(page);
    page->show();
    if (self && shown && shown->parentWidget() == this)
        shown->setGeometry(0, 0, width(), height());
}

/// A handler changed the pages while \a dropped was about to show: what is current now holds.
void QcStackedWidget::ShowOnlyCurrent(QWidget *dropped)
{
    const QPointer<QcStackedWidget> self(this);
    if (dropped && dropped != currentWidget() && m_pages.contains(dropped))
        dropped->hide();
    if (self && currentWidget())
        ShowWhole(currentWidget());
}

/// If the keyboard is on \a page, takes it into the stack's own hands and says so: hiding the page would hand it to a widget outside.
bool QcStackedWidget::HoldKeyboardOf(const QWidget *page)
{
    const QWidget *holder = window()->focusWidget();
    if (!page || !holder || (holder != page && !page->isAncestorOf(holder)))
        return false;
    setFocus();
    return true;
}

} // namespace Velmora
