#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QRect>

#include <optional>
#include <variant>
#include <vector>

/// A dock layout as a value: what a layout file tells, read and judged as a whole before any widget is made.
namespace Velmora {

struct LayoutPanel
{
    int type = 0;
    QRect geometry; ///< written for every panel, used for floating ones
};

struct LayoutArea
{
    QList<LayoutPanel> panels;
    int currentIndex = -1; ///< an index without a panel selects nothing
};

struct LayoutContainer;
using LayoutNode = std::variant<LayoutArea, LayoutContainer>;

struct LayoutContainer
{
    Qt::Orientation orientation = Qt::Horizontal;
    std::optional<QList<int>> sizes;  ///< at most one a child, each from 0 on, together no more than kMaxLayoutLength
    std::vector<LayoutNode> children; ///< none: one empty area
};

struct Layout
{
    LayoutContainer root;
    QList<LayoutPanel> floating;
};

bool operator==(const LayoutPanel &left, const LayoutPanel &right);
bool operator==(const LayoutArea &left, const LayoutArea &right);
bool operator==(const LayoutContainer &left, const LayoutContainer &right);
bool operator==(const Layout &left, const Layout &right);

/// What a layout file may ask for. Beyond, time, memory or the stack would not last.
constexpr int kMaxLayoutBytes = 16 * 1024 * 1024;
constexpr int kMaxLayoutWidgets = 10000;   ///< panels and areas, wrappers among them
constexpr int kMaxLayoutDepth = 128;       ///< containers in each other, the root among them
constexpr int kMaxLayoutLength = 16777215; ///< of a widget, in pixels, and of all panes of a splitter, which Qt adds up as an int

/// Reads \a json. None if it is no JSON object, or one beyond the limits; everything else is read leniently.
std::optional<Layout> ParseLayout(const QByteArray &json);
std::optional<Layout> ReadLayout(const QJsonObject &object);
std::optional<LayoutPanel> ReadPanel(const QJsonValue &value);

/// Compact JSON. ParseLayout() gives the same layout back, if it is one that ParseLayout() could give.
QByteArray WriteLayout(const Layout &layout);
QJsonObject WriteContainer(const LayoutContainer &container);
QJsonObject WriteNode(const LayoutNode &node);
QJsonObject WritePanel(const LayoutPanel &panel);

} // namespace Velmora
