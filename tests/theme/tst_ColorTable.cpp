#include "TestFiles.h"
#include "support/ColorValue.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include <Velmora/FileAndDesktop.h>

#include <QSignalSpy>

using namespace Velmora;
using VelmoraTest::Table;
using VelmoraTest::TestFiles;
using VelmoraTest::TokenOf;
using VelmoraTest::TokensOf;
using VelmoraTest::UseTable;

namespace {

QcStyleManager &Manager()
{
    return *QcStyleManager::GetInstance();
}

QColor ColorOf(const char *code)
{
    return Manager().GetColor(ColorParams(code));
}

QColor Rgba(int red, int green, int blue, double alpha)
{
    QColor color(red, green, blue);
    color.setAlphaF(VelmoraTest::ColorValue(alpha));
    return color;
}

} // namespace

Q_DECLARE_METATYPE(VelmoraTest::Table)

class tst_ColorTable : public VelmoraTest::TestCase
{
    Q_OBJECT

private:
    TestFiles m_files;
    int m_written = 0;

    void SetUp() override { UseTable(Table::Light); }

    /// A new file each time: two of one size that are written at the same instant look alike to QSettings.
    void Load(const QByteArray &text) { Manager().SetColorFilePath(m_files.Write(QStringLiteral("table %1.ini").arg(++m_written), text)); }

private Q_SLOTS:
    // --- The built-in tables ---

    void a_built_in_table_holds_the_colours_of_its_file_data()
    {
        QTest::addColumn<Table>("table");
        QTest::newRow("light") << Table::Light;
        QTest::newRow("dark") << Table::Dark;
    }

    void a_built_in_table_holds_the_colours_of_its_file()
    {
        QFETCH(Table, table);
        UseTable(table);
        const QStringList tokens = TokensOf(table);
        QCOMPARE(tokens.size(), 123);
        for (const QString &token : tokens)
            QVERIFY2(Manager().GetColor(token) == TokenOf(table, token), qPrintable(token));
    }

    void the_tables_differ_in_the_selection_background()
    {
        QCOMPARE(ColorOf("brand/brand_bg"), Rgba(6, 112, 249, 0.2));
        UseTable(Table::Dark);
        QCOMPARE(ColorOf("brand/brand_bg"), Rgba(6, 112, 249, 0.36));
    }

    // --- Codes ---

    void an_alpha_of_the_code_replaces_the_tokens_own()
    {
        QCOMPARE(ColorOf("text/text_primary"), Rgba(0, 0, 0, 0.8));
        QCOMPARE(ColorOf("text/text_primary,0.5"), Rgba(0, 0, 0, 0.5));
        QCOMPARE(ColorOf("${text/text_primary, 0}"), Rgba(0, 0, 0, 0.0));
        QCOMPARE(ColorOf("text/text_primary,1"), Rgba(0, 0, 0, 1.0));
    }

    void an_alpha_that_is_none_leaves_the_tokens_own_data()
    {
        QTest::addColumn<QString>("code");
        for (const char *code : {"text/text_primary,half", "text/text_primary,", "text/text_primary,-0.5", "text/text_primary,0.5,0.5",
                                 "text/text_primary,nan"})
            QTest::newRow(code) << QString::fromLatin1(code);
    }

    void an_alpha_that_is_none_leaves_the_tokens_own()
    {
        QFETCH(QString, code);
        QCOMPARE(Manager().GetColor(code), Rgba(0, 0, 0, 0.8));
    }

    void an_alpha_beyond_the_range_is_limited_in_silence()
    {
        QCOMPARE(ColorOf("text/text_primary,7"), Rgba(0, 0, 0, 1.0));
        QCOMPARE(ColorOf("text/text_primary,inf"), Rgba(0, 0, 0, 1.0));
        QCOMPARE(ColorOf("#102030,1.0001"), Rgba(16, 32, 48, 1.0));
    }

    void an_empty_code_is_an_invalid_colour()
    {
        for (const char *code : {"", "   ", ",", ",0.5", "${}", "${,0.5}"}) {
            const QColor color = ColorOf(code);
            QVERIFY2(!color.isValid(), code);
            QVERIFY2(color == QColor(), code); // the alpha is not applied
        }
    }

