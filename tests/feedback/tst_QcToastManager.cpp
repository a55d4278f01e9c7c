#include "feedback/ToastSupport.h"
#include "support/CallAt.h"
#include "support/TestMain.h"

#include <Velmora/QcToastManager.h>

#include <QElapsedTimer>
#include <QGraphicsOpacityEffect>
#include <QPointer>
#include <QSignalSpy>

#include <ctime>
#include <functional>
#include <limits>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

Q_DECLARE_METATYPE(std::function<void()>)
Q_DECLARE_METATYPE(QEvent::Type)

namespace {

constexpr int kStart = 67;
constexpr int kSpacing = 4;

} // namespace

class tst_QcToastManager : public TestCase
{
    Q_OBJECT

protected:
    void SetUp() override
    {
        m_window = std::make_unique<QWidget>();
        m_window->setGeometry(100, 100, 600, 400);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void TearDown() override
    {
        m_manager->setToastStartY(kStart);
        m_window.reset();
    }

private Q_SLOTS:
    // --- The column ---

    void a_toast_stands_in_the_middle_of_its_parents_upper_part()
    {
        QcToast *toast = Show(QStringLiteral("Saved"));
        QCOMPARE(toast->parentWidget(), m_window.get());
        QVERIFY(!toast->isWindow());
        QVERIFY(toast->testAttribute(Qt::WA_DeleteOnClose));
        QCOMPARE(toast->pos(), QPoint((600 - 322) / 2, kStart));
        QVERIFY(toast->isVisible());
        QCOMPARE(AnimationOf(*toast, "opacity")->state(), QAbstractAnimation::Running);
    }

    void text_and_type_make_a_record_of_defaults()
    {
        m_manager->showToast(QStringLiteral("Saved"), QcToast::Success, m_window.get(), false);
        QcToast::Params params;
        Toasts().last()->getParams(params);
        QCOMPARE(params.text, QStringLiteral("Saved"));
        QCOMPARE(params.type, QcToast::Success);
        QCOMPARE(params.duration, 5000);
        QCOMPARE(params.removable, true);
        QCOMPARE(params.id, -1);
    }

    void newer_toasts_stand_below()
    {
        const QVector<QcToast *> toasts = ShowMany(3);
        CheckColumn(toasts);
    }

    void a_parent_narrower_than_the_toast_shows_its_middle()
    {
        m_window->resize(301, 400);
        const QcToast *toast = Show(QStringLiteral("Saved"));
        QCOMPARE(toast->x(), (301 - 322) / 2); // towards zero
    }

    void the_fourth_makes_the_first_go_and_the_others_glide_up()
    {
        QVector<QcToast *> toasts = ShowMany(3);
        const QPointer<QcToast> first(toasts.takeFirst());
        toasts.append(Show(QStringLiteral("4")));
        QVERIFY(first->isHidden());
        QVERIFY(IsGliding(*toasts[0]) && IsGliding(*toasts[1]));
        QCOMPARE(toasts[2]->pos(), EndOf(*toasts[2])); // the newest jumps
        CheckColumn(toasts);
        DrainEvents();
        QVERIFY(!first);
        CheckColumn(toasts);
        Settle();
        CheckAtRest(toasts);
    }

    void a_pinned_toast_stays_at_the_head_and_is_never_the_one_to_go()
    {
        const QPointer<QcToast> first(Show(QStringLiteral("1")));
        QcToast *pinned = ShowPinned(QStringLiteral("pinned"));
        QcToast *second = Show(QStringLiteral("2"));
        CheckColumn({pinned, first, second});
        QcToast *third = Show(QStringLiteral("3"));
        QVERIFY(first->isHidden());
        CheckColumn({pinned, second, third});
        QcToast *fourth = Show(QStringLiteral("4"));
        QVERIFY(second->isHidden());
        CheckColumn({pinned, third, fourth});
    }

    void pinned_and_ordinary_keep_their_order_as_the_first_ordinary_closes()
    {
        QcToast *first = Show(QStringLiteral("1"));
        QcToast *second = Show(QStringLiteral("2"));
        QcToast *pinned = ShowPinned(QStringLiteral("pinned"));
        first->close();
        DrainEvents();
        CheckColumn({pinned, second});
    }

    void a_column_of_pinned_toasts_grows()
    {
        QVector<QcToast *> pinned;
        for (int i = 0; i < 4; ++i)
            pinned.prepend(ShowPinned(QString::number(i)));
        CheckColumn(pinned);
        const QPointer<QcToast> ordinary(Show(QStringLiteral("ordinary")));
        CheckColumn(pinned + QVector<QcToast *>{ordinary});
        QcToast *next = Show(QStringLiteral("next")); // with more than three the ordinary one still makes room
        QVERIFY(ordinary->isHidden());
        CheckColumn(pinned + QVector<QcToast *>{next});
    }

    void a_closed_toast_lets_those_below_glide_up()
    {
        const QVector<QcToast *> toasts = ShowMany(3);
        Settle();
        Fire(*TimerOf(*toasts[0]));
        DrainEvents();
        CheckColumn({toasts[1], toasts[2]});
        QVERIFY(IsGliding(*toasts[1]) && IsGliding(*toasts[2]));
        QVERIFY(toasts[1]->y() > kStart);
        QCOMPARE(AnimationOf(*toasts[1], "pos")->duration(), 100);
        Settle();
        CheckAtRest({toasts[1], toasts[2]});
    }

    void a_longer_text_moves_those_below_down()
    {
        const QVector<QcToast *> toasts = ShowMany(3);
        Settle();
        const int before = toasts[1]->y();
        toasts[0]->setText(QStringLiteral("several words ").repeated(20));
        QVERIFY(IsGliding(*toasts[1]));
        CheckColumn(toasts);
        Settle();
        QVERIFY(toasts[1]->y() > before);
        CheckAtRest(toasts);
    }

    void a_long_text_shows_in_its_whole_height_from_the_start()
    {
        QcToast *longer = Show(QStringLiteral("several words ").repeated(20));
        QcToast *next = Show(QStringLiteral("next"));
        QVERIFY(longer->height() > next->height());
        CheckColumn({longer, next});
    }

    // --- While something runs ---

    void a_toast_that_goes_while_others_glide_leaves_them_at_their_ends()
    {
        QVector<QcToast *> toasts = ShowMany(3);
        Settle();
        toasts.takeFirst()->close();
        DrainEvents();
        AnimationOf(*toasts[0], "pos")->setCurrentTime(50);
        AnimationOf(*toasts[1], "pos")->setCurrentTime(50);
        toasts.append(Show(QStringLiteral("4")));
        toasts.append(Show(QStringLiteral("5"))); // evicts one in its glide
        QVERIFY(toasts.takeFirst()->isHidden());
        CheckColumn(toasts);
        DrainEvents();
        Settle();
        CheckAtRest(toasts);
    }

    void a_fading_toast_may_make_room()
    {
        QVector<QcToast *> toasts = ShowMany(3);
        AnimationOf(*toasts[0], "opacity")->setCurrentTime(125);
        const QPointer<QcToast> first(toasts.takeFirst());
        toasts.append(Show(QStringLiteral("4")));
        DrainEvents();
        QVERIFY(!first);
        Settle();
        CheckAtRest(toasts);
    }

    void a_toast_may_close_in_its_glide()
    {
        QVector<QcToast *> toasts = ShowMany(3);
        Settle();
        toasts.takeFirst()->close();
        DrainEvents();
        AnimationOf(*toasts[0], "pos")->setCurrentTime(50);
        toasts.takeFirst()->close();
        DrainEvents();
        Settle();
        CheckAtRest(toasts);
    }

    // --- Repeats ---

    void a_repeated_id_only_makes_the_toast_stay()
    {
        QcToast::Params params;
        params.id = 7;
        params.text = QStringLiteral("Saved");
        params.duration = 400;
        m_manager->showToast(params, m_window.get(), false);
        QcToast *toast = Toasts().last();
        EndFade(*toast);
        QTRY_VERIFY(TimerOf(*toast)->remainingTime() < 250);
        params.text = QStringLiteral("Saved again");
        params.type = QcToast::Error;
        params.duration = 9000;
        m_manager->showToast(params, m_window.get(), false);
        QCOMPARE(Toasts().size(), 1);
        QVERIFY(TimerOf(*toast)->remainingTime() > 250);
        QCOMPARE(TimerOf(*toast)->interval(), 400);
        toast->getParams(params);
        QCOMPARE(params.text, QStringLiteral("Saved"));
        QCOMPARE(params.type, QcToast::Information);
    }

    void a_repetition_during_the_fade_starts_the_time()
    {
        QcToast::Params params;
        params.id = 7;
        m_manager->showToast(params, m_window.get(), false);
        QcToast *toast = Toasts().last();
        AnimationOf(*toast, "opacity")->setCurrentTime(100);
        QVERIFY(!TimerOf(*toast)->isActive());
        m_manager->showToast(params, m_window.get(), false);
        QVERIFY(TimerOf(*toast)->isActive());
        QCOMPARE(AnimationOf(*toast, "opacity")->currentTime(), 100); // it goes on
        Fire(*TimerOf(*toast));
        QVERIFY(toast->isHidden()); // before it is opaque
    }

    void without_an_id_equal_texts_make_a_toast_each()
    {
        Show(QStringLiteral("Saved"));
        Show(QStringLiteral("Saved"));
        QCOMPARE(Toasts().size(), 2);
    }

    void an_id_whose_toast_has_closed_or_made_room_shows_again()
    {
        QcToast::Params params;
        params.id = 7;
        m_manager->showToast(params, m_window.get(), false);
        Toasts().last()->close();
        m_manager->showToast(params, m_window.get(), false); // in the same turn, the first being on its way out
        QCOMPARE(Toasts().size(), 2);
        QVERIFY(Toasts().last()->isVisible());
        ShowMany(3);
        m_manager->showToast(params, m_window.get(), false);
        QVERIFY(Toasts().last()->isVisible());
    }

    // --- Parents ---

    void without_a_parent_there_is_a_warning_and_no_toast()
    {
        const int before = int(QApplication::allWidgets().size());
        ExpectWarning(QStringLiteral("QcToastManager::showToast: parent null"));
        m_manager->showToast(QStringLiteral("Saved"), QcToast::Information, nullptr, false);
        QCOMPARE(QApplication::allWidgets().size(), before);
    }

    void a_window_of_its_own_stands_over_the_parent()
    {
        m_manager->showToast(QStringLiteral("Saved"), QcToast::Information, m_window.get(), true);
        QcToast *toast = Toasts().last();
        QVERIFY(toast->isWindow());
        QCOMPARE(toast->windowFlags(), Qt::Tool | Qt::FramelessWindowHint);
        QVERIFY(toast->testAttribute(Qt::WA_ShowWithoutActivating));
        QVERIFY(toast->testAttribute(Qt::WA_TranslucentBackground));
        QVERIFY(!toast->testAttribute(Qt::WA_QuitOnClose));
        QCOMPARE(toast->pos(), m_window->mapToGlobal(QPoint((600 - 322) / 2, kStart)));
    }

    void a_parent_that_moves_or_grows_leaves_toasts_until_the_column_changes()
    {
        m_manager->showToast(QStringLiteral("1"), QcToast::Information, m_window.get(), true);
        QcToast *window = Toasts().last();
        QcToast *child = Show(QStringLiteral("2"));
        Settle();
        const QPoint windowPlace = window->pos();
        const QPoint childPlace = child->pos();
        m_window->setGeometry(150, 130, 700, 400);
        DrainEvents();
        QCOMPARE(window->pos(), windowPlace);
        QCOMPARE(child->pos(), childPlace);
        Show(QStringLiteral("3"));
        QCOMPARE(EndOf(*window), m_window->mapToGlobal(QPoint((700 - 322) / 2, kStart)));
        QCOMPARE(EndOf(*child).x(), (700 - 322) / 2);
    }

    void all_parents_share_one_column()
    {
        QWidget other;
        other.setGeometry(800, 100, 400, 300);
        other.show();
        QcToast *first = Show(QStringLiteral("1"));
        m_manager->showToast(QStringLiteral("2"), QcToast::Information, &other, false);
        auto *second = other.findChild<QcToast *>();
        QCOMPARE(EndOf(*second), QPoint((400 - 322) / 2, kStart + first->height() + kSpacing));
    }

    void the_start_moves_nothing_by_itself()
    {
        QcToast *toast = Show(QStringLiteral("1"));
        m_manager->setToastStartY(10);
        DrainEvents();
        QCOMPARE(EndOf(*toast).y(), kStart);
        Show(QStringLiteral("2"));
        QCOMPARE(EndOf(*toast).y(), 10);
    }

    void a_toast_without_a_parent_stays_and_keeps_its_place_in_the_column()
    {
        const std::unique_ptr<QcToast> toast(Show(QStringLiteral("1")));
        Settle();
        toast->setParent(nullptr);
        toast->move(5, 6);
        const QcToast *next = Show(QStringLiteral("2"));
        QCOMPARE(EndOf(*toast), QPoint(5, 6));
        QCOMPARE(EndOf(*next).y(), kStart + toast->height() + kSpacing);
    }

    void extreme_starts_do_no_harm()
    {
        for (const int y : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
            m_manager->setToastStartY(y);
            ShowMany(3);
            DrainEvents();
        }
        m_manager->setToastStartY(kStart);
        CheckColumn(ShowMany(3));
    }

    // --- Lives ---

    void a_parent_may_go_at_any_moment_data()
    {
        using Act = std::function<void()>;
        QTest::addColumn<Act>("act");
        const auto fade = [this] { AnimationOf(*Toasts().last(), "opacity")->setCurrentTime(125); };
        const auto glide = [this] {
            Settle();
            Toasts().first()->close();
            DrainEvents();
            AnimationOf(*Toasts().last(), "pos")->setCurrentTime(50);
        };
        const auto remove = [this] { m_window.reset(); };
        QTest::newRow("while toasts fade in") << Act([=] {
            fade();
            remove();
        });
        QTest::newRow("while toasts glide") << Act([=] {
            glide();
            remove();
        });
        QTest::newRow("while toasts wait") << Act([=] {
            Settle();
            remove();
        });
        QTest::newRow("with one that is closed") << Act([=] {
            Toasts().last()->close();
            remove();
        });
        QTest::newRow("closed first") << Act([=] {
            m_window->close();
            DrainEvents();
            remove();
        });
        QTest::newRow("in a handler of a link") << Act([=] {
            Show(QStringLiteral("<a href=\"undo\">Undo</a>"));
            DrainEvents();
            const auto connection =
                connect(m_manager, &QcToastManager::signalAnchorClicked, this, [this] { m_window.release()->deleteLater(); });
            Q_EMIT Toasts().last()->signalAnchorClicked(QStringLiteral("undo"));
            DrainEvents();
            disconnect(connection);
        });
    }
    void a_parent_may_go_at_any_moment()
    {
        QFETCH(std::function<void()>, act);
        QWidget other;
        other.setGeometry(800, 100, 400, 300);
        other.show();
        for (const bool topLevel : {false, true})
            m_manager->showToast(QStringLiteral("1"), QcToast::Information, m_window.get(), topLevel);
        m_manager->showToast(QStringLiteral("other"), QcToast::Information, &other, false);
        const QPointer<QcToast> stays(other.findChild<QcToast *>());
        act();
        DrainEvents();
        QVERIFY(!m_window);
        QVERIFY(stays);
        QCOMPARE(EndOf(*stays).y(), kStart);
    }

    void toasts_that_the_host_deletes_leave_the_column()
    {
        const QVector<QcToast *> toasts = ShowMany(3);
        delete toasts[1];
        CheckColumn({toasts[0], toasts[2]});
        Settle();
        delete toasts[0];
        CheckColumn({toasts[2]});
    }

    void who_sees_a_dying_toast_hide_finds_it_whole_and_may_show_another()
    {
        const QVector<QcToast *> toasts = ShowMany(3);
        DrainEvents();
        bool isWhole = false;
        const CallAt onHiding(*toasts[1], QEvent::Hide, [&] {
            isWhole = qobject_cast<QcToast *>(toasts[1]);
            QcToast::Params params;
            params.id = 7;
            m_manager->showToast(params, m_window.get(), false);
        });
        delete toasts[1];
        QVERIFY(isWhole);
        DrainEvents();
        CheckColumn(Toasts());
        QCOMPARE(Toasts().last()->isVisible(), true);
    }

    void a_toast_may_die_as_the_first_moves_or_hides_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QEvent::Type>("type");
        QTest::addColumn<int>("victim");
        QTest::newRow("the next one, as it makes room") << 3 << QEvent::Hide << 1;
        QTest::newRow("the last one, as it makes room") << 3 << QEvent::Hide << 2;
        QTest::newRow("the last one, as it moves") << 2 << QEvent::Move << 1;
    }
    void a_toast_may_die_as_the_first_moves_or_hides()
    {
        QFETCH(int, count);
        QFETCH(QEvent::Type, type);
        QFETCH(int, victim);
        QVector<QcToast *> toasts = ShowMany(count);
        Settle();
        QPointer<QcToast> dying(toasts.takeAt(victim));
        const CallAt killer(*toasts[0], type, [&dying] { delete dying; });
        m_manager->setToastStartY(kStart + 10);
        toasts.append(Show(QStringLiteral("new")));
        QVERIFY(!dying);
        if (type == QEvent::Hide)
            toasts.removeFirst();
        CheckColumn(toasts, kStart + 10);
        DrainEvents();
        CheckColumn(toasts, kStart + 10);
    }

