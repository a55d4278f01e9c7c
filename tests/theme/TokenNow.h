#pragma once

#include <Velmora/QcStyleManager.h>

#include <QColor>

namespace VelmoraTest {

/// The colour of \a token in the active table.
inline QColor TokenNow(const char *token)
{
    return Velmora::QcStyleManager::GetInstance()->GetColor(Velmora::ColorParams(QLatin1String(token)));
}

} // namespace VelmoraTest
