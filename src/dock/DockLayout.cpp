#include "dock/DockLayout_p.h"

#include "dock/DockShares_p.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace Velmora {

namespace {

const QLatin1String kNodeTypeKey("nodeType");
const QLatin1String kOrientationKey("orientation");
const QLatin1String kSizesKey("sizes");
const QLatin1String kChildrenKey("children");
const QLatin1String kCurrentIndexKey("currentIndex");
const QLatin1String kPanelsKey("dockWidgetList");
const QLatin1String kFloatingKey("floatingWidgets");
const QLatin1String kTypeKey("type");
const QLatin1String kXKey("x");
const QLatin1String kYKey("y");
const QLatin1String kWidthKey("width");
const QLatin1String kHeightKey("height");

int Bounded(const QJsonValue &value, int least, int most)
{
    return int(qBound(double(least), value.toDouble(), double(most)));
}

/// The sizes of \a count panes. Surplus entries say nothing.
QList<int> ReadSizes(const QJsonArray &array, int count)
{
    QList<int> sizes;
    for (int i = 0; i < qMin(array.size(), count); ++i)
        sizes.append(Bounded(array.at(i), 0, kMaxLayoutLength));
    return WithinWhole(sizes);
}

/// Reads the nodes of one layout, as long as it stays within the limits.
class Reader
{
public:
    bool IsWithinLimits() const { return m_widgets <= kMaxLayoutWidgets && !m_tooDeep; }

    QList<LayoutPanel> ReadPanels(const QJsonArray &entries)
    {
        QList<LayoutPanel> panels;
        for (const QJsonValue &entry : entries) {
            const std::optional<LayoutPanel> panel = ReadPanel(entry);
            if (panel && Count())
                panels.append(*panel);
        }
        return panels;
    }

    LayoutContainer ReadContainer(const QJsonObject &object, int depth)
    {
        LayoutContainer container;
        if (depth > kMaxLayoutDepth) {
            m_tooDeep = true;
            return container;
        }
        container.orientation = object.value(kOrientationKey).toInt() == Qt::Vertical ? Qt::Vertical : Qt::Horizontal;
        const QJsonArray children = object.value(kChildrenKey).toArray();
        for (const QJsonValue &child : children) {
            if (child.isObject() && Count())
                container.children.push_back(ReadChild(child.toObject(), depth));
        }
        if (container.children.empty())
            Count(); // the default area
        const QJsonValue sizes = object.value(kSizesKey);
        if (sizes.isArray())
            container.sizes = ReadSizes(sizes.toArray(), qMax(1, int(container.children.size())));
        return container;
    }

private:
    /// Whether there is room for one widget more.
    bool Count()
    {
        ++m_widgets;
        return IsWithinLimits();
    }

    /// A node is told by its keys, whatever its "nodeType" claims.
    LayoutNode ReadChild(const QJsonObject &object, int depth)
    {
        if (object.contains(kOrientationKey))
            return ReadContainer(object, depth + 1);
        LayoutArea area;
        area.panels = ReadPanels(object.value(kPanelsKey).toArray());
        if (object.contains(kPanelsKey) && object.contains(kCurrentIndexKey))
            area.currentIndex = object.value(kCurrentIndexKey).toInt();
        return area;
    }

    int m_widgets = 0;
    bool m_tooDeep = false;
};

QJsonArray WritePanels(const QList<LayoutPanel> &panels)
{
    QJsonArray array;
    for (const LayoutPanel &panel : panels)
        array.append(WritePanel(panel));
    return array;
}

QJsonObject WriteArea(const LayoutArea &area)
{
    return {
        {kNodeTypeKey, QStringLiteral("dockArea")},
        {kCurrentIndexKey, area.currentIndex},
        {kPanelsKey, WritePanels(area.panels)},
    };
}

} // namespace

bool operator==(const LayoutPanel &left, const LayoutPanel &right)
{
    return left.type == right.type && left.geometry == right.geometry;
}

bool operator==(const LayoutArea &left, const LayoutArea &right)
{
    return left.panels == right.panels && left.currentIndex == right.currentIndex;
}

bool operator==(const LayoutContainer &left, const LayoutContainer &right)
{
    return left.orientation == right.orientation && left.sizes == right.sizes && left.children == right.children;
}

bool operator==(const Layout &left, const Layout &right)
{
    return left.root == right.root && left.floating == right.floating;
}

std::optional<Layout> ParseLayout(const QByteArray &json)
{
    if (json.size() > kMaxLayoutBytes)
        return std::nullopt;
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        return std::nullopt;
    return ReadLayout(document.object());
}

std::optional<Layout> ReadLayout(const QJsonObject &object)
{
    Reader reader;
    Layout layout;
    layout.root = reader.ReadContainer(object, 1);
    layout.floating = reader.ReadPanels(object.value(kFloatingKey).toArray());
    if (!reader.IsWithinLimits())
        return std::nullopt;
    return layout;
}

std::optional<LayoutPanel> ReadPanel(const QJsonValue &value)
{
    const QJsonObject object = value.toObject();
    if (!object.contains(kTypeKey))
        return std::nullopt;
    LayoutPanel panel;
    panel.type = object.value(kTypeKey).toInt();
    panel.geometry = QRect(Bounded(object.value(kXKey), -kMaxLayoutLength, kMaxLayoutLength),
                           Bounded(object.value(kYKey), -kMaxLayoutLength, kMaxLayoutLength),
                           Bounded(object.value(kWidthKey), 0, kMaxLayoutLength), Bounded(object.value(kHeightKey), 0, kMaxLayoutLength));
    return panel;
}

QByteArray WriteLayout(const Layout &layout)
{
    QJsonObject object = WriteContainer(layout.root);
    if (!layout.floating.isEmpty())
        object.insert(kFloatingKey, WritePanels(layout.floating));
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QJsonObject WriteContainer(const LayoutContainer &container)
{
    QJsonArray children;
    for (const LayoutNode &child : container.children)
        children.append(WriteNode(child));
    QJsonObject object{
        {kNodeTypeKey, QStringLiteral("dockContainer")},
        {kOrientationKey, int(container.orientation)},
        {kChildrenKey, children},
    };
    if (container.sizes) {
        QJsonArray sizes;
        for (const int size : *container.sizes)
            sizes.append(size);
        object.insert(kSizesKey, sizes);
    }
    return object;
}

QJsonObject WriteNode(const LayoutNode &node)
{
    const auto *area = std::get_if<LayoutArea>(&node);
    return area ? WriteArea(*area) : WriteContainer(std::get<LayoutContainer>(node));
}

QJsonObject WritePanel(const LayoutPanel &panel)
{
    return {
        {kNodeTypeKey, QStringLiteral("dockWidget")},
        {kTypeKey, panel.type},
        {kXKey, panel.geometry.x()},
        {kYKey, panel.geometry.y()},
        {kWidthKey, panel.geometry.width()},
        {kHeightKey, panel.geometry.height()},
    };
}

} // namespace Velmora
