#include "dock/Monkey.h"

#include "dock/DockMove_p.h"
#include "support/DockInvariants.h"

#include <Velmora/QcDockAreaTabBar.h>
#include <Velmora/QcDockAreaTabBarButton.h>
#include <Velmora/QcDockController.h>
#include <Velmora/QcDockDragController.h>
#include <Velmora/QcDockIndicator.h>
#include <Velmora/QcDockWidget.h>
#include <Velmora/QcIconButton.h>

#include <QAction>
#include <QEventLoop>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

using namespace Velmora;

namespace VelmoraTest {

namespace {

QcDockController &Controller()
{
    return *QcDockController::instance();
}

template <typename T, typename Pointers>
QList<T *> LivingOf(const Pointers &pointers)
{
    QList<T *> living;
    for (const auto &pointer : pointers)
        if (pointer)
            living.append(pointer);
    return living;
}

constexpr int kLeastFloat = 60;

bool IsTracing()
{
    static const bool isTracing = qEnvironmentVariableIsSet("VELMORA_MONKEY_TRACE");
    return isTracing;
}

/// Calls a function when a panel takes on the look of being dragged or of a window, or loses it.
class Ear : public QObject
{
public:
    explicit Ear(std::function<void()> function)
        : m_function(std::move(function))
    {
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::DynamicPropertyChange)
            return false;
        const QByteArray name = static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName();
        if (name != "draging" && name != "window")
            return false;
        const QPointer<QObject> living(watched);
        m_function();
        return !living; // Qt goes on with one that lives
    }

private:
    const std::function<void()> m_function;
};

bool CanBePressed(const QWidget *widget)
{
    return widget && widget->isVisible() && widget->window()->windowHandle() && widget->width() > 80 && widget->height() > 20;
}

} // namespace

Monkey::Monkey(quint32 seed)
    : m_random(seed)
    , m_ear(std::make_unique<Ear>([this] { WhenPanelLooksOtherwise(); }))
{
    for (int i = 0; i < 2; ++i) {
        auto *column = new QVBoxLayout(&m_windows[i]);
        column->setContentsMargins(0, 0, 0, 0);
        m_windows[i].setGeometry(10 + 390 * i, 20 + 60 * i, 380, 420);
        m_windows[i].show();
    }
    m_elsewhere.setGeometry(0, 560, 80, 20);
    m_elsewhere.show();
    Furnish();
    for (int i = 0; i < 6; ++i)
        m_roots[i % 2]->addWidget(NewPanel(), OneOf(m_roots[i % 2]->getDockAreaList()), DockPosition(Below(5)));
    DrainEvents();
}

Monkey::~Monkey()
{
    m_ear.reset();
    for (int i = 0; i < 2; ++i)
        delete m_roots[i];
    for (const auto &panel : qAsConst(m_panels))
        delete panel;
    for (const auto &content : qAsConst(m_contents))
        delete content;
    DeleteFeedback();
    Controller().setDockAreaSupportTypeList({});
    QApplication::setLayoutDirection(Qt::LeftToRight);
    UseTable(Table::Light);
    DrainEvents();
}

