#pragma once

#include <Velmora/VelmoraExport.h>

#include <QString>

QT_BEGIN_NAMESPACE
class QZipWriter;
QT_END_NAMESPACE

namespace Velmora {

/// Unpacks and packs a spreadsheet package: a ZIP archive of the parts of an Office Open XML workbook (ECMA-376).
///
/// All operations block, run on the caller's thread and need no application object. What fails is reported in one warning, as far as the
/// operation says that it is noticed.
class VELMORA_EXPORT XlsxZip
{
public:
    XlsxZip() = default;
    XlsxZip &operator=(const XlsxZip &other) = default;
    ~XlsxZip() = default;

    /// Unpacks \a xlsxFilePath into \a outputDir, which is emptied first, whatever it holds. True when every file entry could be
    /// opened for writing, a failure of which ends it: that a file came out short, as on a full disk, is not noticed. Links are dropped;
    /// a file that is no archive has no entries and gives true.
    ///
    /// Nothing of an unsound archive is unpacked: it is refused, with a warning and false, if an entry would lie outside
    /// \a outputDir (`..`, absolute, drive letter) or is written with backslashes, if its directory, its headers and its data contradict
    /// each other, if it is encrypted, in ZIP64 form or compressed otherwise than by deflate, or if it exceeds a limit: 2 GiB itself, 4,096
    /// entries, 512 MiB in one entry, 1 GiB in all, and an expansion of more than 300:1 beyond the first 8 MiB.
    /// A missing file and an empty \a outputDir are refused before anything is deleted.
    static bool extractFromXlsxFile(const QString &xlsxFilePath, const QString &outputDir);

    /// Packs all of \a sourceDir, hidden files included, into \a xlsxFilePath, replacing what is there. True when the target could be
    /// opened for writing: that it came out short, as on a full disk, is not noticed, and it is then no archive. \a sourceDir is
    /// absolute, clean and without a trailing separator; a missing, empty or unnamed one gives an archive without entries, and a file
    /// in it that cannot be read is left out.
    static bool compressToXlsxFile(const QString &sourceDir, const QString &xlsxFilePath);

    /// Adds the file or directory at \a path, with all that is in it, to \a writer, under its path relative to \a rootDir.
    static void addToZip(const QString &rootDir, const QString &path, QZipWriter &writer);
};

} // namespace Velmora