    void literals_and_names_of_qt_work_beside_the_table()
    {
        QCOMPARE(ColorOf("#A1b2C3"), QColor(0xA1, 0xB2, 0xC3));
        QCOMPARE(ColorOf("#A1B2C3,0.5"), Rgba(0xA1, 0xB2, 0xC3, 0.5));
        QCOMPARE(ColorOf("steelblue"), QColor(70, 130, 180));
        QCOMPARE(ColorOf("transparent"), QColor(Qt::transparent));
        QCOMPARE(ColorOf("transparent,0.5"), Rgba(0, 0, 0, 0.5));
    }

    void an_unknown_name_is_an_invalid_colour_in_silence()
    {
        for (const char *code : {"no/such_token", "Brand/Brand", "brand/brand2", "#12", "#GGGGGG", "{brand/brand"})
            QVERIFY2(!ColorOf(code).isValid(), code);
    }

    void a_token_of_the_table_goes_before_a_name_of_qt()
    {
        Load("red = #00FF00\ntransparent = #0000FF\n#112233 = #445566\n");
        QCOMPARE(ColorOf("red"), QColor(0, 255, 0));
        QCOMPARE(ColorOf("transparent"), QColor(0, 0, 255));
        QCOMPARE(ColorOf("#112233"), QColor(0x44, 0x55, 0x66));
    }

    // --- Stylesheet text ---

    void a_colour_is_written_with_its_alpha_as_a_fraction()
    {
        QCOMPARE(Manager().GetStyleSheetColor(QColor(1, 22, 255)), QStringLiteral("rgba(1, 22, 255, 1)"));
        QCOMPARE(Manager().GetStyleSheetColor(Qt::transparent), QStringLiteral("rgba(0, 0, 0, 0)"));
        QCOMPARE(Manager().GetStyleSheetColor(Rgba(0, 0, 0, 0.5)), QStringLiteral("rgba(0, 0, 0, %1)").arg(Rgba(0, 0, 0, 0.5).alphaF()));
        QCOMPARE(Manager().GetStyleSheetColor(Rgba(9, 8, 7, 0.7)), QStringLiteral("rgba(9, 8, 7, 0.700008)"));
        QCOMPARE(Manager().GetStyleSheetColor(QColor()), QStringLiteral("rgba(0, 0, 0, 1)"));
    }

    void every_code_of_a_stylesheet_becomes_its_colour_data()
    {
        QTest::addColumn<QString>("styleSheet");
        QTest::addColumn<QString>("resolved");
        const QString brand = QStringLiteral("rgba(51, 111, 255, 1)");
        const QString faint = QStringLiteral("rgba(51, 111, 255, 0)");
        const QString black = QStringLiteral("rgba(0, 0, 0, 1)");

        QTest::newRow("empty") << QString() << QString();
        QTest::newRow("no code") << QStringLiteral("QLabel { color: red; }") << QStringLiteral("QLabel { color: red; }");
        QTest::newRow("one") << QStringLiteral("QLabel { color: ${brand/brand}; }") << QStringLiteral("QLabel { color: %1; }").arg(brand);
        QTest::newRow("code alone") << QStringLiteral("${brand/brand}") << brand;
        QTest::newRow("at the begin") << QStringLiteral("${brand/brand} x") << brand + QStringLiteral(" x");
        QTest::newRow("at the end") << QStringLiteral("x ${brand/brand}") << QStringLiteral("x ") + brand;
        QTest::newRow("two on a line") << QStringLiteral("a${brand/brand}b${brand/brand, 0}c")
                                       << QStringLiteral("a%1b%2c").arg(brand, faint);
        QTest::newRow("side by side") << QStringLiteral("${brand/brand}${brand/brand,0}") << brand + faint;
        QTest::newRow("on two lines") << QStringLiteral("${brand/brand}\n${brand/brand,0}\r\n")
                                      << QStringLiteral("%1\n%2\r\n").arg(brand, faint);
        QTest::newRow("blanks inside") << QStringLiteral("${ brand/brand , 0 }") << faint;
        QTest::newRow("unknown") << QStringLiteral("${no/such}") << black;
        QTest::newRow("unknown with alpha") << QStringLiteral("${no/such, 0}") << QStringLiteral("rgba(0, 0, 0, 0)");
        QTest::newRow("nothing inside") << QStringLiteral("a${}b") << QStringLiteral("a%1b").arg(black);
        QTest::newRow("name of Qt") << QStringLiteral("${red}") << QStringLiteral("rgba(255, 0, 0, 1)");
        QTest::newRow("across a line break") << QStringLiteral("${brand\n/brand}") << QStringLiteral("${brand\n/brand}");
        QTest::newRow("never closed") << QStringLiteral("x ${brand/brand") << QStringLiteral("x ${brand/brand");
        QTest::newRow("never closed, then a code on the next line")
            << QStringLiteral("${x\n${brand/brand}") << QStringLiteral("${x\n") + brand;
        QTest::newRow("opened twice") << QStringLiteral("${x ${brand/brand}") << black;
        QTest::newRow("nested") << QStringLiteral("${${brand/brand}}") << black + QStringLiteral("}");
        QTest::newRow("never opened") << QStringLiteral("brand/brand}") << QStringLiteral("brand/brand}");
        QTest::newRow("braces of rules") << QStringLiteral("A{color:${brand/brand}}B{}") << QStringLiteral("A{color:%1}B{}").arg(brand);
        QTest::newRow("placeholders of the text stay")
            << QStringLiteral("%1 ${brand/brand} %2") << QStringLiteral("%1 ") + brand + QStringLiteral(" %2");
    }

