#include <Velmora/QcArrowTip.h>
#include <Velmora/QcMultiLineText.h>
#include <Velmora/QcStyleManager.h>

#include "core/InstallAccessible_p.h"
#include "display/NamedByText_p.h"
#include "display/TextLayout_p.h"
#include "display/Unobtrusive_p.h"
#include "theme/TokenPainting_p.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QPainterPath>
#include <QTextDocument>
#include <QTimer>
#include <QWindow>

namespace Velmora {

namespace {

const QString kBubbleColor = QStringLiteral("base/neutral/neutral_invert");

class TipAccessible : public NamedByText
{
public:
    explicit TipAccessible(QcArrowTip *tip)
        : NamedByText(tip, QAccessible::ToolTip)
    {
    }
};

/// The triangle on one side of a tip of \a size: its apex on the edge, its base \a s pixels inside and twice as wide.
QPainterPath TrianglePath(QcArrowTip::TriangleDirection direction, const QSize &size, int s)
{
    const int w = size.width();
    const int h = size.height();
    QPolygon points;
    switch (direction) {
    case QcArrowTip::Left:
        points << QPoint(s, h / 2 - s) << QPoint(0, h / 2) << QPoint(s, h / 2 + s);
        break;
    case QcArrowTip::Top:
        points << QPoint(w / 2 - s, s) << QPoint(w / 2, 0) << QPoint(w / 2 + s, s);
        break;
    case QcArrowTip::Right:
        points << QPoint(w - s, h / 2 - s) << QPoint(w, h / 2) << QPoint(w - s, h / 2 + s);
        break;
    case QcArrowTip::Bottom:
        points << QPoint(w / 2 - s, h - s) << QPoint(w / 2, h) << QPoint(w / 2 + s, h - s);
        break;
    }
    QPainterPath path;
    path.addPolygon(points);
    path.closeSubpath();
    return path;
}

} // namespace

QcArrowTip::QcArrowTip(QWidget *parent)
    : QcArrowTip(parent, Contents::AtOnce)
{
}

QcArrowTip::QcArrowTip(QWidget *parent, Contents contents)
    : QFrame(parent)
    , m_font(QcStyleManager::GetDefaultFont())
{
    InstallAccessible<TipAccessible, QcArrowTip>();
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
    MakeUnobtrusive(*this);
    m_font.setPixelSize(12);
    if (contents == Contents::AtOnce)
        MakeContents();
    QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] { update(); });
}

void QcArrowTip::MakeContents()
{
    if (m_textControl)
        return;
    // Room for the triangle on every side, whichever it sits on.
    m_outerLayout = new QHBoxLayout(this);
    m_outerLayout->setContentsMargins(m_triangleSize, m_triangleSize, m_triangleSize, m_triangleSize);
    m_outerLayout->setSizeConstraint(QLayout::SetFixedSize);
    auto *contentFrame = new QFrame(this);
    contentFrame->setObjectName(QStringLiteral("m_contentFrame"));
    m_outerLayout->addWidget(contentFrame);
    m_innerLayout = new QHBoxLayout(contentFrame);
    m_innerLayout->setContentsMargins(8, 4, 8, 4);

    m_textControl = new QcMultiLineText(this);
    m_textControl->setFont(m_font);
    m_textControl->setHeightAdaptive(true);
    if (!m_textColorParams.isNull())
        m_textControl->setDefaultTextColorParams(m_textColorParams);
    m_innerLayout->addWidget(m_textControl);

    QcStyleManager::GetInstance()->RegisterQss(this, QStringLiteral(":/qss/ArrowTip.qss"));
}

// The content's changes of height are told to the host, who may delete the tip.

void QcArrowTip::setText(const QString &text)
{
    const QPointer<QcArrowTip> alive(this);
    MakeContents();
    m_text = text;
    m_textControl->setText(text);
    if (alive)
        adjustWidth();
}

void QcArrowTip::setMaxWidth(int width)
{
    m_maxWidth = qMax(0, width);
    if (m_textControl)
        adjustWidth();
}

void QcArrowTip::setTextColorParams(const QString &code)
{
    m_textColorParams = code;
    if (m_textControl)
        m_textControl->setDefaultTextColorParams(code);
}

void QcArrowTip::setTriangleDirection(TriangleDirection direction)
{
    m_direction = direction;
}

