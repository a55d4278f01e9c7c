#include "support/TestMain.h"

#include "inputs/TextEditTest.h"
#include "support/ProcessorTime.h"

#include <Velmora/QcLabel.h>
#include <Velmora/QcTextEditFrame.h>
#include <Velmora/QcTextEditLimiter.h>

#include <QAccessible>
#include <QFrame>
#include <QLabel>
#include <QSignalSpy>
#include <QTextDocument>
#include <QWindow>

#include <limits>
#include <memory>
#include <utility>

using namespace Velmora;
using namespace VelmoraTest;

/// What both text edits do alike.
class TestTextEdits : public TextEditTest<QFrame>
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data()
    {
        QTest::addColumn<bool>("isLimiter");
        QTest::newRow("limiter") << true;
        QTest::newRow("frame") << false;
    }

    // --- Limit ---

    void a_paste_of_15_into_10_keeps_10_with_the_cursor_at_the_end()
    {
        SetMaximum(10);
        QStringList heard;
        connect(Edit(), &QTextEdit::textChanged, m_first, [&] { heard << Text() + QLatin1Char(' ') + Counter()->text(); });
        Paste(*Edit(), QStringLiteral("123456789012345"));
        QCOMPARE(Text(), QStringLiteral("1234567890"));
        QCOMPARE(Edit()->textCursor().position(), 10);
        QCOMPARE(heard, QStringList({QStringLiteral("1234567890 0")})); // once: the cut text, when the counter has told it
        QVERIFY(!Edit()->document()->isUndoAvailable());
        QVERIFY(!Edit()->signalsBlocked());
    }

    void a_cut_is_not_told_as_a_move_of_the_cursor()
    {
        SetMaximum(3);
        SetText(QStringLiteral("abc"));
        Edit()->moveCursor(QTextCursor::Start);
        QVector<int> places;
        connect(Edit(), &QTextEdit::cursorPositionChanged, m_first, [&] { places << Edit()->textCursor().position(); });
        QTest::keyClicks(Edit(), QStringLiteral("x"));
        QCOMPARE(Text(), QStringLiteral("xab"));
        QCOMPARE(Edit()->textCursor().position(), 3);
        QCOMPARE(places, QVector<int>({1})); // behind the letter, before the cut
    }

    void an_emoji_that_fits_by_half_is_given_up_whole()
    {
        SetMaximum(3);
        Paste(*Edit(), QStringLiteral("ab") + kEmoji);
        QCOMPARE(Text(), QStringLiteral("ab"));
        QCOMPARE(Edit()->textCursor().position(), 2);
        QCOMPARE(Counter()->text(), QStringLiteral("1"));
        SetMaximum(4);
        Paste(*Edit(), QStringLiteral("ab") + kEmoji + QStringLiteral("c"));
        QCOMPARE(Text(), QStringLiteral("ab") + kEmoji);
        SetMaximum(1);
        Paste(*Edit(), kEmoji);
        QCOMPARE(Text(), QString());
    }

    void html_that_qt_could_not_lay_out_stays_as_it_is_written()
    {
        const ProcessorTime time;
        SetMaximum(1000);
        SetText(NestedTables(40));
        m_control->grab();
        QCOMPARE(Text(), NestedTables(40));
        QVERIFY(time.Elapsed() < 1000);
    }

    // --- Keyboard ---

    void the_keyboard_is_there_again_after_a_visit_to_another_window()
    {
        m_control->setFocus();
        const auto losses = Losses();
        VisitAnotherWindow();
        QCOMPARE(QApplication::focusWidget(), Edit());
        QCOMPARE(losses->count(), 1);
    }

    void a_menu_is_told_as_a_loss_of_the_keyboard()
    {
        m_control->setFocus();
        const auto losses = Losses();
        OpenMenu(*Edit());
        QCOMPARE(losses->count(), 1);
        QVERIFY(Edit()->hasFocus());
        CloseMenu();
    }

    void tab_types_a_tab_and_shift_tab_leaves()
    {
        SetMaximum(5);
        m_control->setFocus();
        QTest::keyClick(Edit(), Qt::Key_Tab);
        QCOMPARE(Text(), QStringLiteral("\t"));
        QTest::keyClick(Edit(), Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget(), m_first);
        QCOMPARE(Text(), QStringLiteral("\t"));
        m_first->setTabChangesFocus(true);
        QTest::keyClick(m_first, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), Edit()); // and no other stop between
    }

    // --- Strange input ---

    void a_megabyte_is_pasted_without_harm_data()
    {
        QTest::addColumn<QString>("megabyte");
        QTest::newRow("words") << QStringLiteral("seven ").repeated((1 << 20) / 6);
        QTest::newRow("emoji") << kEmoji.repeated((1 << 20) / 2);
        QTest::newRow("newlines") << QStringLiteral("\n").repeated(1 << 15); // a megabyte takes Qt half a minute
    }

    void a_megabyte_is_pasted_without_harm()
    {
        QFETCH(QString, megabyte);
        constexpr int kMost = std::numeric_limits<int>::max();
        SetMaximum(10);
        Paste(*Edit(), megabyte);
        QCOMPARE(Text(), megabyte.left(10));
        SetMaximum(kMost);
        Paste(*Edit(), megabyte);
        QCOMPARE(Text().size(), megabyte.size());
        QCOMPARE(Counter()->text(), QString::number(kMost - megabyte.size()));
        m_control->grab();
        SetText(QString());
        QCOMPARE(Text(), QString());
    }

    void a_word_of_a_megabyte_costs_nothing_if_it_is_cut()
    {
        SetMaximum(10);
        const QString word(1 << 20, QLatin1Char('7')); // Qt would wrap it for minutes
        Paste(*Edit(), word);
        QCOMPARE(Text(), word.left(10));
        SetText(word + QStringLiteral(" "));
        QCOMPARE(Text(), word.left(10));
        Paste(*Edit(), QStringLiteral("\r\n").repeated(1 << 19));
        QCOMPARE(Text(), QString(10, QLatin1Char('\n')));
        Paste(*Edit(), QStringLiteral("123"));
        Edit()->moveCursor(QTextCursor::Start);
        QApplication::clipboard()->setText(word.left(5));
        QTest::keySequence(Edit(), QKeySequence::Paste);
        QApplication::clipboard()->clear();
        QCOMPARE(Text(), QStringLiteral("77777123"));
    }

    // --- Hosts ---

    void a_document_of_the_host_is_limited_too()
    {
        SetMaximum(3);
        Edit()->setDocument(new QTextDocument(Edit())); // owned by the edit
        QTest::keyClicks(Edit(), QStringLiteral("abcd"));
        QCOMPARE(Text(), QStringLiteral("abc"));
        QCOMPARE(Counter()->text(), QStringLiteral("0"));
    }

    void a_host_may_delete_edit_and_counter_data()
    {
        QTest::addColumn<bool>("edit");
        QTest::addColumn<bool>("counter");
        QTest::newRow("edit") << true << false;
        QTest::newRow("counter") << false << true;
        QTest::newRow("both") << true << true;
    }

    void a_host_may_delete_edit_and_counter()
    {
        QFETCH(bool, edit);
        QFETCH(bool, counter);
        if (edit)
            delete Edit();
        if (counter)
            delete Counter();
        QCOMPARE(Edit() == nullptr, edit);
        QCOMPARE(Counter() == nullptr, counter);
        m_window->windowHandle()->installEventFilter(m_control); // as a host of a frame may
        SetMaximum(5);
        SetText(QStringLiteral("text and more"));
        SetPlaceholderText(QStringLiteral("placeholder"));
        m_control->resize(120, 80);
        UseTable(Table::Dark);
        MoveCursorOver(*m_control);
        ClickAt(m_control->mapTo(m_window.get(), QPoint(3, 50)));
        MoveCursorAway();
        m_first->setFocus();
        QEvent language(QEvent::LanguageChange);
        QCoreApplication::sendEvent(m_control, &language);
        m_control->grab();
        if (!edit)
            QCOMPARE(Text(), QStringLiteral("text "));
        if (!counter)
            QCOMPARE(Counter()->text(), edit ? QStringLiteral("5") : QStringLiteral("0"));
        if (Frame())
            Frame()->clear();
        SetMaximum(0);
    }

    void handlers_may_ask_for_the_deletion_of_the_field_data()
    {
        QTest::addColumn<bool>("isFocus");
        QTest::newRow("text changed") << false;
        QTest::newRow("keyboard lost") << true;
    }

    void handlers_may_ask_for_the_deletion_of_the_field()
    {
        QFETCH(bool, isFocus);
        SetMaximum(3);
        Edit()->setFocus();
        const QPointer<QFrame> guard(m_control);
        if (!isFocus)
            connect(Edit(), &QTextEdit::textChanged, m_control, &QObject::deleteLater);
        else if (Limiter())
            connect(Limiter(), &QcTextEditLimiter::SignalFousOut, m_control, &QObject::deleteLater);
        else
            connect(Frame(), &QcTextEditFrame::signalFocusOut, m_control, &QObject::deleteLater);
        Paste(*Edit(), QStringLiteral("too long"));
        m_first->setFocus();
        m_control = nullptr;
        DrainEvents();
        QVERIFY(!guard);
    }

    void a_field_that_dies_with_the_keyboard_hears_nothing_more()
    {
        SetMaximum(3);
        Edit()->setFocus();
        const auto losses = Losses();
        const LastWords lastWords(*Edit());
        delete std::exchange(m_control, nullptr);
        QCOMPARE(lastWords.Left(), QStringLiteral("last words")); // which nobody cut
        QCOMPARE(losses->count(), 0);
        DrainEvents();
    }

    void a_theme_change_between_leaves_the_text_alone()
    {
        SetMaximum(20);
        QTest::keyClicks(Edit(), QStringLiteral("one"));
        UseTable(Table::Dark);
        QTest::keyClicks(Edit(), QStringLiteral(" two"));
        QCOMPARE(Text(), QStringLiteral("one two"));
    }

    // --- Assistive technology ---

    void assistive_technology_sees_a_named_text_of_many_lines()
    {
        SetMaximum(100);
        QAccessibleInterface *frame = QAccessible::queryAccessibleInterface(m_control);
        QAccessibleInterface *edit = QAccessible::queryAccessibleInterface(Edit());
        QCOMPARE(frame->role(), QAccessible::Grouping);
        QCOMPARE(edit->role(), QAccessible::EditableText);
        QCOMPARE(edit->parent(), frame);
        QVERIFY(edit->state().selectableText);
        QVERIFY(edit->state().multiLine && edit->state().editable && edit->state().focusable && !edit->state().readOnly);
        SetPlaceholderText(QStringLiteral("placeholder"));
        QCOMPARE(edit->text(QAccessible::Name), QStringLiteral("placeholder"));
        QLabel label(QStringLiteral("&Buddy"), m_window.get());
        label.setBuddy(m_control);
        QCOMPARE(edit->text(QAccessible::Name), QStringLiteral("Buddy"));
        m_control->setAccessibleName(QStringLiteral("Remarks"));
        m_control->setAccessibleDescription(QStringLiteral("of the frame"));
        QCOMPARE(edit->text(QAccessible::Name), QStringLiteral("Remarks"));
        QCOMPARE(edit->text(QAccessible::Description), QStringLiteral("of the frame"));
        Edit()->setAccessibleName(QStringLiteral("Own"));
        QCOMPARE(edit->text(QAccessible::Name), QStringLiteral("Own"));
        SetText(QStringLiteral("one\ntwo"));
        QCOMPARE(edit->text(QAccessible::Value), QStringLiteral("one\ntwo"));
        QCOMPARE(Counter()->focusPolicy(), Qt::NoFocus);
        Edit()->setReadOnly(true);
        QVERIFY(edit->state().readOnly);
    }

