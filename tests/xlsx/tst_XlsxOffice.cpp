#include "xlsx/Office.h"
#include "xlsx/XlsxTestCase.h"

#include <QCoreApplication>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QString kWriter = QStringLiteral(OFFICE_WRITER);

} // namespace

/// Templates of a real program, filled, and looked at by two of them.
class tst_XlsxOffice : public XlsxTestCase
{
    Q_OBJECT

    QString Image(const QString &name, int width, int height) const
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::blue);
        image.save(Path(name));
        return Path(name);
    }
    void MakeTemplate() const { Office({kWriter, TemplatePath(), Image(QStringLiteral("old.png"), 16, 12)}); }
    static QStringList Lines(const QByteArray &text) { return QString::fromUtf8(text).trimmed().split(QLatin1Char('\n')); }
    static QJsonObject Look(const QString &path) { return QJsonDocument::fromJson(Office({QStringLiteral("look"), path})).object(); }
    static QJsonObject SheetOf(const QJsonObject &looked, const char *what, const char *sheet)
    {
        return looked.value(QLatin1String(what)).toObject().value(QLatin1String(sheet)).toObject();
    }

private Q_SLOTS:
    void a_template_is_read_filled_and_read_by_others()
    {
        MakeTemplate();
        const auto before = ReadArchive(FileContent(TemplatePath()));
        QCOMPARE(PackageFaults(before), QStringList());
        XlsxOperator op;
        Prepare(op);
        op.setElementNameFilterRegExp(QStringLiteral("^(Title|Count|Choice|Far|logo)$"));
        QVERIFY(op.load());
        QHash<QString, QVariant> elements;
        op.getElementsNameToValueHash(elements);
        // openpyxl as Debian has it writes texts into the cells, where they read as nothing.
        const bool readsTexts = kWriter == QLatin1String("libreoffice");
        QCOMPARE(op.getCellValue(QStringLiteral("Title")), readsTexts ? QVariant(QStringLiteral("old title")) : QVariant());
        QCOMPARE(op.getCellValue(QStringLiteral("Far")).isValid(), false);
        XlsxOperator::DropDownInfo choice;
        op.getCellDropDownInfo(QStringLiteral("Choice"), choice);
        QCOMPARE(choice.value, readsTexts ? QVariant(QStringLiteral("yes")) : QVariant());
        QCOMPARE(choice.options, (QStringList{QStringLiteral("yes"), QStringLiteral("no")}));

        op.setCellsValue(QStringLiteral("Title"), QStringLiteral("50 \u00e4 new"));
        op.setCellsValue(QStringLiteral("Count"), 100001);
        op.setCellsDropDownInfo(QStringLiteral("Choice"), {QStringLiteral("2nd"), {QStringLiteral("1st"), QStringLiteral("2nd")}});
        op.setCellsValue(QStringLiteral("Far"), 7);
        op.setPicturesPictureInfo(QStringLiteral("logo"), {Image(QStringLiteral("new.png"), 40, 30)});
        QVERIFY(op.setCellValue(QStringLiteral("My Sheet"), 9, QStringLiteral("B"), QStringLiteral("New"), QStringLiteral("9 new")));
        QVERIFY(op.save());

        // By our own rules.
        const auto after = Output();
        QCOMPARE(PackageFaults(after), QStringList());
        for (auto part = before.cbegin(); part != before.cend(); ++part) {
            const bool isParsed = part.key().startsWith("xl/worksheets/sheet") || part.key().startsWith("xl/drawings/")
                || part.key() == kWorkbook || part.key() == kSharedStrings || part.key() == "xl/_rels/workbook.xml.rels"
                || part.key() == "[Content_Types].xml";
            if (!isParsed)
                QVERIFY2(after.value(part.key()) == part.value(), part.key());
        }

        // By openpyxl.
        const QJsonObject looked = Look(OutputPath());
        const QJsonObject data = SheetOf(looked, "cells", "Data");
        QCOMPARE(data.value(QStringLiteral("A1")).toString(), QStringLiteral("50 \u00e4 new"));
        QCOMPARE(data.value(QStringLiteral("B1")).toInt(), 100001);
        QCOMPARE(data.value(QStringLiteral("B2")).toDouble(), 2.5);
        QCOMPARE(data.value(QStringLiteral("A3")).toString(), QStringLiteral("2nd"));
        const QJsonObject mine = SheetOf(looked, "cells", "My Sheet");
        for (const char *cell : {"B3", "C3", "B4", "C4"})
            QCOMPARE(mine.value(QLatin1String(cell)).toInt(), 7);
        QCOMPARE(mine.value(QStringLiteral("B9")).toString(), QStringLiteral("9 new"));
        QCOMPARE(SheetOf(looked, "lists", "Data"), (QJsonObject{{QStringLiteral("A3"), QStringLiteral("\"1st,2nd\"")}}));
        QCOMPARE(looked.value(QStringLiteral("images")).toObject().value(QStringLiteral("Data")).toInt(), 1);

        // By LibreOffice.
        const QStringList lines = Lines(Office({QStringLiteral("csv"), OutputPath()}));
        QCOMPARE(lines.value(0), QStringLiteral("50 \u00e4 new,100001"));
        QVERIFY(lines.value(1).endsWith(QStringLiteral(",2.5")));
        QCOMPARE(lines.value(2), QStringLiteral("2nd,3"));
        // openpyxl's drawings have no prefixes, so their pictures are no elements and stay.
        const bool isElement = elements.contains(QStringLiteral("logo"));
        QCOMPARE(isElement, kWriter == QLatin1String("libreoffice"));
        QCOMPARE(Lines(Office({QStringLiteral("images"), OutputPath()})),
                 QStringList(isElement ? QStringLiteral("40 x 30") : QStringLiteral("16 x 12")));
    }

    void what_the_filter_leaves_out_stays_as_others_see_it()
    {
        MakeTemplate();
        XlsxOperator op;
        Prepare(op);
        op.setElementNameFilterRegExp(QStringLiteral("^(Count|logo)$"));
        QVERIFY(op.load());
        QVERIFY(op.save());
        const QJsonObject before = Look(TemplatePath());
        QVERIFY(!before.isEmpty());
        const QJsonObject after = Look(OutputPath());
        QVERIFY2(after == before,
                 QJsonDocument(QJsonObject{{QStringLiteral("before"), before}, {QStringLiteral("after"), after}}).toJson());
    }
};

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    tst_XlsxOffice test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_XlsxOffice.moc"
