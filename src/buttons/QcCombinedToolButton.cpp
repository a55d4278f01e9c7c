#include <Velmora/PostOwnedTask.h>
#include <Velmora/QcCombinedToolButton.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/QcToolButton.h>

#include "buttons/ButtonPainting_p.h"
#include "buttons/ButtonStateTracker_p.h"
#include "buttons/ButtonState_p.h"
#include "buttons/ButtonTables_p.h"

#include <QAction>
#include <QCursor>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

namespace Velmora {

namespace {

constexpr int kSide = 32; // of the square main half, and the height of both
constexpr int kArrowWidth = 12;
constexpr int kWidth = kSide + kArrowWidth;
constexpr int kRadius = 2;
constexpr int kMenuGap = 2;

/// A half takes the mouse and the keyboard, and leaves the painting to the control.
QcToolButton *MakeHalf(QWidget *control, const QSize &size)
{
    auto *half = new QcToolButton(control);
    half->setCheckable(true);
    half->setAttribute(Qt::WA_TranslucentBackground);
    half->setFixedSize(size);
    half->setIconSize(size);
    return half;
}

bool OpensMenu(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    return event.key() == Qt::Key_Down && (modifiers == Qt::NoModifier || modifiers == Qt::AltModifier);
}

} // namespace

QcCombinedToolButton::QcCombinedToolButton(QWidget *parent)
    : QFrame(parent)
    , m_pMainButton(MakeHalf(this, QSize(kSide, kSide)))
    , m_pArrowButton(MakeHalf(this, QSize(kArrowWidth, kSide)))
    , m_mainTracker(std::make_unique<ButtonStateTracker>(*m_pMainButton, *m_pMainButton, *this, m_mainState))
    , m_arrowTracker(std::make_unique<ButtonStateTracker>(*m_pArrowButton, *m_pMainButton, *this, m_arrowState))
{
    setAttribute(Qt::WA_MouseTracking);
    auto *halves = new QHBoxLayout(this);
    halves->setSpacing(0);
    halves->setContentsMargins(0, 0, 0, 0);
    halves->setSizeConstraint(QLayout::SetFixedSize);
    halves->addWidget(m_pMainButton);
    halves->addWidget(m_pArrowButton);
    // What the layout will say: the tables are measured by the control, which may not have been shown by then. To activate the layout
    // would style the halves before they have their sheet, and again with it.
    setFixedSize(kWidth, kSide);
    m_pArrowButton->move(kSide, 0);
    QcStyleManager::GetInstance()->RegisterQss(this, QStringLiteral(":/qss/CombinedToolButton.qss"));
    QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] { update(); });
    connect(m_pMainButton, &QAbstractButton::toggled, this, &QcCombinedToolButton::onMainButtonToggled);
    connect(m_pArrowButton, &QAbstractButton::toggled, this, &QcCombinedToolButton::onArrowButtonToggled);
    // Later, when the object is of its own class and the call reaches it.
    PostOwnedTask(
        this, [this] { UpdateUiParams(); }, std::string());
    m_pMainButton->installEventFilter(this);
    m_pArrowButton->installEventFilter(this);
    ForbidCursorIfDisabled(*this);
}

QcCombinedToolButton::~QcCombinedToolButton() = default;

void QcCombinedToolButton::SetBackgroundColorParams(QFlags<QStyle::StateFlag> state, const QString &token)
{
    m_backgroundColors[state] = token;
    update();
}

void QcCombinedToolButton::SetIconParam(QFlags<QStyle::StateFlag> state, const ImageParams &params)
{
    m_mainIconParams[state] = params;
    updateGeometry();
    update();
}

void QcCombinedToolButton::SetIconPath(const QString &path)
{
    m_iconPath = path;
    updateGeometry();
    update();
}

void QcCombinedToolButton::SetBorderRadius(int radius)
{
    m_borderRadius = radius;
    update();
}

void QcCombinedToolButton::KeepBorderRadius(int radius)
{
    SetBorderRadius(radius);
    if (m_backgroundColors.isEmpty()) // UpdateUiParams() is still to come
        PostOwnedTask(
            this, [this, radius] { SetBorderRadius(radius); }, std::string());
}

QString QcCombinedToolButton::GetIconPath() const
{
    return m_iconPath;
}

