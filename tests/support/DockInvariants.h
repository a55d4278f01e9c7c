#pragma once

#include "dock/DockRegistry_p.h"
#include "dock/DockTree_p.h"
#include "support/TestCase.h"

#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockAreaTabBar.h>
#include <Velmora/QcDockAreaTabBarButton.h>
#include <Velmora/QcDockAreaTabFrame.h>
#include <Velmora/QcDockAreaTabStackedWidget.h>
#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockController.h>
#include <Velmora/QcDockIndicator.h>
#include <Velmora/QcDockMask.h>
#include <Velmora/QcDockWidget.h>

#include <QApplication>
#include <QFrame>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QPointer>
#include <QSet>
#include <QSplitter>
#include <QStringList>
#include <QTemporaryFile>
#include <QVariant>

#include <algorithm>
#include <memory>

namespace VelmoraTest {

/// What docking promises to hold after every turn of the main loop that follows an operation. Reads public operations and the tree of
/// widgets, and finds by itself what the library knows from its own walks and records.
class DockInvariants
{
public:
    static QStringList Violations(const QList<Velmora::QcDockContainer *> &roots)
    {
        DockInvariants check;
        for (Velmora::QcDockContainer *root : roots) {
            check.CheckContainer(root);
            for (auto *container : Below<Velmora::QcDockContainer>(root))
                check.CheckContainer(container);
            for (auto *area : Below<Velmora::QcDockArea>(root))
                check.CheckArea(area);
        }
        check.CheckPanels();
        check.CheckFeedback();
        check.CheckRegistry();
        return check.m_violations;
    }

    /// All containers that no other one encloses.
    static QList<Velmora::QcDockContainer *> Roots()
    {
        QList<Velmora::QcDockContainer *> roots;
        for (Velmora::QcDockContainer *container : Velmora::DockRegistry::Containers())
            if (Velmora::IsRoot(container))
                roots.append(container);
        return roots;
    }

private:
    using Area = Velmora::QcDockArea;
    using Container = Velmora::QcDockContainer;
    using Panel = Velmora::QcDockWidget;

    template <typename T>
    static QList<T *> Below(const QWidget *root)
    {
        QList<T *> living;
        for (T *widget : root->findChildren<T *>())
            if (!Velmora::IsDoomed(widget))
                living.append(widget);
        return living;
    }

    template <typename T>
    static QList<T *> AllOf()
    {
        QList<T *> found;
        for (QWidget *widget : QApplication::allWidgets())
            if (auto *one = qobject_cast<T *>(widget))
                found.append(one);
        return found;
    }

    /// A widget never shown is hidden too, but will be seen with its parent.
    static bool WillBeSeen(const QWidget *widget) { return !widget->isHidden() || !widget->testAttribute(Qt::WA_WState_ExplicitShowHide); }

    void Require(bool holds, const QString &otherwise)
    {
        if (!holds)
            m_violations.append(otherwise);
    }

    // --- Containers ---

    void CheckContainer(Container *container)
    {
        const auto splitters = container->findChildren<QSplitter *>(QString(), Qt::FindDirectChildrenOnly);
        Require(splitters.size() == 1, QStringLiteral("a container with %1 splitters").arg(splitters.size()));
        const QList<Area *> areas = container->getDockAreaList();
        Require(!areas.isEmpty(), QStringLiteral("a container that shows no area"));
        int panes = 0;
        for (const QSplitter *splitter : splitters) {
            for (int i = 0; i < splitter->count(); ++i) {
                Require(qobject_cast<Area *>(splitter->widget(i)), QStringLiteral("a pane that is no area"));
                panes += Velmora::IsDoomed(splitter->widget(i)) ? 0 : 1;
            }
        }
        const int sizes = int(container->getSizes().size());
        Require(sizes == panes, QStringLiteral("%1 sizes for %2 panes").arg(sizes).arg(panes));
        for (Area *area : areas)
            Require(areas.size() == 1 || !WasEmptied(area), QStringLiteral("an emptied area beside others"));
        CheckCounts(container);
    }

    /// An area that never had a panel may lie beside others: the one that a new container begins with, or that a layout file tells of.
    static bool WasEmptied(Area *area)
    {
        if (!area->isEmpty())
            return false;
        if (area->count() == 0)
            return Velmora::DockTree::RecordOf(area).hadPage;
        const auto inner = Below<Area>(area);
        return std::any_of(inner.begin(), inner.end(),
                           [](Area *leaf) { return leaf->count() == 0 && Velmora::DockTree::RecordOf(leaf).hadPage; });
    }

