#include <Velmora/QcApplication.h>
#include <Velmora/QcStyleManager.h>

#include "core/MainThreadPosting_p.h"

#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStringList>
#include <QToolTip>
#include <QWidget>

namespace Velmora {

namespace {

QString PairText(int first, int second)
{
    return QStringLiteral("{%1, %2}").arg(first).arg(second);
}

QString DescribeWidget(const QWidget *widget)
{
    const QPoint global = widget->mapToGlobal(QPoint(0, 0));
    return QStringLiteral("pointer: %1; class_name: %2; object_name: %3; relative_pos: %4; global_pos: %5; size: %6; "
                          "minimumWidth: %7; minimumHeight: %8")
        .arg(QString::number(quintptr(widget), 16), QString::fromLatin1(widget->metaObject()->className()), widget->objectName(),
             PairText(widget->x(), widget->y()), PairText(global.x(), global.y()), PairText(widget->width(), widget->height()),
             QString::number(widget->minimumWidth()), QString::number(widget->minimumHeight()));
}

/// One line a widget, from \a widget up to the top, through dialogs too.
QString DescribeWidgetChain(const QWidget *widget)
{
    QStringList lines;
    for (; widget; widget = widget->parentWidget())
        lines.append(DescribeWidget(widget));
    return lines.join(QLatin1Char('\n'));
}

bool IsDebugTipRequest(const QObject *watched, QEvent *event)
{
    // The platform window sees each key press once; the widgets behind it see the same press again.
    return event->type() == QEvent::KeyPress && watched && watched->inherits("QWidgetWindow")
        && static_cast<QKeyEvent *>(event)->matches(QKeySequence::WhatsThis);
}

} // namespace

QcApplication::QcApplication(int &argc, char **argv)
    : QApplication(argc, argv)
{
    SetPostingDispatcher(&m_taskDispatcher);
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
    if (m_debugTipEnabled && IsDebugTipRequest(watched, event)) {
        if (const QWidget *widget = widgetAt(QCursor::pos()))
            QToolTip::showText(QCursor::pos(), DescribeWidgetChain(widget), nullptr);
    }

    if (event->type() == QEvent::MouseButtonPress && watched && watched->isWidgetType()
        && static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton) {
        static_cast<QWidget *>(watched)->activateWindow();
    }

    return QObject::eventFilter(watched, event);
}

} // namespace Velmora
