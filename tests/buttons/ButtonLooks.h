#pragma once

#include "support/Pixels.h"
#include "support/TestCase.h"
#include "support/Tokens.h"

#include <QAbstractButton>
#include <QCursor>
#include <QTest>

namespace VelmoraTest {

/// One of the eight looks of a button: its key in the state tables, and what a user does to see it.
struct Look
{
    const char *name;
    int key;
    bool isEnabled;
    bool isChecked;
    bool isHovered;
    bool isPressed;
};

constexpr Look kLooks[] = {
    {"disabled", 0, false, false, false, false},
    {"normal", 1, true, false, false, false},
    {"hover", 0x2001, true, false, true, false},
    {"pressed", 5, true, false, true, true},
    {"checked disabled", 0x8000, false, true, false, false},
    {"checked normal", 0x8001, true, true, false, false},
    {"checked hover", 0xA001, true, true, true, false},
    {"checked pressed", 0x8005, true, true, true, true},
};

/// What all tool buttons show in the order of kLooks: the background and the icon.
constexpr const char *kToolBackgrounds[] = {
    "transparent",
    "transparent",
    "bg/bg_transluent_strong_hover",
    "bg/bg_transluent_strong_press",
    "bg/bg_transluent_strong_active",
    "bg/bg_transluent_strong_active",
    "bg/bg_transluent_strong_active",
    "bg/bg_transluent_strong_active",
};
constexpr const char *kToolIcons[] = {
    "icon/icon_toolbar_disable", "icon/icon_toolbar", "icon/icon_toolbar", "icon/icon_toolbar",
    "icon/icon_toolbar",         "icon/icon_toolbar", "icon/icon_toolbar", "icon/icon_toolbar",
};

/// Where a window under the cursor has to stand: at any other place the offscreen platform, when it scales, tells it a wrong
/// position of the cursor.
constexpr QRect kWindowPlace(0, 0, 300, 200);

/// A place on the screen that no test window covers.
inline void MoveCursorAway()
{
    QCursor::setPos(450, 450);
    DrainEvents();
}

inline void MoveCursorOver(const QWidget &widget)
{
    QCursor::setPos(widget.mapToGlobal(widget.rect().center()));
    DrainEvents();
}

/// Shows \a widget, in a window on show, and handles all that follows from it but the tasks that were posted.
inline void ShowBeforeTasks(QWidget &widget)
{
    widget.show();
    for (int round = 0; round < 3; ++round) {
        for (int type = QEvent::Timer; type < QEvent::User; ++type) {
            if (type != QEvent::MetaCall)
                QCoreApplication::sendPostedEvents(nullptr, type);
        }
    }
}

/// Brings the shown \a button to \a look as its user would, from the state in which it was made.
inline void BringTo(QAbstractButton &button, const Look &look)
{
    button.setCheckable(look.isChecked);
    button.setChecked(look.isChecked);
    button.setEnabled(look.isEnabled);
    if (look.isHovered)
        MoveCursorOver(button);
    if (look.isPressed)
        QTest::mousePress(&button, Qt::LeftButton);
}

/// \a token in \a table over \a below; "-" is no token.
inline QColor Painted(Table table, const QString &token, const QColor &below)
{
    const bool paintsNothing = token == QLatin1String("-") || token == QLatin1String("transparent");
    return paintsNothing ? below : Over(TokenOf(table, token), below);
}

/// Releases a button pressed by BringTo(), off the button, and takes the cursor away.
inline void LetGo(QAbstractButton &button)
{
    if (button.isDown())
        QTest::mouseRelease(&button, Qt::LeftButton, Qt::NoModifier, QPoint(-1, -1));
    MoveCursorAway();
}

} // namespace VelmoraTest
