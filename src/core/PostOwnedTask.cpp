#include <Velmora/PostOwnedTask.h>
#include <Velmora/QcApplication.h>

namespace Velmora {

void PostOwnedTask(QPointer<QObject> owner, const std::function<void()> &function, const std::string &name)
{
    auto *application = qobject_cast<QcApplication *>(QCoreApplication::instance());
    if (!application)
        return;
    auto info = std::make_shared<QcTaskDispatcher::MainThreadTaskInfo>();
    info->task = function;
    info->name = name;
    info->owner = std::move(owner);
    info->checkOwner = true;
    application->PostTaskToMainThread(info);
}

} // namespace Velmora
