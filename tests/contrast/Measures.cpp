#include "contrast/Measures.h"
#include "support/ColorValue.h"

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

/// What of a code is seen on \a ground.
QColor SeenOn(const QColor &ground, const QString &code, double coverage)
{
    if (!Paints(code))
        return ground;
    QColor color = ColorOf(code);
    color.setAlphaF(ColorValue(color.alphaF() * coverage));
    return Blended(color, ground);
}

/// How far apart two colours look: in CIE L*a*b*, whose unit is about the least difference that is seen.
double Distance(const QColor &one, const QColor &other)
{
    struct Lab
    {
        double l, a, b;
    };
    const auto labOf = [](const QColor &color) {
        const double red = LinearOf(color.redF());
        const double green = LinearOf(color.greenF());
        const double blue = LinearOf(color.blueF());
        const auto root = [](double part) { return part > 0.008856 ? std::cbrt(part) : 7.787 * part + 16.0 / 116.0; };
        const double x = root((0.4124 * red + 0.3576 * green + 0.1805 * blue) / 0.9505);
        const double y = root(0.2126 * red + 0.7152 * green + 0.0722 * blue);
        const double z = root((0.0193 * red + 0.1192 * green + 0.9505 * blue) / 1.089);
        return Lab{116.0 * y - 16.0, 500.0 * (x - y), 200.0 * (y - z)};
    };
    const Lab first = labOf(one);
    const Lab second = labOf(other);
    return std::hypot(first.l - second.l, first.a - second.a, first.b - second.b);
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
            ground = Blended(ColorOf(code), ground);
        grounds.append(ground);
    }
    return grounds;
}

/// Pairs of a control that cannot have what is wanted.
struct Excuse
{
    const char *control;
    const char *where; ///< the beginning of it
    const char *table; ///< null: in each
    double least;
};

// Half of the outline of a button is clipped, and that of a secondary one has the colour of its text, which says what the outline says.
constexpr Excuse kExcuses[] = {
    // A text is to be read on the colour, which fills the disabled primary button.
    {"QcSecondaryButton", "border, disabled", nullptr, 1.5},
    // A white tick is to be seen on the colour, which fills the check box.
    {"QcSecondaryButton", "border, ", "contrast_dark", 1.9},
    // "Loading..." is white in every table, and so is the caption that the guide to feedback has a host colour: no veil is right for
    // the dark one too that the kit gives it.
    {"QcLoadingDialog", "#m_textLabel", "contrast_light", 1.0},
};

bool Excuses(const Excuse &excuse, const Pair &pair, const QString &table)
{
    const bool isOfTable = !excuse.table || table == QLatin1String(excuse.table);
    return isOfTable && pair.control == QLatin1String(excuse.control) && pair.where.startsWith(QLatin1String(excuse.where));
}

/// A group of a page: what the pairs of a control have in common.
enum Group { Texts, Parts, Disabled };

Group GroupOf(Kind kind)
{
    switch (kind) {
    case Kind::Body:
    case Kind::Text:
        return Texts;
    case Kind::Graphic:
    case Kind::Line:
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

QColor Blended(const QColor &color, const QColor &ground)
{
    const double alpha = color.alphaF();
    const auto mix = [alpha](double upper, double lower) { return upper * alpha + lower * (1.0 - alpha); };
    return QColor::fromRgbF(ColorValue(mix(color.redF(), ground.redF())), ColorValue(mix(color.greenF(), ground.greenF())),
                            ColorValue(mix(color.blueF(), ground.blueF())));
}

double ContrastOf(const Pair &pair)
{
    double least = 21.0;
    for (const QColor &ground : GroundsOf(pair.grounds))
        least = std::min(least, Contrast(SeenOn(ground, pair.code, pair.coverage), ground));
    return least;
}

double ContrastOf(const Change &change)
{
    double least = 21.0;
    for (const QColor &ground : GroundsOf(change.grounds))
        least = std::min(least, Contrast(SeenOn(ground, change.before, change.coverage), SeenOn(ground, change.after, change.coverage)));
    return least;
}

bool IsSeen(const Change &change)
{
    constexpr double kLeastContrast = 1.15;
    constexpr double kLeastDistance = 20.0;
    if (ContrastOf(change) >= kLeastContrast)
        return true;
    const QVector<QColor> grounds = GroundsOf(change.grounds);
    return std::all_of(grounds.cbegin(), grounds.cend(), [&change](const QColor &ground) {
        return Distance(SeenOn(ground, change.before, change.coverage), SeenOn(ground, change.after, change.coverage)) >= kLeastDistance;
    });
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
        if (Excuses(excuse, pair, table))
            return excuse.least;
    }
    return LeastOf(pair.kind);
}

QStringList IdleExcuses(const QVector<Pair> &pairs, const QStringList &tables)
{
    QStringList idle;
    for (const QString &table : tables) {
        UseTableNamed(table);
        for (const Excuse &excuse : kExcuses) {
            if (excuse.table && table != QLatin1String(excuse.table))
                continue;
            const bool isNeeded = std::any_of(pairs.cbegin(), pairs.cend(), [&](const Pair &pair) {
                return Excuses(excuse, pair, table) && ContrastOf(pair) < LeastOf(pair.kind);
            });
            if (!isNeeded)
                idle.append(QStringLiteral("%1, %2 in %3").arg(QLatin1String(excuse.control), QLatin1String(excuse.where), table));
        }
    }
    return idle;
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
