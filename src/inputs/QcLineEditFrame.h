#pragma once

#include <Velmora/VelmoraExport.h>

#include <QFrame>
#include <QString>

QT_BEGIN_NAMESPACE
class QDoubleValidator;
class QIntValidator;
class QValidator;
QT_END_NAMESPACE

namespace Velmora {

class QcArrowTip;
class QcGhostButton;
class QcLabel;
class QcLineEdit;

/// A single-line input field, 24 pixels high: a text, and if wanted a unit, a button, and a warning in a red tip above.
///
/// The field takes the keyboard for its edit: give the frame to setTabOrder(), QLabel::setBuddy() and setFocusProxy(), and
/// name it with setAccessibleName(). The button is reached by Tab and has a name once findChild<QcGhostButton *>() was
/// given a tool tip.
///
/// Numbers. With a validator the text is judged at the end of editing: when Enter is pressed, or the field loses the keyboard
/// after its text changed. A number in range is written anew as QLocale() writes it, anything else gives way to the
/// last accepted text. What may be typed is fixed to `,` between thousands, `.` before decimals and the digits 0 to 9 whatever
/// the locale says. Where that is not how the locale writes numbers, the two do not meet:
///
/// - English: they agree. `1234` becomes `1,234`.
/// - C: no separators are written. A pasted `1,234` becomes `1234`.
/// - German: `1234` becomes `1.234`, which is not of the form. Until the text is of it again, as after all of it was replaced,
///   the field takes any character and ends no editing. Below 1000 whole numbers pass. A typed `1.5` is no number to the
///   locale, and no editing ends with it.
/// - Arabic, with the digits of Egypt: the same, from the first number written on.
///
/// Hosts whose users have such locales set a default QLocale that agrees with the form.
///
/// Borders. The stylesheet sees two properties of the frame: `objectPropertyWarning`, set by setWarning(), and
/// `objectPropertyFocus`, which the frame sets only at mouse presses on its window, and only if it sees them:
/// `window()->windowHandle()->installEventFilter(frame)`. A host that wants the border of a field with the keyboard in other
/// cases too sets the property and polishes the frame.
///
/// Lifetime. Qt's edit goes on after its text changed or its editing ended, and so does one that is taking the keyboard from
/// another: a handler of those signals deletes fields by deleteLater(). A handler of the button may delete the field at once.
class VELMORA_EXPORT QcLineEditFrame : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(QString text READ getText WRITE setText NOTIFY signalTextChanged USER true)
    Q_PROPERTY(QString placeholderText READ PlaceholderText WRITE setPlaceholderText)
    Q_PROPERTY(QString unit READ Unit WRITE setUnit)
    Q_PROPERTY(QString buttonIconPath READ ButtonIconPath WRITE setButtonIconPath)
    Q_PROPERTY(bool warning READ getWarning WRITE setWarning)
    Q_PROPERTY(QString warningText MEMBER m_warningText WRITE setWarningText)
    // Those of the validator's numbers. Setting one sets a validator with the other two as they are; the places come first, since they
    // round the bounds.
    Q_PROPERTY(int decimals READ Decimals WRITE SetDecimals)
    Q_PROPERTY(double minimum READ Minimum WRITE SetMinimum)
    Q_PROPERTY(double maximum READ Maximum WRITE SetMaximum)

public:
    explicit QcLineEditFrame(QWidget *parent = nullptr);
    /// Ends no editing: like QLineEdit, a field that dies with the keyboard signals nothing.
    ~QcLineEditFrame() override;

    using QFrame::setFocus; // leads to the edit

    /// The edit itself, owned by the frame.
    QcLineEdit *getLineEdit() const;
    QString getText();
    /// Sets the text without asking the validator. It counts as accepted: a text that fails later gives way to it.
    void setText(const QString &text);
    /// Empties the field. The last accepted text stays, and comes back at the end of editing if there is a validator.
    void clear();
    void setPlaceholderText(const QString &text);
    void setAlignment(Qt::AlignmentFlag alignment);
    /// Shows \a unit behind the text; an empty one shows none.
    void setUnit(const QString &unit);
    /// Shows a button with the icon of the file \a path behind unit and text; an empty path shows none.
    void setButtonIconPath(const QString &path);
    /// Takes any validator, which stays the caller's; one that dies is forgotten. Null does nothing. Only integer and double
    /// validators act at the end of editing.
    void setValidator(QValidator *validator);
    /// Takes numbers from \a min to \a max with up to \a decimals places, the bounds rounded to these; 0 takes whole numbers, the
    /// bounds cut to such. A bound that no int holds becomes the nearest, one that is no number 0; with places no number lies
    /// within such a one. Nor does any if \a min is above \a max. Validators of earlier calls stay children of the edit.
    void setValidator(double min, double max, int decimals);
    /// Whether to show the warning: the red border and, if there is a text for it, the tip. Only the host calls it.
    virtual void setWarning(bool on);
    bool getWarning() const;
    /// The text of the warning's tip, read as HTML. While it is empty there is no tip.
    void setWarningText(const QString &text);
    /// The number that QLocale() reads in the text, 0 if it is none.
    double valueDb() const;
    int valueInt() const;

Q_SIGNALS:
    void signalButtonClicked();
    /// The text changed, by the user or by a call.
    void signalTextChanged(const QString &text);
    /// Editing ended. The text is the final one, even if what was typed was refused.
    void signalEditingFinished();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private Q_SLOTS:
    void onEditingFinished();

private:
    using IntegerText = QString (*)(const QString &text, const QIntValidator &range);
    using DoubleText = QString (*)(const QString &text, const QDoubleValidator &range);

    QString PlaceholderText() const;
    QString Unit() const;
    QString ButtonIconPath() const;
    int Decimals() const;
    double Minimum() const;
    double Maximum() const;
    void SetDecimals(int decimals) { setValidator(Minimum(), Maximum(), decimals); }
    void SetMinimum(double min) { setValidator(min, Maximum(), Decimals()); }
    void SetMaximum(double max) { setValidator(Minimum(), max, Decimals()); }
    void editControlCheck();
    void editControlCheckV2();
    void setFocus(bool on);
    void updateArrowTipVisible();
    void updateStyle();
    void FinishEditing(IntegerText integerText, DoubleText doubleText);
    void SetDistances(int rightMargin, int spacing);
    void AnnounceDescription();

    const char *m_focusProperty = "objectPropertyFocus";
    const char *m_warningProperty = "objectPropertyWarning";
    bool m_hasNumericValidator = false;
    QString m_lastAcceptedText;
    QcLineEdit *m_lineEdit;
    QcLabel *m_unitLabel;
    QcGhostButton *m_button;
    QcArrowTip *m_warningTip;
    QString m_warningText;
};

} // namespace Velmora
