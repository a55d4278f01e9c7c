#include "xlsx/XlsxTestCase.h"

#include <Velmora/XlsxTemplate.h>

#include <sys/wait.h>
#include <unistd.h>

Q_DECLARE_METATYPE(std::function<VelmoraTest::Template()>)

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr int kMiB = 1024 * 1024;

/// About \a bytes of what \a piece gives for the numbers from 0.
QByteArray Pieces(int bytes, const std::function<QByteArray(int)> &piece)
{
    QByteArray made;
    made.reserve(bytes + 10000);
    for (int i = 0; made.size() < bytes; ++i)
        made += piece(i);
    return made;
}

QByteArray Repeated(const QByteArray &piece, int bytes)
{
    return piece.repeated(bytes / piece.size());
}

/// A workbook whose cell A1 has the text, and a name that refers to it.
Template WithText(const QByteArray &text, const QByteArray &reference)
{
    Template source;
    source.Strings({"<si><t>" + text + "</t></si>"}).Sheet(1, "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c></row>");
    return source.Name("A", reference);
}

/// The package, its parts made as long as they must be to expand no more than they may.
QByteArray SmallArchive(const Template &source)
{
    const QByteArray emptyBlock("\0\0\0\xff\xff", 5);
    QList<ArchiveEntry> entries;
    for (auto part = source.parts.cbegin(); part != source.parts.cend(); ++part) {
        ArchiveEntry entry;
        entry.name = part.key();
        entry.data = part.value();
        entry.stored = Deflated(entry.data);
        entry.stored->prepend(emptyBlock.repeated(qMax(0, entry.data.size() / 299 - entry.stored->size()) / emptyBlock.size() + 1));
        entries.append(entry);
    }
    return MakeArchive(entries);
}

struct Measured
{
    bool isLoaded = false;
    double seconds = 0; ///< of processor time, until it is loaded or refused
    qint64 bytes = 0;   ///< at most, saving included
};

} // namespace

/// What small packages may make of themselves in memory.
class tst_XlsxMemory : public XlsxTestCase
{
    Q_OBJECT

    /// Loads and saves the template in a process of its own.
    Measured Measure() const
    {
        int ends[2] = {};
        if (pipe(ends) != 0)
            return {};
        const pid_t child = fork();
        if (child == 0) {
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
            XlsxOperator op;
            Prepare(op);
            Measured measured;
            measured.seconds = CpuSeconds([&] { measured.isLoaded = op.load(); });
            const bool isSaved = !measured.isLoaded || op.save();
            rusage usage = {};
            getrusage(RUSAGE_SELF, &usage);
            measured.bytes = qint64(usage.ru_maxrss) * 1024;
            _exit(isSaved && write(ends[1], &measured, sizeof measured) == sizeof measured ? 0 : 1);
        }
        Measured measured;
        close(ends[1]);
        if (read(ends[0], &measured, sizeof measured) != sizeof measured)
            measured = Measured();
        close(ends[0]);
        waitpid(child, nullptr, 0);
        return measured;
    }

private Q_SLOTS:
    void no_package_takes_a_gigabyte_data()
    {
        using Maker = std::function<Template()>;
        QTest::addColumn<Maker>("make");
        QTest::addColumn<bool>("isLoaded");
        const auto sheet = [](const QByteArray &content) { return Template().Sheet(1, content); };
        QTest::newRow("250 MB of elements") << Maker([=] { return sheet(Repeated("<a/>", 250 * kMiB)); }) << false;
        QTest::newRow("250 MB of elements and texts") << Maker([=] { return sheet(Repeated("<a/>x", 250 * kMiB)); }) << false;
        QTest::newRow("250 MB of attributes") << Maker([=] {
            return sheet(
                Repeated("<a " + Pieces(5000, [](int i) { return QByteArray::number(i).prepend('a') + "=\"\" "; }) + "/>", 250 * kMiB));
        }) << false;
        QTest::newRow("250 MB of comments") << Maker([=] { return sheet(Repeated("<!---->", 250 * kMiB)); }) << false;
        QTest::newRow("cells that lie in no rows")
            << Maker([=] { return sheet(Pieces(35 * kMiB, [](int i) { return "<c r=\"A" + QByteArray::number(i) + "\"/>"; })); }) << true;
        QTest::newRow("strings") << Maker([] {
            return Template().Strings({Pieces(30 * kMiB, [](int i) { return "<si><t>" + QByteArray::number(i) + "</t></si>"; })});
        }) << true;
        QTest::newRow("a text that grows as it is written")
            << Maker([] { return WithText(QByteArray(60 * kMiB, '\x01'), "Sheet1!$A$1"); }) << true;
        QTest::newRow("a text for a thousand cells")
            << Maker([] { return WithText(QByteArray("a\x01").repeated(kMiB / 40), "Sheet1!$A$1:$A$1000"); }) << true;
        QTest::newRow("a text in another encoding") << Maker([] {
            Template source = WithText("x", "Sheet1!$A$1");
            source.parts[kSharedStrings] =
                QByteArray("\xff\xfe<\0s\0s\0t\0>\0", 12) + Repeated("\x01\x4e", 90 * kMiB) + QByteArray("<\0/\0s\0s\0t\0>\0", 12);
            return source;
        }) << true;
        QTest::newRow("names") << Maker([] {
            Template source;
            source.parts[kWorkbook].replace("<calcPr",
                                            "<definedNames>" + Pieces(30 * kMiB, [](int i) {
                                                return "<definedName name=\"N" + QByteArray::number(i) + "\">Sheet1!$A$1</definedName>";
                                            }) + "</definedNames><calcPr");
            return source;
        }) << true;
        QTest::newRow("names of as many cells as may be")
            << Maker([] { return Template().Name("A", "Sheet1!$A$1:$ZZ$1490").Name("B", "Sheet1!$A$2000:$ZZ$3000"); }) << true;
        QTest::newRow("an image") << Maker([] {
            Template source;
            source.parts["xl/media/a.png"] = Noise(60 * kMiB);
            return source;
        }) << true;
    }
    void no_package_takes_a_gigabyte()
    {
        QFETCH(std::function<Template()>, make);
        QFETCH(bool, isLoaded);
        WriteFile(TemplatePath(), SmallArchive(make()));
        const Measured measured = Measure();
        QCOMPARE(measured.isLoaded, isLoaded);
        const QByteArray found = QByteArray::number(measured.seconds) + " s, " + QByteArray::number(measured.bytes / kMiB) + " MiB";
        QVERIFY2(measured.bytes > 0 && measured.bytes < 1024LL * kMiB, found);
        QVERIFY2(isLoaded || measured.seconds < 2, found);
    }

    void a_file_without_an_end_is_refused()
    {
        XlsxTemplate workbook;
        QVERIFY(!workbook.load(QStringLiteral("/dev/zero")));
        QCOMPARE(workbook.error(), XlsxTemplate::Error::LimitError);
    }

    void a_template_of_more_names_than_it_has_memory_for_is_refused()
    {
        Template source;
        source.parts[kWorkbook].replace("<calcPr",
                                        "<definedNames>" + Pieces(40 * kMiB, [](int i) {
                                            return "<definedName name=\"N" + QByteArray::number(i) + "\">S!$A$1</definedName>";
                                        }) + "</definedNames><calcPr");
        XlsxTemplate workbook;
        QVERIFY(!workbook.load(SmallArchive(source)));
        QCOMPARE(workbook.error(), XlsxTemplate::Error::LimitError);
    }
};

VELMORA_BARE_TEST_MAIN(tst_XlsxMemory)
#include "tst_XlsxMemory.moc"
