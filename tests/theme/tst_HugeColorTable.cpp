#include "TestFiles.h"
#include "support/ColorValue.h"
#include "support/TestMain.h"

#include <QSignalSpy>

using namespace Velmora;

// A program of its own, because it takes seconds; the test's time limit is the bound.
class tst_HugeColorTable : public VelmoraTest::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_huge_table_loads()
    {
#ifdef __SANITIZE_ADDRESS__ // which follows the stack of each of the millions of allocations
        constexpr int kTokens = 100 * 1000;
#else
        constexpr int kTokens = 2800 * 1000; // 100 MB
#endif
        QByteArray text;
        text.reserve(kTokens * 40);
        for (int i = 0; i < kTokens; ++i) {
            text += "family/token_" + QByteArray::number(i) + " = #0670F9, 0.4 ; x\n";
        }
        const VelmoraTest::TestFiles files;
        const QString path = files.Write(QStringLiteral("huge.ini"), text);
        text.clear();

        QcStyleManager *manager = QcStyleManager::GetInstance();
        QSignalSpy changed(manager, &QcStyleManager::SignalColorChanged);
        manager->SetColorFilePath(path);
        QCOMPARE(changed.count(), 1);
        QColor expected(0x06, 0x70, 0xF9);
        expected.setAlphaF(VelmoraTest::ColorValue(0.4));
        for (const int token : {0, kTokens / 2, kTokens - 1})
            QCOMPARE(manager->GetColor(QStringLiteral("family/token_%1").arg(token)), expected);
    }
};

VELMORA_TEST_MAIN(tst_HugeColorTable)
#include "tst_HugeColorTable.moc"
