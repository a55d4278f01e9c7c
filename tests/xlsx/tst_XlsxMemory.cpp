#include "xlsx/XlsxTestCase.h"

#include <Velmora/XlsxTemplate.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cstring>

Q_DECLARE_METATYPE(std::function<VelmoraTest::Template()>)
Q_DECLARE_METATYPE(std::function<bool(Velmora::XlsxTemplate &)>)

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

using Filling = std::function<bool(XlsxTemplate &)>;

/// So many bytes that begin as an image does.
QByteArray Image(int bytes)
{
    static const char begin[] = "\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\0\x08\0\0\0\x08\x08\x06\0\0\0";
    QByteArray image(bytes, Qt::Uninitialized);
    const QByteArray noise = Noise(kMiB);
    for (auto at = noise.size() * 0; at < bytes; at += noise.size())
        std::memcpy(image.data() + at, noise.constData(), std::size_t(qMin(noise.size(), bytes - at)));
    std::memcpy(image.data(), begin, sizeof begin - 1);
    return image;
}

struct Measured
{
    bool isLoaded = false; ///< or done
    double seconds = 0;    ///< of processor time, until it is loaded or refused
    qint64 bytes = 0;      ///< at most, saving included
};

} // namespace

/// What small packages may make of themselves in memory.
class tst_XlsxMemory : public XlsxTestCase
{
    Q_OBJECT

    /// Runs \a work, which fills in what it measures but the memory, in a process of its own.
    static Measured MeasureBeside(const std::function<bool(Measured &)> &work)
    {
        int ends[2] = {};
        if (pipe(ends) != 0)
            return {};
        const pid_t child = fork();
        if (child == 0) {
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
            Measured measured;
            const bool isRight = work(measured);
            rusage usage = {};
            getrusage(RUSAGE_SELF, &usage);
            measured.bytes = qint64(usage.ru_maxrss) * 1024;
            _exit(isRight && write(ends[1], &measured, sizeof measured) == sizeof measured ? 0 : 1);
        }
        Measured measured;
        close(ends[1]);
        if (read(ends[0], &measured, sizeof measured) != sizeof measured)
            measured = Measured();
        close(ends[0]);
        waitpid(child, nullptr, 0);
        return measured;
    }

    /// Loads and saves the template.
    Measured Measure() const
    {
        return MeasureBeside([this](Measured &measured) {
            XlsxOperator op;
            Prepare(op);
            measured.seconds = CpuSeconds([&] { measured.isLoaded = op.load(); });
            return !measured.isLoaded || op.save();
        });
    }

