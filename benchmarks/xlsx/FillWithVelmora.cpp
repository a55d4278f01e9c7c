// Fills every name of a template, or only loads it.
//
// usage: xlsx_fill_velmora TEMPLATE OUTPUT
//        xlsx_fill_velmora --load TEMPLATE FILTER

#include <Velmora/XlsxOperator.h>

#include <QFileInfo>
#include <QHash>
#include <QTemporaryDir>
#include <QVariant>

#include <algorithm>

int main(int argc, char **argv)
{
    if (argc != 3 && argc != 4)
        return 2;
    const bool onlyLoads = argc == 4;
    const QTemporaryDir dir;
    Velmora::XlsxOperator op;
    op.setOldXlsxAbsolutePath(QFileInfo(QString::fromLocal8Bit(argv[onlyLoads ? 2 : 1])).absoluteFilePath());
    op.setExtractDirAbsolutePath(dir.filePath(QStringLiteral("package")));
    if (onlyLoads)
        op.setElementNameFilterRegExp(QString::fromLocal8Bit(argv[3]));
    if (!op.load())
        return 1;
    if (onlyLoads)
        return 0;

    QHash<QString, QVariant> elements;
    op.getElementsNameToValueHash(elements);
    QStringList names = elements.keys();
    std::sort(names.begin(), names.end());
    for (int k = 0; k < names.size(); ++k)
        op.setCellsValue(names.at(k), k % 2 ? QVariant(QStringLiteral("50 value %1").arg(k)) : QVariant(100000 + k));
    op.setNewXlsxAbsolutePath(QFileInfo(QString::fromLocal8Bit(argv[2])).absoluteFilePath());
    return op.save() ? 0 : 1;
}
