#pragma once

#include <Velmora/VelmoraExport.h>

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QTextDocument;
QT_END_NAMESPACE

namespace Velmora {

/// Cuts \a document to \a maxLines laid-out lines at its present text width. A document that fits stays as it is; what is cut
/// ends in "...", which takes the format of the text in front of it.
///
/// If not even the suffix fits (a width of few pixels, fewer than one line) the suffix alone is left. A null document is ignored.
VELMORA_EXPORT void multiLineTextElide(QTextDocument *document, int maxLines);

} // namespace Velmora
