#pragma once

#include <Velmora/VelmoraExport.h>

#include <QDialog>
#include <QString>

#include <memory>

QT_BEGIN_NAMESPACE
class QCloseEvent;
class QEvent;
class QFrame;
class QPaintEvent;
class QShowEvent;
QT_END_NAMESPACE

namespace Velmora {

class QcWindowHandler;
struct DialogTexts;
struct Ui_QcDialog;

/// A dialog without a system frame: a panel with a title row, a content frame that the host fills and a row with OK and Cancel,
/// inside a margin of 10 pixels that its shadow takes.
///
/// 600 by 400 pixels at first, shadow included. Title, close button and content show at first; the bottom row and the two other title
/// buttons are hidden. A press of any mouse button on the title row moves the dialog; a double click there does nothing, and the
/// edges do not resize it. OK accepts and Cancel rejects, as Escape does; the title buttons stand outside of the Tab order.
class VELMORA_EXPORT QcDialog : public QDialog
{
    Q_OBJECT
    Q_PROPERTY(QString title READ Title WRITE setTitle)
    Q_PROPERTY(QString okButtonText READ OkButtonText WRITE setOkButtonText)
    Q_PROPERTY(QString cancelButtonText READ CancelButtonText WRITE setCancelButtonText)
    Q_PROPERTY(bool titleBarVisible READ ShowsTitleBar WRITE setTitleBarVisible)
    Q_PROPERTY(bool closeButtonVisible READ ShowsCloseButton WRITE setCloseButtonVisible)
    Q_PROPERTY(bool minMaxButtonsVisible READ ShowsMinMaxButtons WRITE controlMinMaxBtn)
    Q_PROPERTY(bool bottomFrameVisible READ ShowsBottomFrame WRITE setBottomFrameVisible)
    Q_PROPERTY(bool okButtonVisible READ ShowsOkButton WRITE setOkButtonVisible)
    Q_PROPERTY(bool cancelButtonVisible READ ShowsCancelButton WRITE setCancelButtonVisible)
    Q_PROPERTY(QString backgroundColorParams MEMBER m_backgroundColorParams WRITE setBackgroundColorParams)
    Q_PROPERTY(QString borderColorParams MEMBER m_borderColorParams WRITE setBorderColorParams)
    Q_PROPERTY(int borderRadius MEMBER m_borderRadius WRITE setBorderRadius)

public:
    explicit QcDialog(QWidget *parent = nullptr);
    ~QcDialog() override;

    /// The text in the title row. The title that the desktop shows is setWindowTitle()'s. It asks for its whole width: give the
    /// dialog a minimum width, and a longer one is elided.
    void setTitle(const QString &title);
    /// A dialog without its title row cannot be moved with the mouse.
    void setTitleBarVisible(bool visible);
    void setCloseButtonVisible(bool visible);
    /// The row with OK and Cancel. Those two show only inside of it, and Enter goes to them only while they show.
    void setBottomFrameVisible(bool visible);
    void setOkButtonVisible(bool visible);
    void setCancelButtonVisible(bool visible);
    void setOkButtonText(const QString &text);
    void setCancelButtonText(const QString &text);
    /// Fixes the height, in pixels, of every QPushButton in the bottom row, those of the host included.
    void setBottomButtonHeight(int height);

    /// The colour code of the panel's outline, "border/border_tertairy" at first.
    void setBorderColorParams(const QString &code);
    /// The colour code of the panel, "bg/bg_box" at first.
    void setBackgroundColorParams(const QString &code);
    /// Corner radius of the shadow in pixels, 8 at first. The panel keeps square corners.
    void setBorderRadius(int radius);
    /// Shows or hides the title row's minimise and maximise buttons.
    void controlMinMaxBtn(bool visible);

    /// The frame between title and bottom row. It has no layout: give it one.
    QFrame *getContentFrame();
    /// Lets \a content fill that frame, without a margin, in place of the one of an earlier call, which is deleted on the next turn of the
    /// main loop. Null takes that away. What is designed as a form goes in this way.
    Q_INVOKABLE void setContentWidget(QWidget *content);
    /// Null if there is none.
    QWidget *getContentWidget() const;
    QFrame *getTitleFrame();

    /// Centres the dialog on the window that holds \a reference, and shows it without waiting for an answer. Null does nothing, and
    /// shows nothing.
    void showToCenter(QWidget *reference);
    /// Lets a double click on the title row through to it, which does nothing either. A press still moves the dialog.
    void removeEventFilter();

Q_SIGNALS:
    /// The dialog is about to close, by its title row, close() or the desktop, and may be deleted. accept(), reject() and Escape hide it
    /// without closing.
    void signalClose();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private Q_SLOTS:
    void onShowMin();
    void onShowMax();
    void onCloseButtonClicked();

private:
    QString Title() const;
    QString OkButtonText() const;
    QString CancelButtonText() const;
    bool ShowsTitleBar() const;
    bool ShowsCloseButton() const;
    bool ShowsMinMaxButtons() const;
    bool ShowsBottomFrame() const;
    bool ShowsOkButton() const;
    bool ShowsCancelButton() const;
    void SetUpForm();
    void SetUpBottomRow();
    void Retranslate();
    void OfferBottomButtons();
    void ChooseDefault();

    Ui_QcDialog *ui;
    QcWindowHandler *m_windowHandler = nullptr;
    QString m_borderColorParams = QStringLiteral("border/border_tertairy");
    QString m_backgroundColorParams = QStringLiteral("bg/bg_box");
    int m_borderRadius = 8;
    std::unique_ptr<DialogTexts> m_texts;
};

} // namespace Velmora
