#include "FeedbackWindow.h"

#include "support/EventCounter.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include <Velmora/ImageParams.h>
#include <Velmora/QcDockIndicator.h>

#include <QAccessible>
#include <QCursor>
#include <QGridLayout>
#include <QGuiApplication>
#include <QImageReader>
#include <QLabel>
#include <QPainter>
#include <QTest>
#include <QTranslator>

#include <algorithm>
#include <memory>
#include <vector>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

struct Place
{
    const char *name;
    DockPosition position;
    int row;
    int column;
};

constexpr Place kPlaces[] = {
    {"outer_top_label", OuterTop, 0, 2},
    {"top_label", Top, 1, 2},
    {"outer_left_label", OuterLeft, 2, 0},
    {"left_label", Left, 2, 1},
    {"center_label", Center, 2, 2},
    {"right_label", Right, 2, 3},
    {"outer_right_label", OuterRight, 2, 4},
    {"bottom_label", Bottom, 3, 2},
    {"outer_bottom_label", OuterBottom, 4, 2},
};

const QList<DockPosition> kAll = {Center, Left, Right, Top, Bottom, OuterLeft, OuterRight, OuterTop, OuterBottom};

QLabel *LabelOf(const QWidget &indicator, DockPosition position)
{
    for (const Place &place : kPlaces)
        if (place.position == position)
            return indicator.findChild<QLabel *>(QString::fromLatin1(place.name));
    return nullptr;
}

void PutCursorOn(const QWidget &widget)
{
    QCursor::setPos(widget.mapToGlobal(widget.rect().center()));
    DrainEvents();
}

