#include "support/TestMain.h"

#include "inputs/TextEditTest.h"

#include <Velmora/QcLabel.h>
#include <Velmora/QcTextEditLimiter.h>

#include <QAccessible>
#include <QLabel>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextDocument>
#include <QTranslator>
#include <QVBoxLayout>
#include <QWindow>

#include <limits>
#include <utility>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QColor kCanvas(120, 140, 120);

/// Translates the one text of the limiter.
class Translator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char * /*remark*/, int /*number*/) const override
    {
        const bool isOurs = qstrcmp(context, "Velmora::QcTextEditLimiter") == 0 && qstrcmp(text, "PleaseEnterMsg") == 0;
        return isOurs ? QStringLiteral("Bitte eingeben") : QString();
    }
};

/// The colour in the middle of the scroll bar's upper part, where the handle of a long text begins.
QColor HandleColor(QcTextEditLimiter &limiter)
{
    const QScrollBar *bar = limiter.textEdit()->verticalScrollBar();
    return PixelAt(Render(limiter, kCanvas), bar->mapTo(&limiter, QPoint(bar->width() / 2, 10)));
}

QVariant NeedScroll(const QcTextEditLimiter &limiter)
{
    return limiter.textEdit()->verticalScrollBar()->property("needScroll");
}

} // namespace

class TestQcTextEditLimiter : public TextEditTest<QcTextEditLimiter>
{
    Q_OBJECT

private Q_SLOTS:
    // --- What a new limiter is ---

    void a_new_limiter_holds_an_edit_and_a_counter_above_it()
    {
        QcTextEditLimiter limiter(nullptr);
        const QTextEdit *edit = limiter.textEdit();
        QCOMPARE(edit->objectName(), QStringLiteral("limitedTextEdit"));
        QVERIFY(!edit->acceptRichText());
        QCOMPARE(edit->wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
        QCOMPARE(edit->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
        QCOMPARE(edit->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(edit->placeholderText(), QStringLiteral("PleaseEnterMsg"));
        QVERIFY(limiter.testAttribute(Qt::WA_StyledBackground));
        const auto *layout = qobject_cast<QVBoxLayout *>(limiter.layout());
        QVERIFY(layout);
        QCOMPARE(layout->contentsMargins(), QMargins(4, 4, 2, 20));
        QCOMPARE(layout->spacing(), 0);
        QCOMPARE(layout->count(), 1);
        QCOMPARE(layout->itemAt(0)->widget(), edit);
        const QcLabel *counter = limiter.counterLabel();
        QCOMPARE(counter->text(), QStringLiteral("0"));
        QCOMPARE(counter->alignment(), Qt::AlignRight | Qt::AlignBottom);
        QVERIFY(counter->testAttribute(Qt::WA_TransparentForMouseEvents));
        QCOMPARE(counter->parentWidget(), &limiter);
        QVERIFY(limiter.children().lastIndexOf(limiter.counterLabel()) > limiter.children().indexOf(limiter.textEdit()));
        QCOMPARE(NeedScroll(limiter), QVariant(false));
        DrainEvents();
    }

    // --- Look ---

    void each_state_has_its_border_and_ground_data()
    {
        QTest::addColumn<bool>("isHovered");
        QTest::addColumn<bool>("isEnabled");
        QTest::addColumn<QString>("border");
        QTest::addColumn<QString>("ground");
        QTest::newRow("rest") << false << true << "border/border_secondary" << QString();
        QTest::newRow("hover") << true << true << "brand/brand" << QString();
        QTest::newRow("disabled") << false << false << "border/border_primary"
                                  << "base/neutral/neutral-30";
    }

    void each_state_has_its_border_and_ground()
    {
        QFETCH(bool, isHovered);
        QFETCH(bool, isEnabled);
        QFETCH(QString, border);
        QFETCH(QString, ground);
        m_control->setEnabled(isEnabled);
        if (isHovered)
            MoveCursorOver(*m_control);
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QColor below = ground.isEmpty() ? kCanvas : Over(TokenOf(table, ground), kCanvas);
            const QImage image = Render(*m_control, kCanvas);
            COMPARE_COLOR(PixelAt(image, QPointF(20, 90)), below); // in the counter's strip
            // Qt lets the ground reach under a part of the border.
            const QColor line = PixelAt(image, QPointF(100, 0.2));
            QVERIFY2(IsBetween(line, Over(TokenOf(table, border), below), Over(TokenOf(table, border), kCanvas)), qPrintable(line.name()));
        }
    }

    void text_counter_and_disabled_text_have_their_tokens()
    {
        m_control->setMaxNum(100);
        m_control->setText(kBlocks);
        QCOMPARE(m_control->textEdit()->font().pixelSize(), 12);
        QCOMPARE(m_control->counterLabel()->font().pixelSize(), 12);
        for (const bool isEnabled : {true, false}) {
            m_control->setEnabled(isEnabled);
            for (const Table table : {Table::Light, Table::Dark}) {
                UseTable(table);
                const QString token = isEnabled ? QStringLiteral("text/text_primary") : QStringLiteral("text/text_tertairy");
                COMPARE_COLOR(MainInk(Render(*m_control->textEdit(), Qt::red), Qt::red), Over(TokenOf(table, token), Qt::red));
            }
        }
        UseTable(Table::Light);
        m_control->setEnabled(true);
        m_control->counterLabel()->setText(kBlocks);
        m_control->counterLabel()->adjustSize();
        COMPARE_COLOR(MainInk(Render(*m_control->counterLabel(), Qt::red), Qt::red),
                      Over(TokenOf(Table::Light, QStringLiteral("text/text_secondary")), Qt::red));
    }

    // --- Limit ---

    void a_paste_of_15_into_10_keeps_10_with_the_cursor_at_the_end()
    {
        m_control->setMaxNum(10);
        QStringList heard;
        connect(Edit(), &QTextEdit::textChanged, m_first, [&] { heard << Edit()->toPlainText(); });
        QSignalSpy cursorMoves(Edit(), &QTextEdit::cursorPositionChanged);
        Paste(*Edit(), QStringLiteral("123456789012345"));
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("1234567890"));
        QCOMPARE(Edit()->textCursor().position(), 10);
        QCOMPARE(m_control->counterLabel()->text(), QStringLiteral("0"));
        QCOMPARE(heard, QStringList({QStringLiteral("1234567890")})); // once, and only the cut text
        QVERIFY(!Edit()->document()->isUndoAvailable());
        QVERIFY(!Edit()->signalsBlocked());
    }

    void the_counter_tells_what_is_left_while_typing()
    {
        m_control->setMaxNum(3);
        QCOMPARE(m_control->counterLabel()->text(), QStringLiteral("3"));
        for (const char *left : {"2", "1", "0", "0"}) {
            QTest::keyClicks(Edit(), QStringLiteral("x"));
            QCOMPARE(m_control->counterLabel()->text(), QLatin1String(left));
        }
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("xxx"));
        QVERIFY(Edit()->textCursor().atEnd());
    }

