#include <Velmora/PostOwnedTask.h>
#include <Velmora/QcTaskDispatcher.h>

#include "core/MainThreadPosting_p.h"

#include <memory>
#include <utility>

namespace Velmora {

namespace {

// Read from any thread, without a lock: it is written while the application object is made and while it goes, and then no other thread
// may post.
QcTaskDispatcher *postingDispatcher = nullptr;

} // namespace

void SetPostingDispatcher(QcTaskDispatcher *dispatcher)
{
    postingDispatcher = dispatcher;
}

bool HasPostingDispatcher()
{
    return postingDispatcher != nullptr;
}

void PostOwnedTask(QPointer<QObject> owner, const std::function<void()> &function, const std::string &name)
{
    QcTaskDispatcher *dispatcher = postingDispatcher;
    if (!dispatcher)
        return;
    auto info = std::make_shared<QcTaskDispatcher::MainThreadTaskInfo>();
    info->task = function;
    info->name = name;
    info->owner = std::move(owner);
    info->checkOwner = true;
    dispatcher->PostTask(info);
}

} // namespace Velmora
