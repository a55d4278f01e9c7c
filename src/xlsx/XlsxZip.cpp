#include <Velmora/XlsxZip.h>

#include "xlsx/ZipInspection_p.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <private/qzipreader_p.h>
#include <private/qzipwriter_p.h>

namespace Velmora {

namespace {

/// Hidden entries too: without `_rels/.rels` no program opens the package.
QFileInfoList EntriesOf(const QDir &dir)
{
    return dir.entryInfoList(QDir::Dirs | QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot, QDir::NoSort);
}

/// Of the file that \a reader has opened. What cannot be opened holds no entries.
ZipInspection Inspect(const QZipReader &reader)
{
    QIODevice &device = *reader.device();
    if (!device.isOpen())
        return {};
    ZipInspection inspection = InspectZip(device);
    device.seek(0); // where the reader begins
    return inspection;
}

} // namespace

bool XlsxZip::extractFromXlsxFile(const QString &xlsxFilePath, const QString &outputDir)
{
    // Opening an unnamed file would be one more warning, of Qt.
    if (xlsxFilePath.isEmpty()) {
        qWarning() << "extractXlsxFile: file does not exist," << xlsxFilePath;
        return false;
    }
    QZipReader reader(xlsxFilePath, QIODevice::ReadOnly);
    if (!reader.exists()) {
        qWarning() << "extractXlsxFile: file does not exist," << xlsxFilePath;
        return false;
    }
    // An unnamed directory is the process's current one, which is not ours to empty.
    if (outputDir.isEmpty()) {
        qWarning() << "XlsxZip::extractXlsxFile: failed to create output directory," << outputDir;
        return false;
    }
    // Before the directory is emptied, because the archive may lie in it.
    const ZipInspection inspection = Inspect(reader);

    QDir(outputDir).removeRecursively();
    const QDir here{QString()};
    if (!here.mkpath(outputDir)) {
        qWarning() << "XlsxZip::extractXlsxFile: failed to create output directory," << outputDir;
        return false;
    }
    if (inspection.verdict == ZipInspection::NoArchive)
        return true;
    if (inspection.verdict == ZipInspection::Refused) {
        qWarning() << "XlsxZip::extractXlsxFile: archive refused," << qUtf8Printable(inspection.reason + QLatin1Char(',')) << xlsxFilePath;
        return false;
    }

    const QVector<QZipReader::FileInfo> infos = reader.fileInfoList();
    for (int i = 0; i < inspection.entries.size(); ++i) {
        // By the name as stored: the reader's list drops leading dots.
        const ZipEntry &entry = inspection.entries.at(i);
        const QFileInfo target(outputDir + QDir::separator() + QString::fromUtf8(entry.name));
        if (!here.exists(target.absolutePath()))
            here.mkpath(target.absolutePath());
        // Some writers mark a directory by its name alone.
        if (!infos.value(i).isFile || entry.name.endsWith('/'))
            continue;
        QFile file(target.absoluteFilePath());
        if (!file.open(QIODevice::WriteOnly)) {
            qWarning() << "XlsxZip::extractXlsxFile: failed to open file for writing," << target.absoluteFilePath();
            return false;
        }
        UnpackZipEntry(*reader.device(), entry, file);
        file.close();
    }
    reader.close();
    return true;
}

bool XlsxZip::compressToXlsxFile(const QString &sourceDir, const QString &xlsxFilePath)
{
    QFile file(xlsxFilePath);
    if (xlsxFilePath.isEmpty() || !file.open(QIODevice::WriteOnly)) {
        qWarning() << "XlsxZip::compressToXlsxFile: failed to open file for writing," << xlsxFilePath;
        return false;
    }
    QZipWriter writer(&file);
    writer.setCompressionPolicy(QZipWriter::AutoCompress);
    // An unnamed directory would be the process's current one.
    if (!sourceDir.isEmpty()) {
        const QFileInfoList entries = EntriesOf(QDir(sourceDir));
        for (const QFileInfo &entry : entries)
            addToZip(sourceDir, entry.absoluteFilePath(), writer);
    }
    writer.close();
    file.close();
    return true;
}

void XlsxZip::addToZip(const QString &rootDir, const QString &path, QZipWriter &writer)
{
    const QFileInfo info(path);
    const QString name = path.mid(rootDir.size() + 1);
    if (info.isFile()) {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly))
            writer.addFile(name, file.readAll());
    } else if (info.isDir()) {
        writer.addDirectory(name);
        const QFileInfoList entries = EntriesOf(QDir(path));
        for (const QFileInfo &entry : entries)
            addToZip(rootDir, entry.absoluteFilePath(), writer);
    }
}

} // namespace Velmora
