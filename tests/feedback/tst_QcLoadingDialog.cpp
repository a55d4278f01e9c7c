#include "feedback/DialogChecks.h"
#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/TestMain.h"
#include "windows/TitleRowChecks.h"

#include <Velmora/QcLoadingDialog.h>

#include <QAbstractAnimation>
#include <QAccessible>
#include <QFrame>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

constexpr Qt::WindowFlags kFlags = Qt::Dialog | Qt::FramelessWindowHint;

QLabel *Label(const char *name)
{
    return QcLoadingDialog::getInstance()->findChild<QLabel *>(QLatin1String(name));
}

QWidget *Image()
{
    for (auto *child : QcLoadingDialog::getInstance()->findChildren<QWidget *>()) {
        if (child->inherits("QSvgWidget"))
            return child;
    }
    return nullptr;
}

QString AccessibleName()
{
    return QAccessible::queryAccessibleInterface(QcLoadingDialog::getInstance())->text(QAccessible::Name);
}

} // namespace

class tst_QcLoadingDialog : public TestCase
{
    Q_OBJECT

public:
    tst_QcLoadingDialog()
        : m_dialog(QcLoadingDialog::getInstance()) // before the first test, which would leave it behind
    {
    }

protected:
    void TearDown() override
    {
        ForgetNativeWindow(*m_dialog);
        m_dialog->setParent(nullptr, kFlags);
        m_dialog->setText(QString());
        UseTable(Table::Light);
    }

private Q_SLOTS:
    void there_is_one_hidden_at_first()
    {
        QCOMPARE(QcLoadingDialog::getInstance(), m_dialog);
        QVERIFY(m_dialog->isHidden());
        QVERIFY(!m_dialog->parent());
        QCOMPARE(m_dialog->metaObject()->superClass(), &QDialog::staticMetaObject);
        QCOMPARE(m_dialog->windowFlags() & (Qt::WindowType_Mask | Qt::FramelessWindowHint), kFlags);
        QVERIFY(m_dialog->testAttribute(Qt::WA_TranslucentBackground));
    }

    void the_parts_stand_in_a_column()
    {
        auto *outer = qobject_cast<QVBoxLayout *>(m_dialog->layout());
        QVERIFY(outer);
        QCOMPARE(outer->contentsMargins(), QMargins());
        QCOMPARE(outer->spacing(), 17);
        QCOMPARE(outer->count(), 4);
        QVERIFY(outer->itemAt(0)->spacerItem());
        QVERIFY(outer->itemAt(3)->spacerItem());
        QCOMPARE(outer->itemAt(2)->widget(), Label("m_textLabel"));

        auto *frame = qobject_cast<QFrame *>(outer->itemAt(1)->widget());
        QVERIFY(frame);
        auto *inner = qobject_cast<QVBoxLayout *>(frame->layout());
        QVERIFY(inner);
        QCOMPARE(inner->contentsMargins(), QMargins());
        QCOMPARE(inner->spacing(), 7);
        QCOMPARE(inner->itemAt(0)->widget(), Image());
        QCOMPARE(inner->itemAt(1)->widget(), Label("m_loadingLabel"));
        QCOMPARE(inner->itemAt(0)->alignment(), Qt::AlignCenter);
        QCOMPARE(inner->itemAt(1)->alignment(), Qt::AlignCenter);
        QCOMPARE(Image()->minimumSize(), QSize(48, 48));
        QCOMPARE(Image()->maximumSize(), QSize(48, 48));
        QCOMPARE(Label("m_loadingLabel")->text(), QStringLiteral("Loading..."));
        QCOMPARE(Label("m_loadingLabel")->alignment(), Qt::AlignCenter);
        QCOMPARE(Label("m_textLabel")->text(), QString());
        QCOMPARE(Label("m_textLabel")->alignment(), Qt::AlignCenter);
    }

    void the_group_stays_centred_however_large_the_dialog_is()
    {
        m_dialog->setText(QStringLiteral("Letters"));
        m_dialog->resize(500, 400);
        m_dialog->show();
        DrainEvents();
        const int top = Image()->mapTo(m_dialog, QPoint()).y();
        const int bottom = Label("m_textLabel")->geometry().bottom() + 1;
        QVERIFY(qAbs(top - (400 - bottom)) <= 1);
        QVERIFY(qAbs(Image()->mapTo(m_dialog, Image()->rect().center()).x() - 250) <= 1);
    }

