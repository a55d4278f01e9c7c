#pragma once

#include <Velmora/VelmoraExport.h>

#include <QPointer>
#include <QWidget>

#include <cstddef>

namespace Velmora {

/// Hashes a guarded widget by its address; a null or dead one hashes to 0.
///
/// The hash of a key changes when its widget dies, so a container must keep the hash it computed at insertion.
/// libstdc++ does for a functor that may throw; hence no `noexcept`.
struct VELMORA_EXPORT PointerHashFunc
{
    std::size_t operator()(const QPointer<QWidget> &pointer) const;
};

/// Two guarded widgets are equal if they point to the same widget; dead ones count as null.
struct VELMORA_EXPORT PointerEqualFunc
{
    bool operator()(const QPointer<QWidget> &a, const QPointer<QWidget> &b) const;
};

} // namespace Velmora
