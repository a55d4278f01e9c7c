#pragma once

#include <Velmora/QcFrame.h>
#include <Velmora/VelmoraExport.h>

#include <QList>

#include <memory>

namespace Velmora {

struct DockAreaRecord;
class QcDockAreaTabFrame;

/// One pane of a QcDockContainer: panels as tabs, the current one shown.
///
/// An area whose page is a QcDockContainer is a wrapper around that one: it holds nothing else and paints nothing. Areas are made by
/// containers. One that has lost its last panel is deleted on the next turn of the main loop, unless it is the only one of its container
/// or is given another panel before. Background and border of the base class do not show.
class VELMORA_EXPORT QcDockArea : public QcFrame
{
    Q_OBJECT

public:
    explicit QcDockArea(QWidget *parent = nullptr);
    ~QcDockArea() override;

    /// Appends \a widget as a tab titled by its window title, which becomes current; the area owns it from then on. Pages are panels: any
    /// other widget is taken, but the area still counts as empty.
    ///
    /// A page of another area leaves that one; one of this area becomes current. A wrapper hands it on to the first area inside. Types
    /// are not asked. Nothing happens with null, an area, a widget that encloses this area, or a container where there is a page already.
    /// An area that empties takes back its own deletion when it is given a page; a host's deleteLater() stands, and takes the page along.
    void addWidget(QWidget *widget);
    /// The page at \a index, null beyond the last.
    QWidget *widget(int index) const;
    /// The number of pages.
    int count() const;
    /// -1 without a page.
    int currentIndex() const;
    /// An unknown index changes nothing.
    void setCurrentIndex(int index);
    /// True without a panel anywhere inside, unless a container inside survives being empty.
    bool isEmpty();
    /// Whether a panel of \a type may join: a wrapper takes none, an empty area any. Each group of setSupportTypeList() that names
    /// \a type must name the type of the panel at the first tab as well. So a group binds the type that arrives: one of no group joins
    /// any area.
    bool isSupportType(int type);
    /// Deletes the area on the next turn of the main loop if it is empty and its container has another one.
    void deleteLaterIfEmpty();
    /// The groups of panel types that may share an area, for all areas; none at first, which lets every type join every area. To be set
    /// before the first drag.
    static void setSupportTypeList(QList<QList<int>> supportTypeList);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QcDockAreaTabFrame *m_tabFrame = nullptr;
    static QList<QList<int>> s_supportTypeList;

private:
    friend struct DockTree;

    bool TakesPage(const QWidget *widget) const;
    QcDockArea *Leaf();
    void WatchPage(QWidget *page);
    void LookAgainIfEmpty();

    const std::unique_ptr<DockAreaRecord> m_record;
};

} // namespace Velmora
