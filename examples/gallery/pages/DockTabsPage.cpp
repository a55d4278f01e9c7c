#include "Kit.h"
#include "Page.h"

#include <Velmora/QcDockAreaTabFrame.h>
#include <Velmora/QcDockWidget.h>

#include <QVBoxLayout>

using namespace Gallery;
using Velmora::QcDockAreaTabFrame;
using Velmora::QcDockWidget;

namespace {

class DockTabsPage : public PageWidget
{
public:
    DockTabsPage()
    {
        AddRow(QStringLiteral("One panel"), QStringLiteral("No tabs: the panel shows its own title row."), 1, {0});
        AddRow(QStringLiteral("Two"), QStringLiteral("A tab is 200 pixels wide where there is room."), 2, {0, 1});
        AddRow(QStringLiteral("Six"),
               QStringLiteral("A line parts two tabs of which neither is the current one. The buttons at the end step "
                              "through the tabs, and are disabled at either end."),
               6, {0, 3, 5});
        AddRow(QStringLiteral("Thirty"), QStringLiteral("Tabs shrink, and never scroll."), 30, {12});
    }

private:
    void AddRow(const QString &title, const QString &text, int count, std::initializer_list<int> currents)
    {
        Card *card = AddSection(title, text);
        for (int current : currents)
            card->Body()->addWidget(MakeTabs(count, current));
    }

    static QWidget *MakeTabs(int count, int current)
    {
        auto *tabs = new QcDockAreaTabFrame;
        tabs->setFixedHeight(9 * kGrid);
        for (int i = 1; i <= count; ++i) {
            auto *panel = new QcDockWidget(nullptr);
            panel->setWindowTitle(i == 2 ? QStringLiteral("A title that fades at its end") : QStringLiteral("Tab %1").arg(i));
            tabs->addTab(panel->windowTitle(), panel);
        }
        tabs->setCurrentIndex(current);
        MakeSpecimen(tabs); // torn out they would have no layout to come back to
        return tabs;
    }
};

const PageRegistrar registrar({QStringLiteral("docktabs"), QStringLiteral("Docking"), QStringLiteral("Tabs"),
                               QStringLiteral("QcDockAreaTabFrame: the panels of one area."), 620, [] { return new DockTabsPage; }});

} // namespace
