#include "xlsx/PackageDocuments_p.h"

#include <QHashFunctions>

#include <algorithm>
#include <cstring>

namespace Velmora {

namespace {

constexpr std::size_t kFirstSlots = 64;
constexpr int kRelationshipIdPrefix = 3; // "rId"

bool Is(const pugi::xml_node &node, const char *name)
{
    return std::strcmp(node.name(), name) == 0;
}

} // namespace

// --- NodesByAttribute ---

std::size_t NodesByAttribute::SlotOf(const char *value) const
{
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = qHashBits(value, std::strlen(value)) & mask;
    while (m_slots[slot] && std::strcmp(m_slots[slot].attribute(m_attribute).value(), value) != 0)
        slot = (slot + 1) & mask;
    return slot;
}

void NodesByAttribute::Grow()
{
    std::vector<pugi::xml_node> old(std::max(kFirstSlots, m_slots.size() * 2));
    old.swap(m_slots);
    for (const pugi::xml_node &node : old) {
        if (node)
            m_slots[SlotOf(node.attribute(m_attribute).value())] = node;
    }
}

void NodesByAttribute::InsertIfAbsent(const pugi::xml_node &node)
{
    const pugi::xml_attribute attribute = node.attribute(m_attribute);
    if (!attribute)
        return;
    // At most two thirds full, so that probing stays short.
    if (m_used * 3 >= m_slots.size() * 2)
        Grow();
    pugi::xml_node &slot = m_slots[SlotOf(attribute.value())];
    if (!slot) {
        slot = node;
        ++m_used;
    }
}

pugi::xml_node NodesByAttribute::Find(const char *value) const
{
    return m_slots.empty() ? pugi::xml_node() : m_slots[SlotOf(value)];
}

// --- SheetDocument ---

SheetDocument::Index &SheetDocument::TheIndex()
{
    if (m_index)
        return *m_index;
    Index &index = m_index.emplace();
    bool first = true;
    int highest = 0;
    ForEachElement(*this, [&](const pugi::xml_node &node) {
        if (Is(node, "c")) {
            index.cells.InsertIfAbsent(node);
        } else if (Is(node, "row")) {
            index.rows.InsertIfAbsent(node);
        } else if (Is(node, "dataValidation")) {
            if (std::strcmp(node.attribute("type").value(), "list") == 0)
                index.listValidations.InsertIfAbsent(node);
        } else if (!index.sheetData && Is(node, "sheetData")) {
            index.sheetData = node;
        } else if (!index.dataValidations && Is(node, "dataValidations")) {
            index.dataValidations = node;
        } else if (!index.worksheet && Is(node, "worksheet")) {
            index.worksheet = node;
        }
    });
    for (const pugi::xml_node &row : index.sheetData.children("row")) {
        const int number = row.attribute("r").as_int();
        if (first || number > highest) {
            index.risingRows.emplace(number, row);
            highest = number;
            first = false;
        }
    }
    return index;
}

pugi::xml_node SheetDocument::FindCell(const QByteArray &position)
{
    return TheIndex().cells.Find(position.constData());
}

pugi::xml_node SheetDocument::MakeRow(int row)
{
    Index &index = TheIndex();
    pugi::xml_node &data = index.sheetData;
    pugi::xml_node made;
    // The map's keys rise with the order of their rows, so its last one is the highest number of all.
    bool rises = true;
    if (!data.child("row") || data.last_child().attribute("r").as_int() < row) {
        made = data.append_child("row");
        rises = index.risingRows.empty() || index.risingRows.rbegin()->first < row;
    } else {
        const auto above = index.risingRows.upper_bound(row);
        if (above != index.risingRows.end())
            made = data.insert_child_before("row", above->second);
    }
    if (!made)
        return made;
    made.append_attribute("r").set_value(row);
    index.rows.InsertIfAbsent(made);
    if (rises)
        index.risingRows.emplace(row, made);
    return made;
}

pugi::xml_node SheetDocument::MakeCell(int row, const QByteArray &position)
{
    Index &index = TheIndex();
    pugi::xml_node parent = index.rows.Find(QByteArray::number(row).constData());
    if (!parent)
        parent = MakeRow(row);

    const auto exceeds = [&](const pugi::xml_node &cell) { return std::strcmp(cell.attribute("r").value(), position.constData()) > 0; };
    pugi::xml_node made;
    if (!parent.child("c") || std::strcmp(position.constData(), parent.last_child().attribute("r").value()) > 0) {
        made = parent.append_child("c");
    } else {
        for (const pugi::xml_node &cell : parent.children("c")) {
            if (exceeds(cell)) {
                made = parent.insert_child_before("c", cell);
                break;
            }
        }
    }
    made.append_attribute("r").set_value(position.constData());
    made.append_child("v");
    if (made)
        index.cells.InsertIfAbsent(made);
    return made;
}

pugi::xml_node SheetDocument::FindListValidation(const QByteArray &position)
{
    return TheIndex().listValidations.Find(position.constData());
}

pugi::xml_node SheetDocument::MakeListValidation(const QByteArray &position)
{
    Index &index = TheIndex();
    if (!index.dataValidations) {
        const pugi::xml_node margins = index.worksheet.child("pageMargins");
        if (margins)
            index.dataValidations = index.worksheet.insert_child_before("dataValidations", margins);
    }
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
    Index &index = m_index.emplace();
    ForEachElement(*this, [&index](const pugi::xml_node &node) {
        if (Is(node, "si")) {
            const QByteArray text(node.child_value("t"));
            if (!index.firstOfText.contains(text))
                index.firstOfText.insert(text, int(index.items.size()));
            index.items.push_back(node);
        } else if (!index.table && Is(node, "sst")) {
            index.table = node;
        }
    });
    return index;
}

const char *SharedStringsDocument::TextAt(int index)
{
    const std::vector<pugi::xml_node> &items = TheIndex().items;
    return index >= 0 && std::size_t(index) < items.size() ? items[std::size_t(index)].child_value("t") : nullptr;
}

int SharedStringsDocument::IndexOf(const QByteArray &text)
{
    Index &index = TheIndex();
    const auto found = index.firstOfText.constFind(text);
    if (found != index.firstOfText.cend())
        return *found;
    const int next = int(index.items.size());
    pugi::xml_node item = index.table.append_child("si");
    item.append_child("t").text().set(text.constData());
    if (item) {
        index.items.push_back(item);
        index.firstOfText.insert(text, next);
    }
    return next;
}

// --- WorkbookDocument ---

WorkbookDocument::Index &WorkbookDocument::TheIndex()
{
    if (m_index)
        return *m_index;
    Index &index = m_index.emplace();
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
    return TheIndex().sheets.Find(name.constData());
}

pugi::xml_node WorkbookDocument::FindDefinedName(const QByteArray &name)
{
    return TheIndex().definedNames.Find(name.constData());
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
    Index &index = m_index.emplace();
    ForEachElement(*this, [&index](const pugi::xml_node &node) {
        if (Is(node, "Relationship")) {
            index.ids.InsertIfAbsent(node);
            index.targets.InsertIfAbsent(node);
        } else if (!index.root && Is(node, "Relationships")) {
            index.root = node;
        }
    });
    for (const pugi::xml_node &relationship : index.root.children("Relationship"))
        index.highestNumber = std::max<qint64>(index.highestNumber, RelationshipNumber(relationship.attribute("Id").value()));
    return index;
}

pugi::xml_node RelationshipsDocument::FindById(const QByteArray &id)
{
    return TheIndex().ids.Find(id.constData());
}

pugi::xml_node RelationshipsDocument::FindByTarget(const QByteArray &target)
{
    return TheIndex().targets.Find(target.constData());
}

bool RelationshipsDocument::HasRelationships()
{
    return bool(TheIndex().root.child("Relationship"));
}

pugi::xml_node RelationshipsDocument::Append(const char *type, const QByteArray &target)
{
    Index &index = TheIndex();
    pugi::xml_node made = index.root.append_child("Relationship");
    if (!made)
        return made;
    const QByteArray id = "rId" + QByteArray::number(++index.highestNumber);
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
    Index &index = m_index.emplace();
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
    return TheIndex().byName.value(name);
}

// --- Free functions ---

int RelationshipNumber(const char *id)
{
    return TextOf(id).mid(kRelationshipIdPrefix).toInt();
}

QString TextOf(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace Velmora