/// What the file of \a name shows in 32 by 32 pixels over \a background.
QImage PictureOf(const QString &name, qreal ratio, const QColor &background)
{
    QImageReader reader(QStringLiteral(":/images/dock/%1.svg").arg(name));
    reader.setScaledSize((QSizeF(32, 32) * ratio).toSize());
    QImage picture((QSizeF(32, 32) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(background);
    QPainter(&picture).drawImage(0, 0, reader.read());
    return picture;
}

/// Within what two renderers of one picture may differ by.
bool AreAlike(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return false;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (!Close(a.pixelColor(x, y), b.pixelColor(x, y), 6))
                return false;
    return true;
}

/// An indicator of which no label is offered by chance: the cursor is out of the way.
struct Indicator : QcDockIndicator
{
    Indicator() { QCursor::setPos(5, 5); }

    void ShowAt(const QPoint &corner)
    {
        move(corner);
        show();
        DrainEvents();
    }
};

} // namespace

class TestQcDockIndicator : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void it_is_a_frameless_window_of_fixed_size_above_all_others()
    {
        const QcDockIndicator indicator;
        QCOMPARE(int(indicator.windowFlags()), 0x80D);
        QVERIFY(indicator.testAttribute(Qt::WA_TranslucentBackground));
        QCOMPARE(indicator.minimumSize(), QSize(184, 191));
        QCOMPARE(indicator.maximumSize(), QSize(184, 191));
        const auto *grid = qobject_cast<QGridLayout *>(indicator.layout());
        QVERIFY(grid);
        QCOMPARE(grid->contentsMargins(), QMargins(0, 7, 0, 4));
        QCOMPARE(grid->verticalSpacing(), 6);
        QCOMPARE(grid->horizontalSpacing(), 0);
    }

    void each_of_nine_places_has_its_label_in_the_cross()
    {
        const QcDockIndicator indicator;
        const auto *grid = static_cast<QGridLayout *>(indicator.layout());
        QCOMPARE(indicator.findChildren<QLabel *>().size(), 9);
        for (const Place &place : kPlaces) {
            auto *label = indicator.findChild<QLabel *>(QString::fromLatin1(place.name));
            QVERIFY2(label, place.name);
            QCOMPARE(label->property("object_property_dock_position").toInt(), int(place.position));
            QCOMPARE(label->size(), QSize(32, 32));
            int row = -1;
            int column = -1;
            int rows = 0;
            int columns = 0;
            grid->getItemPosition(grid->indexOf(label), &row, &column, &rows, &columns);
            QCOMPARE(row, place.row);
            QCOMPARE(column, place.column);
        }
    }

    // Five rows and their spacing want more than its height: they move together, and none covers another.
    void no_label_covers_another_or_leaves_the_indicator()
    {
        const QcDockIndicator indicator;
        QRegion covered;
        for (const Place &place : kPlaces) {
            const QRect rect = LabelOf(indicator, place.position)->geometry();
            QVERIFY(indicator.rect().contains(rect));
            QVERIFY(!covered.intersects(rect));
            covered += rect;
        }
        QList<int> rows;
        for (const DockPosition position : {OuterTop, Top, Center, Bottom, OuterBottom})
            rows.append(LabelOf(indicator, position)->y());
        QCOMPARE(rows, QList<int>({7, 45, 82, 119, 156}));
    }

    void left_is_the_left_of_the_screen_in_a_right_to_left_program()
    {
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
        const QcDockIndicator indicator;
        QGuiApplication::setLayoutDirection(Qt::LeftToRight);
        QVERIFY(LabelOf(indicator, OuterLeft)->x() < LabelOf(indicator, Left)->x());
        QVERIFY(LabelOf(indicator, Left)->x() < LabelOf(indicator, Center)->x());
        QVERIFY(LabelOf(indicator, Center)->x() < LabelOf(indicator, Right)->x());
        QVERIFY(LabelOf(indicator, Right)->x() < LabelOf(indicator, OuterRight)->x());
    }

    void nothing_is_offered_before_the_first_drag()
    {
        QcDockIndicator indicator;
        indicator.move(200, 200);
        for (const Place &place : kPlaces) {
            QVERIFY(!LabelOf(indicator, place.position)->isEnabled());
            PutCursorOn(*LabelOf(indicator, place.position));
            QCOMPARE(indicator.getTargetDockPosition(), NoPosition);
        }
    }

    void exactly_the_offered_places_are_enabled()
    {
        QcDockIndicator indicator;
        indicator.setDockPositionList({Left, OuterTop, NoPosition, DockPosition(77), Left});
        for (const Place &place : kPlaces)
            QCOMPARE(LabelOf(indicator, place.position)->isEnabled(), place.position == Left || place.position == OuterTop);
        indicator.setDockPositionList({Center});
        for (const Place &place : kPlaces)
            QCOMPARE(LabelOf(indicator, place.position)->isEnabled(), place.position == Center);
        indicator.setDockPositionList({});
        for (const Place &place : kPlaces)
            QVERIFY(!LabelOf(indicator, place.position)->isEnabled());
    }

    void the_target_is_the_offered_label_under_the_cursor_also_while_hidden()
    {
        QcDockIndicator indicator;
        indicator.move(200, 200);
        indicator.setDockPositionList(kAll);
        for (const Place &place : kPlaces) {
            PutCursorOn(*LabelOf(indicator, place.position));
            QCOMPARE(indicator.getTargetDockPosition(), place.position);
        }
        QVERIFY(indicator.isHidden());
        indicator.setDockPositionList({Center});
        PutCursorOn(*LabelOf(indicator, Left));
        QCOMPARE(indicator.getTargetDockPosition(), NoPosition);
        QCursor::setPos(indicator.mapToGlobal(QPoint(1, 1)));
        QCOMPARE(indicator.getTargetDockPosition(), NoPosition);
    }

    void a_label_shows_the_picture_of_its_place_and_state_data()
    {
        QTest::addColumn<qreal>("ratio");
        QTest::newRow("1") << qreal(1.0);
        QTest::newRow("1.5") << qreal(1.5);
        QTest::newRow("2") << qreal(2.0);
    }

    void a_label_shows_the_picture_of_its_place_and_state()
    {
        QFETCH(qreal, ratio);
        for (const Place &place : kPlaces) {
            QcDockIndicator indicator; // shown pictures are a label's own, so that a hidden indicator tells as much
            indicator.move(200, 200);
            QLabel *label = LabelOf(indicator, place.position);
            QString name = QString::fromLatin1(place.name);
            name.chop(int(qstrlen("_label")));

            QCursor::setPos(5, 5);
            DrainEvents();
            QVERIFY2(AreAlike(RenderAt(*label, ratio), PictureOf(name + QStringLiteral("_disabled"), ratio, Qt::white)), place.name);
            indicator.setDockPositionList(kAll);
            QVERIFY2(AreAlike(RenderAt(*label, ratio), PictureOf(name + QStringLiteral("_normal"), ratio, Qt::white)), place.name);
            PutCursorOn(*label);
            QVERIFY2(AreAlike(RenderAt(*label, ratio), PictureOf(name + QStringLiteral("_hover"), ratio, Qt::white)), place.name);
            indicator.setDockPositionList({});
            QVERIFY2(AreAlike(RenderAt(*label, ratio), PictureOf(name + QStringLiteral("_disabled"), ratio, Qt::white)), place.name);
        }
    }

    void it_lies_on_its_cross_in_both_tables()
    {
        Indicator indicator;
        for (const Table table : {Table::Light, Table::Dark}) {
            UseTable(table);
            const QColor ink = Over(TokenOf(table, QStringLiteral("base/neutral/neutral-80")));
            const QImage picture = Render(indicator);
            // Between two labels of a row the cross is bare.
            const int y = LabelOf(indicator, Center)->geometry().center().y();
            const int x = (LabelOf(indicator, Left)->geometry().right() + LabelOf(indicator, Center)->geometry().left()) / 2;
            COMPARE_COLOR(PixelAt(picture, QPointF(x + 0.5, y + 0.5)), ink);
            COMPARE_COLOR(PixelAt(picture, QPointF(1.5, 1.5)), QColor(Qt::white));
        }
        UseTable(Table::Light);
    }

    void a_new_place_under_the_cursor_repaints_what_changes_and_no_more()
    {
        Indicator indicator;
        indicator.setDockPositionList(kAll);
        indicator.ShowAt(QPoint(200, 200));
        std::vector<std::unique_ptr<EventCounter>> paints;
        for (const Place &place : kPlaces)
            paints.push_back(std::make_unique<EventCounter>(*LabelOf(indicator, place.position), QEvent::Paint));
        const auto taken = [&paints] {
            QList<int> positions;
            for (std::size_t i = 0; i < paints.size(); ++i)
                if (paints[i]->Take() > 0)
                    positions.append(kPlaces[i].position);
            std::sort(positions.begin(), positions.end());
            return positions;
        };

        PutCursorOn(*LabelOf(indicator, Left));
        taken();
        indicator.setDockPositionList(kAll);
        DrainEvents();
        QCOMPARE(taken(), QList<int>({Left}));

        indicator.setDockPositionList(kAll);
        DrainEvents();
        QCOMPARE(taken(), QList<int>());

        PutCursorOn(*LabelOf(indicator, Right));
        indicator.setDockPositionList(kAll);
        DrainEvents();
        QCOMPARE(taken(), QList<int>({Left, Right}));

        indicator.setDockPositionList({Center, Left, Top, Bottom, OuterLeft, OuterRight, OuterTop, OuterBottom});
        DrainEvents();
        QCOMPARE(taken(), QList<int>({Right}));
    }

    void one_on_the_screen_follows_the_colour_table()
    {
        Indicator indicator;
        indicator.ShowAt(QPoint(200, 200));
        QVERIFY(FollowsColourTable(indicator));
    }

    void it_takes_no_focus()
    {
        Indicator indicator;
        QVERIFY(LeavesFocusWhenShown(indicator));
    }

    void a_screen_reader_hears_the_name_of_each_place()
    {
        const QcDockIndicator indicator;
        QStringList names;
        for (const Place &place : kPlaces) {
            QAccessibleInterface *label = QAccessible::queryAccessibleInterface(LabelOf(indicator, place.position));
            names.append(label->text(QAccessible::Name));
        }
        QCOMPARE(names,
                 QStringList({QStringLiteral("Top edge"), QStringLiteral("Top"), QStringLiteral("Left edge"), QStringLiteral("Left"),
                              QStringLiteral("As a tab"), QStringLiteral("Right"), QStringLiteral("Right edge"), QStringLiteral("Bottom"),
                              QStringLiteral("Bottom edge")}));
    }

    void the_names_follow_the_language()
    {
        struct Reversed : QTranslator
        {
            bool isEmpty() const override { return false; }
            QString translate(const char *context, const char *source, const char * /*disambiguation*/, int /*n*/) const override
            {
                return qstrcmp(context, "QcDockIndicator") == 0 ? QStringLiteral("x ") + QString::fromLatin1(source) : QString();
            }
        };
        Indicator indicator;
        Reversed language;
        QCoreApplication::installTranslator(&language);
        QTRY_COMPARE(LabelOf(indicator, OuterLeft)->accessibleName(), QStringLiteral("x Left edge"));
        QCoreApplication::removeTranslator(&language);
        QTRY_COMPARE(LabelOf(indicator, OuterLeft)->accessibleName(), QStringLiteral("Left edge"));
    }

    void other_paint_events_and_other_objects_are_left_alone()
    {
        struct Open : QcDockIndicator
        {
            using QcDockIndicator::eventFilter;
        };
        Open indicator;
        QWidget other;
        QEvent paint(QEvent::Paint);
        QEvent move(QEvent::MouseMove);
        QVERIFY(!indicator.eventFilter(&other, &paint));
        QVERIFY(!indicator.eventFilter(LabelOf(indicator, Left), &move));
    }
};

VELMORA_TEST_MAIN(TestQcDockIndicator)
#include "tst_QcDockIndicator.moc"
