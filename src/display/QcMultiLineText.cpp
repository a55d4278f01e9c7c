#include <Velmora/MultiLineTextElide.h>
#include <Velmora/QcMultiLineText.h>
#include <Velmora/QcStyleManager.h>

#include "core/InstallAccessible_p.h"
#include "theme/TokenPainting_p.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOption>
#include <QTextBlock>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTextFragment>
#include <QTextLayout>
#include <QVector>

#include <algorithm>

namespace Velmora {

// --- Accessibility ---

/// A static text whose name is the whole text, where the screen shows a part of it. A name set by the host comes first.
class MultiLineTextAccessible : public QAccessibleWidget
{
public:
    explicit MultiLineTextAccessible(QcMultiLineText *widget)
        : QAccessibleWidget(widget, QAccessible::StaticText)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind != QAccessible::Name || !widget()->accessibleName().isEmpty())
            return QAccessibleWidget::text(kind);
        return QTextDocumentFragment::fromHtml(static_cast<QcMultiLineText *>(widget())->m_text).toPlainText();
    }
};

namespace {

/// The links of \a document, each a selection.
QVector<QTextCursor> LinksOf(QTextDocument *document)
{
    QVector<QTextCursor> links;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const QString href = fragment.charFormat().anchorHref();
            if (href.isEmpty())
                continue;
            const bool goesOn = !links.isEmpty() && links.constLast().position() == fragment.position()
                && links.constLast().charFormat().anchorHref() == href;
            if (!goesOn) {
                links.append(QTextCursor(document));
                links.last().setPosition(fragment.position());
            }
            links.last().setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
        }
    }
    return links;
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

QcMultiLineText::QcMultiLineText(QWidget *parent)
    : QFrame(parent)
    , m_document(new QTextDocument(this))
{
    InstallAccessible<MultiLineTextAccessible, QcMultiLineText>();
    m_document->setDocumentMargin(0.0);
    m_document->setDefaultFont(QcStyleManager::GetDefaultFont());
    m_paintContext.cursorPosition = -1;
    setAttribute(Qt::WA_MouseTracking);
    QcStyleManager::GetInstance()->RegisterColorHandler(this, [this] { setDefaultTextColorParams(m_textColorParams); });
}

// --- Text ---

void QcMultiLineText::setText(const QString &text)
{
    m_text = text;
    setTextToDocument(text);
    updateAlignmentByLineCount();
    elideText();
    announceText();
    update();
}

void QcMultiLineText::clear()
{
    m_text.clear();
    setTextToDocument(m_text);
    announceText();
    update();
}

void QcMultiLineText::announceText()
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

void QcMultiLineText::setTextToDocument(const QString & /*text*/)
{
    m_paintContext.selections.clear();
    m_document->clear();
    QTextBlockFormat format;
    format.setLineHeight(4.0, QTextBlockFormat::LineDistanceHeight);
    QTextCursor cursor(m_document);
    cursor.setBlockFormat(format);
    // Always the whole text, which cutting never shortens. The first paragraph of the HTML brings a block format of its own.
    cursor.insertHtml(m_text);

    QTextOption option = m_document->defaultTextOption();
    option.setAlignment(m_alignment);
    option.setWrapMode(QTextOption::WrapAnywhere);
    m_document->setDefaultTextOption(option);
    updateAlignmentByLineCount();

    // A host's own policy stays.
    const bool hasLinks = !LinksOf(m_document).isEmpty();
    if (focusPolicy() == (hasLinks ? Qt::NoFocus : Qt::TabFocus))
        setFocusPolicy(hasLinks ? Qt::TabFocus : Qt::NoFocus);
}

void QcMultiLineText::setFont(const QFont &font)
{
    m_document->setDefaultFont(font);
    elideText();
    update();
}

void QcMultiLineText::setFont(int pixelSize)
{
    QFont font = QcStyleManager::GetDefaultFont();
    font.setPixelSize(pixelSize);
    setFont(font);
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
    setFixedHeight(int(m_document->size().height()));
    Q_EMIT signalHeightChanged();
}

