#pragma once

#include <Velmora/VelmoraExport.h>

#include <QFrame>
#include <QString>

#include <memory>

QT_BEGIN_NAMESPACE
class QPropertyAnimation;
class QSvgWidget;
class QTimer;
QT_END_NAMESPACE

namespace Velmora {

class QcIconButton;
class QcMultiLineText;
class OwnText;

/// A short message on top of its parent: an icon, a text that may wrap and hold links, and a button that closes it. It fades in,
/// stays for some seconds and closes by itself.
///
/// QcToastManager makes toasts and stacks them; a host needs this class to fill in a Params. The toast is 320 pixels wide inside its
/// border and as high as its text, however long that is: a text of a megabyte is laid out whole, and shows without fading.
/// It never takes the keyboard as it shows, and neither ends the program by closing nor keeps it running. Tab reaches its links and
/// its button. Assistive technology is alerted as it shows, and reads the text as its name. Main thread only.
class VELMORA_EXPORT QcToast : public QFrame
{
    Q_OBJECT

public:
    /// Selects the icon, and nothing else.
    enum Type : int {
        Information = 0,
        Warning = 1,
        Error = 2,
        Success = 3,
    };
    Q_ENUM(Type)

    /// All that a toast is told at once.
    struct Params
    {
        Type type = Information;
        /// Read as HTML as QcMultiLineText does: what comes from strangers goes through QString::toHtmlEscaped().
        QString text;
        /// Milliseconds from the end of the fade-in to the closing. Below 0 counts as 0.
        int duration = 5000;
        /// False pins the toast to the head of the stack, and no newer one makes it go. It closes in time all the same.
        bool removable = true;
        /// A toast of the same id on the screen stays longer instead of a second one being shown. -1 means none.
        int id = -1;
    };

    explicit QcToast(QWidget *parent);
    ~QcToast() override;

    /// Takes all of \a params. Emits signalHeightChanged(), at least once.
    void setParams(const Params &params);
    /// What setParams() was given last. The three calls below do not change it.
    void getParams(Params &params) const;
    /// Shows the icon of \a type. A value outside of the enum changes nothing.
    void setType(Type type);
    /// Emits signalHeightChanged(), at least once.
    void setText(const QString &text);
    /// Milliseconds; a wait under way begins again.
    void setDuration(int duration);
    /// With \a animated the toast fades in within 250 milliseconds and then waits for its duration. Else it shows at once and stays.
    void showToast(bool animated);
    /// Moves to a place in the parent, or on the screen for a toast that is a window, within 100 milliseconds if \a animated. It replaces
    /// a move under way.
    void moveToast(int x, int y, bool animated);
    /// Waits for the whole duration from now on, during the fade-in too.
    void renewDuration();

Q_SIGNALS:
    /// The text was set or has another height. A receiver that is to be rid of the toast calls close() or deleteLater().
    void signalHeightChanged();
    /// A link of the text was pressed, with a mouse button or a key.
    void signalAnchorClicked(const QString &qstrAnchorHref);

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private Q_SLOTS:
    void onUpdateHeight();
    void onOpacityAnimationFishied();

private:
    void MakeContent();
    void MakeFading();
    void NameCloseButton();

    QWidget *m_contentWidget;
    QSvgWidget *m_icon;
    QcMultiLineText *m_textControl;
    QcIconButton *m_closeButton;
    QPropertyAnimation *m_opacityAnimation;
    QPropertyAnimation *m_positionAnimation;
    QTimer *m_timer;
    Params m_params;
    int m_shownType = -1; // whose icon is loaded
    const std::unique_ptr<OwnText> m_closeName;
};

} // namespace Velmora
