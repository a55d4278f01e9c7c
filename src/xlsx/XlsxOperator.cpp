#include <Velmora/XlsxOperator.h>
#include <Velmora/XlsxZip.h>

#include "xlsx/PackageDocuments_p.h"

#include <QDebug>
#include <QDir>
#include <QFile>

#include <algorithm>

namespace Velmora {

XlsxOperator::XlsxOperator()
{
    generateColumnNames();
}

XlsxOperator::XlsxOperator(const XlsxOperator &) = default;

XlsxOperator &XlsxOperator::operator=(const XlsxOperator &) = default;

XlsxOperator::~XlsxOperator() = default;

void XlsxOperator::setOldXlsxAbsolutePath(const QString &path)
{
    m_oldXlsxAbsolutePath = path;
}

void XlsxOperator::setNewXlsxAbsolutePath(const QString &path)
{
    m_newXlsxAbsolutePath = path;
}

void XlsxOperator::setExtractDirAbsolutePath(const QString &path)
{
    m_extractDirAbsolutePath = path;
}

void XlsxOperator::setElementNameFilterRegExp(const QString &pattern)
{
    m_elementNameFilterRegExp = QRegularExpression(pattern);
}

bool XlsxOperator::load()
{
    if (!extractFromXlsx())
        return false;
    initProcessingPaths();
    if (!loadDocumentsFromXmls())
        return false;
    loadCellNameToPosInfosHash();
    loadDrawingNameToIDInfosHash();
    loadElementsValueFromDocuments();
    return true;
}

void XlsxOperator::getElementsNameToValueHash(QHash<QString, QVariant> &hash)
{
    hash = m_elementsNameToValueHash;
}

bool XlsxOperator::save()
{
    saveElementsValueToDocuments();
    return saveDocumentsToXmls() && compressToXlsx();
}

// --- Package ---

bool XlsxOperator::extractFromXlsx()
{
    return XlsxZip::extractFromXlsxFile(m_oldXlsxAbsolutePath, m_extractDirAbsolutePath);
}

bool XlsxOperator::compressToXlsx()
{
    return XlsxZip::compressToXlsxFile(m_extractDirAbsolutePath, m_newXlsxAbsolutePath);
}

void XlsxOperator::initProcessingPaths()
{
    m_workbookRelsPath = m_extractDirAbsolutePath + QLatin1String("/xl/_rels/workbook.xml.rels");
    m_contentTypesPath = m_extractDirAbsolutePath + QLatin1String("/[Content_Types].xml");
    m_worksheetsDirPath = m_extractDirAbsolutePath + QLatin1String("/xl/worksheets");
    m_workbookPath = m_extractDirAbsolutePath + QLatin1String("/xl/workbook.xml");
    m_sharedStringsPath = m_extractDirAbsolutePath + QLatin1String("/xl/sharedStrings.xml");
    m_drawingsDirPath = m_extractDirAbsolutePath + QLatin1String("/xl/drawings");
    m_drawingsRelsDirPath = m_extractDirAbsolutePath + QLatin1String("/xl/drawings/_rels");
    m_mediaDirPath = m_extractDirAbsolutePath + QLatin1String("/xl/media");
}

QList<QFileInfo> XlsxOperator::dirEntryInfoListWithNaturalSort(const QString &dirPath)
{
    QList<QFileInfo> entries = QDir(dirPath).entryInfoList(QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot, QDir::NoSort);
    // The parts of a package share prefix and extension, so the shorter name has the smaller number.
    std::sort(entries.begin(), entries.end(), [](const QFileInfo &a, const QFileInfo &b) {
        const QString first = a.fileName();
        const QString second = b.fileName();
        return first.size() != second.size() ? first.size() < second.size() : first < second;
    });
    return entries;
}

void XlsxOperator::copyFile(const QString &sourceFilePath, const QString &destinationDirPath)
{
    const QString destination = QDir(destinationDirPath).filePath(QFileInfo(sourceFilePath).fileName());
    if (QFile::exists(destination))
        QFile::remove(destination);
    QFile source(sourceFilePath);
    if (!source.exists()) {
        qWarning() << "XlsxOperator::copyAndRenameFile: Source file does not exist." << sourceFilePath;
        return;
    }
    if (!source.copy(destination))
        qWarning() << "XlsxOperator::copyAndRenameFile: Failed to copy file:" << source.errorString() << " " << sourceFilePath << " "
                   << destination;
}

} // namespace Velmora
