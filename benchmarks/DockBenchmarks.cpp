#include "WidgetBenchmarks.h"

#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockController.h>
#include <Velmora/QcDockDragController.h>
#include <Velmora/QcDockWidget.h>
#include <Velmora/QcStyleManager.h>

#include <QCursor>
#include <QDockWidget>
#include <QFile>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <ctime>

// The same tree of panels, each with a text edit: every third panel is a tab of its parent's area, the others split it by turns.

namespace {

using namespace Bench;
using Velmora::QcDockContainer;
using Velmora::QcDockController;
using Velmora::QcDockWidget;

constexpr int kBranches = 3;

int ParentOf(int panel)
{
    return (panel - 1) / kBranches;
}

bool IsTab(int panel)
{
    return panel % kBranches == 0;
}

Qt::Orientation SplitOf(int panel)
{
    return panel % 2 ? Qt::Horizontal : Qt::Vertical;
}

QWidget *MakeContent(int type)
{
    auto *content = new QPlainTextEdit;
    content->setWindowTitle(QStringLiteral("Panel %1").arg(type));
    content->setProperty("dock_widget_content_type", type);
    return content;
}

class Docking
{
public:
    static constexpr const char *kName = "velmora";

    explicit Docking(int count)
    {
        m_root = new QcDockContainer(&m_window);
        m_root->setEmptyKeep(true);
        QcDockController::instance()->setRootDockContainer(m_root);
        for (int i = 0; i < count; ++i) {
            auto *panel = new QcDockWidget(nullptr);
            panel->setContentWidget(MakeContent(i + 1));
            m_root->addWidget(panel, i ? m_panels.at(ParentOf(i)) : nullptr, PositionOf(i));
            m_panels.append(panel);
        }
        m_window.setCentralWidget(m_root);
        m_window.resize(1600, 1000);
    }

    void Show()
    {
        m_window.show();
        Settle();
    }

    void FloatAndRedock()
    {
        QcDockWidget *panel = m_panels.last();
        panel->swichToFloating();
        Settle();
        m_root->addWidget(panel, m_panels.first(), Velmora::Right);
        Settle();
    }

    QByteArray Save() { return QcDockController::instance()->toJson(m_root).toUtf8(); }

    void Restore(const QString &path)
    {
        QList<QWidget *> contents;
        const auto panels = m_root->findChildren<QcDockWidget *>();
        for (QcDockWidget *panel : panels)
            contents.append(panel->getContentWidget());
        QcDockContainer *root = QcDockController::instance()->loadFromJson(path);
        root->setEmptyKeep(true);
        root->setDockWidgetContentList(contents);
        m_window.setCentralWidget(root); // the old one is deleted
        m_root = root;
        m_panels = root->findChildren<QcDockWidget *>();
        Settle();
    }

    void CloseAll()
    {
        const auto panels = m_panels;
        for (QcDockWidget *panel : panels)
            panel->close();
        Settle();
    }

    QcDockWidget *Last() { return m_panels.last(); }
    QMainWindow &Window() { return m_window; }

private:
    static Velmora::DockPosition PositionOf(int panel)
    {
        if (IsTab(panel))
            return Velmora::Center;
        return SplitOf(panel) == Qt::Horizontal ? Velmora::Right : Velmora::Bottom;
    }

    QMainWindow m_window;
    QcDockContainer *m_root;
    QList<QcDockWidget *> m_panels;
};

class PlainDocking
{
public:
    static constexpr const char *kName = "plain";

    explicit PlainDocking(int count)
    {
        m_window.setDockNestingEnabled(true);
        for (int i = 0; i < count; ++i) {
            auto *panel = new QDockWidget(QStringLiteral("Panel %1").arg(i + 1));
            panel->setObjectName(panel->windowTitle());
            panel->setWidget(MakeContent(i + 1));
            if (i == 0)
                m_window.addDockWidget(Qt::LeftDockWidgetArea, panel);
            else if (IsTab(i))
                m_window.tabifyDockWidget(m_panels.at(ParentOf(i)), panel);
            else
                m_window.splitDockWidget(m_panels.at(ParentOf(i)), panel, SplitOf(i));
            m_panels.append(panel);
        }
        m_window.resize(1600, 1000);
    }