    void slots_that_a_host_calls_by_their_names_do_no_harm()
    {
        const QVector<QcToast *> toasts = ShowMany(2);
        QVERIFY(QMetaObject::invokeMethod(m_manager, "onToastDestroyed"));
        QVERIFY(QMetaObject::invokeMethod(m_manager, "onToastHeightChanged"));
        CheckColumn(toasts);
    }

    void links_of_all_toasts_are_told()
    {
        QSignalSpy pressed(m_manager, &QcToastManager::signalAnchorClicked);
        QcToast *toast = Show(QStringLiteral("<a href=\"undo\">Undo</a>"));
        DrainEvents();
        PressLink(*toast);
        QCOMPARE(pressed.count(), 1);
        QCOMPARE(pressed.first().first().toString(), QStringLiteral("undo"));
    }

    void it_is_opaque_and_waits_when_it_has_faded_in_by_itself()
    {
        QcToast *toast = Show(QStringLiteral("Saved"));
        QTRY_VERIFY(TimerOf(*toast)->isActive());
        QCOMPARE(qobject_cast<QGraphicsOpacityEffect *>(toast->graphicsEffect())->opacity(), 1.0);
    }

    void it_goes_by_itself()
    {
        QcToast::Params params;
        params.duration = 20;
        m_manager->showToast(params, m_window.get(), false);
        const QPointer<QcToast> toast(Toasts().last());
        QTRY_VERIFY(!toast);
    }

