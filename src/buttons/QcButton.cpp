#include <Velmora/PostOwnedTask.h>
#include <Velmora/QcButton.h>
#include <Velmora/QcStyleManager.h>

#include "buttons/ButtonAccessible_p.h"
#include "buttons/ButtonPainting_p.h"
#include "buttons/ButtonStateTracker_p.h"
#include "buttons/StateColorProperties_p.h"
#include "buttons/TextWidth_p.h"
#include "theme/FocusShape_p.h"
#include "theme/Mnemonics_p.h"

#include <QEvent>
#include <QFontMetrics>
#include <QPainter>
#include <QResizeEvent>

#include <algorithm>

namespace Velmora {

namespace {

constexpr int kHeight = 24;
constexpr int kFontPixels = 12;

} // namespace

QcButton::QcButton(QWidget *parent)
    : QPushButton(parent)
    , m_textWidth(std::make_unique<TextWidth>())
    , m_tracker(std::make_unique<ButtonStateTracker>(*this, m_state))
{
    InstallButtonAccessibility();
    InstallFocusShape<QcButton>([](const QcButton &button) { return FocusShape{button.rect(), button.m_borderRadius}; });
    setFixedHeight(kHeight);
    QFont font;
    font.setPixelSize(kFontPixels);
    setFont(font);
    SetBorderRadius(4);
    connect(this, &QAbstractButton::toggled, this, &QcButton::OnToggled);
    // Applied directly: it holds no colour, so a theme change need not parse it again.
    setStyleSheet(QStringLiteral("Velmora--QcButton { padding: 0px; }"));
    QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] { update(); });
    // Later, when the object is of its own class and the call reaches the variant.
    PostOwnedTask(
        this, [this] { UpdateUiParams(); }, std::string());
    m_tracker->LetButtonWatchPresses();
    StateColorProperties::Watch();
}

QcButton::~QcButton() = default;

void QcButton::SetBackgroundColorParams(QFlags<QStyle::StateFlag> state, const QString &code)
{
    m_backgroundColorParams[state] = code;
    update();
}

void QcButton::SetBorderColorParams(QFlags<QStyle::StateFlag> state, const QString &code)
{
    m_borderColorParams[state] = code;
    update();
}

void QcButton::SetTextColorParams(QFlags<QStyle::StateFlag> state, const QString &code)
{
    m_textColorParams[state] = code;
    update();
}

void QcButton::SetIconParam(QFlags<QStyle::StateFlag> state, const ImageParams &params)
{
    m_iconParams[state] = params;
    updateGeometry();
    update();
}

void QcButton::SetIconPath(const QString &path)
{
    m_iconPath = path;
    updateGeometry();
    update();
}

void QcButton::SetBorderRadius(int radius)
{
    m_borderRadius = radius;
    update();
}

void QcButton::setHorizontalMargin(int margin)
{
    m_horizontalMargin = margin;
    updateGeometry();
}

void QcButton::setText(QString text)
{
    QAbstractButton::setText(text);
    updateGeometry();
}

QSize QcButton::sizeHint() const
{
    return minimumSizeHint();
}

QSize QcButton::minimumSizeHint() const
{
    const auto namesIcon = [](const ImageParams &params) { return !params.path.isEmpty(); };
    const bool hasIcon = !m_iconPath.isEmpty() || std::any_of(m_iconParams.cbegin(), m_iconParams.cend(), namesIcon);
    const int iconWidth = hasIcon ? height() : 0;
    const int spacing = hasIcon && !text().isEmpty() ? m_iconTextSpacing : 0;
    return QSize(m_textWidth->Of(ShownText(text()), QFontMetrics(font())) + spacing + 2 * m_horizontalMargin + iconWidth, kHeight);
}

// --- State ---

void QcButton::UpdateUiParams() {}

void QcButton::OnToggled(bool checked)
{
    m_tracker->ShowChecked(checked);
}

bool QcButton::eventFilter(QObject *watched, QEvent *event)
{
    // Shakes off states that no leave or release event ended, as when another window took the mouse.
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::ApplicationDeactivate)
        m_tracker->DropUnlessUnderCursor();
    return QObject::eventFilter(watched, event);
}

void QcButton::mousePressEvent(QMouseEvent *event)
{
    m_tracker->Press();
    QAbstractButton::mousePressEvent(event);
}

void QcButton::mouseReleaseEvent(QMouseEvent *event)
{
    m_tracker->Release();
    QAbstractButton::mouseReleaseEvent(event);
}

void QcButton::enterEvent(EnterEvent *event)
{
    m_tracker->Enter();
    QWidget::enterEvent(event);
}

void QcButton::leaveEvent(QEvent *event)
{
    // With the cursor still inside, a popup has opened over the button, which stays hovered.
    m_tracker->DropUnlessUnderCursor();
    update();
    QWidget::leaveEvent(event);
}

void QcButton::resizeEvent(QResizeEvent *event)
{
    // The icon is as wide as the button is high.
    m_tracker->FollowResize(*event);
    QWidget::resizeEvent(event);
}

void QcButton::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange)
        m_tracker->FollowEnabled();
    QAbstractButton::changeEvent(event);
}

// --- Painting ---

void QcButton::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QStyle::State look = m_tracker->Look();

    const auto codeOf = [this, look](const char *ending, const CodeTable &table) {
        return StateColorProperties::CodeOf(*this, ending, look, table);
    };
    PaintBackground(painter, rect(), m_borderRadius, codeOf("BackgroundColorParams", m_backgroundColorParams));
    PaintBorder(painter, rect(), m_borderRadius, codeOf("BorderColorParams", m_borderColorParams));
    PaintContent(painter, m_iconParams.value(look), codeOf("TextColorParams", m_textColorParams));
}

void QcButton::PaintContent(QPainter &painter, const ImageParams &icon, const QString &textCode)
{
    const QString caption = text();
    const QSize iconSize = caption.isEmpty() ? size() : QSize(height(), height());
    const ThemedPixmap picture = IconPixmap(painter, icon, m_iconPath, iconSize);

    if (caption.isEmpty()) {
        DrawPixmap(painter, rect(), picture);
        return;
    }

    painter.setPen(CaptionColor(*this, textCode));
    painter.setFont(font());
    if (picture.pixmap.isNull()) {
        DrawMarked(painter, rect(), Qt::AlignCenter, caption, style(), this);
        return;
    }
    // Icon and text side by side, centred together.
    const int textWidth = m_textWidth->Of(ShownText(caption), QFontMetrics(font(), painter.device()));
    const int x = (width() - (textWidth + iconSize.width())) / 2;
    const int y = (height() - iconSize.height()) / 2;
    DrawPixmap(painter, QRect(QPoint(x, y), iconSize), picture);
    DrawMarked(painter, QRect(x + iconSize.width(), 0, textWidth, height()), Qt::AlignVCenter, caption, style(), this);
}

} // namespace Velmora
