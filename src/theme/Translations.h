#pragma once

#include <Velmora/VelmoraExport.h>

#include <QString>

namespace Velmora {

/// The folder of the kit's own texts in other languages, compiled: velmora_de.qm and its like, and velmora.qm in English for all
/// languages that are not there. The library loads none by itself; a host does, at the start or to switch, and the kit's texts follow:
///
///     QTranslator texts;
///     texts.load(QLocale(), "velmora", "_", Velmora::TranslationsFolder(), ".qm");
///     QCoreApplication::installTranslator(&texts);
///
/// Those of a language that is written from right to left have the program laid out so, until a host sets a direction itself.
///
/// It is the folder `translations` beside the library, where the build puts it and a host that ships the library with its program may,
/// or else share/velmora/translations of the installed package (with Qt 6 share/velmora-qt6), wherever that was moved. Looked up at each
/// call.
VELMORA_EXPORT QString TranslationsFolder();

} // namespace Velmora
