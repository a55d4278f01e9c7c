#include <Velmora/PlainWidgets.h>

#include "theme/PlainPalette_p.h"

#include <Velmora/FileAndDesktop.h>

#include <QApplication>
#include <QPointer>

namespace Velmora {

namespace {

bool isFollowing = false;
QPointer<PlainPalette> palette; // a child of the application object

} // namespace

// The global stylesheet makes the header of a tree transparent, of which the style Fusion makes black. Here its text has the palette's
// colour, and the line is seen on any ground: a stylesheet with colours of the table would have all widgets styled anew with each.
// It stands before everything else in the application's stylesheet, so that a host's rules win.
void FollowSheet()
{
    const QString sheet = QStringLiteral("QTreeView QHeaderView::section { background: transparent; border: none;"
                                         " border-bottom: 1px solid rgb(128, 128, 128); padding: 3px 4px; }\n");
    const QString present = qApp->styleSheet();
    QString wanted = present;
    wanted.remove(sheet);
    if (isFollowing && wanted.contains(GetFileContent(QStringLiteral(":/qss/Global.qss"))))
        wanted.prepend(sheet);
    if (wanted != present)
        qApp->setStyleSheet(wanted);
}

QPalette OwnPalette()
{
    return palette ? palette->Before() : QApplication::palette();
}

void FollowPlainWidgets()
{
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
        return;
    FollowSheet();
    if (isFollowing && !palette) {
        palette = new PlainPalette;
    } else if (!isFollowing && palette) {
        palette->GiveBack();
        delete palette;
    }
}

void SetPlainWidgetsFollowTable(bool follow)
{
    isFollowing = follow;
    FollowPlainWidgets();
}

bool PlainWidgetsFollowTable()
{
    return isFollowing;
}

} // namespace Velmora
