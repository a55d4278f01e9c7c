#include "CardParts.h"
#include "support/CallAt.h"
#include "support/EventCounter.h"
#include "support/TestMain.h"

#include <Velmora/QcNotificationManager.h>

#include <QApplication>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QPointer>
#include <QTemporaryDir>
#include <QUrl>
#include <QVariant>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QString kParentGone = QStringLiteral("QcNotificationManager::showNotification: parent null");
const QString kCardGone = QStringLiteral("QcNotificationManager::showNotification: m_notification null");

/// The host's handler of file URLs: what openDir() opens where no file manager answers.
class UrlHandler : public QObject
{
    Q_OBJECT

public:
    UrlHandler() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "Open"); }
    ~UrlHandler() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    QList<QUrl> opened;

public Q_SLOTS:
    void Open(const QUrl &url) { opened.append(url); }
};

} // namespace

class tst_QcNotificationManager : public TestCase
{
    Q_OBJECT

protected:
    void SetUp() override
    {
        MoveCursorAway();
        m_window = std::make_unique<QWidget>();
        m_window->setGeometry(kWindowPlace);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void TearDown() override { m_window.reset(); }

    /// Hands in a message for \a parent.
    void Post(
        const QString &title, QWidget *parent, std::function<void()> callback = [] {}, const QRect &rect = QRect())
    {
        QcNotificationManager::getInstance()->showNotification(title, QStringLiteral("Content"), QStringLiteral("Open"),
                                                               std::move(callback), parent, rect);
    }

    static QcNotification *CardOf(const QWidget &parent)
    {
        return parent.findChild<QcNotification *>(QString(), Qt::FindDirectChildrenOnly);
    }

    /// Lets what was handed in for \a parent show: then the card has \a pages pages.
    static void WaitForPages(const QWidget &parent, int pages)
    {
        QTRY_VERIFY(CardOf(parent) && PagesOf(*CardOf(parent)).size() == pages);
        DrainEvents();
        EndMotion(*CardOf(parent));
    }

    /// Lets all that was handed in before have its turn.
    static void WaitForTheDelay()
    {
        bool isOver = false;
        QTimer::singleShot(120, qApp, [&isOver] { isOver = true; });
        QTRY_VERIFY(isOver);
    }

    std::unique_ptr<QWidget> m_window;

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere"); // no file manager of the machine's
    }

    void a_message_shows_a_tenth_of_a_second_later_on_a_tool_window_of_its_parent()
    {
        QElapsedTimer time;
        time.start();
        Post(QStringLiteral("one"), m_window.get());
        QcNotification *card = CardOf(*m_window);
        QVERIFY(card);
        QVERIFY(card->isHidden());
        QVERIFY(card->isWindow());
        QCOMPARE(card->windowFlags(), Qt::Tool | Qt::FramelessWindowHint);
        DrainEvents();
        QVERIFY(PagesOf(*card).isEmpty() || time.elapsed() >= 95);
        WaitForPages(*m_window, 1);
        QVERIFY(time.elapsed() >= 95); // a coarse timer may be 5 % early
        QVERIFY(card->isVisible());
        QCOMPARE(card->pos(), QPoint(m_window->geometry().right() - 16 - 320, m_window->geometry().top() + 80));
        QCOMPARE(TitlesInSight(*card), QStringList(QStringLiteral("one")));
    }

    void a_rectangle_places_the_card()
    {
        Post(
            QStringLiteral("one"), m_window.get(), [] {}, QRect(100, 50, 500, 300));
        WaitForPages(*m_window, 1);
        QCOMPARE(CardOf(*m_window)->pos(), QPoint(599 - 16 - 320, 130));
    }

    void messages_share_one_card_that_stays_in_sight()
    {
        Post(QStringLiteral("one"), m_window.get());
        WaitForPages(*m_window, 1);
        QcNotification *card = CardOf(*m_window);
        EventCounter hides(*card, QEvent::Hide);
        Post(QStringLiteral("two"), m_window.get());
        QVERIFY(card->isVisible());
        WaitForPages(*m_window, 2);
        QCOMPARE(CardOf(*m_window), card);
        QCOMPARE(hides.Take(), 0);
        QCOMPARE(PageNumberOf(*card), QStringLiteral("2/2"));
    }

