#include "TestFiles.h"
#include "support/EventCounter.h"
#include "support/TestMain.h"

#include <Velmora/FileAndDesktop.h>
#include <Velmora/PointerFunctors.h>

#include <QElapsedTimer>
#include <QEvent>
#include <QLabel>
#include <QRegularExpression>
#include <QSignalSpy>

#include <ctime>
#include <memory>
#include <new>
#include <type_traits>

using namespace Velmora;
using VelmoraTest::DrainEvents;
using VelmoraTest::Table;
using VelmoraTest::TablePath;
using VelmoraTest::UseTable;

namespace {

constexpr char kStale[] = "uNeedProcesUpdateColor";
const QString kSheet = QStringLiteral("QWidget { color: ${brand/brand}; }");

QcStyleManager &Manager()
{
    return *QcStyleManager::GetInstance();
}

QString Resolved(const QString &styleSheet)
{
    return Manager().ReplaceStyleSheetColorCodes(styleSheet);
}

/// Loads a table and leaves everything that it causes waiting in the event queue.
void ChangeTable(Table table)
{
    Manager().SetColorFilePath(TablePath(table));
}

void BeBusyForMs(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (!timer.hasExpired(milliseconds)) {
    }
}

/// Tells what happens to it: "<name>:sheet" for each stylesheet set on it while it is visible.
class Witness : public QWidget
{
    Q_OBJECT

public:
    explicit Witness(const QString &name, QStringList *log, QWidget *parent = nullptr)
        : QWidget(parent)
        , m_log(log)
    {
        setObjectName(name);
    }

    std::function<void()> onStale;
    int slowSheetMs = 0;

protected:
    void changeEvent(QEvent *event) override
    {
        if (event->type() == QEvent::StyleChange) {
            BeBusyForMs(slowSheetMs);
            m_log->append(objectName() + QStringLiteral(":sheet"));
        }
        QWidget::changeEvent(event);
    }
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange && property(kStale).toBool() && onStale)
            onStale();
        if (event->type() == QEvent::Show)
            m_log->append(objectName() + QStringLiteral(":show"));
        return QWidget::event(event);
    }

private:
    QStringList *m_log;
};

/// Registers its stylesheet before it is a Late, with a child that is asked for its looks by then.
class Early : public QWidget
{
    Q_OBJECT

public:
    Early()
    {
        QcStyleManager::GetInstance()->RegisterStyleSheet(this, QStringLiteral("QLabel { color: red; } Late QLabel { color: blue; }"));
        m_child.ensurePolished();
        m_colorAtFirst = ChildColor();
    }

    QColor ChildColor() const { return m_child.palette().color(QPalette::WindowText); }
    QColor ColorAtFirst() const { return m_colorAtFirst; }

private:
    QLabel m_child{this};
    QColor m_colorAtFirst;
};

class Late : public Early
{
    Q_OBJECT
};

/// A host's own filter: tells of each Show event, and whether the widget was still marked stale then.
class ShowFilter : public QObject
{
public:
    ShowFilter(const QString &name, QStringList *log)
        : m_name(name)
        , m_log(log)
    {
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show)
            m_log->append(m_name + (watched->property(kStale).toBool() ? QStringLiteral(":stale") : QStringLiteral(":fresh")));
        return false;
    }

private:
    QString m_name;
    QStringList *m_log;
};

} // namespace

class tst_StyleRegistry : public VelmoraTest::TestCase
{
    Q_OBJECT

private:
    QStringList m_log;

    void SetUp() override
    {
        UseTable(Table::Light);
        m_log.clear();
    }

    std::function<void()> Note(const QString &line)
    {
        return [this, line] { m_log.append(line); };
    }

    static void Show(QWidget &widget)
    {
        widget.show();
        DrainEvents();
    }

private Q_SLOTS:
    // --- Registration ---

    void a_stylesheet_is_applied_at_once_even_to_a_hidden_widget()
    {
        QWidget widget;
        Manager().RegisterStyleSheet(&widget, kSheet);
        QCOMPARE(widget.styleSheet(), Resolved(kSheet));
        QVERIFY(!widget.property(kStale).isValid());
    }

    void a_stylesheet_is_applied_once_more_on_the_next_turn()
    {
        QWidget widget;
        Manager().RegisterStyleSheet(&widget, kSheet);
        widget.setStyleSheet(QStringLiteral("QWidget { color: red; }")); // as a later constructor might
        DrainEvents();
        QCOMPARE(widget.styleSheet(), Resolved(kSheet));
        widget.setStyleSheet(QString());
        DrainEvents();
        QCOMPARE(widget.styleSheet(), QString()); // and not again
    }

