#include "contrast/Measures.h"

#include <Velmora/ColorParams.h>
#include <Velmora/QcStyleManager.h>

#include <QMap>

#include <algorithm>
#include <cmath>

namespace VelmoraTest {

namespace {

double LinearOf(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double LuminanceOf(const QColor &color)
{
    return 0.2126 * LinearOf(color.redF()) + 0.7152 * LinearOf(color.greenF()) + 0.0722 * LinearOf(color.blueF());
}

QColor ColorOf(const QString &code)
{
    return Velmora::QcStyleManager::GetInstance()->GetColor(Velmora::ColorParams(code));
}

/// Each stack of grounds as the one colour that is seen.
QVector<QColor> GroundsOf(QStringList codes)
{
    QVector<QColor> grounds;
    const QStringList lowest = codes.first() == QLatin1String("*") ? Surfaces() : QStringList(codes.first());
    codes.removeFirst();
    for (const QString &surface : lowest) {
        QColor ground = ColorOf(surface);
        for (const QString &code : qAsConst(codes))
            ground = Over(ColorOf(code), ground);
        grounds.append(ground);
    }
    return grounds;
}

/// A colour that stands in the kit whatever the table, where no table can give it all that is wanted.
struct Excuse
{
    const char *table;
    const char *control;
    const char *code;
    double least;
};

constexpr Excuse kExcuses[] = {
    // "Loading..." is white, and the words of the host under it follow the table: on one veil both are to be read.
    {"contrast_light", "QcLoadingDialog", "${#FFFFFF, 0.7}", 3.0},
    {"contrast_light", "QcLoadingDialog", "${text/text_secondary}", 4.5},
};

/// A group of a page: what the pairs of a control have in common.
enum Group { Texts, Parts, Disabled };

Group GroupOf(Kind kind)
{
    switch (kind) {
    case Kind::Body:
    case Kind::Text:
        return Texts;
    case Kind::Graphic:
        return Parts;
    case Kind::DisabledText:
    case Kind::DisabledGraphic:
        break;
    }
    return Disabled;
}

/// The pair of a group that has least of what it must have.
struct Least
{
    double contrast = 0.0;
    double wanted = 0.0;
};

QString CellOf(const Least &least)
{
    // Cut, not rounded: what is short of 4.5 must not read as 4.5.
    const QString number = QString::number(std::floor(least.contrast * 10.0) / 10.0, 'f', 1);
    return least.contrast < least.wanted ? QStringLiteral("**%1**").arg(number) : number;
}

using Rows = QMap<QPair<QString, int>, QMap<QString, Least>>;

Rows RowsOf(const Looks &looks)
{
    Rows rows;
    for (const QString &table : TableNames()) {
        UseTableNamed(table);
        for (const Pair &pair : looks.pairs) {
            const double contrast = ContrastOf(pair);
            const double wanted = LeastOf(pair.kind);
            Least &least = rows[{pair.control, GroupOf(pair.kind)}][table];
            if (qFuzzyIsNull(least.wanted) || contrast / wanted < least.contrast / least.wanted)
                least = {contrast, wanted};
        }
    }
    return rows;
}

} // namespace

double Contrast(const QColor &one, const QColor &other)
{
    const double a = LuminanceOf(one) + 0.05;
    const double b = LuminanceOf(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

QColor Over(const QColor &color, const QColor &ground)
{
    const double alpha = color.alphaF();
    const auto mix = [alpha](double upper, double lower) { return upper * alpha + lower * (1.0 - alpha); };
    return QColor::fromRgbF(mix(color.redF(), ground.redF()), mix(color.greenF(), ground.greenF()), mix(color.blueF(), ground.blueF()));
}

double ContrastOf(const Pair &pair)
{
    double least = 21.0;
    for (const QColor &ground : GroundsOf(pair.grounds))
        least = std::min(least, Contrast(Over(ColorOf(pair.code), ground), ground));
    return least;
}

double ContrastOf(const Change &change)
{
    double least = 21.0;
    for (const QColor &ground : GroundsOf(change.grounds)) {
        const auto seen = [&ground](const QString &code) { return Paints(code) ? Over(ColorOf(code), ground) : ground; };
        least = std::min(least, Contrast(seen(change.before), seen(change.after)));
    }
    return least;
}

QStringList TableNames()
{
    return {QStringLiteral("blue_light"), QStringLiteral("blue_dark"), QStringLiteral("contrast_light"), QStringLiteral("contrast_dark")};
}

void UseTableNamed(const QString &name)
{
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(QStringLiteral(":/colors/%1.ini").arg(name));
}

double WantedOf(const Pair &pair, const QString &table)
{
    for (const Excuse &excuse : kExcuses) {
        if (table == QLatin1String(excuse.table) && pair.control == QLatin1String(excuse.control)
            && pair.code == QLatin1String(excuse.code))
            return excuse.least;
    }
    return LeastOf(pair.kind);
}

QString ContrastPage(const Looks &looks)
{
    static const QString names[] = {QStringLiteral("texts"), QStringLiteral("lines, icons, marks"), QStringLiteral("disabled")};
    QString page = QStringLiteral("| Control | What | `%1` |\n|---|---|---|---|---|---|\n").arg(TableNames().join(QStringLiteral("` | `")));
    const Rows rows = RowsOf(looks);
    for (auto row = rows.cbegin(); row != rows.cend(); ++row) {
        QStringList cells;
        for (const QString &table : TableNames())
            cells.append(CellOf(row.value().value(table)));
        const QString control =
            row.key().first.startsWith(QLatin1Char('Q')) ? QStringLiteral("`%1`").arg(row.key().first) : row.key().first;
        page += QStringLiteral("| %1 | %2 | %3 |\n").arg(control, names[row.key().second], cells.join(QStringLiteral(" | ")));
    }
    return page;
}

} // namespace VelmoraTest
