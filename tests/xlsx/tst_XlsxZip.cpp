#include "xlsx/XlsxTestCase.h"

#include <Velmora/XlsxZip.h>

#include <private/qzipwriter_p.h>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

using Parts = QMap<QByteArray, QByteArray>;

ArchiveEntry Entry(const QByteArray &name, const QByteArray &data)
{
    ArchiveEntry entry;
    entry.name = name;
    entry.data = data;
    return entry;
}

const QString kRefused = QStringLiteral("XlsxZip::extractXlsxFile: archive refused, ");

} // namespace

class tst_XlsxZip : public XlsxTestCase
{
    Q_OBJECT

    bool Extract(const QByteArray &archive)
    {
        WriteFile(TemplatePath(), archive);
        return XlsxZip::extractFromXlsxFile(TemplatePath(), WorkPath());
    }
    void ExpectRefusal(const QString &reason) { ExpectWarning(kRefused + reason + QStringLiteral(", \"%1\"").arg(TemplatePath())); }
    /// For rows of an archive and the reason to refuse it.
    void VerifyRefused()
    {
        QFETCH(QByteArray, archive);
        QFETCH(QString, reason);
        ExpectRefusal(reason);
        QVERIFY(!Extract(archive));
        QCOMPARE(FilesBelow(WorkPath()), Parts());
    }

private Q_SLOTS:
    void every_file_is_unpacked_and_the_directory_emptied_first()
    {
        WriteFile(WorkPath() + QStringLiteral("/old/left.xml"), "old");
        QVERIFY(Extract(MakeArchive(Parts{{"_rels/.rels", "rels"}, {"xl/a.xml", "a"}, {".hidden", "h"}, {"empty", ""}})));
        QCOMPARE(FilesBelow(WorkPath()), (Parts{{"_rels/.rels", "rels"}, {"xl/a.xml", "a"}, {".hidden", "h"}, {"empty", ""}}));
    }

    void a_missing_template_leaves_the_directory_as_it_is()
    {
        WriteFile(WorkPath() + QStringLiteral("/left"), "old");
        ExpectWarning(QStringLiteral("extractXlsxFile: file does not exist, \"%1\"").arg(TemplatePath()));
        QVERIFY(!XlsxZip::extractFromXlsxFile(TemplatePath(), WorkPath()));
        QCOMPARE(FilesBelow(WorkPath()), (Parts{{"left", "old"}}));

        ExpectWarning(QStringLiteral("extractXlsxFile: file does not exist, \"\""));
        QVERIFY(!XlsxZip::extractFromXlsxFile(QString(), WorkPath()));
    }

    void an_unnamed_directory_is_refused_before_anything_is_deleted()
    {
        WriteFile(TemplatePath(), Template().Archive());
        const QString old = QDir::currentPath();
        QDir().mkpath(WorkPath());
        QDir::setCurrent(WorkPath());
        WriteFile(WorkPath() + QStringLiteral("/left"), "old");
        ExpectWarning(QStringLiteral("XlsxZip::extractXlsxFile: failed to create output directory, \"\""));
        QVERIFY(!XlsxZip::extractFromXlsxFile(TemplatePath(), QString()));
        QDir::setCurrent(old);
        QCOMPARE(FilesBelow(WorkPath()), (Parts{{"left", "old"}}));
    }

