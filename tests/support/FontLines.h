#pragma once

#include "support/LogGuard.h"

namespace VelmoraTest {

/// Announces what loading the built-in fonts logs. Each Qt has its own way to write lists.
inline void ExpectFontLines(LogGuard &log)
{
    log.Expect(QtInfoMsg, QStringLiteral("QcStyleManager::LoadFont"));
    log.ExpectMatch(QtInfoMsg, QStringLiteral("QcStyleManager::LoadFont: (QList)?\\(\"Roboto\"\\)"));
    log.ExpectMatch(QtInfoMsg, QStringLiteral("QcStyleManager::LoadFont: (QList)?\\(\"Open Sans.*\"\\)"));
}

} // namespace VelmoraTest
