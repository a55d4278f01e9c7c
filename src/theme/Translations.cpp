#include "Translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#else
#include <dlfcn.h>
#endif

namespace Velmora {

namespace {

// Qt asks its translators for this text, and lays the program out as they answer.
[[maybe_unused]] const char *const kDirection = QT_TRANSLATE_NOOP("QGuiApplication", "QT_LAYOUT_DIRECTION");

/// The folder that this library was loaded from.
QDir LibraryFolder()
{
#ifdef Q_OS_WIN
    HMODULE library = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&LibraryFolder), &library);
    wchar_t path[32768] = {};
    GetModuleFileNameW(library, path, DWORD(std::size(path)));
    return QFileInfo(QString::fromWCharArray(path)).dir();
#else
    Dl_info library = {};
    dladdr(reinterpret_cast<void *>(&LibraryFolder), &library);
    return QFileInfo(QFileInfo(QFile::decodeName(library.dli_fname)).canonicalFilePath()).dir(); // what a link leads to
#endif
}

} // namespace

QString TranslationsFolder()
{
    const QDir library = LibraryFolder();
    const QString beside = library.filePath(QStringLiteral("translations"));
    if (QFile::exists(beside + QLatin1String("/velmora.qm")))
        return beside;
    return QDir::cleanPath(library.filePath(QStringLiteral(VELMORA_TRANSLATIONS_FROM_LIBRARY)));
}

} // namespace Velmora
