#pragma once

#include "support/DockInvariants.h"
#include "support/TestCase.h"

#include <Velmora/QcDockDragController.h>
#include <Velmora/QcDockWidget.h>

#include <memory>

namespace VelmoraTest {

/// A test of docking: what docking promises is asked at the end of every test function, and by Settled().
class DockTestCase : public TestCase
{
protected:
    DockTestCase() { Velmora::QcDockDragController::instance(); } // its indicator and mask are nothing that a test left behind

    void TearDown() override
    {
        DrainEvents();
        const QStringList violations = DockViolations();
        if (!violations.isEmpty())
            QFAIL(qPrintable(violations.join(QLatin1Char('\n'))));
    }

    /// What is broken once all that is due has happened; nothing is as it should be.
    static QString Settled()
    {
        DrainEvents();
        return DockViolations().join(QLatin1Char('\n'));
    }
};

} // namespace VelmoraTest

/// The current operation is over: nothing that docking promises is broken.
#define VERIFY_SETTLED() QCOMPARE(Settled(), QString())
