#include "feedback/DialogChecks.h"
#include "support/AccessibleEvents.h"
#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/TestMain.h"
#include "windows/TitleRowChecks.h"

#include <Velmora/QcProgressDialog.h>

#include <QAbstractAnimation>
#include <QAccessible>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>

#include <limits>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr Qt::WindowFlags kFlags = Qt::Tool | Qt::FramelessWindowHint;
constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();

QLabel *Label(const char *name)
{
    return QcProgressDialog::getInstance()->findChild<QLabel *>(QLatin1String(name));
}

QProgressBar *Bar()
{
    return QcProgressDialog::getInstance()->findChild<QProgressBar *>();
}

QString Percentage()
{
    return Label("m_progressLabel")->text();
}

QString Tip()
{
    return Label("m_tipLabel")->text();
}

QString AccessibleName(QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

} // namespace

class tst_QcProgressDialog : public TestCase
{
    Q_OBJECT

public:
    tst_QcProgressDialog()
        : m_dialog(QcProgressDialog::getInstance()) // before the first test, which would leave it behind
        , m_firstTip(Tip())
    {
    }

protected:
    void TearDown() override
    {
        m_dialog->setParent(nullptr);
        ForgetNativeWindow(*m_dialog);
        m_dialog->setRange(0, 100);
        m_dialog->setValue(0);
        m_dialog->setText(QStringLiteral("LoadingMsg"));
        UseTable(Table::Light);
    }

private Q_SLOTS:
    void there_is_one_hidden_at_first()
    {
        QCOMPARE(QcProgressDialog::getInstance(), m_dialog);
        QVERIFY(m_dialog->isHidden());
        QCOMPARE(m_dialog->windowFlags(), kFlags);
        QCOMPARE(m_dialog->metaObject()->superClass(), &QDialog::staticMetaObject);
        QCOMPARE(m_dialog->value(), 0);
        QCOMPARE(Bar()->minimum(), 0);
        QCOMPARE(m_dialog->totalProgressCount(), 100);
        QCOMPARE(Percentage(), QStringLiteral("0%"));
        QCOMPARE(m_firstTip, QStringLiteral("LoadingMsg"));
    }

    void the_parts_have_their_places()
    {
        QCOMPARE(m_dialog->minimumSize(), QSize(357, 87));
        QCOMPARE(m_dialog->maximumSize(), QSize(357, 87));
        QCOMPARE(m_dialog->layout()->contentsMargins(), QMargins(19, 20, 14, 13));
        QCOMPARE(m_dialog->layout()->spacing(), 4);
        QCOMPARE(m_dialog->layout()->count(), 2);
        QCOMPARE(m_dialog->layout()->itemAt(1)->widget(), Label("m_tipLabel"));
        auto *frame = qobject_cast<QFrame *>(m_dialog->layout()->itemAt(0)->widget());
        QVERIFY(frame);
        auto *row = qobject_cast<QHBoxLayout *>(frame->layout());
        QVERIFY(row);
        QCOMPARE(row->contentsMargins(), QMargins());
        QCOMPARE(row->spacing(), 7);
        QCOMPARE(row->itemAt(0)->widget(), Bar());
        QCOMPARE(row->itemAt(1)->widget(), Label("m_progressLabel"));
        QCOMPARE(Bar()->minimumHeight(), 8);
        QCOMPARE(Bar()->maximumHeight(), 8);
        QVERIFY(!Bar()->isTextVisible());
        QCOMPARE(Label("m_tipLabel")->alignment(), Qt::AlignHCenter);
    }

