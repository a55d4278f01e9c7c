#include "FillTemplateProgram.h"

#include "xlsx/XlsxTestCase.h"

#include <QDir>
#include <QImage>
#include <QTest>

using namespace VelmoraTest;

/// Templates that office programs wrote, filled in as they are, and what those programs read in the result.
class tst_FillTemplateOffice : public XlsxTestCase
{
    Q_OBJECT

private:
    /// Runs a program and gives what it prints. That it ends well says nothing about an office program: look at what it made.
    static QByteArray Run(const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::SeparateChannels);
        process.start(program, arguments);
        if (!process.waitForFinished(180000) || process.exitCode() != 0)
            qWarning("%s: %s", qUtf8Printable(program), process.readAllStandardError().constData());
        return process.readAllStandardOutput();
    }
    /// By the system's own Python, for which its package of openpyxl is.
    QByteArray RunPython(const QString &script, const QStringList &arguments)
    {
        return Run(QStringLiteral("/usr/bin/python3"), QStringList(QStringLiteral(PYTHON_SCRIPTS "/") + script) + arguments);
    }
    void Convert(const QString &path, const QString &format, const QString &folder)
    {
        Run(QStringLiteral("soffice"),
            {QStringLiteral("-env:UserInstallation=file://") + Path(QStringLiteral("profile")), QStringLiteral("--headless"),
             QStringLiteral("--convert-to"), format, QStringLiteral("--outdir"), Path(folder), path});
    }
    void WriteImage(const QString &name, Qt::GlobalColor color, int width)
    {
        QImage image(width, 30, QImage::Format_RGB32);
        image.fill(color);
        QVERIFY(image.save(Path(name)));
    }

private Q_SLOTS:
    void a_filled_template_of_an_office_program_shows_the_new_values_data()
    {
        QTest::addColumn<bool>("byLibreOffice");
        QTest::newRow("openpyxl") << false;
        QTest::newRow("LibreOffice") << true;
    }

    void a_filled_template_of_an_office_program_shows_the_new_values()
    {
        QFETCH(bool, byLibreOffice);
        WriteImage(QStringLiteral("old.png"), Qt::white, 40);
        WriteImage(QStringLiteral("new.png"), Qt::red, 50);
        QString source = TemplatePath();
        RunPython(QStringLiteral("make_template.py"), {Path(QStringLiteral("old.png")), source});
        QVERIFY(QFile::exists(source));
        if (byLibreOffice) {
            Convert(source, QStringLiteral("xlsx:Calc MS Excel 2007 XML"), QStringLiteral("written"));
            source = Path(QStringLiteral("written/template.xlsx"));
            QVERIFY(QFile::exists(source));
        }

        FillTemplateProgram list({QStringLiteral("list"), source});
        QCOMPARE(list.Run(), 0);
        QVERIFY2(list.Output().contains("Image 1  picture  Order!$D$2"), list.Output().constData());

        const QString values = Path(QStringLiteral("values.json"));
        WriteFile(values,
                  "{\"Amount\": 123, \"Size\": \"75 kg < \xc3\xa9 & \xc3\xbc\", \"Note\": 8, \"Wide\": \"3 times\","
                  "\"Choice\": {\"value\": \"2 pieces\", \"options\": [\"1 piece\", \"2 pieces\"]},"
                  "\"Fresh\": {\"formula\": \"SUM(B1,1)\"}, \"Image 1\": {\"picture\": \"new.png\"}}");
        FillTemplateProgram fill({QStringLiteral("fill"), source, values, OutputPath()});
        QVERIFY2(fill.Run() == 0, fill.Errors().constData());
        QCOMPARE(PackageFaults(Output()), QStringList());

        // Every sheet to a file of its own.
        Convert(OutputPath(), QStringLiteral("csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,false,false,false,-1"),
                QStringLiteral("csv"));
        QCOMPARE(FileContent(Path(QStringLiteral("csv/output-Order.csv"))).split('\n').mid(0, 3),
                 QList<QByteArray>({"Research & Development,123,,,,,,3 times,3 times", ",75 kg < \xc3\xa9 & \xc3\xbc,,,,,,3 times,3 times",
                                    ",2 pieces,,,,,,,"}));
        QVERIFY(FileContent(Path(QStringLiteral("csv/output-Order.csv"))).contains(",124,"));
        QVERIFY(FileContent(Path(QStringLiteral("csv/output-My notes.csv"))).endsWith(",,8\n"));

        QCOMPARE(RunPython(QStringLiteral("read_lists.py"), {OutputPath()}), QByteArrayLiteral("Order B3 \"1 piece,2 pieces\"\n"));

        Convert(OutputPath(), QStringLiteral("pdf"), QStringLiteral("pdf"));
        Run(QStringLiteral("pdfimages"), {QStringLiteral("-png"), Path(QStringLiteral("pdf/output.pdf")), Path(QStringLiteral("shown"))});
        const QImage shown(Path(QStringLiteral("shown-000.png")));
        QCOMPARE(shown.size(), QSize(50, 30));
        QCOMPARE(shown.pixelColor(25, 15), QColor(Qt::red));
        QVERIFY(!QFile::exists(Path(QStringLiteral("shown-001.png"))));
    }
};

VELMORA_TEST_MAIN(tst_FillTemplateOffice)

#include "tst_FillTemplateOffice.moc"