    void every_code_of_a_stylesheet_becomes_its_colour()
    {
        QFETCH(QString, styleSheet);
        QFETCH(QString, resolved);
        QCOMPARE(Manager().ReplaceStyleSheetColorCodes(styleSheet), resolved);
    }

    void a_long_stylesheet_of_unclosed_codes_ends_in_time()
    {
        const QString unclosed = QStringLiteral("${").repeated(500000);
        QCOMPARE(Manager().ReplaceStyleSheetColorCodes(unclosed), unclosed);
        QCOMPARE(Manager().ReplaceStyleSheetColorCodes(unclosed + QStringLiteral("\n${red}")),
                 unclosed + QStringLiteral("\nrgba(255, 0, 0, 1)"));
    }

    // --- Loading ---

    void a_new_table_replaces_the_old_one_and_is_signalled()
    {
        QSignalSpy changed(&Manager(), &QcStyleManager::SignalColorChanged);
        QColor atSignal;
        const auto connection = connect(&Manager(), &QcStyleManager::SignalColorChanged, this, [&] { atSignal = ColorOf("own/token"); });
        Load("own/token = #123456\n");
        disconnect(connection);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(atSignal, QColor(0x12, 0x34, 0x56));
        QVERIFY(!ColorOf("brand/brand").isValid());
    }

    void the_current_path_again_does_nothing_even_if_the_file_changed()
    {
        const QString path = m_files.Write(QStringLiteral("table.ini"), "a = #111111\n");
        Manager().SetColorFilePath(path);
        QSignalSpy changed(&Manager(), &QcStyleManager::SignalColorChanged);
        m_files.Write(QStringLiteral("table.ini"), "a = #222222 ; changed\n");
        Manager().SetColorFilePath(path);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(ColorOf("a"), QColor(0x11, 0x11, 0x11));
        // By way of another table the change is seen.
        UseTable(Table::Dark);
        Manager().SetColorFilePath(path);
        QCOMPARE(changed.count(), 2);
        QCOMPARE(ColorOf("a"), QColor(0x22, 0x22, 0x22));
    }

    void a_missing_file_gives_a_warning_and_changes_nothing()
    {
        QSignalSpy changed(&Manager(), &QcStyleManager::SignalColorChanged);
        const QString missing = m_files.Path(QStringLiteral("missing %1 table.ini"));
        ExpectWarning(QStringLiteral("QcStyleManager::SetColorTableList: ") + missing + QStringLiteral(" not exists"));
        Manager().SetColorFilePath(missing);
        QCOMPARE(ColorOf("brand/brand"), TokenOf(Table::Light, QStringLiteral("brand/brand")));

        // The path of the active table is still the stored one...
        Manager().SetColorFilePath(VelmoraTest::TablePath(Table::Light));
        QCOMPARE(changed.count(), 0);
        // ...and the missing one is not.
        ExpectWarning(QStringLiteral("QcStyleManager::SetColorTableList: ") + missing + QStringLiteral(" not exists"));
        Manager().SetColorFilePath(missing);
        QCOMPARE(changed.count(), 0);
        ExpectWarning(QStringLiteral("QcStyleManager::SetColorTableList:  not exists"));
        Manager().SetColorFilePath(QString());
        QCOMPARE(changed.count(), 0);
    }

