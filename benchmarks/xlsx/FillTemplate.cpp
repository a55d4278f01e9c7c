// The same by XlsxTemplate: fills every name of a template, or repeats the row of its items.
//
// usage: xlsx_fill_template TEMPLATE OUTPUT
//        xlsx_fill_template --rows NUMBER TEMPLATE OUTPUT

#include <Velmora/XlsxTemplate.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

bool FillNames(Velmora::XlsxTemplate &book)
{
    QStringList names = book.names();
    std::sort(names.begin(), names.end());
    for (int k = 0; k < names.size(); ++k) {
        if (!book.setValue(names.at(k), k % 2 ? QVariant(QStringLiteral("50 value %1").arg(k)) : QVariant(100000 + k)))
            return false;
    }
    return true;
}

bool RepeatItems(Velmora::XlsxTemplate &book, int number)
{
    QVector<QVariantList> rows;
    rows.reserve(number);
    for (int k = 0; k < number; ++k)
        rows.append({QStringLiteral("Item %1").arg(k), k % 9 + 1, k / 4.0});
    return book.setRows(QStringLiteral("Items"), rows);
}

} // namespace

int main(int argc, char **argv)
{
    const bool repeats = argc == 5 && std::strcmp(argv[1], "--rows") == 0;
    if (argc != 3 && !repeats)
        return 2;
    Velmora::XlsxTemplate book;
    const bool isDone = book.load(QString::fromLocal8Bit(argv[argc - 2]))
        && (repeats ? RepeatItems(book, std::atoi(argv[2])) : FillNames(book)) && book.save(QString::fromLocal8Bit(argv[argc - 1]));
    if (!isDone)
        qCritical("%s", qUtf8Printable(book.errorString()));
    return isDone ? 0 : 1;
}
