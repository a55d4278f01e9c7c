#include "fuzz.h"

#include <Velmora/QcStyleManager.h>

#include <QRegularExpression>
#include <QStringList>

using namespace Velmora;

namespace {

/// Match by match, then split and joined again.
QString ReplaceSlowly(const QString &styleSheet)
{
    QcStyleManager *manager = QcStyleManager::GetInstance();
    QRegularExpression pattern(QStringLiteral("\\$\\{.*\\}"));
    pattern.setPatternOptions(QRegularExpression::InvertedGreedinessOption);
    QStringList colors;
    int offset = 0;
    while (offset < styleSheet.size()) {
        const QRegularExpressionMatch match = pattern.match(styleSheet, offset);
        if (!match.hasMatch())
            break;
        colors.append(manager->GetStyleSheetColor(manager->GetColor(match.captured())));
        offset = int(match.capturedEnd());
    }
    if (colors.isEmpty())
        return styleSheet;
    const QStringList parts = styleSheet.split(pattern);
    QString result;
    for (int i = 0; i < parts.size(); ++i)
        result += parts.at(i) + colors.value(i);
    return result;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    ForbidLogLines();
    const QString text = TextOf(data, size);
    MustBeEqual(QcStyleManager::GetInstance()->ReplaceStyleSheetColorCodes(text), ReplaceSlowly(text));
    return 0;
}
