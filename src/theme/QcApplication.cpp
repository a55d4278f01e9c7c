#include <Velmora/QcApplication.h>
#include <Velmora/QcStyleManager.h>

#include "core/MainThreadPosting_p.h"
#include "theme/FocusRing_p.h"
#include "theme/PlainPalette_p.h"
#include "theme/ThemeChecks_p.h"
#include "theme/WidgetChain_p.h"

#include <QMouseEvent>
#include <QWidget>

namespace Velmora {

QcApplication::QcApplication(int &argc, char **argv)
    : QApplication(argc, argv)
{
    SetPostingDispatcher(&m_taskDispatcher);
    FollowThemeChecks();
}

QcApplication::~QcApplication()
{
    SetPostingDispatcher(nullptr);
}

void QcApplication::Initialize()
{
    // The filter is not yet in place while fonts and the global stylesheet load.
    QcStyleManager::GetInstance()->Initialize();
    installEventFilter(this);
    FollowKeyboardCues();
    FollowPlainWidgets();
}

void QcApplication::UnInitialize() {}

void QcApplication::setDebugTipEnabled(bool enabled)
{
    m_debugTipEnabled = enabled;
}

void QcApplication::PostTaskToMainThread(const std::shared_ptr<QcTaskDispatcher::MainThreadTaskInfo> &task)
{
    m_taskDispatcher.PostTask(task);
}

void QcApplication::ScheduleTaskToMainThread(const std::shared_ptr<QcTaskDispatcher::MainThreadTaskInfo> &task)
{
    m_taskDispatcher.ScheduleTask(task);
}

void QcApplication::MergeTaskToMainThread(const std::shared_ptr<QcTaskDispatcher::MainThreadTaskInfo> &task, const std::string &key)
{
    m_taskDispatcher.MergeTask(task, key);
}

bool QcApplication::eventFilter(QObject *watched, QEvent *event)
{
    if (m_debugTipEnabled && IsChainTipRequest(watched, event))
        ShowChainTip(ChainLine::Full);

    if (event->type() == QEvent::MouseButtonPress && watched && watched->isWidgetType()
        && static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton) {
        static_cast<QWidget *>(watched)->activateWindow();
    }

    return QObject::eventFilter(watched, event);
}

} // namespace Velmora
