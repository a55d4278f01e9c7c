#include "xlsx/XlsxFiles.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

namespace VelmoraTest {

QByteArray FileContent(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void WriteFile(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
}

QMap<QByteArray, QByteArray> FilesBelow(const QString &dirPath)
{
    QMap<QByteArray, QByteArray> files;
    QDirIterator it(dirPath, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        files.insert(QDir(dirPath).relativeFilePath(path).toUtf8(), FileContent(path));
    }
    return files;
}

} // namespace VelmoraTest
