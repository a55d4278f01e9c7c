#include <Velmora/XlsxOperator.h>

#include "xlsx/MemoryBudget_p.h"
#include "xlsx/PackageDocuments_p.h"

#include <QDebug>

#include <optional>

namespace Velmora {

namespace {

bool NamesACell(const XlsxOperator::CellPosInfo &info)
{
    return info.row >= 1 && !info.column.isEmpty();
}

SheetDocument *SheetOf(const QList<std::shared_ptr<pugi::xml_document>> &sheets, const XlsxOperator::CellPosInfo &info)
{
    return static_cast<SheetDocument *>(sheets.value(info.sheetIndex).get());
}

pugi::xml_node EnsureChild(pugi::xml_node node, const char *name)
{
    const pugi::xml_node child = node.child(name);
    return child ? child : node.append_child(name);
}

bool IsNumber(int type)
{
    return type == QMetaType::Int || type == QMetaType::UInt || type == QMetaType::LongLong || type == QMetaType::ULongLong
        || type == QMetaType::Double;
}

} // namespace

// --- Cells ---

QVariant XlsxOperator::getCellValue(const QString &name)
{
    return m_elementsNameToValueHash[name];
}

void XlsxOperator::setCellsValue(const QString &name, const QVariant &value)
{
    m_elementsNameToValueHash[name] = value;
}

bool XlsxOperator::setCellValue(const QString &sheetName, int row, const QString &column, const QString &name, const QVariant &value)
{
    auto *workbook = static_cast<WorkbookDocument *>(m_pWorkbookDocument.get());
    if (!workbook || !workbook->FindSheet(sheetName.toUtf8())) {
        qWarning() << "XlsxOperator::setCellValue: "
                   << "sheetName is error";
        return false;
    }
    appendDefinedNameNodeToWorkbookDocument(sheetName, row, column, name);
    setCellsValue(name, value);
    return true;
}

QVariant XlsxOperator::getCellValueFromDocument(const QString &name)
{
    // Only the first position of a name is read.
    QList<pugi::xml_node> cells;
    getCNodesFromSheetDocument(cells, name, false);
    QList<pugi::xml_node> validations;
    getDataValidationNodesFromSheetDocument(validations, name, false);

    QVariant value = getCellValueFromNode(cells.value(0));
    const pugi::xml_node validation = validations.value(0);
    if (!validation)
        return value;
    DropDownInfo info;
    info.value = value;
    info.options = getCellDropDownOptionsFromNode(validation);
    return QVariant::fromValue(info);
}

QVariant XlsxOperator::getCellValueFromNode(const pugi::xml_node &node)
{
    const pugi::xml_attribute type = node.attribute("t");
    const pugi::xml_node content = node.child("v");
    const QString text = TextOf(content.text().get());
    if (!type) {
        if (text.isEmpty())
            return QVariant();
        return text.contains(QLatin1Char('.')) ? QVariant(text.toDouble()) : QVariant(text.toLongLong());
    }
    if (qstrcmp(type.value(), "s") != 0 || !content || !m_pSharedStringsDocument)
        return QVariant();
    const char *shared = static_cast<SharedStringsDocument &>(*m_pSharedStringsDocument).TextAt(text.toInt());
    return shared ? QVariant(TextOf(shared)) : QVariant();
}

bool XlsxOperator::takeTextOfCells(const QString &name)
{
    const QList<CellPosInfo> infos = m_cellNameToPosInfosHash.value(name);
    const CellPosInfo first = infos.value(0);
    pugi::xml_node cell;
    getCNodeFromSheetDocument(cell, first, false);
    const char *content = cell.child("v").text().get();
    if (!m_memory->TakeText(content, 1))
        return false;
    if (m_pSharedStringsDocument && qstrcmp(cell.attribute("t").value(), "s") == 0) {
        const char *text = static_cast<SharedStringsDocument &>(*m_pSharedStringsDocument).TextAt(TextOf(content).toInt());
        // Every cell gets a formula of its own, but all the same string.
        if (text && !m_memory->TakeText(text, isFormula(QString(QLatin1Char(*text))) ? infos.size() : 1))
            return false;
    }
    pugi::xml_node validation;
    if (SheetOf(m_sheetDocuments, first))
        getDataValidationNodeFromSheetDocument(validation, first, false);
    return !validation || m_memory->TakeText(validation.child("formula1").text().get(), infos.size());
}

void XlsxOperator::getCNodesFromSheetDocument(QList<pugi::xml_node> &nodes, const QString &name, bool create)
{
    const QList<CellPosInfo> infos = m_cellNameToPosInfosHash[name];
    nodes.reserve(infos.size());
    for (const CellPosInfo &info : infos) {
        pugi::xml_node node;
        getCNodeFromSheetDocument(node, info, create);
        nodes.append(node);
    }
}

void XlsxOperator::getCNodeFromSheetDocument(pugi::xml_node &node, const CellPosInfo &info, bool create)
{
    SheetDocument *sheet = SheetOf(m_sheetDocuments, info);
    if (!sheet || !NamesACell(info))
        return;
    const QByteArray position = info.position.toUtf8();
    node = sheet->FindCell(position);
    if (!node && create)
        node = sheet->MakeCell(info.row, position);
}

int XlsxOperator::getSiNodeIndexFromSharedStringsDocument(const QString &text)
{
    if (!m_pSharedStringsDocument) {
        qWarning() << "XlsxOperator::getSiNodeIndexFromSharedStringsDocument: "
                   << "m_pSharedStringsDocument is nullptr";
        return -1;
    }
    return static_cast<SharedStringsDocument &>(*m_pSharedStringsDocument).IndexOf(text.toUtf8());
}

void XlsxOperator::saveCellsValue(const QString &name, const QVariant &value)
{
    const QVariant content = value.canConvert<DropDownInfo>() ? value.value<DropDownInfo>().value : value;
    QList<pugi::xml_node> cells;
    getCNodesFromSheetDocument(cells, name, true);
    const bool isText = content.userType() == QMetaType::QString;
    const QString text = isText ? content.toString() : QString();
    const bool isFormulaText = isText && isFormula(text);
    const QByteArray formula = isFormulaText ? text.toUtf8() : QByteArray();
    std::optional<int> sharedString; // looked up with the first cell that takes it
    for (pugi::xml_node &cell : cells) {
        if (!cell)
            continue;
        if (IsNumber(content.userType())) {
            cell.remove_attribute("t");
            // Every number converts to an integer, and so a fraction is rounded.
            EnsureChild(cell, "v").text().set(content.toLongLong());
        } else if (isFormulaText) {
            EnsureChild(cell, "f").text().set(formula.constData());
        } else if (isText) {
            if (!sharedString || *sharedString < 0)
                sharedString = getSiNodeIndexFromSharedStringsDocument(text);
            pugi::xml_attribute type = cell.attribute("t");
            if (!type)
                type = cell.append_attribute("t");
            type.set_value("s");
            EnsureChild(cell, "v").text().set(*sharedString);
        }
    }
}

bool XlsxOperator::isFormula(const QString &text)
{
    // The texts that match "^[A-Za-z]+(\\([^\\)]*\\)|[A-Za-z0-9_]+)?(.*)$", found without the backtracking that takes cubic time on
    // a text of a package: they begin with an ASCII letter and have no line feed but as the last character or in an argument list
    // that follows the first letters at once.
    const auto isLetter = [](QChar c) {
        return (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) || (c >= QLatin1Char('a') && c <= QLatin1Char('z'));
    };
    const auto isOneLine = [&text](QString::size_type from) {
        const auto lineFeed = text.indexOf(QLatin1Char('\n'), from);
        return lineFeed < 0 || lineFeed == text.size() - 1;
    };
    QString::size_type letters = 0;
    while (letters < text.size() && isLetter(text.at(letters)))
        ++letters;
    if (letters == 0 || !text.isValidUtf16()) // an expression matches no text that is none
        return false;
    if (isOneLine(letters))
        return true;
    const auto closing = text.indexOf(QLatin1Char(')'), letters);
    return text.at(letters) == QLatin1Char('(') && closing >= 0 && isOneLine(closing + 1);
}

// --- Drop-down lists ---

void XlsxOperator::getCellDropDownInfo(const QString &name, DropDownInfo &info)
{
    const QVariant value = getCellValue(name);
    if (value.canConvert<DropDownInfo>())
        info = value.value<DropDownInfo>();
}

void XlsxOperator::setCellsDropDownInfo(const QString &name, const DropDownInfo &info)
{
    m_elementsNameToValueHash[name] = QVariant::fromValue(info);
}

bool XlsxOperator::setCellsDropDownInfo(const QString &sheetName, int row, const QString &column, const QString &name,
                                        const DropDownInfo &info)
{
    return setCellValue(sheetName, row, column, name, QVariant::fromValue(info));
}

void XlsxOperator::getDataValidationNodesFromSheetDocument(QList<pugi::xml_node> &nodes, const QString &name, bool create)
{
    const QList<CellPosInfo> infos = m_cellNameToPosInfosHash[name];
    nodes.reserve(infos.size());
    for (const CellPosInfo &info : infos) {
        pugi::xml_node node;
        getDataValidationNodeFromSheetDocument(node, info, create);
        nodes.append(node);
    }
}

void XlsxOperator::getDataValidationNodeFromSheetDocument(pugi::xml_node &node, const CellPosInfo &info, bool create)
{
    SheetDocument *sheet = SheetOf(m_sheetDocuments, info);
    if (!sheet) {
        qWarning() << "XlsxOperator::getDataValidationNodeFromSheetDocument: "
                   << "pSheetDocument is nullptr, " << info.position;
        return;
    }
    if (!NamesACell(info))
        return;
    const QByteArray position = info.position.toUtf8();
    node = sheet->FindListValidation(position);
    if (!node && create)
        node = sheet->MakeListValidation(position);
}

QStringList XlsxOperator::getCellDropDownOptionsFromNode(const pugi::xml_node &node)
{
    const pugi::xml_node list = node.child("formula1");
    if (qstrcmp(node.attribute("type").value(), "list") != 0 || !list)
        return QStringList();
    return TextOf(list.text().get()).remove(QLatin1Char('"')).split(QLatin1Char(','));
}

void XlsxOperator::saveCellsDropDownOptions(const QString &name, const QVariant &value)
{
    // A plain value leaves an existing list alone.
    if (!value.canConvert<DropDownInfo>())
        return;
    const QByteArray list = QStringLiteral("\"%1\"").arg(value.value<DropDownInfo>().options.join(QLatin1Char(','))).toUtf8();
    QList<pugi::xml_node> validations;
    getDataValidationNodesFromSheetDocument(validations, name, true);
    for (pugi::xml_node &validation : validations)
        validation.child("formula1").text().set(list.constData());
}

} // namespace Velmora
