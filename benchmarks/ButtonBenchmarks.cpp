#include "WidgetBenchmarks.h"

#include <utility>

namespace Bench {

void RegisterButtonBenchmarks()
{
    constexpr int small = 250; // so that four times as many are the 1,000 that the aims speak of
    constexpr std::pair<const char *, Kind> kinds[] = {
        {"velmora", Kind::Velmora},           {"bare_painter", Kind::BarePainter}, {"application_sheet", Kind::ApplicationSheet},
        {"sheet_on_each", Kind::SheetOnEach}, {"palette", Kind::Palette},
    };
    for (const auto &entry : kinds) {
        const QString name = QLatin1String(entry.first);
        const SceneMaker scene = [kind = entry.second] { return MakeScene(kind); };
        RegisterPaint(name, scene);
        RegisterShow(name, small, scene);
        RegisterSwitch(name, small, scene);
        if (entry.second == Kind::Velmora || entry.second == Kind::Palette)
            RegisterEvents(name, small, scene);
    }
}

} // namespace Bench
