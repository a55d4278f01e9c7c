#include "support/AccessibleEvents.h"
#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/ReadPieces.h"
#include "support/TestMain.h"

#include <Velmora/MultiLineTextElide.h>
#include <Velmora/QcMultiLineText.h>

#include <QAbstractTextDocumentLayout>
#include <QAccessible>
#include <QDialog>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>

#include <ctime>
#include <functional>

using namespace Velmora;
using namespace VelmoraTest;

Q_DECLARE_METATYPE(std::function<void(QcMultiLineText &)>)

namespace {

const QString kSuffix = QStringLiteral("...");

QTextDocument *DocumentOf(const QcMultiLineText &text)
{
    return text.findChild<QTextDocument *>();
}

QString Shown(const QcMultiLineText &text)
{
    return DocumentOf(text)->toPlainText();
}

int LinesOf(const QcMultiLineText &text)
{
    QTextDocument *document = DocumentOf(text);
    document->documentLayout()->documentSize();
    int lines = 0;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next())
        lines += block.layout()->lineCount();
    return lines;
}

Qt::Alignment AlignmentOf(const QcMultiLineText &text)
{
    return DocumentOf(text)->defaultTextOption().alignment();
}

/// What assistive technology reads of \a text.
QAccessibleTextInterface *TextOf(QcMultiLineText &text)
{
    return QAccessible::queryAccessibleInterface(&text)->textInterface();
}

QString Words(int count)
{
    return QStringLiteral("several words ").repeated(count / 2);
}

/// A shown text of a width: only a shown widget is told of its sizes.
class Shower
{
public:
    explicit Shower(const QSize &size)
    {
        m_window.resize(800, 800);
        text.resize(size);
        m_window.show();
    }

private:
    QWidget m_window;

public:
    QcMultiLineText text{&m_window};
};

/// A place on the link of \a text, or outside the widget if none was found.
QPoint LinkPosition(const QcMultiLineText &text)
{
    for (int y = 0; y < text.height(); ++y) {
        for (int x = 0; x < text.width(); ++x) {
            if (!DocumentOf(text)->documentLayout()->anchorAt(QPointF(x, y)).isEmpty())
                return QPoint(x + 2, y + 2);
        }
    }
    return QPoint(-1, -1);
}

/// Counts the presses that reach the parent of a control, which are those that the control passed on.
class PressCounter : public QWidget
{
public:
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent * /*event*/) override { ++presses; }
};

const QString kLink = QStringLiteral("<a href=\"target\">link</a>");

/// A dialog whose default button stands behind a text that has the keyboard.
struct TextInDialog
{
    TextInDialog()
        : text(new QcMultiLineText(&dialog))
        , button(new QPushButton(&dialog))
        , clicks(text, &QcMultiLineText::signalAnchorClicked)
        , accepts(button, &QPushButton::clicked)
    {
        dialog.resize(300, 200);
        text->setGeometry(0, 0, 300, 100);
        button->setGeometry(0, 150, 50, 20);
        button->setDefault(true);
        button->setFocusPolicy(Qt::NoFocus);
        text->setText(kLink);
    }

    /// Shows it, with the link marked.
    bool Show()
    {
        dialog.show();
        if (!QTest::qWaitForWindowActive(&dialog) || !text->hasFocus())
            return false;
        QTest::keyClick(text, Qt::Key_Tab);
        return text->hasFocus();
    }

    void Send(QEvent::Type type, Qt::Key key, bool isRepeat)
    {
        QKeyEvent event(type, key, Qt::NoModifier, QString(), isRepeat);
        QApplication::sendEvent(QApplication::focusWidget(), &event);
    }

    /// Holds \a key as long as a keyboard needs to repeat it twice.
    void Hold(Qt::Key key)
    {
        Send(QEvent::KeyPress, key, false);
        for (int repeat = 0; repeat < 2; ++repeat) {
            Send(QEvent::KeyRelease, key, true);
            Send(QEvent::KeyPress, key, true);
        }
        Send(QEvent::KeyRelease, key, false);
    }

    QDialog dialog;
    QcMultiLineText *text;
    QPushButton *button;
    QSignalSpy clicks;
    QSignalSpy accepts;
};

} // namespace

