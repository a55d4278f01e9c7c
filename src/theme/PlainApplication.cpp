#include <Velmora/PlainApplication.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/QcTaskDispatcher.h>

#include "core/MainThreadPosting_p.h"

#include <QApplication>

#include <utility>

namespace Velmora {

/// What QcApplication does of its own accord, for one that does not.
struct PlainService
{
    static void Begin()
    {
        dispatcher = new QcTaskDispatcher; // deleted by End()
        SetPostingDispatcher(dispatcher);
        qAddPostRoutine(End); // before the application object goes, as a member of QcApplication would

        QcStyleManager *manager = QcStyleManager::GetInstance();
        if (manager->m_initializedFor == QCoreApplication::instance())
            return; // by the program
        manager->LoadFont();
        manager->FollowTable();
    }

private:
    static void End()
    {
        SetPostingDispatcher(nullptr);
        delete std::exchange(dispatcher, nullptr);
    }

    static QcTaskDispatcher *dispatcher;
};

QcTaskDispatcher *PlainService::dispatcher = nullptr;

bool ServePlainApplication()
{
    if (HasPostingDispatcher() || !qobject_cast<QApplication *>(QCoreApplication::instance()))
        return false;
    PlainService::Begin();
    return true;
}

} // namespace Velmora