    void an_equal_stylesheet_is_not_applied_again_but_repaints()
    {
        const QString plain = QStringLiteral("QWidget { color: red; }");
        Witness widget(QStringLiteral("w"), &m_log);
        VelmoraTest::EventCounter paints(widget, QEvent::Paint);
        Manager().RegisterStyleSheet(&widget, plain);
        Show(widget);
        QCOMPARE(m_log.count(QStringLiteral("w:sheet")), 1); // and not once more on the next turn
        m_log.clear();
        paints.Take();
        ChangeTable(Table::Dark);
        DrainEvents();
        QVERIFY(m_log.isEmpty());
        QCOMPARE(paints.Take(), 1);

        // What the host put in its place is replaced all the same.
        widget.setStyleSheet(QStringLiteral("QWidget { color: blue; }"));
        ChangeTable(Table::Light);
        DrainEvents();
        QCOMPARE(widget.styleSheet(), plain);
        QCOMPARE(m_log.count(QStringLiteral("w:sheet")), 2);
    }

    void an_equal_stylesheet_is_applied_again_to_what_has_become_another_class()
    {
        const Late widget;
        QCOMPARE(widget.ColorAtFirst(), QColor(Qt::red)); // no Late was there to match while the base's constructor ran
        DrainEvents();
        QCOMPARE(widget.ChildColor(), QColor(Qt::blue));
    }

    void widgets_with_one_text_take_the_colours_of_each_table()
    {
        QWidget first;
        QWidget second;
        for (QWidget *widget : {&first, &second}) {
            Manager().RegisterStyleSheet(widget, kSheet);
            Show(*widget);
        }
        for (const Table table : {Table::Dark, Table::Light, Table::Dark}) {
            UseTable(table);
            for (const QWidget *widget : {&first, &second})
                QCOMPARE(widget->styleSheet(), Resolved(kSheet));
        }
    }

    void stylesheets_accumulate_in_order_without_separator()
    {
        QWidget widget;
        const QString first = QStringLiteral("QWidget { color: ${brand/bra");
        const QString second = QStringLiteral("nd}; }");
        Manager().RegisterStyleSheet(&widget, QStringLiteral("QLabel { color: red; }"));
        Manager().RegisterStyleSheet(&widget, kSheet);
        QCOMPARE(widget.styleSheet(), QStringLiteral("QLabel { color: red; }") + Resolved(kSheet));
        Show(widget);
        ChangeTable(Table::Dark);
        DrainEvents();
        QCOMPARE(widget.styleSheet(), QStringLiteral("QLabel { color: red; }") + Resolved(kSheet));

        // A code may even be begun by one text and ended by the next: the whole is resolved.
        QWidget other;
        Manager().RegisterStyleSheet(&other, first);
        Manager().RegisterStyleSheet(&other, second);
        QCOMPARE(other.styleSheet(), Resolved(first + second));
        QVERIFY(!other.styleSheet().contains(QLatin1Char('$')));
    }

    void a_handler_runs_at_once_and_once_more_on_the_next_turn()
    {
        QWidget widget;
        Manager().RegisterColorHandler(&widget, Note(QStringLiteral("run")));
        QCOMPARE(m_log, QStringList({QStringLiteral("run")}));
        DrainEvents();
        QCOMPARE(m_log, QStringList({QStringLiteral("run"), QStringLiteral("run")}));
    }

    void a_second_handler_replaces_the_first()
    {
        QWidget widget;
        Manager().RegisterColorHandler(&widget, Note(QStringLiteral("first")));
        Show(widget);
        Manager().RegisterColorHandler(&widget, Note(QStringLiteral("second")));
        DrainEvents();
        m_log.clear();
        ChangeTable(Table::Dark);
        DrainEvents();
        QCOMPARE(m_log, QStringList({QStringLiteral("second")}));
    }

    void of_two_handlers_in_one_turn_the_first_still_has_its_pending_run_and_the_last_stays()
    {
        QWidget widget;
        widget.show();
        Manager().RegisterColorHandler(&widget, Note(QStringLiteral("first")));
        Manager().RegisterColorHandler(&widget, Note(QStringLiteral("second")));
        DrainEvents();
        QCOMPARE(m_log,
                 QStringList({QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("first"), QStringLiteral("second")}));
        m_log.clear();
        ChangeTable(Table::Dark);
        DrainEvents();
        QCOMPARE(m_log, QStringList({QStringLiteral("second")}));
    }

    void null_and_dead_widgets_are_ignored_in_silence()
    {
        QPointer<QWidget> dead = new QWidget;
        delete dead.data();
        for (const QPointer<QWidget> &widget : {QPointer<QWidget>(), dead}) {
            Manager().RegisterStyleSheet(widget, kSheet);
            Manager().RegisterColorHandler(widget, Note(QStringLiteral("run")));
            Manager().RegisterQss(widget, QStringLiteral(":/qss/CheckBox.qss"));
        }
        DrainEvents();
        ChangeTable(Table::Dark);
        DrainEvents();
        QVERIFY(m_log.isEmpty());
    }