class TestQcMultiLineText : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_new_control_is_empty_and_has_the_default_font()
    {
        QcMultiLineText text;
        QCOMPARE(DocumentOf(text)->documentMargin(), 0.0);
        QCOMPARE(DocumentOf(text)->defaultFont(), QcStyleManager::GetDefaultFont());
        QVERIFY(text.hasMouseTracking());
        QVERIFY(Shown(text).isEmpty());
        QVERIFY(InkBox(Render(text), Qt::white).isNull());
    }

    void markup_is_read_and_wraps_anywhere()
    {
        Shower shower(QSize(200, 300));
        shower.text.setText(QStringLiteral("<b>bold</b> &amp; <i>italic</i>"));
        QCOMPARE(Shown(shower.text), QStringLiteral("bold & italic"));
        QCOMPARE(DocumentOf(shower.text)->defaultTextOption().wrapMode(), QTextOption::WrapAnywhere);
        shower.text.setText(QString(200, QLatin1Char('x')));
        QVERIFY(LinesOf(shower.text) > 4);
        const QRectF ink = InkBox(Render(shower.text), Qt::white);
        QVERIFY(ink.right() <= 200 && ink.width() > 150); // the long word is not clipped
    }

    void tables_that_qt_could_not_lay_out_show_as_they_are_written()
    {
        Shower shower(QSize(200, 60));
        const QString tables = QStringLiteral("<table><tr><td>x").repeated(40);
        shower.text.setText(tables);
        shower.text.grab();
        QAccessibleInterface *text = QAccessible::queryAccessibleInterface(&shower.text);
        QCOMPARE(text->text(QAccessible::Name), tables);
        shower.text.setText(QStringLiteral("<table><tr><td>x</table>"));
        QCOMPARE(text->text(QAccessible::Name).trimmed(), QStringLiteral("x"));
    }

    void malformed_markup_shows_as_far_as_it_can_be_read_data()
    {
        QTest::addColumn<QString>("html");
        QTest::newRow("unclosed") << QStringLiteral("<b>bold <i>both </b> plain");
        QTest::newRow("open tag") << QStringLiteral("word <a href=\"x");
        QTest::newRow("entities") << QStringLiteral("&nosuch; &#xFFFFFFFF; &#; word &");
        QTest::newRow("brackets") << QStringLiteral("word <<<<>>>><<");
        QTest::newRow("table") << QStringLiteral("word <table><td><tr></table></td><table>");
        QTest::newRow("nul") << QStringLiteral("word ") + QChar(0) + QStringLiteral("x");
        QTest::newRow("surrogate") << QStringLiteral("word ") + QChar(0xD800);
        QTest::newRow("deep") << QStringLiteral("word ") + QStringLiteral("<span>").repeated(2000);
    }

    void malformed_markup_shows_as_far_as_it_can_be_read()
    {
        QFETCH(QString, html);
        Shower shower(QSize(60, 60));
        shower.text.setLineCount(2);
        shower.text.setText(html);
        QVERIFY(!Shown(shower.text).isEmpty());
        QVERIFY(!InkBox(Render(shower.text), Qt::white).isNull());
    }

    void text_colour_is_the_tokens_from_the_start_and_follows_the_table()
    {
        Shower shower(QSize(200, 100));
        QFont font;
        font.setPixelSize(60);
        font.setBold(true);
        shower.text.setFont(font);
        shower.text.setText(QStringLiteral("I"));
        const auto ink = [&shower](Table table) {
            const QColor canvas = table == Table::Light ? Qt::white : Qt::black;
            return InkColor(Render(shower.text, canvas), canvas);
        };
        COMPARE_COLOR(ink(Table::Light), Over(TokenOf(Table::Light, QStringLiteral("text/text_primary"))));
        UseTable(Table::Dark);
        COMPARE_COLOR(ink(Table::Dark), Over(TokenOf(Table::Dark, QStringLiteral("text/text_primary")), Qt::black));
        shower.text.setDefaultTextColorParams(QStringLiteral("${brand/brand}"));
        COMPARE_COLOR(ink(Table::Dark), Over(TokenOf(Table::Dark, QStringLiteral("brand/brand")), Qt::black));
        UseTable(Table::Light);
        COMPARE_COLOR(ink(Table::Light), Over(TokenOf(Table::Light, QStringLiteral("brand/brand"))));
        shower.text.setText(QStringLiteral("<span style=\"color:#00ff00\">I</span>"));
        COMPARE_COLOR(ink(Table::Light), QColor(Qt::green));
    }

    void each_change_repaints_once_data()
    {
        using Change = std::function<void(QcMultiLineText &)>;
        QTest::addColumn<Change>("change");
        QTest::newRow("text") << Change([](QcMultiLineText &text) { text.setText(QStringLiteral("other")); });
        QTest::newRow("no text") << Change([](QcMultiLineText &text) { text.clear(); });
        QTest::newRow("font") << Change([](QcMultiLineText &text) { text.setFont(QFont(QStringLiteral("Roboto"), 20)); });
        QTest::newRow("pixel size") << Change([](QcMultiLineText &text) { text.setFont(20); });
        QTest::newRow("lines") << Change([](QcMultiLineText &text) { text.setLineCount(1); });
        QTest::newRow("all lines") << Change([](QcMultiLineText &text) { text.setLineCount(0); });
        QTest::newRow("alignment") << Change([](QcMultiLineText &text) { text.setAlignment(Qt::AlignRight); });
        QTest::newRow("colour") << Change([](QcMultiLineText &text) { text.setDefaultTextColorParams(QStringLiteral("brand/brand")); });
        QTest::newRow("table") << Change([](QcMultiLineText &) { UseTable(Table::Dark); });
        QTest::newRow("next link") << Change([](QcMultiLineText &text) { QTest::keyClick(&text, Qt::Key_Tab); });
    }

    void each_change_repaints_once()
    {
        QFETCH(std::function<void(QcMultiLineText &)>, change);
        Shower shower(QSize(200, 100));
        QVERIFY(QTest::qWaitForWindowActive(shower.text.window()));
        shower.text.setLineCount(2);
        shower.text.setText(QStringLiteral("<a href=\"1\">first</a> <a href=\"2\">second</a> ") + Words(100));
        shower.text.setFocus(Qt::TabFocusReason);
        DrainEvents();
        EventCounter paints(shower.text, QEvent::Paint);
        change(shower.text);
        DrainEvents();
        QCOMPARE(paints.Take(), 1);
        QVERIFY(shower.text.hasFocus()); // Tab went from link to link
    }

    void exactly_as_many_lines_stay_whole_and_one_less_cuts()
    {
        Shower shower(QSize(200, 300));
        shower.text.setText(Words(20));
        const QString whole = Shown(shower.text);
        const int lines = LinesOf(shower.text);
        QVERIFY(lines > 3);
        shower.text.setLineCount(lines);
        QCOMPARE(Shown(shower.text), whole);
        shower.text.setLineCount(lines - 1);
        QCOMPARE(LinesOf(shower.text), lines - 1);
        QVERIFY(Shown(shower.text).endsWith(kSuffix));
        QVERIFY(whole.startsWith(Shown(shower.text).chopped(3)));
    }

    void no_line_count_shows_the_whole_text()
    {
        Shower shower(QSize(100, 300));
        shower.text.setText(Words(20));
        const QString whole = Shown(shower.text);
        shower.text.setLineCount(2);
        QVERIFY(Shown(shower.text) != whole);
        for (const int count : {0, -1}) {
            shower.text.setLineCount(count);
            QCOMPARE(Shown(shower.text), whole);
        }
    }

    void the_cut_follows_width_and_font_but_not_height()
    {
        Shower shower(QSize(200, 300));
        shower.text.setLineCount(2);
        shower.text.setText(Words(100));
        const QString narrow = Shown(shower.text);
        QVERIFY(narrow.endsWith(kSuffix));

        QSignalSpy changes(DocumentOf(shower.text), &QTextDocument::contentsChanged);
        shower.text.resize(200, 50);
        QCOMPARE(changes.count(), 0);
        QCOMPARE(Shown(shower.text), narrow);

        shower.text.resize(400, 50);
        QVERIFY(Shown(shower.text).size() > narrow.size() + 10);
        QCOMPARE(LinesOf(shower.text), 2);
        shower.text.setFont(28);
        QCOMPARE(DocumentOf(shower.text)->defaultFont().pixelSize(), 28);
        QCOMPARE(DocumentOf(shower.text)->defaultFont().family(), QcStyleManager::GetDefaultFont().family());
        QCOMPARE(LinesOf(shower.text), 2);
        const QString large = Shown(shower.text);
        QFont small;
        small.setPixelSize(8);
        shower.text.setFont(small);
        QVERIFY(Shown(shower.text).size() > large.size() + 10);
        QCOMPARE(LinesOf(shower.text), 2);
    }

    void the_cut_is_that_of_the_free_function()
    {
        Shower shower(QSize(150, 300));
        const QString html = QStringLiteral("<p>One <b>two</b></p><p dir=rtl>\u05E9\u05DC\u05D5\u05DD</p>") + Words(30);
        shower.text.setText(html);
        multiLineTextElide(DocumentOf(shower.text), 3);
        const QString expected = DocumentOf(shower.text)->toHtml();
        shower.text.setLineCount(3);
        QCOMPARE(DocumentOf(shower.text)->toHtml(), expected);
    }

    void no_width_and_no_text_are_no_trouble_data()
    {
        QTest::addColumn<QString>("html");
        QTest::newRow("empty") << QString();
        QTest::newRow("words") << Words(20);
        QTest::newRow("hebrew") << QStringLiteral("\u05E9\u05DC\u05D5\u05DD ").repeated(10);
        QTest::newRow("emoji") << QStringLiteral("\U0001F468\u200D\U0001F469\u200D\U0001F467 ").repeated(10);
        QTest::newRow("combining") << QStringLiteral("e\u0301\u0323").repeated(30);
    }

    void no_width_and_no_text_are_no_trouble()
    {
        QFETCH(QString, html);
        for (const int width : {0, 1}) {
            Shower shower(QSize(50, 100));
            shower.text.setLineCount(1);
            shower.text.setText(html);
            shower.text.resize(width, 100);
            QCOMPARE(Shown(shower.text), html.isEmpty() ? QString() : kSuffix);
            shower.text.setHeightAdaptive(true);
            shower.text.setText(html);
            shower.text.setAutoAlignment(true);
            shower.text.updateAlignmentByLineCount();
            if (width > 0)
                Render(shower.text);
        }
    }

    void adaptive_height_follows_the_text_and_ignores_the_line_count()
    {
        Shower shower(QSize(200, 300));
        QSignalSpy changes(&shower.text, &QcMultiLineText::signalHeightChanged);
        shower.text.setLineCount(1);
        shower.text.setHeightAdaptive(true);
        shower.text.setHeightAdaptive(true); // once is enough
        QCOMPARE(changes.count(), 0);
        shower.text.setText(Words(40));
        const QTextDocument *document = DocumentOf(shower.text);
        QVERIFY(changes.count() > 0);
        QCOMPARE(shower.text.height(), int(document->size().height()));
        QVERIFY(!Shown(shower.text).endsWith(kSuffix));
        const int narrow = shower.text.height();

        shower.text.resize(400, narrow);
        QVERIFY(shower.text.height() < narrow);
        QCOMPARE(shower.text.height(), int(document->size().height()));
        QCOMPARE(shower.text.minimumHeight(), shower.text.maximumHeight());

        shower.text.setHeightAdaptive(false);
        changes.clear();
        shower.text.setText(Words(2));
        QCOMPARE(changes.count(), 0);
        QVERIFY(shower.text.height() > int(document->size().height()));
    }

    void one_change_of_height_is_announced_once()
    {
        Shower shower(QSize(200, 300));
        shower.text.setHeightAdaptive(true);
        shower.text.setHeightAdaptive(true);
        shower.text.setText(Words(40));
        DrainEvents();
        int announced = 0;
        int changed = 0;
        connect(&shower.text, &QcMultiLineText::signalHeightChanged, &shower.text, [&announced] { ++announced; });
        connect(DocumentOf(shower.text)->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged, &shower.text,
                [&changed] { ++changed; });
        shower.text.resize(300, shower.text.height());
        QVERIFY(changed > 0);
        QCOMPARE(announced, changed);
    }

    void alignment_moves_the_text()
    {
        Shower shower(QSize(300, 100));
        shower.text.setText(QStringLiteral("I"));
        QVERIFY(InkBox(Render(shower.text), Qt::white).right() < 30);
        shower.text.setAlignment(Qt::AlignRight);
        QVERIFY(InkBox(Render(shower.text), Qt::white).left() > 270);
        shower.text.setText(QStringLiteral("J"));
        QCOMPARE(AlignmentOf(shower.text), Qt::Alignment(Qt::AlignRight));
        shower.text.setAlignment(Qt::AlignHCenter);
        QVERIFY(std::abs(InkBox(Render(shower.text), Qt::white).center().x() - 150) < 6);
    }

    void auto_alignment_follows_the_number_of_lines()
    {
        Shower shower(QSize(400, 100));
        shower.text.setAlignment(Qt::AlignHCenter);
        shower.text.setText(Words(4));
        shower.text.setAutoAlignment(true);
        QCOMPARE(AlignmentOf(shower.text), Qt::Alignment(Qt::AlignHCenter)); // the flag alone does nothing
        shower.text.updateAlignmentByLineCount();
        QCOMPARE(AlignmentOf(shower.text), Qt::Alignment(Qt::AlignRight));
        shower.text.resize(60, 100);
        QVERIFY(LinesOf(shower.text) > 1);
        QCOMPARE(AlignmentOf(shower.text), Qt::Alignment(Qt::AlignLeft));
        shower.text.resize(400, 100);
        QCOMPARE(AlignmentOf(shower.text), Qt::Alignment(Qt::AlignRight));
        shower.text.setText(Words(60));
        QCOMPARE(AlignmentOf(shower.text), Qt::Alignment(Qt::AlignLeft));
        shower.text.setAutoAlignment(false);
        shower.text.setText(Words(4));
        QCOMPARE(AlignmentOf(shower.text), Qt::Alignment(Qt::AlignLeft));
    }

    void ideal_width_is_that_of_the_longest_paragraph()
    {
        QcMultiLineText text; // not shown, so that no width binds it
        text.setText(QStringLiteral("<p>short</p><p>somewhat longer</p>"));
        QTextDocument longest;
        longest.setDocumentMargin(0);
        longest.setDefaultFont(QcStyleManager::GetDefaultFont());
        longest.setPlainText(QStringLiteral("somewhat longer"));
        QCOMPARE(text.idealWidth(), int(longest.idealWidth()));
        QVERIFY(text.idealWidth() > 40);
    }

    void a_control_as_wide_as_that_shows_whole_paragraphs()
    {
        for (const char *html : {"Back", "Bold", "ill", "Print", "<p>Print</p><p>Order 4711 now</p>", "\u05E9\u05DC\u05D5\u05DD"}) {
            Shower shower(QSize(500, 100));
            QcMultiLineText measured;
            measured.setText(QString::fromUtf8(html));
            const int ideal = measured.idealWidth();
            shower.text.setText(QString::fromUtf8(html));
            shower.text.resize(ideal, 100);
            QCOMPARE(LinesOf(shower.text), DocumentOf(shower.text)->blockCount());
            shower.text.resize(ideal - 1, 100);
            QVERIFY(LinesOf(shower.text) > DocumentOf(shower.text)->blockCount());
            QCOMPARE(DocumentOf(shower.text)->textWidth(), double(ideal - 1));
        }
    }

    void a_link_shows_a_hand_and_reports_its_press_data()
    {
        QTest::addColumn<QString>("html");
        QTest::newRow("first") << QStringLiteral("<a href=\"target\">link</a> and words");
        QTest::newRow("last") << QStringLiteral("words and a <a href=\"target\">link</a>");
        QTest::newRow("all") << QStringLiteral("<a href=\"target\">link</a>");
        QTest::newRow("wrapped") << Words(10) + QStringLiteral("<br><a href=\"target\">%1</a>").arg(Words(10));
        QTest::newRow("right to left") << QStringLiteral(
            "<p dir=rtl>\u05E9\u05DC\u05D5\u05DD <a href=\"target\">\u05E2\u05D5\u05DC\u05DD</a></p>");
        QTest::newRow("cut") << QStringLiteral("word <a href=\"target\">%1</a>").arg(Words(90));
    }

    void a_link_shows_a_hand_and_reports_its_press()
    {
        QFETCH(QString, html);
        PressCounter window;
        window.resize(400, 400);
        QcMultiLineText text(&window);
        text.setGeometry(0, 0, 200, 200);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        text.setLineCount(4);
        text.setText(html);
        QSignalSpy clicks(&text, &QcMultiLineText::signalAnchorClicked);

        const QPoint link = LinkPosition(text);
        QVERIFY(link.x() >= 0);
        QTest::mouseMove(window.windowHandle(), link);
        QTRY_COMPARE(text.cursor().shape(), Qt::PointingHandCursor);
        QTest::mousePress(&text, Qt::LeftButton, Qt::NoModifier, link);
        QCOMPARE(clicks.count(), 1);
        QCOMPARE(clicks.takeFirst().constFirst().toString(), QStringLiteral("target"));
        QCOMPARE(window.presses, 0);
        QTest::mouseRelease(&text, Qt::LeftButton, Qt::NoModifier, link);

        const QPoint beside(190, 190);
        QTest::mouseMove(window.windowHandle(), beside);
        QTRY_COMPARE(text.cursor().shape(), Qt::ArrowCursor);
        QTest::mousePress(&text, Qt::LeftButton, Qt::NoModifier, beside);
        QCOMPARE(clicks.count(), 0);
        QCOMPARE(window.presses, 1);
    }

    void the_keyboard_reaches_and_presses_links()
    {
        QWidget window;
        window.resize(400, 400);
        QPushButton before(&window);
        QcMultiLineText text(&window);
        QPushButton after(&window);
        text.setGeometry(0, 50, 300, 200);
        text.setText(QStringLiteral("One <a href=\"one\">fi<b>rst</b></a><a href=\"two\">second</a> and <a href=\"\">none</a>"));
        QSignalSpy clicks(&text, &QcMultiLineText::signalAnchorClicked);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        before.setFocus();
        const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
        const auto pressed = [&clicks] { return clicks.isEmpty() ? QString() : clicks.takeFirst().constFirst().toString(); };
        const QImage unmarked = Render(text);
        press(Qt::Key_Tab);
        QVERIFY(text.hasFocus());
        const QImage first = Render(text);
        QVERIFY(first != unmarked);
        press(Qt::Key_Return);
        QCOMPARE(pressed(), QStringLiteral("one"));
        press(Qt::Key_Tab);
        QVERIFY(text.hasFocus());
        QVERIFY(Render(text) != first);
        press(Qt::Key_Space);
        QCOMPARE(pressed(), QStringLiteral("two"));
        press(Qt::Key_A);
        press(Qt::Key_Tab);
        QVERIFY(after.hasFocus());
        QCOMPARE(Render(text), unmarked);
        press(Qt::Key_Backtab);
        press(Qt::Key_Enter);
        QCOMPARE(pressed(), QStringLiteral("two"));
        press(Qt::Key_Backtab);
        press(Qt::Key_Enter);
        QCOMPARE(pressed(), QStringLiteral("one"));
        press(Qt::Key_Backtab);
        QVERIFY(before.hasFocus());
        QVERIFY(clicks.isEmpty());

        press(Qt::Key_Tab);
        text.setText(QStringLiteral("<a href=\"new\">link</a>")); // the marked link has gone
        press(Qt::Key_Return);
        QVERIFY(clicks.isEmpty());
        press(Qt::Key_Tab);
        press(Qt::Key_Return);
        QCOMPARE(pressed(), QStringLiteral("new"));
    }

    void a_text_without_links_is_no_stop_of_the_tab_key()
    {
        QcMultiLineText text;
        text.setText(QStringLiteral("words"));
        QCOMPARE(text.focusPolicy(), Qt::NoFocus);
        text.setText(QStringLiteral("<a href=\"target\">link</a>"));
        QCOMPARE(text.focusPolicy(), Qt::TabFocus);
        text.clear();
        QCOMPARE(text.focusPolicy(), Qt::NoFocus);
        text.setFocusPolicy(Qt::ClickFocus); // a host's choice
        text.setText(QStringLiteral("<a href=\"target\">link</a>"));
        QCOMPARE(text.focusPolicy(), Qt::ClickFocus);
    }

    void a_link_that_is_cut_away_is_no_stop_of_the_tab_key()
    {
        Shower shower(QSize(200, 100));
        shower.text.setText(Words(100) + kLink);
        QCOMPARE(shower.text.focusPolicy(), Qt::TabFocus);
        shower.text.setLineCount(2);
        QCOMPARE(shower.text.focusPolicy(), Qt::NoFocus);
        shower.text.setText(Words(4) + kLink);
        QCOMPARE(shower.text.focusPolicy(), Qt::TabFocus);
        shower.text.resize(30, 100);
        QCOMPARE(shower.text.focusPolicy(), Qt::NoFocus);
        shower.text.resize(300, 100);
        QCOMPARE(shower.text.focusPolicy(), Qt::TabFocus);
        shower.text.setFont(80);
        QCOMPARE(shower.text.focusPolicy(), Qt::NoFocus);
    }

    void the_focus_policy_of_a_host_stays_data()
    {
        using Choice = std::function<void(QcMultiLineText &)>;
        QTest::addColumn<Choice>("choose");
        QTest::newRow("a new control's") << Choice([](QcMultiLineText &text) { text.setFocusPolicy(Qt::NoFocus); });
        QTest::newRow("a property") << Choice([](QcMultiLineText &text) { text.setProperty("focusPolicy", Qt::NoFocus); });
        QTest::newRow("with a link") << Choice([](QcMultiLineText &text) {
            text.setText(kLink);
            static_cast<QWidget &>(text).setFocusPolicy(Qt::NoFocus);
        });
    }

    void the_focus_policy_of_a_host_stays()
    {
        QFETCH(std::function<void(QcMultiLineText &)>, choose);
        QcMultiLineText text;
        choose(text);
        for (const QString &html : {kLink, QString(), kLink}) {
            text.setText(html);
            QCOMPARE(text.focusPolicy(), Qt::NoFocus);
        }
    }

    void a_held_key_presses_a_link_once_and_nothing_behind_it_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<bool>("goes");
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
            QTest::addRow("%x, the link stays", unsigned(key)) << key << false;
            QTest::addRow("%x, the link goes", unsigned(key)) << key << true;
        }
    }

    void a_held_key_presses_a_link_once_and_nothing_behind_it()
    {
        QFETCH(Qt::Key, key);
        QFETCH(bool, goes);
        TextInDialog stage;
        QVERIFY(stage.Show());
        if (goes)
            connect(stage.text, &QcMultiLineText::signalAnchorClicked, stage.text, [&stage] { stage.text->setText(kLink); });
        stage.Hold(key);
        QCOMPARE(stage.clicks.count(), 1);
        QCOMPARE(stage.accepts.count(), 0);
        stage.Hold(key);
        QCOMPARE(stage.clicks.count(), goes ? 1 : 2);
        QCOMPARE(stage.accepts.count(), goes && key != Qt::Key_Space ? 1 : 0);
    }

    void escape_on_a_link_closes_the_dialog()
    {
        TextInDialog stage;
        QVERIFY(stage.Show());
        QTest::keyClick(stage.text, Qt::Key_Escape);
        QVERIFY(!stage.dialog.isVisible());
        QCOMPARE(stage.clicks.count(), 0);
    }

    void the_marked_link_stays_marked_while_another_window_is_active()
    {
        TextInDialog stage;
        QVERIFY(stage.Show());
        QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(stage.text);
        const QImage marked = Render(*stage.text);
        {
            QWidget other;
            other.show();
            other.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&other));
            QVERIFY(!stage.text->hasFocus());
            QVERIFY(!accessible->child(0)->state().focused);
            QVERIFY(accessible->focusChild() != accessible->child(0));
            QCOMPARE(accessible->textInterface()->cursorPosition(), -1);
        }
        stage.dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&stage.dialog));
        QTRY_VERIFY(stage.text->hasFocus());
        QVERIFY(accessible->child(0)->state().focused);
        QCOMPARE(Render(*stage.text), marked);
        QTest::keyClick(stage.text, Qt::Key_Return);
        QCOMPARE(stage.clicks.count(), 1);
    }

    void the_marked_link_stays_marked_while_a_menu_is_open()
    {
        TextInDialog stage;
        QVERIFY(stage.Show());
        const QImage marked = Render(*stage.text);
        QMenu menu(stage.text);
        menu.addAction(QStringLiteral("Copy"));
        menu.popup(stage.text->mapToGlobal(QPoint()));
        QTest::keyClick(&menu, Qt::Key_Escape);
        QTRY_VERIFY(!menu.isVisible());
        QVERIFY(stage.text->hasFocus());
        QCOMPARE(Render(*stage.text), marked);
        QTest::keyClick(stage.text, Qt::Key_Return);
        QCOMPARE(stage.clicks.count(), 1);
    }

    void a_receiver_of_a_press_may_delete_it_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("mouse") << false;
        QTest::newRow("key") << true;
    }

    void a_receiver_of_a_press_may_delete_it()
    {
        QFETCH(bool, byKey);
        QWidget window;
        auto *text = new QcMultiLineText(&window);
        const QPointer<QWidget> guard(text);
        text->setGeometry(0, 0, 200, 200);
        text->setText(kLink);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        connect(text, &QcMultiLineText::signalAnchorClicked, &window, [text] { delete text; });
        if (byKey)
            QTest::keyClick(text, Qt::Key_Tab);
        byKey ? QTest::keyClick(text, Qt::Key_Return) : QTest::mousePress(text, Qt::LeftButton, Qt::NoModifier, LinkPosition(*text));
        QVERIFY(!guard);
    }

    void a_receiver_of_a_new_height_may_delete_it_data()
    {
        using Change = std::function<void(QcMultiLineText &)>;
        QTest::addColumn<Change>("change");
        QTest::newRow("text") << Change([](QcMultiLineText &text) { text.setText(Words(200)); });
        QTest::newRow("no text") << Change([](QcMultiLineText &text) { text.clear(); });
        QTest::newRow("font") << Change([](QcMultiLineText &text) { text.setFont(40); });
        QTest::newRow("lines") << Change([](QcMultiLineText &text) { text.setLineCount(1); });
        QTest::newRow("with alignment") << Change([](QcMultiLineText &text) {
            text.setAutoAlignment(true);
            text.setText(Words(200));
        });
    }

    void a_receiver_of_a_new_height_may_delete_it()
    {
        QFETCH(std::function<void(QcMultiLineText &)>, change);
        QWidget window;
        window.resize(400, 400);
        auto *text = new QcMultiLineText(&window);
        const QPointer<QWidget> guard(text);
        text->setHeightAdaptive(true);
        text->resize(100, 100);
        window.show();
        text->setText(Words(40));
        const QPointer<QTextDocument> document = DocumentOf(*text);
        connect(text, &QcMultiLineText::signalHeightChanged, &window, [guard] { delete guard; });
        change(*text);
        QVERIFY(!guard);
        DrainEvents();
        QVERIFY(!document);
    }

    void a_receiver_of_a_new_height_may_change_it_again()
    {
        Shower shower(QSize(200, 200));
        shower.text.setHeightAdaptive(true);
        int rounds = 0;
        connect(&shower.text, &QcMultiLineText::signalHeightChanged, &shower.text, [&] {
            if (++rounds > 3)
                return;
            UseTable(rounds % 2 ? Table::Dark : Table::Light);
            shower.text.setText(Words(20 * rounds));
            shower.text.resize(200 + rounds, shower.text.height());
        });
        shower.text.setText(kLink + Words(20));
        DrainEvents();
        QVERIFY(rounds > 3);
        QCOMPARE(shower.text.height(), int(DocumentOf(shower.text)->size().height()));
    }

    void a_text_set_by_a_receiver_of_the_height_is_the_only_one()
    {
        for (const QString &before : {QString(), QStringLiteral("<br>"), Words(100)}) {
            Shower shower(QSize(200, 200));
            shower.text.setHeightAdaptive(true);
            if (!before.isNull())
                shower.text.setText(before);
            bool isSet = false;
            connect(&shower.text, &QcMultiLineText::signalHeightChanged, &shower.text, [&] {
                if (!isSet) {
                    isSet = true;
                    shower.text.setText(QStringLiteral("other"));
                }
            });
            shower.text.setText(Words(40));
            QVERIFY(isSet);
            QCOMPARE(Shown(shower.text), QStringLiteral("other"));
            QCOMPARE(shower.text.height(), int(DocumentOf(shower.text)->size().height()));
        }
    }

    void assistive_technology_reads_the_whole_text()
    {
        Shower shower(QSize(100, 100));
        shower.text.setLineCount(1);
        shower.text.setText(QStringLiteral("<b>Some</b> words that are &lt;cut&gt; on the screen"));
        QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&shower.text);
        QCOMPARE(accessible->role(), QAccessible::StaticText);
        QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Some words that are <cut> on the screen"));
        shower.text.setAccessibleName(QStringLiteral("Name"));
        QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Name"));
    }

    void a_new_text_is_announced_to_assistive_technology()
    {
        Shower shower(QSize(100, 100));
        const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&shower.text);
        AccessibleEvents told(shower.text);
        shower.text.setText(QStringLiteral("<b>Some</b> words"));
        QCOMPARE(told.Take(), (QStringList{QStringLiteral("TextUpdated"), QStringLiteral("NameChanged")}));
        QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Some words"));
        shower.text.setText(QStringLiteral("Some words"));
        QCOMPARE(told.Take(), QStringList(QStringLiteral("NameChanged")));
        shower.text.setLineCount(1);
        QCOMPARE(told.Take(), QStringList());
        shower.text.resize(50, 100);
        QCOMPARE(told.Take(), QStringList(QStringLiteral("TextUpdated"))); // less of it shows
        QCOMPARE(told.TextUpdate(), (QStringList{QStringLiteral("Some words"), Shown(shower.text)}));
        shower.text.clear();
        QCOMPARE(told.Take(), (QStringList{QStringLiteral("NameChanged"), QStringLiteral("TextUpdated")}));
        QCOMPARE(accessible->text(QAccessible::Name), QString());
    }

    void assistive_technology_reads_what_shows_by_characters_words_and_lines()
    {
        Shower shower(QSize(300, 100));
        shower.text.setText(QStringLiteral("The <b>first</b> line<br>and another &amp; more<p>Last</p>"));
        QAccessibleTextInterface *read = TextOf(shower.text);
        const QString all = QStringLiteral("The first line\nand another & more\nLast");
        QCOMPARE(read->characterCount(), all.size());
        QCOMPARE(read->text(0, int(all.size())), all);
        QCOMPARE(read->text(4, 9), QStringLiteral("first"));
        QCOMPARE(read->text(-3, 1000), all);

        int start = 0;
        int end = 0;
        QCOMPARE(read->textAtOffset(5, QAccessible::CharBoundary, &start, &end), QStringLiteral("i"));
        QCOMPARE(start, 5);
        QCOMPARE(end, 6);
        QCOMPARE(read->textAtOffset(5, QAccessible::WordBoundary, &start, &end).trimmed(), QStringLiteral("first"));
        QCOMPARE(start, 4);
        QCOMPARE(read->textBeforeOffset(5, QAccessible::WordBoundary, &start, &end).trimmed(), QStringLiteral("The"));
        QCOMPARE(read->textAfterOffset(5, QAccessible::WordBoundary, &start, &end).trimmed(), QStringLiteral("line"));
        QCOMPARE(read->textAtOffset(5, QAccessible::LineBoundary, &start, &end).trimmed(), QStringLiteral("The first line"));
        QCOMPARE(read->textAfterOffset(5, QAccessible::LineBoundary, &start, &end).trimmed(), QStringLiteral("and another & more"));
        QCOMPARE(start, 15);
        QCOMPARE(read->textBeforeOffset(35, QAccessible::LineBoundary, &start, &end).trimmed(), QStringLiteral("and another & more"));

        QCOMPARE(FaultOfPieces(*read), QString());
        QCOMPARE(read->selectionCount(), 0);
        read->setSelection(0, 1, 2); // read only
        QCOMPARE(read->selectionCount(), 0);
        QCOMPARE(read->cursorPosition(), -1);
    }

    void assistive_technology_reads_a_line_as_the_screen_wraps_and_cuts_it()
    {
        Shower shower(QSize(100, 100));
        shower.text.setLineCount(2);
        shower.text.setText(Words(40));
        const QString shown = Shown(shower.text);
        QVERIFY(shown.endsWith(kSuffix));
        QAccessibleTextInterface *read = TextOf(shower.text);
        QCOMPARE(read->text(0, read->characterCount()), shown);
        int start = 0;
        int end = 0;
        const QString first = read->textAtOffset(0, QAccessible::LineBoundary, &start, &end);
        const QString second = read->textAtOffset(int(shown.size()) - 1, QAccessible::LineBoundary, &start, &end);
        QVERIFY(!first.isEmpty());
        QVERIFY(second.endsWith(kSuffix));
        QCOMPARE(first.trimmed() + QLatin1Char(' ') + second, shown);
        shower.text.clear();
        QCOMPARE(read->characterCount(), 0);
        QCOMPARE(read->textAtOffset(0, QAccessible::LineBoundary, &start, &end), QString());
        QCOMPARE(read->characterRect(0), QRect());
    }

    void assistive_technology_finds_each_character_where_it_shows()
    {
        Shower shower(QSize(300, 100));
        shower.text.setText(QStringLiteral("mmmm<br>mmmm<p>mmmm</p>"));
        QAccessibleTextInterface *read = TextOf(shower.text);
        const QRect place = QAccessible::queryAccessibleInterface(&shower.text)->rect();
        const auto rectOf = [&](int offset) { return read->characterRect(offset); };
        for (const int offset : {0, 1, 3, 5, 8, 10, 13}) {
            QVERIFY(!rectOf(offset).isEmpty());
            QVERIFY(place.contains(rectOf(offset)));
            const int inset = rectOf(offset).width() / 4;
            const QPoint centre = rectOf(offset).center();
            QCOMPARE(read->offsetAtPoint(centre - QPoint(inset, 0)), offset);
            QCOMPARE(read->offsetAtPoint(centre + QPoint(inset, 0)), offset);
        }
        QVERIFY(rectOf(0).left() < rectOf(1).left());
        QVERIFY(rectOf(0).bottom() <= rectOf(5).top());
        QVERIFY(rectOf(5).bottom() <= rectOf(10).top());
        QCOMPARE(rectOf(-1), QRect());
        QCOMPARE(rectOf(9), QRect()); // the end of a paragraph
        QCOMPARE(rectOf(14), QRect());
        QCOMPARE(read->offsetAtPoint(place.topLeft() - QPoint(5, 5)), -1);
        QCOMPARE(read->offsetAtPoint(place.bottomRight()), -1);
    }

    void assistive_technology_reads_each_link_that_shows_and_presses_it()
    {
        Shower shower(QSize(300, 40));
        shower.text.setText(QStringLiteral("To <a href='one'>the <b>first</b></a> and <a href='two'>the second</a>.<p>It grows.</p>"));
        QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&shower.text);
        QCOMPARE(accessible->childCount(), 2);
        QCOMPARE(accessible->child(2), nullptr);
        QCOMPARE(accessible->child(-1), nullptr);
        const QString names[] = {QStringLiteral("the first"), QStringLiteral("the second")};
        for (int index = 0; index < 2; ++index) {
            QAccessibleInterface *link = accessible->child(index);
            QVERIFY(link->isValid());
            QCOMPARE(link, accessible->child(index));
            QCOMPARE(link->role(), QAccessible::Link);
            QCOMPARE(link->text(QAccessible::Name), names[index]);
            QCOMPARE(link->parent(), accessible);
            QCOMPARE(link->window(), shower.text.window()->windowHandle());
            QCOMPARE(accessible->indexOfChild(link), index);
            QVERIFY(link->state().linked);
            QVERIFY(link->state().focusable);
            const QRect place = link->rect();
            QVERIFY(!place.isEmpty() && accessible->rect().contains(place));
            QCOMPARE(accessible->childAt(place.center().x(), place.center().y()), link);
            const QPoint centre = shower.text.mapFromGlobal(place.center());
            QCOMPARE(DocumentOf(shower.text)->documentLayout()->anchorAt(centre),
                     index == 0 ? QStringLiteral("one") : QStringLiteral("two"));
        }
        QVERIFY(accessible->child(0)->rect().right() <= accessible->child(1)->rect().left());

        QSignalSpy presses(&shower.text, &QcMultiLineText::signalAnchorClicked);
        QAccessibleInterface *second = accessible->child(1);
        const QString press = QAccessibleActionInterface::pressAction();
        QCOMPARE(second->actionInterface()->actionNames(), QStringList(press));
        second->actionInterface()->doAction(press);
        QCOMPARE(presses.count(), 0); // assistive technology waits for its call to return
        DrainEvents();
        QCOMPARE(presses.count(), 1);
        QCOMPARE(presses.takeFirst().first().toString(), QStringLiteral("two"));
        second->actionInterface()->doAction(press);
        shower.text.setEnabled(false);
        QCOMPARE(second->actionInterface()->actionNames(), QStringList());
        DrainEvents();
        shower.text.setEnabled(true);
        second->actionInterface()->doAction(press);
        shower.text.setText(QStringLiteral("<a href='one'>one</a> <a href='three'>three</a>"));
        DrainEvents();
        QCOMPARE(presses.count(), 0);
        QCOMPARE(second->text(QAccessible::Name), QStringLiteral("three"));
        shower.text.setText(QStringLiteral("<a href='one'>one</a>"));
        QVERIFY(!second->isValid());
        QVERIFY(second->state().invalid);
        QCOMPARE(second->text(QAccessible::Name), QString());
        QCOMPARE(second->rect(), QRect());
        second->actionInterface()->doAction(press);
        DrainEvents();
        QCOMPARE(presses.count(), 0);
    }

    void a_point_among_many_links_is_looked_for_in_a_few_times_the_time_of_setting_them()
    {
        Shower shower(QSize(300, 40));
        std::clock_t before = std::clock();
        shower.text.setText(QStringLiteral("<a href='some'>a link</a> and ").repeated(1000));
        const std::clock_t setting = std::clock() - before;
        const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&shower.text);
        QCOMPARE(accessible->childCount(), 1000);
        const QPoint beside = accessible->rect().topLeft() - QPoint(9, 9);
        before = std::clock();
        QCOMPARE(accessible->childAt(beside.x(), beside.y()), nullptr);
        QVERIFY(std::clock() - before < 10 * setting); // a search for each link took a hundred times as long
    }

    void assistive_technology_hears_which_link_has_the_keyboard()
    {
        Shower shower(QSize(300, 40));
        shower.text.setText(QStringLiteral("<a href='one'>one</a> and <a href='two'>two</a>"));
        shower.text.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(shower.text.window()));
        QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&shower.text);
        shower.text.clearFocus(); // which the only control of a window has
        AccessibleEvents told(shower.text);
        shower.text.setFocus(Qt::TabFocusReason);
        DrainEvents();
        QCOMPARE(told.Take(), (QStringList{QStringLiteral("Focus"), QStringLiteral("Focus of child 0")}));
        QVERIFY(accessible->child(0)->state().focused);
        QCOMPARE(accessible->focusChild(), accessible->child(0));
        QCOMPARE(accessible->textInterface()->cursorPosition(), 0);
        QTest::keyClick(&shower.text, Qt::Key_Tab);
        DrainEvents();
        QCOMPARE(told.Take(), QStringList(QStringLiteral("Focus of child 1")));
        QVERIFY(!accessible->child(0)->state().focused);
        QVERIFY(accessible->child(1)->state().focused);
        QCOMPARE(accessible->focusChild(), accessible->child(1));
        QCOMPARE(accessible->textInterface()->cursorPosition(), 8);
        shower.text.clearFocus();
        QCOMPARE(accessible->textInterface()->cursorPosition(), -1);
    }

    void assistive_technology_hears_last_of_what_tab_goes_on_to()
    {
        QWidget window;
        QcMultiLineText text(&window);
        QPushButton next(&window);
        text.resize(300, 40);
        text.setText(QStringLiteral("<a href='one'>one</a>"));
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        next.setFocus();
        const AccessibleEvents told(text);
        QTest::keyClick(&next, Qt::Key_Tab);
        DrainEvents();
        QCOMPARE(told.Focused(), &text);
        QTest::keyClick(&text, Qt::Key_Tab);
        DrainEvents();
        QVERIFY(next.hasFocus());
        QCOMPARE(told.Focused(), &next);
    }

    void a_frame_is_painted_around_the_text()
    {
        Shower shower(QSize(100, 50));
        shower.text.setStyleSheet(QStringLiteral("border: 2px solid red"));
        QCOMPARE(InkBox(Render(shower.text), Qt::white), QRectF(0, 0, 100, 50));
    }

    void a_megabyte_is_shown_and_cut()
    {
        Shower shower(QSize(300, 300));
        shower.text.setLineCount(3);
        shower.text.setText(QStringLiteral("<p>%1</p>").arg(Words(140)).repeated(1000));
        QCOMPARE(LinesOf(shower.text), 3);
        QVERIFY(Shown(shower.text).endsWith(kSuffix));
    }

protected:
    void TearDown() override { UseTable(Table::Light); }
};

VELMORA_TEST_MAIN(TestQcMultiLineText)

#include "tst_QcMultiLineText.moc"
