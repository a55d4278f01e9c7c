#include <Velmora/QcScrollBar.h>
#include <Velmora/QcStyleManager.h>

#include "theme/StyleProperty_p.h"

#include <QEvent>
#include <QStyle>
#include <QStyleFactory>

#include <utility>

namespace Velmora {

namespace {

constexpr int kThickness = 10;

/// One for all bars: a widget does not own its style.
QStyle *BarStyle()
{
    static QStyle *style = QStyleFactory::create(QStringLiteral("Fusion")); // to the end of the process
    return style;
}

} // namespace

QcScrollBar::QcScrollBar(Qt::Orientation orientation, QWidget *parent)
    : QScrollBar(orientation, parent)
{
    setStyle(BarStyle());
    setVisible(false);
    updateGeometry();
    UpdatePropertyHover();
    WatchParent();
    QcStyleManager::GetInstance()->RegisterQss(this, QStringLiteral(":/qss/ScrollBar.qss"));
}

// --- The original ---

void QcScrollBar::SetOriginalScrollBar(QPointer<QScrollBar> bar)
{
    if (!bar || bar == m_original)
        return;
    if (m_original) {
        disconnect(m_original, &QScrollBar::rangeChanged, this, &QcScrollBar::OnOriginalScrollBarRangeChanged);
        disconnect(m_original, &QScrollBar::valueChanged, this, &QcScrollBar::OnOriginalScrollBarValueChanged);
    }
    m_original = bar;
    connect(m_original, &QScrollBar::rangeChanged, this, &QcScrollBar::OnOriginalScrollBarRangeChanged);
    connect(m_original, &QScrollBar::valueChanged, this, &QcScrollBar::OnOriginalScrollBarValueChanged);
    if (m_forwarding)
        return;
    m_forwarding = connect(this, &QScrollBar::valueChanged, this, [this] {
        if (!m_original || value() == m_mirrored)
            return;
        m_mirrored.reset(); // whoever set another value meanwhile, user or host, has overtaken the original
        m_original->setValue(value());
    });
}

/// Does \a change, which follows the original and leads to \a value: that one is not handed back. False if a handler of the host deleted
/// the bar.
template <typename Change>
bool QcScrollBar::Mirror(int value, const Change &change)
{
    const QPointer<QcScrollBar> guard(this);
    const auto outer = std::exchange(m_mirrored, value);
    change();
    if (!guard)
        return false;
    m_mirrored = outer;
    return true;
}

bool QcScrollBar::MirrorValue(int value)
{
    return Mirror(qBound(minimum(), value, maximum()), [=] { setValue(value); });
}

void QcScrollBar::MirrorSteps()
{
    setPageStep(m_original ? m_original->pageStep() : 0);
    setSingleStep(m_original ? m_original->singleStep() : 0); // or the wheel would creep over the bar
}

void QcScrollBar::OnOriginalScrollBarRangeChanged(int min, int max)
{
    if (!Mirror(qBound(min, value(), max), [=] { setRange(min, max); }))
        return;
    if (m_original && !MirrorValue(m_original->value()))
        return;
    MirrorSteps();
    if (max > 0) {
        show();
        raise(); // over a viewport set since
    } else {
        hide();
    }
    UpdatePropertyHover();
}

void QcScrollBar::OnOriginalScrollBarValueChanged(int value)
{
    if (!MirrorValue(value))
        return;
    MirrorSteps();
    updateGeometry(); // a viewport that scrolled moved its children along
}

void QcScrollBar::OnCurrentScrollBarValueChanged(int value)
{
    if (m_original)
        m_original->setValue(value);
}

// --- Look and place ---

void QcScrollBar::setDisplayModeM(DisplayMode mode)
{
    m_displayMode = mode;
}

QcScrollBar::DisplayMode QcScrollBar::getDisplayModeM() const
{
    return m_displayMode;
}

void QcScrollBar::UpdatePropertyHover()
{
    const bool isParentHovered = parentWidget() && parentWidget()->testAttribute(Qt::WA_UnderMouse);
    SetStyleProperty(this, m_hoverProperty, m_displayMode == DisplayAlways || isParentHovered);
}

void QcScrollBar::WatchParent()
{
    if (m_watchedParent)
        m_watchedParent->removeEventFilter(this);
    m_watchedParent = parentWidget();
    if (m_watchedParent)
        m_watchedParent->installEventFilter(this);
}

void QcScrollBar::updateGeometry()
{
    const QSize room = parentWidget() ? parentWidget()->size() : QSize();
    const bool isVertical = orientation() == Qt::Vertical;
    const int length = isVertical ? room.height() - 2 * m_verticalMargin : room.width() - 2 * m_horizontalMargin;
    if (isVertical) {
        setFixedWidth(kThickness);
        if (length > 0)
            setFixedHeight(length);
    } else {
        setFixedHeight(kThickness);
        if (length > 0)
            setFixedWidth(length);
    }
    if (!parentWidget())
        return;
    if (isVertical)
        move(room.width() - m_horizontalMargin - width(), m_verticalMargin);
    else
        move(m_horizontalMargin, room.height() - m_verticalMargin - height());
}

void QcScrollBar::showEvent(QShowEvent *event)
{
    if (m_original)
        MirrorSteps();
    raise();
    QScrollBar::showEvent(event);
}

void QcScrollBar::changeEvent(QEvent *event)
{
    QScrollBar::changeEvent(event);
    if (event->type() != QEvent::ParentChange)
        return;
    WatchParent();
    updateGeometry();
    UpdatePropertyHover(); // at last: the host may delete the bar as its property changes
}

bool QcScrollBar::eventFilter(QObject *watched, QEvent *event)
{
    const bool answer = QScrollBar::eventFilter(watched, event);
    if (watched != parent())
        return answer;
    switch (event->type()) {
    case QEvent::Enter:
    case QEvent::Leave:
        UpdatePropertyHover(); // at last, as above
        break;
    case QEvent::Resize:
        updateGeometry();
        break;
    default:
        break;
    }
    return answer;
}

} // namespace Velmora
