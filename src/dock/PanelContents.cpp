#include "dock/PanelContents_p.h"

#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockWidget.h>

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

namespace Velmora {

namespace {

/// Contents whose deletion is scheduled, and by a panel, each with what hears of its end.
QHash<const QObject *, QMetaObject::Connection> &GivenUp()
{
    static QHash<const QObject *, QMetaObject::Connection> contents;
    return contents;
}

/// True if the end of \a widget cannot be that of the last window: it lies in one that is in sight.
bool LiesInMainWindow(const QWidget &widget)
{
    const QWidget *window = widget.window();
    return window != &widget && window->isVisible() && !window->parentWidget() && window->testAttribute(Qt::WA_QuitOnClose);
}

/// The outer-most container or panel around \a panel in its window. Something of ours, since a host's window may make something of its
/// children; and in no content that could be taken, too.
QWidget &OuterMostOfOurs(QWidget &panel)
{
    QWidget *outerMost = &panel;
    for (QWidget *widget = &panel; !widget->isWindow();) {
        widget = widget->parentWidget();
        if (qobject_cast<QcDockContainer *>(widget) || qobject_cast<QcDockWidget *>(widget))
            outerMost = widget;
    }
    return *outerMost;
}

} // namespace

void DeleteContentLater(QWidget *content)
{
    if (GivenUp().contains(content))
        return;
    const auto forget = [](const QObject *gone) { GivenUp().remove(gone); };
    GivenUp().insert(content, QObject::connect(content, &QObject::destroyed, forget));
    content->deleteLater();
}

void KeepAfterAll(QWidget *content)
{
    if (!GivenUp().contains(content))
        return;
    QObject::disconnect(GivenUp().take(content));
    QCoreApplication::removePostedEvents(content, QEvent::DeferredDelete);
}

bool CloseContent(QWidget &content)
{
    // A content that was made without a parent counts as a main window for ever. Out of sight, at the back of a stack, it would have Qt
    // look through all widgets of the program for one that is left.
    if (!content.testAttribute(Qt::WA_QuitOnClose) || !LiesInMainWindow(content))
        return content.close();
    const QPointer<QWidget> living(&content);
    content.setAttribute(Qt::WA_QuitOnClose, false);
    const bool isClosed = content.close();
    if (living)
        living->setAttribute(Qt::WA_QuitOnClose);
    return isClosed;
}

ContentsOnTheMove::ContentsOnTheMove(QWidget &destination)
    : m_destination(&destination)
{
}

ContentsOnTheMove::~ContentsOnTheMove()
{
    for (const QPointer<QWidget> &carrier : qAsConst(m_carriers))
        delete carrier;
}

void ContentsOnTheMove::Take(QWidget &content, QWidget &panel)
{
    QPointer<QWidget> &carrier = m_carriers[content.window()];
    if (!carrier)
        carrier = new QWidget(&OuterMostOfOurs(panel));
    content.setParent(carrier);
}

void ContentsOnTheMove::Arrive()
{
    const auto carriers = m_carriers;
    for (const QPointer<QWidget> &carrier : carriers)
        if (carrier && m_destination && carrier->window() != m_destination->window())
            carrier->setParent(m_destination);
}

} // namespace Velmora
