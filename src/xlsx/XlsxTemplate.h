#pragma once

#include <Velmora/VelmoraExport.h>

#include <QByteArray>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <memory>
#include <type_traits>

namespace Velmora {

/// A workbook (.xlsx, ECMA-376) in which the places to fill have names: load() it, set values by name, save() it.
///
/// \code
/// Velmora::XlsxTemplate invoice;
/// if (!invoice.load("invoice.xlsx") || !invoice.setValue("Customer", "ACME Ltd") || !invoice.setValue("Date", QDate::currentDate())
///     || !invoice.setRows("Items", rows) || !invoice.save("invoice-17.xlsx"))
///     qWarning() << invoice.errorString();
/// \endcode
///
/// A name is a defined name of the workbook, which stands for a cell, a range or several places; one of a sheet, written with its
/// sheet (Sheet1!Total, 'My Sheet'!Total); an Excel table; or a picture. Names are found whatever their case, as office programs do;
/// in names() they stand as the workbook writes them.
///
/// Only what is set changes: any other part of the package stays byte for byte, any other cell of a changed sheet as it was written.
/// Results of formulas that may depend on a changed cell are taken out of the file, and office programs compute it anew when they open it.
/// So is what charts keep of such cells (the title of one is renewed); pivot tables made of them are made anew when the file is opened.
/// A change makes a digital signature of the workbook untrue, and takes it out, as office programs do; one of macros alone stays.
///
/// What fails returns false (or nothing), changes nothing, and leaves error() and errorString(). No operation logs, needs an application
/// object, a display or a file beside those it is given. An object is used by one thread at a time; different objects are
/// independent. Dates and times have no time zone in a workbook: a QDateTime is written as the clock it shows.
///
/// Limits: those of the format (1,048,576 rows, 16,384 columns, 32,767 characters in a cell); 4,096 parts, 512 MiB in one and
/// 1 GiB in all, unpacked. A template takes less than 1 GiB of memory: 800 MiB for its parsed parts and all that is put into it, which is
/// a column of a million numbers or short texts, or an image of 266 MiB. What exceeds a limit is refused by the operation that meets it,
/// with Error::LimitError, and changes nothing; what is taken out or replaced makes room again.
class VELMORA_EXPORT XlsxTemplate
{
public:
    /// What a name stands for.
    enum class Kind {
        None,     ///< there is no such name
        Cell,     ///< one cell
        Range,    ///< cells in one rectangle, or the data rows of a table
        Places,   ///< cells or rectangles in several places, maybe on several sheets, which take one value
        List,     ///< one cell, or several that have one list, whose value is picked from it
        Picture,  ///< a picture in a sheet
        Unusable, ///< something that cannot be set: unusableReason()
    };

    /// How a new image takes the frame of the picture that it replaces.
    enum class PictureFit {
        Stretch, ///< fills the frame
        Fit,     ///< keeps its proportions, in the middle of the frame
    };

    enum class Error {
        None,
        FileError,   ///< a file cannot be read or written
        FormatError, ///< not a workbook of this format, or a damaged one
        LimitError,  ///< too large
        NotLoaded,   ///< there is no template yet
        UnknownName,
        UnusableName, ///< the name is none for this operation
        ValueError,   ///< the value is none for a cell, too long, or not in the cell's list
        ObstacleError ///< something stands in the way that would have to be changed too, and cannot be
    };

    /// In a row of setRows() or setValues(): the cell stays as the template has it, with its formula.
    struct Keep
    {
    };

    /// How much of the rows given to setValues() had a cell.
    struct Fitted
    {
        int rows = 0;
        int columns = 0;
    };

    XlsxTemplate();
    XlsxTemplate(const XlsxTemplate &) = delete;
    XlsxTemplate &operator=(const XlsxTemplate &) = delete;
    /// What was moved from may be destroyed, assigned to, or loaded.
    XlsxTemplate(XlsxTemplate &&other) noexcept;
    XlsxTemplate &operator=(XlsxTemplate &&other) noexcept;
    ~XlsxTemplate();

    // --- Loading ---

