#include "fuzz.h"

#include <QDir>
#include <QFile>

/// Feeds every file in the given folders to the fuzz target, once.
int main(int argc, char **argv)
{
    int fed = 0;
    for (int i = 1; i < argc; ++i) {
        const QDir folder(QString::fromLocal8Bit(argv[i]));
        const auto seeds = folder.entryInfoList(QDir::Files, QDir::Name);
        for (const QFileInfo &seed : seeds) {
            QFile file(seed.filePath());
            if (!file.open(QIODevice::ReadOnly))
                return EXIT_FAILURE;
            const QByteArray content = file.readAll();
            printf("%s\n", qPrintable(seed.fileName()));
            fflush(stdout); // the last line names the seed that ended the program
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(content.constData()), std::size_t(content.size()));
            ++fed;
        }
    }
    return fed > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