    // --- Storms ---

    void a_thousand_in_one_turn_leave_three()
    {
        QElapsedTimer clock;
        clock.start();
        const QVector<QcToast *> toasts = ShowMany(1000);
        CheckColumn(toasts.mid(997));
        DrainEvents();
        QCOMPARE(Toasts().size(), 3);
        QVERIFY2(clock.elapsed() < 30000, qPrintable(QString::number(clock.elapsed())));
        CheckColumn(toasts.mid(997));
    }

    void each_of_many_overtaken_toasts_goes_at_the_price_of_each_of_a_few()
    {
        TimeOfGoing(100); // what is made once
        const double few = TimeOfGoing(500) / 500;
        const double many = TimeOfGoing(4000) / 4000;
        QVERIFY2(many < 2 * few, qPrintable(QStringLiteral("%1 times as much").arg(many / few)));
    }

    void a_thousand_ids_leave_three()
    {
        QcToast::Params params;
        for (params.id = 0; params.id < 1000; ++params.id)
            m_manager->showToast(params, m_window.get(), false);
        DrainEvents();
        QCOMPARE(Toasts().size(), 3);
        params.id = 999;
        m_manager->showToast(params, m_window.get(), false);
        QCOMPARE(Toasts().size(), 3);
    }

private:
    /// The processor time in which all but three of \a count toasts of one turn die.
    double TimeOfGoing(int count)
    {
        for (int i = 0; i < count; ++i)
            m_manager->showToast(QString::number(i), QcToast::Information, m_window.get(), false);
        const std::clock_t begin = std::clock();
        DrainEvents();
        const std::clock_t end = std::clock();
        qDeleteAll(Toasts());
        return double(end - begin);
    }

