#include "PortedSteps.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTextEdit>
#include <QTimer>

namespace {

/// The control of that name, or what has the keyboard for it inside.
template <typename Widget>
Widget *ControlOf(const QWidget &window, const char *name)
{
    auto *outer = window.findChild<QWidget *>(QLatin1String(name));
    auto *control = qobject_cast<Widget *>(outer);
    return control ? control : qobject_cast<Widget *>(outer->focusProxy());
}

} // namespace

void PortedSteps::SetUp()
{
    m_questions = 0;
    m_window = std::make_unique<AddressBook>();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void PortedSteps::TearDown()
{
    m_window.reset();
}

void PortedSteps::Press(const char *button)
{
    auto *control = ControlOf<QAbstractButton>(*m_window, button);
    QTest::mouseClick(control, Qt::LeftButton, Qt::NoModifier, QPoint(8, control->height() / 2));
    m_window->activateWindow(); // what a window manager does when a dialog has gone
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void PortedSteps::Type(const QString &text)
{
    QTest::keyClicks(QApplication::focusWidget(), text);
}

void PortedSteps::AddEntry(const QString &name)
{
    Press("add");
    Type(name);
    Press("save");
}

void PortedSteps::Choose(const QString &name)
{
    auto *names = ControlOf<QListWidget>(*m_window, "names");
    const QRect row = names->visualItemRect(names->findItems(name, Qt::MatchExactly).value(0));
    QTest::mouseClick(names->viewport(), Qt::LeftButton, Qt::NoModifier, row.center());
}

/// Types into the next dialog, and presses \a key there.
void PortedSteps::AnswerNext(Qt::Key key, const QString &typed)
{
    auto *timer = new QTimer(m_window.get());
    connect(timer, &QTimer::timeout, this, [this, timer, key, typed] {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog || QApplication::activeWindow() != dialog)
            return;
        timer->stop();
        ++m_questions;
        m_width = dialog->width();
        QWidget *place = QApplication::focusWidget() ? QApplication::focusWidget() : dialog;
        QTest::keyClicks(place, typed);
        QTest::keyClick(place, key);
    });
    timer->start(10);
}

QStringList PortedSteps::Names() const
{
    const auto *list = ControlOf<QListWidget>(*m_window, "names");
    QStringList names;
    for (int row = 0; row < list->count(); ++row)
        names.append(list->item(row)->text());
    return names;
}

QString PortedSteps::NameInForm() const
{
    return ControlOf<QLineEdit>(*m_window, "name")->text();
}

void PortedSteps::an_entry_is_typed_saved_and_shown_again()
{
    Type(QStringLiteral("Ada"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    Type(QStringLiteral("1 <b>Mill</b> Lane"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    Press("save");
    AddEntry(QStringLiteral("Charles"));
    QCOMPARE(Names(), (QStringList{QStringLiteral("Ada"), QStringLiteral("Charles")}));
    QVERIFY(!ControlOf<QAbstractButton>(*m_window, "card")->isChecked());

    Choose(QStringLiteral("Ada"));
    QCOMPARE(NameInForm(), QStringLiteral("Ada"));
    QCOMPARE(ControlOf<QComboBox>(*m_window, "kind")->currentText(), QStringLiteral("Friends"));
    QCOMPARE(ControlOf<QTextEdit>(*m_window, "address")->toPlainText(), QStringLiteral("1 <b>Mill</b> Lane"));
    QVERIFY(ControlOf<QAbstractButton>(*m_window, "card")->isChecked());
}

void PortedSteps::enter_in_the_name_saves()
{
    Type(QStringLiteral("Ada"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(Names(), QStringList{QStringLiteral("Ada")});
}

void PortedSteps::nothing_is_saved_without_a_name()
{
    Type(QStringLiteral("  "));
    QVERIFY(!ControlOf<QAbstractButton>(*m_window, "save")->isEnabled());
    QVERIFY(!ControlOf<QAbstractButton>(*m_window, "remove")->isEnabled());
    Press("save");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(Names().isEmpty());
}

void PortedSteps::an_entry_gets_another_name()
{
    AddEntry(QStringLiteral("Ada"));
    ControlOf<QLineEdit>(*m_window, "name")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
    Type(QStringLiteral(" King"));
    Press("save");
    QCOMPARE(Names(), QStringList{QStringLiteral("Ada King")});
}

void PortedSteps::another_entry_is_replaced_only_after_a_question()
{
    AddEntry(QStringLiteral("Ada"));
    AddEntry(QStringLiteral("Charles"));
    for (const Qt::Key answer : {Qt::Key_Escape, Qt::Key_Return}) {
        Press("add");
        Type(QStringLiteral("Ada"));
        ControlOf<QTextEdit>(*m_window, "address")->setFocus();
        Type(QStringLiteral("London"));
        AnswerNext(answer);
        Press("save");
        Choose(QStringLiteral("Charles"));
        Choose(QStringLiteral("Ada"));
        const QString address = ControlOf<QTextEdit>(*m_window, "address")->toPlainText();
        QCOMPARE(address, answer == Qt::Key_Return ? QStringLiteral("London") : QString());
    }
    QCOMPARE(m_questions, 2);
    QCOMPARE(Names().size(), 2);
}

void PortedSteps::an_entry_is_removed_only_after_a_question()
{
    AddEntry(QStringLiteral("Ada"));
    AnswerNext(Qt::Key_Escape);
    Press("remove");
    QCOMPARE(Names(), QStringList{QStringLiteral("Ada")});
    AnswerNext(Qt::Key_Return);
    Press("remove");
    QVERIFY(Names().isEmpty());
    QVERIFY(NameInForm().isEmpty());
    QCOMPARE(m_questions, 2);
}

void PortedSteps::a_question_about_a_long_name_wraps()
{
    AddEntry(QStringLiteral("Ada of the many names ").repeated(10).trimmed());
    AnswerNext(Qt::Key_Return);
    Press("remove");
    QVERIFY(Names().isEmpty());
    QVERIFY2(m_width < 700, qPrintable(QString::number(m_width)));
}

void PortedSteps::an_entry_is_found_by_a_part_of_its_name()
{
    AddEntry(QStringLiteral("Ada King"));
    AddEntry(QStringLiteral("Charles"));
    AnswerNext(Qt::Key_Return, QStringLiteral("king"));
    Press("find");
    QCOMPARE(NameInForm(), QStringLiteral("Ada King"));
    AnswerNext(Qt::Key_Escape, QStringLiteral("Char"));
    Press("find");
    QCOMPARE(NameInForm(), QStringLiteral("Ada King"));
}

void PortedSteps::a_name_that_nobody_has_is_told()
{
    AddEntry(QStringLiteral("Ada"));
    AnswerNext(Qt::Key_Return, QStringLiteral("Grace"));
    QTimer::singleShot(0, this, [this] {
        // Once the first dialog has gone, another one says so.
        QVERIFY(QTest::qWaitFor([this] { return m_questions == 1; }));
        AnswerNext(Qt::Key_Return);
    });
    Press("find");
    QCOMPARE(m_questions, 2);
    QCOMPARE(NameInForm(), QStringLiteral("Ada"));
}

void PortedSteps::keys_of_texts_lead_to_their_controls()
{
    const QHash<Qt::Key, const char *> keys = {{Qt::Key_A, "name"}, {Qt::Key_K, "kind"}, {Qt::Key_D, "address"}};
    for (auto key = keys.cbegin(); key != keys.cend(); ++key) {
        const auto *control = ControlOf<QWidget>(*m_window, key.value());
        m_window->setFocus();
        QTest::keyClick(m_window.get(), key.key(), Qt::AltModifier);
        QVERIFY2(QApplication::focusWidget() == control || QApplication::focusWidget() == control->focusProxy(), key.value());
    }
    QTest::keyClick(m_window.get(), Qt::Key_C, Qt::AltModifier);
    QTRY_VERIFY(ControlOf<QAbstractButton>(*m_window, "card")->isChecked()); // Qt shows the press of a key for a while
}
