#pragma once

#include <Velmora/VelmoraExport.h>

#include <QString>

namespace Velmora {

/// A colour choice as every control stores it: a token or literal colour name, and an alpha that may override its own.
///
/// Text forms: a token ("brand/brand"), `#RRGGBB`, a colour name of Qt, "transparent"; each of them also wrapped
/// in `${` `}` and followed by a comma and an alpha, as in `${text/text_primary, 0.5}`.
/// QcStyleManager::GetColor() turns the record into a colour.
struct VELMORA_EXPORT ColorParams
{
    /// Parses \a text. An empty text gives no colour; a second part that is no number leaves the alpha
    /// unset; with three or more parts all but the first are ignored.
    ColorParams(const QString &text = QStringLiteral("")); // NOLINT(google-explicit-constructor): a code stands for its record
    /// As above, one byte a character (Latin-1). A null pointer gives an empty code.
    ColorParams(const char *const text); // NOLINT(google-explicit-constructor)

    /// The token or colour name, without wrapping and alpha. Empty means no colour.
    QString code;
    /// From 0.0 to 1.0, in place of the colour's own alpha; any negative value means no override.
    double alpha = -1.0;
};

} // namespace Velmora