    void texts_have_their_colours_and_no_ground_is_painted()
    {
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            m_dialog->setText(QStringLiteral("\u2588\u2588\u2588"));
            Label("m_loadingLabel")->setText(QStringLiteral("\u2588\u2588\u2588"));
            m_dialog->resize(200, 200);
            m_dialog->show();
            DrainEvents();
            const QColor ground(10, 20, 30);
            const QImage image = Render(*m_dialog, ground);
            COMPARE_COLOR(PixelAt(image, QPointF(3, 3)), ground);
            // Within the ring, and beside the strokes: nothing of the ground that the stylesheet asks for.
            COMPARE_COLOR(PixelAt(image, Image()->mapTo(m_dialog, QPoint(24, 24))), ground);
            COMPARE_COLOR(PixelAt(image, Image()->mapTo(m_dialog, QPoint(1, 1))), ground);
            COMPARE_COLOR(PixelAt(image, Image()->mapTo(m_dialog, QPoint(5, 24))), QColor("#3A90FF"));
            const auto ink = [&](const char *name) {
                const QLabel *label = Label(name);
                return MainInk(Part(image, QRectF(label->mapTo(m_dialog, QPoint()), label->size())), ground);
            };
            COMPARE_COLOR(ink("m_loadingLabel"), Over(QColor(255, 255, 255, 178), ground));
            COMPARE_COLOR(ink("m_textLabel"), Over(TokenOf(table, QStringLiteral("text/text_secondary")), ground));
            QCOMPARE(Label("m_loadingLabel")->font().pixelSize(), 14);
            QCOMPARE(Label("m_textLabel")->font().pixelSize(), 14);
            Label("m_loadingLabel")->setText(QStringLiteral("Loading..."));
        }
    }

    void the_image_does_not_move_by_itself()
    {
        m_dialog->show();
        DrainEvents();
        EventCounter paints(*Image(), QEvent::Paint);
        QVERIFY(m_dialog->findChildren<QTimer *>().isEmpty());
        QVERIFY(m_dialog->findChildren<QAbstractAnimation *>().isEmpty());
        DrainEvents();
        QCOMPARE(paints.Take(), 0);
    }

    void the_caption_is_what_the_host_says()
    {
        m_dialog->setText(QStringLiteral("Letters"));
        QCOMPARE(Label("m_textLabel")->text(), QStringLiteral("Letters"));
        m_dialog->setText(QString());
        QCOMPARE(Label("m_textLabel")->text(), QString());
    }

    void its_texts_name_it_until_the_host_does()
    {
        QCOMPARE(AccessibleName(), QStringLiteral("Loading..."));
        m_dialog->setText(QStringLiteral("Letters"));
        QCOMPARE(AccessibleName(), QStringLiteral("Loading... Letters"));
        m_dialog->setAccessibleName(QStringLiteral("Wait"));
        m_dialog->setText(QStringLiteral("Parcels"));
        QCOMPARE(AccessibleName(), QStringLiteral("Wait"));
        m_dialog->setAccessibleName(QStringLiteral("Loading... Letters")); // ours again
    }

    void loading_follows_the_language()
    {
        {
            const BracketTranslator translator("Velmora::QcLoadingDialog");
            DrainEvents();
            QCOMPARE(Label("m_loadingLabel")->text(), QStringLiteral("[Loading...]"));
            QCOMPARE(AccessibleName(), QStringLiteral("[Loading...]"));
        }
        DrainEvents();
        QCOMPARE(Label("m_loadingLabel")->text(), QStringLiteral("Loading..."));
    }

    void a_dying_parent_leaves_it_behind_as_it_was_made_data() { AddDeaths(); }
    void a_dying_parent_leaves_it_behind_as_it_was_made()
    {
        m_dialog->setText(QStringLiteral("Letters"));
        CheckOutlivesItsParent(*m_dialog, Log());
        QCOMPARE(m_dialog->windowFlags() & (Qt::WindowType_Mask | Qt::FramelessWindowHint), kFlags);
        QCOMPARE(Label("m_textLabel")->text(), QStringLiteral("Letters"));
        m_dialog->show();
        QVERIFY(m_dialog->isVisible());
    }

    void a_parent_that_it_left_does_not_take_it_out_of_the_next_one() { CheckStaysWithItsNextParent(*m_dialog); }

    void a_dialog_that_runs_ends_rejected_with_its_parent() { CheckEndsRejectedWithItsParent(*m_dialog); }

    void in_a_parent_it_is_a_child()
    {
        QWidget parent;
        parent.show();
        ForgetNativeWindow(*m_dialog);
        Log().ExpectMatch(QtWarningMsg, kBecomesChild);
        m_dialog->setParent(&parent);
        QVERIFY(!m_dialog->isWindow());
        QVERIFY(m_dialog->isHidden());
        m_dialog->show();
        QVERIFY(m_dialog->isVisible());
    }

    void escape_hides_it_and_tells() { CheckEscapeHidesAndTells(*m_dialog); }

    void the_programs_end_is_left_to_windows() { CheckLeavesTheProgramsEndToWindows(*m_dialog); }

private:
    QcLoadingDialog *m_dialog;
};

VELMORA_TEST_MAIN(tst_QcLoadingDialog)

#include "tst_QcLoadingDialog.moc"