    void messages_in_sight_move_to_the_parent_of_the_next_one()
    {
        Post(QStringLiteral("one"), m_window.get());
        WaitForPages(*m_window, 1);
        QcNotification *card = CardOf(*m_window);
        QWidget other;
        other.setGeometry(120, 40, 400, 300);
        other.show();
        Post(QStringLiteral("two"), &other);
        QVERIFY(card->isHidden());
        WaitForPages(other, 2);
        QCOMPARE(CardOf(other), card);
        QVERIFY(card->isVisible());
        QCOMPARE(card->pos(), QPoint(other.geometry().right() - 16 - 320, other.geometry().top() + 80));
        QCOMPARE(PageNumberOf(*card), QStringLiteral("2/2"));
    }

    void a_null_parent_is_warned_of_at_once()
    {
        ExpectWarning(kParentGone);
        Post(QStringLiteral("one"), nullptr);
        WaitForTheDelay();
    }

    void a_parent_that_dies_meanwhile_is_warned_of()
    {
        auto parent = std::make_unique<QWidget>();
        Post(QStringLiteral("one"), parent.get());
        const QPointer<QcNotification> card(CardOf(*parent));
        parent.reset();
        QVERIFY(!card);
        ExpectWarning(kParentGone);
        WaitForTheDelay();
        for (const QWidget *widget : QApplication::topLevelWidgets())
            QVERIFY(!qobject_cast<const QcNotification *>(widget));
    }

    void a_card_that_its_host_deletes_meanwhile_is_warned_of_and_the_next_message_makes_another()
    {
        Post(QStringLiteral("one"), m_window.get());
        delete CardOf(*m_window);
        ExpectWarning(kCardGone);
        WaitForTheDelay();
        Post(QStringLiteral("two"), m_window.get());
        WaitForPages(*m_window, 1);
        QCOMPARE(TitlesInSight(*CardOf(*m_window)), QStringList(QStringLiteral("two")));
    }

    void who_hears_of_a_dying_card_may_show_the_next_message_data()
    {
        QTest::addColumn<bool>("isHide");
        QTest::newRow("by its signal") << false;
        QTest::newRow("as it hides") << true;
    }
    void who_hears_of_a_dying_card_may_show_the_next_message()
    {
        QFETCH(bool, isHide);
        Post(QStringLiteral("one"), m_window.get());
        WaitForPages(*m_window, 1);
        const QPointer<QcNotification> card(CardOf(*m_window));
        const auto next = [this] { Post(QStringLiteral("two"), m_window.get()); };
        std::unique_ptr<CallAt> onHiding;
        if (isHide)
            onHiding = std::make_unique<CallAt>(*card, QEvent::Hide, next);
        else
            connect(card, &QObject::destroyed, this, next);
        delete card;
        WaitForPages(*m_window, 1);
        QCOMPARE(TitlesInSight(*CardOf(*m_window)), QStringList(QStringLiteral("two")));
    }

    void the_first_of_two_parents_may_die_meanwhile()
    {
        auto first = std::make_unique<QWidget>();
        Post(QStringLiteral("one"), first.get());
        Post(QStringLiteral("two"), m_window.get()); // the card is this one's now
        first.reset();
        ExpectWarning(kParentGone);
        WaitForPages(*m_window, 1);
        QCOMPARE(TitlesInSight(*CardOf(*m_window)), QStringList(QStringLiteral("two")));
    }

    void a_hidden_parent_shows_the_card_all_the_same()
    {
        Post(QStringLiteral("one"), m_window.get());
        m_window->close();
        WaitForPages(*m_window, 1);
        QVERIFY(CardOf(*m_window)->isVisible());
    }

