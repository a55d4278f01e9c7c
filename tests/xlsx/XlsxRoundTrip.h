#pragma once

#include <QByteArray>

namespace VelmoraTest {

/// Loads the package, sets values of every kind, saves and loads the result. Ends the program if what was loaded cannot be saved, if
/// what was saved cannot be loaded, or if a part that is not parsed changed. Logs nothing.
void RoundTrip(const QByteArray &archive);

} // namespace VelmoraTest
