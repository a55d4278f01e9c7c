#include "display/HtmlBomb_p.h"

#include <QRegularExpression>

namespace Velmora {

namespace {

constexpr int kMostTables = 8; // inside of each other they take some hundredths of a second

} // namespace

bool IsHtmlBomb(const QString &text)
{
    constexpr auto options = QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption;
    // Qt also reads a tag's name behind blanks, in quotes and with entities.
    static const QRegularExpression table(QStringLiteral("<\\s*(?:table|[\"']|[^\\s<>=/]{0,64}&)"), options);
    static const QRegularExpression wideCell(QStringLiteral("colspan\\W*\\d{3}"), options);

    auto tables = table.globalMatch(text);
    int count = 0;
    while (count <= kMostTables && tables.hasNext()) {
        tables.next();
        ++count;
    }
    return count > kMostTables || (count > 0 && wideCell.match(text).hasMatch());
}

} // namespace Velmora
