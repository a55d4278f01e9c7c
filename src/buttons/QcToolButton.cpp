#include <Velmora/QcCombinedToolButton.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/QcToolButton.h>

#include "buttons/ButtonAccessible_p.h"
#include "buttons/ButtonPainting_p.h"
#include "buttons/ButtonStateTracker_p.h"
#include "buttons/ButtonTables_p.h"
#include "theme/FocusShape_p.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>

namespace Velmora {

namespace {

constexpr int kHeight = 24;
constexpr int kRadius = 2;

} // namespace

QcToolButton::QcToolButton(QWidget *parent)
    : QToolButton(parent)
    , m_tracker(std::make_unique<ButtonStateTracker>(*this, m_state))
{
    InstallButtonAccessibility();
    InstallFocusShape<QcToolButton>([](const QcToolButton &button) {
        const bool isHalf = qobject_cast<const QcCombinedToolButton *>(button.parentWidget()); // beside the other one
        return FocusShape{button.rect(), button.m_borderRadius, isHalf};
    });
    setFixedHeight(kHeight);
    SetBorderRadius(kRadius);
    connect(this, &QAbstractButton::toggled, this, &QcToolButton::OnToggled);
    QcStyleManager::GetInstance()->RegisterQss(this, QStringLiteral(":/qss/ToolButton.qss"));
    QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] { update(); });
    QcToolButton::UpdateUiParams();
}

QcToolButton::~QcToolButton() = default;

void QcToolButton::SetBackgroundColorParams(QFlags<QStyle::StateFlag> state, const QString &token)
{
    m_backgroundColors[state] = token;
    update();
}

void QcToolButton::SetIconParam(QFlags<QStyle::StateFlag> state, const ImageParams &params)
{
    m_iconParams[state] = params;
    updateGeometry();
    update();
}

void QcToolButton::SetIconPath(const QString &path)
{
    m_iconPath = path;
    updateGeometry();
    update();
}

void QcToolButton::SetBorderRadius(int radius)
{
    m_borderRadius = radius;
    update();
}

QString QcToolButton::GetIconPath() const
{
    return m_iconPath;
}

QFlags<QStyle::StateFlag> QcToolButton::GetState() const
{
    return m_tracker->Flags();
}

void QcToolButton::UpdateUiParams()
{
    SetBorderRadius(kRadius);
    Enter(m_backgroundColors, ToolBackgrounds());
    Enter(m_iconParams, ToolIcons());
    updateGeometry();
    update();
}

// --- State ---

void QcToolButton::OnToggled(bool /*checked*/)
{
    m_tracker->ShowChecked(isChecked());
}

void QcToolButton::enterEvent(EnterEvent *event)
{
    m_tracker->Enter();
    QToolButton::enterEvent(event);
}

void QcToolButton::leaveEvent(QEvent *event)
{
    m_tracker->Leave();
    QToolButton::leaveEvent(event);
}

void QcToolButton::mousePressEvent(QMouseEvent *event)
{
    m_tracker->Press();
    QToolButton::mousePressEvent(event);
}

void QcToolButton::mouseReleaseEvent(QMouseEvent *event)
{
    m_tracker->Release();
    // Not QToolButton's, which touches the button after the click that a host may have deleted it in.
    QAbstractButton::mouseReleaseEvent(event);
}

void QcToolButton::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange)
        m_tracker->FollowEnabled();
    QToolButton::changeEvent(event);
}

void QcToolButton::resizeEvent(QResizeEvent *event)
{
    m_tracker->FollowResize(*event);
    QWidget::resizeEvent(event);
}

// --- Painting ---

void QcToolButton::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QStyle::State look = m_tracker->Look();
    PaintBackground(painter, rect(), m_borderRadius, m_backgroundColors.value(look));
    DrawCentred(painter, rect(), IconPixmap(painter, m_iconParams.value(look), m_iconPath, iconSize()));
}

} // namespace Velmora
