#include <Velmora/KeyboardCues.h>
#include <Velmora/MultiLineTextElide.h>
#include <Velmora/QcMultiLineText.h>
#include <Velmora/QcStyleManager.h>

#include "display/HtmlBomb_p.h"
#include "display/MultiLineTextAccessible_p.h"
#include "display/TextLayout_p.h"
#include "theme/BakedColors_p.h"
#include "theme/FocusShape_p.h"
#include "theme/TokenPainting_p.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QResizeEvent>
#include <QStyle>
#include <QStyleOption>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace Velmora {

namespace {

constexpr int kRingRadius = 2;
constexpr qreal kGreatestHeight = QWIDGETSIZE_MAX / 2; // which leaves room to what the text lies in

/// Writes \a html into the empty \a document.
void InsertText(QTextDocument &document, const QString &html)
{
    QTextBlockFormat format;
    format.setLineHeight(4.0, QTextBlockFormat::LineDistanceHeight);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();       // one change, of which receivers of the height hear when all is written
    cursor.setBlockFormat(format); // the first paragraph of the HTML brings one of its own
    cursor.insertHtml(html);
    KeepOwnLinks(document);
    cursor.endEditBlock();
}

/// How \a widget's style marks a link that has the keyboard, where text has the colours of \a palette.
QTextCharFormat FocusFormat(const QWidget *widget, const QPalette &palette)
{
    QStyleHintReturnVariant format;
    QStyleOption option;
    option.initFrom(widget);
    option.palette = palette;
    widget->style()->styleHint(QStyle::SH_TextControl_FocusIndicatorTextCharFormat, &option, widget, &format);
    return qvariant_cast<QTextFormat>(format.variant).toCharFormat();
}

} // namespace

// A change of the document may change the height, whose receivers may delete the control. Qt does not survive that inside of
// resize and paint events, where nothing is asked.

QcMultiLineText::QcMultiLineText(QWidget *parent)
    : QFrame(parent)
    , m_document(new QTextDocument(this))
{
    InstallTextAccessibility();
    InstallFocusShape<QcMultiLineText>([](const QcMultiLineText &text) { return FocusShape{text.MarkedPlace(), kRingRadius}; });
    m_document->setDocumentMargin(0.0);
    m_document->setDefaultFont(QcStyleManager::GetDefaultFont());
    m_paintContext.cursorPosition = -1;
    setAttribute(Qt::WA_MouseTracking);
    QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] { setDefaultTextColorParams(m_textColorParams); });
}

QcMultiLineText::~QcMultiLineText()
{
    if (m_heightUpdates > 0) {
        // Deleted by a receiver of a new height: the layout that told of it is still at work on the document.
        m_document->setParent(nullptr);
        m_document->deleteLater();
    }
}

// --- Text ---

void QcMultiLineText::setText(const QString &text)
{
    const QPointer<QcMultiLineText> alive(this);
    m_text = IsHtmlBomb(text) ? text.toHtmlEscaped() : text;
    setTextToDocument(text);
    if (!alive)
        return;
    CutToLines();
    update();
    AnnounceText();
}

void QcMultiLineText::clear()
{
    const QPointer<QcMultiLineText> alive(this);
    m_text.clear();
    setTextToDocument(m_text);
    if (!alive)
        return;
    FollowLinks();
    update();
    AnnounceText();
    AnnounceShownText();
}

QString QcMultiLineText::WholeText() const
{
    return m_text;
}

void QcMultiLineText::AnnounceText()
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

/// What the screen shows changes with the width and the number of lines too.
void QcMultiLineText::AnnounceShownText()
{
    const QString shown = QAccessible::isActive() ? m_document->toPlainText() : QString();
    if (shown == m_toldText)
        return;
    QAccessibleTextUpdateEvent event(this, 0, m_toldText, shown);
    m_toldText = shown;
    QAccessible::updateAccessibility(&event); // nobody is told while nobody listens
}

/// Always writes the whole text, which cutting never shortens.
void QcMultiLineText::setTextToDocument(const QString & /*text*/)
{
    const QPointer<QcMultiLineText> alive(this);
    const int filling = ++m_fillings;
    m_paintContext.selections.clear();
    m_document->clear();
    if (!alive || filling != m_fillings)
        return; // a receiver of the height set a text meanwhile
    // Before the text, since a new option lays out all that is there.
    QTextOption option = m_document->defaultTextOption();
    option.setAlignment(m_alignment);
    option.setWrapMode(QTextOption::WrapAnywhere);
    m_document->setDefaultTextOption(option);
    InsertText(*m_document, m_text);
    if (alive)
        updateAlignmentByLineCount();
}