    QVector<QcToast *> Toasts() const { return m_window->findChildren<QcToast *>(QString(), Qt::FindDirectChildrenOnly).toVector(); }

    QcToast *Show(const QString &text)
    {
        m_manager->showToast(text, QcToast::Information, m_window.get(), false);
        return Toasts().last();
    }

    QcToast *ShowPinned(const QString &text)
    {
        QcToast::Params params;
        params.text = text;
        params.removable = false;
        m_manager->showToast(params, m_window.get(), false);
        return Toasts().last();
    }

    QVector<QcToast *> ShowMany(int count)
    {
        QVector<QcToast *> toasts;
        for (int i = 0; i < count; ++i)
            toasts.append(Show(QString::number(i)));
        return toasts;
    }

    /// Ends all that runs.
    void Settle()
    {
        for (QcToast *toast : Toasts()) {
            for (const char *property : {"opacity", "pos"}) {
                QPropertyAnimation *animation = AnimationOf(*toast, property);
                if (animation->state() == QAbstractAnimation::Running)
                    animation->setCurrentTime(animation->duration());
            }
        }
    }

    /// That \a toasts will stand one under the other, in the middle of the window.
    void CheckColumn(const QVector<QcToast *> &toasts, int y = kStart)
    {
        for (const QcToast *toast : toasts) {
            QCOMPARE(EndOf(*toast), QPoint((m_window->width() - toast->width()) / 2, y));
            QVERIFY(toast->isVisible());
            y += toast->height() + kSpacing;
        }
    }

    void CheckAtRest(const QVector<QcToast *> &toasts)
    {
        for (const QcToast *toast : toasts)
            QVERIFY(!IsGliding(*toast));
        CheckColumn(toasts);
    }

    QcToastManager *const m_manager = QcToastManager::getInstance();
    std::unique_ptr<QWidget> m_window;
};

VELMORA_TEST_MAIN(tst_QcToastManager)

#include "tst_QcToastManager.moc"
