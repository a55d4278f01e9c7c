#include "DockTestCase.h"
#include "DragStage.h"
#include "support/EventCounter.h"
#include "support/TestMain.h"
#include "theme/ImageCache_p.h"

#include <Velmora/ImageParams.h>
#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockWidget.h>
#include <Velmora/QcStyleManager.h>

#include <QCloseEvent>
#include <QCursor>
#include <QHash>
#include <QMouseEvent>
#include <private/qabstractfileengine_p.h>

#include <functional>
#include <utility>

using namespace Velmora;
using namespace VelmoraTest;

namespace {

/// Counts the events of some types that all widgets get.
class EventCount : public QObject
{
public:
    explicit EventCount(QList<QEvent::Type> types)
        : m_types(std::move(types))
    {
        qApp->installEventFilter(this);
    }

    int Count() const { return m_count; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched->isWidgetType() && m_types.contains(event->type()))
            ++m_count;
        return false;
    }

private:
    const QList<QEvent::Type> m_types;
    int m_count = 0;
};

/// Counts the times that a widget on the screen goes to another window by itself and not with what it lies in.
class LonelyMoves : public QObject
{
public:
    int Count() const { return m_count; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *widget = qobject_cast<QWidget *>(watched);
        if (event->type() == QEvent::ParentAboutToChange)
            m_windows.insert(widget, widget->window());
        else if (event->type() == QEvent::ParentChange && m_windows.contains(widget) && m_windows.take(widget) != widget->window())
            ++m_count;
        return false;
    }

private:
    QHash<QWidget *, QWidget *> m_windows;
    int m_count = 0;
};

/// Refuses to be closed, until it is told to give in.
class Stubborn : public QWidget
{
public:
    bool givesIn = false;

protected:
    void closeEvent(QCloseEvent *event) override { event->setAccepted(givesIn); }
};

/// \a count panels of the types from 1 on, some of them tabs of one area.
QList<QcDockWidget *> Fill(DragStage &stage, int count)
{
    QList<QcDockWidget *> panels;
    for (int i = 0; i < count; ++i)
        panels.append(stage.Add(i + 1, i ? panels.at((i - 1) / 3) : nullptr, i % 3 == 0 ? Center : i % 2 ? Right : Bottom));
    return panels;
}

constexpr int kFew = 8;
constexpr int kMany = 4 * kFew;

/// What a user or a host does among \a panels, and does again.
struct Operation
{
    const char *name;
    std::function<void(DragStage &stage, const QList<QcDockWidget *> &panels)> perform;
};

QWidget *NewContent(int type)
{
    auto *content = new QWidget; // its panel owns it
    content->setProperty("dock_widget_content_type", type);
    return content;
}

const QList<Operation> &Operations()
{
    static const QList<Operation> operations = {
        {"float and dock again",
         [](DragStage &stage, const QList<QcDockWidget *> &panels) {
             panels.last()->swichToFloating();
             DrainEvents();
             stage.root->addWidget(panels.last(), panels.first(), Right);
         }},
        {"add at a leaf and close",
         [](DragStage &stage, const QList<QcDockWidget *> &panels) {
             QcDockWidget *added = stage.Add(0, panels.at(kFew - 1), Right);
             DrainEvents();
             added->close();
         }},
        {"add at an edge and close",
         [](DragStage &stage, const QList<QcDockWidget *> &) {
             QcDockWidget *added = stage.Add(0, nullptr, stage.root->getOrientation() == Qt::Horizontal ? Right : Bottom);
             DrainEvents();
             added->close();
         }},
        {"add a content and close",
         [](DragStage &stage, const QList<QcDockWidget *> &) {
             const QPointer<QWidget> content = NewContent(0);
             stage.root->addDockWidgetContent(content, Left);
             DrainEvents();
             static_cast<QcDockWidget *>(content->parentWidget()->parentWidget())->close();
         }},
        {"select tabs",
         [](DragStage &, const QList<QcDockWidget *> &panels) {
             AreaOf(*panels.at(0))->setCurrentIndex(0);
             DrainEvents();
             AreaOf(*panels.at(0))->setCurrentIndex(1);
         }},
    };
    return operations;
}

