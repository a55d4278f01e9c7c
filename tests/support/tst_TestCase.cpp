// The fixture that all tests rely on, tested: what it must blame fails the test, and what it must not blame passes.
#include "support/TestCase.h"

#include <QApplication>
#include <QWidget>

#include <cstdio>
#include <functional>
#include <thread>

using namespace VelmoraTest;

class Scenario : public TestCase
{
    Q_OBJECT

public:
    explicit Scenario(std::function<void(Scenario &)> body)
        : m_body(std::move(body))
    {
    }

    using TestCase::ExpectWarning;
    using TestCase::Log;

private Q_SLOTS:
    void runs() { m_body(*this); }

private:
    std::function<void(Scenario &)> m_body;
};

namespace {

struct Case
{
    const char *name;
    bool passes;
    std::function<void(Scenario &)> body;
};

const Case kCases[] = {
    {"nothing is logged", true, [](Scenario &) {}},
    {"a line is logged that nobody announced", false, [](Scenario &) { qWarning("a line"); }},
    {"a line of another thread is logged that nobody announced", false, [](Scenario &) { std::thread([] { qWarning("a line"); }).join(); }},
    {"debug output is logged that nobody announced", false, [](Scenario &) { qDebug("a line"); }},
    {"an announced line is logged", true,
     [](Scenario &test) {
         test.ExpectWarning(QStringLiteral("a line"));
         qWarning("a line");
     }},
    {"an announced line is logged twice", false,
     [](Scenario &test) {
         test.ExpectWarning(QStringLiteral("a line"));
         qWarning("a line");
         qWarning("a line");
     }},
    {"an announced line is never logged", false, [](Scenario &test) { test.ExpectWarning(QStringLiteral("a line")); }},
    {"a longer line is logged than announced", false,
     [](Scenario &test) {
         test.ExpectWarning(QStringLiteral("a line"));
         qWarning("a line and more");
     }},
    {"a line is logged that holds the announced pattern, and more", false,
     [](Scenario &test) {
         test.Log().ExpectMatch(QtWarningMsg, QStringLiteral("a l\\w+"));
         qWarning("a line and more");
     }},
    {"a line of another type is logged than announced", false,
     [](Scenario &test) {
         test.ExpectWarning(QStringLiteral("a line"));
         qCritical("a line");
     }},
    {"a line is logged once the test has ended", false,
     [](Scenario &) {
         QMetaObject::invokeMethod(
             qApp, [] { qWarning("a line"); }, Qt::QueuedConnection);
     }},
    {"a window is left behind", false, [](Scenario &) { new QWidget; }},
    {"a window that was left is about to be deleted", true, [](Scenario &) { (new QWidget)->deleteLater(); }},
    {"a child of a window is left behind", true,
     [](Scenario &) {
         QWidget window;
         new QWidget(&window);
     }},
};

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    int faults = 0;
    for (const Case &each : kCases) {
        Scenario scenario(each.body);
        const bool passed =
            QTest::qExec(&scenario, {QStringLiteral("tst_TestCase"), QStringLiteral("-o"), QStringLiteral("/dev/null,txt")}) == 0;
        if (passed != each.passes) {
            std::fprintf(stderr, "%s, and the test %s\n", each.name, passed ? "passes" : "fails");
            ++faults;
        }
        const QWidgetList left = QApplication::topLevelWidgets();
        qDeleteAll(left);
    }
    return faults == 0 ? 0 : 1;
}

#include "tst_TestCase.moc"
