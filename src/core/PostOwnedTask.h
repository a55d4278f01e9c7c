#pragma once

#include <Velmora/VelmoraExport.h>

#include <QPointer>

#include <functional>
#include <string>

QT_BEGIN_NAMESPACE
class QObject;
QT_END_NAMESPACE

namespace Velmora {

/// Runs \a function once on a later turn of the main loop, unless \a owner has gone by then.
///
/// \a name appears in the warning that a run of more than 100 ms gives. May be called from any thread while the
/// QcApplication lives; with no QcApplication as the application object it does nothing, unless ServePlainApplication() was called. A null
/// owner counts as gone.
VELMORA_EXPORT void PostOwnedTask(QPointer<QObject> owner, const std::function<void()> &function, const std::string &name);

} // namespace Velmora
