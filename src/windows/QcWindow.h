#pragma once

#include <Velmora/QcFrame.h>
#include <Velmora/VelmoraExport.h>

#include <QString>

#include <memory>

QT_BEGIN_NAMESPACE
class QCloseEvent;
class QEvent;
QT_END_NAMESPACE

namespace Velmora {

class FormTexts;
class QcWindowHandler;
struct Ui_QcWindow;

/// A top-level window without a system frame: a title row with three buttons over a content frame that the host fills.
///
/// A press of any mouse button on the title row moves it, a double click there maximises and restores it; its edges do not resize
/// it. 600 by 400 pixels at first. The title buttons stand outside of the Tab order, as those of a system frame do.
/// The middle button is checked while the window is maximised. Where the desktop or the host changes that, it follows back in the main
/// loop, so that a click always does something. To delete a window when its button is toggled use deleteLater(), as Qt asks. While the
/// mouse moves over a window, a cursor set on the window itself is unset: set it on the content.
class VELMORA_EXPORT QcWindow : public QcFrame
{
    Q_OBJECT
    Q_PROPERTY(QString title READ Title WRITE setTitle)
    Q_PROPERTY(bool minButtonVisible READ ShowsMinButton WRITE setMinButtonVisible)
    Q_PROPERTY(bool maxRestoreButtonVisible READ ShowsMaxRestoreButton WRITE setMaxRestoreButtonVisible)
    Q_PROPERTY(bool closeButtonVisible READ ShowsCloseButton WRITE setCloseButtonVisible)

public:
    explicit QcWindow(QWidget *parent = nullptr);
    ~QcWindow() override;

    /// The text in the title row. The title that the desktop shows is setWindowTitle()'s. It asks for its whole width: give the
    /// window a minimum width, and a longer one is elided.
    void setTitle(const QString &title);
    void setMinButtonVisible(bool visible);
    void setMaxRestoreButtonVisible(bool visible);
    void setCloseButtonVisible(bool visible);

    /// The frame under the title row. It has no layout: give it one.
    QFrame *getContentFrame();
    /// Lets \a content fill that frame, without a margin, in place of the one of an earlier call, which is deleted on the next turn of the
    /// main loop. Null takes that away. What is designed as a form goes in this way.
    Q_INVOKABLE void setContentWidget(QWidget *content);
    /// Null if there is none.
    QWidget *getContentWidget() const;
    /// The title row; what a host adds to its layout stands behind the buttons.
    QFrame *getTitleFrame();

    /// Centres the window on the one that holds \a reference, and shows it. Null does nothing, and shows nothing.
    void showToCenter(QWidget *reference);
    /// Ends the title row's answer to a double click. A press still moves the window.
    void removeEventFilter();

Q_SIGNALS:
    /// The window is about to close, by whatever road, and may be deleted.
    void signalClose();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void onMinButtonClicked();
    void onMaxRestoreButtonToggled();
    void onCloseButtonClicked();

private:
    QString Title() const;
    bool ShowsMinButton() const;
    bool ShowsMaxRestoreButton() const;
    bool ShowsCloseButton() const;
    void SetUpForm();
    void Retranslate();
    void FollowWindowState();

    Ui_QcWindow *ui;
    QcWindowHandler *m_windowHandler = nullptr;
    std::unique_ptr<FormTexts> m_texts;
};

} // namespace Velmora
