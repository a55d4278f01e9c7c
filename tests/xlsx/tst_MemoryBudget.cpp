#include "support/TestCase.h"
#include "support/TestMain.h"
#include "xlsx/MemoryBudget_p.h"

#include <functional>

using namespace Velmora;
using namespace VelmoraTest;

class tst_MemoryBudget : public TestCase
{
    Q_OBJECT

    /// What \a take took of a fresh budget.
    static qint64 Taken(const std::function<bool(MemoryBudget &)> &take)
    {
        MemoryBudget budget;
        if (!take(budget))
            return -1;
        qint64 left = 0;
        for (qint64 step = MemoryBudget::kBytes; step > 0; step /= 2) {
            while (budget.Take(step))
                left += step;
        }
        return MemoryBudget::kBytes - left;
    }
    static qint64 OfPart(const QByteArray &xml)
    {
        return Taken([&xml](MemoryBudget &budget) { return budget.TakePart(xml.constData(), xml.size()); });
    }

private Q_SLOTS:
    void it_gives_what_it_has_and_no_more()
    {
        MemoryBudget budget;
        QVERIFY(!budget.Take(MemoryBudget::kBytes + 1));
        QVERIFY(budget.Take(MemoryBudget::kBytes - 1));
        QVERIFY(!budget.Take(2));
        QVERIFY(budget.Take(1));
        QVERIFY(!budget.Take(1));
    }

    void a_part_takes_its_elements_texts_attributes_and_bytes()
    {
        const qint64 element = OfPart("<a/>") - 2 * 4;
        QVERIFY(element >= 64);
        const qint64 text = OfPart("<a>x</a>") - element - 2 * 8;
        QVERIFY(text >= 64);
        const qint64 attribute = OfPart("<a b=\"\"/>") - element - 2 * 9;
        QVERIFY(attribute >= 40);
        QVERIFY(OfPart("<!---->") - 2 * 7 >= 64);
        QVERIFY(OfPart("<a><![CDATA[]]></a>") - 2 * 19 >= 2 * 64);
        QCOMPARE(OfPart("<a></a>"), element + 2 * 7);
        QCOMPARE(OfPart(QByteArray()), 0);
    }

    void a_part_of_any_length_is_counted_to_its_last_byte()
    {
        const qint64 element = OfPart("<a/>");
        for (int i = 0; i < 300; ++i) {
            QCOMPARE(OfPart(QByteArray(i, ' ') + "<a/>"), element + 2 * i);
            QCOMPARE(OfPart(QByteArray("<a/>").repeated(i)), element * i);
        }
    }

    void what_is_refused_takes_nothing()
    {
        const QByteArray xml = QByteArray("<a/>").repeated(1000);
        const qint64 cost = OfPart(xml);
        MemoryBudget budget;
        QVERIFY(budget.Take(MemoryBudget::kBytes - cost + 1));
        QVERIFY(!budget.TakePart(xml.constData(), xml.size()));
        QVERIFY(!budget.TakeText(QByteArray(10000, 'x').constData(), 100));
        QVERIFY(budget.Take(cost - 1));
    }

    void a_text_takes_more_for_each_cell_that_gets_it()
    {
        const auto ofText = [](const QByteArray &text, qint64 copies) {
            return Taken([&](MemoryBudget &budget) { return budget.TakeText(text.constData(), copies); });
        };
        const QByteArray text(1000, 'x');
        QVERIFY(ofText(text, 1) >= 3 * text.size());
        QVERIFY(ofText(text, 100) >= 100 * text.size());
        QVERIFY(ofText(QByteArray(1000, '&'), 100) >= 5 * 100 * text.size());
        QCOMPARE(ofText(text, MemoryBudget::kBytes), -1);
        QCOMPARE(ofText(QByteArray(), 100), 0);
    }
};

VELMORA_BARE_TEST_MAIN(tst_MemoryBudget)
#include "tst_MemoryBudget.moc"
