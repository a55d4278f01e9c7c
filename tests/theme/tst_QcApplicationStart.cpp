// From the load of the library to a second Initialize(). The test makes the application objects itself.

#include "support/CommandLine.h"
#include "support/FontLines.h"
#include "support/TestMain.h"

#include <QFile>
#include <QMouseEvent>
#include <QToolTip>
#include <QWindow>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// Counts what its filter sees.
class WatchedApplication : public QcApplication
{
public:
    WatchedApplication()
        : QcApplication(commandLine.count, commandLine.values)
    {
    }

    int filtered = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        ++filtered;
        return QcApplication::eventFilter(watched, event);
    }
};

/// Notes that the stylesheet of the application reached it.
class StyledWidget : public QWidget
{
public:
    int styleChanges = 0;

protected:
    void changeEvent(QEvent *event) override
    {
        if (event->type() == QEvent::StyleChange)
            ++styleChanges;
    }
};

/// How often one event passes the filter of \a application.
int FilteredBy(WatchedApplication &application)
{
    application.filtered = 0;
    QObject object;
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&object, &event);
    return application.filtered;
}

QString GlobalStyleSheet()
{
    QFile file(QStringLiteral(":/qss/Global.qss"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

class tst_QcApplicationStart : public TestCase
{
    Q_OBJECT

private:
    void InitializeQuietly(QcApplication &application)
    {
        ExpectFontLines(Log());
        application.Initialize();
    }

private Q_SLOTS:
    void resources_are_there_before_any_application_object()
    {
        QVERIFY(!QCoreApplication::instance());
        QVERIFY(QcStyleManager::GetInstance()); // keeps the library linked
        for (const char *path : {":/colors/blue_light.ini", ":/fonts/Roboto-Bold.ttf", ":/images/close.svg", ":/qss/Global.qss"})
            QVERIFY2(QFile::exists(QString::fromLatin1(path)), path);
    }

    void a_new_application_watches_nothing()
    {
        WatchedApplication application;
        QCOMPARE(FilteredBy(application), 0);
    }

    void a_press_before_initialize_activates_nothing()
    {
        WatchedApplication application;
        QWidget first;
        QWidget second;
        first.show();
        second.show();
        second.activateWindow();
        QTRY_VERIFY(second.isActiveWindow());
        QMouseEvent event(QEvent::MouseButtonPress, QPointF(5, 5), QCursor::pos(), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&first, &event);
        DrainEvents();
        QVERIFY(second.isActiveWindow());
    }

    void the_debug_tip_is_off_at_first()
    {
        WatchedApplication application;
        UseTable(Table::Light);
        InitializeQuietly(application);
        QWidget window;
        window.setGeometry(50, 50, 100, 100);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QCursor::setPos(100, 100);
        QCOMPARE(QApplication::widgetAt(QCursor::pos()), &window);
        QTest::keyClick(window.windowHandle(), Qt::Key_F1, Qt::ShiftModifier);
        QVERIFY(!QToolTip::isVisible());
    }

    void the_filter_comes_after_fonts_and_stylesheet()
    {
        WatchedApplication application;
        UseTable(Table::Light);
        StyledWidget widget;
        widget.show();
        DrainEvents();
        widget.styleChanges = 0;
        InitializeQuietly(application);
        QVERIFY(widget.styleChanges > 0); // the application's stylesheet was set, and told to the widget
        QCOMPARE(application.filtered, 0);
        QCOMPARE(FilteredBy(application), 1);
    }

    void the_fonts_are_logged_in_their_order()
    {
        WatchedApplication application;
        UseTable(Table::Light);
        InitializeQuietly(application);
        const QStringList lines = Log().Announced();
        QCOMPARE(lines.size(), 3);
        QCOMPARE(lines.at(0), QStringLiteral("QcStyleManager::LoadFont"));
        QVERIFY(lines.at(1).contains(QLatin1String("Roboto")));
        QVERIFY(lines.at(2).contains(QLatin1String("Open Sans")));
    }

    void a_second_initialize_repeats_all_but_the_filter_and_the_global_stylesheet()
    {
        WatchedApplication application;
        application.setStyleSheet(QString()); // Qt hands it on from one application object to the next
        UseTable(Table::Light);
        InitializeQuietly(application);
        QVERIFY(!GlobalStyleSheet().isEmpty());
        QCOMPARE(application.styleSheet(), GlobalStyleSheet());

        QWidget widget;
        int handlerRuns = 0;
        QcStyleManager::GetInstance()->RegisterColorHandler(&widget, [&handlerRuns] { ++handlerRuns; });
        widget.show();
        DrainEvents();
        handlerRuns = 0;
        UseTable(Table::Dark);
        QCOMPARE(handlerRuns, 1);

        InitializeQuietly(application);
        QCOMPARE(application.styleSheet(), GlobalStyleSheet());
        handlerRuns = 0;
        UseTable(Table::Light);
        QCOMPARE(handlerRuns, 2);
        QCOMPARE(FilteredBy(application), 1);
    }

    void a_second_initialize_resolves_what_the_host_set_meanwhile()
    {
        WatchedApplication application;
        UseTable(Table::Light);
        InitializeQuietly(application);
        application.setStyleSheet(QStringLiteral("QLabel { color: ${brand/brand}; }"));
        InitializeQuietly(application);
        const QString resolved =
            QcStyleManager::GetInstance()->ReplaceStyleSheetColorCodes(QStringLiteral("QLabel { color: ${brand/brand}; }"));
        QCOMPARE(application.styleSheet(), resolved + GlobalStyleSheet());
        application.setStyleSheet(QString());
    }

    void each_application_of_a_process_has_one_global_stylesheet_and_one_run_a_change()
    {
        for (int life = 0; life < 3; ++life) {
            WatchedApplication application;
            UseTable(Table::Light);
            InitializeQuietly(application);
            QCOMPARE(application.styleSheet(), GlobalStyleSheet());
            QWidget widget;
            int handlerRuns = 0;
            QcStyleManager::GetInstance()->RegisterColorHandler(&widget, [&handlerRuns] { ++handlerRuns; });
            widget.show();
            DrainEvents();
            handlerRuns = 0;
            UseTable(Table::Dark);
            QCOMPARE(handlerRuns, 1);
        }
    }
};

VELMORA_BARE_TEST_MAIN(tst_QcApplicationStart)
#include "tst_QcApplicationStart.moc"
