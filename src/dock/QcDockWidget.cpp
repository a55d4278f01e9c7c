#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockAreaTabBarButton.h>
#include <Velmora/QcDockAreaTabFrame.h>
#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockController.h>
#include <Velmora/QcDockDragController.h>
#include <Velmora/QcDockWidget.h>
#include <Velmora/QcIconButton.h>
#include <Velmora/QcStyleManager.h>

#include "core/LiesIn_p.h"
#include "core/OwnText_p.h"
#include "core/QtCompatibility_p.h"
#include "display/TextStyles_p.h"
#include "display/Unobtrusive_p.h"
#include "dock/DockAccessible_p.h"
#include "dock/DockDrag_p.h"
#include "dock/DockFocus_p.h"
#include "dock/DockMove_p.h"
#include "dock/DockTree_p.h"
#include "dock/OnScreen_p.h"
#include "theme/KeyboardCues_p.h"
#include "theme/Mnemonics_p.h"
#include "theme/StyleProperty_p.h"
#include "windows/QcWindowHandler_p.h"
#include "windows/WindowParts_p.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QCursor>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QStyle>
#include <QVBoxLayout>
#include <QVariant>

namespace Velmora {

namespace {

constexpr int kTitleHeight = 30;
constexpr int kTipTop = 36;
constexpr int kTipHeight = 30;
constexpr int kBorderWidth = 8;

constexpr char kDragingProperty[] = "draging";
constexpr char kWindowProperty[] = "window";

bool IsResizeCursor(Qt::CursorShape shape)
{
    return shape == Qt::SizeVerCursor || shape == Qt::SizeHorCursor || shape == Qt::SizeBDiagCursor || shape == Qt::SizeFDiagCursor;
}

/// The nearest widget of the class that \a panel is docked in; none for a window, which is in nothing.
template <typename T>
T *HolderOf(QWidget &panel)
{
    for (QWidget *widget = &panel; widget && !widget->isWindow();) {
        widget = widget->parentWidget();
        if (auto *holder = qobject_cast<T *>(widget))
            return holder;
    }
    return nullptr;
}

QcDockContainer *OuterMostContainerAround(const QWidget *widget)
{
    QcDockContainer *outerMost = nullptr;
    for (QWidget *parent = widget ? widget->parentWidget() : nullptr; parent; parent = parent->parentWidget()) {
        if (auto *container = qobject_cast<QcDockContainer *>(parent))
            outerMost = container;
    }
    return outerMost;
}

} // namespace

struct QcDockWidget::Private
{
    OwnText closeName;
    bool isTipMeasured = false;
    bool isDragging = false;
    bool wasShownAsWindow = false;
    QPoint place; // where a drag or a host has put the window; pos() may say where the window system had it before
};

QcDockWidget::QcDockWidget(QWidget *parent)
    : QFrame(parent)
    , m_private(std::make_unique<Private>())
{
    InstallDockAccessibility();
    setAttribute(Qt::WA_DeleteOnClose);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(1, 1, 1, 1);
    column->setSpacing(0);
    MakeTitleRow();
    column->addWidget(m_titleFrame);
    MakeContentFrame();
    column->addWidget(m_contentFrame);
    MakeDragTip();
    connect(m_closeButton, &QAbstractButton::clicked, this, &QWidget::close);
    connect(KeyboardCuesNotifier::GetInstance(), &KeyboardCuesNotifier::Changed, this, &QcDockWidget::FollowTitle);
    m_windowHandler = new QcWindowHandler(this);
    m_windowHandler->setWidget(this);
    QcStyleManager::GetInstance()->RegisterQss(this, QStringLiteral(":/qss/DockWidget.qss"));
    // The container has heard of a new child when that was no panel yet.
    if (auto *container = qobject_cast<QcDockContainer *>(parent))
        DockTree::Revive(container);
}

QcDockWidget::~QcDockWidget() = default;

void QcDockWidget::MakeTitleRow()
{
    m_titleFrame = new QFrame(this);
    QHBoxLayout *row = SetUpTitleRow(*m_titleFrame, kTitleHeight, QMargins(8, 0, 8, 0), 5);
    m_titleLabel = new QLabel(m_titleFrame);
    m_titleLabel->setObjectName(QStringLiteral("m_titleLabel"));
    m_titleLabel->setTextFormat(Qt::PlainText); // a title is no markup, whatever a document is called
    if (const auto style = TextStyleOf(QcLabel::Caption))
        m_titleLabel->setFont(style->font);
    m_titleLabel->setMinimumWidth(1);
    row->addWidget(m_titleLabel);
    row->addStretch(0);
    m_closeButton = AddTitleButton(*m_titleFrame, QString(), QStringLiteral(":/images/dock/tab_close.svg"));
    m_closeButton->setFocusPolicy(Qt::TabFocus); // a docked panel has no window menu to close it by
    NameCloseButton();
}

void QcDockWidget::MakeContentFrame()
{
    m_contentFrame = Velmora::MakeContentFrame(*this);
    auto *layout = new QVBoxLayout(m_contentFrame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
}

void QcDockWidget::MakeDragTip()
{
    m_dragTipLabel = new QLabel(this);
    m_dragTipLabel->setObjectName(QStringLiteral("m_dragTipLabel"));
    PutTipText();
    m_dragTipLabel->setAlignment(Qt::AlignCenter);
    m_dragTipLabel->setFixedHeight(kTipHeight);
    m_dragTipLabel->hide();
}

void QcDockWidget::PutTipText()
{
    const QString text = tr("PleaseMoveToTheIMsg");
    m_dragTipLabel->setText(text);
    m_private->isTipMeasured = false; // measured when it is shown, with the stylesheet's padding
    if (m_dragTipLabel->isVisible())
        SetDragTipVisible(true);
}

void QcDockWidget::FollowTitle()
{
    m_titleLabel->setText(ShownText(windowTitle())); // a panel that has its row to itself has no key
    NameCloseButton();
    QAccessibleEvent renamed(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&renamed);
}

void QcDockWidget::NameCloseButton()
{
    m_private->closeName.PutInto<QWidget>(*m_closeButton, &QWidget::accessibleName, &QWidget::setAccessibleName,
                                          QCoreApplication::translate("QcDockWidget", "Close %1").arg(ShownText(windowTitle())));
}

int QcDockWidget::getType()
{
    return m_type;
}

void QcDockWidget::setType(int type)
{
    m_type = type;
}

// --- Looks ---

bool QcDockWidget::isFloating()
{
    return isWindow();
}

void QcDockWidget::setTitleVisible(bool visible)
{
    // What was never hidden is shown with the panel; asking for it now would polish it before its panel has its place.
    const bool isHiddenNow = m_titleFrame->testAttribute(Qt::WA_WState_ExplicitShowHide) && m_titleFrame->isHidden();
    if (visible == isHiddenNow)
        m_titleFrame->setVisible(visible);
}

void QcDockWidget::SetDragTipVisible(bool visible)
{
    if (visible && !m_private->isTipMeasured) {
        m_private->isTipMeasured = true;
        m_dragTipLabel->adjustSize();
    }
    m_dragTipLabel->setVisible(visible);
    m_dragTipLabel->move((width() - m_dragTipLabel->width()) / 2, kTipTop);
}

void QcDockWidget::setDragingStyle(bool draging)
{
    SetLook(kDragingProperty, draging);
}

void QcDockWidget::setWindowStyle(bool window)
{
    SetLook(kWindowProperty, window);
}

void QcDockWidget::SetLook(const char *property, bool on)
{
    const QPointer<QWidget> self = this;
    if (SetStyleProperty(this, property, on) && self)
        m_titleFrame->style()->polish(m_titleFrame);
}

void QcDockWidget::SetWindowFlags()
{
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    updateResizable();
}

void QcDockWidget::updateResizable()
{
    m_windowHandler->setBorderWidth(isWindow() ? kBorderWidth : 0);
}

// --- Floating ---

void QcDockWidget::swichToFloating()
{
    const QPoint globalPos = mapToGlobal(QPoint(0, 0));
    const QPointer<QWidget> self = this;
    const QPointer<QWidget> area = HolderOf<QcDockArea>(*this);
    const QPointer<QcDockAreaTabFrame> tabFrame = HolderOf<QcDockAreaTabFrame>(*this);
    FocusKeeper focus(*this);
    QWidget *root = ParentForFloating(tabFrame ? tabFrame.data() : m_cameFrom.data());

    QPointer<QWidget> other; // the first page, where a host floats another one
    if (tabFrame) {
        other = tabFrame->widget(0);
        if (QcDockAreaTabBarButton *button = tabFrame->removeTab(0).first)
            button->deleteLater();
    }
    if (!self)
        return;
    MakeWindow(*this, root, Qt::Window | Qt::FramelessWindowHint);
    if (tabFrame && other && other != self)
        tabFrame->addTab(other->windowTitle(), other);
    if (!self)
        return;
    updateResizable();
    setTitleVisible(true);
    move(globalPos);
    setVisible(true);
    focus.GiveBack();
    QcDockDragController::instance()->processDockWidgetSwitchToFloating(area);
}

QWidget *QcDockWidget::ParentForFloating(const QWidget *cameFrom) const
{
    // A layout inside of this panel's content may have been registered.
    QWidget *root = QcDockController::instance()->getRootDockContainer();
    return LiesIn(root, this) ? OuterMostContainerAround(cameFrom) : root;
}

void QcDockWidget::KeepOnScreen()
{
    if (!isWindow() || m_private->wasShownAsWindow)
        return;
    m_private->wasShownAsWindow = true;
    if (HasWindowManager())
        move(OntoScreens(geometry(), ScreenRects()));
}

// What is about to be docked gives up its window and the look of one. Left to setParent(), Qt would first make the native window a child
// of the other one, which not every platform can.
void QcDockWidget::EndFloating()
{
    const QPointer<QWidget> self = this;
    DockDrag::CancelOf(this); // docked by its host in the middle of a drag: with its window it loses the mouse
    if (self && windowHandle()) {
        hide();
        if (self)
            destroy();
    }
    if (self)
        DockDrag::LetShow(*this);
    if (self && property(kWindowProperty).toBool()) // one made to be docked never had it
        setWindowStyle(false);
}

// --- Events ---

bool QcDockWidget::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::WindowTitleChange:
        FollowTitle();
        break;
    case QEvent::LanguageChange:
        PutTipText();
        NameCloseButton();
        break;
    case QEvent::ParentChange:
        updateResizable();
        if (isWindow())
            setTitleVisible(true); // a tab that stood for it has stayed behind
        break;
    case QEvent::Move:
        if (!event->spontaneous())
            m_private->place = pos();
        break;
    case QEvent::Show:
        KeepOnScreen();
        PutCloseButtonLast();
        break;
    default:
        break;
    }
    return QFrame::event(event);
}

