#include "dock/TabStage.h"

#include <Velmora/QcApplication.h>
#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockController.h>

#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdio>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// A host's window with a panel beside two tabs, and one that floats.
struct HostWindow : QWidget
{
    HostWindow()
    {
        auto *column = new QVBoxLayout(this);
        root = new QcDockContainer(this);
        column->addWidget(root);
        QcDockController::instance()->setRootDockContainer(root);
        alone = NewPanel(QStringLiteral("Alone"));
        root->addWidget(alone, nullptr, Left);
        QcDockWidget *tabbed = NewPanel(QStringLiteral("First"));
        root->addWidget(tabbed, nullptr, Right);
        root->addWidget(NewPanel(QStringLiteral("Second")), tabbed, Center);
        QcDockWidget *floating = NewPanel(QStringLiteral("Floating"));
        root->addWidget(floating, nullptr, Left);
        setGeometry(100, 100, 800, 500);
        show();
        floating->swichToFloating();
        DrainEvents();
    }

    QcDockContainer *root = nullptr;
    QcDockWidget *alone = nullptr;
};

/// All but what the library tells of its fonts at the start, and what the offscreen platform says of windows.
void PrintUnexpected(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString &line)
{
    if (!line.startsWith(QLatin1String("QcStyleManager::LoadFont")) && !line.startsWith(QLatin1String("This plugin does not support")))
        std::fprintf(stderr, "%s\n", qPrintable(line));
}

/// Holds a panel in the middle of the window; with \a isReleased the drop is posted, too.
void Drag(const HostWindow &host, bool isTab, bool isReleased)
{
    Mouse mouse;
    QWidget *pressed = isTab ? host.root->findChild<QcDockAreaTabBarButton *>() : TitleRowOf(*host.alone);
    mouse.PressAt(*pressed, QPoint(60, 15));
    mouse.MoveBy(0, 2 * QApplication::startDragDistance());
    mouse.MoveTo(host.mapToGlobal(host.rect().center()));
    const auto panels = host.findChildren<QcDockWidget *>();
    const bool isDragged =
        std::any_of(panels.begin(), panels.end(), [](const QcDockWidget *panel) { return panel->property("draging").toBool(); });
    std::printf(isDragged ? "dragged" : "not dragged");
    std::fflush(stdout);
    if (isReleased)
        mouse.Release();
}

} // namespace

/// Begins a drag and ends. Arguments: "title" or "tab"; "held" or "released"; "quit", "return", or "leave" for a host that leaves its
/// widgets to the application object.
int main(int argc, char **argv)
{
    qInstallMessageHandler(PrintUnexpected);
    QcApplication application(argc, argv);
    application.Initialize();
    const QStringList arguments = QcApplication::arguments();
    const auto isAsked = [&arguments](const char *word) { return arguments.contains(QLatin1String(word)); };
    const bool isTab = isAsked("tab");
    const bool isReleased = isAsked("released");
    if (isAsked("leave")) {
        Drag(*new HostWindow, isTab, isReleased);
        return 0;
    }
    const HostWindow host;
    if (!isAsked("quit")) {
        Drag(host, isTab, isReleased);
        return 0;
    }
    QTimer::singleShot(0, &host, [&] {
        Drag(host, isTab, isReleased);
        QcApplication::quit();
    });
    return QcApplication::exec();
}
