#pragma once

#include <QList>
#include <QString>

QT_BEGIN_NAMESPACE
class QContextMenuEvent;
class QKeyEvent;
QT_END_NAMESPACE

namespace Velmora {

class QcDockArea;
class QcDockWidget;

/// The areas on the screen that \a panel may be moved to, in order of construction: all but the one where it is alone.
QList<QcDockArea *> AreasToMoveTo(QcDockWidget *panel);

/// What an area is called: the title of the panel that it shows.
QString NameOfArea(const QcDockArea *area);

/// Moves \a panel by the keyboard. The indicator stands over \a area; arrows and Tab choose one of the offered places, which the mask
/// shows and assistive technology says; Return drops the panel there as the mouse does, Escape, a press of the mouse or another window
/// leaves all as it was. At most one such move runs.
void BeginDockMove(QcDockWidget *panel, QcDockArea *area);

/// Opens the menu of \a panel: float, move, close, and the tabs beside it.
void OpenDockMenu(QcDockWidget *panel);

/// Opens it for its keys and answers whether \a event was one: Alt+Shift+F10, which the content has refused, and on a tab or a title row
/// the key for context menus. A null panel has none.
bool OpensDockMenu(const QKeyEvent &event, QcDockWidget *panel);
bool OpensDockMenu(const QContextMenuEvent &event, QcDockWidget *panel);

} // namespace Velmora