void QcMultiLineText::setLineCount(int count)
{
    m_lineCount = count;
    setTextToDocument(m_text);
    if (needElideText())
        multiLineTextElide(m_document, m_lineCount);
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
    multiLineTextElide(m_document, m_lineCount);
}

int QcMultiLineText::lineCount() const
{
    m_document->documentLayout()->documentSize(); // Qt lays out lazily
    int count = 0;
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next())
        count += block.layout()->lineCount();
    return count;
}

int QcMultiLineText::idealWidth()
{
    return int(m_document->idealWidth());
}

/// The width of the text in lines as long as its paragraphs, whatever width the control has.
qreal QcMultiLineText::unwrappedWidth()
{
    const QSignalBlocker quiet(m_document->documentLayout()); // the layout comes back as it was
    const qreal width = m_document->textWidth();
    m_document->setTextWidth(-1);
    const qreal unwrapped = m_document->idealWidth();
    m_document->setTextWidth(width);
    return unwrapped;
}

/// Lays the text out in \a width pixels and, where that is the ideal width, in the fraction of a pixel that this leaves out:
/// for want of it the last letter would wrap.
void QcMultiLineText::layOut(int width)
{
    // Measured only where it may matter: a character takes at least a pixel.
    const bool mayFit = !needElideText() && m_document->characterCount() <= qint64(width) * m_document->blockCount();
    const qreal unwrapped = mayFit ? unwrappedWidth() : 0;
    m_document->setTextWidth(int(unwrapped) == width ? unwrapped : width);
}

// --- Alignment ---

void QcMultiLineText::setAlignment(Qt::Alignment alignment)
{
    applyAlignment(alignment);
    update();
}

void QcMultiLineText::setAutoAlignment(bool on)
{
    m_autoAlignment = on;
}

void QcMultiLineText::updateAlignmentByLineCount()
{
    if (m_autoAlignment)
        applyAlignment(lineCount() > 1 ? Qt::AlignLeft : Qt::AlignRight);
}

void QcMultiLineText::applyAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    QTextOption option = m_document->defaultTextOption();
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
    for (QAbstractTextDocumentLayout::Selection &link : m_paintContext.selections)
        link.format = FocusFormat(this, m_paintContext.palette);
    m_document->documentLayout()->draw(&painter, m_paintContext);
}

void QcMultiLineText::resizeEvent(QResizeEvent *event)
{
    if (event->size().width() != event->oldSize().width()) {
        layOut(event->size().width());
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

/// Marks the link behind or, unless \a next, before the marked one: the first or last if none is. False if there is none, and
/// then none is marked.
bool QcMultiLineText::markLink(bool next)
{
    QVector<QAbstractTextDocumentLayout::Selection> &marked = m_paintContext.selections;
    const QVector<QTextCursor> links = LinksOf(m_document);
    int index = next ? 0 : links.size() - 1;
    if (!marked.isEmpty()) {
        const int begin = marked.constFirst().cursor.selectionStart();
        const auto isMarked = [begin](const QTextCursor &link) { return link.selectionStart() == begin; };
        const auto found = std::find_if(links.begin(), links.end(), isMarked);
        index = int(found - links.begin()) + (next ? 1 : -1);
    }
    marked.clear();
    if (index >= 0 && index < links.size())
        marked.append({links.at(index), QTextCharFormat()});
    update();
    return !marked.isEmpty();
}

void QcMultiLineText::keyPressEvent(QKeyEvent *event)
{
    const bool presses = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (presses && !m_paintContext.selections.isEmpty())
        Q_EMIT signalAnchorClicked(m_paintContext.selections.constFirst().cursor.charFormat().anchorHref());
    else
        QFrame::keyPressEvent(event);
}

void QcMultiLineText::focusInEvent(QFocusEvent *event)
{
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        markLink(event->reason() == Qt::TabFocusReason);
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
    return markLink(next) || QFrame::focusNextPrevChild(next);
}

} // namespace Velmora
