#include "fuzz.h"

#include "dock/DockLayout_p.h"

#include <algorithm>
#include <numeric>

using namespace Velmora;

namespace {

struct Extent
{
    int widgets = 0;
    int depth = 0;
};

void MustHold(bool truth)
{
    if (!truth)
        std::abort();
}

void Measure(const LayoutContainer &container, int depth, Extent &extent)
{
    extent.depth = qMax(extent.depth, depth);
    extent.widgets += qMax(1, int(container.children.size()));
    if (container.sizes) {
        MustHold(container.sizes->size() <= qMax(1, int(container.children.size())));
        MustHold(std::all_of(container.sizes->cbegin(), container.sizes->cend(), [](int size) { return size >= 0; }));
        MustHold(std::accumulate(container.sizes->cbegin(), container.sizes->cend(), qint64(0)) <= kMaxLayoutLength);
    }
    for (const LayoutNode &child : container.children) {
        if (const auto *area = std::get_if<LayoutArea>(&child))
            extent.widgets += int(area->panels.size());
        else
            Measure(std::get<LayoutContainer>(child), depth + 1, extent);
    }
}

} // namespace

/// What is accepted is within the limits, and written and read again the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    ForbidLogLines();
    const std::optional<Layout> layout = ParseLayout(QByteArray(reinterpret_cast<const char *>(data), int(size)));
    if (!layout)
        return 0;
    Extent extent;
    Measure(layout->root, 1, extent);
    MustHold(extent.widgets + layout->floating.size() <= kMaxLayoutWidgets);
    MustHold(extent.depth <= kMaxLayoutDepth);
    const QByteArray text = WriteLayout(*layout);
    const std::optional<Layout> again = ParseLayout(text);
    MustHold(again.has_value());
    MustBeEqual(QString::fromUtf8(WriteLayout(*again)), QString::fromUtf8(text));
    MustHold(*again == *layout);
    return 0;
}
