#include <Velmora/QcDockAreaTabStackedWidget.h>
#include <Velmora/QcDockWidget.h>

namespace Velmora {

QcDockAreaTabStackedWidget::QcDockAreaTabStackedWidget(QWidget *parent)
    : QStackedWidget(parent)
{
}

QcDockAreaTabStackedWidget::~QcDockAreaTabStackedWidget() = default;

void QcDockAreaTabStackedWidget::setTitleVisible(bool visible)
{
    for (int i = 0; i < count(); ++i) {
        if (auto *panel = qobject_cast<QcDockWidget *>(widget(i)))
            panel->setTitleVisible(visible);
    }
}

} // namespace Velmora
