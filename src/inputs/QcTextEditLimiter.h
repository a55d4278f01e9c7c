#pragma once

#include <Velmora/VelmoraExport.h>

#include <QFrame>
#include <QPointer>
#include <QString>

#include <memory>

QT_BEGIN_NAMESPACE
class QTextEdit;
QT_END_NAMESPACE

namespace Velmora {

class OwnText;
class QcLabel;
class TextEdit;

/// Set the maximum first: until then it is 0, and neither the user nor setText() gets a character into the field.
///
/// A multi-line field for a limited text, with a small counter of what may still be added in its lower right corner. Its scroll bar shows
/// its handle while the mouse is over a field that has something to scroll, and while such a text is typed.
///
/// The limit. Lengths are UTF-16 units, as those of QString: most emoji take two. A longer text is cut at once and silently, the cursor
/// goes to its end, and the history for undo begins anew. A character that fits only by half is given up whole. Receivers of
/// QTextEdit::textChanged() see the cut text only, and hear once of it; QTextEdit::cursorPositionChanged() does not tell of
/// the cut, and comes before it where text is typed or pasted.
///
/// Without much of a limit a pasted word of 100,000 letters takes Qt seconds to wrap; `setWordWrapMode(QTextOption::WrapAnywhere)` of the
/// edit takes none. A text that is cut costs no more than what is left of it.
///
/// The keyboard. The frame takes it for its edit, also by a click beside it: give the frame to setTabOrder(), QLabel::setBuddy() and
/// setFocusProxy(), and name it with setAccessibleName(). A focus policy set on the frame goes through to the edit. Tab types a tab
/// and Shift+Tab leaves; after `textEdit()->setTabChangesFocus(true)` both leave.
///
/// Lifetime. Qt's edit goes on after its signals and after the keyboard left it: a handler deletes fields by deleteLater(). A host may
/// delete edit and counter, and the field does without.
class VELMORA_EXPORT QcTextEditLimiter : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(int maxNum MEMBER m_maxNum WRITE setMaxNum)
    Q_PROPERTY(QString text READ PlainText WRITE setText NOTIFY signalTextChanged)
    // What mappers and delegates read and write: a text of theirs is data, and no HTML.
    Q_PROPERTY(QString plainText READ PlainText WRITE SetPlainText NOTIFY signalTextChanged DESIGNABLE false STORED false USER true)
    Q_PROPERTY(QString placeholderText READ PlaceholderText WRITE setPlaceholderText)

public:
    explicit QcTextEditLimiter(QWidget *parent = nullptr);
    ~QcTextEditLimiter() override;

    /// The length that a text may have, 0 at first; a negative one counts as 0. A longer text stays until its next change.
    void setMaxNum(int max);
    /// What an empty field shows, in place of the text "PleaseEnterMsg" that is translated in the context `Velmora::QcTextEditLimiter`.
    /// The host's translation gives that its words. It shows in the colour of text.
    void setPlaceholderText(const QString &text);
    /// Sets the text. What looks like HTML is read as such: text of strangers goes in by `textEdit()->setPlainText()`. HTML too costly
    /// to lay out is not read (see QcMultiLineText::setText()).
    void setText(const QString &text);

    /// The edit itself, owned by the frame.
    QTextEdit *textEdit() const;
    /// The counter, owned by the frame.
    QcLabel *counterLabel() const;

Q_SIGNALS:
    /// The edit lost the keyboard, to another widget, another window or a menu.
    void SignalFousOut(const QString &qstrText);
    /// The text changed, by the user or by a call.
    void signalTextChanged(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private Q_SLOTS:
    void onTextChanged();

private:
    QString PlainText() const;
    void SetPlainText(const QString &text);
    QString PlaceholderText() const;
    void AnnounceText();
    void updateCntPos();
    void updateCounter();
    void updateScrollStyle(bool on);
    bool Overflows() const;
    void CutText();
    void TranslatePlaceholder();

    QPointer<TextEdit> m_textEdit;
    QPointer<QcLabel> m_counterLabel;
    int m_maxNum = 0;
    std::unique_ptr<OwnText> m_placeholder;
};

} // namespace Velmora
