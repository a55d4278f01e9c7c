#include "FormLook.h"

#include <Velmora/QcStyleManager.h>

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>

using namespace Velmora;

namespace VelmoraDesigner {

namespace {

struct Role
{
    QPalette::ColorRole role;
    const char *token;
    const char *disabled;
};

constexpr Role kRoles[] = {
    {QPalette::Window, "bg/bg_box", "bg/bg_box"},
    {QPalette::Base, "bg/bg_float", "bg/bg_box"},
    {QPalette::Button, "bg/bg_primary", "bg/bg_primary"},
    {QPalette::WindowText, "text/text_primary", "text/text_disabled"},
    {QPalette::Text, "text/text_primary", "text/text_disabled"},
    {QPalette::ButtonText, "text/text_primary", "text/text_disabled"},
    {QPalette::PlaceholderText, "text/text_secondary", "text/text_disabled"},
};

/// What plain widgets of a form need to be read on the ground of a table.
QPalette PaletteOfTable(QPalette palette)
{
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const Role &role : kRoles) {
            const QColor color = QcStyleManager::GetInstance()->GetColor(group == QPalette::Disabled ? role.disabled : role.token);
            if (color.isValid())
                palette.setColor(group, role.role, color);
        }
    }
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
