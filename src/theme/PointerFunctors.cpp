#include <Velmora/PointerFunctors.h>

#include <cstdint>

namespace Velmora {

std::size_t PointerHashFunc::operator()(const QPointer<QWidget> &pointer) const
{
    const auto value = std::uint64_t(reinterpret_cast<std::uintptr_t>(pointer.data()));
    return std::uint32_t((value >> 31) ^ value);
}

bool PointerEqualFunc::operator()(const QPointer<QWidget> &a, const QPointer<QWidget> &b) const
{
    return a.data() == b.data();
}

} // namespace Velmora
