#include "theme/FocusRing_p.h"

#include "core/ApplicationEvents_p.h"
#include "theme/FocusShape_p.h"
#include "theme/TokenPainting_p.h"

#include <Velmora/KeyboardCues.h>
#include <Velmora/QcStyleManager.h>

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollArea>

#include <algorithm>
#include <utility>

namespace Velmora {

namespace {

constexpr int kWidth = 2;
constexpr int kGap = 1; // sets the ring off from what has its colour: filled buttons
constexpr int kReach = kWidth + kGap;

QRect Grown(const QRect &rect, int by)
{
    return rect.adjusted(-by, -by, by, by);
}

/// In whole pixels of the device.
QRectF OnPixels(const QRectF &rect)
{
    return QRectF(QPointF(qRound(rect.left()), qRound(rect.top())), QPointF(qRound(rect.right()), qRound(rect.bottom())));
}

/// The band between \a outer and what lies \a width further in, its outer corners rounded by \a radius.
void FillBand(QPainter &painter, const QRectF &outer, qreal radius, qreal width, const QString &code)
{
    const QRectF inner = outer.adjusted(width, width, -width, -width);
    const qreal innerRadius = qMax(radius - width, 0.0);
    QPainterPath band;
    band.addRoundedRect(outer, radius, radius);
    band.addRoundedRect(inner, innerRadius, innerRadius);
    painter.fillPath(band, TokenColor(code));
}

/// On what a ring of \a control is painted: its window, or what of that is a window to the window system, which would cover the ring.
QWidget *GroundOf(QWidget &control)
{
    return control.isWindow() ? &control : control.nativeParentWidget();
}

/// The part of \a ground in which a ring of \a control can be seen. What lies close around it, as a row of a layout does, leaves room
/// for the ring; what scrolls does not.
QRect RoomOf(const QWidget &control, const QWidget *ground)
{
    QRect room = ground->rect();
    for (const QWidget *outer = control.parentWidget(); outer && outer != ground; outer = outer->parentWidget()) {
        const auto *area = qobject_cast<const QAbstractScrollArea *>(outer->parentWidget());
        const bool scrolls = area && area->viewport() == outer;
        const QRect place(outer->mapTo(ground, QPoint()), outer->size());
        room &= scrolls ? place : Grown(place, kReach);
    }
    return room;
}

/// Qt scrolls to what Tab reaches only when it came from within the same area. Hosts hear of it, and may take any of these away.
void ScrollIntoSight(const QPointer<QWidget> &control)
{
    QPointer<QWidget> outer = control->parentWidget();
    while (control && outer) {
        auto *area = qobject_cast<QScrollArea *>(outer);
        if (area && area->widget() && area->widget()->isAncestorOf(control))
            area->ensureWidgetVisible(control); // which leaves room for a ring
        outer = outer ? outer->parentWidget() : nullptr;
    }
}

/// Whether a press of \a key moves the focus, or within \a focus what has it.
bool Navigates(int key, const QWidget *focus)
{
    switch (key) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        return focus && !focus->testAttribute(Qt::WA_InputMethodEnabled); // there an arrow moves the cursor in a text
    default:
        return false;
    }
}

/// Whether \a watched is a window that gets the keyboard when it is shown.
bool TakesKeyboard(const QObject *watched)
{
    if (!watched->isWidgetType())
        return false;
    const auto *window = static_cast<const QWidget *>(watched);
    return window->isWindow() && window->windowType() != Qt::ToolTip && window->windowType() != Qt::Popup
        && !window->testAttribute(Qt::WA_ShowWithoutActivating);
}

} // namespace

// --- The ring ---

FocusRingOverlay::FocusRingOverlay(QWidget &ground)
    : QFocusFrame(&ground)
{
    connect(QcStyleManager::GetInstance(), &QcStyleManager::SignalColorChanged, this, QOverload<>::of(&QWidget::update));
}

