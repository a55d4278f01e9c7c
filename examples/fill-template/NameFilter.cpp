#include "NameFilter.h"

#include <QRegularExpression>

#include <algorithm>

namespace FillTemplate {

namespace {

/// The whole character at \a at: a pair of surrogates is not torn apart.
QString CharacterAt(const QString &name, int at)
{
    const bool isPair = at + 1 < name.size() && name.at(at).isHighSurrogate() && name.at(at + 1).isLowSurrogate();
    return name.mid(at, isPair ? 2 : 1);
}

/// The alternatives of the sorted, different names from \a begin up to \a end, behind the \a depth units that all of them begin with.
QString Alternatives(const QStringList &names, int begin, int end, int depth)
{
    const QString &first = names.at(begin);
    if (end - begin == 1)
        return QRegularExpression::escape(first.mid(depth));
    const QString &last = names.at(end - 1);
    int common = depth;
    while (common < first.size() && common < last.size() && CharacterAt(first, common) == CharacterAt(last, common))
        common += CharacterAt(first, common).size();

    QStringList alternatives;
    for (int from = begin, to = begin; from < end; from = to) {
        const QString character = CharacterAt(names.at(from), common);
        do {
            ++to;
        } while (to < end && !character.isEmpty() && CharacterAt(names.at(to), common) == character);
        alternatives.append(Alternatives(names, from, to, common));
    }
    return QRegularExpression::escape(first.mid(depth, common - depth)) + QLatin1String("(?:") + alternatives.join(QLatin1Char('|'))
        + QLatin1Char(')');
}

} // namespace

QString PatternOfExactly(QStringList names)
{
    if (names.isEmpty())
        return QStringLiteral("(*FAIL)");
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return QLatin1String("\\A(?:") + Alternatives(names, 0, names.size(), 0) + QLatin1String(")\\z");
}

} // namespace FillTemplate