    /// Whether a panel between \a widget and \a container makes a world of its own of what lies in it.
    static bool IsOfWorld(const QWidget *widget, const QWidget *container)
    {
        for (const QWidget *parent = widget->parentWidget(); parent != container; parent = parent->parentWidget())
            if (qobject_cast<const Panel *>(parent))
                return false;
        return true;
    }

    void CheckCounts(Container *container)
    {
        QList<int> types;
        for (Panel *panel : Below<Panel>(container))
            if (IsOfWorld(panel, container))
                types.append(panel->getType());
        bool isKept = false;
        for (Container *inner : Below<Container>(container))
            isKept = isKept || (inner->isEmptyKeep() && IsOfWorld(inner, container));
        QList<int> known = container->getDockWidgetTypeList();
        for (int type : QSet<int>(types.begin(), types.end()))
            Require(container->getDockWidgetCount(type) == types.count(type), QStringLiteral("a wrong count of panels of a type"));
        std::sort(types.begin(), types.end());
        std::sort(known.begin(), known.end());
        Require(known == types, QStringLiteral("a list of types that does not fit the panels"));
        Require(container->isEmpty() == (types.isEmpty() && !isKept), QStringLiteral("a container wrong about being empty"));
    }

    // --- Areas ---

    void CheckArea(Area *area)
    {
        if (Container *container = Velmora::EnclosingContainer(area)) {
            auto *splitter = qobject_cast<QSplitter *>(area->parentWidget());
            Require(splitter && splitter->parentWidget() == container && splitter->indexOf(area) >= 0,
                    QStringLiteral("an area outside of its container's splitter"));
        }
        int containers = 0;
        for (int i = 0; i < area->count(); ++i)
            containers += qobject_cast<Container *>(area->widget(i)) ? 1 : 0;
        Require(containers == 0 || area->count() == 1, QStringLiteral("a wrapper with %1 pages").arg(area->count()));
        CheckTabs(area);
        CheckRows(area);
    }

    void CheckTabs(Area *area)
    {
        const int pages = area->count();
        auto *bar = area->findChild<Velmora::QcDockAreaTabBar *>(QStringLiteral("m_tabBar"));
        auto *stack = area->findChild<Velmora::QcDockAreaTabStackedWidget *>(QStringLiteral("m_stackedWidget"));
        int tabs = 0;
        while (bar->getTab(tabs))
            ++tabs;
        // The tab of a last page that was lost, not taken away, stays until the next one comes.
        Require(tabs == pages || (pages == 0 && tabs == 1), QStringLiteral("%1 tabs for %2 pages").arg(tabs).arg(pages));
        for (int i = 0; i < std::min(tabs, pages); ++i) {
            const QString text = bar->getTab(i)->findChild<QLabel *>(QStringLiteral("m_textLabel"))->text();
            Require(text == area->widget(i)->windowTitle(), QStringLiteral("a tab \"%1\" of a page with another title").arg(text));
        }
        Require(area->currentIndex() == stack->currentIndex(), QStringLiteral("a checked tab that is not of the page shown"));
        Require((pages == 0) == (area->currentIndex() < 0), QStringLiteral("no current tab"));
    }

    void CheckRows(Area *area)
    {
        const bool hasRow = area->count() >= 2;
        const auto *row = area->findChild<QFrame *>(QStringLiteral("m_topFrame"));
        Require(WillBeSeen(row) == hasRow, QStringLiteral("a tab row that does not fit %1 pages").arg(area->count()));
        for (int i = 0; i < area->count(); ++i)
            if (auto *panel = qobject_cast<Panel *>(area->widget(i)))
                Require(WillBeSeen(TitleRow(panel)) != hasRow, QStringLiteral("a title row that does not fit the tab row"));
    }

    static QFrame *TitleRow(Panel *panel) { return panel->findChild<QFrame *>(QStringLiteral("m_titleFrame"), Qt::FindDirectChildrenOnly); }

    // --- Everywhere ---