    /// Reads the template. False leaves the object without one.
    bool load(const QString &path);
    bool load(const QByteArray &package);
    /// A path in UTF-8, which is no package.
    bool load(const char *path) { return load(QString::fromUtf8(path)); }

    // --- What there is ---

    /// All names, in the workbook's order, then tables, then pictures. What programs keep for themselves (print areas, filters) is left
    /// out.
    QStringList names() const;
    Kind kindOf(const QString &name) const;
    /// Why the name is Kind::Unusable, for a user to read; else empty. A sheet that is damaged or too large is such a reason, too.
    QString unusableReason(const QString &name) const;
    /// Where it stands: the reference of a defined name as the workbook has it, also of one that is Kind::Unusable; the data rows of a
    /// table, Sheet1!$A$2:$C$9; the cells under the upper left corners of the pictures of that name.
    QString reference(const QString &name) const;

    // These fail if there is no such name, or if what it stands for cannot be read: they return nothing then, and leave error().

    /// True if a formula stands in any of the name's cells. setValue() puts the value in its place.
    bool hasFormula(const QString &name) const;
    /// What the name holds, or an invalid QVariant for nothing.
    ///
    /// A cell: bool, qlonglong, double, QString; QDate, QTime or QDateTime where its number format shows one; an error as its text,
    /// "#N/A". A time beyond a day stays a number of days. A cell with a formula: its last result. Places and lists: the first cell's. A
    /// range: a QVariantList of rows, each a QVariantList, which ends where the sheet has no more cells. A picture: the image's bytes as
    /// QByteArray. Not read are a text of more than 1 MiB (the format allows 32,767 characters, but some programs write more), and more
    /// than 4,194,304 cells, 67,108,864 characters or the memory of a template at once.
    QVariant value(const QString &name) const;
    /// The entries of a list: typed in, or what stands in the cells that it takes them from.
    QStringList options(const QString &name) const;
    /// The header texts of a table, or the texts of the row above a named row without the empty ones at its end.
    QStringList columnNames(const QString &name) const;

    // --- Filling in ---

