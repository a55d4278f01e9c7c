#pragma once

#include <QColor>

namespace VelmoraTest {

/// What a QColor takes and gives as a part of 1: double in Qt 5, float in Qt 6.
using ColorValue = decltype(QColor().alphaF());

} // namespace VelmoraTest
