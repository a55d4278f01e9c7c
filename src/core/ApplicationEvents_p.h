#pragma once

#include <QEvent>

#include <initializer_list>

QT_BEGIN_NAMESPACE
class QObject;
QT_END_NAMESPACE

namespace Velmora {

/// Calls watcher->eventFilter(watched, event) for each event of the application that has one of \a types.
///
/// It stands in for qApp->installEventFilter(watcher): Qt would call each filter for every event of the program,
/// so that hundreds of watchers cost hundreds of calls an event. One filter on the application hands on only what
/// was asked for. A later watcher is called first and may consume the event, as with Qt's own filters.
/// One that watches a type already becomes its latest watcher. A watcher that dies is forgotten. Main thread; the application object
/// must exist.
void WatchApplicationEvents(QObject *watcher, std::initializer_list<QEvent::Type> types);

/// Ends all that \a watcher asked for, also for an event that is on its way to it. One that watches nothing changes nothing. Watching
/// and ending it cost the same with thousands of watchers as with none, so that an object may watch only while it has a reason to.
void UnwatchApplicationEvents(const QObject *watcher);

} // namespace Velmora
