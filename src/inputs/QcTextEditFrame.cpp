#include <Velmora/QcStyleManager.h>
#include <Velmora/QcTextEditFrame.h>

#include "display/TextStyles_p.h"
#include "inputs/PlaceholderColor_p.h"
#include "inputs/TextEdit_p.h"
#include "theme/FocusShape_p.h"
#include "theme/StyleProperty_p.h"
#include "theme/TokenPainting_p.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMetaMethod>
#include <QPainter>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace Velmora {

namespace {

constexpr int kRadius = 4; // as the stylesheet says
constexpr int kMargin = 8;
constexpr int kSpacing = 7;
constexpr int kCounterHeight = 12;

} // namespace

QcTextEditFrame::QcTextEditFrame(QWidget *parent)
    : QFrame(parent)
    , m_textEdit(new TextEdit(this))
    , m_counterLabel(new QLabel(this))
{
    InstallFocusShape<QcTextEditFrame>([](const QcTextEditFrame &frame) { return FocusShape{frame.rect(), kRadius, false, true}; });
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->addWidget(m_textEdit);
    auto *counterRow = new QHBoxLayout;
    counterRow->setContentsMargins(0, 0, 0, 0);
    counterRow->setSpacing(0);
    counterRow->addStretch();
    m_counterLabel->setFixedHeight(kCounterHeight);
    m_counterLabel->hide();
    m_counterLabel->installEventFilter(this);
    counterRow->addWidget(m_counterLabel);
    layout->addLayout(counterRow);

    m_textEdit->setAcceptRichText(false);
    m_textEdit->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::ClickFocus); // a click on the margin or the counter starts typing
    setFocusProxy(m_textEdit);

    // In this order, so that the counter and hosts see what is cut.
    connect(m_textEdit, &QTextEdit::textChanged, this, &QcTextEditFrame::onTextChanged);
    connect(m_textEdit, &QTextEdit::textChanged, this, &QcTextEditFrame::updateCharCount);
    connect(m_textEdit, &QTextEdit::textChanged, this, &QcTextEditFrame::AnnounceText);
    m_textEdit->installEventFilter(this);
    installEventFilter(this);

    QcStyleManager::GetInstance()->RegisterQss(this, QStringLiteral(":/qss/TextEditFrame.qss"));
    FollowPlaceholderToken(m_textEdit);
}

QcTextEditFrame::~QcTextEditFrame()
{
    // Qt takes the keyboard from the edit only after this destructor: a host that then changes the text would reach a frame without
    // members.
    for (QObject *child : children())
        disconnect(child, nullptr, this, nullptr);
}

// --- Text ---

QTextEdit *QcTextEditFrame::getTextEdit() const
{
    return m_textEdit;
}

void QcTextEditFrame::setText(const QString &text)
{
    if (m_textEdit)
        m_textEdit->SetTextOrHtml(text);
    updateCharCount();
}

void QcTextEditFrame::SetPlainText(const QString &text)
{
    if (m_textEdit)
        m_textEdit->setPlainText(text);
}

void QcTextEditFrame::clear()
{
    if (m_textEdit)
        m_textEdit->clear();
    updateCharCount();
}

QString QcTextEditFrame::getText()
{
    return m_textEdit ? m_textEdit->toPlainText() : QString();
}

QString QcTextEditFrame::toPlainText()
{
    return getText();
}

QString QcTextEditFrame::PlaceholderText() const
{
    return m_textEdit ? m_textEdit->placeholderText() : QString();
}

void QcTextEditFrame::setPlaceholderText(const QString &text)
{
    if (m_textEdit)
        m_textEdit->setPlaceholderText(text);
}

void QcTextEditFrame::onTextChanged()
{
    if (m_maxLength <= 0 || TextLength(m_textEdit) <= m_maxLength)
        return;
    const QSignalBlocker blocker(m_textEdit);
    const QString kept = FirstUnits(m_textEdit->toPlainText(), m_maxLength);
    m_textEdit->SetTextOrHtml(kept);
    QTextCursor cursor = m_textEdit->textCursor();
    cursor.setPosition(int(qMin(kept.size(), TextLength(m_textEdit)))); // what was read as HTML is shorter than that
    m_textEdit->setTextCursor(cursor);
}

void QcTextEditFrame::AnnounceText()
{
    static const QMetaMethod signal = QMetaMethod::fromSignal(&QcTextEditFrame::signalTextChanged);
    if (isSignalConnected(signal)) // for nobody else the text is put together, at each key
        Q_EMIT signalTextChanged(getText());
}

// --- Counter ---

void QcTextEditFrame::setMaxLength(int max)
{
    m_maxLength = max;
    if (m_textEdit)
        m_textEdit->SetLimit(max > 0 ? max : -1);
    if (m_counterLabel)
        m_counterLabel->setVisible(max > 0);
    updateCharCount();
}

int QcTextEditFrame::getMaxLength() const
{
    return m_maxLength;
}

void QcTextEditFrame::updateCharCount()
{
    if (m_maxLength > 0 && m_counterLabel)
        m_counterLabel->setText(QStringLiteral("%1").arg(m_maxLength - TextLength(m_textEdit)));
}

/// In a style of its own, and invisible while the frame is disabled.
void QcTextEditFrame::PaintCounter()
{
    QPainter painter(m_counterLabel);
    const auto style = TextStyleOf(QcLabel::Hint);
    painter.setFont(style->font);
    painter.setPen(TokenColor(isEnabled() ? style->colorCode : QStringLiteral("transparent")));
    painter.drawText(m_counterLabel->rect(), Qt::AlignCenter, m_counterLabel->text());
}

// --- Focus ---

bool QcTextEditFrame::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Paint && watched == m_counterLabel) {
        PaintCounter();
        return true;
    }
    const bool answer = QFrame::eventFilter(watched, event);
    const bool comes = event->type() == QEvent::FocusIn;
    // Of the events of a window these come here only if the host installs the frame there.
    if (event->type() == QEvent::MouseButtonPress && watched->inherits("QWidgetWindow")) {
        setFocus(underMouse()); // at last: the host may delete the frame as its property changes
    } else if ((comes || event->type() == QEvent::FocusOut) && IsWhole(watched, m_textEdit)) {
        // No call of clearFocus() here: the window would forget who had the keyboard, and give it to another when it is active again.
        const QPointer<QcTextEditFrame> guard(this);
        updateStyle();
        if (guard)
            comes ? Q_EMIT signalFocusIn() : Q_EMIT signalFocusOut();
    }
    return answer;
}

void QcTextEditFrame::setFocus(bool on)
{
    if (!m_textEdit)
        return;
    if (on)
        m_textEdit->setFocus(Qt::OtherFocusReason);
    else
        m_textEdit->clearFocus();
    updateStyle();
}

void QcTextEditFrame::updateStyle()
{
    SetStyleProperty(this, m_focusProperty, m_textEdit && m_textEdit->hasFocus());
}

} // namespace Velmora
