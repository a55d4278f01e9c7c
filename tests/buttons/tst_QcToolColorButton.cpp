#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/SquareIcon.h"
#include "support/TestMain.h"

#include "buttons/ControlTest.h"

#include <Velmora/QcToolColorButton.h>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QStyle::State kHover = QStyle::State_Enabled | QStyle::State_MouseOver;

} // namespace

class TestQcToolColorButton : public ControlTest<QcToolColorButton>
{
    Q_OBJECT

private Q_SLOTS:
    void a_new_one_looks_like_a_tool_button_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < 8; ++i)
            QTest::newRow(kLooks[i].name) << i;
    }

    void a_new_one_looks_like_a_tool_button()
    {
        QFETCH(int, index);
        QcToolButton plain(m_window.get());
        Dress(plain, QPoint(10, 60));
        plain.show();
        DrainEvents();
        BringTo(plain, kLooks[index]);
        const QImage expected = Render(plain);
        LetGo(plain);
        BringTo(*m_control, kLooks[index]);
        QCOMPARE(Render(*m_control), expected);
    }

    void the_two_colours_take_all_eight_looks_in_both_tables_data() { a_new_one_looks_like_a_tool_button_data(); }

    void the_two_colours_take_all_eight_looks_in_both_tables()
    {
        QFETCH(int, index);
        const QString normal = QStringLiteral("brand/brand");
        const QString disabled = QStringLiteral("icon/icon_primary");
        m_control->SetBackgroundColorParams(QStyle::State(kLooks[index].key), QStringLiteral("#FF0000"));
        m_control->setChangeColor(normal, disabled);
        BringTo(*m_control, kLooks[index]);
        for (const Table table : {Table::Dark, Table::Light}) {
            UseTable(table); // which keeps the two
            const QImage image = Render(*m_control);
            const QColor fill = PixelAt(image, QPointF(2, 12));
            COMPARE_COLOR(PixelAt(image, QPointF(20, 12)), Painted(table, index == 0 ? disabled : normal, fill));
            QVERIFY(fill != QColor(Qt::red)); // undone, and the default again
        }
    }

    void the_change_shows_at_once()
    {
        EventCounter paints(*m_control, QEvent::Paint);
        m_control->setChangeColor(QStringLiteral("#00FF00"), QStringLiteral("#0000FF"));
        DrainEvents();
        QCOMPARE(paints.Take(), 1);
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(20, 12)), QColor(Qt::green));
        m_control->setEnabled(false);
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(20, 12)), QColor(Qt::blue));
    }

    void the_change_undoes_what_the_host_set_but_the_path()
    {
        MoveCursorOver(*m_control);
        m_control->setChangeColor(QStringLiteral("#00FF00"), QStringLiteral("#0000FF"));
        const QImage before = Render(*m_control);
        ImageParams own;
        own.path = QStringLiteral(":/images/close.svg");
        own.color = ColorParams("#FF0000");
        m_control->SetIconParam(kHover, own);
        m_control->SetBackgroundColorParams(kHover, QStringLiteral("#FF0000"));
        m_control->SetBorderRadius(9);
        QVERIFY(Render(*m_control) != before);
        m_control->setChangeColor(QStringLiteral("#00FF00"), QStringLiteral("#0000FF"));
        QCOMPARE(Render(*m_control), before);
    }

    void empty_and_unknown_colours_are_no_danger()
    {
        m_control->setChangeColor(QString(), QString());
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(20, 12)), QColor(Qt::red)); // as the file draws it
        m_control->setChangeColor(QStringLiteral("no/such_token"), QString());
        COMPARE_COLOR(PixelAt(Render(*m_control), QPointF(20, 12)), QColor(Qt::black));
    }

    void a_theme_change_repaints_once()
    {
        EventCounter paints(*m_control, QEvent::Paint);
        UseTable(Table::Dark);
        QCOMPARE(paints.Take(), 1);
    }

protected:
    void Prepare() override { Dress(*m_control, QPoint(10, 10)); }

private:
    void Dress(QcToolButton &button, const QPoint &place) const
    {
        button.setGeometry(QRect(place, QSize(40, 24)));
        button.setIconSize(QSize(16, 16));
        button.SetIconPath(m_icon.Path());
    }

    const VelmoraTest::SquareIcon m_icon{QStringLiteral("#FF0000")};
};

VELMORA_TEST_MAIN(TestQcToolColorButton)

#include "tst_QcToolColorButton.moc"
