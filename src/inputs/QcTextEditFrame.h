#pragma once

#include <Velmora/VelmoraExport.h>

#include <QFrame>
#include <QPointer>
#include <QString>

QT_BEGIN_NAMESPACE
class QLabel;
class QTextEdit;
QT_END_NAMESPACE

namespace Velmora {

class TextEdit;

/// A multi-line input field with the border of the keyboard, and with a line below its text that counts what may still be added, if there
/// is a maximum. Pasted text arrives plain.
///
/// The limit. Lengths are UTF-16 units, as those of QString: most emoji take two. A longer text is cut at once and silently, the cursor
/// goes to its end, and the history for undo begins anew. A character that fits only by half is given up whole. The cut text is set by
/// setText(): typed or pasted text that looks like HTML is read as such once it is cut. Receivers of signalTextChanged() and
/// QTextEdit::textChanged() see the cut text only, and hear once of it; QTextEdit::cursorPositionChanged() does not tell of
/// the cut, and comes before it where text is typed or pasted.
///
/// Without a limit a pasted word of 100,000 letters takes Qt seconds to wrap; `setWordWrapMode(QTextOption::WrapAnywhere)` of the edit
/// takes none. A text that is cut costs no more than what is left of it.
///
/// The keyboard. The frame takes it for its edit, also by a click beside it: give the frame to setTabOrder(), QLabel::setBuddy() and
/// setFocusProxy(), and name it with setAccessibleName(). A focus policy set on the frame goes through to the edit. Tab types a tab
/// and Shift+Tab leaves; after `getTextEdit()->setTabChangesFocus(true)` both leave. The stylesheet sees `objectPropertyFocus`, which is
/// on while the edit has the keyboard, its menu open or not. A host that wants a press elsewhere in the window to take the
/// keyboard away installs the frame there: `window()->windowHandle()->installEventFilter(frame)`.
///
/// Lifetime. Qt's edit goes on after its signals and after the keyboard came or went: a handler deletes fields by deleteLater(). A host
/// may delete edit and counter, and the field does without.
class VELMORA_EXPORT QcTextEditFrame : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(QString text READ getText WRITE setText NOTIFY signalTextChanged)
    // What mappers and delegates read and write: a text of theirs is data, and no HTML.
    Q_PROPERTY(QString plainText READ getText WRITE SetPlainText NOTIFY signalTextChanged DESIGNABLE false STORED false USER true)
    Q_PROPERTY(QString placeholderText READ PlaceholderText WRITE setPlaceholderText)
    Q_PROPERTY(int maxLength READ getMaxLength WRITE setMaxLength)

public:
    explicit QcTextEditFrame(QWidget *parent = nullptr);
    ~QcTextEditFrame() override;

    using QFrame::setFocus; // leads to the edit

    /// The length that a text may have; 0, as at first, or a negative one is no limit, and shows no counter. A longer text stays until
    /// its next change, and counts below zero.
    void setMaxLength(int max);
    int getMaxLength() const;
    /// Sets the text. What looks like HTML is read as such: text of strangers goes in by `getTextEdit()->setPlainText()`, and no longer
    /// than the maximum. HTML too costly to lay out is not read (see QcMultiLineText::setText()).
    void setText(const QString &text);
    void clear();
    /// The text without its formats.
    QString getText();
    /// The same.
    QString toPlainText();
    void setPlaceholderText(const QString &text);
    /// The edit itself, owned by the frame.
    QTextEdit *getTextEdit() const;

Q_SIGNALS:
    /// Not emitted: the field has no button.
    void signalButtonClicked();
    /// The text changed, by the user or by a call.
    void signalTextChanged(const QString &text);
    /// The edit got the keyboard, as its window is activated or its menu closed too.
    void signalFocusIn();
    /// The edit lost the keyboard, to another widget, another window or a menu.
    void signalFocusOut();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void onTextChanged();
    void updateCharCount();

private:
    void SetPlainText(const QString &text);
    QString PlaceholderText() const;
    void setFocus(bool on);
    void updateStyle();
    void AnnounceText();
    void PaintCounter();

    const char *m_focusProperty = "objectPropertyFocus";
    const char *m_warningProperty = "objectPropertyWarning"; // for stylesheets of hosts: the class sets it nowhere
    int m_maxLength = 0;
    QPointer<TextEdit> m_textEdit;
    QPointer<QLabel> m_counterLabel;
};

} // namespace Velmora
