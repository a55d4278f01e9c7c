#include <Velmora/QcMenuToolButton.h>
#include <Velmora/QcStyleManager.h>

#include "buttons/ButtonAccessible_p.h"
#include "buttons/ButtonStateTracker_p.h"
#include "buttons/ButtonTables_p.h"
#include "theme/FocusShape_p.h"
#include "theme/ThemedPixmap_p.h"
#include "theme/TokenPainting_p.h"

#include <QMouseEvent>
#include <QPainter>
#include <QResizeEvent>

#include <algorithm>

namespace Velmora {

namespace {

/// As a QIcon paints itself.
void PaintIcon(QPainter &painter, const QRect &rect, const ImageParams &params)
{
    const ThemedPixmap icon = PixmapWithin(painter, params, rect.size());
    DrawPixmap(painter, QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, icon.size, rect), icon);
}

} // namespace

QcMenuToolButton::QcMenuToolButton(QWidget *parent)
    : QToolButton(parent)
    , m_tracker(std::make_unique<ButtonStateTracker>(*this, m_state))
{
    InstallButtonAccessibility();
    InstallFocusShape<QcMenuToolButton>([](const QcMenuToolButton &button) { return FocusShape{button.rect(), button.m_borderRadius}; });
    setFixedSize(44, 32);
    setCheckable(true);
    setIconSize(size());
    connect(this, &QAbstractButton::toggled, this, &QcMenuToolButton::OnToggled);
    QcStyleManager::GetInstance()->RegisterQss(this, QStringLiteral(":/qss/MenuToolButton.qss"));
    QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] { update(); });
    QcMenuToolButton::UpdateUiParams();
}

QcMenuToolButton::~QcMenuToolButton() = default;

void QcMenuToolButton::SetBackgroundColorParams(QFlags<QStyle::StateFlag> state, const QString &code)
{
    m_backgroundColors[state] = code;
    update();
}

void QcMenuToolButton::SetIconParam(QFlags<QStyle::StateFlag> state, const ImageParams &params)
{
    m_mainIconParams[state] = params;
    update();
}

void QcMenuToolButton::SetIconPath(const QString &path)
{
    m_iconPath = path;
    update();
}

void QcMenuToolButton::SetBorderRadius(int radius)
{
    m_borderRadius = radius;
}

void QcMenuToolButton::SetArrowIconVisible(bool visible)
{
    m_arrowIconVisible = visible;
    update();
}

void QcMenuToolButton::setMenu(QMenu *menu)
{
    QToolButton::setMenu(menu);
    m_tracker->FollowMenu(menu);
}

QString QcMenuToolButton::GetIconPath() const
{
    return m_iconPath;
}

QFlags<QStyle::StateFlag> QcMenuToolButton::GetState() const
{
    return m_tracker->Flags();
}

// --- State ---

void QcMenuToolButton::UpdateUiParams()
{
    m_borderRadius = 2;
    Enter(m_backgroundColors, ToolBackgrounds());
    Enter(m_mainIconParams, ToolIcons());
    Enter(m_arrowIconParams, IconsOf(kToolArrow, kMenuArrow, QSize(width() - height(), height())));
}

void QcMenuToolButton::OnToggled(bool /*checked*/)
{
    m_tracker->ShowChecked(isChecked());
}

void QcMenuToolButton::enterEvent(EnterEvent *event)
{
    m_tracker->Enter();
    QToolButton::enterEvent(event);
}

void QcMenuToolButton::leaveEvent(QEvent *event)
{
    m_tracker->Leave();
    QToolButton::leaveEvent(event);
}

void QcMenuToolButton::mousePressEvent(QMouseEvent *event)
{
    m_tracker->Press();
    QToolButton::mousePressEvent(event);
}

void QcMenuToolButton::mouseReleaseEvent(QMouseEvent *event)
{
    m_tracker->Release();
    // Not QToolButton's, which touches the button after the click that a host may have deleted it in.
    QAbstractButton::mouseReleaseEvent(event);
}

void QcMenuToolButton::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange)
        m_tracker->FollowEnabled();
    QToolButton::changeEvent(event);
}

void QcMenuToolButton::resizeEvent(QResizeEvent *event)
{
    if (!size().isEmpty()) {
        const int side = std::min(width(), height());
        setIconSize(m_arrowIconVisible ? QSize(int(side * 44 * 0.03125), side) : size());
        update();
    }
    QWidget::resizeEvent(event);
}

// --- Painting ---

void QcMenuToolButton::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QStyle::State look = m_tracker->Look();
    FillRounded(painter, rect(), m_borderRadius, m_backgroundColors.value(look));

    const QSize both = iconSize();
    const QRect main(QPoint(0, 0), m_arrowIconVisible ? QSize(both.height(), both.height()) : both);
    ImageParams icon = m_mainIconParams.value(look);
    if (icon.path.isEmpty()) {
        icon.path = m_iconPath;
        icon.size = main.size();
    }
    PaintIcon(painter, main, icon);
    if (m_arrowIconVisible) {
        const int arrowWidth = both.width() - both.height();
        PaintIcon(painter, QRect(rect().right() - arrowWidth, 0, arrowWidth, both.height()), m_arrowIconParams.value(look));
    }
}

} // namespace Velmora
