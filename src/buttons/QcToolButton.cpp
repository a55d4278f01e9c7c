#include <Velmora/QcStyleManager.h>
#include <Velmora/QcToolButton.h>

#include "buttons/ButtonAccessible_p.h"
#include "buttons/ButtonPainting_p.h"
#include "buttons/ButtonState_p.h"
#include "buttons/ButtonTables_p.h"

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
{
    InstallButtonAccessibility();
    setFixedHeight(kHeight);
    SetBorderRadius(kRadius);
    connect(this, &QAbstractButton::toggled, this, &QcToolButton::OnToggled);
    QcStyleManager::GetInstance()->RegisterQss(this, QStringLiteral(":/qss/ToolButton.qss"));
    QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] { update(); });
    QcToolButton::UpdateUiParams();
    ButtonState::FollowEnabled(*this, m_state);
}

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
    return m_state;
}

void QcToolButton::UpdateUiParams()
{
    SetBorderRadius(kRadius);
    EnterCodes(m_backgroundColors, kToolBackground);
    EnterIcons(m_iconParams, kToolIcon);
    updateGeometry();
    update();
}

// --- State ---

void QcToolButton::OnToggled(bool /*checked*/)
{
    ButtonState::FollowChecked(*this, m_state);
    update();
}

void QcToolButton::enterEvent(QEvent *event)
{
    ButtonState::ShowFlag(*this, m_state, QStyle::State_MouseOver, true);
    QToolButton::enterEvent(event);
}

void QcToolButton::leaveEvent(QEvent *event)
{
    ButtonState::ShowFlag(*this, m_state, QStyle::State_MouseOver, false);
    QToolButton::leaveEvent(event);
}

void QcToolButton::mousePressEvent(QMouseEvent *event)
{
    ButtonState::ShowFlag(*this, m_state, QStyle::State_Sunken, true);
    ButtonState::HandlePress(*this, m_state, event->button() == Qt::LeftButton, [&] { QToolButton::mousePressEvent(event); });
}

void QcToolButton::mouseReleaseEvent(QMouseEvent *event)
{
    ButtonState::ShowFlag(*this, m_state, QStyle::State_Sunken, false);
    QToolButton::mouseReleaseEvent(event);
}

void QcToolButton::timerEvent(QTimerEvent *event)
{
    ButtonState::HandlePress(*this, m_state, isDown(), [&] { QToolButton::timerEvent(event); });
}

void QcToolButton::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange)
        ButtonState::FollowEnabled(*this, m_state);
    QToolButton::changeEvent(event);
}

void QcToolButton::resizeEvent(QResizeEvent *event)
{
    ButtonState::AnnounceHeight(*this, *event);
    QWidget::resizeEvent(event);
}

// --- Painting ---

void QcToolButton::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    ButtonState::FollowChecked(*this, m_state);
    const QStyle::State look = ButtonState::LookFor(m_state);
    PaintBackground(painter, rect(), m_borderRadius, m_backgroundColors.value(look));
    DrawCentred(painter, rect(), IconPixmap(painter, m_iconParams.value(look), m_iconPath, iconSize()));
}

} // namespace Velmora