const std::vector<Monkey::Operation> &Monkey::Operations()
{
    static const std::vector<Operation> operations{
        {"add at a leaf", 8, false, &Monkey::AddAtLeaf},
        {"add at an edge", 4, false, &Monkey::AddAtEdge},
        {"add a content", 6, false, &Monkey::AddContent},
        {"add to an area", 4, false, &Monkey::AddToArea},
        {"drag a title", 14, false, &Monkey::DragTitle},
        {"drag a tab", 14, false, &Monkey::DragTab},
        {"click a floating title", 2, false, &Monkey::ClickTitle},
        {"move by keys", 4, false, &Monkey::MoveByKeys},
        {"press a key", 3, true, &Monkey::PressKey},
        {"choose from a menu", 2, true, &Monkey::ChooseFromMenu},
        {"float", 5, false, &Monkey::Float},
        {"dock", 7, false, &Monkey::Dock},
        {"select", 3, false, &Monkey::Select},
        {"navigate", 2, false, &Monkey::Navigate},
        {"rename", 2, false, &Monkey::Rename},
        {"set types", 1, false, &Monkey::SetTypes},
        {"set sizes", 2, false, &Monkey::SetSizes},
        {"turn", 1, false, &Monkey::Turn},
        {"hide or show", 2, false, &Monkey::HideOrShow},
        {"resize", 2, false, &Monkey::Resize},
        {"change the theme", 1, false, &Monkey::ChangeTheme},
        {"change the direction", 1, false, &Monkey::ChangeDirection},
        {"register a root", 2, false, &Monkey::RegisterRoot},
        {"keep empty", 2, false, &Monkey::KeepEmpty},
        {"take out", 3, false, &Monkey::TakeOut},
        {"move a content", 2, false, &Monkey::MoveContent},
        {"close a panel", 4, true, &Monkey::ClosePanel},
        {"close a tab", 4, true, &Monkey::CloseTab},
        {"delete a panel", 3, true, &Monkey::DeletePanel},
        {"delete a content", 1, true, &Monkey::DeleteContent},
        {"delete an area", 2, true, &Monkey::DeleteArea},
        {"delete a container", 1, true, &Monkey::DeleteContainer},
        {"delete indicator and mask", 1, false, &Monkey::DeleteFeedback},
        {"deal", 3, true, &Monkey::Deal},
        {"save and load", 2, true, &Monkey::SaveAndLoad},
        {"load a broken file", 1, false, &Monkey::LoadRefused},
        {"save and compare", 1, false, &Monkey::SaveAndCompare},
        {"list areas", 2, true, &Monkey::ListAreas},
        {"dock inside", 1, false, &Monkey::DockInside},
        {"start anew", 1, true, &Monkey::StartAnew},
    };
    return operations;
}

QStringList Monkey::Step()
{
    Furnish();
    m_steps.append(QString());
    if (IsTracing())
        fprintf(stderr, "%s\n", qPrintable(Trees().join(QLatin1Char('\n'))));
    m_mayLose = false;
    m_faults.clear();
    const QSet<QString> before = Living();
    for (int i = Chance(30) ? 1 + Below(3) : 1; i > 0; --i)
        RunOne(false);
    DrainEvents();
    FindNewPanels();
    QStringList faults = m_faults + DockViolations();
    for (const QString &name : m_mayLose ? QSet<QString>() : before - Living())
        faults.append(QStringLiteral("%1 was lost").arg(name));
    return faults;
}

/// The names of all panels and contents that live.
QSet<QString> Monkey::Living() const
{
    QSet<QString> names;
    for (int i = 0; i < m_panels.size(); ++i)
        if (m_panels[i])
            names.insert(QStringLiteral("p%1").arg(i));
    for (int i = 0; i < m_contents.size(); ++i)
        if (m_contents[i])
            names.insert(QStringLiteral("content %1").arg(i));
    return names;
}

void Monkey::RunOne(bool inTheMiddle)
{
    const std::vector<Operation> &all = Operations();
    int sum = 0;
    for (const Operation &operation : all)
        sum += operation.weight;
    const bool isCrowded = Panels().size() > 24;
    for (;;) {
        int ticket = Below(sum);
        size_t index = 0;
        while (ticket >= all[index].weight)
            ticket -= all[index++].weight;
        const Operation &operation = all[index];
        const bool isDrag = operation.run == &Monkey::DragTitle || operation.run == &Monkey::DragTab || operation.run == &Monkey::ClickTitle
            || operation.run == &Monkey::ChooseFromMenu;
        const bool adds = operation.run == &Monkey::AddAtLeaf || operation.run == &Monkey::AddAtEdge || operation.run == &Monkey::AddContent
            || operation.run == &Monkey::DockInside;
        const bool isWhole = operation.run == &Monkey::SaveAndCompare;
        if ((m_isMousePressed && isDrag) || (inTheMiddle && isWhole) || (isCrowded && adds))
            continue;
        Note(QStringLiteral("%1%2").arg(QString(m_depth * 2, QLatin1Char('>')), QLatin1String(operation.name)));
        m_mayLose = m_mayLose || operation.mayLose;
        ++m_depth;
        (this->*operation.run)();
        --m_depth;
        return;
    }
}

