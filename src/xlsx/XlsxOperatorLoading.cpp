#include <Velmora/XlsxOperator.h>

#include "xlsx/MemoryBudget_p.h"
#include "xlsx/PackageDocuments_p.h"

#include <QDebug>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpressionMatch>

#include <map>

namespace Velmora {

namespace {

constexpr const char *kSharedStringsType = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/sharedStrings";
constexpr const char *kSharedStringsContentType = "application/vnd.openxmlformats-officedocument.spreadsheetml.sharedStrings+xml";

/// One full column: what a single name can reasonably cover.
constexpr qint64 kMostPositionsOfOneName = 1048576;
constexpr qint64 kMostPositions = 2 * kMostPositionsOfOneName;
/// Of one more cell of a name: its place, and the cell that save() makes there.
constexpr qint64 kMemoryOfPosition = 440;
/// Of an element beside its value and its places.
constexpr qint64 kMemoryOfElement = 1024;
/// Names of one hash, which QHash finds one by one. Its seed does not part names that an author made to meet.
constexpr int kMostNamesOfOneHash = 1000;

/// The largest file below \a dirPath.
qint64 LargestFile(const QString &dirPath)
{
    qint64 largest = 0;
    QDirIterator files(dirPath, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        files.next();
        largest = qMax(largest, files.fileInfo().size());
    }
    return largest;
}

/// Reads the file into \a document, if \a memory has room for what it becomes.
bool Parse(const QString &path, unsigned int options, MemoryBudget &memory, pugi::xml_document &document)
{
    // A directory opens like a file on some systems, and claims any size.
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > MemoryBudget::kBytes)
        return false;
    const qint64 size = file.size();
    auto *content = static_cast<char *>(pugi::get_memory_allocation_function()(std::size_t(size) + 1));
    if (file.read(content, size) != size || !memory.TakePart(content, size)) {
        pugi::get_memory_deallocation_function()(content);
        return false;
    }
    return document.load_buffer_inplace_own(content, std::size_t(size), options, pugi::encoding_auto);
}

/// Reads the part at \a path; null, with a warning, if it cannot be read whole.
template <typename DocumentType>
std::shared_ptr<DocumentType> LoadPart(const QString &path, unsigned int options, MemoryBudget &memory)
{
    auto document = std::make_shared<DocumentType>();
    if (Parse(path, options, memory, *document) && IsOrdinary(*document))
        return document;
    qWarning() << "XlsxOperator::loadDocumentsFromXmls: "
               << "load_file failed, " << path;
    return nullptr;
}

/// Appends the parts in \a entries whose name begins with \a prefix to \a documents; false if one cannot be read.
template <typename DocumentType>
bool LoadParts(const QList<QFileInfo> &entries, const QString &prefix, QList<std::shared_ptr<pugi::xml_document>> &documents,
               MemoryBudget &memory)
{
    for (const QFileInfo &entry : entries) {
        if (!entry.fileName().startsWith(prefix))
            continue;
        const auto document = LoadPart<DocumentType>(entry.filePath(), pugi::parse_default, memory);
        if (!document)
            return false;
        documents.append(document);
    }
    return true;
}

/// Creates an empty table of shared strings; false, with a warning, if it cannot be written.
bool CreateSharedStrings(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        qWarning() << "XlsxOperator::loadDocumentsFromXmls: "
                   << "file.open failed, " << path;
        return false;
    }
    file.write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
               "<sst xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\">\n"
               "</sst>");
    return true;
}

/// Appends an element to the content types unless there is one of that name with that key.
void EnsureContentType(pugi::xml_document &types, const char *element, const char *key, const char *value, const char *contentType)
{
    bool exists = false;
    ForEachElement(types, [&](const pugi::xml_node &node) {
        exists = exists || (qstrcmp(node.name(), element) == 0 && qstrcmp(node.attribute(key).value(), value) == 0);
    });
    if (exists)
        return;
    pugi::xml_node made = types.document_element().append_child(element);
    made.append_attribute(key).set_value(value);
    made.append_attribute("ContentType").set_value(contentType);
}