    void Show()
    {
        m_window.show();
        Settle();
    }

    void FloatAndRedock()
    {
        m_panels.last()->setFloating(true);
        Settle();
        m_panels.last()->setFloating(false);
        Settle();
    }

    QByteArray Save() { return m_window.saveState(); }

    void Restore(const QString &path)
    {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        m_window.restoreState(file.readAll());
        Settle();
    }

    void CloseAll()
    {
        for (QDockWidget *panel : qAsConst(m_panels))
            delete panel;
        Settle();
    }

private:
    QMainWindow m_window;
    QList<QDockWidget *> m_panels;
};

/// The processor time of \a work in nanoseconds.
template <typename Work>
double TimeOf(const Work &work)
{
    const std::clock_t begin = std::clock();
    work();
    return double(std::clock() - begin) / CLOCKS_PER_SEC * 1e9;
}

/// To the other table, until everything is painted.
void SwitchTheme()
{
    static bool isDark = false;
    isDark = !isDark;
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(TablePath(isDark ? Table::Dark : Table::Light));
    Settle();
}

/// All that is done with N panels, each a counter, so that the N are built once for all of it.
template <typename T>
void Live(benchmark::State &state)
{
    constexpr int kTimes = 5;
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("layout")));
    for (auto _ : state) {
        std::unique_ptr<T> docking;
        state.counters["build"] = TimeOf([&] {
            docking = std::make_unique<T>(int(state.range(0)));
            docking->Show();
        });
        QByteArray saved;
        state.counters["save"] = TimeOf([&] {
                                     for (int i = 0; i < kTimes; ++i)
                                         saved = docking->Save();
                                 })
            / kTimes;
        state.counters["bytes"] = double(saved.size());
        file.open(QIODevice::WriteOnly);
        file.write(saved);
        file.close();
        state.counters["restore"] = TimeOf([&] { docking->Restore(file.fileName()); });
        docking->FloatAndRedock(); // the first one places the panel where it then comes back to
        state.counters["float"] = TimeOf([&] {
                                      for (int i = 0; i < kTimes; ++i)
                                          docking->FloatAndRedock();
                                  })
            / kTimes;
        state.counters["switch"] = TimeOf(SwitchTheme);
        state.counters["close"] = TimeOf([&] { docking->CloseAll(); });
        docking.reset();
        SwitchTheme(); // back to the table of all other benchmarks
    }
}

/// A step of a drag, over another label or none each time.
void DragStep(benchmark::State &state)
{
    Docking docking(int(state.range(0)));
    docking.Show();
    QcDockWidget *panel = docking.Last();
    panel->swichToFloating();
    Settle();
    const QPoint centre = docking.Window().mapToGlobal(docking.Window().rect().center());
    int step = 0;
    for (auto _ : state) {
        QCursor::setPos(centre + QPoint(20 * (step++ % 5), 0));
        Velmora::QcDockDragController::instance()->processDockWidgetDraging(panel);
        Settle();
    }
    QCursor::setPos(0, 0);
    Velmora::QcDockDragController::instance()->processDockWidgetDragFinished(panel);
    Settle();
}

template <typename T>
void Register()
{
    benchmark::RegisterBenchmark((std::string("Docking/") + T::kName).c_str(), Live<T>)
        ->Arg(20)
        ->Arg(100)
        ->Arg(400)
        ->Iterations(1)
        ->Repetitions(kFewRepetitions);
}

} // namespace

namespace Bench {

void RegisterDockBenchmarks()
{
    Register<Docking>();
    Register<PlainDocking>();
    benchmark::RegisterBenchmark("DockDragStep/velmora", DragStep)->Arg(20)->Arg(100)->Arg(400);
}

} // namespace Bench