    /// Puts \a value into every cell of \a name. Formats stay. A formula that stood there goes.
    ///
    /// Integers, also of 64 bits, and decimals are written with all their digits; infinity and NaN are refused. bool is a truth value.
    /// QDate, QTime and QDateTime are dates, in a cell that has no date format yet with one added; from 1900-01-01 or, in workbooks
    /// that count from 1904, 1904-01-01 to 9999-12-31, else refused. An invalid QVariant empties the cell, and so does a number or truth
    /// value that isNull(), as databases give them. All else that converts to a text is a text, whatever it begins with, with its blanks
    /// and line ends; characters that XML has no room for are escaped as office programs escape them (_x0007_). A QByteArray is UTF-8.
    ///
    /// Refused is a value that is not in the cell's list (setValuesOutsideListsAllowed()), and a cell that cannot change by itself: one of
    /// an array formula over several cells or of a data table, the header of a table's column, one that others are merged over.
    bool setValue(const QString &name, const QVariant &value);
    /// long and unsigned long, std::int64_t and std::size_t among them, which do not become a QVariant by themselves.
    template <typename Long, std::enable_if_t<std::is_same<Long, long>::value || std::is_same<Long, unsigned long>::value, int> = 0>
    bool setValue(const QString &name, Long value)
    {
        return setValue(name, QVariant::fromValue(value));
    }
    /// UTF-8. No QVariant of Qt 6 is made of text that could be written to.
    template <typename Text, std::enable_if_t<std::is_same<Text, char>::value, int> = 0>
    bool setValue(const QString &name, const Text *value)
    {
        return setValue(name, QVariant(QString::fromUtf8(value)));
    }
    /// No pointer is a truth value, which QVariant makes of L"" and u"", too.
    template <typename Pointed, std::enable_if_t<!std::is_same<Pointed, char>::value, int> = 0>
    bool setValue(const QString &name, const Pointed *value) = delete;
    /// Puts a formula into every cell of \a name, with or without a leading equals sign, in English and with commas as in the file.
    /// It is the same text in each of them, has no result yet, and is not checked.
    bool setFormula(const QString &name, const QString &formula);
    /// Fills a range row by row; what does not fit is left out, and \a fitted says how much did. Cells beyond the given rows and columns
    /// stay as they are; an invalid QVariant empties a cell, a Keep leaves it. For each cell, what setValue() says.
    bool setValues(const QString &name, const QVector<QVariantList> &rows, Fitted *fitted = nullptr);
    /// Repeats a named row, or the data row of a table, once for each of \a rows, with its formats, heights, merged cells and validations,
    /// and fills them in. It is the whole row of the sheet, with what stands beside the name. What stands below moves down, with all that
    /// refers to it; a total over the row grows with it. If several rows have the name, such as those of an earlier call, the last of them
    /// is repeated, or the last go, until there are as many as \a rows. A row that is shorter than the name, and one with a Keep in it,
    /// keeps what the template has there.
    ///
    /// No rows take the row away: what referred to nothing else is \#REF! then, the name itself, too, but in SUM it is 0. The name is
    /// Kind::Unusable from then on; to set rows anew, load the template anew. A table keeps one row, emptied.
    ///
    /// Refused, with its place, is what would have to be moved, stretched or repeated and cannot be: a pivot table beside or below; an
    /// array formula over several rows, a data table, another table or merged cells across the row; cells that would leave the sheet.
    bool setRows(const QString &name, const QVector<QVariantList> &rows);
    /// The same by columnNames(). A column that a row does not have keeps what the template has; one that the template does not have is
    /// refused.
    bool setRows(const QString &name, const QVector<QVariantHash> &rows);
    /// Gives the cells of \a name this list, in one validation, in place of what was checked there; the prompts of a former list stay.
    /// Refused are no entries, one with a comma, a line end or another control character, or a blank at its ends, and more than 255
    /// characters in all with commas: more is not read by office programs.
    bool setOptions(const QString &name, const QStringList &options);
    /// Whether a cell with a list takes values that are not in it; not so at first, even if the list itself would only warn. Typed
    /// entries are compared as they stand, those from cells whatever their case. A list whose entries cannot be told, as those of a
    /// formula or of cells that are empty, takes any value.
    void setValuesOutsideListsAllowed(bool allowed);
    /// Puts another image in place of every picture of that name, in its frame: PNG, JPEG, GIF, BMP, TIFF, EMF or placeable WMF, known by
    /// what it holds. The frame stays where it is and as large; what was cut off the former image is not cut off the new one, and
    /// its SVG twin goes with it. So does the former image itself, unless something else shows it. A frame whose proportions cannot
    /// be told is filled. An image is shown as its pixels lie, as office programs do: the orientation that a camera notes beside them
    /// (EXIF) is not looked at. Refused are pictures that are linked to a file, and SVG, which a workbook holds only as a twin.
    bool setPicture(const QString &name, const QString &file, PictureFit fit = PictureFit::Fit);
    bool setPicture(const QString &name, const QByteArray &image, PictureFit fit = PictureFit::Fit);
    bool setPicture(const QString &name, const char *file, PictureFit fit = PictureFit::Fit)
    {
        return setPicture(name, QString::fromUtf8(file), fit);
    }
    /// Empties all cells of \a name; formats stay.
    bool clear(const QString &name);

    // --- Saving ---

    /// Writes the workbook: whole, or not at all, so that what stood at \a path stays if it fails. May be done any number of times, and
    /// the template may be filled in further. What an office program saved as a template (.xltx, .xltm) becomes an ordinary workbook,
    /// unless \a path ends like that too. One with macros is to be named .xlsm, or office programs refuse it.
    bool save(const QString &path);
    /// The bytes of an ordinary workbook; empty if it fails.
    QByteArray save();

    // --- What went wrong ---

    /// Of the last operation but kindOf(), names(), reference() and unusableReason(), which cannot fail: what failed, or Error::None.
    Error error() const;
    /// The same for a user to read, in the application's language: what is wrong, and where (Sheet1!B3).
    QString errorString() const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace Velmora

Q_DECLARE_METATYPE(Velmora::XlsxTemplate::Keep)
