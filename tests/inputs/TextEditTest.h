#pragma once

#include "buttons/ControlTest.h"
#include "support/EventCounter.h"
#include "support/Pixels.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QPointer>
#include <QTextEdit>

namespace VelmoraTest {

inline const QString kBlocks(4, QChar(0x2588)); // full blocks
inline const QString kEmoji = QString::fromUtf8("\U0001F600");

/// HTML with tables inside of each other, as deep as \a depth.
inline QString NestedTables(int depth)
{
    return QStringLiteral("<table><tr><td>x").repeated(depth);
}

/// Pastes \a text in place of all that is in \a edit.
inline void Paste(QTextEdit &edit, const QString &text)
{
    QApplication::clipboard()->setText(text);
    edit.setFocus();
    edit.selectAll();
    QTest::keySequence(&edit, QKeySequence::Paste);
    QApplication::clipboard()->clear();
}

/// Writes into an edit as it loses the keyboard, in the middle of its death too.
class LastWords : public QObject
{
public:
    explicit LastWords(QTextEdit &edit) { edit.installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::FocusOut) {
            auto *edit = static_cast<QTextEdit *>(watched);
            edit->setPlainText(QStringLiteral("last words"));
            m_left = edit->toPlainText();
        }
        return false;
    }

    /// What was left of them.
    QString Left() const { return m_left; }

private:
    QString m_left;
};

/// The base of the tests of framed text edits: one of 200 by 100 pixels, and another field that could take its keyboard.
template <typename Frame>
class TextEditTest : public ControlTest<Frame>
{
protected:
    void Prepare() override
    {
        delete this->m_control;
        m_first = new QTextEdit(this->m_window.get());
        m_first->setGeometry(10, 130, 100, 40);
        this->m_control = Make(*this->m_window); // behind the other in all orders
        this->m_control->setGeometry(10, 10, 200, 100);
    }

    void SetUp() override
    {
        ControlTest<Frame>::SetUp();
        m_first->setFocus();
    }

    virtual Frame *Make(QWidget &parent) { return new Frame(&parent); }

    /// The user goes to another window and comes back.
    void VisitAnotherWindow()
    {
        QWidget other;
        other.setGeometry(0, 250, 100, 100);
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        this->m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(this->m_window.get()));
    }

    /// The user asks for the menu of \a edit.
    static void OpenMenu(QTextEdit &edit)
    {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(10, 10), edit.viewport()->mapToGlobal(QPoint(10, 10)));
        QCoreApplication::sendEvent(edit.viewport(), &event);
        QTRY_VERIFY(QApplication::activePopupWidget());
    }
    static void CloseMenu()
    {
        QApplication::activePopupWidget()->close();
        DrainEvents();
    }

    /// A click on \a widget, through its window.
    void ClickAt(const QWidget &widget) { ClickAt(widget.mapTo(this->m_window.get(), widget.rect().center())); }
    void ClickAt(const QPoint &place) { QTest::mouseClick(this->m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, place); }

    QTextEdit *m_first = nullptr; // comes before the control
};

} // namespace VelmoraTest