/// What a host does in the middle of something else.
void Monkey::Interfere()
{
    if (m_depth < 3)
        RunOne(true);
}

/// The same in a loop of its own, as a dialog runs one.
void Monkey::InLoop()
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [this, &loop] {
        Interfere();
        QTimer::singleShot(0, &loop, &QEventLoop::quit);
    });
    loop.exec();
}

void Monkey::WhileClosing()
{
    m_mayLose = true;
    const QScopedValueRollback<int> onStack(m_onStack, m_onStack + 1);
    InLoop();
}

/// The kit is in the middle of a drag, or of a panel's way to its place.
void Monkey::WhenPanelLooksOtherwise()
{
    if (m_depth == 0 || m_depth > 2 || !Chance(6))
        return;
    const QScopedValueRollback<int> onStack(m_onStack, m_onStack + 1);
    Note(QStringLiteral("hears"));
    if (Chance(50))
        Interfere();
    else
        InLoop();
}

/// At once, unless a call of the kit waits for the host: then Qt may be in the middle of \a widget.
void Monkey::Delete(QWidget *widget)
{
    if (m_onStack == 0 && Chance(50))
        delete widget;
    else if (widget)
        widget->deleteLater();
}

// --- Chance ---

DockPosition Monkey::AnyPosition()
{
    return Chance(2) ? DockPosition(77) : DockPosition(Below(10));
}

QPoint Monkey::AnyPoint()
{
    const QList<QcDockArea *> areas = Areas();
    if (areas.isEmpty() || Chance(20))
        return {Below(800), Below(600)};
    const QcDockArea *area = OneOf(areas);
    return area->mapToGlobal(QPoint(Below(area->width()), Below(area->height())));
}

// --- What there is ---

/// A root that the kit or a host deleted is replaced.
void Monkey::Furnish()
{
    for (int i = 0; i < 2; ++i) {
        if (m_roots[i])
            continue;
        auto *root = new QcDockContainer;
        root->setEmptyKeep(Chance(60));
        PutIntoWindow(i, root);
        if (!Controller().getRootDockContainer() && Chance(80))
            Controller().setRootDockContainer(root);
    }
}

void Monkey::PutIntoWindow(int window, QcDockContainer *root)
{
    m_roots[window] = root;
    m_windows[window].layout()->addWidget(root);
}

/// In the order of the tree: that of QApplication::allWidgets() differs from run to run.
void Monkey::FindNewPanels()
{
    const auto visit = [this](QWidget *widget) {
        if (auto *panel = qobject_cast<QcDockWidget *>(widget)) {
            Adopt(panel);
        }
        return false;
    };
    for (QcDockContainer *container : DockRegistry::Containers())
        if (IsRoot(container))
            WalkDock(container, visit);
}

QList<QcDockWidget *> Monkey::Panels() const
{
    return LivingOf<QcDockWidget>(m_panels);
}

QList<QcDockWidget *> Monkey::DockedPanels() const
{
    QList<QcDockWidget *> docked;
    for (QcDockWidget *panel : Panels())
        if (AreaOfPage(panel))
            docked.append(panel);
    return docked;
}

QList<QcDockWidget *> Monkey::FloatingPanels() const
{
    QList<QcDockWidget *> floating;
    for (QcDockWidget *panel : Panels())
        if (panel->isFloating())
            floating.append(panel);
    return floating;
}

QList<QcDockArea *> Monkey::Areas() const
{
    return DockRegistry::Areas();
}

QList<QcDockContainer *> Monkey::Containers() const
{
    return DockRegistry::Containers();
}

QList<QWidget *> Monkey::Contents() const
{
    return LivingOf<QWidget>(m_contents);
}

QcDockContainer *Monkey::AnyRoot()
{
    QcDockContainer *root = m_roots[Below(2)];
    return root ? root : OneOf(Containers());
}

void Monkey::Adopt(QcDockWidget *panel)
{
    if (m_panels.contains(panel))
        return;
    m_panels.append(panel);
    panel->installEventFilter(m_ear.get());
}