    void the_card_as_a_parent_stands_for_its_own()
    {
        // As a host asks for the window that was clicked.
        QPointer<QcNotification> card;
        Post(QStringLiteral("one"), m_window.get(), [&] {
            Post(QStringLiteral("two"), card);
            Post(QStringLiteral("three"), ButtonOf(*card, "m_operationButton"));
        });
        WaitForPages(*m_window, 1);
        card = CardOf(*m_window);
        ButtonOf(*card, "m_operationButton")->click();
        WaitForPages(*m_window, 3);
        QCOMPARE(card->parentWidget(), m_window.get());
        QVERIFY(card->isVisible());
    }

    void a_callback_may_run_a_loop_in_which_messages_come_and_go()
    {
        bool isPast = false;
        Post(QStringLiteral("one"), m_window.get(), [&] {
            QEventLoop loop;
            Post(QStringLiteral("two"), m_window.get());
            QTimer::singleShot(120, m_window.get(), [&] {
                WaitForPages(*m_window, 2); // the clicked page is out of sight
                ButtonOf(*CardOf(*m_window), "m_closeButton")->click();
                DrainEvents();
                loop.quit();
            });
            loop.exec();
            isPast = true;
        });
        WaitForPages(*m_window, 1);
        const QPointer<QcNotificationPage> page = PagesOf(*CardOf(*m_window)).constFirst();
        QTest::mouseClick(ButtonOf(*page, "m_operationButton"), Qt::LeftButton);
        QVERIFY(isPast);
        DrainEvents();
        QVERIFY(!page);
        QVERIFY(CardOf(*m_window)->isHidden());
    }

    void open_directory_opens_the_folder()
    {
        UrlHandler handler;
        const QTemporaryDir folder;
        QcNotificationManager::getInstance()->showNotification(QStringLiteral("Saved"), QStringLiteral("Content"),
                                                               QStringLiteral("Open folder"), QcNotificationManager::OpenDirectory,
                                                               folder.path(), m_window.get(), QRect());
        WaitForPages(*m_window, 1);
        QTest::mouseClick(ButtonOf(*CardOf(*m_window), "m_operationButton"), Qt::LeftButton);
        QTRY_COMPARE(handler.opened, QList<QUrl>{QUrl::fromLocalFile(folder.path())});
    }

    void an_argument_that_is_no_path_opens_nothing()
    {
        UrlHandler handler;
        QcNotificationManager::getInstance()->showNotification(QString(), QString(), QString(), QcNotificationManager::OpenDirectory,
                                                               QVariant::fromValue(QRect()), m_window.get(), QRect());
        WaitForPages(*m_window, 1);
        ButtonOf(*CardOf(*m_window), "m_operationButton")->click();
        WaitForTheDelay();
        QVERIFY(handler.opened.isEmpty());
    }

    void a_type_that_nobody_knows_shows_nothing_and_says_nothing()
    {
        for (const int type : {1, -1, 99}) {
            QcNotificationManager::getInstance()->showNotification(QStringLiteral("one"), QString(), QString(),
                                                                   QcNotificationManager::PredefinedOperationType(type), QVariant(),
                                                                   m_window.get(), QRect());
            QcNotificationManager::getInstance()->showNotification(QStringLiteral("one"), QString(), QString(),
                                                                   QcNotificationManager::PredefinedOperationType(type), QVariant(),
                                                                   nullptr, QRect());
        }
        WaitForTheDelay();
        QVERIFY(!CardOf(*m_window));
    }

    void a_parent_set_for_all_messages_counts_for_none()
    {
        QWidget other;
        QcNotificationManager::getInstance()->setNotificationParent(&other);
        Post(QStringLiteral("one"), m_window.get());
        WaitForPages(*m_window, 1);
        QVERIFY(!CardOf(other));
        QcNotificationManager::getInstance()->setNotificationParent(nullptr);
        QVERIFY(CardOf(*m_window)->isVisible());
    }
};

VELMORA_TEST_MAIN(tst_QcNotificationManager)
#include "tst_QcNotificationManager.moc"
