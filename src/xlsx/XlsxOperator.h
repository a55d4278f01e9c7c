#pragma once

#include <Velmora/VelmoraExport.h>

#include <QFileInfo>
#include <QHash>
#include <QList>
#include <QMetaType>
#include <QPair>
#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

namespace pugi {
class xml_document;
class xml_node;
} // namespace pugi

namespace Velmora {

class MemoryBudget;

/// Fills in prepared spreadsheet templates (Office Open XML workbooks, ECMA-376 transitional).
///
/// An element is a named place of the template: a defined name, which names cells, or a named picture. Set the paths,
/// load(), change values by name, save(). An object serves one template: a second load() appends behind the first.
/// All operations block; one thread at a time; no application object is needed. What fails is reported in
/// one warning each.
///
/// XlsxTemplate fills in any workbook and writes values as they are. This class has rules of its own, which change data that a host may
/// not think of:
/// - save() writes every element that was loaded, also those that nobody set: all cells of a name get the value of its first, texts
///   that begin with a letter become formulas, decimals integers. The default filter takes every name, print areas too: set one that
///   matches exactly the names to fill.
/// - A text that begins with an ASCII letter becomes a formula. One that comes from a stranger may read other cells, other files or
///   addresses of a network once it is opened: do not set such texts.
/// - A cell keeps its formula beside a new value, and no formula is calculated anew: results that other cells show are old ones.
/// - Each load() and save() adds a level to the entities of every string of the workbook: R&D, R&amp;D, R&amp;amp;D.
/// - An image whose file lies in the package already, below xl/media of the working directory, is removed by save() and its picture
///   left without one; one of the same file name is overwritten, for all pictures that show it.
/// - setCellValue() writes the name of a sheet with a blank without apostrophes when it makes a name, which office programs take for
///   a damaged one.
/// - Columns beyond ZZ count as A in ranges.
/// - Comments and processing instructions in the parts that are parsed are lost, and white space between their elements.
///
/// A template numbers its worksheet relationships from rId1 in the order of the sheet files. Limits: columns A to ZZ in ranges;
/// 1,048,576 cells in one name and 2,097,152 in all names, a reference beyond which is passed over with a warning; 1,000 attributes of
/// an element, children of a cell and bytes of a cell's or a row's reference, beyond which load() fails; and 800 MiB of memory for all
/// that is made of a package, so that no process takes 1 GiB for one. Parts beyond that make load() fail, references are passed over
/// and elements read as nothing, with a warning.
class VELMORA_EXPORT XlsxOperator
{
public:
    /// One cell of a defined name.
    struct CellPosInfo
    {
        int sheetIndex = -1; ///< from 0; -1 if no sheet has the name
        QString sheetName;   ///< without enclosing apostrophes
        int row = 0;         ///< from 1
        QString column;      ///< letters, such as B or AA
        QString position;    ///< column and row, such as B3
    };

    /// One occurrence of a named picture.
    struct DrawingIDInfo
    {
        int drawingIndex = -1;  ///< from 0
        QString relationshipId; ///< of the image, such as rId2
    };

    /// The value of a cell with a list validation.
    struct DropDownInfo
    {
        QVariant value;      ///< the cell's value
        QStringList options; ///< the list's entries; a comma in one makes two of it
    };

    /// The value of a picture.
    struct PictureInfo
    {
        QString filePath; ///< after load() the relationship's target; set by the host, the path of an image file
    };

    XlsxOperator();
    /// Copies paths and values. The parsed parts are shared: what save() of one object writes into them is in the other's too.
    XlsxOperator(const XlsxOperator &other);
    XlsxOperator &operator=(const XlsxOperator &other);
    ~XlsxOperator();

    /// The template. Set before load().
    void setOldXlsxAbsolutePath(const QString &path);
    /// The package to write. Set before save().
    void setNewXlsxAbsolutePath(const QString &path);
    /// The working directory, emptied by load() and left behind: absolute, clean, without a trailing separator. Set before load().
    void setExtractDirAbsolutePath(const QString &path);
    /// Which names become elements: those in which \a pattern matches anywhere. An empty one, the default, takes all. Set before load().
    void setElementNameFilterRegExp(const QString &pattern);

    /// Unpacks the template, reads its parts and the values of its elements. False, with a warning, if the package or a part cannot be
    /// read.
    bool load();
    /// Gives a copy of all elements: invalid, qlonglong, double or QString for a cell; DropDownInfo for a cell with a list
    /// validation; PictureInfo for a picture.
    void getElementsNameToValueHash(QHash<QString, QVariant> &hash);

    /// The value of \a name; an unknown name becomes an element with an invalid value.
    QVariant getCellValue(const QString &name);
    /// Sets the value that save() writes to every cell of \a name. A number is rounded to an integer, a text that begins with an
    /// ASCII letter becomes a formula (see above), any other text a string; other types write nothing.
    void setCellsValue(const QString &name, const QVariant &value);
    /// Gives \a name one more cell, \a row counted from 1, and sets its value. False, with a warning, if there is no such sheet. A name
    /// that is new must not be given a sheet whose name needs apostrophes.
    bool setCellValue(const QString &sheetName, int row, const QString &column, const QString &name, const QVariant &value);

