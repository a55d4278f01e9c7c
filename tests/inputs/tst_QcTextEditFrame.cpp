#include "support/TestMain.h"

#include "inputs/TextEditTest.h"

#include <Velmora/QcTextEditFrame.h>

#include <QAccessible>
#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QSignalSpy>
#include <QTextDocument>
#include <QVBoxLayout>
#include <QWindow>

#include <ctime>
#include <limits>
#include <utility>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QColor kCanvas(120, 140, 120);

QLabel *CounterOf(const QcTextEditFrame &frame)
{
    return frame.findChild<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
}

bool HasFocusBorder(const QcTextEditFrame &frame)
{
    return frame.property("objectPropertyFocus").toBool();
}

enum State { Rest, Hover, Focus, Disabled };

} // namespace

class TestQcTextEditFrame : public TextEditTest<QcTextEditFrame>
{
    Q_OBJECT

private Q_SLOTS:
    // --- What a new frame is ---

    void a_new_frame_holds_an_edit_above_a_hidden_counter()
    {
        QcTextEditFrame frame(nullptr);
        const auto *layout = qobject_cast<QVBoxLayout *>(frame.layout());
        QVERIFY(layout);
        QCOMPARE(layout->contentsMargins(), QMargins(8, 8, 8, 8));
        QCOMPARE(layout->spacing(), 7);
        QCOMPARE(layout->count(), 2);
        QCOMPARE(layout->itemAt(0)->widget(), frame.getTextEdit());
        const auto *row = qobject_cast<QHBoxLayout *>(layout->itemAt(1)->layout());
        QVERIFY(row);
        QCOMPARE(row->contentsMargins(), QMargins());
        QCOMPARE(row->spacing(), 0);
        QCOMPARE(row->count(), 2);
        QVERIFY(row->itemAt(0)->spacerItem());
        QCOMPARE(row->itemAt(1)->widget(), CounterOf(frame));
        QCOMPARE(CounterOf(frame)->minimumHeight(), 12);
        QCOMPARE(CounterOf(frame)->maximumHeight(), 12);
        QVERIFY(CounterOf(frame)->isHidden());
        QCOMPARE(frame.getMaxLength(), 0);
        QCOMPARE(frame.getTextEdit()->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QVERIFY(!frame.getTextEdit()->acceptRichText());
        QVERIFY(!frame.property("objectPropertyFocus").isValid());
        QVERIFY(!frame.property("objectPropertyWarning").isValid());
        QCOMPARE(frame.focusPolicy(), Qt::ClickFocus);
        DrainEvents();
    }

    // --- Look ---

    void each_state_has_its_border_and_ground_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<QString>("border");
        QTest::newRow("rest") << int(Rest) << "border/border_primary";
        QTest::newRow("hover") << int(Hover) << "brand/brand";
        QTest::newRow("focus") << int(Focus) << "brand/brand";
        QTest::newRow("disabled") << int(Disabled) << "border/border_tertairy";
    }

