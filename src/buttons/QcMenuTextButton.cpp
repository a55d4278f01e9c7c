#include <Velmora/QcMenuTextButton.h>
#include <Velmora/QcStyleManager.h>

#include "buttons/ButtonAccessible_p.h"
#include "buttons/ButtonPainting_p.h"
#include "buttons/ButtonStateTracker_p.h"
#include "buttons/ButtonTables_p.h"
#include "theme/FocusShape_p.h"
#include "theme/Mnemonics_p.h"

#include <QDebug>
#include <QFontMetrics>
#include <QMessageLogger>
#include <QPainter>
#include <QResizeEvent>

#include <algorithm>

namespace Velmora {

namespace {

constexpr int kHeight = 24;
constexpr int kFontPixels = 12;
constexpr int kArrowMaximumHeight = 32;

constexpr StateTokens kText = DisabledAndOther("text/text_disabled", "text/text_primary");
constexpr StateTokens kArrow = {
    "text/text_disabled", "icon/icon_secondary", "icon/icon_secondary", "icon/icon_secondary", nullptr,
    "icon/icon_primary",  "icon/icon_primary",   "icon/icon_primary",
};

} // namespace

QcMenuTextButton::QcMenuTextButton(QWidget *parent)
    : QPushButton(parent)
    , m_tracker(std::make_unique<ButtonStateTracker>(*this, m_state))
{
    InstallButtonAccessibility();
    InstallFocusShape<QcMenuTextButton>([](const QcMenuTextButton &button) { return FocusShape{button.rect(), button.m_borderRadius}; });
    setMinimumHeight(kHeight);
    QFont font;
    font.setPixelSize(kFontPixels);
    setFont(font);
    SetBorderRadius(4);
    connect(this, &QAbstractButton::toggled, this, &QcMenuTextButton::OnToggled);
    // Applied directly: it holds no colour, so a theme change need not parse it again.
    setStyleSheet(QStringLiteral("Velmora--QcMenuTextButton { padding: 0px; }"));
    UpdateUiParams();
    QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] { update(); });
}

QcMenuTextButton::~QcMenuTextButton() = default;

void QcMenuTextButton::SetBackgroundColorParams(QFlags<QStyle::StateFlag> state, const QString &code)
{
    m_backgroundColors[state] = code;
    update();
}

void QcMenuTextButton::SetBorderColorParams(QFlags<QStyle::StateFlag> state, const QString &code)
{
    m_borderColors[state] = code;
    update();
}

void QcMenuTextButton::SetTextColorParams(QFlags<QStyle::StateFlag> state, const QString &code)
{
    m_textColors[state] = code;
    update();
}

void QcMenuTextButton::SetBorderRadius(int radius)
{
    m_borderRadius = radius;
    update();
}

void QcMenuTextButton::setHorizontalMargin(int margin)
{
    m_horizontalMargin = margin;
    updateGeometry();
}

void QcMenuTextButton::setText(QString text)
{
    QAbstractButton::setText(text);
    updateGeometry();
}

void QcMenuTextButton::setMenu(QMenu *menu)
{
    QPushButton::setMenu(menu);
    m_tracker->FollowMenu(menu);
}

QSize QcMenuTextButton::sizeHint() const
{
    return minimumSizeHint();
}

QSize QcMenuTextButton::minimumSizeHint() const
{
    if (m_horizontalMargin == 0)
        QMessageLogger().debug();
    const int textWidth = QFontMetrics(font()).horizontalAdvance(ShownText(text()));
    return QSize(m_arrowWidth + m_textArrowSpacing + textWidth + 2 * m_horizontalMargin, kHeight);
}

// --- State ---

void QcMenuTextButton::UpdateUiParams()
{
    static const CodeTable texts = CodesOf(kText);
    static const CodeTable borders = CodesOf(AllStates("transparent"));
    Enter(m_textColors, texts);
    Enter(m_borderColors, borders);
    Enter(m_backgroundColors, ToolBackgrounds());
    Enter(m_arrowIconParams, IconsOf(kArrow, kMenuArrow, QSize(width() - height(), height())));
}

void QcMenuTextButton::OnToggled(bool checked)
{
    m_tracker->ShowChecked(checked);
}

void QcMenuTextButton::enterEvent(EnterEvent *event)
{
    m_tracker->Enter();
    QWidget::enterEvent(event);
}

void QcMenuTextButton::leaveEvent(QEvent *event)
{
    m_tracker->Leave();
    QWidget::leaveEvent(event);
}

void QcMenuTextButton::mousePressEvent(QMouseEvent *event)
{
    m_tracker->Press();
    QAbstractButton::mousePressEvent(event);
}

void QcMenuTextButton::mouseReleaseEvent(QMouseEvent *event)
{
    m_tracker->Release();
    QAbstractButton::mouseReleaseEvent(event);
}

void QcMenuTextButton::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange)
        m_tracker->FollowEnabled();
    QPushButton::changeEvent(event);
}

void QcMenuTextButton::resizeEvent(QResizeEvent *event)
{
    m_tracker->FollowResize(*event);
    QWidget::resizeEvent(event);
}

// --- Painting ---

void QcMenuTextButton::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QStyle::State look = m_tracker->Look();

    PaintBackground(painter, rect(), m_borderRadius, m_backgroundColors.value(look));
    PaintBorder(painter, rect(), m_borderRadius, m_borderColors.value(look));

    if (!text().isEmpty()) {
        painter.setPen(CaptionColor(*this, m_textColors.value(look)));
        painter.setFont(font());
        DrawMarked(painter, QRect(0, 0, width() - m_arrowWidth, height()), Qt::AlignCenter, text(), style(), this);
    }

    // One pixel stays free at the right.
    const ThemedPixmap arrow = IconPixmap(painter, m_arrowIconParams.value(look), QString(), QSize(m_arrowWidth, height()));
    DrawPixmap(painter, QRect(rect().right() - m_arrowWidth, 0, m_arrowWidth, std::min(kArrowMaximumHeight, height())), arrow);
}

} // namespace Velmora
