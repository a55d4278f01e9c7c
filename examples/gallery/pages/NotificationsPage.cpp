#include "Kit.h"
#include "Page.h"

#include <Velmora/QcNotification.h>
#include <Velmora/QcNotificationManager.h>
#include <Velmora/QcSecondaryButton.h>

#include <QDir>
#include <QHBoxLayout>
#include <QPropertyAnimation>
#include <QRect>
#include <QTimer>

using namespace Gallery;
using Velmora::QcButton;
using Velmora::QcNotification;
using Velmora::QcNotificationManager;

namespace {

struct Message
{
    const char *title;
    const char *content;
    const char *button;
};

constexpr Message kLetters = {"12 letters have come", "The first is from the harbour office", "Read"};
constexpr Message kBackup = {"The backup is done", "184 files, 2 of them new", "Show"};
constexpr Message kTide = {"High water at 16:40", "The quay is closed for an hour before", "Tide table"};
constexpr Message kLong = {"The office of the harbour master has sent the notice to mariners for the coming week",
                           "It names all buoys that are out of their place, and the soundings along the eastern pier", "Read"};

/// A page's place for one card, which would follow its parent as a window follows the corner of its own.
class Stand : public QWidget
{
public:
    explicit Stand(const QVector<Message> &messages)
        : m_card(new QcNotification(this))
    {
        for (const Message &message : messages)
            m_card->showNotification(
                QLatin1String(message.title), QLatin1String(message.content), QLatin1String(message.button), [] {}, QRect());
        m_card->findChild<QTimer *>()->stop(); // it stays
        for (QPropertyAnimation *animation : m_card->findChildren<QPropertyAnimation *>()) {
            if (animation->state() == QAbstractAnimation::Running)
                animation->setCurrentTime(animation->duration());
        }
        setFixedSize(m_card->size());
        MakeSpecimen(this);
    }

protected:
    void resizeEvent(QResizeEvent * /*event*/) override { m_card->move(0, 0); }
    void moveEvent(QMoveEvent * /*event*/) override { m_card->move(0, 0); }

private:
    QcNotification *m_card;
};

class NotificationsPage : public PageWidget
{
public:
    NotificationsPage()
    {
        AddLive();
        AddStands();
    }

private:
    void AddLive()
    {
        Card *card = AddSection(
            QStringLiteral("Try it"),
            QStringLiteral("The card comes in the window's upper right corner, follows the window, and goes after ten seconds unless "
                           "the mouse rests on it. The keyboard stays where it is."));
        QHBoxLayout *row = card->AddRow(2 * kGrid);
        AddTrigger(row, QStringLiteral("One message"), QStringLiteral("oneMessage"), {kLetters});
        AddTrigger(row, QStringLiteral("Three at once"), QStringLiteral("threeMessages"), {kLetters, kBackup, kTide});
        AddTrigger(row, QStringLiteral("A long one"), QStringLiteral("longMessage"), {kLong});
        AddFolder(row);
        m_answer = MakeElidingLabel(QStringLiteral("No message read yet"), QcLabel::BodySecondary);
        row->addWidget(m_answer, 1);
    }

    QcButton *AddButton(QHBoxLayout *row, const QString &text, const QString &name)
    {
        auto *button = new Velmora::QcSecondaryButton;
        button->setText(text);
        button->setObjectName(name);
        button->setHorizontalMargin(2 * kGrid);
        row->addWidget(button);
        return button;
    }

    void AddTrigger(QHBoxLayout *row, const QString &text, const QString &name, const QVector<Message> &messages)
    {
        connect(AddButton(row, text, name), &QcButton::clicked, this, [this, messages] {
            for (const Message &message : messages) {
                const QString title = QLatin1String(message.title);
                const auto answer = [page = QPointer<NotificationsPage>(this), title] {
                    if (page) // the card belongs to the window, which outlives this page
                        page->m_answer->setText(QStringLiteral("Read: ") + title);
                };
                QcNotificationManager::getInstance()->showNotification(title, QLatin1String(message.content), QLatin1String(message.button),
                                                                       answer, window(), QRect());
            }
        });
    }

    void AddFolder(QHBoxLayout *row)
    {
        connect(AddButton(row, QStringLiteral("With a folder"), QStringLiteral("folderMessage")), &QcButton::clicked, this, [this] {
            QcNotificationManager::getInstance()->showNotification(QStringLiteral("The report is saved"), QDir::tempPath(),
                                                                   QStringLiteral("Open folder"), QcNotificationManager::OpenDirectory,
                                                                   QDir::tempPath(), window(), QRect());
        });
    }

    void AddStands()
    {
        Card *card =
            AddSection(QStringLiteral("Cards"),
                       QStringLiteral("One message; three, with the bar that pages them; texts too long for the card, which end in "
                                      "an ellipsis; and from right to left."));
        QHBoxLayout *row = card->AddRow(3 * kGrid);
        row->addWidget(new Stand({kLetters}), 0, Qt::AlignTop);
        row->addWidget(new Stand({kLetters, kBackup, kTide}), 0, Qt::AlignTop);
        row->addStretch();
        row = card->AddRow(3 * kGrid);
        row->addWidget(new Stand({kLong}), 0, Qt::AlignTop);
        auto *mirrored = new Stand({kLetters, kBackup});
        mirrored->setLayoutDirection(Qt::RightToLeft);
        row->addWidget(mirrored, 0, Qt::AlignTop);
        row->addStretch();
    }

    QcLabel *m_answer = nullptr;
};

const PageRegistrar registrar({QStringLiteral("notifications"), QStringLiteral("Feedback"), QStringLiteral("Notifications"),
                               QStringLiteral("QcNotificationManager: messages on one card in the corner of a window, page by page."), 520,
                               [] { return new NotificationsPage; }});

} // namespace