struct Price
{
    int restyles = 0;
    int moves = 0; ///< to another parent
    int shows = 0;
};

Price PriceAmong(int count, const Operation &operation)
{
    DragStage stage(QRect(0, 0, 1600, 1000));
    const QList<QcDockWidget *> panels = Fill(stage, count);
    // From the second time on it begins where it ended.
    for (int i = 0; i < 2; ++i) {
        operation.perform(stage, panels);
        DrainEvents();
    }
    const EventCount restyles({QEvent::StyleChange, QEvent::Polish});
    const EventCount moves({QEvent::ParentChange});
    const EventCount shows({QEvent::Show});
    operation.perform(stage, panels);
    DrainEvents();
    return {restyles.Count(), moves.Count(), shows.Count()};
}

/// Counts how often somebody turns to the file of each picture of docking: to paint what is kept does not.
class PictureFiles : public QAbstractFileEngineHandler
{
public:
    QAbstractFileEngine *create(const QString &name) const override
    {
        if (name.startsWith(QLatin1String(":/images/dock/")))
            ++m_turns[name];
        return nullptr; // Qt opens it
    }

    QHash<QString, int> Take() { return std::exchange(m_turns, {}); }

private:
    mutable QHash<QString, int> m_turns;
};

/// Takes a floating panel over all nine places of an area, twice, and away again.
void DragOverAllPlaces(DragStage &stage, QcDockWidget *dragged, const QWidget &area)
{
    for (int round = 0; round < 2; ++round) {
        for (int position = Left; position < NoPosition; ++position) {
            stage.Step(dragged, MiddleOf(area));
            stage.Step(dragged, MiddleOf(*stage.Label(DockPosition(position))));
        }
    }
    stage.Step(dragged, stage.window.mapToGlobal(QPoint(-20, -20)));
}

} // namespace

