#pragma once

#include <Velmora/VelmoraExport.h>

#include <QFrame>
#include <QString>

#include <functional>

QT_BEGIN_NAMESPACE
class QLabel;
class QPoint;
class QPropertyAnimation;
QT_END_NAMESPACE

namespace Velmora {

struct Ui_QcNotificationPage;

/// One message of a QcNotification: a title and a content of one line each, and a text button.
///
/// Texts are shown as they are, without markup, line breaks as spaces; what is too long for the page ends in an ellipsis. The card that
/// shows the page makes it, and names itself by its texts.
class VELMORA_EXPORT QcNotificationPage : public QFrame
{
    Q_OBJECT

public:
    /// Which way movePage() fades.
    enum FadeType : int {
        FadeIn = 0,
        FadeOut = 1,
    };
    Q_ENUM(FadeType)

    explicit QcNotificationPage(QWidget *parent);
    ~QcNotificationPage() override;

    /// Assistive technology reads it as the page's name.
    void setTitleText(const QString &text);
    /// Assistive technology reads it as the page's description.
    void setContentText(const QString &text);
    /// With an empty text the button stays in its place, without a caption.
    void setOperationButtonText(const QString &text);
    /// What a click of the button calls; an empty function throws std::bad_function_call there. It may delete the page, the card or
    /// its parent, set another callback, or run an event loop in which the page dies; it keeps its state from one click to the next.
    /// What it throws goes through Qt's event loop.
    void setOperationButtonClickCallback(std::function<void()> &&callback);
    /// Slides from the present place to \a target, in pixels of the parent, within 200 milliseconds, and fades within 400. A slide and a
    /// fade under way are replaced. A page that has faded out is hidden, and not shown by fading in. A \a type that is none of the two runs
    /// the fade as it was last.
    void movePage(const QPoint &target, FadeType type);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void drawTitleText();
    void drawContentText();
    friend class QcNotification;
    void SetUpForm();
    void CallBack();
    /// Ends at once the motion that takes the page out of sight.
    void Leave();
    /// Deletes the page: later, while its button's click may be under way.
    void Discard();

    Ui_QcNotificationPage *ui;
    QPropertyAnimation *m_posAnimation = nullptr;
    QPropertyAnimation *m_opacityAnimation = nullptr;
    std::function<void()> m_callback;
    int m_callbacksRunning = 0;
};

} // namespace Velmora
