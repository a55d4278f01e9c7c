#include "support/TestMain.h"

#include <Velmora/MultiLineTextElide.h>

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>

#include <climits>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

bool HasMoreLines(QTextDocument &document, int maxLines)
{
    Q_EMIT document.documentLayout()->update(QRectF(0, 0, 0, 1000000000.0));
    QTextCursor cursor(&document);
    int lines = 1;
    while (lines <= maxLines && cursor.movePosition(QTextCursor::Down))
        ++lines;
    return lines > maxLines;
}

/// The plain way: one character and one count of the lines at a time. What the library does must come to the same.
void ElideOneByOne(QTextDocument &document, int maxLines)
{
    if (!HasMoreLines(document, maxLines))
        return;
    QTextCursor cursor(&document);
    for (int line = 1; line < maxLines; ++line)
        cursor.movePosition(QTextCursor::Down);
    cursor.movePosition(QTextCursor::EndOfLine);
    cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    cursor.insertText(QStringLiteral("..."));
    while (HasMoreLines(document, maxLines)) {
        const int before = document.characterCount();
        cursor.movePosition(QTextCursor::End);
        if (cursor.position() < 3)
            return;
        cursor.setPosition(cursor.position() - 3);
        cursor.movePosition(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
        if (document.characterCount() == before)
            return; // nothing is left to take away
    }
}

void Fill(QTextDocument &document, const QString &html, int width)
{
    QFont font(QStringLiteral("Open Sans Medium"));
    font.setPixelSize(14);
    document.setDefaultFont(font);
    document.setDocumentMargin(0);
    QTextOption option = document.defaultTextOption();
    option.setWrapMode(QTextOption::WrapAnywhere);
    document.setDefaultTextOption(option);
    document.setHtml(html);
    document.setTextWidth(width);
}

int LaidOutLines(const QTextDocument &document)
{
    document.documentLayout()->documentSize();
    int lines = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        lines += block.layout()->lineCount();
    return lines;
}

QString Words(int count)
{
    QString text;
    for (int i = 0; i < count; ++i)
        text += QStringLiteral("word%1 ").arg(i % 97);
    return text;
}

/// A line whose blanks hang over the right edge, where they take no room.
QString HangingBlanks(int count)
{
    return QStringLiteral("<p style=\"white-space:pre-wrap\">a%1b c d e</p>").arg(QString(count, QLatin1Char(' ')));
}

struct Sample
{
    const char *name;
    QString html;
};

QVector<Sample> Samples()
{
    // More characters without a width than the library takes away one by one, and few enough to do so here.
    constexpr int kMany = 120;
    const QString hebrew = QStringLiteral("\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD \u05D5\u05D1\u05E8\u05DB\u05D4 ").repeated(12);
    const QString arabic =
        QStringLiteral("\u0627\u0644\u0633\u0644\u0627\u0645 \u0639\u0644\u064A\u0643\u0645 \u0648\u0631\u062D\u0645\u0629 ").repeated(12);
    return {
        {"empty", QString()},
        {"words", Words(60)},
        {"one long word", QString(300, QLatin1Char('x'))},
        {"thin letters", QString(300, QLatin1Char('i'))},
        {"hebrew", hebrew},
        {"arabic", arabic},
        {"mixed directions", QStringLiteral("Order 4711 ") + hebrew.left(40) + QStringLiteral(" of May ") + arabic.left(60) + Words(20)},
        {"mixed paragraphs", QStringLiteral("<p>%1</p><p dir=rtl>%2</p><p>%3</p>").arg(Words(8), hebrew, Words(8))},
        {"emoji",
         QStringLiteral("\U0001F600\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466\U0001F1E9\U0001F1EA ok ").repeated(20)},
        {"combining", QStringLiteral("e\u0301a\u0308\u0323o\u0302\u0300 ").repeated(40)},
        {"paragraphs", QStringLiteral("<p>One</p><p></p><p>%1</p><p>Four</p><p>Five</p>").arg(Words(20))},
        {"breaks", QStringLiteral("a<br><br>b<br>") + Words(20) + QStringLiteral("<br>c")},
        {"links", QStringLiteral("<a href=\"one\">first</a> %1 <a href=\"two\">%1</a>").arg(Words(10))},
        {"sizes", QStringLiteral("<span style=\"font-size:30px\">%1</span> %1").arg(Words(8))},
        {"list", QStringLiteral("<ul><li>%1</li><li>%1</li></ul>%1").arg(Words(8))},
        {"table", QStringLiteral("before %1<table><tr><td>%1</td><td>%1</td></tr></table>after").arg(Words(6))},
        {"table first", QStringLiteral("<table><tr><td>%1</td><td>%1</td></tr></table>after").arg(Words(6))},
        {"malformed", QStringLiteral("<p><b>bold <i>both </b>%1</i><a href=>&nosuch; &#xFFFF; <table><td>").arg(Words(20))},
        {"no markup", QStringLiteral("a < b && c > d <<<<< %1 <").arg(Words(20))},
        {"preformatted", QStringLiteral("<pre>a%1b\nc\nd</pre>").arg(QString(kMany, QLatin1Char(' ')))},
        {"hanging blanks", HangingBlanks(kMany)},
        {"no-break blanks", QStringLiteral("a") + QStringLiteral("&nbsp;").repeated(kMany) + QStringLiteral("b")},
        {"zero width", QStringLiteral("a") + QString(kMany, QChar(0x200B)) + Words(10)},
    };
}

} // namespace

