#pragma once

#include <QPropertyAnimation>
#include <QVariant>

namespace Velmora {

/// Runs \a animation from where its property is to \a end. A run under way is replaced: Qt ignores the start of one that runs, which
/// would go on from where it was.
inline void GlideTo(QPropertyAnimation &animation, const QVariant &end)
{
    animation.stop();
    animation.setEndValue(end);
    animation.start();
}

} // namespace Velmora
