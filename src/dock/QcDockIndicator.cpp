#include <Velmora/QcDockIndicator.h>

#include "theme/ThemedPixmap_p.h"
#include "theme/TokenPainting_p.h"

#include <Velmora/ImageParams.h>
#include <Velmora/QcStyleManager.h>

#include <QAccessible>
#include <QCoreApplication>
#include <QCursor>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QVariant>

namespace Velmora {

namespace {

constexpr int kLabelSize = 32;

bool IsUnder(const QPoint &cursor, const QLabel &label)
{
    return label.rect().contains(label.mapFromGlobal(cursor));
}

QString PicturePath(const QLabel &label, const QString &look)
{
    QString place = label.objectName();
    place.remove(QStringLiteral("_label"));
    return QStringLiteral(":/images/dock/%1_%2.svg").arg(place, look);
}

QString SpokenName(DockPosition position)
{
    switch (position) {
    case Left:
        return QCoreApplication::translate("QcDockIndicator", "Left");
    case Right:
        return QCoreApplication::translate("QcDockIndicator", "Right");
    case Top:
        return QCoreApplication::translate("QcDockIndicator", "Top");
    case Bottom:
        return QCoreApplication::translate("QcDockIndicator", "Bottom");
    case Center:
        return QCoreApplication::translate("QcDockIndicator", "As a tab");
    case OuterLeft:
        return QCoreApplication::translate("QcDockIndicator", "Left edge");
    case OuterRight:
        return QCoreApplication::translate("QcDockIndicator", "Right edge");
    case OuterTop:
        return QCoreApplication::translate("QcDockIndicator", "Top edge");
    case OuterBottom:
        return QCoreApplication::translate("QcDockIndicator", "Bottom edge");
    case NoPosition:
        break;
    }
    return {};
}

} // namespace

QcDockIndicator::QcDockIndicator(QWidget *parent)
    : QFrame(parent)
{
    setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
    setFixedSize(184, 191);
    setLayoutDirection(Qt::LeftToRight); // its places are those of the screen

    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 7, 0, 4);
    grid->setVerticalSpacing(6);
    grid->setHorizontalSpacing(0);
    AddLabel(OuterTop, QStringLiteral("outer_top_label"), 0, 2);
    AddLabel(Top, QStringLiteral("top_label"), 1, 2);
    AddLabel(OuterLeft, QStringLiteral("outer_left_label"), 2, 0);
    AddLabel(Left, QStringLiteral("left_label"), 2, 1);
    AddLabel(Center, QStringLiteral("center_label"), 2, 2);
    AddLabel(Right, QStringLiteral("right_label"), 2, 3);
    AddLabel(OuterRight, QStringLiteral("outer_right_label"), 2, 4);
    AddLabel(Bottom, QStringLiteral("bottom_label"), 3, 2);
    AddLabel(OuterBottom, QStringLiteral("outer_bottom_label"), 4, 2);
    grid->activate(); // the places are asked for before the first show, too
    NameLabels();
    QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] { update(); });
}

QcDockIndicator::~QcDockIndicator() = default;

void QcDockIndicator::AddLabel(DockPosition position, const QString &objectName, int row, int column)
{
    auto *label = new QLabel(this);
    label->setObjectName(objectName);
    label->setFixedSize(kLabelSize, kLabelSize);
    label->setProperty(m_dockPositionProperty, static_cast<int>(position));
    label->setEnabled(false);
    label->installEventFilter(this);
    static_cast<QGridLayout *>(layout())->addWidget(label, row, column);
    m_labelMap.insert(position, label);
}

void QcDockIndicator::NameLabels()
{
    for (auto it = m_labelMap.cbegin(); it != m_labelMap.cend(); ++it)
        it.value()->setAccessibleName(SpokenName(it.key()));
}

void QcDockIndicator::setDockPositionList(QList<DockPosition> positions)
{
    Offer(positions);
    RepaintChangedLabels(QCursor::pos());
}

DockPosition QcDockIndicator::getTargetDockPosition()
{
    return TargetAt(QCursor::pos());
}

void QcDockIndicator::Offer(const QList<DockPosition> &positions)
{
    for (auto it = m_labelMap.cbegin(); it != m_labelMap.cend(); ++it)
        it.value()->setEnabled(positions.contains(it.key()));
}

QString QcDockIndicator::LookOf(const QLabel &label, const QPoint &cursor) const
{
    if (!label.isEnabled())
        return QStringLiteral("disabled");
    const bool isTarget = m_chosen == NoPosition ? IsUnder(cursor, label) : m_labelMap.value(m_chosen) == &label;
    return isTarget ? QStringLiteral("hover") : QStringLiteral("normal");
}

/// Has the label of \a position look like the one under the cursor, and assistive technology say \a spoken, until another one is chosen;
/// NoPosition gives the choice back to the cursor.
void QcDockIndicator::Choose(DockPosition position, const QString &spoken)
{
    NameLabels();
    m_chosen = position;
    update();
    QLabel *label = m_labelMap.value(position);
    if (!label)
        return;
    label->setAccessibleName(spoken);
    QAccessibleEvent focus(label, QAccessible::Focus);
    QAccessible::updateAccessibility(&focus);
}

// The hover follows the cursor without any event of the mouse, which belongs to what was pressed.
void QcDockIndicator::RepaintChangedLabels(const QPoint &cursor)
{
    for (QLabel *label : qAsConst(m_labelMap))
        if (m_paintedLooks.value(label) != LookOf(*label, cursor))
            label->update();
}

// In the order of the positions, which does not change from run to run as the hash's does.
DockPosition QcDockIndicator::TargetAt(const QPoint &cursor) const
{
    for (int position = Left; position < NoPosition; ++position) {
        const QLabel *label = m_labelMap.value(static_cast<DockPosition>(position));
        if (label && label->isEnabled() && IsUnder(cursor, *label))
            return static_cast<DockPosition>(label->property(m_dockPositionProperty).toInt());
    }
    return NoPosition;
}

bool QcDockIndicator::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Paint) {
        if (auto *label = qobject_cast<QLabel *>(watched)) {
            PaintLabel(*label);
            return true;
        }
    }
    return QFrame::eventFilter(watched, event);
}

void QcDockIndicator::PaintLabel(QLabel &label)
{
    const QString look = LookOf(label, QCursor::pos());
    m_paintedLooks.insert(&label, look);
    QPainter painter(&label);
    ImageParams picture;
    picture.path = PicturePath(label, look);
    picture.size = label.size();
    DrawPixmap(painter, label.rect(), PixmapFor(painter, picture));
}

void QcDockIndicator::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    ImageParams cross;
    cross.path = QStringLiteral(":/images/dock/indicator.svg");
    cross.color = ColorParams(QStringLiteral("base/neutral/neutral-80"));
    cross.size = size();
    DrawPixmap(painter, rect(), PixmapFor(painter, cross));
    if (const QLabel *chosen = m_labelMap.value(m_chosen)) // around it: its picture has the ring's colour
        OutlineRounded(painter, QRectF(chosen->geometry()).adjusted(-1.5, -1.5, 1.5, 1.5), 5.0, QStringLiteral("brand/brand"));
}

void QcDockIndicator::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        NameLabels();
    QFrame::changeEvent(event);
}

} // namespace Velmora
