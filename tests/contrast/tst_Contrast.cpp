#include "contrast/Measures.h"
#include "contrast/Pairs.h"
#include "contrast/Sources.h"
#include "support/TestMain.h"

#include <Velmora/QcFrame.h>
#include <Velmora/QcTertiaryButton.h>

#include <QFile>

using namespace VelmoraTest;

namespace {

const QString kSources = QStringLiteral(VELMORA_SOURCES);

const QStringList kContrastTables = {QStringLiteral("contrast_light"), QStringLiteral("contrast_dark")};

/// Tokens that no pair needs, and why.
bool IsExempt(const QString &token)
{
    static const QStringList exempt = {
        QStringLiteral("base/red/"),       // ramps: colours to choose from, for uses that only a host knows,
        QStringLiteral("base/green/"),     //
        QStringLiteral("base/gray/"),      //
        QStringLiteral("base/neutral/"),   // but for those that the kit itself uses, which are in pairs
        QStringLiteral("overlay/overlay"), // laid over what is not to be used meanwhile
        QStringLiteral("mask/mask"),       // ends of gradients, into which a text fades
    };
    return std::any_of(exempt.cbegin(), exempt.cend(), [&token](const QString &start) { return token.startsWith(start); });
}

QStringList CodesIn(const QVector<Pair> &pairs)
{
    QString text;
    for (const Pair &pair : pairs)
        text += QStringLiteral("\"%1\" \"%2\" ").arg(pair.code, pair.grounds.join(QStringLiteral("\" \"")));
    return TokensIn(text);
}

QVector<Pair> PairsOf(const Looks &looks, const QString &control)
{
    QVector<Pair> pairs;
    std::copy_if(looks.pairs.cbegin(), looks.pairs.cend(), std::back_inserter(pairs),
                 [&control](const Pair &pair) { return pair.control == control; });
    return pairs;
}

QStringList Without(const QStringList &tokens, const QStringList &known)
{
    QStringList rest;
    std::copy_if(tokens.cbegin(), tokens.cend(), std::back_inserter(rest),
                 [&known](const QString &token) { return !known.contains(token); });
    return rest;
}

/// The tokens that \a code, of the \a file below src, names and of which nothing is known.
QStringList UnknownTokens(const QString &file, const QString &code)
{
    static const QMap<QString, QStringList> painted = PaintedCodes();
    static const Looks buttons = ButtonLooks();
    static const Looks indicators = IndicatorLooks(kSources);
    QStringList known = painted.value(QStringLiteral("src/") + file);
    if (file == QLatin1String("theme/PlainPalette.cpp"))
        known += CodesIn(PaletteLooks(kSources).pairs);
    if (file == QLatin1String("buttons/ButtonTables_p.h"))
        known += CodesIn(buttons.pairs);
    if (file.startsWith(QLatin1String("buttons/"))) {
        const QString control = file.section(QLatin1Char('/'), -1).section(QLatin1Char('.'), 0, 0);
        known += CodesIn(PairsOf(buttons, control)) + CodesIn(PairsOf(indicators, control));
    }
    return Without(TokensIn(code), known);
}

QString Described(const Pair &pair, double contrast)
{
    return QStringLiteral("%1 %2: %3 on %4 has %5")
        .arg(pair.control, pair.where, pair.code, pair.grounds.join(QStringLiteral(" + ")), QString::number(contrast, 'f', 2));
}

/// The controls with two states that no part of them tells apart, and the states.
QStringList LookingTheSame(const QVector<Change> &changes)
{
    QMap<QString, bool> seen;
    for (const Change &change : changes) {
        bool &isSeen = seen[QStringLiteral("%1, %2").arg(change.control, change.states)];
        isSeen = isSeen || IsSeen(change);
    }
    return seen.keys(false);
}

QStringList TooFaint(const QVector<Pair> &pairs, const QString &table)
{
    UseTableNamed(table);
    QStringList faults;
    for (const Pair &pair : pairs) {
        const double contrast = ContrastOf(pair);
        if (contrast < WantedOf(pair, table))
            faults.append(Described(pair, contrast));
    }
    return faults;
}

} // namespace

/// The contrast of every colour that the kit puts on another one.
class TestContrast : public TestCase
{
    Q_OBJECT

    void TearDown() override { UseTable(Table::Light); }

private Q_SLOTS:
    void the_formula_gives_what_is_known_of_some_colours()
    {
        QCOMPARE(Contrast(Qt::black, Qt::white), 21.0);
        QCOMPARE(Contrast(Qt::white, Qt::white), 1.0);
        QVERIFY(qAbs(Contrast(QColor(0x77, 0x77, 0x77), Qt::white) - 4.48) < 0.01);
        QCOMPARE(Blended(QColor(0, 0, 0, 128), Qt::white).red(), 127);
    }

    void all_that_is_read_and_seen_stands_out_data()
    {
        QTest::addColumn<QString>("table");
        for (const QString &table : kContrastTables)
            QTest::addRow("%s", qPrintable(table)) << table;
    }