QcDockWidget *Monkey::NewPanel()
{
    auto *panel = new QcDockWidget(nullptr); // the destructor finds it, if nobody else does
    Adopt(panel);
    if (Chance(80))
        panel->setContentWidget(NewContent());
    panel->setType(Below(4));
    return panel;
}

Content *Monkey::NewContent()
{
    auto *content = new Content(QStringLiteral("C%1").arg(m_contents.size()));
    content->setProperty("dock_widget_content_type", Below(4));
    content->refusesClose = Chance(25);
    if (Chance(25)) {
        const QPointer<Content> self(content);
        content->whenAsked = [this, self] {
            if (m_depth == 0)
                return; // the monkey has left
            WhileClosing();
        };
    }
    m_contents.append(content);
    return content;
}

// --- The log ---

void Monkey::Note(const QString &words)
{
    QString &step = m_steps.last();
    step += step.isEmpty() ? words : QStringLiteral(", ") + words;
    if (IsTracing())
        fprintf(stderr, "%d: %s\n", int(m_steps.size()), qPrintable(words));
}

QString Monkey::NameOf(const QWidget *widget) const
{
    if (!widget)
        return QStringLiteral("nothing");
    for (int i = 0; i < m_panels.size(); ++i)
        if (static_cast<const QWidget *>(m_panels[i].data()) == widget)
            return QStringLiteral("p%1").arg(i);
    for (int i = 0; i < Areas().size(); ++i)
        if (static_cast<const QWidget *>(Areas()[i]) == widget)
            return QStringLiteral("a%1").arg(i);
    for (int i = 0; i < Containers().size(); ++i)
        if (static_cast<const QWidget *>(Containers()[i]) == widget)
            return QStringLiteral("c%1").arg(i);
    return QLatin1String(widget->metaObject()->className());
}

QString Monkey::TreeOf(QcDockContainer *container) const
{
    QStringList areas;
    for (QcDockArea *area : container->getDockAreaList()) {
        QStringList pages;
        for (int i = 0; i < area->count(); ++i) {
            auto *nested = qobject_cast<QcDockContainer *>(area->widget(i));
            pages.append(nested ? TreeOf(nested) : NameOf(area->widget(i)));
        }
        areas.append(QStringLiteral("%1[%2]").arg(NameOf(area), pages.join(QLatin1Char(' '))));
    }
    return QStringLiteral("%1(%2)").arg(NameOf(container), areas.join(QLatin1Char(' ')));
}

QStringList Monkey::Trees() const
{
    QStringList trees;
    for (QcDockContainer *container : Containers())
        if (IsRoot(container))
            trees.append(TreeOf(container));
    for (const QcDockWidget *panel : FloatingPanels())
        trees.append(QStringLiteral("%1 under %2").arg(NameOf(panel), NameOf(panel->parentWidget())));
    return trees;
}

// --- Adding ---

void Monkey::AddAtLeaf()
{
    QcDockArea *area = OneOf(Areas());
    QcDockContainer *container = area ? EnclosingContainer(area) : nullptr;
    if (!container)
        return;
    QWidget *target = Chance(70) || !area->widget(0) ? area : area->widget(0);
    const DockPosition position = AnyPosition();
    Note(QStringLiteral("at %1, %2").arg(NameOf(area)).arg(position));
    container->addWidget(NewPanel(), target, position);
}

void Monkey::AddAtEdge()
{
    QcDockContainer *container = Chance(60) ? AnyRoot() : OneOf(Containers());
    const DockPosition position = AnyPosition();
    Note(QStringLiteral("of %1, %2").arg(NameOf(container)).arg(position));
    if (container)
        container->addWidget(NewPanel(), nullptr, position);
}

void Monkey::AddContent()
{
    QcDockContainer *container = Chance(60) ? AnyRoot() : OneOf(Containers());
    const DockPosition position = AnyPosition();
    Note(QStringLiteral("to %1, %2").arg(NameOf(container)).arg(position));
    if (!container)
        return;
    Content *content = NewContent();
    container->addDockWidgetContent(content, position);
    for (QWidget *parent = content->parentWidget(); parent; parent = parent->parentWidget())
        if (auto *panel = qobject_cast<QcDockWidget *>(parent)) {
            Adopt(panel); // also where it was placed nowhere
            break;
        }
}