void QcCombinedToolButton::UpdateUiParams()
{
    m_borderRadius = kRadius;
    Enter(m_backgroundColors, ToolBackgrounds());
    Enter(m_mainIconParams, ToolIcons());
    Enter(m_arrowIconParams, IconsOf(kToolArrow, kMenuArrow, QSize(height() * kArrowWidth / kSide, height())));
    update();
}

// --- Actions and the menu ---

void QcCombinedToolButton::SetCurrentAction(QAction *action)
{
    if (!action)
        return;
    const QString iconPath = action->property("ActionIconPath").toString();
    m_pMainButton->removeAction(m_pMainButton->defaultAction()); // or a long press would offer all that were ever current
    SetIconPath(iconPath);
    m_pMainButton->setDefaultAction(action); // last: it may toggle the half, for which a host may have a handler
}

void QcCombinedToolButton::addAction(QAction *action)
{
    m_pArrowButton->addAction(action);
}

void QcCombinedToolButton::setMenu(QMenu *menu)
{
    m_pArrowButton->setMenu(menu);
    if (menu)
        connect(menu, &QMenu::triggered, this, &QcCombinedToolButton::SetCurrentAction, Qt::UniqueConnection);
}

void QcCombinedToolButton::ShowMenu()
{
    const QPointer<QMenu> menu = m_pArrowButton->menu();
    if (!menu)
        return;
    if (!menu->isVisible()) {
        const QPointer<QcCombinedToolButton> alive(this);
        Q_EMIT menu->aboutToShow(); // which show() leaves out, and in which hosts fill menus
        if (!alive || !menu)
            return;
    }
    // Its size decides its place. A size that is not the host's follows entries and font, which may change before the next time.
    const bool followsEntries = !menu->testAttribute(Qt::WA_Resized);
    if (followsEntries) {
        menu->ensurePolished();
        menu->resize(menu->sizeHint()); // not adjustSize(), which would cut a wide one
    }
    const QPoint place = rect().bottomRight() + QPoint(-menu->width(), kMenuGap);
    menu->move(mapToGlobal(QStyle::visualRect(layoutDirection(), rect(), QRect(place, menu->size())).topLeft()));
    menu->show();
    if (menu && followsEntries)
        menu->setAttribute(Qt::WA_Resized, false);
}

// --- State ---

void QcCombinedToolButton::onMainButtonToggled(bool /*checked*/)
{
    m_mainTracker->ShowChecked(m_pMainButton->isChecked());
    m_arrowTracker->ShowChecked(m_pMainButton->isChecked());
}

void QcCombinedToolButton::onArrowButtonToggled(bool /*checked*/)
{
    update();
    ShowMenu(); // each click, in either direction
}

bool QcCombinedToolButton::eventFilter(QObject *watched, QEvent *event)
{
    const bool isMain = watched == m_pMainButton;
    if (isMain && FilterMainEvent(event))
        return true;
    if (watched == m_pArrowButton && FilterArrowEvent(event))
        return true;
    return QObject::eventFilter(watched, event);
}

bool QcCombinedToolButton::FilterMainEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        m_mainTracker->Press();
        return false;
    case QEvent::MouseButtonRelease:
        m_mainTracker->Release();
        return false;
    case QEvent::Enter:
        m_mainTracker->Enter();
        return false;
    case QEvent::Leave:
        m_mainTracker->Leave();
        return false;
    case QEvent::EnabledChange: // also of its own, with the current action's
        m_mainTracker->FollowEnabled();
        return false;
    case QEvent::Paint:
        return true; // the control has painted it
    default:
        return FilterKey(event);
    }
}

bool QcCombinedToolButton::FilterArrowEvent(QEvent *event)
{
    // No press: the arrow half has no pressed look.
    switch (event->type()) {
    case QEvent::Enter:
        m_arrowTracker->Enter();
        return false;
    case QEvent::Leave:
        m_arrowTracker->Leave();
        return false;
    case QEvent::Resize:
        if (m_pArrowButton->iconSize() != QSize(kArrowWidth, kSide))
            m_pArrowButton->setIconSize(QSize(kArrowWidth, kSide));
        return false;
    case QEvent::Timer:
        return FilterHold();
    case QEvent::Paint:
        return true;
    default:
        return FilterKey(event);
    }
}

bool QcCombinedToolButton::FilterHold()
{
    // A tool button shows its menu, at a place of its own, when a press lasts. No other timer of a button runs during a press.
    const bool isHeld = m_pArrowButton->isDown() && QGuiApplication::mouseButtons() != Qt::NoButton;
    if (!isHeld || !m_pArrowButton->menu())
        return false;
    m_pArrowButton->setDown(false); // which ends the timer, the next time
    ShowMenu();
    return true;
}