    void typing_into_the_middle_of_a_full_field_drops_its_end()
    {
        m_control->setMaxNum(3);
        m_control->setText(QStringLiteral("abc"));
        Edit()->moveCursor(QTextCursor::Start);
        QTest::keyClicks(Edit(), QStringLiteral("x"));
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("xab"));
        QVERIFY(Edit()->textCursor().atEnd());
    }

    void a_maximum_of_0_or_less_accepts_nothing_data()
    {
        QTest::addColumn<int>("max");
        QTest::newRow("never set") << 1;
        QTest::newRow("0") << 0;
        QTest::newRow("-1") << -1;
        QTest::newRow("least") << std::numeric_limits<int>::min();
    }

    void a_maximum_of_0_or_less_accepts_nothing()
    {
        QFETCH(int, max);
        if (max <= 0)
            m_control->setMaxNum(max);
        m_control->setText(QStringLiteral("dropped"));
        QCOMPARE(Edit()->toPlainText(), QString());
        QTest::keyClicks(Edit(), QStringLiteral("typed"));
        QCOMPARE(Edit()->toPlainText(), QString());
        QCOMPARE(m_control->counterLabel()->text(), QStringLiteral("0"));
    }

    void a_lowered_maximum_cuts_at_the_next_change()
    {
        m_control->setMaxNum(10);
        m_control->setText(QStringLiteral("abcdef"));
        m_control->setMaxNum(2);
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("abcdef"));
        QCOMPARE(m_control->counterLabel()->text(), QStringLiteral("0"));
        QTest::keyClicks(Edit(), QStringLiteral("x"));
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("xa"));
    }

    void an_emoji_that_fits_by_half_is_given_up_whole()
    {
        m_control->setMaxNum(3);
        Paste(*Edit(), QStringLiteral("ab") + kEmoji);
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("ab"));
        QCOMPARE(m_control->counterLabel()->text(), QStringLiteral("1"));
        m_control->setMaxNum(4);
        Paste(*Edit(), QStringLiteral("ab") + kEmoji + QStringLiteral("c"));
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("ab") + kEmoji);
        m_control->setMaxNum(1);
        Paste(*Edit(), kEmoji);
        QCOMPARE(Edit()->toPlainText(), QString());
    }

    void a_set_text_is_read_as_html_and_a_cut_one_is_plain()
    {
        m_control->setMaxNum(100);
        m_control->setText(QStringLiteral("<b>bold</b>"));
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("bold"));
        m_control->setMaxNum(10);
        Paste(*Edit(), QStringLiteral("<b>bold</b> and more"));
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("<b>bold</b"));
    }

    void html_that_qt_could_not_lay_out_stays_as_it_is_written()
    {
        QElapsedTimer timer;
        timer.start();
        m_control->setMaxNum(1000);
        m_control->setText(NestedTables(40));
        m_control->grab();
        QCOMPARE(Edit()->toPlainText(), NestedTables(40));
        QVERIFY(timer.elapsed() < 1000);
    }

    void the_host_s_placeholder_and_the_translated_one_show()
    {
        Translator translator;
        QCoreApplication::installTranslator(&translator);
        DrainEvents();
        QCOMPARE(Edit()->placeholderText(), QStringLiteral("Bitte eingeben"));
        m_control->setPlaceholderText(QStringLiteral("Remarks"));
        QCoreApplication::removeTranslator(&translator);
        DrainEvents();
        QCOMPARE(Edit()->placeholderText(), QStringLiteral("Remarks"));
    }

    // --- Counter ---

    void the_counter_keeps_8_from_the_right_and_4_from_the_bottom()
    {
        m_control->setMaxNum(12345);
        const QcLabel *counter = m_control->counterLabel();
        for (const QSize &size : {QSize(200, 100), QSize(150, 60), QSize(280, 190)}) {
            m_control->resize(size);
            QCOMPARE(counter->geometry().right() + 1, size.width() - 8);
            QCOMPARE(counter->geometry().bottom() + 1, size.height() - 4);
        }
        m_control->setMaxNum(1);
        QCOMPARE(counter->size(), counter->sizeHint());
        QCOMPARE(counter->geometry().right() + 1, m_control->width() - 8);
        m_control->setMinimumSize(0, 0);
        m_control->layout()->setSizeConstraint(QLayout::SetNoConstraint);
        m_control->resize(5, 5);
        QCOMPARE(counter->pos(), QPoint(0, 0));
    }

    // --- Scroll bar ---

    void the_handle_shows_only_with_the_mouse_over_a_field_that_overflows()
    {
        m_control->setMaxNum(1000);
        m_control->setText(QStringLiteral("short"));
        MoveCursorOver(*m_control);
        QCOMPARE(NeedScroll(*m_control), QVariant(false));
        MoveCursorAway();
        {
            const QSignalBlocker quiet(Edit()); // so that only the mouse matters
            Edit()->setPlainText(QStringLiteral("line\n").repeated(30));
            Edit()->moveCursor(QTextCursor::Start);
        }
        DrainEvents();
        QCOMPARE(NeedScroll(*m_control), QVariant(false));
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            COMPARE_COLOR(HandleColor(*m_control), kCanvas);
            MoveCursorOver(*m_control);
            QCOMPARE(NeedScroll(*m_control), QVariant(true));
            COMPARE_COLOR(HandleColor(*m_control), Over(TokenOf(table, QStringLiteral("base/neutral/neutral-60")), kCanvas));
            QCOMPARE(Edit()->verticalScrollBar()->width(), 12);
            MoveCursorAway();
            QCOMPARE(NeedScroll(*m_control), QVariant(false));
            COMPARE_COLOR(HandleColor(*m_control), kCanvas);
            QCOMPARE(Edit()->verticalScrollBar()->width(), 12);
        }
    }

    void typing_shows_the_handle_until_the_next_leave()
    {
        m_control->setMaxNum(1000);
        for (int i = 0; i < 9; ++i)
            QTest::keyClick(Edit(), Qt::Key_Return);
        QCOMPARE(NeedScroll(*m_control), QVariant(true));
        MoveCursorOver(*m_control);
        MoveCursorAway();
        QCOMPARE(NeedScroll(*m_control), QVariant(false));
    }

    void a_key_that_changes_nothing_of_the_bar_polishes_nothing()
    {
        m_control->setMaxNum(1000);
        QTest::keyClicks(Edit(), QStringLiteral("a"));
        EventCounter changes(*Edit()->verticalScrollBar(), QEvent::DynamicPropertyChange);
        QTest::keyClicks(Edit(), QStringLiteral("b"));
        QCOMPARE(changes.Take(), 0);
        for (int i = 0; i < 9; ++i)
            QTest::keyClick(Edit(), Qt::Key_Return);
        QCOMPARE(changes.Take(), 1);
    }

    // --- Keyboard ---

    void a_press_beside_the_edit_starts_typing()
    {
        QList<Qt::FocusReason> reasons;
        struct Listener : QObject
        {
            QList<Qt::FocusReason> &reasons;
            explicit Listener(QList<Qt::FocusReason> &list)
                : reasons(list)
            {
            }
            bool eventFilter(QObject *, QEvent *event) override
            {
                if (event->type() == QEvent::FocusIn)
                    reasons << static_cast<QFocusEvent *>(event)->reason();
                return false;
            }
        } listener(reasons);
        Edit()->installEventFilter(&listener);
        m_control->setMaxNum(5);
        ClickAt(m_control->mapTo(m_window.get(), QPoint(50, 95))); // the strip
        QVERIFY(Edit()->hasFocus());
        m_first->setFocus();
        ClickAt(*m_control->counterLabel());
        QVERIFY(Edit()->hasFocus());
        QCOMPARE(reasons, QList<Qt::FocusReason>({Qt::OtherFocusReason, Qt::OtherFocusReason}));
        ClickAt(*m_control->counterLabel());
        QCOMPARE(reasons.size(), 2);
    }

    void the_frame_hands_the_keyboard_to_the_edit()
    {
        m_control->setFocus();
        QVERIFY(Edit()->hasFocus());
        QCOMPARE(m_control->focusPolicy(), Qt::NoFocus);
        m_control->setFocusPolicy(Qt::NoFocus); // goes through to the edit
        QCOMPARE(Edit()->focusPolicy(), Qt::NoFocus);
    }

    void the_keyboard_is_there_again_after_a_visit_to_another_window()
    {
        Edit()->setFocus();
        QSignalSpy losses(m_control, &QcTextEditLimiter::SignalFousOut);
        VisitAnotherWindow();
        QCOMPARE(QApplication::focusWidget(), Edit());
        QCOMPARE(losses.count(), 1);
    }

    void losing_the_keyboard_is_told_with_the_text()
    {
        m_control->setMaxNum(5);
        Edit()->setFocus();
        QTest::keyClicks(Edit(), QStringLiteral("typed"));
        QSignalSpy losses(m_control, &QcTextEditLimiter::SignalFousOut);
        m_first->setFocus();
        QCOMPARE(losses.count(), 1);
        QCOMPARE(losses.at(0).at(0).toString(), QStringLiteral("typed"));
    }

    void tab_types_a_tab_and_shift_tab_leaves()
    {
        m_control->setMaxNum(5);
        QTest::keyClick(m_first, Qt::Key_Tab, Qt::ControlModifier); // Qt's way out of a field that types tabs
        m_control->setFocus();
        QTest::keyClick(Edit(), Qt::Key_Tab);
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("\t"));
        QTest::keyClick(Edit(), Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget(), m_first);
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("\t"));
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
        m_control->setMaxNum(10);
        Paste(*Edit(), megabyte);
        QCOMPARE(Edit()->toPlainText(), megabyte.left(10));
        m_control->setMaxNum(std::numeric_limits<int>::max());
        Paste(*Edit(), megabyte);
        QCOMPARE(Edit()->toPlainText().size(), megabyte.size());
        QCOMPARE(m_control->counterLabel()->text(), QString::number(std::numeric_limits<int>::max() - megabyte.size()));
        m_control->grab();
        m_control->setText(QString());
        QCOMPARE(Edit()->toPlainText(), QString());
    }

    void a_word_of_a_megabyte_costs_nothing_if_it_is_cut()
    {
        m_control->setMaxNum(10);
        const QString word(1 << 20, QLatin1Char('7')); // Qt would wrap it for minutes
        Paste(*Edit(), word);
        QCOMPARE(Edit()->toPlainText(), word.left(10));
        m_control->setText(word + QStringLiteral(" "));
        QCOMPARE(Edit()->toPlainText(), word.left(10));
        Paste(*Edit(), QStringLiteral("\r\n").repeated(1 << 19));
        QCOMPARE(Edit()->toPlainText(), QString(10, QLatin1Char('\n')));
        Paste(*Edit(), QStringLiteral("123"));
        Edit()->moveCursor(QTextCursor::Start);
        QApplication::clipboard()->setText(word.left(5));
        QTest::keySequence(Edit(), QKeySequence::Paste);
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("77777123"));
    }

    void a_document_of_the_host_is_limited_too()
    {
        m_control->setMaxNum(3);
        Edit()->setDocument(new QTextDocument(Edit())); // owned by the edit
        QTest::keyClicks(Edit(), QStringLiteral("abcd"));
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("abc"));
        QCOMPARE(m_control->counterLabel()->text(), QStringLiteral("0"));
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
            delete m_control->textEdit();
        if (counter)
            delete m_control->counterLabel();
        QCOMPARE(m_control->textEdit() == nullptr, edit);
        QCOMPARE(m_control->counterLabel() == nullptr, counter);
        m_control->setMaxNum(5);
        m_control->setText(QStringLiteral("text and more"));
        m_control->setPlaceholderText(QStringLiteral("placeholder"));
        m_control->resize(120, 80);
        UseTable(Table::Dark);
        MoveCursorOver(*m_control);
        ClickAt(m_control->mapTo(m_window.get(), QPoint(50, 75)));
        MoveCursorAway();
        QEvent language(QEvent::LanguageChange);
        QCoreApplication::sendEvent(m_control, &language);
        m_control->grab();
        if (!edit)
            QCOMPARE(Edit()->toPlainText(), QStringLiteral("text "));
        if (!counter)
            QCOMPARE(m_control->counterLabel()->text(), QStringLiteral("5"));
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
        m_control->setMaxNum(3);
        Edit()->setFocus();
        const QPointer<QcTextEditLimiter> guard(m_control);
        if (isFocus)
            connect(m_control, &QcTextEditLimiter::SignalFousOut, m_control, &QObject::deleteLater);
        else
            connect(Edit(), &QTextEdit::textChanged, m_control, &QObject::deleteLater);
        if (isFocus)
            m_first->setFocus();
        else
            Paste(*Edit(), QStringLiteral("too long"));
        m_control = nullptr;
        DrainEvents();
        QVERIFY(!guard);
    }

    void a_limiter_that_dies_with_the_keyboard_hears_nothing_more()
    {
        m_control->setMaxNum(3);
        Edit()->setFocus();
        QSignalSpy losses(m_control, &QcTextEditLimiter::SignalFousOut);
        const LastWords lastWords(*Edit());
        delete std::exchange(m_control, nullptr);
        QCOMPARE(lastWords.Left(), QStringLiteral("last words")); // which nobody cut
        QCOMPARE(losses.count(), 0);
        DrainEvents();
    }

    void a_theme_change_between_leaves_the_text_alone()
    {
        m_control->setMaxNum(20);
        QTest::keyClicks(Edit(), QStringLiteral("one"));
        UseTable(Table::Dark);
        QTest::keyClicks(Edit(), QStringLiteral(" two"));
        QCOMPARE(Edit()->toPlainText(), QStringLiteral("one two"));
    }

    // --- Assistive technology ---

    void assistive_technology_sees_a_named_text_of_many_lines()
    {
        m_control->setMaxNum(100);
        QAccessibleInterface *frame = QAccessible::queryAccessibleInterface(m_control);
        QAccessibleInterface *edit = QAccessible::queryAccessibleInterface(Edit());
        QCOMPARE(frame->role(), QAccessible::Grouping);
        QCOMPARE(edit->role(), QAccessible::EditableText);
        QVERIFY(edit->state().multiLine && edit->state().editable && !edit->state().readOnly);
        QCOMPARE(edit->text(QAccessible::Name), QStringLiteral("PleaseEnterMsg"));
        QLabel label(QStringLiteral("&Buddy"), m_window.get());
        label.setBuddy(m_control);
        QCOMPARE(edit->text(QAccessible::Name), QStringLiteral("Buddy"));
        m_control->setAccessibleName(QStringLiteral("Remarks"));
        QCOMPARE(edit->text(QAccessible::Name), QStringLiteral("Remarks"));
        m_control->setText(QStringLiteral("one\ntwo"));
        QCOMPARE(edit->text(QAccessible::Value), QStringLiteral("one\ntwo"));
        QCOMPARE(m_control->counterLabel()->focusPolicy(), Qt::NoFocus);
    }

private:
    QTextEdit *Edit() const { return m_control->textEdit(); }
};

VELMORA_TEST_MAIN(TestQcTextEditLimiter)

#include "tst_QcTextEditLimiter.moc"