void Monkey::AddToArea()
{
    QcDockArea *area = OneOf(Areas());
    QcDockWidget *panel = Chance(50) && !Panels().isEmpty() ? OneOf(Panels()) : Panels().size() < 24 ? NewPanel() : nullptr;
    Note(QStringLiteral("%1 to %2").arg(NameOf(panel), NameOf(area)));
    if (area && panel)
        area->addWidget(panel);
}

/// A content that has docking of its own, a world by itself.
void Monkey::DockInside()
{
    QcDockContainer *root = AnyRoot();
    if (!root)
        return;
    Content *content = NewContent();
    auto *column = new QVBoxLayout(content);
    auto *inner = new QcDockContainer(content);
    inner->setEmptyKeep(Chance(50));
    column->addWidget(inner);
    inner->addWidget(NewPanel(), nullptr, Center);
    inner->addWidget(NewPanel(), nullptr, AnyPosition());
    QcDockWidget *panel = NewPanel();
    panel->setContentWidget(content);
    root->addWidget(panel, OneOf(root->getDockAreaList()), DockPosition(Below(5)));
}

// --- Dragging ---

void Monkey::DragTitle()
{
    QList<QcDockWidget *> draggable;
    for (QcDockWidget *panel : Panels())
        if (CanBePressed(PartOf(*panel, "m_titleFrame")))
            draggable.append(panel);
    QcDockWidget *panel = OneOf(draggable);
    Note(QStringLiteral("of %1").arg(NameOf(panel)));
    if (panel)
        Drag(*panel, QPoint(panel->width() / 2, 15));
}

void Monkey::DragTab()
{
    QList<QWidget *> tabs;
    for (QcDockArea *area : Areas()) {
        auto *bar = PartOf<QcDockAreaTabBar>(*area, "m_tabBar");
        for (int i = 0; bar->getTab(i); ++i)
            if (bar->getTab(i)->isVisible() && bar->getTab(i)->width() > 12 && bar->window()->windowHandle())
                tabs.append(bar->getTab(i));
    }
    QWidget *tab = OneOf(tabs);
    if (!tab)
        return;
    Note(QStringLiteral("%1 of %2").arg(PartOf<QLabel>(*tab, "m_textLabel")->text(), NameOf(EnclosingArea(tab))));
    const QPoint at(tab->width() / 3, 15);
    m_mayLose = m_mayLose || qobject_cast<QAbstractButton *>(tab->childAt(at)); // the close button of a narrow one, if the mouse comes back
    Drag(*tab, at);
}

void Monkey::ClickTitle()
{
    QList<QcDockWidget *> floating;
    for (QcDockWidget *panel : FloatingPanels())
        if (CanBePressed(PartOf(*panel, "m_titleFrame")))
            floating.append(panel);
    QcDockWidget *panel = OneOf(floating);
    Note(QStringLiteral("of %1").arg(NameOf(panel)));
    if (!panel)
        return;
    Mouse mouse;
    mouse.PressAt(*panel, QPoint(panel->width() / 2, 15));
    mouse.Release();
}

void Monkey::Drag(QWidget &pressed, const QPoint &at)
{
    const QScopedValueRollback<bool> isPressed(m_isMousePressed, true);
    Mouse mouse;
    mouse.PressAt(pressed, at);
    for (int steps = 1 + Below(5); steps > 0; --steps) {
        MoveSomewhere(mouse);
        if (Chance(70))
            DrainEvents();
        if (Chance(8))
            Interfere();
        else if (Chance(4))
            InLoop();
    }
    switch (Below(10)) {
    case 0:
        Note(QStringLiteral("Escape"));
        QTest::keyClick(&m_elsewhere, Qt::Key_Escape);
        mouse.Release();
        break;
    case 1: { // the window system took the release, so the next press ends the drag
        Note(QStringLiteral("lost"));
        Mouse next;
        next.PressAt(m_elsewhere, QPoint(5, 5));
        next.Release();
        break;
    }
    default:
        mouse.Release();
        if (Chance(8))
            Interfere(); // before a posted drop
    }
}