void QcMultiLineText::setFont(const QFont &font)
{
    const QPointer<QcMultiLineText> alive(this);
    m_document->setDefaultFont(font);
    if (alive)
        elideText();
    if (alive)
        update();
}

void QcMultiLineText::setFont(int pixelSize)
{
    QFont font = QcStyleManager::GetDefaultFont();
    font.setPixelSize(pixelSize);
    setFont(font);
}

int QcMultiLineText::FontPixelSize() const
{
    return m_document->defaultFont().pixelSize();
}

// --- Lines and height ---

void QcMultiLineText::setHeightAdaptive(bool on)
{
    m_heightAdaptive = on;
    QAbstractTextDocumentLayout *layout = m_document->documentLayout();
    if (on)
        connect(layout, &QAbstractTextDocumentLayout::documentSizeChanged, this, &QcMultiLineText::onUpdateHeight, Qt::UniqueConnection);
    else
        disconnect(layout, &QAbstractTextDocumentLayout::documentSizeChanged, this, &QcMultiLineText::onUpdateHeight);
}

void QcMultiLineText::onUpdateHeight()
{
    const QPointer<QcMultiLineText> alive(this);
    ++m_heightUpdates;
    setFixedHeight(int(qMin(m_document->size().height(), kGreatestHeight)));
    if (alive)
        Q_EMIT signalHeightChanged();
    if (alive)
        --m_heightUpdates;
}

void QcMultiLineText::setLineCount(int count)
{
    const QPointer<QcMultiLineText> alive(this);
    m_lineCount = count;
    setTextToDocument(m_text);
    if (!alive)
        return;
    CutToLines();
    update();
}

bool QcMultiLineText::needElideText() const
{
    return !m_heightAdaptive && m_lineCount >= 1;
}

void QcMultiLineText::elideText()
{
    if (!needElideText())
        return;
    setTextToDocument(m_text);
    CutToLines();
}

/// Cuts the whole text, which the document holds, where it is to be cut. The height is its host's then, and nobody is told of it.
void QcMultiLineText::CutToLines()
{
    if (needElideText())
        multiLineTextElide(m_document, m_lineCount);
    FollowLinks();
    AnnounceShownText();
}

int QcMultiLineText::lineCount() const
{
    return CountLines(*m_document);
}

int QcMultiLineText::idealWidth()
{
    return int(m_document->idealWidth());
}

void QcMultiLineText::LayOutIn(int width)
{
    if (needElideText())
        m_document->setTextWidth(width);
    else
        LayOut(*m_document, width);
}

// --- Alignment ---

void QcMultiLineText::setAlignment(Qt::Alignment alignment)
{
    const QPointer<QcMultiLineText> alive(this);
    ApplyAlignment(alignment);
    if (alive)
        update();
}

void QcMultiLineText::setAutoAlignment(bool on)
{
    m_autoAlignment = on;
}

void QcMultiLineText::updateAlignmentByLineCount()
{
    if (!m_autoAlignment)
        return;
    const QPointer<QcMultiLineText> alive(this);
    const bool isOneLine = lineCount() <= 1;
    if (alive)
        ApplyAlignment(isOneLine ? Qt::AlignRight : Qt::AlignLeft);
}

void QcMultiLineText::ApplyAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    QTextOption option = m_document->defaultTextOption();
    if (option.alignment() == alignment)
        return; // setting it lays all of the text out
    option.setAlignment(alignment);
    m_document->setDefaultTextOption(option);
}

// --- Painting and mouse ---

void QcMultiLineText::setDefaultTextColorParams(const QString &code)
{
    m_textColorParams = code;
    m_paintContext.palette.setBrush(QPalette::All, QPalette::Text, TokenColor(code));
    update();
}

void QcMultiLineText::paintEvent(QPaintEvent *event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    m_paintContext.clip = QRectF(rect());
    QAbstractTextDocumentLayout::PaintContext context = m_paintContext;
    if (KeyboardCuesEnabled())
        context.selections.clear(); // the ring marks the link
    for (QAbstractTextDocumentLayout::Selection &link : context.selections)
        link.format = FocusFormat(this, context.palette);
    m_document->documentLayout()->draw(&painter, context);
}

void QcMultiLineText::resizeEvent(QResizeEvent *event)
{
    if (event->size().width() != event->oldSize().width()) {
        LayOutIn(event->size().width());
        updateAlignmentByLineCount();
        elideText();
    }
    QFrame::resizeEvent(event);
}

