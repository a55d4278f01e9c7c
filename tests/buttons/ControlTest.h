#pragma once

#include "buttons/ButtonLooks.h"
#include "support/KeepsHover.h"
#include "support/Tokens.h"

#include <QWidget>

#include <memory>
#include <type_traits>

namespace VelmoraTest {

/// The base of a control's tests: one control in a shown, active window, fresh for each test function, with the cursor away.
template <typename Control>
class ControlTest : public TestCase
{
protected:
    /// What the control needs before its window shows.
    virtual void Prepare() { m_control->move(10, 10); }

    void SetUp() override
    {
        MoveCursorAway();
        m_window = std::make_unique<QWidget>();
        m_window->setGeometry(kWindowPlace);
        m_control = new Control(m_window.get());
        Prepare();
        m_window->show();
        new KeepsHover(*m_window); // owned by it
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        DrainEvents();
    }

    void TearDown() override
    {
        if constexpr (std::is_base_of_v<QAbstractButton, Control>) {
            if (m_control)
                LetGo(*m_control);
        }
        m_window.reset();
        UseTable(Table::Light);
    }

    std::unique_ptr<QWidget> m_window;
    Control *m_control = nullptr; // a test that deletes it sets it to null
};

} // namespace VelmoraTest
