#include <Velmora/XlsxOperator.h>

#include "xlsx/MemoryBudget_p.h"
#include "xlsx/PackageDocuments_p.h"

#include <QDebug>
#include <QFile>
#include <QSet>

namespace Velmora {

namespace {

constexpr const char *kImageType = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/image";

/// Writes \a document, if there is one, to \a path; false, with a warning, if that fails.
bool SavePart(const std::shared_ptr<pugi::xml_document> &document, const QString &path)
{
    if (!document || document->save_file(path.toStdString().c_str(), "\t", pugi::format_raw, pugi::encoding_auto))
        return true;
    qWarning() << "XlsxOperator::saveDocumentsToXmls: "
               << "save_file failed, " << path;
    return false;
}

/// Writes each of \a documents to the path that \a pattern gives for its number, counted from 1.
bool SaveParts(const QList<std::shared_ptr<pugi::xml_document>> &documents, const QString &dirPath, const QString &pattern)
{
    for (int i = 0; i < documents.size(); ++i) {
        if (!SavePart(documents.at(i), dirPath + pattern.arg(i + 1)))
            return false;
    }
    return true;
}

} // namespace

void XlsxOperator::saveElementsValueToDocuments()
{
    const QStringList names = m_elementsNameToValueHash.keys();
    for (const QString &name : names)
        saveElementsValueToDocument(name, getCellValue(name));
}

void XlsxOperator::saveElementsValueToDocument(const QString &name, const QVariant &value)
{
    saveCellsValue(name, value);
    saveCellsDropDownOptions(name, value);
    saveDrawingsValueToDocument(name, value);
}

bool XlsxOperator::saveDocumentsToXmls()
{
    return SaveParts(m_drawingRelsDocuments, m_drawingsRelsDirPath, QStringLiteral("/drawing%1.xml.rels"))
        && SaveParts(m_drawingDocuments, m_drawingsDirPath, QStringLiteral("/drawing%1.xml"))
        && SavePart(m_pWorkbookRelsDocument, m_workbookRelsPath)
        && SaveParts(m_sheetDocuments, m_worksheetsDirPath, QStringLiteral("/sheet%1.xml"))
        && SavePart(m_pSharedStringsDocument, m_sharedStringsPath) && SavePart(m_pWorkbookDocument, m_workbookPath)
        && SavePart(m_pContentTypesDocument, m_contentTypesPath);
}

void XlsxOperator::appendDefinedNameNodeToWorkbookDocument(const QString &sheetName, int row, const QString &column, const QString &name)
{
    if (!m_pWorkbookDocument) {
        qWarning() << "XlsxOperator::appendDefinedNameNodeToWorkbookDocument: "
                   << "m_pWorkbookDocument is nullptr";
        return;
    }
    const auto reference = [&](const QString &sheet) {
        return QStringLiteral("%1!$%2$%3").arg(sheet, column, QString::number(row)).toUtf8();
    };
    auto &workbook = static_cast<WorkbookDocument &>(*m_pWorkbookDocument);
    pugi::xml_node node = workbook.FindDefinedName(name.toUtf8());
    if (!node) {
        workbook.AppendDefinedName(name.toUtf8(), reference(sheetName));
    } else {
        // Only a reference added to others is quoted; the reader takes both forms.
        const QString quoted = sheetName.contains(QLatin1Char(' ')) ? QStringLiteral("'%1'").arg(sheetName) : sheetName;
        node.text().set((QByteArray(node.text().get()) + ',' + reference(quoted)).constData());
    }

    CellPosInfo info;
    info.sheetIndex = getSheetIndexFromWorkbookDocument(sheetName);
    info.sheetName = sheetName;
    info.row = row;
    info.column = column;
    info.position = column + QString::number(row);
    m_cellNameToPosInfosHash[name].append(info);
}

// --- Pictures ---

void XlsxOperator::getPicturePictureInfo(const QString &name, PictureInfo &info)
{
    const QVariant value = getCellValue(name);
    if (value.canConvert<PictureInfo>())
        info.filePath = value.value<PictureInfo>().filePath;
}

void XlsxOperator::setPicturesPictureInfo(const QString &name, const PictureInfo &info)
{
    m_elementsNameToValueHash[name] = QVariant::fromValue(info);
}

QVariant XlsxOperator::getDrawingValueFromDocument(const QString &name)
{
    // Only the first occurrence of a name is read.
    QList<pugi::xml_node> nodes;
    getRelationshipNodesFromDrawingRelsDocument(nodes, name);
    const pugi::xml_node node = nodes.value(0);
    if (!node)
        return QVariant();
    PictureInfo info;
    info.filePath = TextOf(node.attribute("Target").value());
    return QVariant::fromValue(info);
}

bool XlsxOperator::takeTextOfPicture(const QString &name)
{
    pugi::xml_node node;
    getRelationshipNodeFromDrawingRelsDocument(node, m_drawingNameToIDInfosHash.value(name).value(0), QString());
    return m_memory->TakeText(node.attribute("Target").value(), 1);
}

void XlsxOperator::getRelationshipNodesFromDrawingRelsDocument(QList<pugi::xml_node> &nodes, const QString &name)
{
    const QList<DrawingIDInfo> infos = m_drawingNameToIDInfosHash[name];
    for (const DrawingIDInfo &info : infos) {
        pugi::xml_node node;
        getRelationshipNodeFromDrawingRelsDocument(node, info, QString());
        nodes.append(node);
    }
}

void XlsxOperator::getRelationshipNodeFromDrawingRelsDocument(pugi::xml_node &node, const DrawingIDInfo &info, const QString &target)
{
    auto *relationships = static_cast<RelationshipsDocument *>(m_drawingRelsDocuments.value(info.drawingIndex).get());
    if (!relationships)
        return;
    if (target.isEmpty()) {
        node = relationships->FindById(info.relationshipId.toUtf8());
        return;
    }
    node = relationships->FindByTarget(target.toUtf8());
    if (!node && relationships->HasRelationships())
        node = relationships->Append(kImageType, target.toUtf8());
}

QString XlsxOperator::getMediaRelationshipPath(const QString &path)
{
    return QLatin1String("../media/") + QFileInfo(path).fileName();
}

void XlsxOperator::saveDrawingsValueToDocument(const QString &name, const QVariant &value)
{
    if (!value.canConvert<PictureInfo>())
        return;
    const QString filePath = value.value<PictureInfo>().filePath;
    if (!QFile::exists(filePath))
        return;
    // What load() gave leaves the picture as it is, even if it leads to a file: a package must not choose one of the host's.
    const QVariant loaded = getDrawingValueFromDocument(name);
    if (loaded.isValid() && loaded.value<PictureInfo>().filePath == filePath)
        return;

    QSet<int> done;
    const QList<DrawingIDInfo> infos = m_drawingNameToIDInfosHash[name];
    for (const DrawingIDInfo &info : infos) {
        // Never true: indices come from load(), which keeps them in range.
        if (info.drawingIndex < 0 && info.drawingIndex >= m_drawingDocuments.size()) {
            qWarning() << "XlsxOperator::saveDrawingsValueToDocument: Drawing index is out of range.";
            return;
        }
        // One round turns all pictures of the name in a drawing.
        if (done.contains(info.drawingIndex))
            continue;
        done.insert(info.drawingIndex);

        copyFile(filePath, m_mediaDirPath);
        const QString target = getMediaRelationshipPath(filePath);
        pugi::xml_node relationship;
        getRelationshipNodeFromDrawingRelsDocument(relationship, info, target);
        relationship.attribute("Target").set_value(target.toUtf8().constData());

        auto *drawing = static_cast<DrawingDocument *>(m_drawingDocuments.value(info.drawingIndex).get());
        if (!drawing)
            continue;
        for (const pugi::xml_node &picture : drawing->PicturesNamed(name.toUtf8()))
            DrawingDocument::ImageOf(picture).attribute("r:embed").set_value(relationship.attribute("Id").value());
    }
}

} // namespace Velmora