    /// Assigns the element's value to \a info if it has a list, else leaves it as it was.
    void getCellDropDownInfo(const QString &name, DropDownInfo &info);
    void setCellsDropDownInfo(const QString &name, const DropDownInfo &info);
    /// Gives \a name one more cell and sets its value and list. False, with a warning, if there is no such sheet.
    bool setCellsDropDownInfo(const QString &sheetName, int row, const QString &column, const QString &name, const DropDownInfo &info);

    /// Assigns the element's value to \a info if it is a picture, else leaves it as it was.
    void getPicturePictureInfo(const QString &name, PictureInfo &info);
    /// Sets the image file that save() puts in the picture's place, under its own name. A file that does not exist leaves the picture as
    /// it is; one in the package itself is lost.
    void setPicturesPictureInfo(const QString &name, const PictureInfo &info);

    /// Writes every element and every parsed part into the working directory and packs it. False, with a warning, if a part cannot be
    /// written, as on a full disk, or the package cannot be opened for writing; the next try starts over. Not noticed is a package that
    /// came out short: it is no archive, which a host finds by loading it. A picture's file that cannot be copied into the package is
    /// reported, and the save goes on.
    bool save();

private:
    using Document = std::shared_ptr<pugi::xml_document>;

    // Package
    bool extractFromXlsx();
    bool compressToXlsx();
    void initProcessingPaths();
    QList<QFileInfo> dirEntryInfoListWithNaturalSort(const QString &dirPath);
    void copyFile(const QString &sourceFilePath, const QString &destinationDirPath);

    // Loading
    bool loadDocumentsFromXmls();
    void loadCellNameToPosInfosHash();
    void appendPositions(QList<CellPosInfo> &infos, const QString &sheetName, int firstRow, int lastRow, const QStringList &columns);
    void loadDrawingNameToIDInfosHash();
    void loadElementsValueFromDocuments();
    void generateColumnNames();
    QStringList getColumnNames(const QString &first, const QString &last);
    QPair<int, QString> getRowColFromDollarPos(const QString &position);
    int getSheetIndexFromWorkbookDocument(const QString &sheetName);

    // Cells
    QVariant getCellValueFromDocument(const QString &name);
    bool takeTextOfCells(const QString &name);
    QVariant getCellValueFromNode(const pugi::xml_node &node);
    void getCNodesFromSheetDocument(QList<pugi::xml_node> &nodes, const QString &name, bool create);
    void getCNodeFromSheetDocument(pugi::xml_node &node, const CellPosInfo &info, bool create);
    int getSiNodeIndexFromSharedStringsDocument(const QString &text);
    void saveCellsValue(const QString &name, const QVariant &value);
    bool isFormula(const QString &text);

    // Drop-down lists
    void getDataValidationNodesFromSheetDocument(QList<pugi::xml_node> &nodes, const QString &name, bool create);
    void getDataValidationNodeFromSheetDocument(pugi::xml_node &node, const CellPosInfo &info, bool create);
    QStringList getCellDropDownOptionsFromNode(const pugi::xml_node &node);
    void saveCellsDropDownOptions(const QString &name, const QVariant &value);

    // Pictures
    QVariant getDrawingValueFromDocument(const QString &name);
    bool takeTextOfPicture(const QString &name);
    void getRelationshipNodesFromDrawingRelsDocument(QList<pugi::xml_node> &nodes, const QString &name);
    void getRelationshipNodeFromDrawingRelsDocument(pugi::xml_node &node, const DrawingIDInfo &info, const QString &target);
    QString getMediaRelationshipPath(const QString &path);
    void saveDrawingsValueToDocument(const QString &name, const QVariant &value);

    // Saving
    void saveElementsValueToDocuments();
    void saveElementsValueToDocument(const QString &name, const QVariant &value);
    bool saveDocumentsToXmls();
    void appendDefinedNameNodeToWorkbookDocument(const QString &sheetName, int row, const QString &column, const QString &name);

    QString m_oldXlsxAbsolutePath;
    QString m_newXlsxAbsolutePath;
    QString m_extractDirAbsolutePath;
    QRegularExpression m_elementNameFilterRegExp;
    QString m_workbookRelsPath;
    QString m_contentTypesPath;
    QString m_worksheetsDirPath;
    QString m_workbookPath;
    QString m_sharedStringsPath;
    Document m_pWorkbookRelsDocument;
    Document m_pContentTypesDocument;
    QList<Document> m_sheetDocuments;
    Document m_pWorkbookDocument;
    Document m_pSharedStringsDocument;
    QString m_drawingsRelsDirPath;
    QString m_drawingsDirPath;
    QString m_mediaDirPath;
    QList<Document> m_drawingRelsDocuments;
    QList<Document> m_drawingDocuments;
    QHash<QString, QList<CellPosInfo>> m_cellNameToPosInfosHash;
    QHash<QString, QList<DrawingIDInfo>> m_drawingNameToIDInfosHash;
    QHash<QString, QVariant> m_elementsNameToValueHash;
    QStringList m_columnNames;
    std::shared_ptr<MemoryBudget> m_memory; ///< of what was loaded
};

} // namespace Velmora

Q_DECLARE_METATYPE(Velmora::XlsxOperator::DropDownInfo)
Q_DECLARE_METATYPE(Velmora::XlsxOperator::PictureInfo)