    void all_that_is_read_and_seen_stands_out()
    {
        QFETCH(QString, table);
        const QStringList faults = TooFaint(AllLooks(kSources).pairs, table);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
    }

    void nothing_is_excused_that_stands_out() { QCOMPARE(IdleExcuses(AllLooks(kSources).pairs, kContrastTables), QStringList()); }

    void states_are_told_apart_data() { all_that_is_read_and_seen_stands_out_data(); }

    void states_are_told_apart()
    {
        QFETCH(QString, table);
        UseTableNamed(table);
        const QStringList faults = LookingTheSame(AllLooks(kSources).changes);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
    }

    void a_pair_that_is_too_faint_is_found()
    {
        const Pair faint = {QStringLiteral("A"), QStringLiteral("text"), Kind::Text, QStringLiteral("#999999"), {QStringLiteral("*")}};
        QCOMPARE(TooFaint({faint}, QStringLiteral("contrast_light")).size(), 1);
        QCOMPARE(TooFaint({faint}, QStringLiteral("contrast_dark")).size(), 0);
    }

    void a_change_that_nobody_sees_is_found()
    {
        UseTableNamed(QStringLiteral("contrast_light"));
        const auto change = [](const char *part, const char *before, const char *after) -> Change {
            return {QStringLiteral("A"),  QStringLiteral("normal and hovered"),
                    QLatin1String(part),  QLatin1String(before),
                    QLatin1String(after), {QStringLiteral("*")}};
        };
        QCOMPARE(LookingTheSame({change("text", "#808080", "#858585")}), QStringList(QStringLiteral("A, normal and hovered")));
        QCOMPARE(LookingTheSame({change("text", "#808080", "#999999")}), QStringList());
        QCOMPARE(LookingTheSame({change("text", "#0000FF", "#4C4C4C")}), QStringList()); // of about one brightness
        QCOMPARE(LookingTheSame({change("text", "#808080", "#858585"), change("border", "#808080", "#999999")}), QStringList());
    }

    // --- That nothing is left out ---

    void every_button_with_state_tables_is_read()
    {
        QStringList classes;
        for (const QString &file : SourcesBelow(kSources + QStringLiteral("/buttons"))) {
            const QString code = CodeOf(kSources + QStringLiteral("/buttons/") + file);
            if (file.startsWith(QLatin1String("Qc")) && file.endsWith(QLatin1String(".cpp"))
                && (code.contains(QLatin1String("InstallTables(")) || code.contains(QLatin1String("Enter(m_"))))
                classes.append(file.section(QLatin1Char('.'), 0, 0));
        }
        QVERIFY(classes.size() >= 11);
        QCOMPARE(Without(classes, ButtonClasses()), QStringList());
    }