    void each_state_has_its_border_and_ground()
    {
        QFETCH(int, state);
        QFETCH(QString, border);
        m_control->setEnabled(state != Disabled);
        if (state == Hover)
            MoveCursorOver(*m_control);
        if (state == Focus)
            m_control->setFocus();
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QColor ground = Over(TokenOf(table, QStringLiteral("bg/bg_secondary")), kCanvas);
            const QImage image = Render(*m_control, kCanvas);
            COMPARE_COLOR(PixelAt(image, QPointF(100, 90)), ground);
            // Qt lets the ground reach under a part of the border.
            const QColor line = PixelAt(image, QPointF(100, 0.2));
            QVERIFY2(IsBetween(line, Over(TokenOf(table, border), ground), Over(TokenOf(table, border), kCanvas)), qPrintable(line.name()));
            QVERIFY(Close(PixelAt(image, QPointF(0.1, 0.1)), kCanvas, 60)); // hardly covered: the corner is round
        }
    }

    void text_and_placeholder_have_their_tokens_data()
    {
        QTest::addColumn<bool>("isPlaceholder");
        QTest::addColumn<bool>("isEnabled");
        QTest::addColumn<QString>("token");
        const QString tertiary = QStringLiteral("text/text_tertairy");
        QTest::newRow("text") << false << true << "text/text_primary";
        QTest::newRow("disabled text") << false << false << tertiary;
        QTest::newRow("placeholder") << true << true << tertiary;
        QTest::newRow("disabled placeholder") << true << false << tertiary;
    }

    void text_and_placeholder_have_their_tokens()
    {
        QFETCH(bool, isPlaceholder);
        QFETCH(bool, isEnabled);
        QFETCH(QString, token);
        if (isPlaceholder)
            m_control->setPlaceholderText(kBlocks);
        else
            m_control->setText(kBlocks);
        m_control->setEnabled(isEnabled);
        QCOMPARE(Edit()->font().pixelSize(), 12);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            COMPARE_COLOR(MainInk(Render(*Edit(), Qt::red), Qt::red), Over(TokenOf(table, token), Qt::red));
        }
    }

    void the_border_of_the_keyboard_repaints()
    {
        EventCounter paints(*m_control, QEvent::Paint);
        m_control->setFocus();
        DrainEvents();
        QVERIFY(paints.Take() > 0);
    }

    // --- Limit and counter ---

    void without_a_maximum_there_is_no_counter_and_no_limit_data()
    {
        QTest::addColumn<int>("max");
        QTest::newRow("0") << 0;
        QTest::newRow("-1") << -1;
    }

    void without_a_maximum_there_is_no_counter_and_no_limit()
    {
        QFETCH(int, max);
        m_control->setMaxLength(5);
        QVERIFY(CounterOf(*m_control)->isVisible());
        m_control->setMaxLength(max);
        QCOMPARE(m_control->getMaxLength(), max);
        QVERIFY(!CounterOf(*m_control)->isVisible());
        Paste(*Edit(), QString(1000, QLatin1Char('x')));
        QCOMPARE(m_control->getText().size(), 1000);
    }

    void a_longer_text_is_cut_with_the_cursor_at_its_end()
    {
        m_control->setMaxLength(10);
        QStringList heard;
        connect(m_control, &QcTextEditFrame::signalTextChanged, m_first,
                [&](const QString &text) { heard << text + QLatin1Char(' ') + CounterOf(*m_control)->text(); });
        QSignalSpy cursorMoves(Edit(), &QTextEdit::cursorPositionChanged);
        Paste(*Edit(), QStringLiteral("123456789012345"));
        QCOMPARE(m_control->getText(), QStringLiteral("1234567890"));
        QCOMPARE(m_control->toPlainText(), QStringLiteral("1234567890"));
        QCOMPARE(Edit()->textCursor().position(), 10);
        QCOMPARE(heard, QStringList({QStringLiteral("1234567890 0")})); // once: the cut text, when the counter has told it
        QVERIFY(!Edit()->document()->isUndoAvailable());
        QVERIFY(!Edit()->signalsBlocked());
    }

    void an_emoji_that_fits_by_half_is_given_up_whole()
    {
        m_control->setMaxLength(3);
        Paste(*Edit(), QStringLiteral("ab") + kEmoji);
        QCOMPARE(m_control->getText(), QStringLiteral("ab"));
        QCOMPARE(Edit()->textCursor().position(), 2);
        QCOMPARE(CounterOf(*m_control)->text(), QStringLiteral("1"));
    }

    void a_cut_text_that_looks_like_html_is_read_as_such()
    {
        m_control->setMaxLength(15);
        Paste(*Edit(), QStringLiteral("<b>bold</b> and more"));
        QCOMPARE(m_control->getText(), QStringLiteral("bold and"));
        QCOMPARE(Edit()->textCursor().position(), 8); // and no complaint of Qt's
        QCOMPARE(CounterOf(*m_control)->text(), QStringLiteral("7"));
    }

    void a_set_text_is_read_as_html_and_a_pasted_one_arrives_plain()
    {
        m_control->setText(QStringLiteral("<b>bold</b>"));
        QCOMPARE(m_control->getText(), QStringLiteral("bold"));
        auto *rich = new QMimeData; // owned by the clipboard
        rich->setHtml(QStringLiteral("<b>bold</b>"));
        rich->setText(QStringLiteral("plain"));
        QApplication::clipboard()->setMimeData(rich);
        Edit()->selectAll();
        Edit()->paste();
        QApplication::clipboard()->clear();
        QCOMPARE(m_control->getText(), QStringLiteral("plain"));
    }

    void html_that_qt_could_not_lay_out_stays_as_it_is_written_data()
    {
        QTest::addColumn<bool>("isPasted");
        QTest::addColumn<QString>("html");
        QTest::addColumn<int>("limit");
        QTest::newRow("tables, pasted and cut") << true << NestedTables(40) << 500;
        QTest::newRow("tables, set") << false << NestedTables(40) << 500;
        QTest::newRow("lists, pasted and cut") << true << QStringLiteral("<ul>\n").repeated(20000) << 99999;
        QTest::newRow("lists, set") << false << QStringLiteral("<ul>\n").repeated(20000) << 99999;
    }

    void html_that_qt_could_not_lay_out_stays_as_it_is_written()
    {
        QFETCH(bool, isPasted);
        QFETCH(QString, html);
        QFETCH(int, limit);
        const std::clock_t begin = std::clock();
        m_control->setMaxLength(limit);
        if (isPasted)
            Paste(*Edit(), html);
        else
            m_control->setText(html);
        m_control->grab();
        QCOMPARE(m_control->getText(), html.left(limit));
        QVERIFY(double(std::clock() - begin) / CLOCKS_PER_SEC < 2); // seconds
    }

    void a_maximum_below_the_text_counts_below_zero_until_the_next_edit()
    {
        m_control->setText(QStringLiteral("abcdefgh"));
        m_control->setMaxLength(5);
        QCOMPARE(m_control->getText(), QStringLiteral("abcdefgh"));
        QCOMPARE(CounterOf(*m_control)->text(), QStringLiteral("-3"));
        QTest::keyClicks(Edit(), QStringLiteral("x"));
        QCOMPARE(m_control->getText(), QStringLiteral("xabcd"));
        QCOMPARE(CounterOf(*m_control)->text(), QStringLiteral("0"));
        m_control->clear();
        QCOMPARE(m_control->getText(), QString());
        QCOMPARE(CounterOf(*m_control)->text(), QStringLiteral("5"));
    }

    void a_disabled_frame_shows_no_count_on_its_counter()
    {
        m_control->setMaxLength(5);
        QLabel *counter = CounterOf(*m_control);
        counter->setText(kBlocks);
        DrainEvents();
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            COMPARE_COLOR(MainInk(Render(*counter, Qt::red), Qt::red), Over(TokenOf(table, QStringLiteral("text/text_tertairy")), Qt::red));
        }
        m_control->setEnabled(false);
        QVERIFY(counter->isVisible());
        QVERIFY(InkBox(Render(*counter, Qt::red), Qt::red).isEmpty());
    }

    void the_counter_is_written_small_and_in_the_middle_of_its_label()
    {
        m_control->setMaxLength(888);
        QLabel *counter = CounterOf(*m_control);
        DrainEvents();
        QFont font = counter->font();
        font.setPixelSize(40);
        counter->setFont(font); // which plays no part
        counter->setFixedWidth(100);
        DrainEvents();
        const QRectF ink = InkBox(Render(*counter), Qt::white);
        QVERIFY(ink.height() >= 5 && ink.height() <= 10);
        QVERIFY(qAbs(ink.center().x() - 50) <= 1.5);
        QCOMPARE(counter->height(), 12);
    }

    void who_hears_of_changes_gets_the_text()
    {
        QSignalSpy changes(m_control, &QcTextEditFrame::signalTextChanged);
        m_control->setText(QStringLiteral("one"));
        Edit()->moveCursor(QTextCursor::End);
        QTest::keyClicks(Edit(), QStringLiteral("!"));
        QCOMPARE(changes.last().at(0).toString(), QStringLiteral("one!"));
        m_control->clear();
        QCOMPARE(changes.last().at(0).toString(), QString());
        m_control->setPlaceholderText(QStringLiteral("hint"));
        QCOMPARE(Edit()->placeholderText(), QStringLiteral("hint"));
    }

    // --- Keyboard ---

    void the_keyboard_is_there_again_after_a_visit_to_another_window()
    {
        m_control->setFocus();
        QSignalSpy gains(m_control, &QcTextEditFrame::signalFocusIn);
        QSignalSpy losses(m_control, &QcTextEditFrame::signalFocusOut);
        VisitAnotherWindow();
        QCOMPARE(QApplication::focusWidget(), Edit());
        QCOMPARE(gains.count(), 1);
        QCOMPARE(losses.count(), 1);
        QVERIFY(HasFocusBorder(*m_control));
    }

    void the_border_follows_the_keyboard()
    {
        QSignalSpy gains(m_control, &QcTextEditFrame::signalFocusIn);
        QSignalSpy losses(m_control, &QcTextEditFrame::signalFocusOut);
        ClickAt(m_control->mapTo(m_window.get(), QPoint(3, 50))); // the margin
        QVERIFY(Edit()->hasFocus());
        QVERIFY(HasFocusBorder(*m_control));
        QCOMPARE(gains.count(), 1);
        m_first->setFocus();
        QCOMPARE(m_control->property("objectPropertyFocus"), QVariant(false));
        QCOMPARE(losses.count(), 1);
    }

    void a_menu_keeps_the_border_and_is_told_as_a_loss()
    {
        m_control->setFocus();
        QSignalSpy losses(m_control, &QcTextEditFrame::signalFocusOut);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(10, 10), Edit()->viewport()->mapToGlobal(QPoint(10, 10)));
        QCoreApplication::sendEvent(Edit()->viewport(), &event);
        QTRY_VERIFY(QApplication::activePopupWidget());
        QVERIFY(HasFocusBorder(*m_control));
        QCOMPARE(losses.count(), 1);
        QApplication::activePopupWidget()->close();
        DrainEvents();
    }

    void a_press_elsewhere_takes_the_keyboard_if_the_host_shows_it_the_window()
    {
        m_control->setFocus();
        ClickAt(QPoint(250, 150));
        QVERIFY(Edit()->hasFocus());
        m_window->windowHandle()->installEventFilter(m_control);
        MoveCursorAway();
        ClickAt(QPoint(250, 150));
        QVERIFY(!Edit()->hasFocus());
        QVERIFY(!HasFocusBorder(*m_control));
        MoveCursorOver(*m_control);
        ClickAt(m_control->mapTo(m_window.get(), QPoint(3, 50)));
        QVERIFY(Edit()->hasFocus());
        QVERIFY(HasFocusBorder(*m_control));
    }

    void tab_types_a_tab_and_shift_tab_leaves()
    {
        m_control->setMaxLength(5);
        m_control->setFocus();
        QTest::keyClick(Edit(), Qt::Key_Tab);
        QCOMPARE(m_control->getText(), QStringLiteral("\t"));
        QTest::keyClick(Edit(), Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget(), m_first);
        m_first->setTabChangesFocus(true);
        QTest::keyClick(m_first, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), Edit()); // and no other stop between
    }

    // --- Lifetime and strange input ---

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
        m_control->setMaxLength(10);
        Paste(*Edit(), megabyte);
        QCOMPARE(m_control->getText(), megabyte.left(10));
        for (const int unlimited : {0, std::numeric_limits<int>::max()}) {
            m_control->setMaxLength(unlimited);
            Paste(*Edit(), megabyte);
            QCOMPARE(m_control->getText().size(), megabyte.size());
        }
        QCOMPARE(CounterOf(*m_control)->text(), QString::number(std::numeric_limits<int>::max() - megabyte.size()));
        m_control->grab();
        m_control->setText(QString());
        QCOMPARE(m_control->getText(), QString());
    }

    void a_word_of_a_megabyte_costs_nothing_if_it_is_cut()
    {
        m_control->setMaxLength(10);
        const QString word(1 << 20, QLatin1Char('7')); // Qt would wrap it for minutes
        Paste(*Edit(), word);
        QCOMPARE(m_control->getText(), word.left(10));
        m_control->setText(word);
        QCOMPARE(m_control->getText(), word.left(10));
    }

    void a_document_of_the_host_is_limited_too()
    {
        m_control->setMaxLength(3);
        Edit()->setDocument(new QTextDocument(Edit())); // owned by the edit
        QTest::keyClicks(Edit(), QStringLiteral("abcd"));
        QCOMPARE(m_control->getText(), QStringLiteral("abc"));
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
            delete m_control->getTextEdit();
        if (counter)
            delete CounterOf(*m_control);
        QCOMPARE(m_control->getTextEdit() == nullptr, edit);
        m_window->windowHandle()->installEventFilter(m_control);
        m_control->setMaxLength(5);
        m_control->setText(QStringLiteral("text and more"));
        m_control->setPlaceholderText(QStringLiteral("placeholder"));
        QCOMPARE(m_control->getText(), edit ? QString() : QStringLiteral("text "));
        m_control->resize(120, 80);
        UseTable(Table::Dark);
        MoveCursorOver(*m_control);
        ClickAt(m_control->mapTo(m_window.get(), QPoint(3, 50)));
        m_first->setFocus();
        m_control->grab();
        m_control->clear();
        m_control->setMaxLength(0);
    }

    void handlers_may_ask_for_the_deletion_of_the_field_data()
    {
        QTest::addColumn<int>("which");
        QTest::newRow("text changed") << 0;
        QTest::newRow("keyboard got") << 1;
        QTest::newRow("keyboard lost") << 2;
    }

    void handlers_may_ask_for_the_deletion_of_the_field()
    {
        QFETCH(int, which);
        m_control->setMaxLength(3);
        const QPointer<QcTextEditFrame> guard(m_control);
        if (which == 0)
            connect(m_control, &QcTextEditFrame::signalTextChanged, m_control, &QObject::deleteLater);
        else
            connect(m_control, which == 1 ? &QcTextEditFrame::signalFocusIn : &QcTextEditFrame::signalFocusOut, m_control,
                    &QObject::deleteLater);
        Paste(*Edit(), QStringLiteral("too long"));
        if (which == 2)
            m_first->setFocus();
        m_control = nullptr;
        DrainEvents();
        QVERIFY(!guard);
    }

    void a_frame_that_dies_with_the_keyboard_hears_nothing_more()
    {
        m_control->setMaxLength(3);
        m_control->setFocus();
        QSignalSpy changes(m_control, &QcTextEditFrame::signalTextChanged);
        QSignalSpy losses(m_control, &QcTextEditFrame::signalFocusOut);
        const LastWords lastWords(*Edit());
        delete std::exchange(m_control, nullptr);
        QCOMPARE(lastWords.Left(), QStringLiteral("last words")); // which nobody cut
        QCOMPARE(changes.count(), 0);
        QCOMPARE(losses.count(), 0);
        DrainEvents();
    }

    void a_theme_change_between_leaves_the_text_alone()
    {
        QTest::keyClicks(Edit(), QStringLiteral("one"));
        UseTable(Table::Dark);
        QTest::keyClicks(Edit(), QStringLiteral(" two"));
        QCOMPARE(m_control->getText(), QStringLiteral("one two"));
    }

    // --- Assistive technology ---

    void assistive_technology_sees_a_named_text_of_many_lines()
    {
        QAccessibleInterface *frame = QAccessible::queryAccessibleInterface(m_control);
        QAccessibleInterface *edit = QAccessible::queryAccessibleInterface(Edit());
        QCOMPARE(frame->role(), QAccessible::Grouping);
        QCOMPARE(edit->role(), QAccessible::EditableText);
        QCOMPARE(edit->parent(), frame);
        QVERIFY(edit->state().multiLine && edit->state().editable && edit->state().focusable && !edit->state().readOnly);
        m_control->setPlaceholderText(QStringLiteral("placeholder"));
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
        QCOMPARE(CounterOf(*m_control)->focusPolicy(), Qt::NoFocus);
        Edit()->setReadOnly(true);
        QVERIFY(edit->state().readOnly);
    }

    void assistive_technology_reads_lines_words_and_letters()
    {
        QAccessibleTextInterface *text = Text();
        m_control->setText(QStringLiteral("one two\nthree"));
        QCOMPARE(text->characterCount(), 13);
        QCOMPARE(text->text(4, 9), QStringLiteral("two\nt"));
        QCOMPARE(text->text(-5, 99), QStringLiteral("one two\nthree"));
        int start = 0;
        int end = 0;
        QCOMPARE(text->textAtOffset(5, QAccessible::WordBoundary, &start, &end), QStringLiteral("two"));
        QCOMPARE(start, 4);
        QCOMPARE(end, 7);
        QCOMPARE(text->textAtOffset(9, QAccessible::LineBoundary, &start, &end), QStringLiteral("three"));
        QCOMPARE(text->textBeforeOffset(9, QAccessible::LineBoundary, &start, &end).trimmed(), QStringLiteral("one two"));
        QCOMPARE(text->textAfterOffset(1, QAccessible::LineBoundary, &start, &end), QStringLiteral("three"));
        QCOMPARE(text->textBeforeOffset(1, QAccessible::LineBoundary, &start, &end), QString());
        QCOMPARE(text->textAfterOffset(9, QAccessible::LineBoundary, &start, &end), QString());
        QCOMPARE(start, 13);
        QCOMPARE(text->textAfterOffset(0, QAccessible::CharBoundary, &start, &end), QStringLiteral("n"));
        // Lines of the screen.
        m_control->setText(QStringLiteral("word ").repeated(20));
        const QString line = text->textAtOffset(1, QAccessible::LineBoundary, &start, &end);
        QVERIFY(!line.isEmpty() && line.size() < 60);
    }

    void assistive_technology_moves_the_cursor_and_selects()
    {
        QAccessibleTextInterface *text = Text();
        m_control->setText(QStringLiteral("one two"));
        text->setCursorPosition(3);
        QCOMPARE(text->cursorPosition(), 3);
        QCOMPARE(text->selectionCount(), 0);
        text->setSelection(0, 4, 7);
        int start = 0;
        int end = 0;
        text->selection(0, &start, &end);
        QCOMPARE(start, 4);
        QCOMPARE(end, 7);
        QCOMPARE(Edit()->textCursor().selectedText(), QStringLiteral("two"));
        text->removeSelection(0);
        QCOMPARE(text->selectionCount(), 0);
        text->setCursorPosition(99);
        QCOMPARE(text->cursorPosition(), 7);
    }

    void assistive_technology_finds_characters_on_the_screen()
    {
        QAccessibleTextInterface *text = Text();
        m_control->setText(QStringLiteral("one\ntwo"));
        DrainEvents();
        const QRect first = text->characterRect(0);
        const QRect second = text->characterRect(1);
        const QRect below = text->characterRect(4);
        QCOMPARE(second.left(), first.right() + 1);
        QCOMPARE(below.left(), first.left());
        QVERIFY(below.top() > first.bottom() - 2);
        QVERIFY(QRect(Edit()->mapToGlobal(QPoint(0, 0)), Edit()->size()).contains(first));
        QCOMPARE(text->offsetAtPoint(QPoint(below.left() + 1, below.center().y())), 4);
        QVERIFY(text->characterRect(-1).isNull());
        QVERIFY(text->characterRect(8).isNull());
        m_control->setText(QStringLiteral("line\n").repeated(50));
        text->scrollToSubstring(245, 249);
        QVERIFY(Edit()->viewport()->rect().contains(Edit()->viewport()->mapFromGlobal(text->characterRect(245).center())));
    }

    void assistive_technology_edits_within_the_limit()
    {
        QAccessibleInterface *edit = QAccessible::queryAccessibleInterface(Edit());
        auto *text = static_cast<QAccessibleEditableTextInterface *>(edit->interface_cast(QAccessible::EditableTextInterface));
        m_control->setMaxLength(10);
        text->insertText(0, QStringLiteral("two"));
        text->insertText(0, QStringLiteral("one "));
        text->replaceText(0, 3, QStringLiteral("1"));
        QCOMPARE(m_control->getText(), QStringLiteral("1 two"));
        text->deleteText(1, 99);
        QCOMPARE(m_control->getText(), QStringLiteral("1"));
        edit->setText(QAccessible::Value, QStringLiteral("much too long"));
        QCOMPARE(m_control->getText(), QStringLiteral("much too l"));
        Edit()->setReadOnly(true);
        edit->setText(QAccessible::Value, QStringLiteral("no"));
        QCOMPARE(m_control->getText(), QStringLiteral("much too l"));
    }

private:
    QTextEdit *Edit() const { return m_control->getTextEdit(); }

    QAccessibleTextInterface *Text() const { return QAccessible::queryAccessibleInterface(Edit())->textInterface(); }
};

VELMORA_TEST_MAIN(TestQcTextEditFrame)

#include "tst_QcTextEditFrame.moc"
