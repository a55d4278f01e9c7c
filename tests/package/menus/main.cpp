#include "NoteField.h"
#include "tool_menu.h"

#include "../Check.h"

#include <Velmora/QcApplication.h>
#include <Velmora/QcCombinedToolButton.h>
#include <Velmora/QcStyleManager.h>

#include <QContextMenuEvent>

namespace {

/// Lets its icon be seen.
class ToolButton : public Velmora::QcCombinedToolButton
{
public:
    using QcCombinedToolButton::GetIconPath;
};

void CheckTools()
{
    ToolButton button;
    Velmora::QcMenu menu;
    button.setMenu(&menu);
    const QString icon = QStringLiteral(":/images/close.svg");
    addTool(&menu, QStringLiteral("Eraser"), icon)->trigger();
    Check(button.GetIconPath() == icon, "the chosen tool's icon stands on the button");
    Check(menu.actions().first()->property(Velmora::QcMenu::GetIconPathProperty()) == icon, "and in the menu");
}

void CheckContextMenu()
{
    NoteField field;
    field.show();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), field.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&field, &event);
    Check(field.menu()->isVisible(), "the right mouse button opens the menu");
    field.menu()->close();
}

} // namespace

int main(int argc, char **argv)
{
    Velmora::QcApplication app(argc, argv);
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(QStringLiteral(":/colors/blue_light.ini"));
    app.Initialize();
    CheckTools();
    CheckContextMenu();
    return failures;
}