/// The keyboard moves a panel while hosts go on.
void Monkey::MoveByKeys()
{
    QcDockWidget *panel = OneOf(Panels());
    QcDockArea *area = panel ? OneOf(AreasToMoveTo(panel)) : nullptr;
    Note(QStringLiteral("%1 to %2").arg(NameOf(panel), NameOf(area)));
    if (!area)
        return;
    BeginDockMove(panel, area);
    const QList<Qt::Key> keys{Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_X};
    for (int steps = Below(5); steps > 0; --steps) {
        QTest::keyClick(&m_elsewhere, OneOf(keys));
        if (Chance(10))
            Interfere();
        if (Chance(50))
            DrainEvents();
    }
    if (Chance(75))
        QTest::keyClick(&m_elsewhere, Qt::Key_Return);
    if (Chance(20))
        Interfere();
    QTest::keyClick(&m_elsewhere, Qt::Key_Escape);
}

void Monkey::PressKey()
{
    const QList<QPair<Qt::Key, Qt::KeyboardModifiers>> keys{
        {Qt::Key_W, Qt::ControlModifier},        {Qt::Key_Tab, Qt::ControlModifier}, {Qt::Key_PageUp, Qt::ControlModifier},
        {Qt::Key_PageDown, Qt::ControlModifier}, {Qt::Key_Delete, Qt::NoModifier},   {Qt::Key_Left, Qt::NoModifier},
        {Qt::Key_End, Qt::NoModifier},           {Qt::Key_F6, Qt::NoModifier},       {Qt::Key_F6, Qt::ShiftModifier},
        {Qt::Key_Tab, Qt::NoModifier},
    };
    QList<QWidget *> places;
    for (QcDockArea *area : Areas()) {
        auto *tab = PartOf<QcDockAreaTabBar>(*area, "m_tabBar")->getTab(area->currentIndex());
        for (QWidget *place : {static_cast<QWidget *>(tab), area->widget(area->currentIndex())})
            if (place && place->isVisible())
                places.append(place);
    }
    QWidget *place = OneOf(places);
    const auto [key, modifiers] = OneOf(keys);
    Note(QStringLiteral("%1 in %2").arg(key).arg(NameOf(place)));
    if (!place)
        return;
    place->setFocus();
    QTest::keyClick(place, key, modifiers);
}

void Monkey::ChooseFromMenu()
{
    QcDockWidget *panel = OneOf(Panels());
    Note(NameOf(panel));
    if (!panel)
        return;
    OpenDockMenu(panel);
    const QPointer<QMenu> menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    if (menu && Chance(20))
        Interfere();
    const QPointer<QAction> action = menu ? OneOf(menu->actions()) : nullptr;
    if (action) {
        Note(action->text());
        const QScopedValueRollback<int> onStack(m_onStack, m_onStack + 1);
        action->trigger();
    }
    if (menu)
        menu->close();
    QTest::keyClick(&m_elsewhere, Qt::Key_Escape); // no move by keys goes on
}

void Monkey::MoveSomewhere(Mouse &mouse)
{
    QList<QPoint> labels;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (!qobject_cast<QcDockIndicator *>(widget) || !widget->isVisible())
            continue;
        for (const QLabel *label : widget->findChildren<QLabel *>())
            labels.append(label->mapToGlobal(label->rect().center()));
    }
    const QPoint point = !labels.isEmpty() && Chance(65) ? OneOf(labels) : AnyPoint();
    Note(QStringLiteral("to (%1, %2)").arg(point.x()).arg(point.y()));
    mouse.MoveTo(point);
}

// --- Placing ---

void Monkey::Float()
{
    QcDockWidget *panel = OneOf(Chance(90) ? DockedPanels() : Panels());
    Note(NameOf(panel));
    if (panel)
        panel->swichToFloating();
}

void Monkey::Dock()
{
    QcDockWidget *panel = OneOf(Chance(60) ? FloatingPanels() : Panels());
    QcDockArea *area = Chance(80) ? OneOf(Areas()) : nullptr;
    QcDockContainer *container = area ? EnclosingContainer(area) : OneOf(Containers());
    const DockPosition position = AnyPosition();
    Note(QStringLiteral("%1 at %2 of %3, %4").arg(NameOf(panel), NameOf(area), NameOf(container)).arg(position));
    if (panel && container)
        container->addWidget(panel, area, position);
}