/// What docking costs, in counts: times would tell of the machine.
class tst_DockCost : public DockTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void what_happens_in_one_place_costs_as_much_among_many_panels_as_among_few_data()
    {
        QTest::addColumn<int>("operation");
        for (int i = 0; i < Operations().size(); ++i)
            QTest::newRow(Operations().at(i).name) << i;
    }

    void what_happens_in_one_place_costs_as_much_among_many_panels_as_among_few()
    {
        QFETCH(int, operation);
        const Price few = PriceAmong(kFew, Operations().at(operation));
        QVERIFY(few.shows > 0);
        const Price many = PriceAmong(kMany, Operations().at(operation));
        QCOMPARE(many.restyles, few.restyles);
        QCOMPARE(many.moves, few.moves);
        QCOMPARE(many.shows, few.shows);
    }

    void a_selected_tab_restyles_and_moves_nothing()
    {
        const Price price = PriceAmong(kFew, Operations().last());
        QCOMPARE(price.restyles, 0);
        QCOMPARE(price.moves, 0);
    }

    void a_drag_reads_each_picture_of_a_place_once_a_state()
    {
        DragStage stage;
        const TypeGroups groups({{1}, {2}}); // so that the centre is refused by one area
        const QcDockWidget *takes = stage.Add(1);
        const QcDockWidget *refuses = stage.Add(2, stage.root, Right);
        QcDockWidget *dragged = stage.Float(1);
        PictureFiles files;
        ImageCache::Clear();
        ImageParams picture;
        picture.path = QStringLiteral(":/images/dock/left_normal.svg");
        picture.size = QSize(32, 32);
        QcStyleManager::GetInstance()->GetPixmap(picture);
        const int turnsOfOne = files.Take().value(picture.path);
        QVERIFY(turnsOfOne > 0);
        ImageCache::Clear();
        DragOverAllPlaces(stage, dragged, *takes);
        DragOverAllPlaces(stage, dragged, *refuses);
        const QHash<QString, int> turns = files.Take();
        for (const char *look : {"left_normal", "left_hover", "center_normal", "center_hover", "center_disabled", "outer_top_hover"})
            QVERIFY2(turns.contains(QStringLiteral(":/images/dock/%1.svg").arg(QLatin1String(look))), look);
        for (auto it = turns.cbegin(); it != turns.cend(); ++it)
            QVERIFY2(it.value() <= turnsOfOne, qPrintable(it.key()));
        DragOverAllPlaces(stage, dragged, *takes);
        QCOMPARE(files.Take(), (QHash<QString, int>()));
        stage.Drop(dragged);
    }

    void a_hundred_moves_of_a_title_in_a_turn_lay_the_indicator_out_once()
    {
        DragStage stage;
        const QcDockWidget *resident = stage.Add(1);
        QcDockWidget *dragged = stage.Float(2);
        stage.Step(dragged, MiddleOf(*resident)); // from now on the indicator is there
        stage.Step(dragged, stage.window.mapToGlobal(QPoint(-20, -20)));
        QCursor::setPos(dragged->mapToGlobal(QPoint(40, 15)));
        const auto send = [dragged](QEvent::Type type, Qt::MouseButton button) {
            QMouseEvent event(type, dragged->mapFromGlobal(QCursor::pos()), QCursor::pos(), button, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(dragged, &event);
        };
        send(QEvent::MouseButtonPress, Qt::LeftButton);
        EventCounter moves(*stage.Indicator(), QEvent::Move);
        EventCounter shows(*stage.Indicator(), QEvent::Show);
        EventCounter layouts(*stage.Indicator(), QEvent::LayoutRequest);
        EventCounter paints(*stage.Label(Center), QEvent::Paint);
        const QPoint goal = MiddleOf(*resident);
        for (int left = 99; left >= 0; --left) {
            QCursor::setPos(goal - QPoint(left, 0));
            send(QEvent::MouseMove, Qt::NoButton);
        }
        DrainEvents();
        QVERIFY(stage.Indicator()->isVisible());
        QVERIFY(moves.Take() <= 1);
        QCOMPARE(shows.Take(), 1);
        QVERIFY(layouts.Take() <= 1);
        QCOMPARE(paints.Take(), 1);
        QCursor::setPos(stage.window.mapToGlobal(QPoint(-20, -20)));
        send(QEvent::MouseButtonRelease, Qt::LeftButton);
        VERIFY_SETTLED();
    }

    void contents_dealt_to_another_root_leave_their_window_together()
    {
        DragStage stage;
        QList<QWidget *> contents;
        for (QcDockWidget *panel : Fill(stage, kFew))
            contents.append(panel->getContentWidget());
        LonelyMoves moves;
        for (QWidget *content : qAsConst(contents))
            content->installEventFilter(&moves);
        QcDockContainer other(nullptr);
        for (int type = 1; type <= kFew; ++type) {
            auto *panel = new QcDockWidget(nullptr);
            panel->setType(type);
            other.addWidget(panel, nullptr, Right);
        }
        other.setDockWidgetContentList(contents);
        QCOMPARE(moves.Count(), 0);
        for (QWidget *content : qAsConst(contents))
            QCOMPARE(content->window(), &other);
        VERIFY_SETTLED();
    }

    void a_content_counts_as_a_main_window_after_a_refused_close_as_before()
    {
        DragStage stage;
        QcDockWidget *panel = stage.Add(1);
        auto *content = new Stubborn;
        content->setProperty("dock_widget_content_type", 1);
        panel->setContentWidget(content);
        DrainEvents();
        QVERIFY(content->testAttribute(Qt::WA_QuitOnClose));
        QVERIFY(!panel->close());
        QVERIFY(content->testAttribute(Qt::WA_QuitOnClose));
        content->givesIn = true;
        QVERIFY(panel->close());
        VERIFY_SETTLED();
    }
};

VELMORA_TEST_MAIN(tst_DockCost)
#include "tst_DockCost.moc"
