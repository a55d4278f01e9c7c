#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace VelmoraTest {

/// A private folder for the files of one test program.
class TestFiles
{
public:
    QString Path(const QString &name) const { return m_folder.filePath(name); }

    /// Writes \a content to \a name, in place of what was there, and gives the path.
    QString Write(const QString &name, const QByteArray &content) const
    {
        const QString path = Path(name);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(content) != content.size())
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }

private:
    QTemporaryDir m_folder;
};

/// A file that this process cannot read while the object lives, not even when root runs the tests.
class LockedFile
{
public:
    explicit LockedFile(const QString &path)
        : m_file(path)
        , m_permissions(m_file.permissions())
    {
        m_file.setPermissions(QFileDevice::Permissions());
#ifdef Q_OS_UNIX
        // The folder belongs to root and is closed to others: the file would not even exist for them.
        const QString folder = path.section(QLatin1Char('/'), 0, -2);
        QFile::setPermissions(folder, QFile::permissions(folder) | QFileDevice::ExeOther | QFileDevice::ExeGroup);
        m_wasRoot = geteuid() == 0 && seteuid(kNobody) == 0;
#endif
    }
    ~LockedFile()
    {
#ifdef Q_OS_UNIX
        if (m_wasRoot && seteuid(0) != 0)
            qFatal("cannot become root again");
#endif
        m_file.setPermissions(m_permissions);
    }

private:
    LockedFile(const LockedFile &) = delete;
    LockedFile &operator=(const LockedFile &) = delete;

    static constexpr int kNobody = 65534;
    QFile m_file;
    QFileDevice::Permissions m_permissions;
    bool m_wasRoot = false;
};

} // namespace VelmoraTest