void Monkey::Select()
{
    if (Chance(20)) {
        if (QcDockContainer *root = AnyRoot())
            root->resetAllTabFramesToFirstTab();
        return;
    }
    if (QcDockArea *area = OneOf(Areas()))
        area->setCurrentIndex(Below(area->count() + 2) - 1);
}

void Monkey::Navigate()
{
    QcDockArea *area = OneOf(Areas());
    if (area)
        PartOf<QcIconButton>(*area, Chance(50) ? "m_leftButton" : "m_rightButton")->click();
}

void Monkey::Rename()
{
    if (QWidget *content = OneOf(Contents()))
        content->setWindowTitle(QStringLiteral("N%1").arg(Below(1000)));
}

void Monkey::SetTypes()
{
    QList<QList<int>> groups;
    for (int i = Below(3); i > 0; --i)
        groups.append({Below(4), Below(4)});
    Controller().setDockAreaSupportTypeList(groups);
}

void Monkey::SetSizes()
{
    QcDockContainer *container = OneOf(Containers());
    QList<int> sizes;
    for (int i = Below(5); i > 0; --i)
        sizes.append(Below(400) - 5);
    if (container)
        container->setSizes(sizes);
}

void Monkey::Turn()
{
    if (QcDockContainer *container = OneOf(Containers()))
        container->setOrientation(Chance(50) ? Qt::Horizontal : Qt::Vertical);
}

// --- Around ---

void Monkey::HideOrShow()
{
    QWidget *widget = Chance(50) ? &m_windows[Below(2)] : static_cast<QWidget *>(AnyRoot());
    if (widget)
        widget->setVisible(Chance(70));
}

void Monkey::Resize()
{
    m_windows[Below(2)].resize(60 + Below(700), 60 + Below(500));
}

void Monkey::ChangeTheme()
{
    UseTable(Chance(50) ? Table::Light : Table::Dark);
}

void Monkey::ChangeDirection()
{
    QApplication::setLayoutDirection(Chance(50) ? Qt::LeftToRight : Qt::RightToLeft);
}

void Monkey::RegisterRoot()
{
    Controller().setRootDockContainer(Chance(15) ? nullptr : Chance(85) ? AnyRoot() : OneOf(Containers()));
}

void Monkey::KeepEmpty()
{
    if (QcDockContainer *container = OneOf(Containers()))
        container->setEmptyKeep(Chance(50) || container->isEmpty()); // taken from an empty one it means nothing until the next loss
}

// --- Hosts that take what is theirs ---

void Monkey::TakeOut()
{
    QcDockWidget *panel = OneOf(Panels());
    Note(NameOf(panel));
    if (!panel)
        return;
    panel->hide();
    panel->setParent(Chance(70) ? nullptr : &m_windows[Below(2)]);
}

void Monkey::MoveContent()
{
    QWidget *content = OneOf(Contents());
    QcDockWidget *panel = OneOf(Panels());
    Note(QStringLiteral("to %1").arg(NameOf(panel)));
    if (!content || !panel || panel->getContentWidget())
        return; // the one that it has would be deleted
    if (Chance(50))
        panel->setContentWidget(content);
    else if (content != panel && !content->isAncestorOf(panel))
        content->setParent(Chance(50) ? nullptr : panel);
}

// --- Closing and deleting ---

void Monkey::ClosePanel()
{
    QcDockWidget *panel = OneOf(Panels());
    Note(NameOf(panel));
    if (!panel)
        return;
    if (Chance(50)) {
        panel->close();
        return;
    }
    const auto buttons = PartOf(*panel, "m_titleFrame")->findChildren<QcIconButton *>();
    for (QcIconButton *button : buttons) {
        button->click();
        return;
    }
}

void Monkey::CloseTab()
{
    QList<QWidget *> buttons;
    for (QcDockArea *area : Areas()) {
        auto *bar = PartOf<QcDockAreaTabBar>(*area, "m_tabBar");
        for (int i = 0; bar->getTab(i); ++i)
            if (bar->getTab(i)->isChecked())
                buttons.append(PartOf(*bar->getTab(i), "m_closeButton"));
    }
    if (auto *button = qobject_cast<QcIconButton *>(OneOf(buttons)))
        button->click();
}

