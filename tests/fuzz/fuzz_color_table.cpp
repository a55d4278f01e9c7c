#include "fuzz.h"

#include "theme/ColorTable_p.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Velmora;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    ForbidLogLines();
    static const QTemporaryDir folder;
    static int number = 0;
    // A name of its own for each: Qt remembers files by name, size and time.
    QFile file(folder.filePath(QString::number(++number)));
    if (!file.open(QIODevice::WriteOnly) || file.write(reinterpret_cast<const char *>(data), qint64(size)) != qint64(size))
        std::abort();
    file.close();
    const QHash<QString, QColor> table = ReadColorTable(file.fileName());
    for (auto entry = table.cbegin(); entry != table.cend(); ++entry) {
        if (entry.key().isEmpty() || entry->alphaF() < 0.0 || entry->alphaF() > 1.0)
            std::abort();
    }
    file.remove();
    return 0;
}
