#include "fuzz.h"

#include <Velmora/XlsxTemplate.h>

#include "xlsx/Archive.h"
#include "xlsx/CellReference_p.h"

#include <QDateTime>
#include <QVector>

namespace {

using Velmora::XlsxTemplate;

constexpr int kMostNames = 12;

void Require(bool condition, const char *what)
{
    if (condition)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

void RequireReason(const XlsxTemplate &book, bool isDone)
{
    Require(isDone == (book.error() == XlsxTemplate::Error::None), "the error does not fit the result");
    Require(isDone == book.errorString().isEmpty(), "the reason does not fit the result");
}

/// One dot, or what begins like an image and goes on with bytes of the input.
QByteArray Image(const QByteArray &package, int turn)
{
    static const QVector<QByteArray> begins{"\xff\xd8\xff", "GIF89a", "BM", "II*", "\x89PNG\r\n\x1a\n", "<svg", "\xd7\xcd\xc6\x9a"};
    if (turn % 2)
        return QByteArray::fromBase64("iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNkYPhfDwAChwGA60e6kgAAAABJRU5ErkJggg==");
    return begins.at(turn / 2 % begins.size()) + package.mid(package.size() / 3, 200);
}

void Ask(const XlsxTemplate &book, const QString &name)
{
    const auto kind = book.kindOf(name);
    Require(kind != XlsxTemplate::Kind::None, "a name is none");
    Require((kind == XlsxTemplate::Kind::Unusable) != book.unusableReason(name).isEmpty(), "the reason does not fit the kind");
    book.value(name);
    book.reference(name);
    book.options(name);
    book.columnNames(name);
    book.hasFormula(name);
}

/// A million cells may be set at once, but not in the time that one input has here.
bool IsSmall(const XlsxTemplate &book, const QString &name)
{
    qint64 cells = 0;
    for (const Velmora::SheetRange &place : Velmora::MeaningOfName(book.reference(name).toStdString()).places)
        cells += qint64(place.range.RowCount()) * place.range.ColumnCount();
    return cells <= 10000;
}

bool Repeat(XlsxTemplate &book, const QString &name, int turn)
{
    const QVariant keep = QVariant::fromValue(XlsxTemplate::Keep());
    if (turn % 5 == 4) // by the names of columns
        return book.setRows(name, QVector<QVariantHash>{{{book.columnNames(name).value(0), 1}}, {}});
    const QVector<QVariantList> rows{{1, keep}, {QStringLiteral("x")}, {QVariant(), true}};
    return book.setRows(name, rows.mid(turn % 4));
}

/// Mostly what suits the kind of the name, now and then anything.
bool Set(XlsxTemplate &book, const QString &name, const QByteArray &package, int turn)
{
    const auto kind = book.kindOf(name);
    if (kind == XlsxTemplate::Kind::Picture || turn % 11 == 10) {
        const auto fit = turn % 3 ? XlsxTemplate::PictureFit::Fit : XlsxTemplate::PictureFit::Stretch;
        return book.setPicture(name, Image(package, turn), fit);
    }
    if (kind == XlsxTemplate::Kind::Range && turn % 3)
        return Repeat(book, name, turn);
    switch (turn % 8) {
    case 0:
        return book.setValue(name, QStringLiteral(" a<&\n_x0041_"));
    case 1:
        return book.setValue(name, book.options(name).value(0));
    case 2:
        return book.setValue(name, QDate(2026, 11, 22));
    case 3:
        return book.setValues(name, {{1.5, QStringLiteral("y")}, {QVariant::fromValue(XlsxTemplate::Keep()), QVariant()}});
    case 4:
        return book.setFormula(name, QStringLiteral("=SUM(A1:B2)&\"<\""));
    case 5:
        return book.setOptions(name, {QStringLiteral("one"), QStringLiteral("two")});
    case 6:
        return Repeat(book, name, turn);
    default:
        return book.clear(name);
    }
}

/// Each of the names, by turns that the input decides.
bool SetAll(XlsxTemplate &book, const QByteArray &package)
{
    int turn = package.size() > 20 ? uchar(package.at(package.size() / 2)) : 0;
    bool isChanged = false;
    book.setValuesOutsideListsAllowed(turn % 2 != 0);
    const QStringList names = book.names().mid(0, kMostNames);
    for (const QString &name : names) {
        if (!IsSmall(book, name))
            continue;
        const bool isSet = Set(book, name, package, turn++);
        RequireReason(book, isSet);
        isChanged = isChanged || isSet;
    }
    return isChanged;
}

} // namespace

/// The input is a workbook: whatever it holds, names can be asked and set, what was refused changes nothing, and what was saved is read.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    ForbidLogLines();
    const QByteArray package(reinterpret_cast<const char *>(data), int(size));
    XlsxTemplate book;
    const bool isLoaded = book.load(package);
    RequireReason(book, isLoaded);
    if (!isLoaded)
        return 0;
    const auto before = VelmoraTest::ReadArchive(package);
    const QStringList names = book.names().mid(0, kMostNames);
    for (const QString &name : names)
        Ask(book, name);
    QByteArray saved = book.save();
    RequireReason(book, !saved.isEmpty());
    if (saved.isEmpty()) // a part is damaged that was not read before
        return 0;
    Require(VelmoraTest::ReadArchive(saved) == before, "what was not changed is saved otherwise");

    const bool isChanged = SetAll(book, package);
    saved = book.save();
    RequireReason(book, !saved.isEmpty());
    if (saved.isEmpty())
        return 0;
    Require(isChanged || VelmoraTest::ReadArchive(saved) == before, "what was refused changed something");
    XlsxTemplate again;
    Require(again.load(saved), "what was saved is not read");
    const QStringList namesAgain = again.names().mid(0, kMostNames);
    for (const QString &name : namesAgain)
        Ask(again, name);
    SetAll(again, saved);
    RequireReason(again, !again.save().isEmpty());
    return 0;
}