bool QcCombinedToolButton::FilterKey(QEvent *event)
{
    const bool hasMenu = m_pArrowButton->menu() || !m_pArrowButton->actions().isEmpty();
    if (event->type() != QEvent::KeyPress || !isEnabled() || !hasMenu || !OpensMenu(*static_cast<QKeyEvent *>(event)))
        return false;
    if (m_pArrowButton->menu())
        ShowMenu();
    else
        m_pArrowButton->showMenu(); // of the actions alone; returns when it closes
    return true;
}

void QcCombinedToolButton::HoverHalfAt(const QPoint &position)
{
    if (m_pMainButton->geometry().contains(position)) {
        m_mainTracker->Enter();
        m_arrowTracker->Leave();
    } else if (m_pArrowButton->geometry().contains(position)) {
        m_mainTracker->Leave();
        m_arrowTracker->Enter();
    }
    update();
}

void QcCombinedToolButton::enterEvent(EnterEvent *event)
{
    HoverHalfAt(mapFromGlobal(QCursor::pos()));
    QWidget::enterEvent(event);
}

void QcCombinedToolButton::mouseMoveEvent(QMouseEvent *event)
{
    HoverHalfAt(event->pos());
    QWidget::mouseMoveEvent(event);
}

void QcCombinedToolButton::leaveEvent(QEvent *event)
{
    m_mainTracker->Leave();
    m_arrowTracker->Leave();
    QWidget::leaveEvent(event);
}

void QcCombinedToolButton::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange) {
        m_mainTracker->FollowEnabled();
        m_arrowTracker->FollowEnabled();
        ForbidCursorIfDisabled(*this);
    }
    QFrame::changeEvent(event);
}

void QcCombinedToolButton::resizeEvent(QResizeEvent *event)
{
    if (!size().isEmpty()) {
        const int side = width() * kSide / kWidth;
        m_pMainButton->setIconSize(QSize(side, side));
        m_pArrowButton->setIconSize(QSize(width() * kArrowWidth / kWidth, side));
        update();
    }
    QWidget::resizeEvent(event);
}

// --- Painting ---

QPair<QString, ImageParams> QcCombinedToolButton::getCurMainImageParams() const
{
    const QStyle::State look = m_mainTracker->Look();
    return {m_backgroundColors.value(look), m_mainIconParams.value(look)};
}

QPair<QString, ImageParams> QcCombinedToolButton::getCurArrowImageParams() const
{
    const QStyle::State look = m_arrowTracker->Look();
    // Pressed by a key, of which the state word knows nothing, it keeps its arrow.
    const bool isPressed = ButtonState::LookFor(int(m_arrowState)) == QStyle::State(ButtonState::kPressed);
    const auto &icons = isPressed ? m_mainIconParams : m_arrowIconParams;
    return {m_backgroundColors.value(look), icons.value(look)};
}

void QcCombinedToolButton::paintEvent(QPaintEvent *event)
{
    // A half asks for its own repaint when it changes, in silence too, while its check may be the look of the whole.
    if (event->rect().contains(m_pMainButton->geometry()) && !event->rect().contains(rect()))
        update();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPair<QString, ImageParams> main = getCurMainImageParams();
    const QPair<QString, ImageParams> arrow = getCurArrowImageParams();
    // Where the halves lie: in right-to-left layout the arrow stands first.
    const QRect mainRect = m_pMainButton->geometry();
    const QRect arrowRect = m_pArrowButton->geometry();

    if (m_pMainButton->isChecked()) {
        PaintBackground(painter, rect(), m_borderRadius, main.first);
    } else {
        PaintBackground(painter, mainRect, m_borderRadius, main.first);
        PaintBackground(painter, arrowRect, m_borderRadius, arrow.first);
    }

    DrawCentred(painter, mainRect, IconPixmap(painter, main.second, m_iconPath, m_pMainButton->iconSize()));
    const ThemedPixmap arrowPicture = PixmapFor(painter, arrow.second);
    const QPoint arrowCorner(arrowRect.left(), arrowRect.top() + (arrowRect.height() - arrowPicture.size.height()) / 2);
    DrawPixmap(painter, QRect(arrowCorner, arrowPicture.size), arrowPicture);
}

} // namespace Velmora
