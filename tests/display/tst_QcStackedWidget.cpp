#include "support/EventCounter.h"
#include "support/TestMain.h"

#include <Velmora/QcStackedWidget.h>

#include <QAccessible>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPointer>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <functional>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// A page whose handlers are the test's.
class Page : public QWidget
{
public:
    using QWidget::QWidget;

    std::function<void()> onShow;
    std::function<void()> onHide;

protected:
    void showEvent(QShowEvent * /*event*/) override
    {
        if (onShow)
            onShow();
    }
    void hideEvent(QHideEvent * /*event*/) override
    {
        if (onHide)
            onHide();
    }
};

/// Runs a function at the first event of a type, instead of the widget's own handler.
class Handler : public QObject
{
public:
    Handler(QWidget &widget, QEvent::Type type, std::function<void()> function)
        : m_type(type)
        , m_function(std::move(function))
    {
        widget.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() != m_type || m_isDone)
            return false;
        m_isDone = true;
        m_function();
        return true;
    }

private:
    const QEvent::Type m_type;
    const std::function<void()> m_function;
    bool m_isDone = false;
};

/// A page with two line edits, which Tab reaches.
struct Form : Page
{
    Form()
        : edit(new QLineEdit)
        , other(new QLineEdit)
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(edit);
        layout->addWidget(other);
    }

    QLineEdit *edit;
    QLineEdit *other;
};

} // namespace

class TestQcStackedWidget : public TestCase
{
    Q_OBJECT

private:
    std::unique_ptr<QWidget> m_window;
    QcStackedWidget *m_stack = nullptr;
    QList<Page *> m_pages;

    void AddPages(int count)
    {
        for (int i = 0; i < count; ++i) {
            m_pages.append(new Page);
            m_stack->addWidget(m_pages.last());
        }
    }

    QList<int> Shown() const
    {
        QList<int> shown;
        for (int i = 0; i < m_pages.size(); ++i) {
            if (!m_pages.at(i)->isHidden())
                shown.append(i);
        }
        return shown;
    }

