#pragma once

#include <QWidget>

namespace Velmora {

/// For windows that come by themselves: who types into another one goes on typing, and left behind in sight \a window does not keep
/// the program running.
inline void MakeUnobtrusive(QWidget &window)
{
    window.setAttribute(Qt::WA_ShowWithoutActivating);
    window.setAttribute(Qt::WA_QuitOnClose, false);
}

} // namespace Velmora