/// Counts the references and cells of the names, so that no package makes more of them than the limits.
class PositionCount
{
public:
    explicit PositionCount(MemoryBudget &memory)
        : m_memory(memory)
    {
    }

    /// \a positions is what the name has already.
    void BeginName(int positions) { m_ofName = positions; }
    bool NameIsFull() const { return m_ofName >= kMostPositionsOfOneName || AllIsFull(); }
    bool AllIsFull() const { return m_ofAll >= kMostPositions; }
    /// A reference counts as one even if it names no cell. False, and counted as one, if there are more \a cells than may be.
    bool Take(qint64 cells)
    {
        const bool fits =
            m_ofName + cells <= kMostPositionsOfOneName && m_ofAll + cells <= kMostPositions && m_memory.Take(cells * kMemoryOfPosition);
        const qint64 counted = fits ? qMax<qint64>(1, cells) : 1;
        m_ofName += counted;
        m_ofAll += counted;
        return fits;
    }

private:
    MemoryBudget &m_memory;
    qint64 m_ofName = 0;
    qint64 m_ofAll = 0;
};

/// Tells names that QHash would search for long, or hold too many of.
class NameCount
{
public:
    explicit NameCount(MemoryBudget &memory)
        : m_memory(memory)
    {
    }

    /// False for one too many.
    bool Take(const QString &name)
    {
        return ++m_names[qHash(name, Hash(qGlobalQHashSeed()))] <= kMostNamesOfOneHash && m_memory.Take(kMemoryOfElement + 8 * name.size());
    }

private:
    using Hash = decltype(qHash(QString()));

    MemoryBudget &m_memory;
    std::map<Hash, int> m_names;
};

void WarnOfTooManyCells(const QString &reference)
{
    qWarning() << "XlsxOperator::loadCellNameToPosInfosHash: "
               << "too many cells, " << reference;
}

/// Of A to ZZ, from 0; any other name counts as A.
int ColumnIndex(const QString &name)
{
    const auto isLetter = [](QChar c) { return c >= QLatin1Char('A') && c <= QLatin1Char('Z'); };
    const auto number = [](QChar c) { return c.unicode() - 'A'; };
    if (name.size() == 1 && isLetter(name.at(0)))
        return number(name.at(0));
    if (name.size() == 2 && isLetter(name.at(0)) && isLetter(name.at(1)))
        return 26 + 26 * number(name.at(0)) + number(name.at(1));
    return 0;
}

/// A sheet name in apostrophes loses them only if it holds a blank: the writer quotes only for a blank, too.
QString UnquotedSheetName(const QString &name)
{
    const QLatin1Char apostrophe('\'');
    const bool quoted = name.startsWith(apostrophe) && name.endsWith(apostrophe) && name.contains(QLatin1Char(' '));
    return quoted ? name.mid(1, name.size() - 2) : name;
}

} // namespace

