#include "CardParts.h"
#include "support/AccessibleEvents.h"
#include "support/CallAt.h"
#include "support/EventCounter.h"
#include "support/LeaksExcused.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include <Velmora/QcIconButton.h>

#include <QAccessible>
#include <QApplication>
#include <QEventLoop>
#include <QLayout>
#include <QLineEdit>
#include <QPointer>
#include <QSet>
#include <QTranslator>

#include <climits>
#include <ctime>
#include <functional>
#include <memory>
#include <stdexcept>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QRect kBesideTheWindow(400, 0, 336, 200);
const QRect kForTheOrigin(0, -80, 337, 100); // the card of this rectangle lies at (0, 0)

QString NameOf(QObject *object)
{
    return QAccessible::queryAccessibleInterface(object)->text(QAccessible::Name);
}

/// Puts "<text>" for each text of the card.
class AngleTranslator : public QTranslator
{
public:
    QString translate(const char *context, const char *text, const char * /*comment*/, int /*n*/) const override
    {
        return qstrcmp(context, "QcNotification") == 0 ? QStringLiteral("<%1>").arg(QLatin1String(text)) : QString();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class tst_QcNotification : public TestCase
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
        m_card = new QcNotification(m_window.get());
        m_card->setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
        TimerOf(*m_card)->setTimerType(Qt::PreciseTimer); // a coarse one tells its remaining time by the second
    }

    void TearDown() override
    {
        m_card = nullptr;
        m_window.reset();
        UseTable(Table::Light);
    }

    /// Shows \a titles, one after the other, with all motion at its end.
    void ShowMessages(const QStringList &titles)
    {
        for (const QString &title : titles)
            ShowMessage(*m_card, title);
        DrainEvents();
        EndMotion(*m_card);
        DrainEvents();
    }

    void Click(const char *name)
    {
        QTest::mouseClick(ButtonOf(*m_card, name), Qt::LeftButton);
        EndMotion(*m_card);
    }

    /// Clicks the text button of the only page and lets everything follow from it.
    void ClickOperation()
    {
        QTest::mouseClick(ButtonOf(*PagesOf(*m_card).constFirst(), "m_operationButton"), Qt::LeftButton);
        DrainEvents();
    }

    /// That the layout of \a widget has these measures and holds \a items, in order: widgets by name, spacers by size.
    static void CheckLayout(const QWidget &widget, const char *name, int spacing, const QMargins &margins, const char *items)
    {
        const QLayout *layout = widget.layout();
        QVERIFY(layout);
        QCOMPARE(layout->objectName(), QLatin1String(name));
        QCOMPARE(layout->spacing(), spacing);
        QCOMPARE(layout->contentsMargins(), margins);
        QStringList found;
        for (int i = 0; i < layout->count(); ++i) {
            const QSize size = layout->itemAt(i)->sizeHint();
            const QWidget *item = layout->itemAt(i)->widget();
            found.append(item ? item->objectName() : QStringLiteral("%1x%2").arg(size.width()).arg(size.height()));
        }
        QCOMPARE(found.join(QLatin1Char(' ')), QLatin1String(items));
    }

    std::unique_ptr<QWidget> m_window;
    QcNotification *m_card = nullptr; // the window's

private Q_SLOTS:
    // --- Pages ---

    void one_message_is_92_pixels_high_without_a_bar()
    {
        ShowMessages({QStringLiteral("one")});
        QVERIFY(m_card->isVisible());
        QCOMPARE(m_card->size(), QSize(320, 92));
        QVERIFY(!Part(*m_card, "m_controlBar")->isVisible());
        QCOMPARE(PagesOf(*m_card).size(), 1);
        QCOMPARE(PagesOf(*m_card).constFirst()->pos(), QPoint(0, 0));
        QCOMPARE(OpacityOf(*PagesOf(*m_card).constFirst()), 1.0);
        QCOMPARE(FadeOf(*PagesOf(*m_card).constFirst())->state(), QAbstractAnimation::Stopped);
    }

    void a_second_message_slides_in_from_the_right_while_the_first_fades()
    {
        ShowMessages({QStringLiteral("one")});
        ShowMessage(*m_card, QStringLiteral("two"));
        QCOMPARE(m_card->size(), QSize(320, 116));
        QVERIFY(Part(*m_card, "m_controlBar")->isVisible());
        QCOMPARE(Part(*m_card, "m_controlBar")->height(), 24);
        QCOMPARE(PageNumberOf(*m_card), QStringLiteral("2/2"));

        QcNotificationPage *first = PagesOf(*m_card).value(0);
        QcNotificationPage *second = PagesOf(*m_card).value(1);
        const int width = first->width();
        QCOMPARE(width, Part(*m_card, "m_pageFrame")->width());
        QCOMPARE(second->pos(), QPoint(width, 0));
        QCOMPARE(SlideOf(*second)->duration(), 200);
        QCOMPARE(FadeOf(*first)->duration(), 400);
        QCOMPARE(FadeOf(*first)->easingCurve().type(), QEasingCurve::OutInQuad);
        for (QPropertyAnimation *slide : {SlideOf(*first), SlideOf(*second)})
            slide->setCurrentTime(100);
        QCOMPARE(first->pos(), QPoint(-width / 2, 0));
        QCOMPARE(second->pos(), QPoint(width - width / 2, 0));
        QCOMPARE(TitlesInSight(*m_card), QStringList({QStringLiteral("one"), QStringLiteral("two")}));
        FadeOf(*first)->setCurrentTime(200);
        FadeOf(*second)->setCurrentTime(200);
        QCOMPARE(OpacityOf(*first), 0.5);
        QCOMPARE(OpacityOf(*second), 0.5);
        EndMotion(*m_card);
        QCOMPARE(first->pos(), QPoint(-width, 0));
        QCOMPARE(OpacityOf(*first), 0.0);
        QCOMPARE(second->pos(), QPoint(0, 0));
        QCOMPARE(OpacityOf(*second), 1.0);
    }