void QcDockWidget::contextMenuEvent(QContextMenuEvent *event)
{
    if (!OpensDockMenu(*event, this))
        QFrame::contextMenuEvent(event);
}

void QcDockWidget::keyPressEvent(QKeyEvent *event)
{
    if (OpensDockMenu(*event, this))
        return;
    // A docked panel leaves it to the area.
    const int steps = isWindow() ? AreaStepsOf(*event) : 0;
    if (steps == 0 || !FocusOtherArea(*this, steps))
        QFrame::keyPressEvent(event);
}

bool QcDockWidget::focusNextPrevChild(bool next)
{
    PutCloseButtonLast();
    return QFrame::focusNextPrevChild(next);
}

void QcDockWidget::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        ForgetPress();
        if (m_titleFrame->isVisible() && m_titleFrame->geometry().contains(event->pos())) {
            m_resizing = IsResizeCursor(cursor().shape());
            // On Wayland a window is moved by the compositor only, which does not tell where it is: it cannot be dropped.
            if (!isWindow() || !CompositorPlacesWindows())
                m_lastGlobalPos = QCursor::pos();
            else if (!m_resizing)
                m_windowHandler->StartMove(*event);
        }
    }
    QWidget::mousePressEvent(event);
}

void QcDockWidget::mouseMoveEvent(QMouseEvent *event)
{
    const QPointer<QWidget> self = this;
    if (!m_resizing && !m_lastGlobalPos.isNull())
        DragTo(QCursor::pos());
    if (self)
        QWidget::mouseMoveEvent(event);
}

