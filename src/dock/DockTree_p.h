#pragma once

#include <QHash>
#include <QList>
#include <QMetaObject>

#include <functional>

QT_BEGIN_NAMESPACE
class QObject;
class QStackedWidget;
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

class QcDockArea;
class QcDockAreaTabFrame;
class QcDockContainer;
class QcDockWidget;

// Who encloses whom. A container holds one splitter, its splitter areas, an area its stack of pages; an area whose page is a container
// is a wrapper. Docking that a host builds inside of a panel's content is a world of its own: no walk goes down through a panel.

/// Whether an area or a container is on its way out. What is doomed, or lies below something that is, does not count: no search finds it.
enum class Fate {
    Stays,
    Doomed, ///< its deletion is posted, by us: receiving a panel revokes it
    Dying,  ///< its destructor runs
};

/// What an area knows beyond its told members.
struct DockAreaRecord
{
    QStackedWidget *stack = nullptr;
    Fate fate = Fate::Stays;
    bool hadPage = false;
    bool isLeftover = false;                             ///< emptied, and there only because its container shows at least one area
    QHash<QObject *, QMetaObject::Connection> farewells; ///< of each page that it ever had and that lives
};

/// What a container knows beyond its told members.
struct DockContainerRecord
{
    Fate fate = Fate::Stays;
    bool isLaidOut = false;      ///< the splitter has had its size once: from then on it keeps the proportions itself
    QList<int> shares;           ///< until then, one for each area
    bool sharesAreAsked = false; ///< they came from a host or a file, not from our own halving
    bool isRefilling = false;    ///< a new default area is posted
};

/// The one door to what areas and containers keep private.
struct DockTree
{
    static DockAreaRecord &RecordOf(QcDockArea *area);
    static DockContainerRecord &RecordOf(QcDockContainer *container);

    /// False for what waits for its deletion, by us or by a host, or is dying.
    static bool Counts(QcDockArea *area);
    static bool Counts(QcDockContainer *container);

    /// Posts the deletion, once.
    static void Doom(QcDockArea *area);
    static void Doom(QcDockContainer *container);
    /// \a start is about to receive a panel: revokes the deletions that wait for it and for what encloses it. Returns the areas that stay.
    static QList<QcDockArea *> Revive(QWidget *start);

    /// Has the areas go that stayed in \a area's container only as its last one, now that \a area is there.
    static void SweepLeftovers(QcDockArea *area);

    /// A host wants \a area where it is, also where it is empty: what was emptied in it counts as never filled.
    static void TakeForFresh(QcDockArea *area);

    /// The first area of \a container that counts, a new one if there is none.
    static QcDockArea *FirstArea(QcDockContainer *container);

    /// \a area, or for a wrapper the first area inside that is none: where its pages go.
    static QcDockArea *LeafOf(QcDockArea *area);

    /// The container below \a wrapper that has no area yet, for those who build a tree in place.
    static QcDockContainer *NewNested(QcDockArea *wrapper);
    /// A container without any area.
    static QcDockContainer *NewBare(QWidget *parent);
    /// A new area, the last one of \a container.
    static QcDockArea *AppendArea(QcDockContainer *container);
    static QcDockAreaTabFrame *TabFrameOf(QcDockArea *area);
    /// Where the pages of \a area go: the parent of a page that is made in place.
    static QWidget *PageParent(QcDockArea *area);
    /// The sizes that a layout file keeps: those that a host or a file gave and that still wait for the first layout, or else those shown.
    static QList<int> SizesToKeep(QcDockContainer *container);
};

/// The nearest area around \a widget, also around the panel in which it lies; itself does not count. Null if there is none.
QcDockArea *EnclosingArea(const QWidget *widget);
/// The nearest container around the area or container \a widget, this side of a panel. Null if there is none.
QcDockContainer *EnclosingContainer(const QWidget *widget);

/// The area of which \a widget is a page now. Null if it is none.
QcDockArea *AreaOfPage(const QWidget *widget);

/// True for an area that holds a container as its page, and for nothing else.
bool IsWrapper(const QcDockArea *area);
/// The container inside of the wrapper \a area. Null for every other area.
QcDockContainer *NestedContainer(const QcDockArea *area);

/// True for what waits for its deletion, or lies below something that does.
bool IsDoomed(QWidget *widget);

/// True for an outer-most container: none encloses it this side of a panel.
bool IsRoot(const QcDockContainer *container);

/// The number of containers from the root down to \a container, both counted.
int DepthOf(const QcDockContainer *container);
/// The largest number of containers that lie inside of one another below \a start.
int NestingBelow(const QWidget *start);

/// Goes through areas, containers, panels and other pages below \a start in the order in which QObject::findChildren() gives them, without
/// a look at hosts' widgets. Ends with true as soon as \a visit answers true.
bool WalkDock(const QObject *start, const std::function<bool(QWidget *)> &visit);

/// True if there is a panel below \a start, or a container that survives being empty.
bool HoldsSomething(const QObject *start);

/// The index of \a page in \a area. -1 if it is none of its pages.
int IndexOfPage(QcDockArea *area, const QWidget *page);

/// Has \a start go, and whatever encloses it, where nothing is left inside: areas first, then containers.
void WalkEmpties(QWidget *start);

/// Takes \a widget out of the area of which it is a page, tab included, and has that area go if it is empty now.
void LeavePlace(QWidget *widget);

} // namespace Velmora
