#pragma once

#include <Velmora/QcDockContainer.h>
#include <Velmora/VelmoraExport.h>

#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

namespace Velmora {

class QcDockArea;
class QcDockWidget;

/// Saves a dock layout as a file and builds it again, and knows the root container, under which panels float.
///
/// A layout is the tree of splits with its sizes, the types of the panels in each area, their current tabs, and the floating panels with
/// their geometry. It holds no contents: a restored panel is an empty frame with a type. A host that restores its layout
///
/// 1. tells the groups of types with setDockAreaSupportTypeList(), once;
/// 2. calls loadFromJson(), and puts the root that this returns into its window, in place of an earlier one, which it deletes;
/// 3. makes its content widgets, each with the property "dock_widget_content_type", and hands them to
///    QcDockContainer::setDockWidgetContentList() of the root, which deals them to the panels by type and shows those that float.
///
/// A host that builds its layout itself calls setRootDockContainer().
///
/// The file is one JSON object in UTF-8, the root container. "nodeType" is for human readers; nodes are told by the other keys:
///
/// | node | key | value |
/// |---|---|---|
/// | container | "nodeType" | "dockContainer" |
/// | | "orientation" | 1 horizontal, 2 vertical; on a child, its presence tells a container |
/// | | "sizes" | an array of pixels, one number a child |
/// | | "children" | an array of areas and containers, in their order on the screen |
/// | root only | "floatingWidgets" | an array of panels; missing if there are none |
/// | area | "nodeType" | "dockArea" |
/// | | "dockWidgetList" | an array of panels, in the order of their tabs |
/// | | "currentIndex" | the current tab, -1 if there is none |
/// | panel | "nodeType" | "dockWidget" |
/// | | "type" | the type, an int; an entry without it is skipped |
/// | | "x", "y", "width", "height" | the geometry, read for floating panels only |
///
/// A file is judged as a whole before anything is made of it. One that is no JSON object changes nothing and says nothing; nor does one
/// above 16 MiB, or with more than 10,000 panels and areas together, or with containers nested more than 128 deep. All else is read
/// leniently: what is missing or of the wrong type counts as 0, an orientation other than 2 as horizontal, a missing or negative size as
/// the least possible, children that are no objects not at all; unknown keys mean nothing. Sizes that add up to more than 16,777,215
/// are scaled down. A floating panel is no larger than the larger of 4,096 pixels and the desktop, each way.
///
/// Main thread only.
class VELMORA_EXPORT QcDockController : public QObject
{
    Q_OBJECT

public:
    ~QcDockController() override;

    /// The one instance, made at its first use. The library never deletes it.
    static QcDockController *instance();

    /// The file that saveToJson() writes, and that loadFromJson() reads if it is given no other. None at first.
    void setJsonFilePath(const QString &path);
    /// The container under which panels float from now on; those that float under another one stay there. Not owned; null for none.
    void setRootDockContainer(QcDockContainer *container);
    /// The root set last, by the host or by loadFromJson(); null after its deletion.
    QPointer<QcDockContainer> getRootDockContainer();
    /// Replaces the groups of types that may share an area: see QcDockArea::setSupportTypeList().
    void setDockAreaSupportTypeList(QList<QList<int>> supportTypeList);
    /// The layout of \a container and all that floats under it, as compact JSON; empty for null.
    QString toJson(QcDockContainer *container);
    /// Writes toJson() into the file of setJsonFilePath(). An earlier file is replaced only when the new one is complete, unless it is
    /// no regular file, has other hard links, or lies where no file can be made: that is written over. Null leaves an empty file.
    /// A failure is one debug line.
    void saveToJson(QcDockContainer *container);
    /// Builds the layout in the file \a path, or that of setJsonFilePath() if \a path is empty, and makes its root the root container.
    /// It has no parent and belongs to the caller; an earlier root stays as it is. Sizes take effect in the next turn of the event
    /// loop. Returns the present root, which is the earlier one if the file is refused. One that cannot be read is one debug line.
    QcDockContainer *loadFromJson(const QString &path);

private:
    QcDockController();

    QcDockContainer *fromJson(const QString &text);
    QJsonObject serializeDockContainer(QcDockContainer *container);
    QJsonObject serializeDockArea(QcDockArea *area);
    QJsonObject serializeDockWidget(QcDockWidget *panel);
    QcDockContainer *deserializeDockContainer(const QJsonObject &object);
    QcDockWidget *deserializeDockWidget(const QJsonObject &object);

    QString m_jsonFilePath;
    QPointer<QcDockContainer> m_rootDockContainer;
};

} // namespace Velmora
