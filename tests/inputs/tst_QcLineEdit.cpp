#include "support/TestMain.h"

#include <Velmora/QcLineEdit.h>

#include <QAccessible>
#include <QIntValidator>
#include <QLabel>
#include <QSignalSpy>
#include <QWidget>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

class TestQcLineEdit : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void the_hint_is_of_even_height_with_every_font()
    {
        int rounded = 0;
        for (int pixels = 6; pixels < 40; ++pixels) {
            QFont font;
            font.setPixelSize(pixels);
            m_edit->setFont(font);
            const QSize plain = m_edit->QLineEdit::sizeHint();
            rounded += plain.height() % 2;
            QCOMPARE(m_edit->sizeHint(), QSize(plain.width(), plain.height() + plain.height() % 2));
        }
        QVERIFY(rounded > 0);
    }

    void clear_empties_it()
    {
        m_edit->setText(QStringLiteral("text"));
        QSignalSpy changes(m_edit, &QLineEdit::textChanged);
        m_edit->clear();
        QCOMPARE(m_edit->text(), QString());
        QCOMPARE(changes.count(), 1);
    }

    // --- Assistive technology ---

    void it_is_an_editable_text_with_a_name()
    {
        QAccessibleInterface *described = Described();
        QCOMPARE(described->role(), QAccessible::EditableText);
        QCOMPARE(described->text(QAccessible::Name), QString());
        m_edit->setPlaceholderText(QStringLiteral("Placeholder"));
        QCOMPARE(described->text(QAccessible::Name), QStringLiteral("Placeholder"));
        QLabel label(QStringLiteral("&Buddy"), m_window.get());
        label.setBuddy(m_edit);
        QCOMPARE(described->text(QAccessible::Name), QStringLiteral("Buddy"));
        m_edit->setAccessibleName(QStringLiteral("Name"));
        QCOMPARE(described->text(QAccessible::Name), QStringLiteral("Name"));
        m_edit->setAccessibleDescription(QStringLiteral("Description"));
        QCOMPARE(described->text(QAccessible::Description), QStringLiteral("Description"));
    }

    void its_state_tells_how_it_can_be_edited()
    {
        QAccessible::State state = Described()->state();
        QVERIFY(state.editable && state.focusable && state.selectableText && state.hasPopup);
        QVERIFY(!state.readOnly && !state.passwordEdit && !state.selected && !state.disabled);
        m_edit->setText(QStringLiteral("text"));
        m_edit->selectAll();
        QVERIFY(Described()->state().selected);
        m_edit->setReadOnly(true);
        m_edit->setContextMenuPolicy(Qt::NoContextMenu);
        m_edit->setEchoMode(QLineEdit::Password);
        m_edit->setEnabled(false);
        state = Described()->state();
        QVERIFY(state.readOnly && state.passwordEdit && state.disabled);
        QVERIFY(!state.hasPopup);
    }

    void text_caret_and_selection_are_read()
    {
        m_edit->setText(QStringLiteral("one two"));
        m_edit->setCursorPosition(3);
        QAccessibleTextInterface *text = Described()->textInterface();
        QVERIFY(text);
        QCOMPARE(Described()->text(QAccessible::Value), QStringLiteral("one two"));
        QCOMPARE(text->characterCount(), 7);
        QCOMPARE(text->text(4, 7), QStringLiteral("two"));
        QCOMPARE(text->cursorPosition(), 3);
        int start = -1;
        int end = -1;
        QCOMPARE(text->textAtOffset(5, QAccessible::WordBoundary, &start, &end), QStringLiteral("two"));
        QCOMPARE(start, 4);
        QCOMPARE(text->selectionCount(), 0);
        text->addSelection(4, 7);
        QCOMPARE(m_edit->selectedText(), QStringLiteral("two"));
        QCOMPARE(text->selectionCount(), 1);
        text->selection(0, &start, &end);
        QCOMPARE(start, 4);
        QCOMPARE(end, 7);
        text->removeSelection(1);
        text->setSelection(1, 0, 2);
        QCOMPARE(m_edit->selectedText(), QStringLiteral("two"));
        text->removeSelection(0);
        QVERIFY(!m_edit->hasSelectedText());
        text->selection(0, &start, &end);
        QCOMPARE(end, 0);
        text->setCursorPosition(1);
        QCOMPARE(m_edit->cursorPosition(), 1);
        QCOMPARE(text->attributes(0, &start, &end), QString());
    }

    void a_password_is_not_read()
    {
        m_edit->setText(QStringLiteral("secret"));
        m_edit->setEchoMode(QLineEdit::Password);
        QVERIFY(!Described()->text(QAccessible::Value).contains(QLatin1Char('e')));
        QVERIFY(!Described()->textInterface()->text(0, 6).contains(QLatin1Char('e')));
        m_edit->setEchoMode(QLineEdit::NoEcho);
        QCOMPARE(Described()->text(QAccessible::Value), QString());
        QCOMPARE(Described()->textInterface()->characterCount(), 0);
    }

    void characters_are_found_where_they_are()
    {
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            m_window->setLayoutDirection(direction);
            m_edit->setText(QString(60, QLatin1Char('i')) + QStringLiteral("WWW") + QString(60, QLatin1Char('i')));
            for (const int caret : {0, 61, 123}) { // scrolled as well
                m_edit->setCursorPosition(caret);
                m_edit->grab();
                QAccessibleTextInterface *text = Described()->textInterface();
                int seen = 0;
                for (int offset = 0; offset < 123; ++offset) {
                    const QRect character = text->characterRect(offset);
                    QVERIFY(character.width() > 0);
                    if (!m_edit->rect().contains(m_edit->mapFromGlobal(character.center())))
                        continue;
                    // A place in the left half of a character is that before it.
                    QVERIFY2(qAbs(text->offsetAtPoint(character.center()) - offset) <= 1, qPrintable(QString::number(offset)));
                    ++seen;
                }
                QVERIFY(seen > 10);
            }
            QVERIFY(Described()->textInterface()->characterRect(61).width() > Described()->textInterface()->characterRect(5).width());
        }
        QCOMPARE(Described()->textInterface()->characterRect(-1), QRect());
        QCOMPARE(Described()->textInterface()->characterRect(124), QRect());
    }

    void it_scrolls_to_a_part_of_the_text()
    {
        m_edit->setText(QString(200, QLatin1Char('m')));
        Described()->textInterface()->scrollToSubstring(50, 60);
        QCOMPARE(m_edit->cursorPosition(), 50);
    }

    void it_is_edited()
    {
        QAccessibleEditableTextInterface *editor = Described()->editableTextInterface();
        QVERIFY(editor);
        editor->insertText(0, QStringLiteral("one"));
        editor->insertText(99, QStringLiteral(" two"));
        QCOMPARE(m_edit->text(), QStringLiteral("one two"));
        editor->replaceText(0, 3, QStringLiteral("three"));
        QCOMPARE(m_edit->text(), QStringLiteral("three two"));
        editor->deleteText(-5, 6);
        QCOMPARE(m_edit->text(), QStringLiteral("two"));
        Described()->setText(QAccessible::Value, QStringLiteral("all"));
        QCOMPARE(m_edit->text(), QStringLiteral("all"));
        Described()->setText(QAccessible::Name, QStringLiteral("Name")); // names are the program's
        QCOMPARE(m_edit->text(), QStringLiteral("all"));
    }

    void it_is_not_edited_against_validator_or_lock()
    {
        QAccessibleEditableTextInterface *editor = Described()->editableTextInterface();
        const QIntValidator validator(0, 10);
        m_edit->setValidator(&validator);
        editor->insertText(0, QStringLiteral("a"));
        QCOMPARE(m_edit->text(), QString());
        editor->insertText(0, QStringLiteral("7"));
        QCOMPARE(m_edit->text(), QStringLiteral("7"));
        m_edit->setReadOnly(true);
        editor->deleteText(0, 1);
        QCOMPARE(m_edit->text(), QStringLiteral("7"));
    }

protected:
    void SetUp() override
    {
        m_window = std::make_unique<QWidget>();
        m_window->setGeometry(0, 0, 200, 100);
        m_edit = new QcLineEdit(m_window.get());
        m_edit->setGeometry(10, 10, 180, 30);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        DrainEvents();
    }

    void TearDown() override { m_window.reset(); }

private:
    QAccessibleInterface *Described() { return QAccessible::queryAccessibleInterface(m_edit); }

    std::unique_ptr<QWidget> m_window;
    QcLineEdit *m_edit = nullptr;
};

VELMORA_TEST_MAIN(TestQcLineEdit)

#include "tst_QcLineEdit.moc"
