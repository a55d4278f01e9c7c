#pragma once

#include "TabStage.h"

#include <Velmora/DockPosition.h>
#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockController.h>

#include <QVBoxLayout>

namespace VelmoraTest {

/// Where a window may stand so that the offscreen platform knows the cursor right, at any scale factor.
inline QPoint Corner()
{
    return qApp->devicePixelRatio() == 1.0 ? QPoint(200, 150) : QPoint(0, 0);
}

/// A root container in a window, registered, that panels are added to.
class DockStage
{
public:
    DockStage()
        : root(new Velmora::QcDockContainer(&window))
    {
        auto *column = new QVBoxLayout(&window);
        column->setContentsMargins(0, 0, 0, 0);
        column->addWidget(root);
        root->setEmptyKeep(true);
        Velmora::QcDockController::instance()->setRootDockContainer(root);
        window.setGeometry(QRect(Corner(), QSize(800, 500)));
    }

    Velmora::QcDockWidget *Add(const QString &title, Velmora::DockPosition position = Velmora::Center)
    {
        Velmora::QcDockWidget *panel = NewPanel(title);
        root->addWidget(panel, nullptr, position);
        return panel;
    }

    bool Show() { return ShowActive(window); }

    QWidget window;
    QPointer<Velmora::QcDockContainer> root;
};

} // namespace VelmoraTest
