#include "theme/FileStamp_p.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QHashFunctions>
#include <QResource>

#ifdef Q_OS_LINUX
#include <sys/stat.h>
#endif

namespace Velmora {

namespace {

FileStamp OfResource(const QString &path)
{
    // By content: a bundle that is unregistered and loaded again may come to lie at the same address. The hash runs over the
    // bytes as they are stored, which takes far less than decoding them.
    const QResource resource(path);
    const qint64 size = resource.size();
    return {resource.isValid(), size, qint64(qHashBits(resource.data(), std::size_t(size))), 0};
}

/// Whatever Qt makes of \a path, search paths and file engines of the host included.
FileStamp OfAnything(const QString &path)
{
    if (!QFile::exists(path))
        return FileStamp();
    const QFileInfo info(path);
    return {true, info.size(), info.lastModified().toMSecsSinceEpoch(), 0};
}

#if defined(Q_OS_LINUX)
/// One call of the system: Qt looks at the time zone's file again for each time that it converts. The time of change covers
/// more than that of modification, which a copy may preserve.
FileStamp OfPlainFile(const QString &path)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return FileStamp();
    constexpr qint64 nanoseconds = 1000000000;
    return {true, qint64(status.st_size), status.st_ctim.tv_sec * nanoseconds + status.st_ctim.tv_nsec,
            quint64(status.st_ino) ^ (quint64(status.st_dev) << 32)};
}
#else
FileStamp OfPlainFile(const QString &path)
{
    return OfAnything(path);
}
#endif

} // namespace

FileStamp FileStamp::Of(const QString &path)
{
    if (path.startsWith(QLatin1String(":/")))
        return OfResource(path);
    // A colon may name a search path, and a null character would end the name too early.
    if (path.contains(QLatin1Char(':')) || path.contains(QChar(QChar::Null)))
        return OfAnything(path);
    return OfPlainFile(path);
}

} // namespace Velmora