    template <typename Function>
    static QStringList Told(QcStackedWidget *stack, const Function &function)
    {
        QStringList told;
        const QMetaObject::Connection changed = connect(stack, &QcStackedWidget::currentChanged, stack,
                                                        [&told](int index) { told.append(QStringLiteral("changed %1").arg(index)); });
        const QMetaObject::Connection removed = connect(stack, &QcStackedWidget::widgetRemoved, stack,
                                                        [&told](int index) { told.append(QStringLiteral("removed %1").arg(index)); });
        function();
        disconnect(changed);
        disconnect(removed);
        return told;
    }

protected:
    void SetUp() override
    {
        m_window = std::make_unique<QWidget>();
        m_window->resize(400, 300);
        m_stack = new QcStackedWidget(m_window.get());
        m_stack->setGeometry(10, 10, 300, 200);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void TearDown() override
    {
        m_window.reset();
        m_pages.clear();
    }

private Q_SLOTS:
    // --- Adding ---

    void a_page_can_be_added_by_name()
    {
        auto *page = new QWidget;
        QVERIFY(QMetaObject::invokeMethod(m_stack, "addWidget", Q_ARG(QWidget *, page)));
        QCOMPARE(m_stack->currentWidget(), page);
    }

    void an_empty_stack_has_no_current_page()
    {
        QCOMPARE(m_stack->count(), 0);
        QCOMPARE(m_stack->currentIndex(), -1);
        QCOMPARE(m_stack->currentWidget(), nullptr);
        QCOMPARE(m_stack->widget(0), nullptr);
        QCOMPARE(m_stack->widget(-1), nullptr);
        QCOMPARE(m_stack->indexOf(nullptr), -1);
        m_stack->resize(100, 100);
    }

    void the_first_page_shows_in_full_without_a_signal()
    {
        const QStringList told = Told(m_stack, [this] { AddPages(2); });
        QCOMPARE(told, QStringList());
        QCOMPARE(m_stack->currentIndex(), 0);
        QCOMPARE(m_stack->currentWidget(), m_pages.at(0));
        QCOMPARE(Shown(), QList<int>{0});
        QCOMPARE(m_pages.at(0)->geometry(), QRect(0, 0, 300, 200));
        QCOMPARE(m_pages.at(1)->parentWidget(), m_stack);
    }

    void adding_gives_the_indices_in_turn()
    {
        for (int i = 0; i < 3; ++i)
            QCOMPARE(m_stack->addWidget(new QWidget), i);
        QCOMPARE(m_stack->count(), 3);
    }

    void a_page_covers_the_frame_too()
    {
        m_stack->setFrameStyle(QFrame::Box);
        m_stack->setLineWidth(4);
        AddPages(1);
        QCOMPARE(m_pages.at(0)->geometry(), m_stack->rect());
    }

    void insertion_out_of_range_is_brought_into_it()
    {
        AddPages(2);
        auto *first = new QWidget;
        auto *last = new QWidget;
        QCOMPARE(m_stack->insertWidget(-5, first), 0);
        QCOMPARE(m_stack->insertWidget(100, last), 3);
        QCOMPARE(m_stack->indexOf(first), 0);
        QCOMPARE(m_stack->indexOf(last), 3);
        QVERIFY(first->isHidden());
        QVERIFY(last->isHidden());
    }

    void the_first_inserted_page_shows()
    {
        auto *page = new QWidget;
        QCOMPARE(m_stack->insertWidget(7, page), 0);
        QCOMPARE(m_stack->currentWidget(), page);
        QVERIFY(page->isVisible());
        QCOMPARE(page->geometry(), m_stack->rect());
    }

    void an_insertion_before_the_current_page_leaves_the_number_and_what_shows()
    {
        AddPages(2);
        auto *inserted = new QWidget;
        QCOMPARE(Told(m_stack, [&] { m_stack->insertWidget(0, inserted); }), QStringList());
        QCOMPARE(m_stack->currentIndex(), 0);
        QCOMPARE(m_stack->currentWidget(), inserted);
        QVERIFY(inserted->isHidden());
        QVERIFY(m_pages.at(0)->isVisible());
    }

    void null_the_stack_and_what_it_lies_in_are_refused()
    {
        AddPages(1);
        auto *child = new QWidget(m_pages.at(0));
        auto *inner = new QcStackedWidget(child);
        for (QWidget *widget :
             {static_cast<QWidget *>(nullptr), static_cast<QWidget *>(inner), child, static_cast<QWidget *>(m_stack), m_window.get()}) {
            QCOMPARE(inner->addWidget(widget), -1);
            QCOMPARE(inner->insertWidget(0, widget), -1);
        }
        QCOMPARE(inner->count(), 0);
        QCOMPARE(child->parentWidget(), m_pages.at(0));
        QCOMPARE(m_stack->parentWidget(), m_window.get());
    }

    void a_stack_that_is_a_window_refuses_the_window_it_belongs_to()
    {
        auto *window = new QcStackedWidget(m_window.get());
        window->setWindowFlag(Qt::Window);
        QCOMPARE(window->addWidget(m_window.get()), -1);
    }

    void a_page_added_again_stays_where_it_is()
    {
        AddPages(3);
        m_stack->setCurrentIndex(1);
        const QStringList told = Told(m_stack, [this] {
            QCOMPARE(m_stack->addWidget(m_pages.at(1)), 1);
            QCOMPARE(m_stack->insertWidget(0, m_pages.at(2)), 2);
        });
        QCOMPARE(told, QStringList());
        QCOMPARE(m_stack->count(), 3);
        QCOMPARE(Shown(), QList<int>{1});
    }

    void a_page_of_another_stack_leaves_that_one()
    {
        QcStackedWidget other;
        auto *page = new QWidget;
        other.addWidget(page);
        const QStringList told = Told(&other, [&] { m_stack->addWidget(page); });
        QCOMPARE(told, QStringList{QStringLiteral("removed 0")});
        QCOMPARE(other.currentIndex(), -1);
        QCOMPARE(m_stack->currentWidget(), page);
    }

    void a_page_that_goes_while_it_is_handed_over_is_not_added_data()
    {
        QTest::addColumn<bool>("dies");
        QTest::newRow("dies") << true;
        QTest::newRow("gets another parent") << false;
    }

    void a_page_that_goes_while_it_is_handed_over_is_not_added()
    {
        QFETCH(bool, dies);
        auto *page = new QWidget;
        Handler onHiding(*page, QEvent::HideToParent, [this, page, dies] {
            if (dies)
                delete page;
            else
                page->setParent(m_window.get());
        });
        QCOMPARE(m_stack->addWidget(page), -1);
        QCOMPARE(m_stack->count(), 0);
        QCOMPARE(m_stack->currentIndex(), -1);
    }

    void the_stack_may_be_deleted_while_a_page_is_handed_over()
    {
        auto page = std::make_unique<QWidget>();
        Handler onHiding(*page, QEvent::HideToParent, [this, &page] {
            page->setParent(nullptr);
            delete m_stack;
        });
        QCOMPARE(m_stack->addWidget(page.get()), -1);
    }

    // --- Choosing ---

    void another_index_shows_its_page_alone_and_says_so()
    {
        AddPages(3);
        QCOMPARE(Told(m_stack, [this] { m_stack->setCurrentIndex(2); }), QStringList{QStringLiteral("changed 2")});
        QCOMPARE(Shown(), QList<int>{2});
        QCOMPARE(m_pages.at(2)->geometry(), m_stack->rect());
        QCOMPARE(Told(m_stack, [this] { m_stack->setCurrentWidget(m_pages.at(1)); }), QStringList{QStringLiteral("changed 1")});
        QCOMPARE(Shown(), QList<int>{1});
    }

    void the_current_index_and_those_out_of_range_do_nothing()
    {
        AddPages(2);
        QWidget stranger;
        const QStringList told = Told(m_stack, [&] {
            for (const int index : {0, -1, 2, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
                m_stack->setCurrentIndex(index);
            m_stack->setCurrentWidget(m_pages.at(0));
            m_stack->setCurrentWidget(&stranger);
            m_stack->setCurrentWidget(nullptr);
        });
        QCOMPARE(told, QStringList());
        QCOMPARE(Shown(), QList<int>{0});
    }

    void the_old_page_hides_before_the_next_shows_and_the_index_changes_last()
    {
        AddPages(2);
        QStringList order;
        const auto note = [this, &order](const char *what) {
            order.append(QStringLiteral("%1 at %2").arg(QLatin1String(what)).arg(m_stack->currentIndex()));
        };
        m_pages.at(0)->onHide = [&] { note("hide"); };
        m_pages.at(1)->onShow = [&] { note("show"); };
        connect(m_stack, &QcStackedWidget::currentChanged, m_stack, [&] { note("changed"); });
        m_stack->setCurrentIndex(1);
        QCOMPARE(order, QStringList({QStringLiteral("hide at 0"), QStringLiteral("show at 0"), QStringLiteral("changed at 1")}));
        m_pages.at(1)->onHide = nullptr;
    }

    void a_hidden_page_keeps_its_size_until_it_is_chosen()
    {
        AddPages(2);
        m_pages.at(1)->resize(50, 40);
        EventCounter resizes(*m_pages.at(1), QEvent::Resize);
        m_stack->resize(200, 150);
        QCOMPARE(m_pages.at(0)->geometry(), QRect(0, 0, 200, 150));
        QCOMPARE(m_pages.at(1)->size(), QSize(50, 40));
        QCOMPARE(resizes.Take(), 0);
        m_stack->setCurrentIndex(1);
        QCOMPARE(m_pages.at(1)->geometry(), QRect(0, 0, 200, 150));
    }

    void pages_do_not_make_the_stack_larger()
    {
        const QSize before = m_stack->sizeHint();
        AddPages(1);
        m_pages.at(0)->setMinimumSize(5000, 5000);
        QCOMPARE(m_stack->sizeHint(), before);
        QCOMPARE(m_stack->minimumSizeHint(), QcStackedWidget().minimumSizeHint());
        QCOMPARE(m_stack->size(), QSize(300, 200));
        QVERIFY(!m_stack->layout());
    }

    void ten_thousand_pages_are_no_burden()
    {
        QElapsedTimer timer;
        timer.start();
        AddPages(10000);
        m_stack->setCurrentIndex(9999);
        m_stack->resize(100, 100);
        QCOMPARE(m_stack->currentWidget()->size(), QSize(100, 100));
        QCOMPARE(m_stack->count(), 10000);
        delete m_stack;
        QVERIFY2(timer.elapsed() < 10000, qPrintable(QString::number(timer.elapsed())));
    }

    // --- Removing ---

    void a_stranger_is_not_removed()
    {
        AddPages(1);
        auto *child = new QWidget(m_stack);
        QCOMPARE(Told(m_stack,
                      [&] {
                          QCOMPARE(m_stack->removeWidget(child), -1);
                          QCOMPARE(m_stack->removeWidget(nullptr), -1);
                          delete child;
                      }),
                 QStringList());
    }

    void removing_the_only_page_leaves_none_current_and_says_so()
    {
        AddPages(1);
        QSignalSpy removed(m_stack, &QcStackedWidget::widgetRemoved);
        QCOMPARE(Told(m_stack, [this] { QCOMPARE(m_stack->removeWidget(m_pages.at(0)), 0); }), QStringList{QStringLiteral("removed 0")});
        QCOMPARE(removed.first().at(1).value<QWidget *>(), m_pages.at(0));
        QCOMPARE(m_stack->currentIndex(), -1);
        QCOMPARE(m_stack->currentWidget(), nullptr);
    }

    void a_removed_page_stays_on_the_screen_and_a_child()
    {
        AddPages(1);
        m_stack->removeWidget(m_pages.at(0));
        QVERIFY(m_pages.at(0)->isVisible());
        QCOMPARE(m_pages.at(0)->parentWidget(), m_stack);
        m_stack->resize(80, 80);
        QCOMPARE(m_pages.at(0)->size(), QSize(300, 200));
        QCOMPARE(Told(m_stack, [this] { delete m_pages.at(0); }), QStringList()); // it had left before
        m_pages.clear();
    }

    void removing_the_current_page_chooses_the_first_before_it_is_told()
    {
        AddPages(4);
        m_stack->setCurrentIndex(2);
        QCOMPARE(Told(m_stack, [this] { QCOMPARE(m_stack->removeWidget(m_pages.at(2)), 2); }),
                 QStringList({QStringLiteral("changed 0"), QStringLiteral("removed 2")}));
        QCOMPARE(m_stack->currentIndex(), 0);
        QCOMPARE(Shown(), QList<int>({0, 2}));
    }

    void removing_the_last_one_while_it_is_current_chooses_the_first()
    {
        AddPages(2);
        m_stack->setCurrentIndex(1);
        QCOMPARE(Told(m_stack, [this] { m_stack->removeWidget(m_pages.at(1)); }),
                 QStringList({QStringLiteral("changed 0"), QStringLiteral("removed 1")}));
        QVERIFY(m_pages.at(0)->isVisible());
    }

    void removing_the_current_page_at_0_leaves_the_next_hidden_until_the_next_change()
    {
        AddPages(3);
        QCOMPARE(Told(m_stack, [this] { m_stack->removeWidget(m_pages.at(0)); }), QStringList{QStringLiteral("removed 0")});
        QCOMPARE(m_stack->currentWidget(), m_pages.at(1));
        QVERIFY(m_pages.at(1)->isHidden());
        m_stack->setCurrentIndex(1);
        m_stack->setCurrentIndex(0);
        QVERIFY(m_pages.at(1)->isVisible());
    }

    void removing_a_page_before_the_current_one_only_changes_the_number()
    {
        AddPages(3);
        m_stack->setCurrentIndex(2);
        QCOMPARE(Told(m_stack, [this] { m_stack->removeWidget(m_pages.at(0)); }), QStringList{QStringLiteral("removed 0")});
        QCOMPARE(m_stack->currentIndex(), 1);
        QCOMPARE(m_stack->currentWidget(), m_pages.at(2));
        QCOMPARE(Told(m_stack, [this] { m_stack->setCurrentWidget(m_pages.at(2)); }), QStringList());
    }

    void removing_a_page_behind_the_current_one_changes_no_number()
    {
        AddPages(3);
        QCOMPARE(Told(m_stack, [this] { m_stack->removeWidget(m_pages.at(2)); }), QStringList{QStringLiteral("removed 2")});
        QCOMPARE(m_stack->currentIndex(), 0);
    }

    void a_removed_page_can_come_back()
    {
        AddPages(2);
        m_stack->removeWidget(m_pages.at(0));
        QCOMPARE(m_stack->addWidget(m_pages.at(0)), 1);
        QVERIFY(m_pages.at(0)->isHidden());
    }

    // --- Pages that go by themselves ---

    void a_page_that_dies_leaves_by_the_same_rules()
    {
        AddPages(4);
        m_stack->setCurrentIndex(2);
        const QWidget *removed = nullptr;
        connect(m_stack, &QcStackedWidget::widgetRemoved, this, [&removed](int /*index*/, QWidget *page) { removed = page; });
        QWidget *const dead = m_pages.takeAt(2);
        QCOMPARE(Told(m_stack, [dead] { delete dead; }), QStringList({QStringLiteral("changed 0"), QStringLiteral("removed 2")}));
        QCOMPARE(removed, dead);
        QCOMPARE(m_stack->count(), 3);
        QCOMPARE(Shown(), QList<int>{0});
        m_stack->resize(150, 150); // the dead page is not looked for
    }

    void a_page_given_another_parent_leaves_by_the_same_rules()
    {
        AddPages(3);
        m_stack->setCurrentIndex(1);
        QCOMPARE(Told(m_stack, [this] { m_pages.at(0)->setParent(m_window.get()); }), QStringList{QStringLiteral("removed 0")});
        QCOMPARE(m_stack->currentIndex(), 0);
        QCOMPARE(m_stack->currentWidget(), m_pages.at(1));
        m_stack->resize(150, 150);
        QCOMPARE(m_pages.at(1)->size(), QSize(150, 150));
    }

    void the_only_page_may_die()
    {
        AddPages(1);
        delete m_pages.takeFirst();
        QCOMPARE(m_stack->currentIndex(), -1);
        m_stack->resize(150, 150);
    }

    void a_stack_that_dies_says_nothing()
    {
        AddPages(3);
        QSignalSpy changed(m_stack, &QcStackedWidget::currentChanged);
        QSignalSpy removed(m_stack, &QcStackedWidget::widgetRemoved);
        delete m_stack;
        QCOMPARE(changed.count() + removed.count(), 0);
    }

    // --- Handlers of the host ---

    void the_stack_may_be_deleted_when_it_says_which_page_is_current()
    {
        AddPages(3);
        m_stack->setCurrentIndex(2);
        connect(m_stack, &QcStackedWidget::currentChanged, this, [this] { delete m_stack; });
        m_stack->removeWidget(m_pages.at(2)); // widgetRemoved() would follow
    }

    void the_stack_may_be_deleted_when_it_says_what_was_removed()
    {
        AddPages(2);
        connect(m_stack, &QcStackedWidget::widgetRemoved, this, [this] { delete m_stack; });
        m_stack->removeWidget(m_pages.at(1));
    }

    void a_dying_page_may_take_the_stack_along()
    {
        AddPages(2);
        m_stack->setCurrentIndex(1);
        QPointer<QcStackedWidget> stack = m_stack;
        connect(m_stack, &QcStackedWidget::currentChanged, this, [this] { delete m_stack; });
        delete m_pages.takeAt(1);
        QVERIFY(!stack);
    }

    void a_handler_may_choose_another_page()
    {
        AddPages(3);
        connect(m_stack, &QcStackedWidget::currentChanged, m_stack, [this](int index) {
            if (index == 1)
                m_stack->setCurrentIndex(2);
        });
        m_stack->setCurrentIndex(1);
        QCOMPARE(m_stack->currentIndex(), 2);
        QCOMPARE(Shown(), QList<int>{2});
    }

    void the_page_chosen_while_another_hides_or_shows_holds_data()
    {
        QTest::addColumn<bool>("hides");
        QTest::newRow("hides") << true;
        QTest::newRow("shows") << false;
    }

    void the_page_chosen_while_another_hides_or_shows_holds()
    {
        QFETCH(bool, hides);
        AddPages(3);
        const auto choose = [this] { m_stack->setCurrentIndex(2); };
        (hides ? m_pages.at(0)->onHide : m_pages.at(1)->onShow) = choose;
        QCOMPARE(Told(m_stack, [this] { m_stack->setCurrentIndex(1); }), QStringList{QStringLiteral("changed 2")});
        QCOMPARE(m_stack->currentIndex(), 2);
        QCOMPARE(Shown(), QList<int>{2});
        m_pages.at(0)->onHide = nullptr;
    }

    void the_asked_page_may_die_while_the_old_one_hides()
    {
        AddPages(2);
        m_pages.at(0)->onHide = [this] { delete m_pages.at(1); };
        m_stack->setCurrentIndex(1);
        m_pages.at(0)->onHide = nullptr;
        m_pages.removeAt(1);
        QCOMPARE(m_stack->currentWidget(), m_pages.at(0));
        QVERIFY(m_pages.at(0)->isVisible());
    }

    void the_asked_page_may_leave_while_it_shows()
    {
        AddPages(2);
        m_pages.at(1)->onShow = [this] { m_stack->removeWidget(m_pages.at(1)); };
        m_stack->setCurrentIndex(1);
        QCOMPARE(m_stack->currentWidget(), m_pages.at(0));
        QVERIFY(m_pages.at(0)->isVisible());
        QVERIFY(m_pages.at(1)->isVisible()); // as removal leaves it
    }

    void a_page_may_remove_itself_when_it_hides()
    {
        AddPages(3);
        m_stack->setCurrentIndex(1);
        m_pages.at(1)->onHide = [this] { m_stack->removeWidget(m_pages.at(1)); };
        m_stack->setCurrentIndex(2);
        m_pages.at(1)->onHide = nullptr;
        QCOMPARE(m_stack->count(), 2);
        QCOMPARE(Shown(), QList<int>{int(m_pages.indexOf(static_cast<Page *>(m_stack->currentWidget())))});
    }

    void the_stack_may_be_deleted_while_pages_change()
    {
        AddPages(2);
        QPointer<QcStackedWidget> stack = m_stack;
        // Qt itself works on with a page whose event this is; the stack lets it out first.
        m_pages.at(0)->onHide = [this] {
            m_pages.at(0)->setParent(nullptr);
            delete m_stack;
        };
        m_stack->setCurrentIndex(1);
        QVERIFY(!stack);
        m_pages.at(0)->onHide = nullptr;
        delete m_pages.at(0);
    }

    // --- Keyboard ---

    void the_keyboard_moves_to_the_next_page_and_to_no_widget_outside()
    {
        auto *outside = new QLineEdit(m_window.get());
        outside->show();
        auto *one = new Form;
        auto *two = new Form;
        m_stack->addWidget(one);
        m_stack->addWidget(two);
        one->other->setFocus();
        QVERIFY(one->other->hasFocus());
        EventCounter visits(*outside, QEvent::FocusIn);
        m_stack->setCurrentIndex(1);
        QVERIFY(two->edit->hasFocus()); // the first stop
        two->other->setFocus();
        m_stack->setCurrentIndex(0);
        QVERIFY(one->other->hasFocus()); // where it was last
        m_stack->setCurrentIndex(1);
        QVERIFY(two->other->hasFocus());
        QCOMPARE(visits.Take(), 0);
    }

    void a_stop_that_is_hidden_or_disabled_is_passed_over()
    {
        auto *one = new Form;
        auto *two = new Form;
        m_stack->addWidget(one);
        m_stack->addWidget(two);
        two->edit->setEnabled(false);
        one->edit->setFocus();
        m_stack->setCurrentIndex(1);
        QVERIFY(two->other->hasFocus());
    }

    void who_had_the_keyboard_last_is_passed_over_once_hidden_or_disabled_data()
    {
        QTest::addColumn<bool>("isHidden");
        QTest::newRow("hidden") << true;
        QTest::newRow("disabled") << false;
    }

    void who_had_the_keyboard_last_is_passed_over_once_hidden_or_disabled()
    {
        QFETCH(const bool, isHidden);
        auto *one = new Form;
        auto *two = new Form;
        m_stack->addWidget(one);
        m_stack->addWidget(two);
        one->edit->setFocus();
        m_stack->setCurrentIndex(1);
        two->edit->setFocus();
        m_stack->setCurrentIndex(0);
        isHidden ? two->edit->hide() : two->edit->setEnabled(false);
        m_stack->setCurrentIndex(1);
        QVERIFY(two->other->hasFocus());
    }

    void a_page_without_a_stop_holds_the_keyboard_itself()
    {
        auto *one = new Form;
        auto *empty = new Page;
        m_stack->addWidget(one);
        m_stack->addWidget(empty);
        one->edit->setFocus();
        m_stack->setCurrentIndex(1);
        QVERIFY(empty->hasFocus());
        m_stack->setCurrentIndex(0);
        QVERIFY(one->edit->hasFocus());
    }

    void a_keyboard_outside_stays_there()
    {
        auto *outside = new QLineEdit(m_window.get());
        outside->show();
        m_stack->addWidget(new Form);
        m_stack->addWidget(new Form);
        outside->setFocus();
        m_stack->setCurrentIndex(1);
        QVERIFY(outside->hasFocus());
    }

    void a_keyboard_on_the_old_page_follows_the_page_that_holds()
    {
        auto *one = new Form;
        auto *two = new Form;
        auto *three = new Form;
        for (Form *form : {one, two, three})
            m_stack->addWidget(form);
        one->edit->setFocus();
        two->onShow = [this] { m_stack->setCurrentIndex(2); };
        m_stack->setCurrentIndex(1);
        QVERIFY(three->edit->hasFocus());
    }

    void the_keyboard_stays_if_the_asked_page_goes_when_it_moves()
    {
        auto *one = new Form;
        m_stack->addWidget(one);
        m_stack->addWidget(new Form);
        one->edit->setFocus();
        connect(qApp, &QApplication::focusChanged, m_stack, [this] { m_stack->removeWidget(m_stack->widget(1)); });
        m_stack->setCurrentIndex(1);
        QCOMPARE(m_stack->currentIndex(), 0);
        QVERIFY(one->isVisible());
        QVERIFY(one->edit->hasFocus());
    }

    // --- Assistive technology ---

    void assistive_technology_sees_a_pane_with_the_current_page_alone()
    {
        QAccessibleInterface *described = QAccessible::queryAccessibleInterface(m_stack);
        QVERIFY(described);
        QCOMPARE(described->role(), QAccessible::LayeredPane);
        QCOMPARE(described->childCount(), 0);
        QCOMPARE(described->child(0), nullptr);
        AddPages(3);
        m_stack->setCurrentIndex(1);
        QCOMPARE(described->childCount(), 1);
        QCOMPARE(described->child(0)->object(), m_pages.at(1));
        QCOMPARE(described->child(1), nullptr);
        QCOMPARE(described->child(-1), nullptr);
        QCOMPARE(described->indexOfChild(described->child(0)), 0);
        QCOMPARE(described->indexOfChild(QAccessible::queryAccessibleInterface(m_pages.at(0))), -1);
        QCOMPARE(described->indexOfChild(nullptr), -1);
        const QPoint centre = m_stack->mapToGlobal(m_stack->rect().center());
        QCOMPARE(described->childAt(centre.x(), centre.y())->object(), m_pages.at(1));
    }
};

VELMORA_TEST_MAIN(TestQcStackedWidget)

#include "tst_QcStackedWidget.moc"