    void the_buttons_page_and_end_at_both_ends()
    {
        ShowMessages({QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")});
        const auto enabled = [this] {
            QStringList names;
            for (const char *name : {"m_firstButton", "m_previousButton", "m_nextButton", "m_lastButton"}) {
                if (ButtonOf(*m_card, name)->isEnabled())
                    names.append(QLatin1String(name));
            }
            return names;
        };
        const QStringList back = {QStringLiteral("m_firstButton"), QStringLiteral("m_previousButton")};
        const QStringList forth = {QStringLiteral("m_nextButton"), QStringLiteral("m_lastButton")};
        QCOMPARE(enabled(), back);
        Click("m_previousButton");
        QCOMPARE(PageNumberOf(*m_card), QStringLiteral("2/3"));
        QCOMPARE(TitlesInSight(*m_card), QStringList(QStringLiteral("two")));
        QCOMPARE(enabled(), back + forth);
        Click("m_firstButton");
        QCOMPARE(PageNumberOf(*m_card), QStringLiteral("1/3"));
        QCOMPARE(TitlesInSight(*m_card), QStringList(QStringLiteral("one")));
        QCOMPARE(enabled(), forth);
        Click("m_nextButton");
        QCOMPARE(TitlesInSight(*m_card), QStringList(QStringLiteral("two")));
        Click("m_firstButton");
        Click("m_lastButton");
        QCOMPARE(TitlesInSight(*m_card), QStringList(QStringLiteral("three")));
        QCOMPARE(enabled(), back);
    }

    void paging_back_slides_to_the_right_and_forth_to_the_left()
    {
        ShowMessages({QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")});
        const auto placesAfter = [this](const char *button, int from, int to) {
            QTest::mouseClick(ButtonOf(*m_card, button), Qt::LeftButton);
            const int width = Part(*m_card, "m_pageFrame")->width();
            const int incoming = PagesOf(*m_card).value(to)->x() / width;
            EndMotion(*m_card);
            return QPair<int, int>(PagesOf(*m_card).value(from)->x() / width, incoming);
        };
        QCOMPARE(placesAfter("m_previousButton", 2, 1), qMakePair(1, -1));
        QCOMPARE(placesAfter("m_firstButton", 1, 0), qMakePair(1, -1));
        QCOMPARE(placesAfter("m_nextButton", 0, 1), qMakePair(-1, 1));
        QCOMPARE(placesAfter("m_lastButton", 1, 2), qMakePair(-1, 1));
    }

    void a_page_called_back_in_the_middle_of_its_slide_turns_round_where_it_is()
    {
        ShowMessages({QStringLiteral("one"), QStringLiteral("two")});
        QcNotificationPage *second = PagesOf(*m_card).value(1);
        QTest::mouseClick(ButtonOf(*m_card, "m_previousButton"), Qt::LeftButton);
        SlideOf(*second)->setCurrentTime(100);
        FadeOf(*second)->setCurrentTime(300);
        const int width = second->width();
        QCOMPARE(second->x(), width / 2);
        // Forth again: the page comes in from the right as always, and is not taken away by the end of the fade that it was in.
        QTest::mouseClick(ButtonOf(*m_card, "m_nextButton"), Qt::LeftButton);
        QCOMPARE(second->x(), width);
        EndMotion(*m_card);
        QCOMPARE(second->pos(), QPoint(0, 0));
        QCOMPARE(OpacityOf(*second), 1.0);
        QCOMPARE(TitlesInSight(*m_card), QStringList(QStringLiteral("two")));

        // And the outgoing one leaves from where it is.
        QTest::mouseClick(ButtonOf(*m_card, "m_previousButton"), Qt::LeftButton);
        SlideOf(*PagesOf(*m_card).value(0))->setCurrentTime(100);
        const int from = PagesOf(*m_card).value(0)->x();
        QVERIFY(from < 0 && from > -width);
        QTest::mouseClick(ButtonOf(*m_card, "m_nextButton"), Qt::LeftButton);
        QCOMPARE(PagesOf(*m_card).value(0)->x(), from);
        EndMotion(*m_card);
        QCOMPARE(PagesOf(*m_card).value(0)->x(), -width);
    }

    void a_page_that_has_faded_out_is_hidden_until_it_comes_back()
    {
        ShowMessages({QStringLiteral("one"), QStringLiteral("two")});
        QcNotificationPage *first = PagesOf(*m_card).value(0);
        QVERIFY(!first->isVisible());
        QTest::mouseClick(ButtonOf(*m_card, "m_firstButton"), Qt::LeftButton);
        QVERIFY(first->isVisible());
        QVERIFY(PagesOf(*m_card).value(1)->isVisible()); // it is on its way
        SlideOf(*PagesOf(*m_card).value(1))->setCurrentTime(200);
        QVERIFY(PagesOf(*m_card).value(1)->isVisible());
        EndMotion(*m_card);
        QVERIFY(first->isVisible());
        QVERIFY(!PagesOf(*m_card).value(1)->isVisible());
    }

    void a_card_closed_at_its_first_page_slides_the_next_message_in()
    {
        ShowMessages({QStringLiteral("one")});
        Click("m_closeButton");
        QVERIFY(!m_card->isVisible());
        ShowMessage(*m_card, QStringLiteral("again"));
        QcNotificationPage *page = PagesOf(*m_card).constFirst();
        const int width = page->width();
        QCOMPARE(page->pos(), QPoint(width, 0));
        SlideOf(*page)->setCurrentTime(50);
        QCOMPARE(page->pos(), QPoint(width, 0) + QPoint(-width, 0) * 0.25); // Qt 6 rounds halves below zero down
        EndMotion(*m_card);
        QCOMPARE(page->pos(), QPoint(0, 0));
        QCOMPARE(OpacityOf(*page), 1.0);
        QVERIFY(page->isVisible());
        QCOMPARE(PageNumberOf(*m_card), QStringLiteral("1/1"));
    }

    void a_card_closed_at_its_third_page_shows_the_next_message_without_motion()
    {
        ShowMessages({QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")});
        Click("m_closeButton");
        ShowMessage(*m_card, QStringLiteral("again"));
        QcNotificationPage *page = PagesOf(*m_card).constFirst();
        QCOMPARE(page->pos(), QPoint(0, 0));
        QCOMPARE(SlideOf(*page)->state(), QAbstractAnimation::Stopped);
        QCOMPARE(FadeOf(*page)->state(), QAbstractAnimation::Stopped);
        QCOMPARE(m_card->height(), 92);
    }

    void a_fade_of_no_known_kind_runs_as_it_was_last()
    {
        QcNotificationPage page(m_window.get());
        page.movePage(QPoint(10, 0), QcNotificationPage::FadeOut);
        page.movePage(QPoint(20, 0), QcNotificationPage::FadeType(7));
        QCOMPARE(FadeOf(page)->state(), QAbstractAnimation::Running);
        QCOMPARE(FadeOf(page)->startValue(), QVariant(1));
        QCOMPARE(FadeOf(page)->endValue(), QVariant(0));
        SlideOf(page)->setCurrentTime(200);
        QCOMPARE(page.pos(), QPoint(20, 0));
        QcNotificationPage fresh(m_window.get());
        fresh.movePage(QPoint(20, 0), QcNotificationPage::FadeType(7)); // and Qt has nothing to say
        FadeOf(fresh)->setCurrentTime(200);
        QCOMPARE(OpacityOf(fresh), 1.0);
    }

    void pages_keep_the_size_of_their_frame()
    {
        ShowMessages({QStringLiteral("one"), QStringLiteral("two")});
        const QSize frame = Part(*m_card, "m_pageFrame")->size();
        // Of 92 pixels the margins leave 72, which a page takes, and the card's border two less: the page is squeezed.
        QCOMPARE(frame.height(), 70);
        for (QcNotificationPage *page : PagesOf(*m_card))
            QCOMPARE(page->size(), frame);
        m_card->setFixedWidth(400);
        DrainEvents();
        QCOMPARE(Part(*m_card, "m_pageFrame")->width(), frame.width() + 80);
        for (QcNotificationPage *page : PagesOf(*m_card))
            QCOMPARE(page->width(), frame.width() + 80);
    }

    void messages_may_come_as_pages_change_their_size()
    {
        ShowMessages({QStringLiteral("one"), QStringLiteral("two")});
        const CallAt storm(*PagesOf(*m_card).constLast(), QEvent::Resize, [this] {
            for (int i = 0; i < 100; ++i)
                ShowMessage(*m_card, QString::number(i));
        });
        m_card->setFixedWidth(400);
        DrainEvents();
        QCOMPARE(PagesOf(*m_card).size(), 102);
        for (const QcNotificationPage *page : PagesOf(*m_card))
            QCOMPARE(page->size(), Part(*m_card, "m_pageFrame")->size());
    }

    // --- Ten seconds ---

    void a_card_goes_with_all_its_pages_when_the_time_is_over()
    {
        ShowMessages({QStringLiteral("one"), QStringLiteral("two")});
        QVERIFY(TimerOf(*m_card)->isSingleShot());
        QCOMPARE(TimerOf(*m_card)->interval(), 10000);
        RunOut(*m_card);
        QVERIFY(m_card->isHidden());
        QVERIFY(Part(*m_card, "m_controlBar")->isHidden());
        QVERIFY(PagesOf(*m_card).isEmpty());
    }

    void the_time_is_kept_by_the_cards_only_own_timer()
    {
        QcNotification card(nullptr);
        const auto timers = card.findChildren<QTimer *>();
        QCOMPARE(timers.size(), 1);
        QCOMPARE(timers.constFirst()->parent(), &card);
        QVERIFY(!timers.constFirst()->isActive());
    }

    void a_new_message_begins_the_time_anew_and_paging_does_not()
    {
        ShowMessages({QStringLiteral("one")});
        QTimer *timer = TimerOf(*m_card);
        QTRY_VERIFY(timer->remainingTime() < 9990);
        ShowMessage(*m_card, QStringLiteral("two"));
        QVERIFY(timer->remainingTime() > 9990);
        QTRY_VERIFY(timer->remainingTime() < 9980);
        for (const char *name : {"m_firstButton", "m_lastButton", "m_previousButton", "m_nextButton"}) {
            Click(name);
            QVERIFY(timer->remainingTime() < 9980);
        }
    }

    void a_message_on_a_card_in_a_hidden_parent_begins_the_time_anew()
    {
        QcNotification card(m_window.get()); // no window: it would show with its parent
        ShowMessage(card, QStringLiteral("one"));
        m_window->hide();
        TimerOf(card)->stop();
        ShowMessage(card, QStringLiteral("two"));
        QVERIFY(TimerOf(card)->isActive());
    }

    void the_time_stands_still_while_the_mouse_rests_on_the_card()
    {
        m_window->move(0, 200); // out of the way
        ShowMessage(
            *m_card, QStringLiteral("one"), [] {}, kForTheOrigin);
        DrainEvents();
        MoveCursorOver(*m_card);
        QVERIFY(!TimerOf(*m_card)->isActive());
        ShowMessage(*m_card, QStringLiteral("two"));
        QVERIFY(!TimerOf(*m_card)->isActive());
        MoveCursorAway();
        QVERIFY(TimerOf(*m_card)->isActive());
        QVERIFY(TimerOf(*m_card)->remainingTime() > 9000);
        RunOut(*m_card);
        QVERIFY(m_card->isHidden());
    }

    void a_card_closed_under_the_mouse_forgets_it()
    {
        m_window->move(0, 200); // out of the way
        ShowMessage(
            *m_card, QStringLiteral("one"), [] {}, kForTheOrigin);
        DrainEvents();
        MoveCursorOver(*ButtonOf(*m_card, "m_closeButton"));
        Click("m_closeButton");
        ShowMessage(*m_card, QStringLiteral("two")); // elsewhere
        DrainEvents();
        QTimer *timer = TimerOf(*m_card);
        QTRY_VERIFY(timer->remainingTime() < 9990);
        ShowMessage(*m_card, QStringLiteral("three"));
        QVERIFY(timer->isActive());
        QVERIFY(timer->remainingTime() > 9990);
    }

    void closing_does_not_stop_the_time_and_a_late_leave_begins_it()
    {
        ShowMessages({QStringLiteral("one")});
        Click("m_closeButton");
        QVERIFY(TimerOf(*m_card)->isActive());
        RunOut(*m_card); // finds nothing to do
        QVERIFY(!TimerOf(*m_card)->isActive());
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(m_card, &leave);
        QVERIFY(TimerOf(*m_card)->isActive());
        QVERIFY(m_card->isHidden());
    }

    // --- Place ---

    void the_card_stands_in_its_parents_corner_and_follows_it()
    {
        ShowMessages({QStringLiteral("one")});
        const auto corner = [this] {
            const QRect parent = m_window->geometry();
            return QPoint(parent.right() - 16 - 320, parent.top() + 80);
        };
        QCOMPARE(m_card->pos(), corner());
        m_window->move(40, 30);
        QTRY_COMPARE(m_card->pos(), corner());
        m_window->resize(500, 260);
        QTRY_COMPARE(m_card->pos(), corner());
        Click("m_closeButton");
        const QPoint left = m_card->pos();
        m_window->move(0, 0);
        DrainEvents();
        QCOMPARE(m_card->pos(), left);
    }

    void a_card_placed_by_a_rectangle_follows_the_parent_too()
    {
        ShowMessage(
            *m_card, QStringLiteral("one"), [] {}, kBesideTheWindow);
        QCOMPARE(m_card->pos(), QPoint(kBesideTheWindow.right() - 16 - 320, 80));
        ShowMessage(
            *m_card, QStringLiteral("two"), [] {}, QRect(500, 500, 300, 300)); // in sight it stays where it is
        QCOMPARE(m_card->pos(), QPoint(kBesideTheWindow.right() - 16 - 320, 80));
        m_window->resize(320, 240);
        QTRY_COMPARE(m_card->pos(), QPoint(m_window->geometry().right() - 16 - 320, m_window->geometry().top() + 80));
    }

    void a_card_made_in_its_parent_follows_it_as_a_child_too()
    {
        QcNotification card(m_window.get());
        ShowMessage(card, QStringLiteral("one"));
        m_window->resize(500, 260);
        DrainEvents();
        // Not mapped: the parent's place on the screen counts in the parent.
        QCOMPARE(card.pos(), QPoint(m_window->geometry().right() - 16 - 320, m_window->geometry().top() + 80));
    }

    void a_card_given_another_parent_follows_that_one_alone()
    {
        QWidget other;
        other.setGeometry(100, 100, 400, 300);
        other.show();
        m_card->setParent(&other, m_card->windowFlags());
        ShowMessages({QStringLiteral("one")});
        const QPoint place(other.geometry().right() - 16 - 320, other.geometry().top() + 80);
        QCOMPARE(m_card->pos(), place);
        m_window->resize(600, 300);
        DrainEvents();
        QCOMPARE(m_card->pos(), place);
        other.resize(450, 300);
        QTRY_COMPARE(m_card->pos(), QPoint(other.geometry().right() - 16 - 320, other.geometry().top() + 80));
        m_card->setParent(m_window.get(), m_card->windowFlags());
    }

    void without_a_parent_and_a_rectangle_the_card_stays_where_it_is()
    {
        QcNotification card(nullptr);
        card.move(30, 40);
        ShowMessage(card, QStringLiteral("one"));
        QVERIFY(card.isVisible());
        QCOMPARE(card.pos(), QPoint(30, 40));
    }

    void a_card_stays_when_its_parent_hides_or_is_minimised()
    {
        ShowMessages({QStringLiteral("one")});
        m_window->hide();
        DrainEvents();
        QVERIFY(m_card->isVisible());
        m_window->showMinimized();
        DrainEvents();
        QVERIFY(m_card->isVisible());
        QVERIFY(TimerOf(*m_card)->isActive());
        m_window->close();
        DrainEvents();
        QVERIFY(m_card->isVisible());
        RunOut(*m_card);
        QVERIFY(m_card->isHidden());
    }

    void rectangles_out_of_this_world_are_survived_data()
    {
        QTest::addColumn<QRect>("rect");
        QTest::newRow("least") << QRect(QPoint(INT_MIN, INT_MIN), QPoint(INT_MIN, INT_MIN));
        QTest::newRow("greatest") << QRect(QPoint(INT_MAX, INT_MAX), QPoint(INT_MAX, INT_MAX));
        QTest::newRow("all") << QRect(QPoint(INT_MIN, INT_MIN), QPoint(INT_MAX - 1, INT_MAX - 1));
        QTest::newRow("inside out") << QRect(QPoint(INT_MAX, INT_MAX), QPoint(INT_MIN, INT_MIN));
    }

    void rectangles_out_of_this_world_are_survived()
    {
        QFETCH(QRect, rect);
        ShowMessage(
            *m_card, QStringLiteral("one"), [] {}, rect);
        DrainEvents();
        QVERIFY(m_card->isVisible());
        QCOMPARE(m_card->size(), QSize(320, 92));
        // On the side of the screen that the rectangle's corner lies on, however far.
        QCOMPARE(m_card->x() > 0, rect.right() > 0);
        QCOMPARE(m_card->y() > 0, rect.top() > 0);
    }

    // --- Who clicks the text button ---

    void a_click_calls_back_each_time_with_the_callbacks_own_state()
    {
        int told = 0;
        ShowMessage(*m_card, QStringLiteral("one"), [&told, clicks = 0]() mutable { told = ++clicks; });
        ClickOperation();
        ClickOperation();
        QCOMPARE(told, 2);
        QVERIFY(m_card->isVisible());
    }

    void an_empty_callback_throws()
    {
        const LeaksExcused byQt;
        ShowMessage(*m_card, QStringLiteral("one"), nullptr);
        QAbstractButton *button = ButtonOf(*m_card, "m_operationButton");
        QVERIFY_EXCEPTION_THROWN(button->click(), std::bad_function_call);
    }

    void a_throwing_callback_leaves_the_card_whole()
    {
        const LeaksExcused byQt;
        ShowMessage(*m_card, QStringLiteral("one"), [] { throw std::runtime_error("no"); });
        QAbstractButton *button = ButtonOf(*m_card, "m_operationButton");
        QVERIFY_EXCEPTION_THROWN(button->click(), std::runtime_error);
        QVERIFY(m_card->isVisible());
        Click("m_closeButton");
        QVERIFY(m_card->isHidden());
    }

    void a_callback_may_delete_the_card()
    {
        const QPointer<QcNotification> card(m_card);
        bool isPast = false;
        ShowMessage(*m_card, QStringLiteral("one"), [this, &isPast, token = QStringLiteral("captured")] {
            delete m_card;
            isPast = token == QLatin1String("captured"); // the callback itself outlives the page
        });
        ClickOperation();
        QVERIFY(isPast);
        QVERIFY(!card);
    }

    void a_callback_may_delete_the_cards_parent()
    {
        const QPointer<QcNotification> card(m_card);
        ShowMessage(*m_card, QStringLiteral("one"), [this] { m_window.reset(); });
        ClickOperation();
        QVERIFY(!card);
    }

    void a_callback_may_close_the_card_and_its_page_lives_to_the_end_of_the_click()
    {
        QPointer<QcNotificationPage> page;
        bool lived = false;
        ShowMessage(*m_card, QStringLiteral("one"), [&] {
            RunOut(*m_card);
            lived = page && !page->parent() && !page->isVisible() && PagesOf(*m_card).isEmpty();
        });
        page = PagesOf(*m_card).constFirst();
        ClickOperation();
        QVERIFY(lived);
        QVERIFY(!page);
        QVERIFY(m_card->isHidden());
    }

    void a_callback_may_run_a_loop_in_which_its_page_dies()
    {
        QPointer<QcNotificationPage> page;
        bool isPast = false;
        ShowMessage(*m_card, QStringLiteral("one"), [&, token = QStringLiteral("captured")] {
            QEventLoop loop;
            QTimer::singleShot(0, m_window.get(), [this] { RunOut(*m_card); });
            // A deferred deletion waits for the loop that asked for it; this host does not.
            QTimer::singleShot(1, m_window.get(), [&] {
                delete page;
                loop.quit();
            });
            loop.exec();
            isPast = !page && token == QLatin1String("captured");
        });
        page = PagesOf(*m_card).constFirst();
        ClickOperation();
        QVERIFY(isPast);
    }

    void a_callback_may_delete_its_page()
    {
        ShowMessage(*m_card, QStringLiteral("one"), [this] { delete PagesOf(*m_card).constFirst(); });
        ClickOperation();
        QVERIFY(PagesOf(*m_card).isEmpty());
        ShowMessage(*m_card, QStringLiteral("two"));
        DrainEvents();
        EndMotion(*m_card);
        QCOMPARE(TitlesInSight(*m_card), QStringList(QStringLiteral("two")));
    }

    void a_callback_may_set_another_in_its_place()
    {
        QStringList called;
        const std::function<void()> second = [&called] { called.append(QStringLiteral("second")); };
        ShowMessage(*m_card, QStringLiteral("one"), [&, token = QStringLiteral("first")] {
            PagesOf(*m_card).constFirst()->setOperationButtonClickCallback(std::function<void()>(second));
            called.append(token);
        });
        ClickOperation();
        ClickOperation();
        QCOMPARE(called, QStringList({QStringLiteral("first"), QStringLiteral("second")}));
    }

    void a_callback_may_show_a_new_message()
    {
        ShowMessage(*m_card, QStringLiteral("one"), [this] { ShowMessage(*m_card, QStringLiteral("two")); });
        ClickOperation();
        EndMotion(*m_card);
        QCOMPARE(TitlesInSight(*m_card), QStringList(QStringLiteral("two")));
        QCOMPARE(PageNumberOf(*m_card), QStringLiteral("2/2"));
    }

    // --- Pages that a host takes ---

    void pages_that_a_host_takes_leave_the_card_to_the_others()
    {
        ShowMessages({QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")});
        delete PagesOf(*m_card).value(2); // the one in sight
        QCOMPARE(PageNumberOf(*m_card), QStringLiteral("2/2"));
        QCOMPARE(PagesOf(*m_card).value(1)->pos(), QPoint(0, 0));
        EndMotion(*m_card);
        QVERIFY(PagesOf(*m_card).value(1)->isVisible());
        QCOMPARE(OpacityOf(*PagesOf(*m_card).value(1)), 1.0); // it had faded out
        delete PagesOf(*m_card).value(0);
        QCOMPARE(PageNumberOf(*m_card), QStringLiteral("1/1"));
        QCOMPARE(m_card->height(), 92);
        QVERIFY(!ButtonOf(*m_card, "m_previousButton")->isEnabled());
        const std::unique_ptr<QcNotificationPage> taken(PagesOf(*m_card).value(0));
        taken->setParent(nullptr);
        RunOut(*m_card); // has nothing to take
        QVERIFY(m_card->isHidden());
        DrainEvents();
        QCOMPARE(TitleOf(*taken), QStringLiteral("two"));
    }

    void a_card_may_be_closed_as_a_page_of_it_shows_or_moves_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("isNext");
        QTest::newRow("shows") << int(QEvent::Show) << false;
        QTest::newRow("moves") << int(QEvent::Move) << false;
        QTest::newRow("shows, with a message at once") << int(QEvent::Show) << true;
    }
    void a_card_may_be_closed_as_a_page_of_it_shows_or_moves()
    {
        QFETCH(int, type);
        QFETCH(bool, isNext);
        ShowMessages({QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")});
        PagesOf(*m_card).constFirst()->move(5, 5); // so that it moves as it comes
        const CallAt closer(*PagesOf(*m_card).constFirst(), QEvent::Type(type), [this, isNext] {
            RunOut(*m_card);
            if (isNext)
                ShowMessage(*m_card, QStringLiteral("next"));
        });
        Click("m_firstButton");
        DrainEvents();
        QCOMPARE(m_card->isVisible(), isNext);
        QCOMPARE(PagesOf(*m_card).size(), isNext ? 1 : 0);
        if (isNext)
            QCOMPARE(PageNumberOf(*m_card), QStringLiteral("1/1"));
    }

    void the_card_dies_at_any_state_without_a_word()
    {
        for (const int pages : {0, 1, 3}) {
            QcNotification card(m_window.get());
            for (int i = 0; i < pages; ++i)
                ShowMessage(card, QString::number(i));
            for (QPropertyAnimation *animation : card.findChildren<QPropertyAnimation *>())
                animation->setCurrentTime(100);
        }
        DrainEvents();
    }

    void a_host_may_delete_the_card_as_it_shows()
    {
        const QPointer<QcNotification> card(m_card);
        const CallAt deleter(*m_card, QEvent::Show, [&card] { card->deleteLater(); });
        ShowMessage(*m_card, QStringLiteral("one"));
        DrainEvents();
        QVERIFY(!card);
    }

    // --- Texts ---

    void a_long_title_ends_in_an_ellipsis_at_the_pages_edge()
    {
        const QString longTitle = QString(100, QChar(0x2588)); // full blocks
        m_card->showNotification(
            longTitle, longTitle, QString(), [] {}, QRect());
        DrainEvents();
        QcNotificationPage *page = PagesOf(*m_card).constFirst();
        for (const char *name : {"m_titleLabel", "m_contentLabel"}) {
            auto *label = Part<QLabel>(*page, name);
            QCOMPARE(label->text(), longTitle);
            QCOMPARE(label->width(), page->width());
            QCOMPARE(label->height(), 20);
            const QImage image = Render(*label);
            const QString elided = QFontMetrics(label->font()).elidedText(longTitle, Qt::ElideRight, label->width());
            QVERIFY(elided.endsWith(QChar(0x2026)));
            // All blocks but those that make room for the ellipsis, whose dots stand low.
            const QRectF ink = InkBox(image, Qt::white);
            const QRectF upper = InkBox(VelmoraTest::Part(image, QRectF(0, 5, label->width(), 3)), Qt::white);
            QVERIFY(ink.left() <= 1);
            QVERIFY(upper.right() < label->width() - 5);
            QVERIFY(ink.right() > upper.right() + 3);
        }
    }

    void texts_show_as_they_are_on_one_line()
    {
        m_card->showNotification(
            QStringLiteral("<b>bold</b>\nnext"), QString(), QString(), [] {}, QRect());
        DrainEvents();
        auto *label = Part<QLabel>(*m_card, "m_titleLabel");
        const QImage shown = Render(*label);
        label->setText(QStringLiteral("<b>bold</b> next"));
        QCOMPARE(shown, Render(*label));
        label->setText(QStringLiteral("bold next"));
        QVERIFY(shown != Render(*label));
    }

    // --- Looks ---

    void ground_border_and_bar_follow_the_table()
    {
        ShowMessages({QStringLiteral("one"), QStringLiteral("two")});
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QImage image = Render(*m_card);
            const QColor ground = Over(TokenOf(table, QStringLiteral("bg/bg_float")));
            COMPARE_COLOR(PixelAt(image, QPointF(6, 6)), ground);
            COMPARE_COLOR(PixelAt(image, QPointF(6, 105)), ground);
            const double cover = LineCoverage(image);
            if (qFuzzyCompare(cover, 0.5)) { // at scale 1 the sheet's lines fill their pixels
                COMPARE_COLOR(PixelAt(image, QPointF(160.5, 0.5)), Over(TokenOf(table, QStringLiteral("border/border_tertairy")), ground));
                const int bar = Part(*m_card, "m_controlBar")->y();
                COMPARE_COLOR(PixelAt(image, QPointF(10.5, bar + 0.5)),
                              Over(TokenOf(table, QStringLiteral("border/border_secondary_disabled")), ground));
            }
        }
    }

    void texts_have_their_tokens_in_either_table()
    {
        const QString block(8, QChar(0x2588));
        for (int i = 0; i < 2; ++i)
            m_card->showNotification(
                block, block, block, [] {}, QRect());
        DrainEvents();
        EndMotion(*m_card);
        Part<QLabel>(*m_card, "m_pageLabel")->setText(block);
        QcNotificationPage *page = PagesOf(*m_card).value(1);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QColor ground = Over(TokenOf(table, QStringLiteral("bg/bg_float")));
            const auto inkOf = [&](QWidget *widget) { return MainInk(Render(*widget, ground), ground); };
            COMPARE_COLOR(inkOf(Part(*page, "m_titleLabel")), Over(TokenOf(table, QStringLiteral("text/text_caption")), ground));
            COMPARE_COLOR(inkOf(Part(*page, "m_contentLabel")), Over(TokenOf(table, QStringLiteral("text/text_secondary")), ground));
            COMPARE_COLOR(inkOf(Part(*m_card, "m_pageLabel")), Over(TokenOf(table, QStringLiteral("text/text_primary")), ground));
            // The button paints itself: what the sheet says of its colour has no effect.
            COMPARE_COLOR(inkOf(Part(*page, "m_operationButton")), Over(TokenOf(table, QStringLiteral("link/link")), ground));
        }
    }

    void card_and_page_are_laid_out_as_their_forms()
    {
        ShowMessages({QStringLiteral("one")});
        const QWidget &bar = *Part(*m_card, "m_controlBar");
        CheckLayout(*m_card, "verticalLayout_2", 0, QMargins(), "widget_3 m_controlBar");
        CheckLayout(*Part(*m_card, "widget_3"), "horizontalLayout_2", 8, QMargins(12, 10, 8, 10), "m_pageFrame frame");
        CheckLayout(*ButtonOf(*m_card, "m_closeButton")->parentWidget(), "verticalLayout", 0, QMargins(0, 3, 0, 0), "m_closeButton");
        CheckLayout(bar, "horizontalLayout", 10, QMargins(),
                    "40x20 m_firstButton m_previousButton m_pageLabel m_nextButton m_lastButton 40x20");
        for (const int spacer : {0, 6})
            QCOMPARE(bar.layout()->itemAt(spacer)->expandingDirections(), Qt::Horizontal);
        QCOMPARE(Part<QLabel>(bar, "m_pageLabel")->alignment(), Qt::AlignCenter);

        const QcNotificationPage &page = *PagesOf(*m_card).constFirst();
        QWidget *lines = Part(page, "m_titleLabel")->parentWidget();
        CheckLayout(page, "verticalLayout", 8, QMargins(), "frame m_operationButton");
        CheckLayout(*lines, "verticalLayout_2", 4, QMargins(), "m_titleLabel m_contentLabel");
        QCOMPARE(page.layout()->itemAt(1)->alignment(), Qt::AlignLeft);
        for (QWidget *panel :
             {Part(*m_card, "m_pageFrame"), ButtonOf(*m_card, "m_closeButton")->parentWidget(), Part(*m_card, "m_controlBar"), lines})
            QCOMPARE(qobject_cast<QFrame *>(panel)->frameStyle(), int(QFrame::StyledPanel) | int(QFrame::Raised));
    }

    void each_button_has_its_own_icon()
    {
        ShowMessages({QStringLiteral("one"), QStringLiteral("two")});
        QSet<QByteArray> looks;
        const auto checkIcon = [&](const char *name, const QString &icon) {
            auto *button = Part<QcIconButton>(*m_card, name);
            QcIconButton expected(nullptr);
            expected.SetIconPath(icon);
            expected.setFixedSize(16, 16);
            expected.setEnabled(button->isEnabled());
            DrainEvents();
            const QImage look = Render(*button, Qt::white);
            QCOMPARE(look, Render(expected, Qt::white));
            looks.insert(QByteArray(reinterpret_cast<const char *>(look.constBits()), int(look.sizeInBytes())));
        };
        checkIcon("m_closeButton", QStringLiteral(":/images/close.svg"));
        checkIcon("m_firstButton", QStringLiteral(":/images/first_page.svg"));
        checkIcon("m_previousButton", QStringLiteral(":/images/pre_page.svg"));
        checkIcon("m_nextButton", QStringLiteral(":/images/next_page.svg"));
        checkIcon("m_lastButton", QStringLiteral(":/images/last_page.svg"));
        QCOMPARE(looks.size(), 5);
    }

    void a_page_without_a_card_follows_the_table()
    {
        QcNotificationPage page(m_window.get());
        page.show();
        DrainEvents();
        EventCounter paints(page, QEvent::Paint);
        UseTable(Table::Dark);
        DrainEvents();
        QVERIFY(paints.Take() > 0);
    }

    void the_card_has_the_forms_names_and_measures()
    {
        QCOMPARE(m_card->objectName(), QStringLiteral("QcNotification"));
        ShowMessages({QStringLiteral("one"), QStringLiteral("two")});
        for (const char *name : {"m_closeButton", "m_firstButton", "m_previousButton", "m_nextButton", "m_lastButton"})
            QCOMPARE(ButtonOf(*m_card, name)->size(), QSize(16, 16));
        QCOMPARE(ButtonOf(*m_card, "m_closeButton")->mapTo(m_card, QPoint(0, 0)), QPoint(320 - 1 - 8 - 16, 1 + 10 + 3));
        const QList<QcNotificationPage *> pages = PagesOf(*m_card);
        QCOMPARE(pages.size(), 2);
        QCOMPARE(pages.constFirst()->objectName(), QStringLiteral("QcNotificationPage"));
        QCOMPARE(pages.constFirst()->parentWidget(), Part(*m_card, "m_pageFrame"));
        QCOMPARE(Part(*pages.constFirst(), "m_operationButton")->height(), 20);
        QCOMPARE(Part<QLabel>(*pages.constFirst(), "m_titleLabel")->font().pixelSize(), 12);
        QCOMPARE(Part<QLabel>(*pages.constFirst(), "m_contentLabel")->font().pixelSize(), 12);
    }

    void right_to_left_texts_stand_at_the_right()
    {
        m_card->setLayoutDirection(Qt::RightToLeft);
        m_card->showNotification(
            QString(4, QChar(0x2588)), QString(), QString(), [] {}, QRect());
        DrainEvents();
        auto *label = Part<QLabel>(*m_card, "m_titleLabel");
        const QRectF ink = InkBox(Render(*label), Qt::white);
        QVERIFY(ink.left() > label->width() / 2);
        QVERIFY(ButtonOf(*m_card, "m_closeButton")->mapTo(m_card, QPoint(0, 0)).x() < 20);
    }

    void right_to_left_the_arrows_still_point_to_where_their_pages_come_from()
    {
        m_card->setLayoutDirection(Qt::RightToLeft);
        ShowMessages({QStringLiteral("one"), QStringLiteral("two")});
        int left = 0;
        for (const char *name : {"m_firstButton", "m_previousButton", "m_pageLabel", "m_nextButton", "m_lastButton"}) {
            QVERIFY2(Part(*m_card, name)->x() > left, name);
            left = Part(*m_card, name)->x();
        }
    }

    // --- Keyboard, assistive technology, the program's end ---

    void the_card_asks_the_desktop_for_no_keyboard() { QVERIFY(m_card->testAttribute(Qt::WA_ShowWithoutActivating)); }

    void a_card_in_sight_does_not_keep_the_program_running()
    {
        QVERIFY(!m_card->testAttribute(Qt::WA_QuitOnClose));
        m_card->setParent(nullptr, m_card->windowFlags());
        QVERIFY(!m_card->testAttribute(Qt::WA_QuitOnClose));
        m_card->setParent(m_window.get(), m_card->windowFlags());
        QVERIFY(!m_card->testAttribute(Qt::WA_QuitOnClose));
    }

    void only_the_page_in_sight_has_stops_of_the_tab_key()
    {
        ShowMessages({QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")});
        m_card->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_card));
        QStringList stops;
        ButtonOf(*m_card, "m_closeButton")->setFocus();
        do {
            QWidget *focus = QApplication::focusWidget();
            QVERIFY(focus);
            const bool isOnPage = qobject_cast<QcNotificationPage *>(focus->parentWidget());
            stops.append(isOnPage ? TitleOf(*qobject_cast<QcNotificationPage *>(focus->parentWidget())) : focus->objectName());
            QTest::keyClick(focus, Qt::Key_Tab);
        } while (QApplication::focusWidget() != ButtonOf(*m_card, "m_closeButton") && stops.size() < 20);
        stops.sort();
        QCOMPARE(stops,
                 QStringList({QStringLiteral("m_closeButton"), QStringLiteral("m_firstButton"), QStringLiteral("m_previousButton"),
                              QStringLiteral("three")}));
    }

    void a_button_without_a_caption_keeps_its_place_and_is_no_stop_of_the_tab_key()
    {
        m_card->showNotification(
            QStringLiteral("one"), QString(), QString(), [] {}, QRect());
        DrainEvents();
        QAbstractButton *button = ButtonOf(*m_card, "m_operationButton");
        QVERIFY(button->isVisible());
        QCOMPARE(button->text(), QString());
        QCOMPARE(button->focusPolicy(), Qt::NoFocus);
        PagesOf(*m_card).constFirst()->setOperationButtonText(QStringLiteral("Open"));
        QCOMPARE(button->focusPolicy(), Qt::StrongFocus);
    }

    void assistive_technology_meets_an_alert_with_the_message_in_sight()
    {
        AccessibleEvents events(*m_card);
        ShowMessages({QStringLiteral("one")});
        QVERIFY(events.Take().contains(QStringLiteral("Alert")));
        QAccessibleInterface *alert = QAccessible::queryAccessibleInterface(m_card);
        QCOMPARE(alert->role(), QAccessible::AlertMessage);
        QCOMPARE(alert->text(QAccessible::Name), QStringLiteral("one"));
        QCOMPARE(alert->text(QAccessible::Description), QStringLiteral("Content of one"));
        ShowMessages({QStringLiteral("two")});
        const QStringList told = events.Take();
        QVERIFY(told.contains(QStringLiteral("Alert")));
        QVERIFY(told.contains(QStringLiteral("NameChanged")));
        QVERIFY(told.indexOf(QStringLiteral("NameChanged")) < told.indexOf(QStringLiteral("Alert")));
        QCOMPARE(NameOf(m_card), QStringLiteral("two"));
        Click("m_firstButton");
        QCOMPARE(NameOf(m_card), QStringLiteral("one"));
        m_card->setAccessibleName(QStringLiteral("mine"));
        Click("m_lastButton");
        QCOMPARE(NameOf(m_card), QStringLiteral("mine"));
    }

    void the_buttons_have_names_that_follow_the_language()
    {
        ShowMessages({QStringLiteral("one"), QStringLiteral("two")});
        const auto names = [this] {
            QStringList found;
            for (const char *name : {"m_closeButton", "m_firstButton", "m_previousButton", "m_nextButton", "m_lastButton"})
                found.append(NameOf(ButtonOf(*m_card, name)));
            return found;
        };
        QCOMPARE(names(),
                 QStringList({QStringLiteral("Close"), QStringLiteral("First page"), QStringLiteral("Previous page"),
                              QStringLiteral("Next page"), QStringLiteral("Last page")}));
        ButtonOf(*m_card, "m_nextButton")->setAccessibleName(QStringLiteral("On"));
        AngleTranslator translator;
        QCoreApplication::installTranslator(&translator);
        DrainEvents();
        QCOMPARE(names(),
                 QStringList({QStringLiteral("<Close>"), QStringLiteral("<First page>"), QStringLiteral("<Previous page>"),
                              QStringLiteral("On"), QStringLiteral("<Last page>")}));
        QCoreApplication::removeTranslator(&translator);
        DrainEvents();
    }

    void a_press_by_assistive_technology_may_come_when_the_pages_have_gone()
    {
        ShowMessages({QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")});
        Click("m_previousButton");
        for (const char *name : {"m_firstButton", "m_previousButton", "m_nextButton", "m_lastButton"}) {
            QAccessibleInterface *button = QAccessible::queryAccessibleInterface(ButtonOf(*m_card, name));
            button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        }
        RunOut(*m_card);
        DrainEvents();
        QVERIFY(m_card->isHidden());
        ShowMessages({QStringLiteral("four")});
        QCOMPARE(TitlesInSight(*m_card), QStringList(QStringLiteral("four")));
    }

    // --- Much ---

    void a_megabyte_of_text_costs_what_can_be_seen_of_it()
    {
        const QString text(1 << 20, QLatin1Char('m'));
        const std::clock_t begin = std::clock();
        m_card->showNotification(
            text, text, QStringLiteral("Open"), [] {}, QRect());
        DrainEvents();
        Render(*m_card);
        // Measuring all of it once takes a tenth of a second, and layouts ask many times.
        QVERIFY(double(std::clock() - begin) / CLOCKS_PER_SEC < 0.1);
        QCOMPARE(m_card->width(), 320);
        QCOMPARE(Part<QLabel>(*m_card, "m_titleLabel")->text().size(), text.size());
    }

    void a_storm_of_messages_moves_a_few_pages_only()
    {
        ShowMessages({QStringLiteral("first")});
        for (int i = 0; i < 100; ++i)
            ShowMessage(*m_card, QString::number(i));
        int moving = 0;
        for (QcNotificationPage *page : PagesOf(*m_card)) {
            moving += SlideOf(*page)->state() == QAbstractAnimation::Running ? 1 : 0;
            QCOMPARE(page->isVisible(), FadeOf(*page)->state() == QAbstractAnimation::Running);
        }
        QVERIFY(moving > 1 && moving < 12);
        EndMotion(*m_card);
        QCOMPARE(TitlesInSight(*m_card), QStringList(QStringLiteral("99")));
        QCOMPARE(PageNumberOf(*m_card), QStringLiteral("101/101"));
        Click("m_firstButton");
        QCOMPARE(TitlesInSight(*m_card), QStringList(QStringLiteral("first")));
        QCOMPARE(OpacityOf(*PagesOf(*m_card).constFirst()), 1.0);
        Click("m_nextButton");
        QCOMPARE(TitlesInSight(*m_card), QStringList(QStringLiteral("0")));
    }
};

VELMORA_TEST_MAIN(tst_QcNotification)
#include "tst_QcNotification.moc"