void QcArrowTip::setReferenceWidget(QPointer<QWidget> widget)
{
    m_reference = widget;
    if (isVisible())
        WatchReference();
}

void QcArrowTip::show()
{
    if (m_reference)
        QFrame::show();
}

void QcArrowTip::setVisible(bool visible)
{
    if (visible)
        MakeContents();
    QFrame::setVisible(visible);
}

// --- Size and place ---

void QcArrowTip::adjustWidth()
{
    const QPointer<QcArrowTip> alive(this);
    const QMargins inner = m_innerLayout->contentsMargins();
    const QMargins outer = m_outerLayout->contentsMargins();
    const int available = m_maxWidth - inner.left() - inner.right() - outer.left() - outer.right();
    // Free of the width that an earlier text left behind, so that a tip used again has the size of a fresh one.
    auto *document = m_textControl->findChild<QTextDocument *>(QString(), Qt::FindDirectChildrenOnly);
    const bool mayFit = MayFit(*document, available * qint64(4)); // marks may take no pixel of their own
    const int ideal = mayFit ? int(UnwrappedWidth(*document)) : available;
    // A long text takes the maximum itself: its tip is wider by the margins.
    m_textControl->setFixedWidth(qMin(ideal < available ? ideal : m_maxWidth, QWIDGETSIZE_MAX));
    if (!alive)
        return;
    LayOut(*document, m_textControl->width()); // which may be that of the last text
    if (alive)
        adjustPositionAsync();
}

void QcArrowTip::adjustPositionAsync()
{
    // A hidden tip is placed when it shows, and one placement serves all that ask for it meanwhile.
    if (m_isPlacementDue || !isVisible())
        return;
    m_isPlacementDue = true;
    // Later, since inside a move or resize event neither the reference nor the tip has its place and size yet.
    QTimer::singleShot(1, this, &QcArrowTip::Place);
}

void QcArrowTip::Place()
{
    m_isPlacementDue = false;
    if (!m_reference)
        return;
    const QPoint origin = m_reference->mapToGlobal(QPoint(0, 0));
    const int centredX = origin.x() + m_reference->width() / 2 - width() / 2;
    const int centredY = origin.y() + m_reference->height() / 2 - height() / 2;
    switch (m_direction) {
    case Left:
        move(origin.x() + m_reference->width() + m_gap, centredY);
        break;
    case Top:
        move(centredX, origin.y() + m_reference->height() + m_gap);
        break;
    case Right:
        move(origin.x() - m_gap - width(), centredY);
        break;
    case Bottom:
        move(centredX, origin.y() - m_gap - height());
        break;
    }
}

void QcArrowTip::WatchReference()
{
    if (!m_reference)
        return;
    m_reference->installEventFilter(this);
    m_reference->window()->installEventFilter(this);
}

bool QcArrowTip::eventFilter(QObject *watched, QEvent *event)
{
    // Earlier references keep the filter and no longer count.
    const bool isMine = m_reference && (watched == m_reference || watched == m_reference->window());
    if (isMine && (event->type() == QEvent::Move || event->type() == QEvent::Resize))
        adjustPositionAsync();
    return QFrame::eventFilter(watched, event);
}

void QcArrowTip::resizeEvent(QResizeEvent *event)
{
    adjustPositionAsync();
    QFrame::resizeEvent(event);
}

void QcArrowTip::showEvent(QShowEvent *event)
{
    // Qt leaves a tip whose parent changed its window in front of the old one, to minimise and close with that.
    if (windowHandle() && parentWidget())
        windowHandle()->setTransientParent(parentWidget()->window()->windowHandle());
    WatchReference();
    if (CompositorPlacesWindows())
        Place();
    adjustPositionAsync();
    QFrame::showEvent(event);
}

void QcArrowTip::hideEvent(QHideEvent *event)
{
    // Each filter costs every event of the window, and a form has hundreds of hidden tips.
    if (m_reference) {
        m_reference->removeEventFilter(this);
        m_reference->window()->removeEventFilter(this);
    }
    QFrame::hideEvent(event);
}

// --- Painting ---

void QcArrowTip::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(TokenColor(kBubbleColor));
    painter.drawPath(TrianglePath(m_direction, size(), m_triangleSize));
}

} // namespace Velmora
