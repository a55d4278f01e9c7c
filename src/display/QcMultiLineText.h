#pragma once

#include <Velmora/VelmoraExport.h>

#include <QAbstractTextDocumentLayout>
#include <QFont>
#include <QFrame>
#include <QString>

#include <optional>

QT_BEGIN_NAMESPACE
class QTextDocument;
QT_END_NAMESPACE

namespace Velmora {

/// Read-only rich text with links, which either grows in height with its text or is cut to a number of lines with "...".
///
/// Text is read as HTML, so that "<" and "&" of plain text must be escaped. It wraps anywhere, in the middle of words too.
/// A text that shows links takes the Tab key, which goes from one to the next; Enter and Space press the marked one, once however
/// long they are held. Assistive technology reads what is shown by characters, words and lines, and finds each link in sight inside the
/// text. A link that names no colour has that of the application's palette at the time of setText(), not one of the table. Without
/// setHeightAdaptive() the control takes the height that its host gives it.
class VELMORA_EXPORT QcMultiLineText : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(QString text READ WholeText WRITE setText)
    Q_PROPERTY(int markedLink READ MarkedLink)
    Q_PROPERTY(Qt::FocusPolicy focusPolicy READ focusPolicy WRITE setFocusPolicy)
    Q_PROPERTY(int fontPixelSize READ FontPixelSize WRITE setFont) // of the font in which it was set; -1 if that has another unit
    Q_PROPERTY(QString defaultTextColorParams MEMBER m_textColorParams WRITE setDefaultTextColorParams)
    Q_PROPERTY(int lineCount MEMBER m_lineCount WRITE setLineCount)
    Q_PROPERTY(bool heightAdaptive MEMBER m_heightAdaptive WRITE setHeightAdaptive)
    Q_PROPERTY(Qt::Alignment alignment MEMBER m_alignment WRITE setAlignment)
    Q_PROPERTY(bool autoAlignment MEMBER m_autoAlignment WRITE setAutoAlignment)

public:
    explicit QcMultiLineText(QWidget *parent = nullptr);
    ~QcMultiLineText() override;

    /// Shows \a text. Malformed HTML shows as far as Qt can read it. One with more than eight tables, with a cell across a hundred
    /// columns or more, or with more than a thousand tags in each other, shows as it is written: Qt could lay it out for hours.
    void setText(const QString &text);
    void clear();
    /// The font of all text that names none of its own. The widget's font plays no part.
    void setFont(const QFont &font);
    /// The kit's default font at \a pixelSize pixels.
    void setFont(int pixelSize);
    /// With true the height follows each change of the text's height, and a line count plays no part. The height at this
    /// moment stays until the next change.
    void setHeightAdaptive(bool on);
    /// The number of lines to cut the text to, at every width; below 1, as at first, shows the whole text.
    void setLineCount(int count);
    void setAlignment(Qt::Alignment alignment);
    /// Whether the alignment follows the number of lines: right for one line, left for more. Takes effect with the next text,
    /// width or updateAlignmentByLineCount().
    void setAutoAlignment(bool on);
    /// The colour code of text that names no colour, "text/text_primary" at first.
    void setDefaultTextColorParams(const QString &code);
    /// Aligns by the number of lines, if setAutoAlignment() is on.
    void updateAlignmentByLineCount();
    /// The width in pixels, rounded down, that the text takes as it is laid out now; before the first show that of its
    /// longest paragraph in one line. A control made that wide shows it in one line, unless it is cut.
    int idealWidth();
    /// A policy set here stays. Until then a text that shows links has Qt::TabFocus and any other Qt::NoFocus.
    void setFocusPolicy(Qt::FocusPolicy policy);

Q_SIGNALS:
    /// The height followed the text. Where that comes of a new width, of painting or of the event loop, Qt is still at work on
    /// the control: a receiver that does not know calls deleteLater() to be rid of it.
    void signalHeightChanged();
    /// A link was pressed, with a mouse button or a key.
    void signalAnchorClicked(const QString &qstrAnchorHref);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private Q_SLOTS:
    void onUpdateHeight();
    bool needElideText() const;
    void elideText();

private:
    int lineCount() const;
    void setTextToDocument(const QString &text);
    QString WholeText() const;
    int FontPixelSize() const;
    void ApplyAlignment(Qt::Alignment alignment);
    void CutToLines();
    void LayOutIn(int width);
    void FollowLinks();
    int MarkedLink() const;
    QRect MarkedPlace() const;
    bool MarkLink(bool next);
    void AnnounceText();
    void AnnounceShownText();
    void AnnounceMarkedLink();

    QTextDocument *m_document;
    QString m_text;
    int m_lineCount = -1;
    bool m_heightAdaptive = false;
    Qt::Alignment m_alignment;
    bool m_autoAlignment = false;
    QAbstractTextDocumentLayout::PaintContext m_paintContext;
    QString m_textColorParams = QStringLiteral("text/text_primary");
    int m_heightUpdates = 0; // under way, one inside the other
    int m_fillings = 0;
    std::optional<Qt::FocusPolicy> m_ownFocusPolicy = Qt::NoFocus; // none once the host chose one
    QString m_toldText;                                            // what assistive technology was told that the screen shows
};

} // namespace Velmora