    void a_file_without_keys_leaves_an_empty_table_and_is_signalled_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("mark alone") << QByteArray("\xEF\xBB\xBF");
        QTest::newRow("comments") << QByteArray("; one\n;two\n\n");
        QTest::newRow("no equals sign") << QByteArray("brand/brand #336FFF\n");
        QTest::newRow("zero bytes") << QByteArray(64, '\0');
        QTest::newRow("binary") << QByteArray("\x7F"
                                              "ELF\x02\x01\x01\xFF\xFE\x80",
                                              10);
    }

    void a_file_without_keys_leaves_an_empty_table_and_is_signalled()
    {
        QFETCH(QByteArray, text);
        QSignalSpy changed(&Manager(), &QcStyleManager::SignalColorChanged);
        Load(text);
        QCOMPARE(changed.count(), 1);
        QVERIFY(!ColorOf("brand/brand").isValid());
    }

    void a_folder_leaves_an_empty_table_and_is_signalled()
    {
        QSignalSpy changed(&Manager(), &QcStyleManager::SignalColorChanged);
        Manager().SetColorFilePath(m_files.Path(QString()));
        QCOMPARE(changed.count(), 1);
        QVERIFY(!ColorOf("brand/brand").isValid());
    }

    void a_file_without_permission_leaves_an_empty_table_and_is_signalled()
    {
        const QString path = m_files.Write(QStringLiteral("secret.ini"), "a = #111111\n");
        const VelmoraTest::LockedFile locked(path);
        QSignalSpy changed(&Manager(), &QcStyleManager::SignalColorChanged);
        Manager().SetColorFilePath(path);
        QCOMPARE(changed.count(), 1);
        QVERIFY(!ColorOf("a").isValid());
        QVERIFY(!ColorOf("brand/brand").isValid());
    }

    // --- The file's grammar ---

    void every_form_of_a_line_loads_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QColor>("color");
        const QColor plain(0x06, 0x70, 0xF9);
        const QColor faint = Rgba(0x06, 0x70, 0xF9, 0.4);

        QTest::newRow("plain") << QByteArray("family/token = #0670F9\n") << plain;
        QTest::newRow("no blanks") << QByteArray("family/token=#0670F9\n") << plain;
        QTest::newRow("many blanks") << QByteArray("  family/token  =   #0670F9   \n") << plain;
        QTest::newRow("tabs") << QByteArray("family/token\t=\t#0670F9\t\n") << plain;
        QTest::newRow("lower-case digits") << QByteArray("family/token = #0670f9\n") << plain;
        QTest::newRow("no line end") << QByteArray("family/token = #0670F9") << plain;
        QTest::newRow("CRLF") << QByteArray("; x\r\nfamily/token = #0670F9\r\nb = #111111\r\n") << plain;
        QTest::newRow("mark and key") << QByteArray("\xEF\xBB\xBF"
                                                    "family/token = #0670F9\n")
                                      << plain;
        QTest::newRow("mark, blank and key") << QByteArray("\xEF\xBB\xBF  family/token = #0670F9, 0.4\n") << faint;
        QTest::newRow("mark and comment") << QByteArray("\xEF\xBB\xBF; x\nfamily/token = #0670F9\n") << plain;
        QTest::newRow("mark and line break") << QByteArray("\xEF\xBB\xBF\r\nfamily/token = #0670F9\r\n") << plain;
        QTest::newRow("mark, key and CRLF") << QByteArray("\xEF\xBB\xBF"
                                                          "family/token = #0670F9\r\nb = #111111\r\n")
                                            << plain;
        QTest::newRow("comment behind") << QByteArray("family/token = #0670F9 ; brand, 0.1\n") << plain;
        QTest::newRow("comment at once behind") << QByteArray("family/token = #0670F9;x\n") << plain;
        QTest::newRow("comment far behind") << QByteArray("family/token = #0670F9          \t ; x = y\n") << plain;
        QTest::newRow("comment behind alpha") << QByteArray("family/token = #0670F9, 0.4 ; x\n") << faint;
        QTest::newRow("alpha") << QByteArray("family/token = #0670F9, 0.4\n") << faint;
        QTest::newRow("alpha without blanks") << QByteArray("family/token=#0670F9,0.4\n") << faint;
        QTest::newRow("alpha with many blanks") << QByteArray("family/token = #0670F9   ,   0.40  \n") << faint;
        QTest::newRow("alpha nil") << QByteArray("family/token = #0670F9, 0\n") << Rgba(6, 112, 249, 0.0);
        QTest::newRow("alpha nil with a fraction") << QByteArray("family/token = #0670F9, 0.0\n") << Rgba(6, 112, 249, 0.0);
        QTest::newRow("alpha two digits") << QByteArray("family/token = #0670F9, 0.20\n") << Rgba(6, 112, 249, 0.2);
        QTest::newRow("alpha one") << QByteArray("family/token = #0670F9, 1\n") << plain;
        QTest::newRow("the last of two") << QByteArray("family/token = #111111\nfamily/token = #0670F9\n") << plain;
        QTest::newRow("the last of two behind a mark") << QByteArray("\xEF\xBB\xBF"
                                                                     "family/token = #111111\nfamily/token = #0670F9\n")
                                                       << plain;

        QTest::newRow("alpha a word") << QByteArray("family/token = #0670F9, half\n") << Rgba(6, 112, 249, 0.0);
        QTest::newRow("alpha missing") << QByteArray("family/token = #0670F9,\n") << Rgba(6, 112, 249, 0.0);
        QTest::newRow("alpha too large") << QByteArray("family/token = #0670F9, 7\n") << plain;
        QTest::newRow("alpha negative") << QByteArray("family/token = #0670F9, -1\n") << Rgba(6, 112, 249, 0.0);
        QTest::newRow("alpha no number at all") << QByteArray("family/token = #0670F9, nan\n") << Rgba(6, 112, 249, 0.0);
        QTest::newRow("alpha endless") << QByteArray("family/token = #0670F9, inf\n") << plain;
        QTest::newRow("three parts") << QByteArray("family/token = #0670F9, 0.4, 0.5\n") << plain;
        QTest::newRow("name of Qt") << QByteArray("family/token = steelblue\n") << QColor(70, 130, 180);
    }

    void every_form_of_a_line_loads()
    {
        QFETCH(QByteArray, text);
        QFETCH(QColor, color);
        Load(text);
        QCOMPARE(ColorOf("family/token"), color);
    }

    void a_malformed_value_is_an_invalid_colour_and_harms_no_other_data()
    {
        QTest::addColumn<QByteArray>("value");
        for (const char *value : {"",
                                  "#",
                                  "#12",
                                  "#GGGGGG",
                                  "#1234567890ABCDEF",
                                  "0670F9",
                                  "no colour",
                                  "${brand/brand}",
                                  "\"#06\" \"70\"",
                                  "@Invalid()",
                                  "@Size(1 2)",
                                  "@ByteArray(#)",
                                  "@Variant(\\0\\0\\0\\x1)",
                                  "@Variant(\\0\\0\\0\\x7f\\0\\0\\0\\xff)",
                                  "\\x",
                                  "%",
                                  "=",
                                  "[",
                                  "]",
                                  "\\",
                                  "\xFF\xFE"})
            QTest::newRow(qPrintable(QString::fromLatin1(value))) << QByteArray(value);
        QTest::newRow("zero byte") << QByteArray("#06\0"
                                                 "70F9",
                                                 8);
        QTest::newRow("long") << QByteArray(100000, '#');
        QTest::newRow("many commas") << QByteArray(100000, ',');
    }

    void a_malformed_value_is_an_invalid_colour_and_harms_no_other()
    {
        QFETCH(QByteArray, value);
        QSignalSpy changed(&Manager(), &QcStyleManager::SignalColorChanged);
        Load("before = #111111\nsteelblue = " + value + "\n\nbehind = #222222\n");
        QCOMPARE(changed.count(), 1);
        QCOMPARE(ColorOf("before"), QColor(0x11, 0x11, 0x11));
        QCOMPARE(ColorOf("behind"), QColor(0x22, 0x22, 0x22));
        // The key is there, with an invalid colour: the name of Qt would give a valid one.
        QVERIFY(!ColorOf("steelblue").isValid());
    }

    void a_malformed_line_harms_no_other_data()
    {
        QTest::addColumn<QByteArray>("line");
        for (const char *line : {"token", "= #0670F9", "=", "==", "/ = #0670F9", "// = #0670F9", "%U = #0670F9", "%zz = #0670F9", "\\ = x",
                                 "[", "@", "\"", "\\"})
            QTest::newRow(line) << QByteArray(line);
    }

    void a_malformed_line_harms_no_other()
    {
        QFETCH(QByteArray, line);
        Load("before = #111111\n" + line + "\n\nbehind = #222222\n");
        QCOMPARE(ColorOf("before"), QColor(0x11, 0x11, 0x11));
        if (line == "\"" || line == "[")
            return; // these open something that takes in what follows
        QCOMPARE(ColorOf("behind"), QColor(0x22, 0x22, 0x22));
    }

    void a_serialised_object_is_never_read()
    {
        // Lists in lists, deep enough to exhaust the stack of whoever unpacks them.
        QByteArray nested;
        for (int i = 0; i < 200000; ++i)
            nested += "\\0\\0\\0\\x9\\0\\0\\0\\x1";
        for (const QByteArray &opening :
             {QByteArray("@Variant("), QByteArray("\\x40Variant("), QByteArray("\";\", \"@Variant("), QByteArray("#111111, @Variant(")}) {
            Load("before = #111111\nsteelblue = " + opening + nested + ")\nbehind = #222222\n");
            QCOMPARE(ColorOf("before"), QColor(0x11, 0x11, 0x11));
            QVERIFY(!ColorOf("steelblue").isValid() || opening.startsWith('#'));
            UseTable(Table::Light);
        }
    }

    void odd_signs_in_comments_and_beside_a_value_are_harmless()
    {
        Load("; me@host\na = #111111 ; \\o/ @Variant(\nb = #222222\nc = @Variant(x)\nd = #333333\n");
        QCOMPARE(ColorOf("a"), QColor(0x11, 0x11, 0x11));
        QCOMPARE(ColorOf("b"), QColor(0x22, 0x22, 0x22));
        QVERIFY(!ColorOf("c").isValid());
        QCOMPARE(ColorOf("d"), QColor(0x33, 0x33, 0x33));
    }

    void neither_a_quote_in_a_comment_nor_the_kind_of_line_end_loses_the_values_beside_them()
    {
        for (const char *end : {"\n", "\r\n", "\r"}) {
            QByteArray text("; the \"Blue\" table\na = #111111 ; me@host\nb = #222222 ; C:\\colors\nc = \";@\"\nd = #333333\n");
            Load(text.replace("\n", end));
            QCOMPARE(ColorOf("a"), QColor(0x11, 0x11, 0x11));
            QCOMPARE(ColorOf("b"), QColor(0x22, 0x22, 0x22));
            QVERIFY(!ColorOf("c").isValid());
            QCOMPARE(ColorOf("d"), QColor(0x33, 0x33, 0x33));
        }
    }

    void a_token_missing_from_the_table_leaves_built_in_stylesheets_usable()
    {
        Load("own/token = #123456\n");
        const QString resolved = Manager().ReplaceStyleSheetColorCodes(GetFileContent(QStringLiteral(":/qss/CheckBox.qss")));
        QVERIFY(!resolved.contains(QLatin1String("${")));
        QVERIFY(resolved.contains(QLatin1String("rgba(0, 0, 0, 1)")));
        QWidget widget;
        Manager().RegisterQss(&widget, QStringLiteral(":/qss/CheckBox.qss"));
        QCOMPARE(widget.styleSheet(), resolved);
    }
};

VELMORA_TEST_MAIN(tst_ColorTable)
#include "tst_ColorTable.moc"
