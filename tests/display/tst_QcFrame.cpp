#include "support/ColorValue.h"
#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include <Velmora/QcFrame.h>

#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QString kBackground = QStringLiteral("brand/brand");
const QString kBorder = QStringLiteral("text/text_primary");
constexpr int kWidth = 60;
constexpr int kHeight = 40;

std::unique_ptr<QcFrame> MakeFrame(QFlags<QcFrame::BorderSide> sides, int radius = 0,
                                   const QString &background = QStringLiteral("transparent"))
{
    auto frame = std::make_unique<QcFrame>();
    frame->resize(kWidth, kHeight);
    frame->setBackgroundColorParams(background);
    frame->setBorderColorParams(QStringLiteral("#000000"));
    frame->setBorderSides(sides);
    frame->setBorderRadius(radius);
    return frame;
}

} // namespace

class TestQcFrame : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void sides_are_flags()
    {
        QCOMPARE(int(QcFrame::Left), 1);
        QCOMPARE(int(QcFrame::Top), 2);
        QCOMPARE(int(QcFrame::Right), 4);
        QCOMPARE(int(QcFrame::Bottom), 8);
    }

    void a_new_frame_paints_nothing()
    {
        QcFrame frame;
        frame.resize(kWidth, kHeight);
        QVERIFY(InkBox(Render(frame), Qt::white, 0).isNull());
        QCOMPARE(frame.windowFlags() & ~Qt::WindowType_Mask, QFrame().windowFlags() & ~Qt::WindowType_Mask);
    }

    void all_sides_with_their_first_colour_stay_invisible()
    {
        QcFrame frame;
        frame.resize(kWidth, kHeight);
        frame.setBorderSides(QcFrame::Left | QcFrame::Top | QcFrame::Right | QcFrame::Bottom);
        QVERIFY(InkBox(Render(frame), Qt::white, 0).isNull());
    }

    void colours_follow_the_table()
    {
        const auto frame = MakeFrame(QFlags<QcFrame::BorderSide>(15), 6, kBackground);
        frame->setBorderColorParams(QStringLiteral("${text/text_primary}"));
        for (const Table table : {Table::Dark, Table::Light}) {
            UseTable(table);
            const QImage image = Render(*frame);
            const QColor fill = Over(TokenOf(table, kBackground));
            COMPARE_COLOR(PixelAt(image, QPointF(kWidth / 2, kHeight / 2)), fill);
            COMPARE_COLOR(PixelAt(image, QPointF(0, kHeight / 2)), Over(TokenOf(table, kBorder), fill));
        }
    }

    void the_background_is_rounded()
    {
        const auto frame = MakeFrame({}, 10, kBackground);
        const QImage image = Render(*frame);
        const QColor fill = Over(TokenOf(Table::Light, kBackground));
        const QPoint corners[] = {{0, 0}, {kWidth - 1, 0}, {kWidth - 1, kHeight - 1}, {0, kHeight - 1}};
        for (const QPoint &corner : corners)
            COMPARE_COLOR(PixelAt(image, corner), QColor(Qt::white));
        COMPARE_COLOR(PixelAt(image, QPointF(0, kHeight / 2)), fill);
        COMPARE_COLOR(PixelAt(image, QPointF(4, 4)), fill);

        frame->setBorderRadius(0);
        COMPARE_COLOR(PixelAt(Render(*frame), QPointF(0, 0)), fill);
    }

    void an_empty_code_paints_black()
    {
        const auto frame = MakeFrame({}, 0, QString());
        COMPARE_COLOR(PixelAt(Render(*frame), QPointF(5, 5)), QColor(Qt::black));
    }

    void four_sides_are_one_rounded_outline()
    {
        const auto frame = MakeFrame(QFlags<QcFrame::BorderSide>(15), 10);
        const QImage image = Render(*frame);
        // The line lies within the frame, so its pixels are covered whole.
        COMPARE_COLOR(PixelAt(image, QPointF(kWidth / 2, 0)), QColor(Qt::black));
        COMPARE_COLOR(PixelAt(image, QPointF(kWidth - 0.1, kHeight / 2)), QColor(Qt::black));
        COMPARE_COLOR(PixelAt(image, QPointF(kWidth / 2, kHeight - 0.1)), QColor(Qt::black));
        COMPARE_COLOR(PixelAt(image, QPointF(0, kHeight / 2)), QColor(Qt::black));
        COMPARE_COLOR(PixelAt(image, QPointF(kWidth / 2, 2)), QColor(Qt::white));
        COMPARE_COLOR(PixelAt(image, QPointF(kWidth - 3, kHeight / 2)), QColor(Qt::white));
        for (const QPointF &corner :
             {QPointF(0, 0), QPointF(kWidth - 0.1, 0), QPointF(kWidth - 0.1, kHeight - 0.1), QPointF(0, kHeight - 0.1)})
            COMPARE_COLOR(PixelAt(image, corner), QColor(Qt::white));
    }

    void fewer_sides_are_straight_lines_data()
    {
        QTest::addColumn<int>("sides");
        for (int sides = 0; sides < 15; ++sides)
            QTest::newRow(qPrintable(QString::number(sides))) << sides;
        QTest::newRow("an unknown flag besides all four") << 31;
    }

    void fewer_sides_are_straight_lines()
    {
        QFETCH(int, sides);
        const auto frame = MakeFrame(QFlags<QcFrame::BorderSide>(sides), 10); // a radius rounds no line
        const QImage image = Render(*frame);
        const auto isInked = [&image](int x, int y) { return !Close(PixelAt(image, QPointF(x, y)), Qt::white, 40); };
        const int right = kWidth - 1;
        const int bottom = kHeight - 1;
        QCOMPARE(isInked(0, kHeight / 2), (sides & 1) != 0);
        QCOMPARE(isInked(kWidth / 2, 0), (sides & 2) != 0);
        QCOMPARE(isInked(right, kHeight / 2), (sides & 4) != 0);
        QCOMPARE(isInked(kWidth / 2, bottom), (sides & 8) != 0);
        // Each line runs into both of its corners.
        QCOMPARE(isInked(0, 0), (sides & (1 | 2)) != 0);
        QCOMPARE(isInked(right, 0), (sides & (2 | 4)) != 0);
        QCOMPARE(isInked(right, bottom), (sides & (4 | 8)) != 0);
        QCOMPARE(isInked(0, bottom), (sides & (8 | 1)) != 0);
        QVERIFY(!isInked(3, 3));
    }

    void three_sides_leave_the_background_rounded()
    {
        const auto frame = MakeFrame(QcFrame::Left | QcFrame::Top | QcFrame::Right, 12, QStringLiteral("#FF0000"));
        const QImage image = Render(*frame);
        COMPARE_COLOR(PixelAt(image, QPointF(2, 2)), QColor(Qt::white));
        COMPARE_COLOR(PixelAt(image, QPointF(kWidth - 3, 2)), QColor(Qt::white));
        QVERIFY(!Close(PixelAt(image, QPointF(0, 0)), Qt::white, 40));
        QColor line(Qt::black);
        line.setAlphaF(ColorValue(LineCoverage(image)));
        COMPARE_COLOR(PixelAt(image, QPointF(0, kHeight - 3)), Over(line)); // and no fill
        COMPARE_COLOR(PixelAt(image, QPointF(kWidth / 2, kHeight / 2)), QColor(Qt::red));
    }

    void setters_repaint_but_for_the_same_sides()
    {
        const auto frame = MakeFrame(QcFrame::Left, 3, kBackground);
        frame->show();
        QVERIFY(QTest::qWaitForWindowExposed(frame.get()));
        DrainEvents();
        EventCounter paints(*frame, QEvent::Paint);
        const auto paintsAfter = [&paints](auto change) {
            change();
            DrainEvents();
            return paints.Take();
        };
        QCOMPARE(paintsAfter([] {}), 0);
        QCOMPARE(paintsAfter([&] { frame->setBackgroundColorParams(kBackground); }), 1);
        QCOMPARE(paintsAfter([&] { frame->setBorderColorParams(QStringLiteral("#000000")); }), 1);
        QCOMPARE(paintsAfter([&] { frame->setBorderRadius(3); }), 1);
        QCOMPARE(paintsAfter([&] { frame->setBorderSides(QcFrame::Left); }), 0);
        QCOMPARE(paintsAfter([&] { frame->setBorderSides(QcFrame::Top); }), 1);
        QCOMPARE(paintsAfter([&] { frame->setBorderSides({}); }), 1);
    }

    void a_theme_change_repaints_once_and_a_hidden_frame_catches_up()
    {
        const auto frame = MakeFrame({}, 0, kBackground);
        frame->show();
        QVERIFY(QTest::qWaitForWindowExposed(frame.get()));
        DrainEvents();
        EventCounter paints(*frame, QEvent::Paint);
        UseTable(Table::Dark);
        QCOMPARE(paints.Take(), 1);

        frame->hide();
        DrainEvents();
        UseTable(Table::Light);
        QCOMPARE(paints.Take(), 0);
        QVERIFY(frame->property("uNeedProcesUpdateColor").toBool());
        frame->show();
        QVERIFY(QTest::qWaitForWindowExposed(frame.get()));
        DrainEvents();
        QVERIFY(paints.Take() > 0);
        QVERIFY(!frame->property("uNeedProcesUpdateColor").toBool());
        COMPARE_COLOR(PixelAt(frame->grab().toImage(), QPointF(5, 5)), TokenOf(Table::Light, kBackground));
    }

    void an_empty_frame_is_harmless()
    {
        const auto frame = MakeFrame(QFlags<QcFrame::BorderSide>(15), -4, kBackground);
        Render(*frame);
        frame->setBorderSides(QcFrame::Left);
        frame->resize(0, 0);
        QImage image(4, 4, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        frame->render(&image);
        QVERIFY(InkBox(image, Qt::white).isNull());
    }

protected:
    void TearDown() override { UseTable(Table::Light); }
};

VELMORA_TEST_MAIN(TestQcFrame)

#include "tst_QcFrame.moc"
