#include "support/TestCase.h"

#include <QApplication>
#include <QWidget>

namespace VelmoraTest {

namespace {

QWidgetList TopLevelWidgets()
{
    return qobject_cast<QApplication *>(QCoreApplication::instance()) ? QApplication::topLevelWidgets() : QWidgetList();
}

} // namespace

void DrainEvents()
{
    // A turn may post the next one; a handful of turns covers every chain of calls that one action starts.
    for (int turn = 0; turn < 10; ++turn) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

void TestCase::init()
{
    m_log = std::make_unique<LogGuard>();
    const QWidgetList before = TopLevelWidgets();
    m_widgetsBefore = QSet<QWidget *>(before.begin(), before.end());
    SetUp();
}

void TestCase::cleanup()
{
    TearDown();
    QStringList faults;
    if (qobject_cast<QApplication *>(QCoreApplication::instance())) {
        DrainEvents();
        const QWidgetList widgets = TopLevelWidgets();
        for (QWidget *widget : widgets) {
            if (m_widgetsBefore.contains(widget))
                continue;
            faults.append(
                QStringLiteral("left behind: %1 \"%2\"").arg(QString::fromLatin1(widget->metaObject()->className()), widget->objectName()));
        }
    }
    faults += m_log->TakeFaults();
    m_log.reset();
    if (!faults.isEmpty())
        QFAIL(qPrintable(faults.join(QLatin1Char('\n'))));
}

} // namespace VelmoraTest
