#include "xlsx/PackageDocuments_p.h"

#include <algorithm>
#include <cstring>
#include <random>
#include <utility>

namespace Velmora {

namespace {

constexpr int kShortRow = 64;
constexpr int kLongestRowLookedThrough = 256;
constexpr int kMostAttributes = 1000;
constexpr int kMostAttributesOfLightCell = 8; // programs write up to six
constexpr std::size_t kLongestReference = 1000;
constexpr int kMostChildrenOfCell = 1000;
constexpr int kRelationshipIdPrefix = 3; // "rId"

bool Is(const pugi::xml_node &node, const char *name)
{
    return std::strcmp(node.name(), name) == 0;
}

/// True if the element has more than \a count children, found without walking over them all.
bool HasMoreChildrenThan(const pugi::xml_node &node, int count)
{
    int steps = 0;
    for (pugi::xml_node child = node.first_child(); child && steps <= count; child = child.next_sibling())
        ++steps;
    return steps > count;
}

bool HasMoreAttributesThan(const pugi::xml_node &node, int count)
{
    int steps = 0;
    for (pugi::xml_attribute attribute = node.first_attribute(); attribute && steps <= count; attribute = attribute.next_attribute())
        ++steps;
    return steps > count;
}

/// True if the element's place among its siblings takes long to read.
bool HasLongReference(const pugi::xml_node &node)
{
    return strnlen(node.attribute("r").value(), kLongestReference + 1) > kLongestReference;
}

bool IsOrdinaryElement(const pugi::xml_node &node, bool isLookedInto)
{
    return !HasMoreAttributesThan(node, kMostAttributes) && !(isLookedInto && HasMoreChildrenThan(node, kMostChildrenOfCell));
}

/// The digits at the end of a cell's reference.
const char *RowOf(std::string_view position)
{
    const char *begin = position.data() + position.size();
    while (begin != position.data() && begin[-1] >= '0' && begin[-1] <= '9')
        --begin;
    return begin;
}

bool IsDigits(const char *text)
{
    return *text && !*(text + std::strspn(text, "0123456789"));
}

} // namespace

// --- SheetDocument ---

SheetDocument::Index &SheetDocument::TheIndex()
{
    if (m_index)
        return *m_index;
    m_index = std::make_unique<Index>();
    Index &index = *m_index;
    pugi::xml_node row; // that of the cells at hand
    const char *rowNumber = "";
    ForEachElement(*this, [&](const pugi::xml_node &node) {
        const char *name = node.name();
        const auto is = [name](const char *other) { return std::strcmp(name, other) == 0; };
        const bool isCell = name[0] == 'c' && name[1] == '\0';
        const bool isValidation = name[0] == 'd' && is("dataValidation");
        index.isOrdinary = index.isOrdinary && IsOrdinaryElement(node, isCell || isValidation) && !HasLongReference(node);
        if (isCell) {
            if (HasMoreAttributesThan(node, kMostAttributesOfLightCell))
                index.cellsAreLight = index.cellsLieInTheirRows = false;
            const char *position = node.attribute("r").value();
            if (*position && (node.parent() != row || std::strcmp(RowOf(position), rowNumber) != 0))
                index.cellsLieInTheirRows = false;
        } else if (is("row")) {
            row = node;
            rowNumber = node.attribute("r").value();
            if (!index.rows.InsertIfAbsent(node) || !IsDigits(rowNumber) || HasMoreChildrenThan(node, kLongestRowLookedThrough))
                index.cellsLieInTheirRows = false;
        } else if (isValidation) {
            if (std::strcmp(node.attribute("type").value(), "list") == 0)
                index.listValidations.InsertIfAbsent(node);
        } else if (!index.sheetData && is("sheetData")) {
            index.sheetData = node;
        } else if (!index.dataValidations && is("dataValidations")) {
            index.dataValidations = node;
        } else if (!index.worksheet && is("worksheet")) {
            index.worksheet = node;
        }
    });
    index.pageMargins = index.worksheet.child("pageMargins");
    if (!index.cellsLieInTheirRows)
        IndexAllCells();
    return index;
}

void SheetDocument::IndexAllCells()
{
    m_index->cellsLieInTheirRows = false;
    ForEachElement(*this, [this](const pugi::xml_node &node) {
        if (Is(node, "c"))
            m_index->cells.InsertIfAbsent(node);
    });
}

pugi::xml_node SheetDocument::FindCell(const QByteArray &position)
{
    Index &index = TheIndex();
    if (!index.cellsLieInTheirRows)
        return index.cells.Find(position);
    const pugi::xml_node row = index.rows.Find(RowOf(position.constData()));
    for (const pugi::xml_node &cell : row.children("c")) {
        if (std::strcmp(cell.attribute("r").value(), position.constData()) == 0)
            return cell;
    }
    return pugi::xml_node();
}

RisingSiblings<int> &SheetDocument::RisingRows()
{
    Index &index = TheIndex();
    if (!index.risingRows) {
        index.risingRows = std::make_unique<RisingSiblings<int>>();
        for (const pugi::xml_node &row : index.sheetData.children("row"))
            index.risingRows->Append(row.attribute("r").as_int(), row);
    }
    return *index.risingRows;
}

pugi::xml_node SheetDocument::MakeRow(int row)
{
    Index &index = TheIndex();
    RisingSiblings<int> &risingRows = RisingRows();
    pugi::xml_node &data = index.sheetData;
    pugi::xml_node made;
    if (risingRows.IsEmpty() || data.last_child().attribute("r").as_int() < row) {
        made = data.append_child("row");
        if (made)
            risingRows.Append(row, made);
    } else if (const pugi::xml_node above = risingRows.FirstAbove(row)) {
        made = data.insert_child_before("row", above);
        risingRows.Insert(row, made);
    }
    if (made) {
        made.append_attribute("r").set_value(row);
        index.rows.InsertIfAbsent(made);
    }
    return made;
}

RisingSiblings<std::string> &SheetDocument::RisingCells(const pugi::xml_node &row)
{
    const auto [place, isNew] = TheIndex().risingCells.try_emplace(row.hash_value());
    if (isNew) {
        for (const pugi::xml_node &cell : row.children("c"))
            place->second.Append(cell.attribute("r").value(), cell);
    }
    return place->second;
}

pugi::xml_node SheetDocument::MakeCellInRow(pugi::xml_node row, const char *position)
{
    // A short row is looked through anew each time; what would cost with every cell of a long one is done once.
    if (!TheIndex().cellsAreLight || HasMoreChildrenThan(row, kShortRow)) {
        RisingSiblings<std::string> &cells = RisingCells(row);
        pugi::xml_node made;
        if (cells.IsEmpty() || std::strcmp(position, row.last_child().attribute("r").value()) > 0) {
            made = row.append_child("c");
            cells.Append(position, made);
        } else if (const pugi::xml_node above = cells.FirstAbove(position)) {
            made = row.insert_child_before("c", above);
            cells.Insert(position, made);
        }
        return made;
    }
    if (!row.child("c") || std::strcmp(position, row.last_child().attribute("r").value()) > 0)
        return row.append_child("c");
    for (const pugi::xml_node &cell : row.children("c")) {
        if (std::strcmp(cell.attribute("r").value(), position) > 0)
            return row.insert_child_before("c", cell);
    }
    return pugi::xml_node();
}

pugi::xml_node SheetDocument::MakeCell(int row, const QByteArray &position)
{
    Index &index = TheIndex();
    pugi::xml_node parent = index.rows.Find(QByteArray::number(row));
    if (!parent)
        parent = MakeRow(row);
    pugi::xml_node made;
    if (parent)
        made = MakeCellInRow(parent, position.constData());
    if (made) {
        made.append_attribute("r").set_value(position.constData());
        made.append_child("v");
        if (!index.cellsLieInTheirRows)
            index.cells.InsertIfAbsent(made);
        else if (std::strcmp(RowOf(position.constData()), parent.attribute("r").value()) != 0
                 || HasMoreChildrenThan(parent, kLongestRowLookedThrough))
            IndexAllCells();
    }
    return made;
}

pugi::xml_node SheetDocument::FindListValidation(const QByteArray &position)
{
    return TheIndex().listValidations.Find(position);
}

pugi::xml_node SheetDocument::MakeListValidation(const QByteArray &position)
{
    Index &index = TheIndex();
    if (!index.dataValidations && index.pageMargins)
        index.dataValidations = index.worksheet.insert_child_before("dataValidations", index.pageMargins);
    pugi::xml_node made = index.dataValidations.append_child("dataValidation");
    made.append_attribute("type").set_value("list");
    made.append_attribute("allowBlank").set_value(1);
    made.append_attribute("showInputMessage").set_value(1);
    made.append_attribute("showErrorMessage").set_value(1);
    made.append_attribute("sqref").set_value(position.constData());
    made.append_child("formula1");
    if (made)
        index.listValidations.InsertIfAbsent(made);
    return made;
}

// --- SharedStringsDocument ---

SharedStringsDocument::Index &SharedStringsDocument::TheIndex()
{
    if (m_index)
        return *m_index;
    m_index = std::make_unique<Index>();
    Index &index = *m_index;
    ForEachElement(*this, [&index](const pugi::xml_node &node) {
        if (Is(node, "si")) {
            const char *text = node.child_value("t");
            index.firstOfText.InsertIfAbsent({text, int(index.texts.size())});
            index.texts.push_back(text);
        } else if (!index.table && Is(node, "sst")) {
            index.table = node;
        }
    });
    return index;
}

const char *SharedStringsDocument::TextAt(int index)
{
    const std::vector<const char *> &texts = TheIndex().texts;
    return index >= 0 && std::size_t(index) < texts.size() ? texts[std::size_t(index)] : nullptr;
}

int SharedStringsDocument::IndexOf(const QByteArray &text)
{
    Index &index = TheIndex();
    if (const Item found = index.firstOfText.Find(text.constData()))
        return found.index;
    const int next = int(index.texts.size());
    pugi::xml_node node = index.table.append_child("si");
    node.append_child("t").text().set(text.constData());
    if (node) {
        const char *ownText = node.child_value("t");
        index.firstOfText.InsertIfAbsent({ownText, next});
        index.texts.push_back(ownText);
    }
    return next;
}

// --- WorkbookDocument ---

WorkbookDocument::Index &WorkbookDocument::TheIndex()
{
    if (m_index)
        return *m_index;
    m_index = std::make_unique<Index>();
    Index &index = *m_index;
    ForEachElement(*this, [&index](const pugi::xml_node &node) {
        if (Is(node, "sheet")) {
            index.sheets.InsertIfAbsent(node);
        } else if (Is(node, "definedName")) {
            index.definedNames.InsertIfAbsent(node);
            index.allDefinedNames.push_back(node);
        }
    });
    return index;
}

pugi::xml_node WorkbookDocument::FindSheet(const QByteArray &name)
{
    return TheIndex().sheets.Find(name);
}

pugi::xml_node WorkbookDocument::FindDefinedName(const QByteArray &name)
{
    return TheIndex().definedNames.Find(name);
}

const std::vector<pugi::xml_node> &WorkbookDocument::DefinedNames()
{
    return TheIndex().allDefinedNames;
}

void WorkbookDocument::AppendDefinedName(const QByteArray &name, const QByteArray &text)
{
    Index &index = TheIndex();
    pugi::xml_node workbook = child("workbook");
    pugi::xml_node names = workbook.child("definedNames");
    if (!names)
        names = workbook.insert_child_after("definedNames", workbook.child("sheets"));
    pugi::xml_node made = names.append_child("definedName");
    made.append_attribute("name").set_value(name.constData());
    made.text().set(text.constData());
    if (made) {
        index.definedNames.InsertIfAbsent(made);
        index.allDefinedNames.push_back(made);
    }
}

// --- RelationshipsDocument ---

RelationshipsDocument::Index &RelationshipsDocument::TheIndex()
{
    if (m_index)
        return *m_index;
    m_index = std::make_unique<Index>();
    Index &index = *m_index;
    ForEachElement(*this, [&index](const pugi::xml_node &node) {
        if (Is(node, "Relationship")) {
            index.ids.InsertIfAbsent(node);
            index.targets.InsertIfAbsent(node);
        } else if (!index.root && Is(node, "Relationships")) {
            index.root = node;
        }
    });
    for (const pugi::xml_node &relationship : index.root.children("Relationship")) {
        index.hasRelationships = true;
        index.highestNumber = std::max<qint64>(index.highestNumber, RelationshipNumber(relationship.attribute("Id").value()));
    }
    return index;
}

pugi::xml_node RelationshipsDocument::FindById(const QByteArray &id)
{
    return TheIndex().ids.Find(id);
}

pugi::xml_node RelationshipsDocument::FindByTarget(const QByteArray &target)
{
    return TheIndex().targets.Find(target);
}

bool RelationshipsDocument::HasRelationships()
{
    return TheIndex().hasRelationships;
}

pugi::xml_node RelationshipsDocument::Append(const char *type, const QByteArray &target)
{
    Index &index = TheIndex();
    pugi::xml_node made = index.root.append_child("Relationship");
    if (!made)
        return made;
    // Numbers that do not count, such as those beyond 32 bits, are taken all the same.
    QByteArray id;
    do {
        id = "rId" + QByteArray::number(++index.highestNumber);
    } while (index.ids.Find(id));
    index.hasRelationships = true;
    made.append_attribute("Id").set_value(id.constData());
    made.append_attribute("Type").set_value(type);
    made.append_attribute("Target").set_value(target.constData());
    index.ids.InsertIfAbsent(made);
    index.targets.InsertIfAbsent(made);
    return made;
}

// --- DrawingDocument ---

QByteArray DrawingDocument::NameOf(const pugi::xml_node &picture)
{
    return QByteArray(picture.child("xdr:nvPicPr").child("xdr:cNvPr").attribute("name").value());
}

pugi::xml_node DrawingDocument::ImageOf(const pugi::xml_node &picture)
{
    return picture.child("xdr:blipFill").child("a:blip");
}

DrawingDocument::Index &DrawingDocument::TheIndex()
{
    if (m_index)
        return *m_index;
    m_index = std::make_unique<Index>();
    Index &index = *m_index;
    ForEachElement(*this, [&index](const pugi::xml_node &node) {
        if (!Is(node, "xdr:pic"))
            return;
        index.pictures.push_back(node);
        for (const pugi::xml_node &properties : node.children("xdr:nvPicPr")) {
            for (const pugi::xml_node &common : properties.children("xdr:cNvPr")) {
                if (!common.attribute("name"))
                    continue;
                std::vector<pugi::xml_node> &named = index.byName[QByteArray(common.attribute("name").value())];
                if (named.empty() || named.back() != node)
                    named.push_back(node);
            }
        }
    });
    return index;
}

const std::vector<pugi::xml_node> &DrawingDocument::Pictures()
{
    return TheIndex().pictures;
}

std::vector<pugi::xml_node> DrawingDocument::PicturesNamed(const QByteArray &name)
{
    const Index &index = TheIndex();
    const auto found = index.byName.find(name);
    return found == index.byName.end() ? std::vector<pugi::xml_node>() : found->second;
}

// --- Free functions ---

std::size_t KeyedHash(std::string_view text)
{
    // A polynomial at two secret places, over the integers modulo a prime: two texts meet for few of the places.
    constexpr quint64 kPrime = 0x7fffffff;
    static const std::pair<quint64, quint64> places = [] {
        std::random_device random;
        return std::pair<quint64, quint64>(1 + random() % (kPrime - 1), 1 + random() % (kPrime - 1));
    }();
    const auto reduced = [](quint64 product) { return (product & kPrime) + (product >> 31); };
    quint64 first = 1;
    quint64 second = 1;
    for (const char c : text) {
        const quint64 digit = quint64(uchar(c)) + 1;
        first = reduced((first + digit) * places.first);
        second = reduced((second + digit) * places.second);
    }
    // Neighbours are spread, as probing wants it.
    quint64 hash = (first << 32) ^ second;
    hash = (hash ^ (hash >> 31)) * 0x9e3779b97f4a7c15U;
    return std::size_t(hash ^ (hash >> 29));
}

int RelationshipNumber(const char *id)
{
    return TextOf(id).mid(kRelationshipIdPrefix).toInt();
}

bool IsOrdinary(const pugi::xml_document &document)
{
    bool ordinary = true;
    ForEachElement(document, [&ordinary](const pugi::xml_node &node) {
        ordinary = ordinary && IsOrdinaryElement(node, Is(node, "c") || Is(node, "dataValidation"));
    });
    return ordinary;
}

bool IsOrdinary(SheetDocument &document)
{
    return document.IsOrdinary();
}

QString TextOf(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace Velmora