void QcDockWidget::DragTo(const QPoint &cursor)
{
    const QPoint delta = cursor - m_lastGlobalPos;
    if (delta.isNull())
        return;
    const QPointer<QWidget> self = this;
    if (!m_private->isDragging) {
        m_private->isDragging = true;
        m_private->place = pos();
        DockDrag::Begin(this, this, [this] { ForgetPress(); });
    }
    if (!isWindow()) {
        swichToFloating();
        if (self)
            m_private->place = pos();
    }
    const auto goesOn = [this, &self] { return self && m_private->isDragging; }; // a host may end it wherever it hears of it
    if (goesOn())
        setDragingStyle(true);
    if (goesOn())
        move(m_private->place + delta);
    if (!goesOn())
        return;
    m_lastGlobalPos = cursor;
    DockDrag::PostStep(this);
}

void QcDockWidget::mouseReleaseEvent(QMouseEvent *event)
{
    const QPointer<QWidget> self = this;
    const bool isDrop = !m_lastGlobalPos.isNull() && isWindow() && !m_resizing;
    if (isDrop)
        DockDrag::PostEnd(this);
    else if (m_private->isDragging)
        DockDrag::Cancel(); // a host docked it meanwhile
    if (!self)
        return;
    ForgetPress();
    setDragingStyle(false);
    if (self)
        QWidget::mouseReleaseEvent(event);
}

void QcDockWidget::ForgetPress()
{
    m_lastGlobalPos = QPoint();
    m_resizing = false;
    m_private->isDragging = false;
}

void QcDockWidget::OnCloseButtonClicked() {}

} // namespace Velmora
