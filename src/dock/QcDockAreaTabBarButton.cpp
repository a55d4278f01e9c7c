#include <Velmora/KeyboardCues.h>
#include <Velmora/QcDockAreaTabBarButton.h>
#include <Velmora/QcIconButton.h>

#include "buttons/IconButtonOfSize_p.h"
#include "display/OneLine_p.h"
#include "display/TextStyles_p.h"
#include "dock/DockAccessible_p.h"
#include "theme/FocusShape_p.h"
#include "theme/KeyboardCues_p.h"
#include "theme/Mnemonics_p.h"
#include "theme/TokenPainting_p.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QToolTip>

namespace Velmora {

namespace {

constexpr int kCloseSize = 24;
constexpr int kCloseMargin = 4;
constexpr int kLineHeight = 14;

QFont TitleFont()
{
    const auto style = TextStyleOf(QcLabel::Caption);
    return style ? style->font : QFont();
}

/// What the title fades into; an unchecked tab shows the row behind it.
QString GroundOf(const QAbstractButton &tab)
{
    return tab.isChecked() ? QStringLiteral("bg/bg_primary") : QStringLiteral("bg/bg_unselected");
}

void PaintFade(QPainter &painter, const QRect &rect, QColor color)
{
    QLinearGradient gradient(rect.x(), 0, rect.x() + rect.width(), 0);
    color.setAlphaF(0.0);
    gradient.setColorAt(0.0, color);
    color.setAlphaF(1.0);
    gradient.setColorAt(1.0, color);
    painter.fillRect(rect, gradient);
}

} // namespace

QcDockAreaTabBarButton::QcDockAreaTabBarButton(QWidget *parent)
    : QPushButton(parent)
{
    InstallDockAccessibility();
    InstallFocusShape<QcDockAreaTabBarButton>([](const QcDockAreaTabBarButton &tab) { return FocusShape{tab.rect(), 0, true}; });
    setCheckable(true);
    setFlat(true);
    setAutoDefault(false);
    setFocusPolicy(Qt::NoFocus); // of a row, Tab reaches the current tab only
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    // The close button stands at the right, whatever the program's direction.
    setLayoutDirection(Qt::LeftToRight);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 0, 28, 0);
    layout->setSpacing(0);
    m_textLabel = new QLabel(this);
    m_textLabel->setObjectName(QStringLiteral("m_textLabel"));
    m_textLabel->setTextFormat(Qt::PlainText);
    m_textLabel->setMinimumWidth(1); // a long title asks for no room: it fades
    m_textLabel->installEventFilter(this);
    layout->addWidget(m_textLabel);

    m_closeButton = MakeIconButton(*this, QStringLiteral("m_closeButton"), QStringLiteral(":/images/dock/tab_close.svg"), kCloseSize);
    m_closeButton->setFocusPolicy(Qt::TabFocus);
    m_closeButton->setAttribute(Qt::WA_NoMousePropagation); // what it does not take neither selects nor drags the tab
    m_closeButton->hide();
    NameCloseButton();
    connect(this, &QAbstractButton::toggled, this, &QcDockAreaTabBarButton::onToggled);
    connect(m_closeButton, &QAbstractButton::clicked, this, &QcDockAreaTabBarButton::signalCloseButtonClicked);
    connect(KeyboardCuesNotifier::GetInstance(), &KeyboardCuesNotifier::Changed, this, [this] {
        FollowMnemonic();
        NameCloseButton();
    });
}

QcDockAreaTabBarButton::~QcDockAreaTabBarButton() = default;

void QcDockAreaTabBarButton::setText(const QString &text)
{
    if (m_textLabel->text() == text)
        return;
    m_textLabel->setText(text);
    NameCloseButton();
    if (KeyboardCuesEnabled())
        FollowMnemonic();
    update();
    QAccessibleEvent renamed(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&renamed);
}