void QcMultiLineText::mouseMoveEvent(QMouseEvent *event)
{
    if (m_document->documentLayout()->anchorAt(event->pos()).isEmpty())
        unsetCursor();
    else
        setCursor(Qt::PointingHandCursor);
    QFrame::mouseMoveEvent(event);
}

void QcMultiLineText::mousePressEvent(QMouseEvent *event)
{
    const QString anchor = m_document->documentLayout()->anchorAt(event->pos());
    if (anchor.isEmpty())
        QFrame::mousePressEvent(event);
    else
        Q_EMIT signalAnchorClicked(anchor);
}

// --- Keyboard ---

void QcMultiLineText::setFocusPolicy(Qt::FocusPolicy policy)
{
    m_ownFocusPolicy.reset();
    QFrame::setFocusPolicy(policy);
}

/// A text is a stop of the Tab key by the links that it shows, not by those that were cut away.
void QcMultiLineText::FollowLinks()
{
    if (m_ownFocusPolicy != focusPolicy()) {
        m_ownFocusPolicy.reset(); // the host set another through QWidget
        return;
    }
    m_ownFocusPolicy = LinksOf(*m_document).isEmpty() ? Qt::NoFocus : Qt::TabFocus;
    QFrame::setFocusPolicy(*m_ownFocusPolicy);
}

/// Which of the links has the keyboard, or -1.
int QcMultiLineText::MarkedLink() const
{
    const QVector<QAbstractTextDocumentLayout::Selection> &marked = m_paintContext.selections;
    if (marked.isEmpty())
        return -1;
    const QVector<TextLink> links = LinksOf(*m_document);
    const int begin = marked.constFirst().cursor.selectionStart();
    const auto isMarked = [begin](const TextLink &link) { return link.begin == begin; };
    const auto found = std::find_if(links.begin(), links.end(), isMarked);
    return found == links.end() ? -1 : int(found - links.begin());
}

/// Where the user sees that the text has the keyboard: at the marked link, or all of the text.
QRect QcMultiLineText::MarkedPlace() const
{
    const int marked = MarkedLink();
    if (marked < 0)
        return rect();
    const TextLink link = LinksOf(*m_document).at(marked);
    const QRect place = RectOf(*m_document, link.begin, link.end).toAlignedRect() & rect();
    return place.isEmpty() ? rect() : place; // as for a link below what the text has room for
}

/// Marks the link behind or, unless \a next, before the marked one: the first or last if none is. False if there is none, and
/// then none is marked.
bool QcMultiLineText::MarkLink(bool next)
{
    const QVector<TextLink> links = LinksOf(*m_document);
    const int marked = MarkedLink();
    const int index = next ? marked + 1 : (marked < 0 ? int(links.size()) : marked) - 1;
    m_paintContext.selections.clear();
    if (index >= 0 && index < links.size())
        m_paintContext.selections.append({SelectionOf(*m_document, links.at(index)), QTextCharFormat()});
    update();
    if (QAccessible::isActive()) // later, since Qt announces the control behind the event that brings it the keyboard
        QMetaObject::invokeMethod(this, &QcMultiLineText::AnnounceMarkedLink, Qt::QueuedConnection);
    return !m_paintContext.selections.isEmpty();
}

void QcMultiLineText::AnnounceMarkedLink()
{
    if (MarkedLink() < 0)
        return;
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(MarkedLink());
    QAccessible::updateAccessibility(&event);
}

void QcMultiLineText::keyPressEvent(QKeyEvent *event)
{
    const bool presses = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (presses && event->isAutoRepeat())
        return; // a held key has pressed its link, and presses no default button behind one that has gone
    if (presses && !m_paintContext.selections.isEmpty())
        Q_EMIT signalAnchorClicked(m_paintContext.selections.constFirst().cursor.charFormat().anchorHref());
    else
        QFrame::keyPressEvent(event);
}

void QcMultiLineText::focusInEvent(QFocusEvent *event)
{
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        MarkLink(event->reason() == Qt::TabFocusReason);
    QFrame::focusInEvent(event);
}

void QcMultiLineText::focusOutEvent(QFocusEvent *event)
{
    const bool comesBack = event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
    if (!comesBack)
        m_paintContext.selections.clear();
    QFrame::focusOutEvent(event);
}

bool QcMultiLineText::focusNextPrevChild(bool next)
{
    return MarkLink(next) || QFrame::focusNextPrevChild(next);
}

} // namespace Velmora
