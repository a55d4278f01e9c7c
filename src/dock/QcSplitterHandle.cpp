#include "dock/QcSplitterHandle_p.h"

#include "core/InstallAccessible_p.h"
#include "dock/DockTree_p.h"
#include "theme/Mnemonics_p.h"
#include "theme/TokenPainting_p.h"

#include <Velmora/KeyboardCues.h>
#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockContainer.h>

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QSplitter>

namespace Velmora {

namespace {

constexpr int kStep = 8;
constexpr int kFarAway = QWIDGETSIZE_MAX;

QString TitleOf(const QWidget *pane)
{
    auto *area = qobject_cast<const QcDockArea *>(pane);
    while (area && IsWrapper(area))
        area = NestedContainer(area)->getDockAreaList().value(0);
    if (area)
        pane = area->widget(area->currentIndex());
    return pane ? ShownText(pane->windowTitle()) : QString();
}

/// A splitter with a value: where it stands, and how far it goes.
class HandleAccessible : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit HandleAccessible(QcSplitterHandle *handle)
        : QAccessibleWidget(handle, QAccessible::Splitter)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString given = QAccessibleWidget::text(kind);
        if (kind != QAccessible::Name || !given.isEmpty())
            return given;
        const QString before = Handle()->NeighbourTitle(-1);
        const QString after = Handle()->NeighbourTitle(0);
        if (before.isEmpty() || after.isEmpty())
            return QString();
        return QCoreApplication::translate("QcSplitterHandle", "Between %1 and %2").arg(before, after);
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return Handle()->Position(); }
    QVariant minimumValue() const override { return Handle()->ClosestTo(0); }
    QVariant maximumValue() const override { return Handle()->ClosestTo(kFarAway); }
    QVariant minimumStepSize() const override { return 1; }
    void setCurrentValue(const QVariant &value) override { Handle()->MoveTo(value.toInt()); }

private:
    QcSplitterHandle *Handle() const { return static_cast<QcSplitterHandle *>(widget()); }
};

} // namespace

QcSplitterHandle::QcSplitterHandle(Qt::Orientation orientation, QSplitter *parent)
    : QSplitterHandle(orientation, parent)
{
    InstallAccessible<HandleAccessible, QcSplitterHandle>();
    setFocusPolicy(Qt::TabFocus); // a click leaves the focus in the panes
}

int QcSplitterHandle::Position() const
{
    return orientation() == Qt::Horizontal ? x() : y();
}

int QcSplitterHandle::ClosestTo(int position)
{
    return closestLegalPosition(position);
}

void QcSplitterHandle::MoveTo(int position)
{
    // From right to left Qt takes the position for that of the right edge.
    const bool isMirrored = orientation() == Qt::Horizontal && splitter()->isRightToLeft();
    moveSplitter(isMirrored ? position + width() : position);
}

QString QcSplitterHandle::NeighbourTitle(int offset) const
{
    const QSplitter *panes = splitter();
    for (int i = 0; i < panes->count(); ++i)
        if (panes->handle(i) == this)
            return TitleOf(panes->widget(i + offset));
    return QString();
}

void QcSplitterHandle::enterEvent(EnterEvent *event)
{
    m_hover = true;
    update();
    QWidget::enterEvent(event);
}

void QcSplitterHandle::leaveEvent(QEvent *event)
{
    m_hover = false;
    update();
    QWidget::leaveEvent(event);
}

void QcSplitterHandle::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.fillRect(
        rect(),
        TokenColor(m_hover || (hasFocus() && !KeyboardCuesEnabled()) ? QStringLiteral("brand/brand") : QStringLiteral("transparent")));
}

void QcSplitterHandle::keyPressEvent(QKeyEvent *event)
{
    if (const int step = StepOf(*event))
        MoveTo(Position() + step);
    else
        QSplitterHandle::keyPressEvent(event);
}

/// By how much a key moves the handle, in the direction that it shows on the screen; 0 for other keys.
int QcSplitterHandle::StepOf(const QKeyEvent &event) const
{
    const bool isHorizontal = orientation() == Qt::Horizontal;
    const int pixels = event.modifiers() & Qt::ShiftModifier ? 1 : kStep;
    if (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier))
        return 0; // somebody's shortcut
    if (event.key() == (isHorizontal ? Qt::Key_Left : Qt::Key_Up))
        return -pixels;
    if (event.key() == (isHorizontal ? Qt::Key_Right : Qt::Key_Down))
        return pixels;
    if (event.key() == Qt::Key_Home)
        return -kFarAway;
    return event.key() == Qt::Key_End ? kFarAway : 0;
}

void QcSplitterHandle::moveEvent(QMoveEvent *event)
{
    QSplitterHandle::moveEvent(event);
    if (QAccessible::isActive()) {
        QAccessibleValueChangeEvent change(this, Position());
        QAccessible::updateAccessibility(&change);
    }
}

} // namespace Velmora
