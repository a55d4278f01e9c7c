#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include <Velmora/QcMaskFrame.h>
#include <Velmora/QcMaskWindow.h>

#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QWindow>

using namespace Velmora;
using namespace VelmoraTest;

class TestMasks : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_mask_frame_lies_inside_a_window()
    {
        QWidget window;
        auto *mask = new QcMaskFrame(&window);
        QVERIFY(!mask->isWindow());
        QVERIFY(mask->testAttribute(Qt::WA_TranslucentBackground));
        QVERIFY(mask->testAttribute(Qt::WA_AlwaysStackOnTop));
        CheckLayout(*mask);
    }

    void a_mask_window_is_a_tool_window_also_with_a_parent()
    {
        QWidget parent;
        auto *mask = new QcMaskWindow(&parent);
        QVERIFY(mask->isWindow());
        QCOMPARE(int(mask->windowFlags()), 0x80B);
        QVERIFY(mask->testAttribute(Qt::WA_TranslucentBackground));
        QVERIFY(!mask->testAttribute(Qt::WA_AlwaysStackOnTop));
        CheckLayout(*mask);
        parent.setGeometry(50, 60, 100, 100);
        mask->setGeometry(300, 200, 40, 30);
        parent.show();
        mask->show();
        QCOMPARE(mask->geometry(), QRect(300, 200, 40, 30));
        parent.move(10, 10);
        QCOMPARE(mask->geometry(), QRect(300, 200, 40, 30));
    }

    void both_fill_all_of_their_rectangle_in_both_tables()
    {
        QcMaskFrame frame(nullptr);
        QcMaskWindow window(nullptr);
        for (QWidget *mask : {static_cast<QWidget *>(&frame), static_cast<QWidget *>(&window)}) {
            for (const Table table : {Table::Dark, Table::Light}) {
                UseTable(table);
                const QColor overlay = TokenOf(table, QStringLiteral("overlay/overlay_primary"));
                QVERIFY(overlay.alpha() > 0 && overlay.alpha() < 255);
                for (const QSize size : {QSize(30, 20), QSize(80, 90)}) {
                    mask->resize(size);
                    const QImage image = Render(*mask);
                    const QPointF corners[] = {
                        {0, 0}, {size.width() - 0.1, 0}, {size.width() - 0.1, size.height() - 0.1}, {0, size.height() - 0.1}};
                    for (const QPointF &corner : corners)
                        COMPARE_COLOR(PixelAt(image, corner), Over(overlay));
                    COMPARE_COLOR(PixelAt(image, QPointF(size.width() / 2, size.height() / 2)), Over(overlay));
                }
            }
        }
    }

    void a_veil_shows_what_lies_behind_it()
    {
        QWidget window;
        window.resize(100, 60);
        window.setPalette(QPalette(Qt::red));
        window.setAutoFillBackground(true);
        auto *mask = new QcMaskFrame(&window);
        mask->setGeometry(0, 0, 50, 60);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QImage image = window.grab().toImage();
        const QColor ground = window.palette().color(QPalette::Window);
        COMPARE_COLOR(PixelAt(image, QPointF(25, 30)), Over(TokenOf(Table::Light, QStringLiteral("overlay/overlay_primary")), ground));
        COMPARE_COLOR(PixelAt(image, QPointF(75, 30)), ground);
    }

    void a_veil_in_a_window_stops_the_mouse_and_leaves_the_keyboard()
    {
        QWidget window;
        window.setGeometry(0, 0, 200, 100);
        QPushButton button(&window);
        button.setGeometry(20, 20, 100, 40);
        QcMaskFrame mask(&window);
        mask.setGeometry(window.rect());
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        button.setFocus();
        QSignalSpy clicks(&button, &QPushButton::clicked);
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, button.geometry().center());
        QCOMPARE(clicks.count(), 0);
        QVERIFY(!button.underMouse());
        QTest::keyClick(window.windowHandle(), Qt::Key_Space);
        QCOMPARE(clicks.count(), 1);
        mask.hide();
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, button.geometry().center());
        QCOMPARE(clicks.count(), 2);
    }

    void a_visible_veil_follows_the_table()
    {
        QcMaskFrame mask(nullptr);
        mask.resize(20, 20);
        mask.show();
        QVERIFY(QTest::qWaitForWindowExposed(&mask));
        DrainEvents();
        EventCounter paints(mask, QEvent::Paint);
        UseTable(Table::Dark);
        QCOMPARE(paints.Take(), 1);
    }

    void a_veil_dies_with_its_parent_and_the_next_table_asks_it_nothing()
    {
        auto *window = new QWidget; // deleted below, with the veils
        const QPointer<QcMaskFrame> frame = new QcMaskFrame(window);
        const QPointer<QcMaskWindow> tool = new QcMaskWindow(window);
        window->show();
        tool->show();
        delete window;
        QVERIFY(!frame && !tool);
        UseTable(Table::Dark);
    }

    void a_veil_may_be_deleted_when_it_is_about_to_follow_the_table()
    {
        QPointer<QcMaskFrame> mask = new QcMaskFrame(nullptr); // deleted below
        mask->show();
        const auto connection = connect(QcStyleManager::GetInstance(), &QcStyleManager::SignalColorChanged, this, [&] { delete mask; });
        UseTable(Table::Dark);
        disconnect(connection);
        QVERIFY(!mask);
    }

protected:
    void TearDown() override { UseTable(Table::Light); }

private:
    static void CheckLayout(const QWidget &mask)
    {
        auto *row = qobject_cast<QHBoxLayout *>(mask.layout());
        QVERIFY(row);
        QCOMPARE(row->contentsMargins(), QMargins());
        QCOMPARE(row->spacing(), 0);
        QCOMPARE(row->count(), 0);
    }
};

VELMORA_TEST_MAIN(TestMasks)

#include "tst_Masks.moc"
