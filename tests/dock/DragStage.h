#pragma once

#include "DockTestCase.h"

#include <Velmora/DockPosition.h>
#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockController.h>
#include <Velmora/QcDockDragController.h>
#include <Velmora/QcDockIndicator.h>
#include <Velmora/QcDockMask.h>
#include <Velmora/QcDockWidget.h>

#include <QApplication>
#include <QCursor>
#include <QLabel>
#include <QPointer>
#include <QVBoxLayout>
#include <QVariant>

namespace VelmoraTest {

template <typename T>
T *TopLevel()
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets)
        if (auto *found = qobject_cast<T *>(widget))
            return found;
    return nullptr;
}

inline QRect GlobalRect(const QWidget &widget)
{
    return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
}

inline QPoint MiddleOf(const QWidget &widget)
{
    return GlobalRect(widget).center();
}

inline Velmora::QcDockArea *AreaOf(const QWidget &widget)
{
    for (QWidget *parent = widget.parentWidget(); parent; parent = parent->parentWidget())
        if (auto *area = qobject_cast<Velmora::QcDockArea *>(parent))
            return area;
    return nullptr;
}

inline Velmora::QcDockWidget *NewPanel(int type, const QString &title = QStringLiteral("Panel"))
{
    auto *panel = new Velmora::QcDockWidget(nullptr); // the caller places it
    auto *content = new QWidget(panel);
    content->setProperty("dock_widget_content_type", type);
    content->setWindowTitle(title);
    panel->setContentWidget(content);
    return panel;
}

/// Groups of types for the length of a test.
struct TypeGroups
{
    explicit TypeGroups(const QList<QList<int>> &groups) { Velmora::QcDockArea::setSupportTypeList(groups); }
    ~TypeGroups() { Velmora::QcDockArea::setSupportTypeList({}); }
    Q_DISABLE_COPY(TypeGroups)
};

/// A window with a root container, shown, and the drag controller driven as panels drive it.
class DragStage
{
public:
    explicit DragStage(const QRect &place = QRect(100, 100, 900, 600))
    {
        auto *column = new QVBoxLayout(&window);
        column->setContentsMargins(0, 0, 0, 0);
        root = new Velmora::QcDockContainer(&window);
        root->setEmptyKeep(true);
        column->addWidget(root);
        Velmora::QcDockController::instance()->setRootDockContainer(root);
        window.setGeometry(place);
        window.show();
        DrainEvents();
        QCursor::setPos(2, 2);
        Velmora::QcDockWidget first(nullptr);
        Controller()->processDockWidgetDragFinished(&first); // makes indicator and mask, and drops on nothing
    }

    /// A new panel, docked beside \a target, or in the first area where that is null.
    Velmora::QcDockWidget *Add(int type, QWidget *target = nullptr, Velmora::DockPosition position = Velmora::Center)
    {
        Velmora::QcDockWidget *panel = NewPanel(type, QStringLiteral("Type %1").arg(type));
        QWidget *place = target ? target->parentWidget() : nullptr;
        while (place && !qobject_cast<Velmora::QcDockContainer *>(place))
            place = place->parentWidget();
        (place ? static_cast<Velmora::QcDockContainer *>(place) : root)->addWidget(panel, target, position);
        DrainEvents();
        return panel;
    }

    /// A new panel that floats out of the way.
    Velmora::QcDockWidget *Float(int type)
    {
        Velmora::QcDockWidget *panel = NewPanel(type, QStringLiteral("Type %1").arg(type));
        panel->setParent(root);
        panel->SetWindowFlags();
        panel->setGeometry(10, 10, 150, 80);
        panel->show();
        DrainEvents();
        return panel;
    }

    void Step(Velmora::QcDockWidget *panel, const QPoint &cursor)
    {
        QCursor::setPos(cursor);
        Controller()->processDockWidgetDraging(panel);
        DrainEvents();
    }

    void Drop(Velmora::QcDockWidget *panel)
    {
        Controller()->processDockWidgetDragFinished(panel);
        DrainEvents();
    }

    static Velmora::QcDockDragController *Controller() { return Velmora::QcDockDragController::instance(); }
    static Velmora::QcDockIndicator *Indicator() { return TopLevel<Velmora::QcDockIndicator>(); }
    static Velmora::QcDockMask *Mask() { return TopLevel<Velmora::QcDockMask>(); }

    static QLabel *Label(Velmora::DockPosition position)
    {
        const auto labels = Indicator()->findChildren<QLabel *>();
        for (QLabel *label : labels)
            if (label->property("object_property_dock_position").toInt() == position)
                return label;
        return nullptr;
    }

    static QList<int> Offered()
    {
        QList<int> offered;
        for (int position = Velmora::Left; position < Velmora::NoPosition; ++position)
            if (Label(static_cast<Velmora::DockPosition>(position))->isEnabled())
                offered.append(position);
        return offered;
    }

    static bool IsFeedbackHidden() { return Indicator()->isHidden() && Mask()->isHidden(); }

    static QLabel *TipOf(const QWidget &panel) { return panel.findChild<QLabel *>(QStringLiteral("m_dragTipLabel")); }

    QWidget window;
    Velmora::QcDockContainer *root = nullptr;
};

/// With one panel docked, and one that floats and is to be dragged.
class ResidentStage : public DragStage
{
public:
    using DragStage::DragStage;

    void StepOverResident() { Step(dragged, MiddleOf(*resident)); }

    Velmora::QcDockWidget *const resident = Add(1);
    const QPointer<Velmora::QcDockWidget> dragged = Float(2);
};

/// With two panels docked side by side.
class NeighbourStage : public DragStage
{
public:
    Velmora::QcDockWidget *const left = Add(1);
    Velmora::QcDockWidget *const right = Add(2, left, Velmora::Right);
};

/// A test of dragging. The next one begins as a program does, without indicator and mask.
class DragTestCase : public DockTestCase
{
protected:
    void TearDown() override
    {
        DockTestCase::TearDown();
        delete DragStage::Indicator();
        delete DragStage::Mask();
    }
};

} // namespace VelmoraTest
