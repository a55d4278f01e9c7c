#include "xlsx/XlsxTestCase.h"

#include <QDirIterator>

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

void XlsxTestCase::Prepare(Velmora::XlsxOperator &op) const
{
    op.setOldXlsxAbsolutePath(TemplatePath());
    op.setExtractDirAbsolutePath(WorkPath());
    op.setNewXlsxAbsolutePath(OutputPath());
}

bool XlsxTestCase::Load(Velmora::XlsxOperator &op, const Template &source)
{
    return Load(op, source.Archive());
}

bool XlsxTestCase::Load(Velmora::XlsxOperator &op, const QByteArray &archive)
{
    WriteFile(TemplatePath(), archive);
    Prepare(op);
    return op.load();
}

QByteArray XlsxTestCase::OutputBetween(const QByteArray &name, const QByteArray &begin, const QByteArray &end) const
{
    const QByteArray content = Output().value(name);
    const int from = content.indexOf(begin);
    const int to = content.indexOf(end, from + begin.size());
    return from < 0 || to < 0 ? QByteArray("<not found>") : content.mid(from + begin.size(), to - from - begin.size());
}

} // namespace VelmoraTest
