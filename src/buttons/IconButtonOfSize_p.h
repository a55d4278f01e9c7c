#pragma once

#include <Velmora/QcIconButton.h>

namespace Velmora {

/// An icon button of \a size by \a size pixels as a child of \a parent, with the object name \a name. It does not answer to Enter in a
/// dialog. Give it an accessible name: its icon says nothing to assistive technology.
inline QcIconButton *MakeIconButton(QWidget &parent, const QString &name, const QString &iconPath, int size)
{
    auto *button = new QcIconButton(&parent);
    button->setObjectName(name);
    button->SetIconPath(iconPath);
    button->setFixedSize(size, size);
    button->setAutoDefault(false);
    return button;
}

} // namespace Velmora