private:
    QFrame *Make(QWidget &parent) override
    {
        QFETCH_GLOBAL(bool, isLimiter);
        if (isLimiter)
            return new QcTextEditLimiter(&parent);
        return new QcTextEditFrame(&parent);
    }

    QcTextEditLimiter *Limiter() const { return qobject_cast<QcTextEditLimiter *>(m_control); }
    QcTextEditFrame *Frame() const { return qobject_cast<QcTextEditFrame *>(m_control); }
    QTextEdit *Edit() const { return Limiter() ? Limiter()->textEdit() : Frame()->getTextEdit(); }
    QLabel *Counter() const
    {
        return Limiter() ? Limiter()->counterLabel() : m_control->findChild<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
    }
    QString Text() const { return Edit()->toPlainText(); }

    void SetMaximum(int maximum) { Limiter() ? Limiter()->setMaxNum(maximum) : Frame()->setMaxLength(maximum); }
    void SetText(const QString &text) { Limiter() ? Limiter()->setText(text) : Frame()->setText(text); }
    void SetPlaceholderText(const QString &text) { Limiter() ? Limiter()->setPlaceholderText(text) : Frame()->setPlaceholderText(text); }

    std::unique_ptr<QSignalSpy> Losses() const
    {
        if (Limiter())
            return std::make_unique<QSignalSpy>(Limiter(), &QcTextEditLimiter::SignalFousOut);
        return std::make_unique<QSignalSpy>(Frame(), &QcTextEditFrame::signalFocusOut);
    }
};

VELMORA_TEST_MAIN(TestTextEdits)

#include "tst_TextEdits.moc"
