#include "theme/WindowsShell_p.h"

#include <QDir>

#include <string>

namespace Velmora::WindowsShell {

namespace {

/// MAX_PATH without its terminator: up to here every function of the system takes a path as it is.
constexpr int LongestPlainPath = 259;

} // namespace

QString ShortPath(const QString &path, const ShortPathFunction &systemShortPath)
{
    if (path.size() <= LongestPlainPath)
        return path;

    // The prefix lifts the limit, but takes no forward slashes.
    const std::wstring longPath = (QStringLiteral("\\\\?\\") + QDir::toNativeSeparators(path)).toStdWString();
    const unsigned long size = systemShortPath(longPath.c_str(), nullptr, 0);
    if (size == 0)
        return path;

    std::wstring buffer(size, L'\0');
    const unsigned long written = systemShortPath(longPath.c_str(), buffer.data(), size);
    if (written == 0 || written >= size) // gone, or renamed to something longer, between the two calls
        return path;
    return QString::fromWCharArray(buffer.c_str());
}

QString ExplorerArguments(const QString &nativePath, bool isFolder)
{
    const QString quoted = QLatin1Char('"') + nativePath + QLatin1Char('"');
    return isFolder ? quoted : QStringLiteral(" /select,") + quoted;
}

} // namespace Velmora::WindowsShell
