#include "contrast/Pairs.h"

namespace VelmoraTest {

QStringList Surfaces()
{
    return {QStringLiteral("bg/bg_bottom"), QStringLiteral("bg/bg_box"), QStringLiteral("bg/bg_float"), QStringLiteral("bg/bg_primary"),
            QStringLiteral("bg/bg_secondary")};
}

double LeastOf(Kind kind)
{
    switch (kind) {
    case Kind::Body:
        return 7.0;
    case Kind::Text:
        return 4.5;
    case Kind::Graphic:
    case Kind::DisabledText:
        return 3.0;
    case Kind::Line:
    case Kind::DisabledGraphic:
        break;
    }
    return 2.0;
}

Kind KindOfText(const QString &code, bool isEnabled)
{
    if (!isEnabled)
        return Kind::DisabledText;
    for (const char *rank : {"text/text_caption", "text/text_primary", "text/text_secondary"}) {
        if (code.contains(QLatin1String(rank)))
            return Kind::Body;
    }
    return Kind::Text;
}

bool Paints(const QString &code)
{
    return !code.isEmpty() && code != QLatin1String("transparent") && code != QLatin1String("none");
}

Looks AllLooks(const QString &sources)
{
    Looks all;
    for (const Looks &part : {ButtonLooks(), IndicatorLooks(sources), PaletteLooks(sources), SheetLooks(), PaintedLooks()}) {
        all.pairs += part.pairs;
        all.changes += part.changes;
    }
    return all;
}

} // namespace VelmoraTest
