#pragma once

#include <Velmora/DockPosition.h>
#include <Velmora/VelmoraExport.h>

#include <QFrame>
#include <QList>

#include <memory>

QT_BEGIN_NAMESPACE
class QChildEvent;
class QSplitter;
QT_END_NAMESPACE

namespace Velmora {

struct DockContainerRecord;
class QcDockArea;
class QcDockWidget;

/// Panes side by side or one above the other, each a QcDockArea with panels as tabs: a node of the tree of splits.
///
/// A container has one splitter, so a pane split along it gets a neighbour, while one split across it gives its place to a nested
/// container with both. What a user nests is never flattened. The outer-most container, the root, is what a host makes and places; it
/// should be made known by QcDockController::setRootDockContainer(), to be the parent of the panels that float: they are shown, hidden
/// and deleted with it. A container shows at least one area. One that has lost its last panel, floating ones included, is deleted on the
/// next turn of the main loop, unless it is to survive that (setEmptyKeep) or is given another panel before.
///
/// Left is the left of the screen, also where the program reads from right to left.
///
/// Sizes are pixels along the orientation. What is built before the first show keeps the proportions that it was built with.
class VELMORA_EXPORT QcDockContainer : public QFrame
{
    Q_OBJECT

public:
    explicit QcDockContainer(QWidget *parent = nullptr);
    ~QcDockContainer() override;

    /// Puts \a content, which the container owns from then on, into a new panel of its type ("dock_widget_content_type", 0 if it has
    /// none).
    ///
    /// The panel joins the first area that takes its type, in the order of findChildren(): that of stacking, in which the area added last
    /// comes first. \a position matters only when there is none: then the panel goes to that edge of this container, outer or not, or
    /// for Center into the first area. With NoPosition it stays without a parent and hidden; the host finds it as content->window().
    /// Null, and a widget that encloses this container, are ignored.
    void addDockWidgetContent(QWidget *content, DockPosition position);
    /// Places \a widget, mostly a panel, which the container owns from then on: as a tab of the area \a target for Center, or in a new
    /// area at that side of it. The target may also be a widget inside of an area; nested deeper it is split where it is. It gives half of
    /// its size. Without a target the place is an edge of this whole container, for half of it, or the first area for Center. Outer
    /// positions are taken as those sides. Types are not asked.
    ///
    /// A panel that is docked leaves its old place first; beside itself there is none, and joining its own area selects its tab. Null,
    /// NoPosition, an area, what encloses this container, and a target inside of \a widget or of no container are ignored. Where
    /// containers would come to lie more than 128 deep, a placement across goes along. What a host itself nests deeper is shown, but
    /// no layout file takes it back.
    void addWidget(QWidget *widget, QWidget *target, DockPosition position);
    /// Replaces the first area, which is deleted at once with what is in it, by \a areas in their order and owns them from then on. Others
    /// stay before them. The first area is not deleted if it is in the list, nor is what of the list lies inside of it. Nulls are skipped,
    /// and an empty list changes nothing.
    void setDockAreaList(QList<QcDockArea *> areas);
    /// Gives each panel, docked or floating, in the order of findChildren(), the first content left whose "dock_widget_content_type" is
    /// its type, and shows floating panels if the container is shown. A content is used once; those left over stay the host's. A content
    /// that a panel had is deleted only if that panel was given another one and no panel took it.
    void setDockWidgetContentList(QList<QWidget *> contents);
    /// The areas from left to right or from top to bottom; those of nested containers are theirs. What waits for its deletion is left
    /// out, here and in all that follows.
    QList<QcDockArea *> getDockAreaList();
    /// The panels that float under this container.
    QList<QcDockWidget *> getDockWidgetWindow();
    /// The type of each panel, docked or floating, in the order of findChildren(). A container in a panel's content is a world of its own.
    QList<int> getDockWidgetTypeList();
    /// The number of panels of \a type, docked or floating.
    int getDockWidgetCount(int type);
    /// One for each area; they mean something once the container has been shown.
    QList<int> getSizes();
    /// One for each area; they are scaled to the room that there is. Missing ones are 0, which gives an area its smallest size; too many
    /// and negative ones do no harm.
    void setSizes(QList<int> sizes);
    Qt::Orientation getOrientation();
    /// Vertical, or else horizontal.
    void setOrientation(Qt::Orientation orientation);
    bool hasOnlyOneDockArea();
    /// True without a panel inside, floating ones included, unless a nested container survives being empty. The own flag does not count.
    bool isEmpty();
    /// Whether the container survives being empty; false at first. A root that a host keeps needs it.
    void setEmptyKeep(bool keep);
    bool isEmptyKeep() const;
    /// Deletes the container on the next turn of the main loop if it is empty and not to survive that.
    void deleteLaterIfEmpty();
    /// Selects the first tab of every area, nested ones included.
    void resetAllTabFramesToFirstTab();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;
    void childEvent(QChildEvent *event) override;
    /// Where a host installs the container as a filter of a platform window: shows, at Shift+F1, a tip with the chain of widgets under the
    /// cursor. Consumes nothing.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QSplitter *createSplitter();
    QcDockArea *wrapWidgetWithDockArea(QWidget *widget);
    bool isDifferentOrientation(DockPosition position);
    void addWidgetSameOrientation(QWidget *widget, QcDockArea *area, DockPosition position);
    void addWidgetDifferentOrientation(QWidget *widget, QcDockArea *area, DockPosition position);
    void replaceSplitterAndDeleteOldSplitter(QSplitter *splitter);
    void updatetDockWidgetWindowsVisible();

    QSplitter *m_splitter = nullptr;
    bool m_emptyKeep = false;

private:
    friend struct DockTree;
    friend class DockSplitter;
    struct Bare
    {
    };

    QcDockContainer(QWidget *parent, Bare);

    QcDockArea *FirstArea();
    void InsertPane(int index, QcDockArea *area);
    QcDockArea *InsertNewArea(int index);
    void Place(QWidget *widget, QcDockArea *area, DockPosition position);
    void PlaceBeside(QWidget *widget, QcDockArea *area, DockPosition position);
    QcDockContainer *NestInPlaceOf(QcDockArea *area, int index);
    void SinkContent();
    bool GoesTooDeep(const QWidget &newcomer, const QcDockArea *area) const;
    void SettleShares();
    void ForgetShare(const QObject *pane);
    void RefillLater();
    void SetAreaDirections();
    QList<int> Weights() const;
    void SetWeights(const QList<int> &weights);

    const std::unique_ptr<DockContainerRecord> m_record;
};

} // namespace Velmora
