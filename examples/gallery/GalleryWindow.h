#pragma once

#include "Page.h"
#include "Tables.h"

#include <Velmora/QcWindow.h>

#include <QHash>

QT_BEGIN_NAMESPACE
class QListWidget;
class QListWidgetItem;
class QScrollArea;
class QSizeGrip;
QT_END_NAMESPACE

namespace Velmora {
class QcLabel;
} // namespace Velmora

namespace Examples {
class DesktopWish;
} // namespace Examples

namespace Gallery {

class Field;
class Segmented;

/// The gallery's window: under the title row a searchable list of pages at the left, the chosen page and the switch of the
/// colour table at the right.
class GalleryWindow : public Velmora::QcWindow
{
    Q_OBJECT

public:
    explicit GalleryWindow(Table table, QWidget *parent = nullptr);

    /// False if there is no such page.
    bool ShowPage(const QString &id);
    void SetTable(Table table);
    /// The same, unless the user has chosen a table here: then that stays.
    void FollowDesktop(Table table);
    /// Makes the window as high as the whole page needs. The page must have been laid out.
    bool GrowToContent();
    /// Where the named controls in sight are in the window, a line each: name, x, y, width, height; of those that share a name the
    /// first. A last line says "end".
    QString ControlPositions() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void UpdateOutline();
    QWidget *MakeSidebar();
    QWidget *MakeHeader();
    void FillList();
    void FilterList(const QString &text);
    void MoveInList(int step);
    void ShowItem(QListWidgetItem *item);
    void AddShortcuts();

    QVector<PageInfo> m_pages;
    QHash<QString, QWidget *> m_widgets; // made when first shown, owned by m_scroll or by this while out of sight
    QString m_currentId;
    Field *m_search = nullptr;
    QListWidget *m_list = nullptr;
    Velmora::QcLabel *m_nothingFound = nullptr;
    Velmora::QcLabel *m_title = nullptr;
    Velmora::QcLabel *m_summary = nullptr;
    Segmented *m_tableSwitch = nullptr;
    QScrollArea *m_scroll = nullptr;
    QSizeGrip *m_grip = nullptr;
    bool m_hasOwnChoice = false; // of a table
    bool m_isFollowing = false;
};

#ifdef EXAMPLES_HAVE_DBUS
/// From now on \a window has the table that is wished for, until its user chooses one there.
void Follow(GalleryWindow &window, const Examples::DesktopWish &wish);
#endif

} // namespace Gallery
