#include "OutputFile.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#else
#include <filesystem>
#endif

namespace FillTemplate {

namespace {

Failure CannotWrite(const QString &path, const QString &reason)
{
    return {OutputFailed, QStringLiteral("%1 cannot be written: %2").arg(path, reason)};
}

/// The file itself, not a link to it: renaming would replace the link.
QString FollowLinks(const QString &path)
{
    QFileInfo info(path);
    for (int links = 0; info.isSymLink() && links < 40; ++links)
        info.setFile(info.symLinkTarget());
    return info.absoluteFilePath();
}

#ifdef Q_OS_UNIX
/// Temporary files are for their owner alone; the output is like any other new file, or like the one it replaces.
void SetPermissions(QTemporaryFile &file, const QString &path)
{
    struct stat status = {};
    const mode_t mask = umask(0);
    umask(mask);
    const bool replaces = stat(QFile::encodeName(path).constData(), &status) == 0;
    fchmod(file.handle(), replaces ? status.st_mode & 07777 : 0666 & ~mask);
}
#endif

} // namespace

OutputFile::OutputFile(const QString &path)
    : m_path(FollowLinks(path))
{
    const QFileInfo info(m_path);
    if (info.exists() && !info.isFile())
        throw CannotWrite(path, QStringLiteral("it is no regular file"));
    if (info.exists() && !info.isWritable()) // a rename would not ask
        throw CannotWrite(path, QStringLiteral("it is read-only"));
    m_file = std::make_unique<QTemporaryFile>(info.absolutePath() + QLatin1String("/.fill-template-XXXXXX"));
    if (!m_file->open())
        throw CannotWrite(path, m_file->errorString());
}

QString OutputFile::WorkPath() const
{
    return m_file->fileName();
}

void OutputFile::Commit()
{
#ifdef Q_OS_UNIX
    SetPermissions(*m_file, m_path);
    // A rename may reach the disk before what was written does.
    if (fsync(m_file->handle()) != 0)
        throw CannotWrite(m_path, QString::fromLocal8Bit(std::strerror(errno)));
    if (std::rename(QFile::encodeName(WorkPath()).constData(), QFile::encodeName(m_path).constData()) != 0)
        throw CannotWrite(m_path, QString::fromLocal8Bit(std::strerror(errno)));
#else
    m_file->close();
    std::error_code error;
    std::filesystem::rename(std::filesystem::path(WorkPath().toStdWString()), std::filesystem::path(m_path.toStdWString()), error);
    if (error)
        throw CannotWrite(m_path, QString::fromStdString(error.message()));
#endif
    m_file->setAutoRemove(false);
}

QString WriteFault(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush())
        return QString();
    // What is written in part only is no error of the file.
    return file.error() == QFile::NoError ? QStringLiteral("is the disk full?") : file.errorString();
}

Failure NotReadBack(const QString &path, const Failure &failure)
{
    return {OutputFailed,
            QStringLiteral("%1 is left as it was, what was written for it does not read back: %2").arg(path, failure.message)};
}

} // namespace FillTemplate