    void what_is_no_archive_has_no_entries_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("text") << QByteArray("This is no archive, but a text of some length.");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("an archive without entries") << MakeArchive(QList<ArchiveEntry>());
        QTest::newRow("an entry without a directory") << QByteArray("PK\x03\x04 and so on");
        // What begins with something else is a program or a text that happens to end with an archive.
        QTest::newRow("an archive behind something") << MakeArchive({Entry("a", "b")}, {"#!/bin/sh\n", {}, {}, {}, {}, {}});
    }
    void what_is_no_archive_has_no_entries()
    {
        QFETCH(QByteArray, content);
        WriteFile(WorkPath() + QStringLiteral("/left"), "old");
        QVERIFY(Extract(content));
        QVERIFY(QFileInfo(WorkPath()).isDir());
        QCOMPARE(FilesBelow(WorkPath()), Parts());
    }

    void a_directory_in_place_of_the_template_has_no_entries()
    {
        QDir().mkpath(TemplatePath());
        QVERIFY(XlsxZip::extractFromXlsxFile(TemplatePath(), WorkPath()));
        QCOMPARE(FilesBelow(WorkPath()), Parts());
    }

    void a_directory_that_cannot_be_made_is_reported()
    {
        WriteFile(Path(QStringLiteral("file")), "in the way");
        const QString below = Path(QStringLiteral("file/work"));
        WriteFile(TemplatePath(), Template().Archive());
        ExpectWarning(QStringLiteral("XlsxZip::extractXlsxFile: failed to create output directory, \"%1\"").arg(below));
        QVERIFY(!XlsxZip::extractFromXlsxFile(TemplatePath(), below));
    }

    void a_file_in_place_of_the_directory_is_reported()
    {
        WriteFile(WorkPath(), "in the way");
        WriteFile(TemplatePath(), Template().Archive());
        ExpectWarning(QStringLiteral("XlsxZip::extractXlsxFile: failed to create output directory, \"%1\"").arg(WorkPath()));
        QVERIFY(!XlsxZip::extractFromXlsxFile(TemplatePath(), WorkPath()));
        QCOMPARE(FileContent(WorkPath()), QByteArray("in the way"));
    }

    void an_entry_that_cannot_be_written_ends_it_and_the_rest_stays()
    {
        ExpectWarning(QStringLiteral("XlsxZip::extractXlsxFile: failed to open file for writing, \"%1/a/b\"").arg(WorkPath()));
        QVERIFY(!Extract(MakeArchive({Entry("first", "1"), Entry("a", "file"), Entry("a/b", "below it"), Entry("last", "2")})));
        QCOMPARE(FilesBelow(WorkPath()), (Parts{{"first", "1"}, {"a", "file"}}));

        ExpectWarning(QStringLiteral("XlsxZip::extractXlsxFile: failed to open file for writing, \"%1/a\"").arg(WorkPath()));
        QVERIFY(!Extract(MakeArchive({Entry("a/b", "below it"), Entry("a", "file")})));
        QCOMPARE(FilesBelow(WorkPath()), (Parts{{"a/b", "below it"}}));
    }

    void directories_and_links_write_nothing_but_their_parents()
    {
        QVERIFY(Extract(MakeArchive(
            {ArchiveEntry::Directory("one/two/"), ArchiveEntry::Link("three/link", "/etc/passwd"), Entry("a/", ""), Entry("a/b", "c")})));
        QCOMPARE(FilesBelow(WorkPath()), (Parts{{"a/b", "c"}}));
        QVERIFY(QFileInfo(WorkPath() + QStringLiteral("/one")).isDir());
        QVERIFY(QFileInfo(WorkPath() + QStringLiteral("/three")).isDir());
        QVERIFY(!QFileInfo(WorkPath() + QStringLiteral("/three/link")).isSymLink());
    }

    void honest_variants_are_read_data()
    {
        QTest::addColumn<QByteArray>("archive");
        ArchiveEntry stored = Entry("xl/a.xml", "content");
        stored.method = 0;
        QTest::newRow("stored") << MakeArchive({stored});
        ArchiveEntry streamed = Entry("xl/a.xml", "content");
        streamed.flags = 8;
        QTest::newRow("sizes behind the data") << MakeArchive({streamed});
        streamed.method = 0;
        QTest::newRow("stored, sizes behind the data") << MakeArchive({streamed});
        ArchiveEntry utf8 = Entry("xl/a.xml", "content");
        utf8.flags = 0x800;
        QTest::newRow("name marked as UTF-8") << MakeArchive({utf8});
        ArchiveEntry padded = Entry("xl/a.xml", "content");
        padded.localExtra = "\xfe\xca\x02\x00\x01\x02";
        QTest::newRow("extra field") << MakeArchive({padded});
        QTest::newRow("comment") << MakeArchive({Entry("xl/a.xml", "content")}, {{}, "a comment", {}, {}, {}, {}});
        ArchiveEntry bare = Entry("xl/a.xml", "content");
        bare.attributes = 0;
        QTest::newRow("no attributes") << MakeArchive({bare});
        for (const int system : {0, 3, 6, 11, 14}) {
            ArchiveEntry made = Entry("xl/a.xml", "content");
            made.madeBy = quint16(system << 8);
            made.attributes = system == 3 ? 0100644U << 16 : 0x20;
            QTest::addRow("made by system %d", system) << MakeArchive({made});
            made.needs = quint16(system << 8) | 20;
            QTest::addRow("made by system %d, as the version needed says, too", system) << MakeArchive({made});
        }
        ArchiveEntry announced = Entry("xl/a.xml", "content");
        announced.needs = 45;
        QTest::newRow("announced in ZIP64 form, and not") << MakeArchive({announced});
    }
    void honest_variants_are_read()
    {
        QFETCH(QByteArray, archive);
        QVERIFY(Extract(archive));
        QCOMPARE(FilesBelow(WorkPath()), (Parts{{"xl/a.xml", "content"}}));
    }

    void empty_entries_are_empty_files_data()
    {
        QTest::addColumn<QByteArray>("archive");
        ArchiveEntry empty = Entry("xl/a.xml", "");
        QTest::newRow("deflated to two bytes") << MakeArchive({empty});
        empty.stored = QByteArray();
        QTest::newRow("deflated to none") << MakeArchive({empty});
        empty.flags = 8;
        QTest::newRow("deflated to none, sizes behind the data") << MakeArchive({empty});
        empty.method = 0;
        QTest::newRow("stored, sizes behind the data") << MakeArchive({empty});
        empty.flags = 0;
        QTest::newRow("stored") << MakeArchive({empty});
    }
    void empty_entries_are_empty_files()
    {
        QFETCH(QByteArray, archive);
        QVERIFY(Extract(archive));
        QCOMPARE(FilesBelow(WorkPath()), (Parts{{"xl/a.xml", ""}}));
    }

    void names_are_kept_as_they_stand()
    {
        const Parts parts{{"xl/media/\xc3\xa4 \xe4\xbd\xa0.png", "1"}, {"a  b/c'd", "2"}, {"...", "3"}, {"./e", "4"}, {"..f/g..", "5"}};
        QVERIFY(Extract(MakeArchive(parts)));
        Parts expected = parts;
        expected.remove("./e");
        expected["e"] = "4";
        QCOMPARE(FilesBelow(WorkPath()), expected);
    }

    void large_entries_are_read()
    {
        const Parts parts{{"noise", Noise(300000)}, {"zeros", QByteArray(8 * 1024 * 1024, '\0')}};
        QVERIFY(Extract(MakeArchive(parts)));
        QCOMPARE(FilesBelow(WorkPath()), parts);
    }

    void names_that_lead_out_are_refused_data()
    {
        QTest::addColumn<QByteArray>("name");
        for (const char *name :
             {"../out", "xl/../../out", "xl/..", "..", "/etc/out", "//server/out", "C:/out", "c:out", "./C:/out", "xl/c:", ""})
            QTest::newRow(name) << QByteArray(name);
        QTest::newRow("NUL") << QByteArray("xl/a\0.xml", 9);
    }
    void names_that_lead_out_are_refused()
    {
        QFETCH(QByteArray, name);
        WriteFile(WorkPath() + QStringLiteral("/left"), "old");
        ExpectRefusal(QStringLiteral("an entry's name leads out of the directory"));
        QVERIFY(!Extract(MakeArchive({Entry("first", "1"), Entry(name, "out")})));
        QCOMPARE(FilesBelow(WorkPath()), Parts());
        QVERIFY(!QFileInfo::exists(Path(QStringLiteral("out"))));
    }

    void names_with_backslashes_are_refused_as_such()
    {
        for (const char *name : {"xl\\workbook.xml", "..\\out", "\\out", "C:\\out", "xl/a\\b.xml"}) {
            ExpectRefusal(QStringLiteral("an entry's name has backslashes for slashes"));
            QVERIFY2(!Extract(MakeArchive({Entry("first", "1"), Entry(name, "out")})), name);
            QCOMPARE(FilesBelow(WorkPath()), Parts());
        }
    }

    void contradictions_are_refused_data()
    {
        QTest::addColumn<QByteArray>("archive");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char *title, const ArchiveEntry &entry, const char *reason) {
            QTest::newRow(title) << MakeArchive({Entry("first", "1"), entry, Entry("last", "2")}) << QString::fromLatin1(reason);
        };
        const char *const damaged = "an entry's data are damaged or not of the size that they claim";
        ArchiveEntry entry = Entry("a", QByteArray(5000, 'a'));
        entry.flags = 1;
        row("encrypted", entry, "an entry is encrypted");
        entry = Entry("a", "content");
        entry.method = 12;
        row("unknown method", entry, "an entry is compressed by an unknown method");
        entry = Entry("a", "content");
        entry.needs = 46;
        row("needs a newer reader", entry, "an entry is of an unknown kind");
        entry = Entry("a", "content");
        entry.madeBy = 7 << 8;
        row("made by an unknown system", entry, "an entry is of an unknown kind");
        entry = Entry("a", QByteArray(5000, 'a'));
        entry.size = 4999;
        row("size too small", entry, damaged);
        entry.size = 5001;
        row("size too large", entry, damaged);
        entry.size = 0;
        row("size 0", entry, damaged);
        entry.size = 2000000000;
        row("size of 2 GB", entry, "an entry is too large");
        entry.size = 0xffffffff;
        row("size in ZIP64 form", entry, "an entry is too large");
        entry.size = 500000000;
        row("size of 500 MB", entry, "an entry expands too much");
        entry = Entry("a", QByteArray(5000, 'a'));
        entry.storedSize = 3;
        row("stored size too small", entry, damaged);
        entry.storedSize = quint32(Deflated(entry.data).size()) + 1;
        row("stored size too large", entry, damaged);
        entry.storedSize = 100000;
        row("stored size beyond all", entry, "an entry reaches into the directory");
        entry.storedSize = 0;
        row("stored size 0", entry, damaged);
        entry = Entry("a", "content");
        entry.method = 0;
        entry.size = 6;
        row("stored, size too small", entry, damaged);
        entry.size = 8;
        row("stored, size too large", entry, damaged);
        entry = Entry("a", "");
        entry.stored = QByteArray();
        entry.checksum = 1;
        row("deflated nothing, wrong checksum", entry, damaged);
        entry = Entry("a", "content");
        entry.stored = QByteArray("\xff\xff\xff\xff");
        row("no deflated data", entry, damaged);
        entry.stored = Deflated(entry.data).chopped(2);
        row("cut data", entry, damaged);
        entry = Entry("a", "content");
        entry.checksum = 1;
        row("wrong checksum", entry, damaged);
        entry.method = 0;
        row("stored, wrong checksum", entry, damaged);
        entry = Entry("a", "content");
        entry.localName = "b";
        row("two names", entry, "an entry's header contradicts the directory");
        // By the method of the header the reader would inflate what the directory says is stored.
        entry = Entry("a", Deflated(QByteArray(100000, 'a')));
        entry.method = 0;
        entry.localMethod = 8;
        row("two methods", entry, "an entry's header contradicts the directory");
        entry = Entry("a", "content");
        entry.offset = 5;
        row("no header there", entry, "an entry has no header");
        entry.offset = 0xfffffff0;
        row("header beyond all", entry, "an entry has no header");
        entry = Entry("first", "1");
        entry.offset = 0;
        row("one name twice", entry, "two entries have one name");
        row("one path twice", Entry("./first", "2"), "two entries have one name");

        const QList<ArchiveEntry> two{Entry("a", "1"), Entry("b", "2")};
        const QString directory = QStringLiteral("the directory is damaged");
        QTest::newRow("fewer counted") << MakeArchive(two, {{}, {}, {}, 1, {}, {}}) << directory;
        QTest::newRow("more counted") << MakeArchive(two, {{}, {}, {}, 3, {}, {}}) << directory;
        QTest::newRow("count in ZIP64 form") << MakeArchive(two, {{}, {}, {}, 0xffff, {}, {}}) << QStringLiteral("too many entries");
        QTest::newRow("directory too small") << MakeArchive(two, {{}, {}, {}, {}, {}, 50}) << directory;
        QTest::newRow("directory too large") << MakeArchive(two, {{}, {}, {}, {}, {}, 5000}) << directory;
        QTest::newRow("directory elsewhere") << MakeArchive(two, {{}, {}, {}, {}, 3, {}}) << directory;
        QTest::newRow("directory beyond all") << MakeArchive(two, {{}, {}, {}, {}, 0xffffffff, {}}) << directory;
        QTest::newRow("offsets from elsewhere") << MakeArchive({Entry("a", "1")}, {MakeArchive(two), {}, {}, {}, 9, {}}) << directory;
    }
    void contradictions_are_refused() { VerifyRefused(); }

    void overlapping_entries_are_refused()
    {
        // The second entry lies in the data of the first, which is stored.
        const QByteArray inner = MakeArchive({Entry("b", "x")}).left(30 + 1 + Deflated("x").size());
        ArchiveEntry outer = Entry("a", inner);
        outer.method = 0;
        ArchiveEntry overlapping = Entry("b", "x");
        overlapping.offset = 31;
        ExpectRefusal(QStringLiteral("two entries overlap"));
        QVERIFY(!Extract(MakeArchive({outer, overlapping})));
    }

    void limits_are_kept_data()
    {
        QTest::addColumn<QByteArray>("archive");
        QTest::addColumn<QString>("reason");
        QTest::newRow("one entry of zeros") << MakeArchive({Entry("a", QByteArray(20 * 1024 * 1024, '\0'))})
                                            << QStringLiteral("an entry expands too much");
        QList<ArchiveEntry> many;
        const QByteArray zeros(7 * 1024 * 1024, '\0');
        const QByteArray stored = Deflated(zeros);
        for (int i = 0; i < 3; ++i) {
            ArchiveEntry entry = Entry("a" + QByteArray::number(i), zeros);
            entry.stored = stored;
            many.append(entry);
        }
        QTest::newRow("many of zeros") << MakeArchive(many) << QStringLiteral("the entries expand too much in all");
        many.clear();
        for (int i = 0; i < 4097; ++i)
            many.append(Entry(QByteArray::number(i), QByteArray()));
        QTest::newRow("4,097 entries") << MakeArchive(many) << QStringLiteral("too many entries");
        many.clear();
        for (int i = 0; i < 3; ++i) {
            ArchiveEntry entry = Entry(QByteArray::number(i), QByteArray(2000000, 'x'));
            entry.size = 500U * 1024 * 1024;
            entry.method = 0;
            many.append(entry);
        }
        QTest::newRow("1.5 GB in all") << MakeArchive(many) << QStringLiteral("the entries are too large in all");
    }
    void limits_are_kept() { VerifyRefused(); }

    void as_many_entries_as_may_be_are_read()
    {
        // Mostly links, because Qt's reader looks through all entries for the data of each file.
        QList<ArchiveEntry> many;
        for (int i = 0; i < 4000; ++i)
            many.append(ArchiveEntry::Link("link" + QByteArray::number(i), "x"));
        for (int i = 4000; i < 4096; ++i)
            many.append(Entry("xl/media/" + QByteArray::number(i), QByteArray::number(i)));
        QVERIFY(Extract(MakeArchive(many)));
        QCOMPARE(FilesBelow(WorkPath()).size(), 96);
        QCOMPARE(FileContent(WorkPath() + QStringLiteral("/xl/media/4095")), QByteArray("4095"));
    }

    void a_cut_archive_is_unpacked_whole_or_not_at_all()
    {
        const QByteArray archive = MakeArchive({Entry("a", "1"), Entry("xl/b", "content")}, {{}, "comment", {}, {}, {}, {}});
        const int end = int(archive.lastIndexOf("PK\x05\x06")) + 22;
        for (int size = 0; size < end; ++size) {
            QVERIFY2(Extract(archive.left(size)), QByteArray::number(size));
            QCOMPARE(FilesBelow(WorkPath()), Parts());
        }
    }

    void a_damaged_archive_never_gives_other_contents()
    {
        const Parts parts{{"a", "first"}, {"xl/b", QByteArray(200, 'b')}};
        const QByteArray archive = MakeArchive(parts);
        for (int i = 0; i < archive.size(); ++i) {
            QByteArray damaged = archive;
            damaged[i] = char(damaged[i] ^ 0x55);
            Log().ExpectMatch(QtWarningMsg, QStringLiteral(".*"));
            const bool whole = Extract(damaged);
            if (whole)
                Log().TakeFaults(); // nothing to report
            const Parts found = FilesBelow(WorkPath());
            for (auto part = found.cbegin(); part != found.cend(); ++part)
                QVERIFY2(parts.values().contains(part.value()), QByteArray::number(i));
            QVERIFY(whole || found.isEmpty());
        }
    }

    void the_template_may_lie_in_the_directory_that_is_emptied()
    {
        const QString inside = WorkPath() + QStringLiteral("/template.xlsx");
        WriteFile(inside, MakeArchive(Parts{{"a", "1"}}));
        QVERIFY(XlsxZip::extractFromXlsxFile(inside, WorkPath()));
        QCOMPARE(FilesBelow(WorkPath()), (Parts{{"a", "1"}}));
    }

    // --- Packing ---

    void everything_is_packed_hidden_files_and_directories_included()
    {
        const Parts parts{{"_rels/.rels", "rels"}, {".hidden", "h"}, {"xl/deep/er/a.xml", QByteArray(5000, 'a')}, {"empty", ""}};
        for (auto part = parts.cbegin(); part != parts.cend(); ++part)
            WriteFile(WorkPath() + QLatin1Char('/') + QString::fromUtf8(part.key()), part.value());
        QDir().mkpath(WorkPath() + QStringLiteral("/nothing in it"));
        WriteFile(OutputPath(), QByteArray(100000, 'x'));
        QVERIFY(XlsxZip::compressToXlsxFile(WorkPath(), OutputPath()));

        const QByteArray archive = FileContent(OutputPath());
        QVERIFY(archive.size() < 100000);
        QCOMPARE(ReadArchive(archive), parts);
        const QList<QByteArray> names = ArchiveNames(archive);
        for (const char *directory : {"xl/", "xl/deep/", "xl/deep/er/", "_rels/", "nothing in it/"})
            QVERIFY2(names.contains(directory), directory);
        QVERIFY(names.indexOf("xl/") < names.indexOf("xl/deep/"));
        QVERIFY(names.indexOf("xl/deep/er/") < names.indexOf("xl/deep/er/a.xml"));
    }

    void what_was_packed_is_unpacked_the_same()
    {
        const Parts parts{{"_rels/.rels", "rels"}, {"xl/\xc3\xa4 \xe4\xbd\xa0.png", QByteArray(500, 'p')}, {"a", "b"}};
        for (auto part = parts.cbegin(); part != parts.cend(); ++part)
            WriteFile(Path(QStringLiteral("source/")) + QString::fromUtf8(part.key()), part.value());
        QVERIFY(XlsxZip::compressToXlsxFile(Path(QStringLiteral("source")), TemplatePath()));
        QVERIFY(XlsxZip::extractFromXlsxFile(TemplatePath(), WorkPath()));
        QCOMPARE(FilesBelow(WorkPath()), parts);
    }

    void an_empty_a_missing_and_an_unnamed_directory_give_an_archive_without_entries()
    {
        QDir().mkpath(WorkPath());
        for (const QString &source : {WorkPath(), Path(QStringLiteral("missing")), QString()}) {
            WriteFile(OutputPath(), "old");
            QVERIFY(XlsxZip::compressToXlsxFile(source, OutputPath()));
            QCOMPARE(FileContent(OutputPath()), MakeArchive(QList<ArchiveEntry>()));
        }
    }

    void a_target_that_cannot_be_opened_is_reported()
    {
        QDir().mkpath(OutputPath());
        for (const QString &target : {OutputPath(), Path(QStringLiteral("missing/output.xlsx")), QString()}) {
            ExpectWarning(QStringLiteral("XlsxZip::compressToXlsxFile: failed to open file for writing, \"%1\"").arg(target));
            QVERIFY(!XlsxZip::compressToXlsxFile(WorkPath(), target));
        }
    }

    void a_trailing_slash_of_the_directory_cuts_the_names()
    {
        WriteFile(WorkPath() + QStringLiteral("/xl/a.xml"), "a");
        QVERIFY(XlsxZip::compressToXlsxFile(WorkPath() + QLatin1Char('/'), OutputPath()));
        QCOMPARE(ReadArchive(FileContent(OutputPath())), (Parts{{"l/a.xml", "a"}}));
    }

    void single_files_and_directories_are_added()
    {
        WriteFile(WorkPath() + QStringLiteral("/a"), "1");
        WriteFile(WorkPath() + QStringLiteral("/b/c"), "2");
        {
            QZipWriter writer(OutputPath());
            XlsxZip::addToZip(WorkPath(), WorkPath() + QStringLiteral("/a"), writer);
            XlsxZip::addToZip(WorkPath(), WorkPath() + QStringLiteral("/b"), writer);
            XlsxZip::addToZip(WorkPath(), WorkPath() + QStringLiteral("/missing"), writer);
        }
        QCOMPARE(ArchiveNames(FileContent(OutputPath())), (QList<QByteArray>{"a", "b/", "b/c"}));
    }

    void objects_hold_nothing_and_can_be_assigned()
    {
        XlsxZip a;
        XlsxZip b;
        QCOMPARE(&(a = b), &a);
    }
};

VELMORA_BARE_TEST_MAIN(tst_XlsxZip)
#include "tst_XlsxZip.moc"
