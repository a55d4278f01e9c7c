#include <Velmora/XlsxTemplate.h>

#include "support/TestCase.h"
#include "support/TestMain.h"

using namespace Velmora;
using namespace VelmoraTest;

class tst_XlsxTemplate : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void without_a_template_every_operation_says_so()
    {
        XlsxTemplate workbook;
        QVERIFY(!workbook.setValue(QStringLiteral("Name"), 1));
        QCOMPARE(workbook.error(), XlsxTemplate::Error::NotLoaded);
        QVERIFY(!workbook.errorString().isEmpty());
        QCOMPARE(workbook.save(), QByteArray());
        QCOMPARE(workbook.names(), QStringList());
    }
};

VELMORA_BARE_TEST_MAIN(tst_XlsxTemplate)
#include "tst_XlsxTemplate.moc"