    void CheckPanels()
    {
        for (Panel *panel : AllOf<Panel>()) {
            auto *stack = qobject_cast<Velmora::QcDockAreaTabStackedWidget *>(panel->parentWidget());
            const bool isPage = stack && stack->indexOf(panel) >= 0;
            Require(!stack || isPage || panel->isWindow(), QStringLiteral("a panel hidden in a stack that does not show it"));
            Require(!isPage || !panel->isWindow(), QStringLiteral("a window that is a page"));
            Require(!panel->isFloating() || WillBeSeen(TitleRow(panel)), QStringLiteral("a floating panel without its title row"));
            Require(!panel->property("draging").toBool(), QStringLiteral("a panel that looks dragged"));
            const auto labels = panel->findChildren<QLabel *>(QStringLiteral("m_dragTipLabel"), Qt::FindDirectChildrenOnly);
            for (const QLabel *tip : labels)
                Require(tip->isHidden(), QStringLiteral("a panel that still shows its drag tip"));
        }
    }

    void CheckFeedback()
    {
        for (const auto *indicator : AllOf<Velmora::QcDockIndicator>())
            Require(indicator->parentWidget() || indicator->isHidden(), QStringLiteral("an indicator between drags"));
        for (const auto *mask : AllOf<Velmora::QcDockMask>())
            Require(mask->parentWidget() || mask->isHidden(), QStringLiteral("a mask between drags"));
        for (const auto *tab : AllOf<Velmora::QcDockAreaTabBarButton>())
            Require(tab->parentWidget(), QStringLiteral("a tab without a parent"));
    }

    void CheckRegistry()
    {
        CompareWithLiving(Velmora::DockRegistry::Areas(), QStringLiteral("areas"));
        CompareWithLiving(Velmora::DockRegistry::Containers(), QStringLiteral("containers"));
    }

    template <typename T>
    void CompareWithLiving(QList<T *> registered, const QString &what)
    {
        QList<T *> living;
        for (T *one : AllOf<T>())
            if (!IsReplaced(one))
                living.append(one);
        std::sort(living.begin(), living.end());
        std::sort(registered.begin(), registered.end());
        Require(living == registered, QStringLiteral("a registry that does not fit the living ").append(what));
    }

    /// The default area of a splitter that was replaced waits for its deletion outside of all containers.
    static bool IsReplaced(const QWidget *widget)
    {
        return !Velmora::EnclosingContainer(widget) && qobject_cast<QSplitter *>(widget->window());
    }

    QStringList m_violations;
};

/// The violations in all that is docked.
inline QStringList DockViolations()
{
    return DockInvariants::Violations(DockInvariants::Roots());
}

/// A saved layout without what a load cannot bring back: the geometry of docked panels.
inline QJsonObject WithoutGeometry(QJsonObject node)
{
    for (const QString &key : {QStringLiteral("children"), QStringLiteral("dockWidgetList")}) {
        QJsonArray inner;
        for (const QJsonValue &value : node.value(key).toArray())
            inner.append(WithoutGeometry(value.toObject()));
        if (node.contains(key))
            node[key] = inner;
    }
    if (node.value(QStringLiteral("nodeType")).toString() == QLatin1String("dockWidget"))
        for (const QString &key : {QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("width"), QStringLiteral("height")})
            node.remove(key);
    return node;
}

inline QByteArray Comparable(const QString &layout)
{
    return QJsonDocument(WithoutGeometry(QJsonDocument::fromJson(layout.toUtf8()).object())).toJson(QJsonDocument::Indented);
}

/// What a layout loses by being saved, loaded, placed at the same size and saved again.
inline QStringList RoundTripViolations(Velmora::QcDockContainer &root)
{
    Velmora::QcDockController *controller = Velmora::QcDockController::instance();
    const QPointer<Velmora::QcDockContainer> registered = controller->getRootDockContainer();
    const QString saved = controller->toJson(&root);
    QTemporaryFile file;
    file.open();
    file.write(saved.toUtf8());
    file.close();
    const std::unique_ptr<Velmora::QcDockContainer> copy(controller->loadFromJson(file.fileName()));
    if (copy.get() == registered)
        return {QStringLiteral("a saved layout that is refused")};
    copy->resize(root.size());
    copy->show();
    DrainEvents();
    const QString again = controller->toJson(copy.get());
    controller->setRootDockContainer(registered);
    if (Comparable(again) == Comparable(saved))
        return {};
    return {QStringLiteral("a layout that comes back as another: ") + saved + QStringLiteral("\nas ") + again};
}

} // namespace VelmoraTest
