#include <Velmora/QcLabel.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/QcTextEditLimiter.h>

#include "core/OwnText_p.h"
#include "inputs/PlaceholderColor_p.h"
#include "inputs/TextEdit_p.h"
#include "theme/FocusShape_p.h"
#include "theme/StyleProperty_p.h"

#include <QEvent>
#include <QMetaMethod>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextDocument>
#include <QVBoxLayout>

namespace Velmora {

namespace {

constexpr int kRadius = 2;                // as the stylesheet says
constexpr QMargins kMargins(4, 4, 2, 20); // the counter's strip is below
constexpr int kCounterRight = 8;
constexpr int kCounterBottom = 4;
constexpr const char *kNeedScroll = "needScroll";

} // namespace

QcTextEditLimiter::QcTextEditLimiter(QWidget *parent)
    : QFrame(parent)
    , m_textEdit(new TextEdit(this))
    , m_counterLabel(new QcLabel(this)) // above the edit, outside of the layout
    , m_placeholder(std::make_unique<OwnText>())
{
    InstallFocusShape<QcTextEditLimiter>([](const QcTextEditLimiter &frame) { return FocusShape{frame.rect(), kRadius, false, true}; });
    setAttribute(Qt::WA_StyledBackground);
    m_textEdit->setObjectName(QStringLiteral("limitedTextEdit"));
    m_textEdit->SetLimit(m_maxNum);
    m_textEdit->setAcceptRichText(false);
    m_textEdit->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_textEdit->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_textEdit->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_textEdit->verticalScrollBar()->setProperty(kNeedScroll, false); // without it no rule matches, and the bar is the style's own

    m_counterLabel->setText(QString::number(0));
    m_counterLabel->setType(QcLabel::BodySecondary);
    m_counterLabel->setAlignment(Qt::AlignRight | Qt::AlignBottom);
    m_counterLabel->setAttribute(Qt::WA_TransparentForMouseEvents);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargins);
    layout->setSpacing(0);
    layout->addWidget(m_textEdit);
    setFocusProxy(m_textEdit); // the frame's own policy is none: with one, Qt would name the mouse as the reason before we do

    connect(m_textEdit, &QTextEdit::textChanged, this, &QcTextEditLimiter::onTextChanged); // first, so that hosts see what is cut
    connect(m_textEdit, &QTextEdit::textChanged, this, &QcTextEditLimiter::AnnounceText);
    updateCounter();
    KeepPlaceholderUnfaded(m_textEdit);
    TranslatePlaceholder();
    installEventFilter(this);
    m_textEdit->installEventFilter(this);
    QcStyleManager::GetInstance()->RegisterQss(this, QStringLiteral(":/qss/TextEditLimit.qss"));
}

QcTextEditLimiter::~QcTextEditLimiter()
{
    // Qt takes the keyboard from the edit only after this destructor: a host that then changes the text would reach a frame without
    // members.
    for (QObject *child : children())
        disconnect(child, nullptr, this, nullptr);
}

QTextEdit *QcTextEditLimiter::textEdit() const
{
    return m_textEdit;
}

QcLabel *QcTextEditLimiter::counterLabel() const
{
    return m_counterLabel;
}

// --- Text ---

void QcTextEditLimiter::setMaxNum(int max)
{
    m_maxNum = qMax(max, 0);
    if (m_textEdit)
        m_textEdit->SetLimit(m_maxNum);
    updateCounter();
}

QString QcTextEditLimiter::PlaceholderText() const
{
    return m_textEdit ? m_textEdit->placeholderText() : QString();
}

void QcTextEditLimiter::setPlaceholderText(const QString &text)
{
    if (m_textEdit)
        m_textEdit->setPlaceholderText(text);
}

void QcTextEditLimiter::TranslatePlaceholder()
{
    if (m_textEdit)
        m_placeholder->PutInto<QTextEdit>(*m_textEdit, &QTextEdit::placeholderText, &QTextEdit::setPlaceholderText, tr("PleaseEnterMsg"));
}

void QcTextEditLimiter::setText(const QString &text)
{
    if (m_textEdit)
        m_textEdit->SetTextOrHtml(text);
}

QString QcTextEditLimiter::PlainText() const
{
    return m_textEdit ? m_textEdit->toPlainText() : QString();
}

void QcTextEditLimiter::SetPlainText(const QString &text)
{
    if (m_textEdit)
        m_textEdit->setPlainText(text);
}

void QcTextEditLimiter::AnnounceText()
{
    static const QMetaMethod signal = QMetaMethod::fromSignal(&QcTextEditLimiter::signalTextChanged);
    if (isSignalConnected(signal)) // for nobody else the text is put together, at each key
        Q_EMIT signalTextChanged(PlainText());
}

void QcTextEditLimiter::onTextChanged()
{
    if (TextLength(m_textEdit) > m_maxNum)
        CutText();
    updateScrollStyle(Overflows());
    updateCounter();
}

void QcTextEditLimiter::CutText()
{
    const QSignalBlocker blocker(m_textEdit);
    m_textEdit->setPlainText(FirstUnits(m_textEdit->toPlainText(), m_maxNum));
    m_textEdit->moveCursor(QTextCursor::End);
}

// --- Counter ---

void QcTextEditLimiter::updateCounter()
{
    if (!m_counterLabel)
        return;
    m_counterLabel->setText(QString::number(qMax(m_maxNum - TextLength(m_textEdit), 0)));
    m_counterLabel->adjustSize();
    updateCntPos();
}

void QcTextEditLimiter::updateCntPos()
{
    if (m_counterLabel)
        m_counterLabel->move(qMax(width() - m_counterLabel->width() - kCounterRight, 0),
                             qMax(height() - m_counterLabel->height() - kCounterBottom, 0));
}

void QcTextEditLimiter::resizeEvent(QResizeEvent *event)
{
    updateCntPos();
    QFrame::resizeEvent(event);
}

// --- Scroll bar ---

bool QcTextEditLimiter::Overflows() const
{
    return m_textEdit && m_textEdit->document()->size().height() > m_textEdit->viewport()->height();
}

void QcTextEditLimiter::updateScrollStyle(bool on)
{
    if (m_textEdit)
        SetStyleProperty(m_textEdit->verticalScrollBar(), kNeedScroll, on);
}

// --- Events ---

bool QcTextEditLimiter::eventFilter(QObject *watched, QEvent *event)
{
    const bool answer = QFrame::eventFilter(watched, event);
    if (watched == this) {
        if (event->type() == QEvent::LanguageChange)
            TranslatePlaceholder();
        else if (event->type() == QEvent::Enter && Overflows())
            updateScrollStyle(true);
        else if (event->type() == QEvent::Leave)
            updateScrollStyle(false);
    } else if (event->type() == QEvent::FocusOut && IsWhole(watched, m_textEdit)) {
        Q_EMIT SignalFousOut(m_textEdit->toPlainText()); // at last: the host may delete the frame
    }
    return answer;
}

void QcTextEditLimiter::mousePressEvent(QMouseEvent *event)
{
    if (m_textEdit && !m_textEdit->hasFocus())
        m_textEdit->setFocus(Qt::OtherFocusReason);
    QFrame::mousePressEvent(event);
}

} // namespace Velmora