void Monkey::DeletePanel()
{
    QcDockWidget *panel = OneOf(Panels());
    Note(NameOf(panel));
    Delete(panel);
}

void Monkey::DeleteContent()
{
    Delete(OneOf(Contents()));
}

void Monkey::DeleteArea()
{
    QcDockArea *area = OneOf(Areas());
    Note(NameOf(area));
    Delete(area);
}

void Monkey::DeleteContainer()
{
    QcDockContainer *container = OneOf(Containers());
    Note(NameOf(container));
    Delete(container);
}

/// A host that deletes all top-level windows deletes these, too.
void Monkey::DeleteFeedback()
{
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (qobject_cast<QcDockIndicator *>(widget) || qobject_cast<QcDockMask *>(widget))
            delete widget;
}

void Monkey::Deal()
{
    QList<QWidget *> contents;
    for (int i = Below(6); i > 0; --i)
        contents.append(Chance(40) && Contents().size() < 60 ? NewContent() : Chance(90) ? OneOf(Contents()) : nullptr);
    if (QcDockContainer *root = AnyRoot())
        root->setDockWidgetContentList(contents);
}

// --- Layouts ---

void Monkey::SaveAndLoad()
{
    const int window = Below(2);
    const QPointer<QcDockContainer> old = m_roots[window];
    if (!old)
        return;
    const QPointer<QcDockContainer> registered = Controller().getRootDockContainer();
    Controller().setJsonFilePath(m_folder.filePath(QStringLiteral("layout.json")));
    Controller().saveToJson(old);
    QcDockContainer *root = Controller().loadFromJson(QString());
    Controller().setJsonFilePath(QString());
    root->setEmptyKeep(Chance(60));
    FindNewPanels();
    if (Chance(70))
        root->setDockWidgetContentList(Contents().mid(0, 10));
    if (Chance(50))
        DrainEvents();
    Delete(old);
    PutIntoWindow(window, root);
    if (registered && registered != old && Chance(50))
        Controller().setRootDockContainer(registered);
}

void Monkey::LoadRefused()
{
    const QString path = m_folder.filePath(QStringLiteral("broken.json"));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write("{\"children\":[{\"dockWidgetList\":[{\"type\":1}");
    file.close();
    const QcDockContainer *before = Controller().getRootDockContainer();
    const int widgets = int(QApplication::allWidgets().size());
    if (Controller().loadFromJson(path) != before || QApplication::allWidgets().size() != widgets)
        m_faults.append(QStringLiteral("a broken file that changes something"));
}

/// What is saved comes back the same. Contents have a least size, which an empty frame has not.
void Monkey::SaveAndCompare()
{
    DrainEvents();
    QcDockContainer *root = AnyRoot();
    if (!root || !root->isVisible())
        return;
    for (const QcDockWidget *panel : FloatingPanels())
        if (panel->height() < kLeastFloat || panel->width() < kLeastFloat)
            return; // Qt makes windows larger that cannot hold their title row
    m_faults += RoundTripViolations(*root);
}

void Monkey::ListAreas()
{
    QcDockContainer *container = OneOf(Containers());
    if (!container)
        return;
    QList<QcDockArea *> areas;
    for (int i = Below(4); i > 0; --i) {
        if (Chance(20))
            areas.append(nullptr);
        else if (Chance(40))
            areas.append(OneOf(container->getDockAreaList()));
        else if (Chance(60))
            areas.append(new QcDockArea(nullptr)); // the container takes it
        else
            areas.append(OneOf(Areas()));
    }
    QStringList names;
    for (const QcDockArea *area : qAsConst(areas))
        names.append(NameOf(area));
    Note(QStringLiteral("%1 into %2").arg(names.join(QLatin1Char(' ')), NameOf(container)));
    container->setDockAreaList(areas);
}

/// Nothing ever flattens a tree, so once in a while the monkey gets a new one.
void Monkey::StartAnew()
{
    Delete(m_roots[Below(2)]);
}

} // namespace VelmoraTest