    /// Does something with a template of two columns and a row, and saves it, whether it was done or refused.
    static Measured MeasureFilling(const Filling &fill)
    {
        Template source;
        source.Sheet(1, "<row r=\"2\"><c r=\"C2\"/><c r=\"D2\"/><c r=\"E2\"/></row>");
        source.Name("Column", "Sheet1!$A:$A")
            .Name("Other", "Sheet1!$B:$B")
            .Name("Row", "Sheet1!$C$2:$E$2")
            .Name("Block", "Sheet1!$F$1:$ZZ$900");
        source.Drawing(1, {{"Logo", "rId1"}}, Relationship("rId1", "image", "../media/image1.png"));
        source.parts["xl/media/image1.png"] = "\x89PNG";
        source.parts["xl/worksheets/sheet1.xml"].replace("</worksheet>", "<drawing r:id=\"rId1\"/></worksheet>");
        source.parts["xl/worksheets/_rels/sheet1.xml.rels"] = Relationships(Relationship("rId1", "drawing", "../drawings/drawing1.xml"));
        const QByteArray archive = source.Archive();
        return MeasureBeside([&](Measured &measured) {
            XlsxTemplate workbook;
            if (!workbook.load(archive))
                return false;
            measured.isLoaded = fill(workbook);
            if (!measured.isLoaded && (workbook.error() != XlsxTemplate::Error::LimitError || workbook.errorString().isEmpty()))
                return false;
            return !workbook.save().isEmpty();
        });
    }

private Q_SLOTS:
    void nothing_that_is_put_in_takes_a_gigabyte_data()
    {
        QTest::addColumn<Filling>("fill");
        QTest::addColumn<bool>("isDone");
        const auto rows = [](int count, const QVariantList &row) { return QVector<QVariantList>(count, row); };
        const QString longest(32767, QLatin1Char('x'));
        const QString escapes(30000, QLatin1Char('&'));
        QTest::newRow("a column of numbers") << Filling([](XlsxTemplate &book) { return book.setValue("Column", 1234567); }) << true;
        QTest::newRow("a column of texts") << Filling([](XlsxTemplate &book) { return book.setValue("Column", "ACME Ltd"); }) << true;
        QTest::newRow("a column again and again") << Filling([](XlsxTemplate &book) {
            bool isDone = true;
            for (int i = 0; i < 4; ++i)
                isDone = isDone && book.setValue("Column", i);
            return isDone;
        }) << true;
        QTest::newRow("two columns") << Filling([](XlsxTemplate &book) { return book.setValue("Column", 1) && book.setValue("Other", 2); })
                                     << false;
        QTest::newRow("a column of long texts") << Filling([=](XlsxTemplate &book) { return book.setValue("Column", longest); }) << false;
        QTest::newRow("a column of formulas") << Filling([](XlsxTemplate &book) {
            return book.setFormula("Column", QString(4096, '1') + "+1");
        }) << false;
        QTest::newRow("a block of long texts") << Filling([=](XlsxTemplate &book) {
            return book.setValues("Block", rows(900, {longest, longest, longest}));
        }) << true;
        QTest::newRow("a larger block of long texts") << Filling([=](XlsxTemplate &book) {
            return book.setValues("Block", rows(900, {longest, longest, longest, longest, longest, longest, longest, longest, longest}));
        }) << false;
        QTest::newRow("a block of ampersands") << Filling([=](XlsxTemplate &book) {
            return book.setValues("Block", rows(900, {escapes, escapes, escapes}));
        }) << true;
        QTest::newRow("half a million rows") << Filling([=](XlsxTemplate &book) {
            return book.setRows("Row", rows(500000, {1, 2, 3}));
        }) << true;
        QTest::newRow("a million rows") << Filling([=](XlsxTemplate &book) {
            return book.setRows("Row", rows(1000000, {1, 2, 3}));
        }) << false;
        QTest::newRow("rows of long texts") << Filling([=](XlsxTemplate &book) {
            return book.setRows("Row", rows(10000, {longest, longest, longest}));
        }) << false;
        QTest::newRow("an image") << Filling([](XlsxTemplate &book) { return book.setPicture("Logo", Image(200 * kMiB)); }) << true;
        QTest::newRow("a larger image") << Filling([](XlsxTemplate &book) { return book.setPicture("Logo", Image(300 * kMiB)); }) << false;
        QTest::newRow("images, one after the other") << Filling([](XlsxTemplate &book) {
            bool isDone = true;
            for (int i = 0; i < 5; ++i)
                isDone = isDone && book.setPicture("Logo", Image(100 * kMiB));
            return isDone;
        }) << true;
    }
    void nothing_that_is_put_in_takes_a_gigabyte()
    {
        QFETCH(Filling, fill);
        QFETCH(bool, isDone);
        const Measured measured = MeasureFilling(fill);
        QVERIFY2(measured.bytes > 0 && measured.bytes < 1024LL * kMiB, QByteArray::number(measured.bytes / kMiB) + " MiB");
        QCOMPARE(measured.isLoaded, isDone);
    }

    void what_has_no_room_changes_nothing()
    {
        Template source;
        source.Sheet(1, "<row r=\"2\"><c r=\"A2\"><v>7</v></c></row>");
        source.Name("Column", "Sheet1!$A:$A").Name("Row", "Sheet1!$A$2");
        const QByteArray archive = source.Archive();
        XlsxTemplate workbook;
        QVERIFY(workbook.load(archive));
        QVERIFY(!workbook.setValue("Column", QString(1000, QLatin1Char('x'))));
        QVERIFY(!workbook.setRows("Row", QVector<QVariantList>(20000, {QString(32767, QLatin1Char('x'))})));
        QCOMPARE(workbook.error(), XlsxTemplate::Error::LimitError);
        QVERIFY2(workbook.errorString().endsWith("This is more than a template has memory for, which is 800 MiB."),
                 qPrintable(workbook.errorString()));
        QCOMPARE(ReadArchive(workbook.save()), ReadArchive(archive));
    }

    void what_is_taken_out_makes_room_again()
    {
        Template source;
        source.Sheet(1, "<row r=\"2\"><c r=\"A2\"><v>7</v></c></row>");
        source.Name("Row", "Sheet1!$A$2").Name("Column", "Sheet1!$B$1:$B$3000");
        XlsxTemplate workbook;
        QVERIFY(workbook.load(source.Archive()));
        const QString longest(32767, QLatin1Char('x'));
        for (int i = 0; i < 3; ++i) {
            QVERIFY2(workbook.setRows("Row", QVector<QVariantList>(4000, {longest})), qPrintable(workbook.errorString()));
            QVERIFY(workbook.setRows("Row", QVector<QVariantList>(1, {1})));
            QVERIFY2(workbook.setValue("Column", longest), qPrintable(workbook.errorString()));
            QVERIFY(workbook.clear("Column"));
        }
    }

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