    void it_is_painted_in_its_tokens()
    {
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const auto token = [table](const char *name) { return TokenOf(table, QLatin1String(name)); };
            m_dialog->setText(QStringLiteral("\u2588\u2588\u2588"));
            m_dialog->setValue(50);
            m_dialog->show();
            DrainEvents();
            const QImage image = Render(*m_dialog);
            const QColor ground = token("bg/bg_float");
            COMPARE_COLOR(PixelAt(image, QPointF(8, 8)), ground);
            COMPARE_COLOR(PixelAt(image, QPointF(0.5, 40)), Over(token("border/border_tertairy"), ground));
            const QPoint bar = Bar()->mapTo(m_dialog, QPoint());
            COMPARE_COLOR(PixelAt(image, bar + QPoint(Bar()->width() / 4, 4)), token("brand/brand"));
            COMPARE_COLOR(PixelAt(image, bar + QPoint(Bar()->width() * 3 / 4, 4)), Over(token("bg/bg_transluent_strong_dis"), ground));
            COMPARE_COLOR(PixelAt(image, bar + QPointF(0.3, 0.3)), ground); // rounded
            const QLabel *tip = Label("m_tipLabel");
            const QImage tipImage = Part(image, QRectF(tip->mapTo(m_dialog, QPoint()), tip->size()));
            COMPARE_COLOR(MainInk(tipImage, ground), Over(token("text/text_primary"), ground));
            QCOMPARE(tip->font().pixelSize(), 12);
            QCOMPARE(Label("m_progressLabel")->font().pixelSize(), 12);
        }
    }

    void the_percentage_is_cut_to_whole_percents_data()
    {
        QTest::addColumn<int>("minimum");
        QTest::addColumn<int>("maximum");
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("1 of 3") << 0 << 3 << 1 << "33%";
        QTest::newRow("2 of 3") << 0 << 3 << 2 << "66%";
        QTest::newRow("3 of 3") << 0 << 3 << 3 << "100%";
        QTest::newRow("1 of 100") << 0 << 100 << 1 << "1%";
        QTest::newRow("50 of 101") << 0 << 101 << 50 << "49%";
        QTest::newRow("53 of 100, by 32-bit floats") << 0 << 100 << 53 << "52%";
        QTest::newRow("59 of 100, by 32-bit floats") << 0 << 100 << 59 << "58%";
        QTest::newRow("the minimum plays no part") << 50 << 100 << 75 << "75%";
        QTest::newRow("nothing of nothing") << 0 << 0 << 0 << "0%";
        QTest::newRow("something of nothing") << 0 << 0 << 5 << "0%";
        QTest::newRow("less than nothing of nothing") << -5 << 0 << -3 << "0%";
        QTest::newRow("below zero") << -4 << 4 << -1 << "-25%";
        QTest::newRow("all there is") << 0 << kMax << kMax << "100%";
        QTest::newRow("the least of one") << kMin << 1 << kMin << "-214748364800%";
    }
    void the_percentage_is_cut_to_whole_percents()
    {
        QFETCH(int, minimum);
        QFETCH(int, maximum);
        QFETCH(int, value);
        m_dialog->setRange(minimum, maximum);
        m_dialog->setValue(value);
        QCOMPARE(m_dialog->value(), value);
        QTEST(Percentage(), "text");
    }

    void only_two_whole_percents_are_off_by_their_floats()
    {
        QVector<int> off;
        for (int value = 0; value <= 100; ++value) {
            m_dialog->setValue(value);
            if (Percentage() != QStringLiteral("%1%").arg(value))
                off.append(value);
        }
        QCOMPARE(off, QVector<int>({53, 59}));
    }

    void a_new_range_shows_at_once()
    {
        m_dialog->setValue(50);
        m_dialog->setRange(0, 200);
        QCOMPARE(Percentage(), QStringLiteral("25%"));
    }

    void a_value_outside_of_the_range_is_ignored()
    {
        m_dialog->setValue(40);
        for (const int value : {-1, 101, kMin, kMax}) {
            m_dialog->setValue(value);
            QCOMPARE(m_dialog->value(), 40);
            QCOMPARE(Percentage(), QStringLiteral("40%"));
        }
    }

    void a_range_without_the_value_leaves_one_below_its_minimum()
    {
        m_dialog->setValue(50);
        m_dialog->setRange(0, 4);
        QCOMPARE(m_dialog->value(), -1);
        QCOMPARE(Percentage(), QStringLiteral("-25%"));
    }

    void a_maximum_below_the_minimum_counts_as_the_minimum()
    {
        m_dialog->setRange(5, 1);
        QCOMPARE(m_dialog->totalProgressCount(), 5);
        m_dialog->setValue(5);
        QCOMPARE(Percentage(), QStringLiteral("100%"));
    }

    void clear_leaves_the_range_and_empties_the_tip()
    {
        m_dialog->setRange(0, 7);
        m_dialog->setValue(7);
        m_dialog->clear();
        QCOMPARE(m_dialog->value(), 0);
        QCOMPARE(m_dialog->totalProgressCount(), 7);
        QCOMPARE(Percentage(), QStringLiteral("0%"));
        QCOMPARE(Tip(), QString());
    }

    void the_tip_follows_the_language_until_the_host_says_one()
    {
        {
            const BracketTranslator translator("Velmora::QcProgressDialog");
            DrainEvents();
            QCOMPARE(Tip(), QStringLiteral("[LoadingMsg]"));
            m_dialog->setText(QStringLiteral("Letters"));
        }
        DrainEvents();
        QCOMPARE(Tip(), QStringLiteral("Letters"));
    }

    void a_tip_that_was_cleared_stays_empty_in_every_language()
    {
        m_dialog->setText(QStringLiteral("Letters"));
        m_dialog->clear();
        const BracketTranslator translator("Velmora::QcProgressDialog");
        DrainEvents();
        QCOMPARE(Tip(), QString());
    }

    void a_value_that_changes_nothing_does_nothing()
    {
        m_dialog->setRange(0, 1000);
        m_dialog->setValue(500);
        m_dialog->show();
        DrainEvents();
        EventCounter paints(*m_dialog, QEvent::Paint);
        EventCounter labelPaints(*Label("m_progressLabel"), QEvent::Paint);
        EventCounter layouts(*m_dialog, QEvent::LayoutRequest);
        for (int i = 0; i < 10; ++i)
            m_dialog->setValue(500);
        DrainEvents();
        QCOMPARE(paints.Take() + labelPaints.Take() + layouts.Take(), 0);
        m_dialog->setValue(501); // the same percentage
        DrainEvents();
        QCOMPARE(labelPaints.Take(), 0);
    }

    void a_new_parent_leaves_it_the_window_that_it_is()
    {
        QWidget parent;
        parent.show();
        m_dialog->show();
        m_dialog->setParent(&parent);
        QCOMPARE(m_dialog->parentWidget(), &parent);
        QCOMPARE(m_dialog->windowFlags(), kFlags);
        QVERIFY(m_dialog->isWindow());
        QVERIFY(m_dialog->isHidden()); // until the host shows it
        m_dialog->show();
        QVERIFY(m_dialog->isVisible());
        m_dialog->setParent(nullptr);
        QCOMPARE(m_dialog->windowFlags(), kFlags);
        QVERIFY(m_dialog->isHidden());
    }

    void neither_the_dialog_nor_what_lies_in_it_becomes_its_parent()
    {
        QWidget parent;
        m_dialog->setParent(&parent);
        QDialog inner(m_dialog); // a window, which lies in the dialog all the same
        for (QWidget *widget : {static_cast<QWidget *>(m_dialog), static_cast<QWidget *>(Bar()), static_cast<QWidget *>(&inner)}) {
            m_dialog->setParent(widget);
            QCOMPARE(m_dialog->parentWidget(), &parent);
        }
    }

    void a_dying_parent_leaves_it_behind_data() { AddDeaths(); }
    void a_dying_parent_leaves_it_behind()
    {
        m_dialog->setValue(42);
        m_dialog->setText(QStringLiteral("Letters"));
        CheckOutlivesItsParent(*m_dialog, Log());
        QCOMPARE(m_dialog->value(), 42);
        QCOMPARE(Tip(), QStringLiteral("Letters"));
        m_dialog->setWindowFlags(kFlags); // which a host takes away that calls QWidget's own setParent()
    }

    void a_dying_parent_leaves_it_its_flags()
    {
        {
            QWidget parent;
            parent.show();
            m_dialog->setParent(&parent);
            m_dialog->show();
        }
        QCOMPARE(m_dialog->windowFlags(), kFlags);
        QVERIFY(m_dialog->isHidden());
        m_dialog->show();
        QVERIFY(m_dialog->isVisible());
    }

    void a_parent_that_it_left_does_not_take_it_out_of_the_next_one()
    {
        CheckStaysWithItsNextParent(*m_dialog);
        m_dialog->setWindowFlags(kFlags);
    }

    void a_dialog_that_runs_ends_rejected_with_its_parent() { CheckEndsRejectedWithItsParent(*m_dialog); }

    void escape_hides_it_and_tells() { CheckEscapeHidesAndTells(*m_dialog); }

    void the_programs_end_is_left_to_windows() { CheckLeavesTheProgramsEndToWindows(*m_dialog); }

    void the_tip_names_bar_and_dialog_until_the_host_does()
    {
        m_dialog->setText(QStringLiteral("Letters"));
        QCOMPARE(AccessibleName(m_dialog), QStringLiteral("Letters"));
        QCOMPARE(AccessibleName(Bar()), QStringLiteral("Letters"));
        Bar()->setAccessibleName(QStringLiteral("Post"));
        m_dialog->setText(QStringLiteral("Parcels"));
        QCOMPARE(AccessibleName(Bar()), QStringLiteral("Post"));
        Bar()->setAccessibleName(QStringLiteral("Letters")); // ours again
    }

    void assistive_technology_reads_the_value_and_hears_of_it()
    {
        m_dialog->setRange(0, 200);
        m_dialog->show();
        AccessibleEvents events(*Bar());
        m_dialog->setValue(50);
        QVERIFY(events.Take().contains(QStringLiteral("ValueChanged")));
        auto *value = QAccessible::queryAccessibleInterface(Bar())->valueInterface();
        QVERIFY(value);
        QCOMPARE(value->currentValue().toInt(), 50);
        QCOMPARE(value->maximumValue().toInt(), 200);
    }

    void at_rest_nothing_is_painted()
    {
        m_dialog->setValue(30);
        m_dialog->show();
        DrainEvents();
        QProgressBar busy; // which tells the time
        busy.setRange(0, 0);
        busy.show();
        EventCounter clock(busy, QEvent::Paint);
        EventCounter paints(*Bar(), QEvent::Paint);
        int beats = 0;
        QTRY_VERIFY((beats += clock.Take()) >= 5);
        QCOMPARE(paints.Take(), 0);
    }

    void a_range_of_nothing_makes_a_bar_that_moves_while_it_shows()
    {
        m_dialog->setRange(0, 0);
        m_dialog->show();
        EventCounter paints(*Bar(), QEvent::Paint);
        int painted = 0;
        QTRY_VERIFY((painted += paints.Take()) >= 5);
        m_dialog->hide();
        QTRY_VERIFY(Bar()->findChildren<QAbstractAnimation *>().isEmpty());
    }

private:
    QcProgressDialog *m_dialog;
    const QString m_firstTip;
};

VELMORA_TEST_MAIN(tst_QcProgressDialog)

#include "tst_QcProgressDialog.moc"
