#pragma once

#include <Velmora/QtCompatibility.h>
#include <Velmora/VelmoraExport.h>

#include <QFrame>
#include <QList>
#include <QString>
#include <QTimer>

#include <functional>
#include <memory>

QT_BEGIN_NAMESPACE
class QPoint;
class QRect;
QT_END_NAMESPACE

namespace Velmora {

class QcNotificationPage;
struct NotificationTexts;
struct Ui_QcNotification;

/// A card of messages, one page each, that goes ten seconds after the last message unless the mouse rests on it.
///
/// Hosts mostly show messages through QcNotificationManager, which makes a card a window of its own. It never takes the keyboard as it
/// shows, and does not keep the program running. 320 pixels wide; with a second page it grows from 92 to 116 pixels, by a bar of
/// buttons that page. The card follows its parent's moves and resizes while it is visible. The close button and the ten seconds
/// take all pages; a page is shown until then. A callback may delete the card or its parent; whoever watches its events does so by
/// deleteLater(). Main thread only.
///
/// Assistive technology meets an alert with the title of the page in sight as its name and the content as its description, unless the
/// host gave it others.
class VELMORA_EXPORT QcNotification : public QFrame
{
    Q_OBJECT

public:
    /// The way of both pages when another one comes in sight.
    enum PageSlideDirection : int {
        SlideToLeft = 0,  ///< the new one enters from the right
        SlideToRight = 1, ///< the new one enters from the left
    };
    Q_ENUM(PageSlideDirection)

    explicit QcNotification(QWidget *parent);
    ~QcNotification() override;

    /// Adds a page and slides it in; see QcNotificationPage for texts and \a callback. A hidden card is placed and shown: its right edge
    /// 16 pixels left of that of \a rect, its top 80 below. A null \a rect stands for the parent's geometry(), and without a
    /// parent for where the card is. Neither is mapped: for a card that is a window both mean pixels of the screen. The ten seconds
    /// begin anew, but for a card in sight with the mouse on it.
    void showNotification(const QString &title, const QString &content, const QString &operationText, std::function<void()> &&callback,
                          const QRect &rect);

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void enterEvent(EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private Q_SLOTS:
    void onCloseButtonClicked();
    void onFirstPageButtonClicked();
    void onPrePageButtonClicked();
    void onNextPageButtonClicked();
    void onLastPageButtonClicked();
    void onDisplayTimerTimeout();
    void onPosAnimationFinished();

private:
    void hideNotification();
    void clearAndHide();
    void setCurrentPage(int index, PageSlideDirection direction, bool restartTimer);
    QPoint getShowPos(const QRect &rect);
    QPoint getHidePos();
    void updateControlBarVisible();
    void updateHeight();
    void updatePageButtonsEnaled();
    void updatePageLabel();
    void SetUpForm();
    void SetUpControlBar();
    void Retranslate();
    void ForgetPage(const QObject *child);

    Ui_QcNotification *ui;
    QTimer m_displayTimer{this};
    int m_currentPage = -1;
    QList<QcNotificationPage *> m_pages;
    int m_topOffset = 80;
    int m_rightOffset = 16;
    bool m_isHovered = false;
    std::unique_ptr<NotificationTexts> m_texts;
};

} // namespace Velmora
