#include "support/TestCase.h"

#include <QApplication>
#include <QWidget>

namespace VelmoraTest {

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
    SetUp();
}

void TestCase::cleanup()
{
    TearDown();
    QStringList faults;
    if (qobject_cast<QApplication *>(QCoreApplication::instance())) {
        DrainEvents();
        const auto widgets = QApplication::topLevelWidgets();
        for (const QWidget *widget : widgets)
            faults.append(
                QStringLiteral("left behind: %1 \"%2\"").arg(QString::fromLatin1(widget->metaObject()->className()), widget->objectName()));
    }
    faults += m_log->TakeFaults();
    m_log.reset();
    if (!faults.isEmpty())
        QFAIL(qPrintable(faults.join(QLatin1Char('\n'))));
}

} // namespace VelmoraTest
