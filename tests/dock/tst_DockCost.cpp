#include "DockTestCase.h"
#include "DragStage.h"
#include "support/TestMain.h"

#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockWidget.h>

#include <QCloseEvent>
#include <QHash>

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

int RestylesOfFloatAndRedock(int count)
{
    DragStage stage(QRect(0, 0, 1600, 1000));
    const QList<QcDockWidget *> panels = Fill(stage, count);
    const auto floatAndRedock = [&] {
        panels.last()->swichToFloating();
        DrainEvents();
        stage.root->addWidget(panels.last(), panels.first(), Right);
        DrainEvents();
    };
    floatAndRedock(); // from now on it comes back to where it left
    const EventCount restyles({QEvent::StyleChange, QEvent::Polish});
    floatAndRedock();
    return restyles.Count();
}

} // namespace

/// What docking costs, in counts: times would tell of the machine.
class tst_DockCost : public DockTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void a_panel_that_floats_and_docks_again_restyles_as_much_among_many_as_among_few()
    {
        const int few = RestylesOfFloatAndRedock(kFew);
        QVERIFY(few > 0);
        QCOMPARE(RestylesOfFloatAndRedock(kMany), few);
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
