#include "contrast/Pairs.h"
#include "contrast/Sources.h"

#include <QRegularExpression>

namespace VelmoraTest {

namespace {

constexpr const char *kStates[] = {"disabled", "normal", "hovered", "pressed"};

/// A row of an indicator's table: what its picture's fill (red), outline or tick (green) and inner mark (blue) stand for.
struct Row
{
    QString fill;
    QString line;
    QString mark;
};

QString CodeIn(const QString &literal)
{
    return literal == QLatin1String("nullptr") ? QString() : literal.mid(1, literal.size() - 2);
}

void AddRow(Looks &looks, const QString &control, const QString &where, const Row &row, bool isEnabled)
{
    const Kind kind = isEnabled ? Kind::Graphic : Kind::DisabledGraphic;
    const QStringList outside(QStringLiteral("*"));
    QStringList inside = outside;
    if (Paints(row.fill))
        inside.append(row.fill);
    // A white line is the tick in a filled box, whose edge is that of the fill.
    if (row.line.startsWith(QLatin1Char('#'))) {
        looks.pairs.append({control, where + QStringLiteral(", box"), kind, row.fill, outside});
        looks.pairs.append({control, where + QStringLiteral(", tick"), kind, row.line, inside});
    } else {
        looks.pairs.append({control, where + QStringLiteral(", outline"), kind, row.line, outside});
        if (Paints(row.mark))
            looks.pairs.append({control, where + QStringLiteral(", mark"), kind, row.mark, inside});
    }
}

} // namespace

Looks IndicatorLooks(const QString &sources)
{
    static const QRegularExpression table(
        QStringLiteral("constexpr IndicatorTable k(\\w+) = \\{\\s*\"[^\"]*\",\\s*\\{\\{(.*?)\\}\\},\\s*\\};"),
        QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression row(QStringLiteral("\\{([^,{}]+), ([^,{}]+), ([^,{}]+)\\}"));
    Looks looks;
    for (const QString &file : SourcesBelow(sources)) {
        const QString control = file.section(QLatin1Char('/'), -1).section(QLatin1Char('.'), 0, 0);
        const QString code = CodeOf(sources + QLatin1Char('/') + file);
        for (auto tables = table.globalMatch(code); tables.hasNext();) {
            const auto match = tables.next();
            int state = 0;
            QString fillBefore;
            for (auto rows = row.globalMatch(match.captured(2)); rows.hasNext(); ++state) {
                const auto cells = rows.next();
                const Row colors = {CodeIn(cells.captured(1)), CodeIn(cells.captured(2)), CodeIn(cells.captured(3))};
                AddRow(looks, control, QStringLiteral("%1, %2").arg(match.captured(1), QLatin1String(kStates[state])), colors, state > 0);
                if (state > 1 && fillBefore != colors.fill)
                    looks.changes.append({control,
                                          QStringLiteral("%1, %2 and %3")
                                              .arg(match.captured(1), QLatin1String(kStates[state - 1]), QLatin1String(kStates[state])),
                                          QStringLiteral("fill"), fillBefore, colors.fill, QStringList(QStringLiteral("*"))});
                fillBefore = colors.fill;
            }
        }
    }
    return looks;
}

} // namespace VelmoraTest
