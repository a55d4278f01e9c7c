#include "support/Pixels.h"
#include "support/TestMain.h"

#include <Velmora/QcArrowTip.h>
#include <Velmora/QcMultiLineText.h>

#include <QAbstractEventDispatcher>
#include <QAbstractTextDocumentLayout>
#include <QAccessible>
#include <QEventLoop>
#include <QLayout>
#include <QPointer>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QTimer>

#include <climits>
#include <memory>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

const QString kBubble = QStringLiteral("base/neutral/neutral_invert");
const QString kLongText = QStringLiteral("A text that is a good deal longer than a tip is wide");

QcMultiLineText *ContentOf(const QcArrowTip &tip)
{
    return tip.findChild<QcMultiLineText *>();
}

QWidget *FrameOf(const QcArrowTip &tip)
{
    return tip.findChild<QWidget *>(QStringLiteral("m_contentFrame"));
}

int LinesOf(const QcArrowTip &tip)
{
    return tip.findChild<QTextDocument *>()->firstBlock().layout()->lineCount();
}

/// Where \a tip belongs beside \a reference.
QPoint PlaceOf(const QcArrowTip &tip, const QWidget &reference, int direction)
{
    const QPoint origin = reference.mapToGlobal(QPoint(0, 0));
    const int centredX = origin.x() + reference.width() / 2 - tip.width() / 2;
    const int centredY = origin.y() + reference.height() / 2 - tip.height() / 2;
    switch (direction) {
    case 0:
        return {origin.x() + reference.width() + 8, centredY};
    case 1:
        return {centredX, origin.y() + reference.height() + 8};
    case 2:
        return {origin.x() - 8 - tip.width(), centredY};
    default:
        return {centredX, origin.y() - 8 - tip.height()};
    }
}

/// Waits until every placement that is on its way has been: timers run in the order of their ends.
void AwaitPlacements()
{
    for (int round = 0; round < 2; ++round) { // one may resize the tip, which asks for another
        DrainEvents();
        QEventLoop loop;
        QTimer::singleShot(2, &loop, &QEventLoop::quit);
        loop.exec();
    }
}

/// A shown window with something to point at, and a tip that does.
struct Stage
{
    Stage()
        : reference(new QWidget(&window))
    {
        window.setGeometry(300, 300, 200, 101);
        reference->setGeometry(20, 30, 91, 25);
        window.show();
        tip.setReferenceWidget(reference);
        DrainEvents();
    }

    QPoint Place(int direction = 3) const { return PlaceOf(tip, *reference, direction); }

    void ShowTip(const QString &text = QStringLiteral("Tip"))
    {
        tip.setText(text);
        tip.show();
        AwaitPlacements();
        QCOMPARE(tip.pos(), Place());
    }

    QWidget window;
    QWidget *reference;
    QcArrowTip tip;
};

/// How many timers of one shot are running. Each is a child of the event dispatcher.
int TimersUnderWay()
{
    int count = 0;
    for (const QObject *child : QAbstractEventDispatcher::instance()->children())
        count += child->inherits("QSingleShotTimer") ? 1 : 0;
    return count;
}

/// A tip whose contents come when they are needed.
class LateTip : public QcArrowTip
{
public:
    LateTip()
        : QcArrowTip(nullptr, Contents::WhenNeeded)
    {
    }
};

/// A tip that counts what it hears of its reference and that one's window.
class ListeningTip : public QcArrowTip
{
public:
    int heard = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        ++heard;
        return QcArrowTip::eventFilter(watched, event);
    }
};

QSize SizeOf(QcArrowTip &tip)
{
    tip.show();
    DrainEvents();
    return tip.size();
}

} // namespace