void FocusRingOverlay::Surround(const FocusShape &shape, const QRect &room)
{
    const bool isWithin = shape.isRingWithin || !room.contains(Grown(shape.rect, kReach));
    const QRect outer = Grown(shape.rect, isWithin ? 1 : kReach + 1); // a pixel more, into which a scaled ring may be rounded
    // Only the band is the overlay's, so that what the control paints within goes past it.
    const int corner = (shape.radius + 2) / 3; // round corners leave the band's straight sides that far
    const QRect hole = Grown(shape.rect, (isWithin ? -kReach : 0) - 1 - corner);
    const QRegion band = (QRegion(outer) - hole) & room;
    const QRegion mask = band.translated(-outer.topLeft());
    const bool isMoved = geometry() != outer || mask != this->mask();
    const bool isChanged = m_rect != shape.rect || m_radius != shape.radius || m_isWithin != isWithin;
    m_rect = shape.rect;
    m_radius = shape.radius;
    m_isWithin = isWithin;
    if (isMoved) {
        setGeometry(outer);
        setMask(mask);
    }
    if (isChanged)
        update();
    Rise();
    setVisible(!band.isEmpty());
}

/// Above all siblings. Not without need: it repaints.
void FocusRingOverlay::Rise()
{
    const QObjectList &siblings = parentWidget()->children();
    const auto next = std::find(siblings.begin(), siblings.end(), this) + 1;
    const auto covers = [](const QObject *sibling) {
        return sibling->isWidgetType() && !static_cast<const QWidget *>(sibling)->isWindow();
    };
    if (std::any_of(next, siblings.end(), covers))
        raise();
}

void FocusRingOverlay::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    const QTransform toDevice = painter.deviceTransform();
    const qreal ratio = toDevice.m11();
    const qreal width = qMax(qRound(kWidth * ratio), 1);
    const qreal gap = qMax(qRound(kGap * ratio), 1);
    const QRectF control = OnPixels(toDevice.mapRect(QRectF(m_rect.translated(-pos()))));
    const qreal radius = m_radius * ratio;

    painter.setWorldTransform(toDevice.inverted() * painter.worldTransform()); // in pixels from here on
    painter.setRenderHint(QPainter::Antialiasing);
    const QString ring = QStringLiteral("others/focus");
    if (m_isWithin) {
        FillBand(painter, control, radius, width, ring);
        // A line of the ground's colour sets it off as the gap does.
        FillBand(painter, control.adjusted(width, width, -width, -width), qMax(radius - width, 0.0), gap, QStringLiteral("bg/bg_box"));
    } else {
        const qreal reach = width + gap;
        FillBand(painter, control.adjusted(-reach, -reach, reach, reach), m_radius > 0 ? radius + reach : 0.0, width, ring);
    }
}

// --- What moves it ---

FocusRing::FocusRing(QApplication *application)
    : QObject(application)
{
    WatchApplicationEvents(this,
                           {QEvent::FocusIn, QEvent::KeyPress, QEvent::ShortcutOverride, QEvent::Show, QEvent::MouseButtonPress,
                            QEvent::TabletPress, QEvent::TouchBegin, QEvent::ZOrderChange});
    connect(application, &QApplication::focusChanged, this, &FocusRing::UpdateLater);
}

void FocusRing::Stop()
{
    UnwatchApplicationEvents(this);
    disconnect(qApp, nullptr, this, nullptr);
    m_isNavigating = false;
    Hide();
    delete m_overlay;
}

bool FocusRing::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    // Of the whole application
    case QEvent::FocusIn:
        if (watched == QApplication::focusWidget())
            FollowReason(static_cast<QFocusEvent *>(event)->reason());
        break;
    case QEvent::KeyPress:
        FollowKey(static_cast<QKeyEvent *>(event)->key());
        break;
    case QEvent::ShortcutOverride: // of a shortcut's key nothing else is seen
        m_isKeyLast = true;
        break;
    case QEvent::Show:
        if (m_isKeyLast && TakesKeyboard(watched))
            m_opened = watched;
        break;
    case QEvent::MouseButtonPress:
    case QEvent::TabletPress:
    case QEvent::TouchBegin:
        m_isKeyLast = false;
        m_isNavigating = false;
        m_opened.clear();
        Hide();
        break;
    case QEvent::ZOrderChange:
        if (m_overlay && watched->parent() == m_overlay->parent())
            UpdateLater();
        break;
    // Of what is followed
    case QEvent::Paint: // what the control shows may have changed: its tab, its link
        if (!m_followed.empty() && watched == m_followed.front())
            UpdateLater();
        break;
    case QEvent::Move: // who is hidden or gets another parent loses the focus besides
    case QEvent::Resize:
    case QEvent::ChildAdded: // over the ring
        UpdateLater();
        break;
    default:
        break;
    }
    return false;
}

