#include "support/ReadPieces.h"
#include "support/TestMain.h"

#include <Velmora/QcLineEdit.h>

#include <QAccessible>
#include <QIntValidator>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSet>
#include <QSignalSpy>
#include <QValidator>
#include <QWidget>

#include <limits>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

Q_DECLARE_METATYPE(QLineEdit::EchoMode)

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
        QVERIFY(described->actionInterface()); // to be focused by
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
        for (const QLineEdit::EchoMode mode : {QLineEdit::NoEcho, QLineEdit::PasswordEchoOnEdit}) {
            m_edit->setEchoMode(mode);
            QVERIFY(Described()->state().passwordEdit);
        }
        QVERIFY(!state.hasPopup);
        m_edit->setContextMenuPolicy(Qt::PreventContextMenu);
        QVERIFY(!Described()->state().hasPopup);
    }

    void words_are_read_at_the_end_of_a_text()
    {
        QAccessibleTextInterface *text = Described()->textInterface();
        for (const QString &typed : {QStringLiteral("one two"), QStringLiteral("one "), QStringLiteral(" "), QString()}) {
            m_edit->setText(typed);
            QCOMPARE(FaultOfPieces(*text), QString());
        }
        m_edit->setText(QStringLiteral("one two"));
        int start = -1;
        int end = -1;
        for (const int offset : {-1, 7}) {
            QCOMPARE(text->textAtOffset(offset, QAccessible::WordBoundary, &start, &end), QStringLiteral("two"));
            QCOMPARE(start, 4);
            QCOMPARE(end, 7);
        }
        QCOMPARE(text->textBeforeOffset(7, QAccessible::WordBoundary, &start, &end).trimmed(), QStringLiteral("one"));
        QCOMPARE(text->textAfterOffset(0, QAccessible::WordBoundary, &start, &end), QStringLiteral("two"));
        QCOMPARE(text->textAtOffset(2, QAccessible::LineBoundary, &start, &end), QStringLiteral("one two"));
    }

    void text_caret_and_selection_are_read()
    {
        m_edit->setText(QStringLiteral("one two"));
        m_edit->setCursorPosition(3);
        QAccessibleTextInterface *text = Described()->textInterface();
        QVERIFY(text);
        QCOMPARE(Described()->text(QAccessible::Value), QStringLiteral("one two"));
        QCOMPARE(text->characterCount(), 7);
        QCOMPARE(text->text(4, 5), QStringLiteral("t"));
        QCOMPARE(text->cursorPosition(), 3);
        int start = -1;
        int end = -1;
        QCOMPARE(text->textAtOffset(5, QAccessible::WordBoundary, &start, &end), QStringLiteral("two"));
        QCOMPARE(start, 4);
        QCOMPARE(text->selectionCount(), 0);
        text->setSelection(0, 2, 4);
        QCOMPARE(m_edit->selectedText(), QStringLiteral("e "));
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

    void a_part_out_of_range_is_that_which_there_is()
    {
        constexpr int kMax = std::numeric_limits<int>::max();
        constexpr int kMin = std::numeric_limits<int>::min();
        m_edit->setText(QStringLiteral("one two"));
        QAccessibleTextInterface *text = Described()->textInterface();
        QCOMPARE(text->text(kMin, kMax), QStringLiteral("one two"));
        QCOMPARE(text->text(kMax, kMin), QString());
        QCOMPARE(text->text(3, 1), QString());
        text->setSelection(0, kMin, 3);
        QCOMPARE(m_edit->selectedText(), QStringLiteral("one"));
        text->setSelection(0, 4, kMax);
        QCOMPARE(m_edit->selectedText(), QStringLiteral("two"));
        text->setSelection(0, kMax, kMin);
        QVERIFY(!m_edit->hasSelectedText());
    }

    void a_password_is_not_read_data()
    {
        QTest::addColumn<QLineEdit::EchoMode>("mode");
        QTest::addColumn<int>("length");
        QTest::newRow("masked") << QLineEdit::Password << 6;
        QTest::newRow("shown while typed") << QLineEdit::PasswordEchoOnEdit << 6;
        QTest::newRow("not shown at all") << QLineEdit::NoEcho << 0;
    }

    void a_password_is_not_read()
    {
        QFETCH(QLineEdit::EchoMode, mode);
        QFETCH(int, length);
        m_edit->setEchoMode(mode);
        m_edit->setFocus();
        QTest::keyClicks(m_edit, QStringLiteral("secret"));
        QCOMPARE(m_edit->displayText() == QStringLiteral("secret"), mode == QLineEdit::PasswordEchoOnEdit);
        const QString mask(length, QLatin1Char('*'));
        QCOMPARE(Described()->text(QAccessible::Value), mask);
        QCOMPARE(Described()->textInterface()->text(0, 6), mask);
        QCOMPARE(Described()->textInterface()->characterCount(), length);
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

    void the_place_behind_the_last_character_is_that_of_the_caret()
    {
        m_edit->setText(QStringLiteral("WiW"));
        m_edit->grab();
        const QRect last = Described()->textInterface()->characterRect(2);
        const QRect end = Described()->textInterface()->characterRect(3);
        QCOMPARE(end, QRect(last.left() + last.width(), last.top(), 0, last.height()));
    }

    void the_end_of_a_sentence_is_found_on_the_side_where_it_stands_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isOnTheRight"); // as the text itself runs, not the layout
        QTest::newRow("Latin") << QStringLiteral("Wow!") << true;
        QTest::newRow("Hebrew") << QStringLiteral("\u05D0\u05D1\u05D2!") << false;
    }

    void the_end_of_a_sentence_is_found_on_the_side_where_it_stands()
    {
        QFETCH(QString, text);
        QFETCH(bool, isOnTheRight);
        m_edit->setText(text);
        m_edit->setCursorPosition(0);
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            m_window->setLayoutDirection(direction);
            m_edit->grab();
            QAccessibleTextInterface *read = Described()->textInterface();
            const QRect mark = read->characterRect(3);
            QCOMPARE(mark.left() > read->characterRect(0).left(), isOnTheRight);
            const int found = read->offsetAtPoint(mark.center());
            QVERIFY2(found == 3 || found == 4, qPrintable(QString::number(found)));
        }
    }

    void each_character_ends_where_the_next_begins()
    {
        m_edit->setText(QStringLiteral("iWill, fit; mostly: WiWiW"));
        m_edit->setCursorPosition(0);
        QFont font = m_edit->font();
        font.setPointSizeF(9.3); // of widths that are no whole pixels
        m_edit->setFont(font);
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            m_window->setLayoutDirection(direction);
            m_edit->grab();
            QAccessibleTextInterface *text = Described()->textInterface();
            for (int offset = 0; offset + 1 < m_edit->text().size(); ++offset) {
                const QRect character = text->characterRect(offset);
                const QRect next = text->characterRect(offset + 1);
                QCOMPARE(character.left() + character.width(), next.left());
                QCOMPARE(character.top(), next.top());
            }
        }
    }

    void it_scrolls_until_a_part_of_the_text_is_seen()
    {
        m_edit->setText(QString(200, QLatin1Char('m')));
        for (const int start : {50, 20, 150}) {
            QAccessibleTextInterface *text = Described()->textInterface();
            text->scrollToSubstring(start, start + 10);
            QCOMPARE(m_edit->cursorPosition(), start);
            m_edit->grab();
            for (const int offset : {start, start + 9}) {
                const QRect character = text->characterRect(offset);
                QVERIFY(m_edit->rect().contains(QRect(m_edit->mapFromGlobal(character.topLeft()), character.size())));
            }
        }
    }

    void what_hears_of_its_text_or_its_enter_is_related_to_it()
    {
        QLabel listener(m_window.get());
        connect(m_edit, &QLineEdit::textChanged, &listener, &QLabel::setText);
        QPushButton pressed(m_window.get());
        connect(m_edit, &QLineEdit::returnPressed, &pressed, &QPushButton::click);
        QSet<QObject *> related;
        const auto relations = Described()->relations(QAccessible::Controlled);
        for (const auto &relation : relations)
            related.insert(relation.first->object());
        QCOMPARE(related, (QSet<QObject *>{&listener, &pressed}));
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

    void it_is_not_edited_against_its_validator()
    {
        QAccessibleEditableTextInterface *editor = Described()->editableTextInterface();
        const QIntValidator validator(0, 10);
        m_edit->setValidator(&validator);
        editor->insertText(0, QStringLiteral("a"));
        QCOMPARE(m_edit->text(), QString());
        editor->insertText(0, QStringLiteral("7"));
        QCOMPARE(m_edit->text(), QStringLiteral("7"));
        editor->deleteText(0, 1); // nothing is only on the way to a number
        QCOMPARE(m_edit->text(), QStringLiteral("7"));
    }

    void a_read_only_one_is_neither_edited_nor_emptied()
    {
        m_edit->setText(QStringLiteral("kept"));
        m_edit->setReadOnly(true);
        QAccessibleEditableTextInterface *editor = Described()->editableTextInterface();
        editor->insertText(0, QStringLiteral("a"));
        editor->replaceText(0, 1, QStringLiteral("b"));
        editor->deleteText(0, 4);
        Described()->setText(QAccessible::Value, QString());
        QCOMPARE(m_edit->text(), QStringLiteral("kept"));
    }

    void its_validator_may_delete_it()
    {
        class Undertaker : public QValidator
        {
        public:
            explicit Undertaker(QcLineEdit *edit)
                : m_edit(edit)
            {
            }
            State validate(QString & /*input*/, int & /*position*/) const override
            {
                delete m_edit;
                return Acceptable;
            }

        private:
            const QPointer<QcLineEdit> m_edit;
        };
        const Undertaker validator(m_edit);
        m_edit->setValidator(&validator);
        Described()->editableTextInterface()->insertText(0, QStringLiteral("a"));
        QVERIFY(m_window->findChildren<QcLineEdit *>().isEmpty());
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