void QcDockAreaTabBarButton::NameCloseButton()
{
    const QString name = QCoreApplication::translate("QcDockWidget", "Close %1").arg(ShownText(m_textLabel->text()));
    m_closeButton->setAccessibleName(name);
}

/// As a QTabBar has it. Without cues the tab has no key of ours, while one that the host gave it stays.
void QcDockAreaTabBarButton::FollowMnemonic()
{
    const QKeySequence mnemonic = QKeySequence::mnemonic(m_textLabel->text());
    if (KeyboardCuesEnabled())
        setShortcut(mnemonic);
    else if (shortcut() == mnemonic)
        setShortcut(QKeySequence());
}

QString QcDockAreaTabBarButton::Title() const
{
    return OneLine(m_textLabel->text());
}

void QcDockAreaTabBarButton::setTabIndex(int index)
{
    m_tabIndex = index;
}

int QcDockAreaTabBarButton::getTabIndex() const
{
    return m_tabIndex;
}

void QcDockAreaTabBarButton::setDrawLine(bool drawLine)
{
    if (m_drawLine == drawLine)
        return;
    m_drawLine = drawLine;
    update();
}

void QcDockAreaTabBarButton::onToggled()
{
    m_closeButton->setVisible(isChecked());
    setFocusPolicy(isChecked() ? Qt::TabFocus : Qt::NoFocus); // a click leaves the focus in the page
    QAccessible::State selected;
    selected.selected = true;
    QAccessibleStateChangeEvent changed(this, selected);
    QAccessible::updateAccessibility(&changed);
    if (!isChecked())
        return;
    QAccessibleEvent selection(this, QAccessible::Selection);
    QAccessible::updateAccessibility(&selection);
}

bool QcDockAreaTabBarButton::event(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        NameCloseButton();
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty()) {
        const QString title = ShownText(Title());
        const bool fades = QFontMetrics(TitleFont()).horizontalAdvance(title) > m_textLabel->width() - GRADIENT_WIDTH;
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), fades ? title.toHtmlEscaped() : QString(), this);
        return true;
    }
    return QPushButton::event(event);
}

bool QcDockAreaTabBarButton::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_textLabel && event->type() == QEvent::Paint) {
        PaintLabel();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void QcDockAreaTabBarButton::PaintLabel()
{
    QPainter painter(m_textLabel);
    painter.setFont(TitleFont());
    painter.setPen(TokenColor(isChecked() ? QStringLiteral("text/text_caption") : QStringLiteral("text/text_secondary ")));
    // A title's own direction orders its words; its beginning is at the left, since its end fades out at the right.
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    DrawMarked(painter, m_textLabel->rect(), Qt::AlignLeft | Qt::AlignVCenter, Title(), style(), m_textLabel);
    PaintFade(painter, QRect(m_textLabel->width() - GRADIENT_WIDTH, 0, GRADIENT_WIDTH, height()), TokenColor(GroundOf(*this)));
}

void QcDockAreaTabBarButton::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    if (isChecked())
        painter.fillRect(rect(), TokenColor(GroundOf(*this)));
    if (m_drawLine) {
        // At the side of the next tab.
        const int x = parentWidget() && parentWidget()->isRightToLeft() ? 0 : width() - 1;
        const int top = (height() - kLineHeight) / 2;
        const int bottom = (height() + kLineHeight) / 2;
        painter.fillRect(x, top, 1, bottom - top + 1, TokenColor(QStringLiteral("#FFFFFF, 0.36")));
    }
    if (hasFocus() && !KeyboardCuesEnabled()) // whose ring then shows it
        OutlineRounded(painter, QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 0.0, QStringLiteral("brand/brand"));
}

void QcDockAreaTabBarButton::resizeEvent(QResizeEvent *event)
{
    m_closeButton->move(width() - kCloseMargin - m_closeButton->width(), (height() - m_closeButton->height()) / 2);
    QPushButton::resizeEvent(event);
}

} // namespace Velmora