bool XlsxOperator::loadDocumentsFromXmls()
{
    // An entry is packed from the whole of its data, beside what is parsed.
    m_memory = std::make_shared<MemoryBudget>();
    m_memory->Take(2 * LargestFile(m_extractDirAbsolutePath));
    const auto workbookRels = LoadPart<RelationshipsDocument>(m_workbookRelsPath, pugi::parse_default, *m_memory);
    if (!workbookRels)
        return false;
    m_pWorkbookRelsDocument = workbookRels;
    if (!workbookRels->FindByTarget("sharedStrings.xml"))
        workbookRels->Append(kSharedStringsType, "sharedStrings.xml");

    if (!LoadParts<SheetDocument>(dirEntryInfoListWithNaturalSort(m_worksheetsDirPath), QStringLiteral("sheet"), m_sheetDocuments,
                                  *m_memory))
        return false;

    const auto workbook = LoadPart<WorkbookDocument>(m_workbookPath, pugi::parse_default, *m_memory);
    if (!workbook)
        return false;
    m_pWorkbookDocument = workbook;

    if (!QFile::exists(m_sharedStringsPath) && !CreateSharedStrings(m_sharedStringsPath))
        return false;
    // White space is kept and entities stay as they stand in the file.
    const auto sharedStrings = LoadPart<SharedStringsDocument>(m_sharedStringsPath, pugi::parse_ws_pcdata_single, *m_memory);
    if (!sharedStrings)
        return false;
    m_pSharedStringsDocument = sharedStrings;

    const auto contentTypes = LoadPart<pugi::xml_document>(m_contentTypesPath, pugi::parse_default, *m_memory);
    if (!contentTypes)
        return false;
    m_pContentTypesDocument = contentTypes;
    EnsureContentType(*contentTypes, "Default", "Extension", "jpeg", "image/jpeg");
    EnsureContentType(*contentTypes, "Default", "Extension", "png", "image/png");
    EnsureContentType(*contentTypes, "Override", "PartName", "/xl/sharedStrings.xml", kSharedStringsContentType);

    return LoadParts<RelationshipsDocument>(dirEntryInfoListWithNaturalSort(m_drawingsRelsDirPath), QStringLiteral("drawing"),
                                            m_drawingRelsDocuments, *m_memory)
        && LoadParts<DrawingDocument>(dirEntryInfoListWithNaturalSort(m_drawingsDirPath), QStringLiteral("drawing"), m_drawingDocuments,
                                      *m_memory);
}

void XlsxOperator::loadCellNameToPosInfosHash()
{
    PositionCount count(*m_memory);
    NameCount names(*m_memory);
    for (const pugi::xml_node &node : static_cast<WorkbookDocument &>(*m_pWorkbookDocument).DefinedNames()) {
        const QString name = TextOf(node.attribute("name").value());
        if (!m_elementNameFilterRegExp.match(name).hasMatch())
            continue;
        count.BeginName(int(m_cellNameToPosInfosHash.value(name).size()));

        // Not split at once: a name may be a list of millions.
        const QString text = TextOf(node.text().get());
        for (int begin = 0, end = 0; begin <= text.size(); begin = end + 1) {
            end = int(text.indexOf(QLatin1Char(','), begin));
            if (end < 0)
                end = int(text.size());
            const QString reference = text.mid(begin, end - begin);
            if (count.NameIsFull()) {
                WarnOfTooManyCells(reference);
                break;
            }

            if (reference.count(QLatin1Char('!')) != 1) {
                qWarning() << "XlsxOperator::loadCellNameToPosInfosHash: "
                           << "posSubStringList.size() != 2, " << reference;
                count.Take(0);
                continue;
            }
            const QStringList pieces = reference.split(QLatin1Char('!'));
            if (pieces.at(1).count(QLatin1Char(':')) > 1) {
                count.Take(0);
                continue;
            }
            const QStringList corners = pieces.at(1).split(QLatin1Char(':'));
            const bool isCell = corners.size() == 1;
            const QPair<int, QString> first = getRowColFromDollarPos(corners.first());
            const QPair<int, QString> last = isCell ? first : getRowColFromDollarPos(corners.last());
            const QStringList columns = isCell ? QStringList(first.second) : getColumnNames(first.second, last.second);

            const qint64 cells = qMax<qint64>(0, qint64(last.first) - first.first + 1) * columns.size();
            if (cells > 0 && !m_cellNameToPosInfosHash.contains(name) && !names.Take(name)) {
                qWarning() << "XlsxOperator::loadCellNameToPosInfosHash: "
                           << "too many names of one hash, " << name;
                break;
            }
            if (!count.Take(cells))
                WarnOfTooManyCells(reference);
            else if (cells > 0)
                appendPositions(m_cellNameToPosInfosHash[name], UnquotedSheetName(pieces.at(0)), first.first, last.first, columns);
        }
        if (count.AllIsFull())
            break;
    }
}

void XlsxOperator::appendPositions(QList<CellPosInfo> &infos, const QString &sheetName, int firstRow, int lastRow,
                                   const QStringList &columns)
{
    CellPosInfo info;
    info.sheetIndex = getSheetIndexFromWorkbookDocument(sheetName);
    info.sheetName = sheetName;
    for (qint64 row = firstRow; row <= lastRow; ++row) {
        info.row = int(row);
        for (const QString &column : columns) {
            info.column = column;
            info.position = column + QString::number(row);
            infos.append(info);
        }
    }
}

