#include "fuzz.h"

#include <Velmora/ColorParams.h>
#include <Velmora/QcStyleManager.h>

#include <QStringList>

#include <cstring>

using namespace Velmora;

namespace {

/// The grammar step by step, without regard for speed.
ColorParams ParseSlowly(const QString &text)
{
    ColorParams params;
    if (text.isEmpty())
        return params;
    QString trimmed = text.trimmed();
    if (trimmed.startsWith(QLatin1String("${")) && trimmed.endsWith(QLatin1String("}")))
        trimmed = text.mid(2, text.size() - 3);
    const QStringList parts = trimmed.contains(QLatin1Char(',')) ? trimmed.split(QLatin1Char(',')) : QStringList(trimmed);
    params.code = parts.first().trimmed();
    if (parts.size() == 2) {
        bool isNumber = false;
        const double alpha = parts.last().trimmed().toDouble(&isNumber);
        if (isNumber)
            params.alpha = alpha;
    }
    return params;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    ForbidLogLines();
    const QString text = TextOf(data, size);
    const ColorParams params(text);
    const ColorParams expected = ParseSlowly(text);
    MustBeEqual(params.code, expected.code);
    if (std::memcmp(&params.alpha, &expected.alpha, sizeof(double)) != 0)
        std::abort();

    QcStyleManager *manager = QcStyleManager::GetInstance();
    const QColor color = manager->GetColor(params);
    if (params.code.isEmpty() && color != QColor())
        std::abort();
    if (!manager->GetStyleSheetColor(color).startsWith(QLatin1String("rgba(")))
        std::abort();
    return 0;
}
