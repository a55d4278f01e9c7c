#include <Velmora/QcDockWidget.h>
#include <Velmora/QcIconButton.h>

#include "core/LiesIn_p.h"
#include "dock/PanelContents_p.h"

#include <QCloseEvent>
#include <QFrame>
#include <QLayout>
#include <QVariant>

namespace Velmora {

namespace {

constexpr char kTypeProperty[] = "dock_widget_content_type";
constexpr char kCloseForbiddenProperty[] = "dock_widget_close_forbidden";

} // namespace

void QcDockWidget::setContentWidget(QWidget *content)
{
    if (!content || LiesIn(this, content))
        return;
    if (content != m_contentWidget) {
        ForgetContent();
        m_contentWidget = content;
        EmptyContentLayout();
        KeepAfterAll(content);
        m_contentFrame->layout()->addWidget(content);
        PutContentFirst();
    }
    ReadContent();
}

/// A window gives the focus to what Tab reaches first, which shall be the content: the close button comes after it.
void QcDockWidget::PutContentFirst()
{
    QWidget *last = m_contentWidget;
    while (m_contentWidget->isAncestorOf(last->nextInFocusChain()))
        last = last->nextInFocusChain();
    PutCloseButtonBehind(last);
}

/// The same for what the content got later: in a window all but the title row is the content's.
void QcDockWidget::PutCloseButtonLast()
{
    if (!isWindow())
        return;
    QWidget *last = previousInFocusChain();
    while (last != m_closeButton && last != this && !(last->focusPolicy() & Qt::TabFocus))
        last = last->previousInFocusChain();
    if (last != m_closeButton && last != this)
        PutCloseButtonBehind(last);
}

void QcDockWidget::PutCloseButtonBehind(QWidget *last)
{
    // In a ring of two Qt sees each behind the other already. The panel makes three.
    const Qt::FocusPolicy policy = focusPolicy();
    setFocusPolicy(Qt::TabFocus);
    setTabOrder(last, m_closeButton);
    setFocusPolicy(policy);
}

void QcDockWidget::EmptyContentLayout()
{
    while (QLayoutItem *item = m_contentFrame->layout()->takeAt(0)) {
        if (QWidget *widget = item->widget())
            DeleteContentLater(widget);
        delete item;
    }
}

void QcDockWidget::ForgetContent()
{
    if (m_contentWidget)
        m_contentWidget->removeEventFilter(this);
    m_contentWidget = nullptr;
}

void QcDockWidget::ReadContent()
{
    const QPointer<QWidget> self = this;
    const QPointer<QWidget> content = m_contentWidget;
    m_type = content->property(kTypeProperty).toInt();
    setWindowTitle(content->windowTitle());
    if (!self || !content || content != m_contentWidget)
        return;
    if (content->parentWidget() != m_contentFrame) { // its host, hearing of the title, took it away
        ForgetContent();
        return;
    }
    if (content->property(kCloseForbiddenProperty).isValid())
        m_closeButton->setEnabled(false);
    content->installEventFilter(this);
}

QWidget *QcDockWidget::getContentWidget()
{
    return m_contentWidget;
}

bool QcDockWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_contentWidget) {
        const QPointer<QWidget> self = this;
        if (event->type() == QEvent::WindowTitleChange)
            setWindowTitle(m_contentWidget->windowTitle());
        else if (event->type() == QEvent::ParentChange && m_contentWidget->parentWidget() != m_contentFrame)
            ForgetContent();
        if (!self)
            return false;
    }
    return QObject::eventFilter(watched, event);
}

void QcDockWidget::closeEvent(QCloseEvent *event)
{
    if (!m_contentWidget)
        return;
    // The content may ask its user in a dialog, and anything may happen meanwhile. The event outlives that.
    event->setAccepted(CloseContent(*m_contentWidget));
}

} // namespace Velmora
