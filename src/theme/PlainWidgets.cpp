#include <Velmora/PlainWidgets.h>

#include "core/QtCompatibility_p.h"
#include "theme/PlainPalette_p.h"

#include <Velmora/FileAndDesktop.h>

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QPointer>
#include <QVector>
#include <QWidget>

namespace Velmora {

namespace {

bool isFollowing = false;
QPointer<PlainPalette> palette; // a child of the application object

/// What a host may have given a widget.
struct Look
{
    QPointer<QWidget> widget;
    QPalette palette;
    QFont font;
};

bool IsSame(const QPalette &one, const QPalette &other)
{
    return one == other && ResolveMaskOf(one) == ResolveMaskOf(other);
}

/// Gives the application another stylesheet, with which Qt would bring back what widgets had when they were styled with the last.
void ChangeSheet(const QString &sheet)
{
    QVector<Look> looks;
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets)
        looks.append({widget, widget->palette(), widget->font()});
    qApp->setStyleSheet(sheet);
    for (const Look &look : qAsConst(looks)) {
        if (!look.widget)
            continue; // hosts hear of each change
        if (!IsSame(look.widget->palette(), look.palette))
            look.widget->setPalette(look.palette);
        if (look.widget->font() != look.font)
            look.widget->setFont(look.font);
    }
}

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
        ChangeSheet(wanted);
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
