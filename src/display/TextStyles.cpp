#include "display/TextStyles_p.h"

#include <QStringList>

#include <array>

namespace Velmora {

namespace {

struct TextStyleRow
{
    const char *colorCode;
    QFont::Weight weight;
    int pixelSize;
    const char *family;
};

constexpr const char *kHeadingFamily = "Roboto";
constexpr const char *kBodyFamily = "Open Sans Medium";

// By QcLabel::LabelType.
constexpr std::array<TextStyleRow, 9> kTextStyles = {{
    {"${text/text_primary}", QFont::Bold, 28, kHeadingFamily},
    {"${text/text_primary}", QFont::Bold, 20, kHeadingFamily},
    {"${text/text_primary}", QFont::Normal, 16, kBodyFamily},
    {"${text/text_secondary}", QFont::Normal, 16, kBodyFamily},
    {"${text/text_caption}", QFont::Bold, 14, kHeadingFamily},
    {"${text/text_caption}", QFont::Bold, 12, kHeadingFamily},
    {"${text/text_primary}", QFont::Normal, 12, kBodyFamily},
    {"${text/text_secondary}", QFont::Normal, 12, kBodyFamily},
    {"${text/text_tertairy}", QFont::Normal, 10, kBodyFamily},
}};

} // namespace

std::optional<TextStyle> TextStyleOf(QcLabel::LabelType type)
{
    if (type < 0 || std::size_t(type) >= kTextStyles.size())
        return std::nullopt;
    const TextStyleRow &row = kTextStyles.at(std::size_t(type));
    TextStyle style;
    style.colorCode = QString::fromLatin1(row.colorCode);
    style.font.setWeight(row.weight);
    style.font.setPixelSize(row.pixelSize);
    style.font.setFamilies({QString::fromLatin1(row.family), QStringLiteral("Microsoft YaHei UI")});
    return style;
}

} // namespace Velmora