    void a_widget_made_after_a_change_starts_with_the_new_table()
    {
        ChangeTable(Table::Dark);
        const QString dark = Resolved(kSheet);
        QWidget widget;
        Manager().RegisterStyleSheet(&widget, kSheet);
        QCOMPARE(widget.styleSheet(), dark);
    }

    // --- Files ---

    void a_file_is_registered_with_its_text()
    {
        const VelmoraTest::TestFiles files;
        QWidget widget;
        Manager().RegisterQss(&widget, files.Write(QStringLiteral("a.qss"), kSheet.toUtf8()));
        QCOMPARE(widget.styleSheet(), Resolved(kSheet));
        Manager().RegisterQss(&widget, QStringLiteral(":/qss/CheckBox.qss"));
        QCOMPARE(widget.styleSheet(), Resolved(kSheet + GetFileContent(QStringLiteral(":/qss/CheckBox.qss"))));
    }

    void a_file_without_text_creates_an_entry_of_an_empty_stylesheet_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("warning");
        const QString missing = QStringLiteral(":/qss/NoSuch.qss");
        QTest::newRow("mask window") << QStringLiteral(":/qss/MaskWindow.qss") << QString();
        QTest::newRow("dock container") << QStringLiteral(":/qss/DockContainer.qss") << QString();
        QTest::newRow("missing") << missing << QStringLiteral("GetFileContent: file not exist: \"%1\"").arg(missing);
        QTest::newRow("folder") << QStringLiteral("/") << QStringLiteral("GetFileContent: file open failed: \"/\"");
    }

    void a_file_without_text_creates_an_entry_of_an_empty_stylesheet()
    {
        QFETCH(QString, path);
        QFETCH(QString, warning);
        if (!warning.isEmpty())
            ExpectWarning(warning);
        QWidget widget;
        widget.setStyleSheet(QStringLiteral("QWidget { color: red; }"));
        Manager().RegisterQss(&widget, path);
        QCOMPARE(widget.styleSheet(), QString());
        // The entry is there: a table change applies it.
        Show(widget);
        widget.setStyleSheet(QStringLiteral("QWidget { color: red; }"));
        ChangeTable(Table::Dark);
        DrainEvents();
        QCOMPARE(widget.styleSheet(), QString());
    }

    void an_unreadable_file_registers_an_empty_text_after_a_warning()
    {
        const VelmoraTest::TestFiles files;
        const QString path = files.Write(QStringLiteral("secret.qss"), "QWidget { color: red; }");
        const VelmoraTest::LockedFile locked(path);
        ExpectWarning(QStringLiteral("GetFileContent: file open failed: \"%1\"").arg(path));
        QWidget widget;
        Manager().RegisterQss(&widget, path);
        QCOMPARE(widget.styleSheet(), QString());
    }

    // --- A change of the table ---

    void stylesheets_go_before_handlers_and_other_receivers_before_both()
    {
        Witness a(QStringLiteral("a"), &m_log);
        Witness b(QStringLiteral("b"), &m_log);
        // Handlers first, so that the order of registration is not what is seen.
        Manager().RegisterColorHandler(&a, Note(QStringLiteral("a:handler")));
        Manager().RegisterColorHandler(&b, Note(QStringLiteral("b:handler")));
        Manager().RegisterStyleSheet(&a, kSheet);
        Manager().RegisterStyleSheet(&b, kSheet);
        Show(a);
        Show(b);
        m_log.clear();

        QObject receiver;
        connect(&Manager(), &QcStyleManager::SignalColorChanged, &receiver, Note(QStringLiteral("host")));
        ChangeTable(Table::Dark);
        QCOMPARE(m_log, QStringList({QStringLiteral("host")})); // the rest waits for the event loop
        QVERIFY(a.styleSheet() != Resolved(kSheet));

        DrainEvents();
        QCOMPARE(m_log,
                 QStringList({QStringLiteral("host"), QStringLiteral("a:sheet"), QStringLiteral("b:sheet"), QStringLiteral("a:handler"),
                              QStringLiteral("b:handler")}));
        QCOMPARE(a.styleSheet(), Resolved(kSheet));
        QCOMPARE(b.styleSheet(), Resolved(kSheet));
    }

    void widgets_are_served_in_the_order_of_their_registration()
    {
        std::vector<std::unique_ptr<Witness>> widgets;
        for (int i = 0; i < 30; ++i)
            widgets.push_back(std::make_unique<Witness>(QString::number(i), &m_log));
        QStringList sheets;
        QStringList handlers;
        for (int i = 0; i < 30; ++i) {
            const int number = i * 7 % 30; // neither that of their making nor of their addresses
            Witness &widget = *widgets[std::size_t(number)];
            Manager().RegisterStyleSheet(&widget, kSheet);
            sheets.append(QStringLiteral("%1:sheet").arg(number));
        }
        for (int i = 0; i < 30; ++i) {
            const int number = i * 11 % 30;
            const QString line = QStringLiteral("%1:handler").arg(number);
            Manager().RegisterColorHandler(widgets[std::size_t(number)].get(), Note(line));
            handlers.append(line);
        }
        for (const auto &widget : widgets)
            Show(*widget);
        m_log.clear();
        ChangeTable(Table::Dark);
        DrainEvents();
        QCOMPARE(m_log, sheets + handlers);
    }

    void a_task_resolves_with_the_table_of_its_turn()
    {
        QWidget widget;
        Manager().RegisterStyleSheet(&widget, kSheet);
        Show(widget);
        const QString light = widget.styleSheet();
        ChangeTable(Table::Dark);
        ChangeTable(Table::Light);
        widget.setStyleSheet(QString());
        DrainEvents();
        QCOMPARE(widget.styleSheet(), light);
    }

    void a_hidden_widget_is_marked_and_catches_up_when_it_is_shown()
    {
        Witness widget(QStringLiteral("w"), &m_log);
        Manager().RegisterStyleSheet(&widget, kSheet);
        Manager().RegisterColorHandler(&widget, Note(QStringLiteral("w:handler")));
        DrainEvents();
        const QString light = widget.styleSheet();
        m_log.clear();

        ChangeTable(Table::Dark);
        DrainEvents();
        QCOMPARE(widget.property(kStale), QVariant(true));
        QCOMPARE(widget.styleSheet(), light);
        QVERIFY(m_log.isEmpty());

        widget.show();
        QCOMPARE(widget.property(kStale), QVariant(false)); // kept, as false
        QVERIFY(widget.dynamicPropertyNames().contains(kStale));
        QCOMPARE(widget.styleSheet(), light); // the task waits for its turn
        QVERIFY(m_log.contains(QStringLiteral("w:show")));
        DrainEvents();
        QCOMPARE(widget.styleSheet(), Resolved(kSheet));
        QVERIFY(widget.styleSheet() != light);
        QVERIFY(m_log.indexOf(QStringLiteral("w:sheet")) < m_log.indexOf(QStringLiteral("w:handler")));
        QCOMPARE(m_log.count(QStringLiteral("w:handler")), 1);
    }

    void showing_it_a_second_time_posts_nothing()
    {
        QWidget widget;
        Manager().RegisterStyleSheet(&widget, kSheet);
        Manager().RegisterColorHandler(&widget, Note(QStringLiteral("run")));
        DrainEvents();
        ChangeTable(Table::Dark);
        Show(widget);
        widget.hide();
        m_log.clear();
        widget.setStyleSheet(QString());
        Show(widget);
        QCOMPARE(widget.styleSheet(), QString());
        QVERIFY(m_log.isEmpty());
    }

    void a_hidden_widget_that_missed_nothing_is_left_alone_when_shown()
    {
        QWidget widget;
        Manager().RegisterStyleSheet(&widget, kSheet);
        Manager().RegisterColorHandler(&widget, Note(QStringLiteral("run")));
        DrainEvents();
        m_log.clear();
        widget.setStyleSheet(QString());
        Show(widget);
        QCOMPARE(widget.styleSheet(), QString());
        QVERIFY(m_log.isEmpty());
    }

    void two_changes_while_hidden_lead_to_one_update()
    {
        QWidget widget;
        Manager().RegisterStyleSheet(&widget, kSheet);
        Manager().RegisterColorHandler(&widget, Note(QStringLiteral("run")));
        DrainEvents();
        m_log.clear();
        ChangeTable(Table::Dark);
        DrainEvents();
        ChangeTable(Table::Light);
        DrainEvents();
        ChangeTable(Table::Dark);
        Show(widget);
        QCOMPARE(m_log, QStringList({QStringLiteral("run")}));
        QCOMPARE(widget.styleSheet(), Resolved(kSheet));
    }

    void a_hidden_widget_with_only_a_handler_runs_it_once_and_gets_no_stylesheet()
    {
        Witness widget(QStringLiteral("w"), &m_log);
        Manager().RegisterColorHandler(&widget, Note(QStringLiteral("run")));
        DrainEvents();
        m_log.clear();
        ChangeTable(Table::Dark);
        DrainEvents();
        QCOMPARE(widget.property(kStale), QVariant(true));
        Show(widget);
        QCOMPARE(widget.property(kStale), QVariant(false));
        QCOMPARE(m_log, QStringList({QStringLiteral("w:show"), QStringLiteral("run")}));
    }

    void a_hidden_widget_with_only_a_stylesheet_catches_up_too()
    {
        QWidget widget;
        Manager().RegisterStyleSheet(&widget, kSheet);
        DrainEvents();
        ChangeTable(Table::Dark);
        DrainEvents();
        Show(widget);
        QCOMPARE(widget.property(kStale), QVariant(false));
        QCOMPARE(widget.styleSheet(), Resolved(kSheet));
    }

    void a_child_of_a_hidden_window_counts_as_hidden()
    {
        QWidget window;
        QWidget child(&window);
        Manager().RegisterColorHandler(&child, Note(QStringLiteral("run")));
        DrainEvents();
        m_log.clear();
        ChangeTable(Table::Dark);
        DrainEvents();
        QCOMPARE(child.property(kStale), QVariant(true));
        Show(window);
        QCOMPARE(m_log, QStringList({QStringLiteral("run")}));
    }

    void the_mark_is_told_by_its_value_and_by_an_entry()
    {
        QWidget stranger; // marked, filtered by nobody
        stranger.setProperty(kStale, true);
        Show(stranger);
        QCOMPARE(stranger.property(kStale), QVariant(true));

        QWidget widget;
        Manager().RegisterColorHandler(&widget, Note(QStringLiteral("run")));
        DrainEvents();
        m_log.clear();
        widget.setProperty(kStale, QStringLiteral("false")); // toBool() of this text is false
        Show(widget);
        QVERIFY(m_log.isEmpty());
        widget.hide();
        widget.setProperty(kStale, 1);
        Show(widget);
        QCOMPARE(m_log, QStringList({QStringLiteral("run")}));
    }

    void a_show_event_goes_on_to_the_widget_and_to_a_hosts_filters()
    {
        ShowFilter before(QStringLiteral("before"), &m_log);
        ShowFilter behind(QStringLiteral("behind"), &m_log);
        Witness widget(QStringLiteral("w"), &m_log);
        widget.installEventFilter(&before);
        Manager().RegisterColorHandler(&widget, [] {});
        widget.installEventFilter(&behind);
        DrainEvents();
        ChangeTable(Table::Dark);
        DrainEvents();
        m_log.clear();
        widget.show();
        // The filter installed last is asked first, hence before the mark is taken back.
        QCOMPARE(m_log, QStringList({QStringLiteral("behind:stale"), QStringLiteral("before:fresh"), QStringLiteral("w:show")}));
    }

    // --- Names of the tasks, as the warning of a slow one tells them ---

    void a_slow_update_is_told_by_its_name()
    {
        Witness widget(QStringLiteral("w"), &m_log);
        const auto slow = [](const QString &name) {
            return QStringLiteral("QcTaskDispatcher::ExecuteTask: %1 elapsed: \\d+").arg(QRegularExpression::escape(name));
        };
        const QString sheet = QStringLiteral("QWidget { color: ${brand/brand}; /* %1 %2 */ }");
        const QString className = QString::fromLatin1(widget.metaObject()->className());
        int handlerMs = 0;
        Manager().RegisterStyleSheet(&widget, sheet);
        Manager().RegisterColorHandler(&widget, [&handlerMs] { BeBusyForMs(handlerMs); });
        Show(widget);
        widget.slowSheetMs = 110;
        handlerMs = 110;

        Log().ExpectMatch(QtWarningMsg,
                          slow(QStringLiteral("QcStyleManager::OnUpdateRegisteredStyleSheets: ") + className + QLatin1Char(' ') + sheet
                               + QStringLiteral(" \n")));
        Log().ExpectMatch(QtWarningMsg, slow(QStringLiteral("QcStyleManager::OnUpdateRegisteredStyleSheets: %1 ").arg(className)));
        ChangeTable(Table::Dark);
        DrainEvents();

        widget.hide();
        ChangeTable(Table::Light);
        DrainEvents();
        Log().ExpectMatch(
            QtWarningMsg,
            slow(QStringLiteral("QcStyleManager::eventFilter: Show ") + className + QLatin1Char(' ') + sheet + QStringLiteral(" \n")));
        Log().ExpectMatch(QtWarningMsg, slow(QStringLiteral("QcStyleManager::eventFilter: Show %1").arg(className)));
        Show(widget);

        // Registration posts tasks without a name.
        Log().ExpectMatch(QtWarningMsg, slow(QString()));
        Log().ExpectMatch(QtWarningMsg, slow(QString()));
        Manager().RegisterStyleSheet(&widget, QString());
        widget.setStyleSheet(QString()); // else there would be nothing to apply
        Manager().RegisterColorHandler(&widget, [] { BeBusyForMs(110); });
        DrainEvents();
    }

    // --- Death ---

    void a_dead_widgets_stylesheet_is_forgotten()
    {
        // The text is shared with the registry's entry for as long as that lives.
        QString sheet = kSheet;
        sheet.detach();
        {
            QWidget widget;
            Manager().RegisterStyleSheet(&widget, sheet);
            QVERIFY(!sheet.isDetached());
        }
        QVERIFY(sheet.isDetached());
    }

    void the_order_of_registration_does_not_matter_for_that()
    {
        QString sheet = kSheet;
        sheet.detach();
        {
            QWidget widget;
            Manager().RegisterColorHandler(&widget, [] {});
            Manager().RegisterStyleSheet(&widget, sheet);
            QVERIFY(!sheet.isDetached());
        }
        QVERIFY(sheet.isDetached());
    }

    void a_dead_widgets_handler_and_its_captures_stay()
    {
        const auto captured = std::make_shared<int>(0);
        const std::weak_ptr<int> watch = captured;
        {
            QWidget widget;
            Manager().RegisterColorHandler(&widget, [kept = captured] { ++*kept; });
        }
        DrainEvents();
        QCOMPARE(*captured, 1); // the run of the next turn was dropped
        QCOMPARE(watch.use_count(), 2L);
        ChangeTable(Table::Dark);
        DrainEvents();
        QCOMPARE(*captured, 1); // and no change reaches it
        QCOMPARE(watch.use_count(), 2L);
    }

    void a_widget_at_the_address_of_a_dead_one_starts_afresh()
    {
        alignas(QWidget) unsigned char place[sizeof(QWidget)];
        auto *first = new (place) QWidget;
        Manager().RegisterStyleSheet(first, QStringLiteral("QLabel { color: red; }"));
        Manager().RegisterColorHandler(first, Note(QStringLiteral("first")));
        first->~QWidget();
        auto *second = new (place) QWidget;
        second->show();
        Manager().RegisterStyleSheet(second, kSheet);
        QCOMPARE(second->styleSheet(), Resolved(kSheet));
        DrainEvents();
        m_log.clear();
        ChangeTable(Table::Dark);
        DrainEvents();
        QVERIFY(m_log.isEmpty());
        Manager().RegisterColorHandler(second, Note(QStringLiteral("second")));
        DrainEvents();
        m_log.clear();
        ChangeTable(Table::Light);
        DrainEvents();
        QCOMPARE(m_log, QStringList({QStringLiteral("second")}));
        second->~QWidget();
    }

    void the_end_of_many_registered_widgets_costs_little_more_than_that_of_plain_ones()
    {
        const auto secondsToDie = [](bool registered) {
            auto window = std::make_unique<QWidget>();
            for (int i = 0; i < 20000; ++i) {
                auto *child = new QWidget(window.get());
                if (registered)
                    Manager().RegisterColorHandler(child, [] {});
            }
            DrainEvents(); // a dying widget searches all posted events
            const std::clock_t before = std::clock();
            window.reset();
            return double(std::clock() - before) / CLOCKS_PER_SEC;
        };
        const double plain = secondsToDie(false);
        const double registered = secondsToDie(true);
        // Far apart, because machines are busy: with a search for each of them they take twenty times as long.
        QVERIFY2(registered < 5 * plain + 0.1, qPrintable(QStringLiteral("%1 s beside %2 s").arg(registered).arg(plain)));
    }

    void a_widget_deleted_between_change_and_turn_is_passed_over()
    {
        auto *widget = new QWidget;
        Manager().RegisterStyleSheet(widget, kSheet);
        Manager().RegisterColorHandler(widget, Note(QStringLiteral("run")));
        Show(*widget);
        m_log.clear();
        ChangeTable(Table::Dark);
        delete widget;
        DrainEvents();
        QVERIFY(m_log.isEmpty());

        auto *fresh = new QWidget;
        Manager().RegisterStyleSheet(fresh, kSheet);
        Manager().RegisterColorHandler(fresh, Note(QStringLiteral("run")));
        delete fresh; // before the second run of its registration
        DrainEvents();
        QCOMPARE(m_log, QStringList({QStringLiteral("run")}));
    }

    // --- Handlers that meddle ---

    void a_handler_may_delete_its_own_widget()
    {
        QPointer<QWidget> atOnce = new QWidget;
        Manager().RegisterColorHandler(atOnce, [atOnce] { delete atOnce.data(); });
        QVERIFY(!atOnce);

        QPointer<QWidget> later = new QWidget;
        bool armed = false;
        Manager().RegisterStyleSheet(later, kSheet);
        Manager().RegisterColorHandler(later, [later, &armed] {
            if (armed)
                delete later.data();
        });
        Show(*later);
        armed = true;
        ChangeTable(Table::Dark);
        DrainEvents();
        QVERIFY(!later);
    }

    void a_handler_may_delete_and_register_others_while_the_table_changes()
    {
        QVector<QPointer<QWidget>> widgets;
        QVector<QWidget *> born;
        bool armed = false;
        for (int i = 0; i < 20; ++i) {
            auto *widget = new QWidget;
            widgets.append(widget);
            Manager().RegisterStyleSheet(widget, kSheet);
            Manager().RegisterColorHandler(widget, [&, i] {
                if (!armed)
                    return;
                delete widgets.at((i + 1) % 20).data();
                auto *child = new QWidget;
                born.append(child);
                Manager().RegisterStyleSheet(child, kSheet);
                Manager().RegisterColorHandler(child, Note(QStringLiteral("born")));
            });
            widget->show();
        }
        DrainEvents();
        armed = true;
        ChangeTable(Table::Dark);
        DrainEvents();
        armed = false;
        QVERIFY(!born.isEmpty());
        for (const QWidget *child : qAsConst(born))
            QCOMPARE(child->styleSheet(), Resolved(kSheet));
        QCOMPARE(m_log.count(QStringLiteral("born")), 2 * born.size());
        qDeleteAll(born);
        for (const QPointer<QWidget> &widget : qAsConst(widgets))
            delete widget.data();
    }

    void a_handler_may_replace_itself()
    {
        QWidget widget;
        bool armed = false;
        const auto kept = std::make_shared<int>(0);
        Manager().RegisterColorHandler(&widget, [&, kept] {
            m_log.append(QStringLiteral("first"));
            if (!armed)
                return;
            Manager().RegisterColorHandler(&widget, Note(QStringLiteral("second")));
            ++*kept; // its own captures are still there
        });
        Show(widget);
        m_log.clear();
        armed = true;
        ChangeTable(Table::Dark);
        DrainEvents();
        QCOMPARE(m_log, QStringList({QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("second")}));
        QCOMPARE(*kept, 1);
        m_log.clear();
        ChangeTable(Table::Light);
        DrainEvents();
        QCOMPARE(m_log, QStringList({QStringLiteral("second")}));
    }

    void a_handler_may_change_the_table_again()
    {
        QWidget a;
        QWidget b;
        bool armed = false;
        Manager().RegisterStyleSheet(&a, kSheet);
        Manager().RegisterStyleSheet(&b, kSheet);
        Manager().RegisterColorHandler(&a, [&armed] {
            if (armed) {
                armed = false;
                ChangeTable(Table::Light);
            }
        });
        Manager().RegisterColorHandler(&b, [&] { m_log.append(Resolved(QStringLiteral("${brand/brand}"))); });
        Show(a);
        Show(b);
        armed = true;
        ChangeTable(Table::Dark);
        DrainEvents();
        QVERIFY(!armed);
        QCOMPARE(a.styleSheet(), Resolved(kSheet));
        QCOMPARE(b.styleSheet(), Resolved(kSheet));
        QCOMPARE(m_log.last(), QStringLiteral("rgba(51, 111, 255, 1)"));
    }

    void a_receiver_of_the_signal_may_change_the_table_again()
    {
        QWidget widget;
        Manager().RegisterStyleSheet(&widget, kSheet);
        Show(widget);
        QObject receiver;
        connect(&Manager(), &QcStyleManager::SignalColorChanged, &receiver, [] { ChangeTable(Table::Light); });
        QSignalSpy changed(&Manager(), &QcStyleManager::SignalColorChanged);
        ChangeTable(Table::Dark);
        QCOMPARE(changed.count(), 2); // the second Light is the current path
        DrainEvents();
        QCOMPARE(widget.styleSheet(), Resolved(kSheet));
        QCOMPARE(Resolved(QStringLiteral("${brand/brand}")), QStringLiteral("rgba(51, 111, 255, 1)"));
    }

    void widgets_may_go_and_come_while_the_hidden_ones_are_marked()
    {
        // Setting the mark runs the host's code in the middle of the walk.
        QVector<QPointer<Witness>> widgets;
        QVector<QWidget *> born;
        int marked = 0;
        for (int i = 0; i < 30; ++i) {
            auto *widget = new Witness(QStringLiteral("w"), &m_log);
            widgets.append(widget);
            Manager().RegisterStyleSheet(widget, kSheet);
            Manager().RegisterColorHandler(widget, [] {});
            widget->onStale = [&, i] {
                ++marked;
                delete widgets.at((i + 1) % 30).data();
                auto *other = new QWidget;
                born.append(other);
                Manager().RegisterStyleSheet(other, kSheet);
                Manager().RegisterColorHandler(other, [] {});
            };
        }
        DrainEvents();
        ChangeTable(Table::Dark);
        DrainEvents();
        QVERIFY(marked > 0);
        for (const QWidget *widget : qAsConst(born))
            QCOMPARE(widget->styleSheet(), Resolved(kSheet));
        qDeleteAll(born);
        for (const QPointer<Witness> &widget : qAsConst(widgets))
            delete widget.data();
    }

    void the_table_may_change_while_a_widget_goes()
    {
        auto *widget = new QWidget;
        // Connected before the registry's own connection, and once more behind it.
        connect(widget, &QObject::destroyed, this, [] { ChangeTable(Table::Dark); });
        Manager().RegisterStyleSheet(widget, kSheet);
        Manager().RegisterColorHandler(widget, Note(QStringLiteral("run")));
        connect(widget, &QObject::destroyed, this, [] { ChangeTable(Table::Light); });
        Show(*widget);
        m_log.clear();
        delete widget;
        DrainEvents();
        QVERIFY(m_log.isEmpty());
    }

    void an_empty_handler_throws_when_it_is_called()
    {
        QWidget widget;
        QVERIFY_EXCEPTION_THROWN(Manager().RegisterColorHandler(&widget, {}), std::bad_function_call);
        // It was stored before it was called, and nothing was posted.
        Show(widget);
        ChangeTable(Table::Dark);
        QVERIFY_EXCEPTION_THROWN(QCoreApplication::sendPostedEvents(qApp, QEvent::MetaCall), std::bad_function_call);
        Manager().RegisterColorHandler(&widget, [] {}); // leaves the registry usable
    }

    void what_a_handler_throws_is_not_caught()
    {
        QWidget widget;
        QVERIFY_EXCEPTION_THROWN(Manager().RegisterColorHandler(&widget, [] { throw 7; }), int);
        Manager().RegisterColorHandler(&widget, [] {});
    }

    // --- The functors ---

    void a_pointer_is_hashed_by_its_address()
    {
        static_assert(std::is_empty<PointerHashFunc>::value && std::is_empty<PointerEqualFunc>::value, "");
        static_assert(std::is_copy_assignable<PointerHashFunc>::value && std::is_move_assignable<PointerHashFunc>::value, "");
        static_assert(std::is_copy_assignable<PointerEqualFunc>::value && std::is_move_assignable<PointerEqualFunc>::value, "");
        const PointerHashFunc hash;
        auto *widget = new QWidget;
        const QPointer<QWidget> pointer = widget;
        const auto value = quint64(quintptr(widget));
        QCOMPARE(quint64(hash(pointer)), ((value >> 31) ^ value) & 0xFFFFFFFFu);
        QVERIFY(hash(pointer) != 0);
        QCOMPARE(hash(QPointer<QWidget>()), std::size_t(0));
        delete widget;
        QCOMPARE(hash(pointer), std::size_t(0));
    }

    void pointers_are_equal_by_what_they_point_to()
    {
        const PointerEqualFunc equal;
        QWidget one;
        auto *two = new QWidget;
        auto *three = new QWidget;
        const QPointer<QWidget> a = &one;
        const QPointer<QWidget> sameAsA = &one;
        const QPointer<QWidget> b = two;
        const QPointer<QWidget> c = three;
        QVERIFY(equal(a, sameAsA));
        QVERIFY(!equal(a, b));
        QVERIFY(!equal(b, c));
        QVERIFY(!equal(a, QPointer<QWidget>()));
        delete two;
        delete three;
        QVERIFY(equal(b, c));
        QVERIFY(equal(b, QPointer<QWidget>()));
        QVERIFY(!equal(a, b));
    }

    void the_default_font_has_its_families_and_size()
    {
        const QFont font = QcStyleManager::GetDefaultFont();
        QCOMPARE(font.family(), QStringLiteral("Microsoft YaHei UI, Segoe UI"));
        QCOMPARE(font.pixelSize(), 14);
    }

    void the_default_font_is_found_by_each_of_its_families_and_else_among_those_of_the_application()
    {
        QFont font = QcStyleManager::GetDefaultFont();
        for (const QString &name : {QStringLiteral("Microsoft YaHei UI"), QStringLiteral("Segoe UI")}) {
            font.setPixelSize(font.pixelSize() + 1); // found anew
            QVERIFY(QFontInfo(font).family() != QStringLiteral("Roboto"));
            font.setPixelSize(font.pixelSize() + 1);
            QFont::insertSubstitution(name, QStringLiteral("Roboto"));
            QCOMPARE(QFontInfo(font).family(), QStringLiteral("Roboto"));
            QFont::removeSubstitutions(name);
        }

        const QFont before = QApplication::font();
        QFont own = before;
        own.setFamilies({QStringLiteral("Open Sans Medium")});
        QApplication::setFont(own);
        const QString found = QFontInfo(QcStyleManager::GetDefaultFont()).family();
        QApplication::setFont(before);
        QVERIFY2(found.startsWith(QStringLiteral("Open Sans")), qPrintable(found));
    }
};

VELMORA_TEST_MAIN(tst_StyleRegistry)
#include "tst_StyleRegistry.moc"
