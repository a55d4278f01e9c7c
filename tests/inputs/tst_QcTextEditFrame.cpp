#include "support/ReadPieces.h"
#include "support/TestMain.h"

#include "inputs/TextEditTest.h"
#include "support/PaintedRegion.h"
#include "support/ProcessorTime.h"

#include <Velmora/QcTextEditFrame.h>

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QWindow>

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
        DrainEvents();
        PaintedRegion painted(*m_control);
        m_control->setFocus();
        DrainEvents();
        QCOMPARE(painted.region, QRegion(m_control->rect())); // not only what lies below the edit
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

    void a_longer_text_is_told_once_when_it_is_cut_and_counted()
    {
        m_control->setMaxLength(10);
        QStringList heard;
        connect(m_control, &QcTextEditFrame::signalTextChanged, m_first,
                [&](const QString &text) { heard << text + QLatin1Char(' ') + CounterOf(*m_control)->text(); });
        Paste(*Edit(), QStringLiteral("123456789012345"));
        QCOMPARE(heard, QStringList({QStringLiteral("1234567890 0")}));
        QCOMPARE(m_control->getText(), QStringLiteral("1234567890"));
        QCOMPARE(m_control->toPlainText(), QStringLiteral("1234567890"));
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

    void pasted_html_that_qt_could_not_lay_out_stays_as_it_is_written()
    {
        const ProcessorTime time;
        m_control->setMaxLength(500);
        Paste(*Edit(), NestedTables(40)); // which is cut, and then read as HTML if it may be
        m_control->grab();
        QCOMPARE(m_control->getText(), NestedTables(40).left(500));
        QVERIFY(time.Elapsed() < 1000);
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

    void the_border_follows_the_keyboard()
    {
        QSignalSpy gains(m_control, &QcTextEditFrame::signalFocusIn);
        QSignalSpy losses(m_control, &QcTextEditFrame::signalFocusOut);
        ClickAt(m_control->mapTo(m_window.get(), QPoint(3, 50))); // the margin
        QVERIFY(Edit()->hasFocus());
        QVERIFY(HasFocusBorder(*m_control));
        QCOMPARE(gains.count(), 1);
        VisitAnotherWindow();
        QVERIFY(HasFocusBorder(*m_control));
        QCOMPARE(losses.count(), 1);
        QCOMPARE(gains.count(), 2);
        m_first->setFocus();
        QCOMPARE(m_control->property("objectPropertyFocus"), QVariant(false));
        QCOMPARE(losses.count(), 2);
    }

    void a_menu_keeps_the_border()
    {
        m_control->setFocus();
        OpenMenu(*Edit());
        QVERIFY(HasFocusBorder(*m_control));
        CloseMenu();
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

    void handlers_may_ask_for_the_deletion_of_the_field_data()
    {
        QTest::addColumn<bool>("isFocus");
        QTest::newRow("text told") << false;
        QTest::newRow("keyboard got") << true;
    }

    void handlers_may_ask_for_the_deletion_of_the_field()
    {
        QFETCH(bool, isFocus);
        m_control->setMaxLength(3);
        const QPointer<QcTextEditFrame> guard(m_control);
        if (isFocus)
            connect(m_control, &QcTextEditFrame::signalFocusIn, m_control, &QObject::deleteLater);
        else
            connect(m_control, &QcTextEditFrame::signalTextChanged, m_control, &QObject::deleteLater);
        Paste(*Edit(), QStringLiteral("too long"));
        m_control = nullptr;
        DrainEvents();
        QVERIFY(!guard);
    }

    // --- Assistive technology ---

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
        QCOMPARE(FaultOfPieces(*text), QString());
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
        text->removeSelection(1);
        text->setSelection(1, 0, 3);
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
        QCOMPARE(text->characterRect(3), QRect(text->characterRect(2).right() + 1, first.top(), 0, first.height())); // ends the line
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
        edit->setText(QAccessible::Value, QStringLiteral("2"));
        QCOMPARE(m_control->getText(), QStringLiteral("2"));
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