class TestQcArrowTip : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_tip_is_a_frameless_window_that_does_not_keep_the_program_running()
    {
        QWidget parent;
        for (QWidget *owner : {static_cast<QWidget *>(nullptr), &parent}) {
            const QcArrowTip tip(owner);
            QVERIFY(tip.isWindow());
            QCOMPARE(tip.windowType(), Qt::Tool);
            QVERIFY(tip.windowFlags().testFlag(Qt::FramelessWindowHint));
            QVERIFY(tip.testAttribute(Qt::WA_TranslucentBackground));
            QVERIFY(!tip.testAttribute(Qt::WA_QuitOnClose));
            QVERIFY(tip.testAttribute(Qt::WA_ShowWithoutActivating)); // the platform of this test activates every window
            QCOMPARE(tip.parentWidget(), owner);
        }
    }

    void a_new_tip_has_its_contents()
    {
        const QcArrowTip tip;
        QVERIFY(ContentOf(tip));
        QCOMPARE(ContentOf(tip)->parentWidget(), FrameOf(tip));
        QCOMPARE(tip.layout()->contentsMargins(), QMargins(6, 6, 6, 6));
        QCOMPARE(FrameOf(tip)->layout()->contentsMargins(), QMargins(8, 4, 8, 4));
    }

    void contents_that_come_when_needed_make_the_same_tip()
    {
        Stage stage;
        QcArrowTip tip;
        LateTip late;
        for (QcArrowTip *each : {&tip, static_cast<QcArrowTip *>(&late)}) {
            each->setReferenceWidget(stage.reference);
            each->setMaxWidth(150);
            each->setTextColorParams(QStringLiteral("tip/danger"));
        }
        QVERIFY(!ContentOf(late));
        for (QcArrowTip *each : {&tip, static_cast<QcArrowTip *>(&late)}) {
            each->setText(kLongText);
            each->show();
            AwaitPlacements();
        }
        QCOMPARE(late.geometry(), tip.geometry());
        QCOMPARE(late.pos(), PlaceOf(late, *stage.reference, 3));
        QCOMPARE(Render(late), Render(tip));
        UseTable(Table::Dark);
        QCOMPARE(Render(late), Render(tip));
    }

    void contents_that_come_when_needed_come_as_the_tip_shows()
    {
        Stage stage;
        LateTip late;
        late.setReferenceWidget(stage.reference);
        QVERIFY(!ContentOf(late));
        QCOMPARE(SizeOf(late), SizeOf(stage.tip));
        QVERIFY(ContentOf(late)->isVisible());
    }

    void it_shows_only_with_a_living_reference()
    {
        QcArrowTip tip;
        tip.show();
        QVERIFY(!tip.isVisible());
        tip.setReferenceWidget(nullptr);
        tip.show();
        QVERIFY(!tip.isVisible());
        auto reference = std::make_unique<QWidget>();
        tip.setReferenceWidget(reference.get());
        reference.reset();
        tip.show();
        QVERIFY(!tip.isVisible());
        DrainEvents(); // no placement without a reference
    }

    void it_stands_beside_its_reference_data()
    {
        QTest::addColumn<int>("direction");
        QTest::addColumn<QString>("text");
        for (int direction = 0; direction < 4; ++direction) {
            QTest::addRow("%d, short", direction) << direction << QStringLiteral("Tip");
            QTest::addRow("%d, odd", direction) << direction << QStringLiteral("Tips!");
            QTest::addRow("%d, long", direction) << direction << kLongText;
        }
    }

    void it_stands_beside_its_reference()
    {
        QFETCH(int, direction);
        QFETCH(QString, text);
        Stage stage;
        QcArrowTip &tip = stage.tip;
        tip.setText(text);
        tip.setTriangleDirection(QcArrowTip::TriangleDirection(direction));
        tip.show();
        AwaitPlacements();
        QCOMPARE(tip.pos(), stage.Place(direction));

        stage.window.move(320, 280);
        AwaitPlacements();
        QCOMPARE(tip.pos(), stage.Place(direction));
        stage.reference->move(40, 50);
        AwaitPlacements();
        QCOMPARE(tip.pos(), stage.Place(direction));
        stage.reference->resize(50, 41);
        AwaitPlacements();
        QCOMPARE(tip.pos(), stage.Place(direction));
        tip.setText(QStringLiteral("another"));
        AwaitPlacements();
        QCOMPARE(tip.pos(), stage.Place(direction));
    }

    void bottom_is_the_default_and_an_unknown_direction_leaves_it_where_it_is()
    {
        Stage stage;
        QcArrowTip &tip = stage.tip;
        stage.ShowTip();
        const QPoint before = tip.pos();
        tip.setTriangleDirection(QcArrowTip::TriangleDirection(4));
        stage.window.move(100, 100);
        AwaitPlacements();
        QCOMPARE(tip.pos(), before);
        COMPARE_COLOR(PixelAt(Render(tip), QPointF(tip.width() / 2.0, tip.height() - 2)), QColor(Qt::white)); // and without a triangle
    }

    void a_new_direction_waits_for_the_next_placement()
    {
        Stage stage;
        QcArrowTip &tip = stage.tip;
        stage.ShowTip();
        tip.setTriangleDirection(QcArrowTip::Top);
        AwaitPlacements();
        QCOMPARE(tip.pos(), stage.Place());
        const QPoint before = tip.pos();
        stage.window.move(310, 310);
        QCOMPARE(tip.pos(), before); // not yet: a placement is never part of the move
        AwaitPlacements();
        QCOMPARE(tip.pos(), stage.Place(1));
    }

    void it_may_leave_the_screen()
    {
        Stage stage;
        stage.window.move(0, 100);
        stage.reference->move(0, 0);
        QcArrowTip &tip = stage.tip;
        tip.setTriangleDirection(QcArrowTip::Right);
        tip.setText(kLongText);
        tip.show();
        AwaitPlacements();
        QCOMPARE(tip.pos(), stage.Place(2));
        QVERIFY(tip.x() < -100);
    }

    void earlier_references_no_longer_count()
    {
        Stage first;
        Stage second;
        QcArrowTip &tip = first.tip;
        tip.setReferenceWidget(second.reference);
        tip.setText(QStringLiteral("Tip"));
        tip.show();
        AwaitPlacements();
        QCOMPARE(tip.pos(), PlaceOf(tip, *second.reference, 3));
        tip.move(0, 0);
        first.window.move(10, 10);
        first.reference->move(1, 1);
        AwaitPlacements();
        QCOMPARE(tip.pos(), QPoint(0, 0));
        second.reference->move(1, 1);
        AwaitPlacements();
        QCOMPARE(tip.pos(), PlaceOf(tip, *second.reference, 3));
    }

    void it_stays_where_it_is_when_its_reference_dies()
    {
        Stage stage;
        QcArrowTip &tip = stage.tip;
        stage.ShowTip();
        const QPoint before = tip.pos();
        stage.window.move(100, 100); // a placement is on its way
        delete stage.reference;
        AwaitPlacements();
        stage.window.move(120, 120);
        AwaitPlacements();
        QCOMPARE(tip.pos(), before);
        QVERIFY(tip.isVisible());
    }

    void a_hidden_tip_starts_no_timer()
    {
        Stage stage;
        AwaitPlacements();
        const int before = TimersUnderWay();
        QcArrowTip tip;
        tip.setReferenceWidget(stage.reference);
        tip.setText(kLongText);
        tip.setMaxWidth(200);
        stage.window.resize(250, 150);
        stage.window.move(310, 310);
        stage.reference->move(25, 35);
        DrainEvents();
        QCOMPARE(TimersUnderWay(), before);
    }

    void all_causes_of_a_moment_share_one_placement()
    {
        Stage stage;
        stage.ShowTip();
        const int before = TimersUnderWay();
        stage.tip.setText(kLongText);
        stage.tip.setMaxWidth(200);
        for (int x = 0; x < 10; ++x)
            stage.window.move(300 + x, 300);
        QCOMPARE(TimersUnderWay(), before + 1);
        AwaitPlacements();
        QCOMPARE(TimersUnderWay(), before);
        QCOMPARE(stage.tip.pos(), stage.Place());
    }

    void a_hidden_tip_hears_nothing_of_its_window()
    {
        Stage stage;
        ListeningTip tip;
        tip.setReferenceWidget(stage.reference);
        stage.window.resize(250, 150);
        stage.reference->resize(20, 20);
        QCOMPARE(tip.heard, 0);
        tip.show();
        DrainEvents();
        tip.heard = 0;
        stage.window.resize(260, 160);
        stage.reference->resize(30, 30);
        QVERIFY(tip.heard > 1);
        tip.hide();
        DrainEvents();
        tip.heard = 0;
        stage.window.resize(250, 150);
        stage.reference->resize(20, 20);
        QCOMPARE(tip.heard, 0);
    }

    void a_tip_shown_again_stands_beside_its_reference_and_follows_it()
    {
        Stage stage;
        stage.ShowTip();
        stage.tip.hide();
        stage.window.move(350, 350);
        stage.reference->setGeometry(30, 40, 50, 20);
        AwaitPlacements();
        stage.tip.show();
        AwaitPlacements();
        QCOMPARE(stage.tip.pos(), stage.Place());
        stage.window.move(200, 200);
        AwaitPlacements();
        QCOMPARE(stage.tip.pos(), stage.Place());
    }

    void a_tip_shown_again_follows_the_window_into_which_its_reference_came()
    {
        Stage stage;
        stage.ShowTip();
        stage.tip.hide();
        QWidget other;
        other.setGeometry(100, 200, 200, 100);
        stage.reference->setParent(&other);
        other.show();
        stage.reference->show();
        stage.tip.show();
        AwaitPlacements();
        QCOMPARE(stage.tip.pos(), stage.Place());
        other.move(150, 220);
        AwaitPlacements();
        QCOMPARE(stage.tip.pos(), stage.Place());
        stage.reference->setParent(&stage.window);
    }

    void a_reference_given_in_sight_is_followed()
    {
        Stage first;
        Stage second;
        first.ShowTip();
        first.tip.setReferenceWidget(second.reference);
        second.window.move(150, 160);
        AwaitPlacements();
        QCOMPARE(first.tip.pos(), PlaceOf(first.tip, *second.reference, 3));
    }

    void a_receiver_of_its_contents_height_may_delete_it()
    {
        for (const bool byWidth : {false, true}) {
            auto *tip = new QcArrowTip;
            const QPointer<QcArrowTip> guard(tip);
            tip->setText(QStringLiteral("Tip"));
            if (byWidth)
                tip->setText(kLongText);
            connect(ContentOf(*tip), &QcMultiLineText::signalHeightChanged, this, [guard] { delete guard; });
            byWidth ? tip->setMaxWidth(400) : tip->setText(kLongText);
            QVERIFY(!guard);
            DrainEvents();
        }
    }

    void a_short_text_makes_a_narrow_tip()
    {
        Stage stage;
        QcArrowTip &tip = stage.tip;
        tip.setText(QStringLiteral("Tip"));
        QcMultiLineText reference;
        QFont font = QcStyleManager::GetDefaultFont();
        font.setPixelSize(12);
        reference.setFont(font);
        reference.setText(QStringLiteral("Tip"));
        const QSize size = SizeOf(tip);
        QCOMPARE(ContentOf(tip)->width(), reference.idealWidth());
        QCOMPARE(size, ContentOf(tip)->size() + QSize(28, 20));
        QCOMPARE(FrameOf(tip)->geometry(), QRect(QPoint(6, 6), size - QSize(12, 12)));
        QCOMPARE(ContentOf(tip)->pos(), QPoint(8, 4));
        QCOMPARE(LinesOf(tip), 1);
    }

    void a_short_text_stays_in_one_line()
    {
        Stage fresh;
        Stage used;
        for (const char *text :
             {"Back", "Bold", "Undo", "i", "Tips!", "Print", "Fill it", "l l l", "Words", "Wards", "Redo", "<b>Cut</b>"}) {
            used.tip.setText(QLatin1String(text));
            QcArrowTip tip;
            tip.setReferenceWidget(fresh.reference);
            tip.setText(QLatin1String(text));
            for (QcArrowTip *each : {&tip, &used.tip}) {
                SizeOf(*each);
                QVERIFY2(LinesOf(*each) == 1, text);
            }
        }
    }

    void a_long_text_is_as_wide_as_the_maximum_and_the_tip_wider()
    {
        Stage stage;
        QcArrowTip &tip = stage.tip;
        tip.setText(kLongText);
        QCOMPARE(SizeOf(tip).width(), 128);
        QCOMPARE(ContentOf(tip)->width(), 100);
        tip.setMaxWidth(200);
        QCOMPARE(SizeOf(tip).width(), 228);
    }

    void a_text_as_wide_as_the_room_widens_to_the_maximum()
    {
        Stage stage;
        QcArrowTip &tip = stage.tip;
        tip.setMaxWidth(1000);
        tip.setText(QStringLiteral("Some words"));
        SizeOf(tip);
        const int ideal = ContentOf(tip)->width();
        tip.setMaxWidth(ideal + 29);
        SizeOf(tip);
        QCOMPARE(ContentOf(tip)->width(), ideal);
        tip.setMaxWidth(ideal + 28);
        SizeOf(tip);
        QCOMPARE(ContentOf(tip)->width(), ideal + 28);
    }

    void a_tip_used_again_has_the_size_of_a_fresh_one_data()
    {
        QTest::addColumn<bool>("hidden");
        QTest::newRow("hidden between") << true;
        QTest::newRow("in sight") << false;
    }

    void a_tip_used_again_has_the_size_of_a_fresh_one()
    {
        QFETCH(bool, hidden);
        Stage stage;
        QcArrowTip &used = stage.tip;
        struct Content
        {
            QString text;
            int maxWidth;
        };
        const Content contents[] = {
            {QStringLiteral("a"), 100},
            {QStringLiteral("Some words"), 100},
            {kLongText, 100},
            {QStringLiteral("i"), 100},
            {kLongText, 300},
            {QStringLiteral("Some words"), 300},
            {QStringLiteral("<p>one</p><p>two</p>"), 100},
            {QString(), 100},
            {kLongText + kLongText, 60},
            {QStringLiteral("Words"), 100},
            {kLongText, 0},
            {QStringLiteral("Words"), 1000},
        };
        for (const Content &content : contents) {
            if (hidden)
                used.hide();
            used.setText(content.text);
            used.setMaxWidth(content.maxWidth);
            QcArrowTip fresh;
            fresh.setReferenceWidget(stage.reference);
            fresh.setText(content.text);
            fresh.setMaxWidth(content.maxWidth);
            QCOMPARE(SizeOf(used), SizeOf(fresh));
        }
    }

    void odd_widths_and_texts_are_no_trouble()
    {
        Stage stage;
        QcArrowTip &tip = stage.tip;
        for (const int width : {INT_MIN, -1000, 0, 1, 28, 29, 16777215, INT_MAX}) {
            tip.setMaxWidth(width);
            tip.setText(QStringLiteral("<table><td>one <b>two <i>three</b><a href=\""));
            QVERIFY(SizeOf(tip).width() >= 28);
        }
        tip.setMaxWidth(-1000);
        QCOMPARE(SizeOf(tip).width(), 28);
        tip.setMaxWidth(100);
        tip.setText(QStringLiteral("word ").repeated(20000));
        QCOMPARE(SizeOf(tip).width(), 128);
        tip.setText(QString());
        QCOMPARE(SizeOf(tip).width(), 28);
    }

    void a_long_text_is_laid_out_once()
    {
        Stage stage;
        stage.ShowTip(kLongText);
        const auto *document = stage.tip.findChild<QTextDocument *>();
        int layouts = 0;
        connect(document->documentLayout(), &QAbstractTextDocumentLayout::update, this, [document, &layouts] {
            layouts += document->characterCount() > 10000 ? 1 : 0; // not of the empty document before
        });
        stage.tip.setText(kLongText.repeated(1000));
        AwaitPlacements();
        QCOMPARE(layouts, 1);
        QCOMPARE(stage.tip.pos(), stage.Place());
    }

    void the_table_may_change_and_the_reference_go_while_it_shows()
    {
        Stage stage;
        connect(ContentOf(stage.tip), &QcMultiLineText::signalHeightChanged, &stage.tip, [&stage] {
            UseTable(Table::Dark);
            delete stage.reference;
            stage.reference = nullptr;
        });
        stage.tip.setText(kLongText);
        stage.tip.show();
        DrainEvents();
        QVERIFY(!stage.reference);
    }

    void bubble_and_triangle_have_the_tokens_colour_data()
    {
        QTest::addColumn<int>("direction");
        for (int direction = 0; direction < 4; ++direction)
            QTest::addRow("%d", direction) << direction;
    }

    void bubble_and_triangle_have_the_tokens_colour()
    {
        QFETCH(int, direction);
        Stage stage;
        QcArrowTip &tip = stage.tip;
        tip.setText(kLongText);
        tip.setTriangleDirection(QcArrowTip::TriangleDirection(direction));
        tip.show();
        DrainEvents();
        const double w = tip.width();
        const double h = tip.height();
        const int halfW = tip.width() / 2;
        const int halfH = tip.height() / 2;
        // Just inside the apex and just inside and outside one end of the base, by side.
        const QPointF apex[] = {{2.5, halfH + 0.0}, {halfW + 0.0, 2.5}, {w - 3.5, halfH + 0.0}, {halfW + 0.0, h - 3.5}};
        const QPointF base[] = {{5.5, halfH - 4.0}, {halfW - 4.0, 5.5}, {w - 5.5, halfH - 4.0}, {halfW - 4.0, h - 5.5}};
        const QPointF beside[] = {{4.5, halfH - 8.0}, {halfW - 8.0, 4.5}, {w - 4.5, halfH - 8.0}, {halfW - 8.0, h - 4.5}};
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QColor canvas = QColor(Qt::red);
            const QImage image = Render(tip, canvas);
            const QColor bubble = Over(TokenOf(table, kBubble), canvas);
            for (int side = 0; side < 4; ++side) {
                COMPARE_COLOR(PixelAt(image, apex[side]), side == direction ? bubble : canvas);
                COMPARE_COLOR(PixelAt(image, base[side]), side == direction ? bubble : canvas);
                COMPARE_COLOR(PixelAt(image, beside[side]), canvas);
            }
            COMPARE_COLOR(PixelAt(image, QPointF(10, 9)), bubble); // in the bubble, beside the text
            COMPARE_COLOR(PixelAt(image, QPointF(1, 1)), canvas);
        }
    }

    void text_has_its_token()
    {
        Stage stage;
        QcArrowTip &tip = stage.tip;
        tip.setMaxWidth(400);
        tip.setText(QStringLiteral("<span style=\"font-size:60px;font-weight:bold\">I</span>"));
        tip.setTextColorParams(QStringLiteral("tip/danger"));
        tip.show();
        DrainEvents();
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QImage image = Part(Render(tip), QRectF(QPointF(15, 11), QSizeF(tip.size() - QSize(30, 22))));
            COMPARE_COLOR(InkColor(image, TokenOf(table, kBubble)),
                          Over(TokenOf(table, QStringLiteral("tip/danger")), TokenOf(table, kBubble)));
        }
    }

    void assistive_technology_reads_it_as_a_tool_tip()
    {
        QcArrowTip tip;
        tip.setText(QStringLiteral("<b>Some</b> words"));
        QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&tip);
        QCOMPARE(accessible->role(), QAccessible::ToolTip);
        QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Some words"));
        tip.setAccessibleName(QStringLiteral("Name"));
        QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Name"));
    }

protected:
    void TearDown() override { UseTable(Table::Light); }
};

VELMORA_TEST_MAIN(TestQcArrowTip)

#include "tst_QcArrowTip.moc"