class TestMultiLineTextElide : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void result_is_that_of_taking_away_one_by_one_data()
    {
        QTest::addColumn<QString>("html");
        QTest::addColumn<int>("width");
        for (const Sample &sample : Samples()) {
            for (const int width : {-1, 0, 1, 7, 20, 40, 101, 260})
                QTest::addRow("%s at %d", sample.name, width) << sample.html << width;
        }
    }

    void result_is_that_of_taking_away_one_by_one()
    {
        QFETCH(QString, html);
        QFETCH(int, width);
        for (const int lines : {0, 1, 2, 3, 5}) {
            if (lines == 0 && width != 101)
                continue; // takes all away at any width, which takes long one by one
            QTextDocument expected;
            Fill(expected, html, width);
            ElideOneByOne(expected, lines);
            QTextDocument document;
            Fill(document, html, width);
            multiLineTextElide(&document, lines);
            QVERIFY2(document.toPlainText() == expected.toPlainText(),
                     qPrintable(
                         QStringLiteral("%1 lines: \"%2\" is not \"%3\"").arg(lines).arg(document.toPlainText(), expected.toPlainText())));
            QCOMPARE(document.toHtml(), expected.toHtml());
        }
    }

    void exactly_as_many_lines_stay_whole()
    {
        QTextDocument document;
        Fill(document, Words(30), 200);
        const QString whole = document.toPlainText();
        const int lines = LaidOutLines(document);
        QVERIFY(lines > 3);
        multiLineTextElide(&document, lines);
        QCOMPARE(document.toPlainText(), whole);
        multiLineTextElide(&document, lines - 1);
        QVERIFY(document.toPlainText().endsWith(QStringLiteral("...")));
        QCOMPARE(LaidOutLines(document), lines - 1);
    }

    void one_line_keeps_its_begin_and_the_suffix()
    {
        QTextDocument document;
        Fill(document, Words(30), 200);
        const QString whole = document.toPlainText();
        multiLineTextElide(&document, 1);
        const QString cut = document.toPlainText();
        QVERIFY(cut.size() > 10);
        QVERIFY(cut.endsWith(QStringLiteral("...")));
        QVERIFY(whole.startsWith(cut.chopped(3)));
        QCOMPARE(LaidOutLines(document), 1);
    }

    void suffix_alone_is_left_where_nothing_fits()
    {
        for (const int width : {0, 1}) {
            QTextDocument document;
            Fill(document, Words(5), width);
            multiLineTextElide(&document, 1);
            QCOMPARE(document.toPlainText(), QStringLiteral("..."));
        }
        for (const int lines : {0, -1, INT_MIN}) {
            QTextDocument document;
            Fill(document, Words(5), 200);
            multiLineTextElide(&document, lines);
            QCOMPARE(document.toPlainText(), QStringLiteral("..."));
        }
    }

    void suffix_takes_the_format_in_front_of_it()
    {
        QTextDocument document;
        Fill(document, QStringLiteral("<b><a href=\"target\">%1</a></b>").arg(Words(30)), 200);
        multiLineTextElide(&document, 2);
        QTextCursor cursor(&document);
        cursor.movePosition(QTextCursor::End);
        QCOMPARE(cursor.charFormat().anchorHref(), QStringLiteral("target"));
        QCOMPARE(cursor.charFormat().fontWeight(), int(QFont::Bold));
    }

    void null_is_ignored() { multiLineTextElide(nullptr, 3); } // a crash or a log line would fail it

    void long_text_costs_few_counts_data()
    {
        QTest::addColumn<QString>("html");
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("counts");
        QTest::newRow("100 kB of words") << Words(14500) << 300 << 10;
        QTest::newRow("100 kB without a blank") << QString(100000, QLatin1Char('x')) << 300 << 10;
        QTest::newRow("1 MB in paragraphs") << QStringLiteral("<p>%1</p>").arg(Words(140)).repeated(1000) << 300 << 10;
        QTest::newRow("blanks that hang over the edge") << HangingBlanks(20000) << 7 << 70;
    }

    void long_text_costs_few_counts()
    {
        QFETCH(QString, html);
        QFETCH(int, width);
        QFETCH(int, counts);
        QTextDocument document;
        Fill(document, html, width);
        const int whole = document.characterCount();
        int counted = 0; // each count of the lines asks for the layout first
        connect(document.documentLayout(), &QAbstractTextDocumentLayout::update, &document, [&counted](const QRectF &rect) {
            if (rect == QRectF(0, 0, 0, 1000000000.0))
                ++counted;
        });
        multiLineTextElide(&document, 3);
        QVERIFY(document.characterCount() < whole);
        QVERIFY(document.toPlainText().endsWith(QStringLiteral("...")));
        QVERIFY2(counted > 0 && counted <= counts, qPrintable(QString::number(counted)));
    }
};

VELMORA_TEST_MAIN(TestMultiLineTextElide)

#include "tst_MultiLineTextElide.moc"