    void every_token_in_the_sources_is_in_a_pair()
    {
        QStringList faults;
        for (const QString &file : SourcesBelow(kSources)) {
            const QStringList unknown = UnknownTokens(file, CodeOf(kSources + QLatin1Char('/') + file));
            if (!unknown.isEmpty())
                faults.append(QStringLiteral("src/%1 names %2: say in PaintedPairs.cpp on what it is painted")
                                  .arg(file, unknown.join(QStringLiteral(", "))));
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
    }

    void a_token_that_is_in_no_pair_is_found()
    {
        const QString code = QStringLiteral("painter.setPen(TokenColor(QStringLiteral(\"tip/info\")));");
        QCOMPARE(UnknownTokens(QStringLiteral("inputs/QcNew.cpp"), code), QStringList(QStringLiteral("tip/info")));
        QCOMPARE(UnknownTokens(QStringLiteral("buttons/QcGhostButton.cpp"), code), QStringList(QStringLiteral("tip/info")));
    }

    void no_control_paints_a_colour_that_no_table_decides()
    {
        const QStringList known = {
            QStringLiteral("buttons/Indicator.cpp: #0000FF, #00FF00, #FF0000"), // replaced in pictures
            QStringLiteral("buttons/QcCheckBox.cpp: #FFFFFF"),                  // the tick, which is in pairs
            QStringLiteral("buttons/QcSwitchButton.cpp: #CCCCCC"),              // replaced
            QStringLiteral("dock/QcDockAreaTabBarButton.cpp: #FFFFFF, 0.36"),   // between tabs, as the guide says
            QStringLiteral("inputs/QCSlider.cpp: #005CD1, #FFFFFF"),            // replaced
            QStringLiteral("inputs/QcSelector.cpp: Qt::red"),                   // for a debugging host
            QStringLiteral("theme/BakedColors.cpp: Qt::red"),                   // Qt's own, replaced
            QStringLiteral("theme/PaintingHelpers.cpp: Qt::black"),             // shadows
        };
        QStringList found;
        for (const QString &file : SourcesBelow(kSources)) {
            const QStringList colors = ColorsIn(CodeOf(kSources + QLatin1Char('/') + file));
            if (!colors.isEmpty())
                found.append(QStringLiteral("%1: %2").arg(file, colors.join(QStringLiteral(", "))));
        }
        QCOMPARE(found, known);
    }

    void every_token_of_a_table_is_in_a_pair()
    {
        const QStringList missing = Without(TokensOf(Table::Light), CodesIn(AllLooks(kSources).pairs));
        QStringList faults;
        std::copy_if(missing.cbegin(), missing.cend(), std::back_inserter(faults), [](const QString &token) { return !IsExempt(token); });
        QCOMPARE(faults, QStringList());
    }

    void every_file_that_a_row_names_is_there()
    {
        const QStringList files = PaintedCodes().keys();
        for (const QString &file : files)
            QVERIFY2(QFile::exists(kSources + QStringLiteral("/../") + file), qPrintable(file));
    }

    // --- How pairs are read ---

    void a_sheet_gives_text_border_and_handle_in_each_state()
    {
        const Looks looks = LooksOfSheet(QStringLiteral(R"(
            Velmora--QcNew { border: 1px solid ${border/border_primary}; background: ${bg/bg_box}; color: ${text/text_primary}; }
            Velmora--QcNew:hover, Velmora--QcNew:focus { border-color: ${brand/brand}; }
            Velmora--QcNew:disabled { background: ${base/neutral/neutral-30}; }
            Velmora--QcNew QLineEdit { border: none; color: ${text/text_tertairy}; }
            Velmora--QcNew::handle:vertical { background: ${base/neutral/neutral-50}; })"));
        QStringList told;
        for (const Pair &pair : looks.pairs)
            told.append(QStringLiteral("%1: %2 on %3").arg(pair.where, pair.code, pair.grounds.join(QLatin1Char('+'))));
        for (const char *pair : {"itself, text: ${text/text_primary} on *+${bg/bg_box}", "itself, border: ${border/border_primary} on *",
                                 "itself:hover, border: ${brand/brand} on *", "itself:focus, border: ${brand/brand} on *",
                                 "itself:disabled, text: ${text/text_primary} on *+${base/neutral/neutral-30}",
                                 "QLineEdit, text: ${text/text_tertairy} on *+${bg/bg_box}",
                                 "QLineEdit:disabled, text: ${text/text_tertairy} on *+${base/neutral/neutral-30}",
                                 "::handle, fill: ${base/neutral/neutral-50} on *+${bg/bg_box}"})
            QVERIFY2(told.contains(QLatin1String(pair)), pair);
    }

    void a_border_is_seen_as_its_pair_says()
    {
        UseTableNamed(QStringLiteral("contrast_light"));
        Velmora::QcFrame ground;
        ground.setBackgroundColorParams(QStringLiteral("bg/bg_box"));
        ground.resize(120, 60);
        Velmora::QcTertiaryButton button(&ground);
        button.setGeometry(10, 10, 100, 24);
        DrainEvents(); // which fills its tables
        const QImage image = ground.grab().toImage();
        const double painted = Contrast(image.pixelColor(60, 10), image.pixelColor(60, 8));
        for (Pair pair : PairsOf(ButtonLooks(), QStringLiteral("QcTertiaryButton"))) {
            pair.grounds = QStringList(QStringLiteral("bg/bg_box"));
            if (pair.where == QLatin1String("border, normal"))
                QVERIFY2(qAbs(painted - ContrastOf(pair)) < 0.1, qPrintable(Described(pair, painted)));
        }
    }

    void a_button_gives_its_text_on_its_ground_in_each_state()
    {
        QStringList told;
        for (const Pair &pair : PairsOf(ButtonLooks(), QStringLiteral("QcPrimaryButton")))
            told.append(QStringLiteral("%1: %2 on %3").arg(pair.where, pair.code, pair.grounds.join(QLatin1Char('+'))));
        QVERIFY(told.contains(QStringLiteral("text, disabled: text/text_disabled on *+brand/brand_disable")));
        QVERIFY(told.contains(QStringLiteral("text, pressed: text/text_button on *+brand/brand_press")));
        QCOMPARE(PairsOf(ButtonLooks(), QStringLiteral("QcPrimaryButton")).size(), 16);
    }

    void an_indicator_gives_its_outline_and_its_mark()
    {
        QStringList told;
        const Looks looks = IndicatorLooks(kSources);
        for (const Pair &pair : looks.pairs)
            told.append(QStringLiteral("%1 %2: %3 on %4").arg(pair.control, pair.where, pair.code, pair.grounds.join(QLatin1Char('+'))));
        QVERIFY(told.contains(QStringLiteral("QcCheckBox Checked, normal, tick: #FFFFFF on *+brand/brand")));
        QVERIFY(told.contains(QStringLiteral("QcRadioButton Checked, hovered, mark: brand/brand on *+brand/brand_secondary_hover")));
        QCOMPARE(looks.pairs.size(), 8 + 4 + 8 + 4 + 8);
    }
};

VELMORA_TEST_MAIN(TestContrast)
#include "tst_Contrast.moc"