void FocusRing::FollowReason(Qt::FocusReason reason)
{
    switch (reason) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
        m_isNavigating = true;
        m_isArriving = true;
        break;
    case Qt::OtherFocusReason: // by the program, as an answer to what the user did last
        m_isNavigating = m_isNavigating || m_isKeyLast;
        break;
    case Qt::ActiveWindowFocusReason: // it comes back, or a key has brought it there
        m_isNavigating = m_isNavigating || (m_opened && m_opened == QApplication::activeWindow());
        break;
    case Qt::MouseFocusReason:
        m_isNavigating = false;
        break;
    default: // it comes back from a menu or a popup
        break;
    }
    UpdateLater();
}

void FocusRing::FollowKey(int key)
{
    m_isKeyLast = true;
    m_isNavigating = m_isNavigating || Navigates(key, QApplication::focusWidget());
    UpdateLater(); // when the key has done its work
}

/// Once for all that happens until then, and before anything is painted.
void FocusRing::UpdateLater()
{
    const bool canShow = m_isNavigating && QApplication::focusWidget();
    if (m_isUpdatePending || (!canShow && m_followed.empty()))
        return;
    m_isUpdatePending = true;
    QMetaObject::invokeMethod(this, &FocusRing::Update, Qt::QueuedConnection);
}

void FocusRing::Update()
{
    m_isUpdatePending = false;
    QWidget *focus = m_isNavigating ? QApplication::focusWidget() : nullptr;
    const QPointer<QWidget> control = focus ? FocusedControl(*focus) : nullptr;
    if (control && std::exchange(m_isArriving, false))
        ScrollIntoSight(control);
    const bool canShow = control && m_isNavigating; // still, when that is done
    FocusShape shape = canShow ? FocusShapeOf(*control) : FocusShape();
    if (shape.rect.isEmpty()) {
        Hide();
        return;
    }
    Follow(control);
    QWidget *ground = GroundOf(*control);
    shape.rect.translate(control->mapTo(ground, QPoint()));
    if (m_overlay && m_overlay->parentWidget() != ground)
        delete m_overlay;
    if (!m_overlay)
        m_overlay = new FocusRingOverlay(*ground);
    m_overlay->Surround(shape, RoomOf(*control, ground));
}

void FocusRing::Hide()
{
    Follow(nullptr);
    if (m_overlay)
        m_overlay->hide();
}

/// Watches \a control and what it lies in, up to its window, in place of what it watched before.
void FocusRing::Follow(QWidget *control)
{
    std::vector<QPointer<QWidget>> chain;
    for (QWidget *widget = control; widget; widget = widget->isWindow() ? nullptr : widget->parentWidget())
        chain.emplace_back(widget);
    if (chain == m_followed)
        return;
    for (const QPointer<QWidget> &widget : m_followed) {
        if (widget)
            widget->removeEventFilter(this);
    }
    for (const QPointer<QWidget> &widget : chain)
        widget->installEventFilter(this);
    m_followed = std::move(chain);
}

void FollowKeyboardCues()
{
    static QPointer<FocusRing> ring;
    auto *application = qobject_cast<QApplication *>(QCoreApplication::instance());
    if (!KeyboardCuesEnabled() && ring) {
        ring->Stop();
        ring->deleteLater();
        ring = nullptr;
    } else if (KeyboardCuesEnabled() && application && !ring) {
        ring = new FocusRing(application);
    }
}

} // namespace Velmora
