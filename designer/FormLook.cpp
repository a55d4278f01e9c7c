#include "FormLook.h"

#include <Velmora/QcStyleManager.h>

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>

#include <utility>

using namespace Velmora;

namespace VelmoraDesigner {

namespace {

/// What plain widgets of a form need to be read on the ground of a table.
QPalette PaletteOfTable(QPalette palette)
{
    constexpr std::pair<QPalette::ColorRole, const char *> kRoles[] = {
        {QPalette::Window, "bg/bg_box"},       {QPalette::Base, "bg/bg_float"},
        {QPalette::Button, "bg/bg_primary"},   {QPalette::WindowText, "text/text_primary"},
        {QPalette::Text, "text/text_primary"}, {QPalette::ButtonText, "text/text_primary"},
    };
    for (const auto &[role, token] : kRoles) {
        const QColor color = QcStyleManager::GetInstance()->GetColor(token);
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
            if (color.isValid())
                palette.setColor(group, role, color);
        }
    }
    palette.setColor(QPalette::Disabled, QPalette::Window, palette.color(QPalette::Active, QPalette::Window));
    return palette;
}

} // namespace

FormLook::FormLook(QDesignerFormEditorInterface &core)
    : QObject(&core)
    , m_core(core)
{
    connect(core.formWindowManager(), &QDesignerFormWindowManagerInterface::formWindowAdded, this, &FormLook::Dress);
    connect(QcStyleManager::GetInstance(), &QcStyleManager::SignalColorChanged, this, &FormLook::DressAll);
    DressAll();
}

void FormLook::Dress(QDesignerFormWindowInterface *form)
{
    form->setPalette(PaletteOfTable(m_core.topLevel() ? m_core.topLevel()->palette() : QPalette()));
}

void FormLook::DressAll()
{
    QDesignerFormWindowManagerInterface *manager = m_core.formWindowManager();
    for (int i = 0; i < manager->formWindowCount(); ++i)
        Dress(manager->formWindow(i));
}

} // namespace VelmoraDesigner
