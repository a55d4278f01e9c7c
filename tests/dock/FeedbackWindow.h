#pragma once

#include "support/EventCounter.h"
#include "support/TestCase.h"
#include "support/Tokens.h"

#include <QTest>
#include <QWidget>

namespace VelmoraTest {

/// Whether \a shown, an indicator or a mask on the screen, is painted anew when the colour table changes.
inline bool FollowsColourTable(QWidget &shown)
{
    EventCounter paints(shown, QEvent::Paint);
    UseTable(Table::Dark);
    const bool isPainted = paints.Take() > 0;
    UseTable(Table::Light);
    return isPainted;
}

/// Whether the window in front stays the active one when \a feedback is shown.
inline bool LeavesFocusWhenShown(QWidget &feedback)
{
    QWidget host;
    host.show();
    host.activateWindow();
    const bool wasActive = QTest::qWaitForWindowActive(&host);
    feedback.show();
    DrainEvents();
    return wasActive && host.isActiveWindow();
}

} // namespace VelmoraTest