void XlsxOperator::loadDrawingNameToIDInfosHash()
{
    NameCount names(*m_memory);
    for (int i = 0; i < m_drawingDocuments.size(); ++i) {
        auto &drawing = static_cast<DrawingDocument &>(*m_drawingDocuments.at(i));
        for (const pugi::xml_node &picture : drawing.Pictures()) {
            const QString name = TextOf(DrawingDocument::NameOf(picture).constData());
            if (!m_elementNameFilterRegExp.match(name).hasMatch())
                continue;
            if (!m_drawingNameToIDInfosHash.contains(name) && !names.Take(name)) {
                qWarning() << "XlsxOperator::loadDrawingNameToIDInfosHash: "
                           << "too many names of one hash, " << name;
                continue;
            }
            DrawingIDInfo info;
            info.drawingIndex = i;
            info.relationshipId = TextOf(DrawingDocument::ImageOf(picture).attribute("r:embed").value());
            m_drawingNameToIDInfosHash[name].append(info);
        }
    }
}

void XlsxOperator::loadElementsValueFromDocuments()
{
    const auto warnOfTooMuchText = [](const QString &name) {
        qWarning() << "XlsxOperator::loadElementsValueFromDocuments: "
                   << "too much text, " << name;
    };
    const QStringList cellNames = m_cellNameToPosInfosHash.keys();
    for (const QString &name : cellNames) {
        const bool fits = takeTextOfCells(name);
        if (!fits)
            warnOfTooMuchText(name);
        m_elementsNameToValueHash[name] = fits ? getCellValueFromDocument(name) : QVariant();
    }
    // A name of both kinds ends as a picture.
    const QStringList drawingNames = m_drawingNameToIDInfosHash.keys();
    for (const QString &name : drawingNames) {
        const bool fits = takeTextOfPicture(name);
        if (!fits)
            warnOfTooMuchText(name);
        m_elementsNameToValueHash[name] = fits ? getDrawingValueFromDocument(name) : QVariant();
    }
}

void XlsxOperator::generateColumnNames()
{
    for (char letter = 'A'; letter <= 'Z'; ++letter)
        m_columnNames.append(QString(QLatin1Char(letter)));
    for (char first = 'A'; first <= 'Z'; ++first) {
        for (char second = 'A'; second <= 'Z'; ++second)
            m_columnNames.append(QStringLiteral("%1%2").arg(QLatin1Char(first)).arg(QLatin1Char(second)));
    }
}

QStringList XlsxOperator::getColumnNames(const QString &first, const QString &last)
{
    const int firstIndex = ColumnIndex(first);
    const int lastIndex = ColumnIndex(last);
    return m_columnNames.mid(firstIndex, lastIndex - firstIndex + 1);
}

QPair<int, QString> XlsxOperator::getRowColFromDollarPos(const QString &position)
{
    if (position.count(QLatin1Char('$')) != 2) {
        qWarning() << "XlsxOperator::getRowColFromDollarPos: "
                   << "posSubSubStringList.size() != 3, " << position;
        return {0, QString()}; // names no cell
    }
    const QStringList pieces = position.split(QLatin1Char('$'));
    return {pieces.at(2).toInt(), pieces.at(1)};
}

int XlsxOperator::getSheetIndexFromWorkbookDocument(const QString &sheetName)
{
    if (!m_pWorkbookDocument) {
        qWarning() << "XlsxOperator::getSheetIndexFromWorkbookDocument: "
                   << "m_pWorkbookDocument is nullptr";
        return -1;
    }
    const pugi::xml_node sheet = static_cast<WorkbookDocument &>(*m_pWorkbookDocument).FindSheet(sheetName.toUtf8());
    // By contract a template numbers its worksheets' relationships from rId1 in the order of the sheet files.
    return qMax(0, RelationshipNumber(sheet.attribute("r:id").value())) - 1;
}

} // namespace Velmora
