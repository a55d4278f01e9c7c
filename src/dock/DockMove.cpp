#include "dock/DockMove_p.h"

#include "core/ApplicationEvents_p.h"
#include "core/LiesIn_p.h"
#include "dock/DockFocus_p.h"
#include "dock/DockRegistry_p.h"
#include "dock/DockTree_p.h"
#include "dock/DropGeometry_p.h"
#include "theme/Mnemonics_p.h"

#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockContainer.h>
#include <Velmora/QcDockDragController.h>
#include <Velmora/QcDockWidget.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>

namespace Velmora {

/// Exists only while a panel is moved.
class DockMove : public QObject
{
public:
    DockMove(QcDockWidget *panel, QcDockArea *area);

    bool HasPlaces() const { return !m_offered.isEmpty(); }
    void Show();
    void End();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void ServeKey(const QKeyEvent &event);
    void GoTo(DockPosition place);
    void GoRound(int steps);
    void Drop();
    QcDockContainer *Outer() const;
    QString Spoken() const;

    static QcDockDragController &Controller() { return *QcDockDragController::instance(); }

    const QPointer<QcDockWidget> m_panel;
    const QPointer<QcDockArea> m_area;
    QList<DockPosition> m_offered;
    DockPosition m_place = NoPosition;
};

namespace {

QPointer<DockMove> &TheMove()
{
    static QPointer<DockMove> move;
    return move;
}

QString SpokenPlace(DockPosition place)
{
    switch (place) {
    case Left:
        return QCoreApplication::translate("QcDockIndicator", "Left of %1");
    case Right:
        return QCoreApplication::translate("QcDockIndicator", "Right of %1");
    case Top:
        return QCoreApplication::translate("QcDockIndicator", "Above %1");
    case Bottom:
        return QCoreApplication::translate("QcDockIndicator", "Below %1");
    case Center:
        return QCoreApplication::translate("QcDockIndicator", "Tab beside %1");
    case OuterLeft:
        return QCoreApplication::translate("QcDockIndicator", "Left edge of all around %1");
    case OuterRight:
        return QCoreApplication::translate("QcDockIndicator", "Right edge of all around %1");
    case OuterTop:
        return QCoreApplication::translate("QcDockIndicator", "Top edge of all around %1");
    case OuterBottom:
        return QCoreApplication::translate("QcDockIndicator", "Bottom edge of all around %1");
    case NoPosition:
        break;
    }
    return {};
}

} // namespace

DockMove::DockMove(QcDockWidget *panel, QcDockArea *area)
    : m_panel(panel)
    , m_area(area)
    , m_offered(Controller().getDockPostionList(panel, area))
{
    if (AreaOfPage(panel) == area)
        m_offered.removeAll(Center); // it is a tab there already
    if (!HasPlaces())
        return;
    m_place = m_offered.first();
    WatchApplicationEvents(this, {QEvent::ShortcutOverride, QEvent::KeyPress, QEvent::MouseButtonPress, QEvent::WindowDeactivate});
    connect(panel, &QObject::destroyed, this, &DockMove::End);
    connect(area, &QObject::destroyed, this, &DockMove::End);
}

void DockMove::Show()
{
    if (!m_panel || !m_area || IsDoomed(m_area) || !Outer())
        End();
    else
        Controller().Preview(m_panel, m_area, Outer(), m_place, Spoken());
    if (!TheMove()) // a window that is shown may have another one learn that it is active no more
        Controller().EndPreview();
}

void DockMove::End()
{
    if (TheMove() != this)
        return;
    TheMove().clear();
    UnwatchApplicationEvents(this);
    deleteLater(); // it may be on the stack
    Controller().EndPreview();
}

/// The whole that the outer places are edges of: what encloses the area within its window.
QcDockContainer *DockMove::Outer() const
{
    QcDockContainer *outer = EnclosingContainer(m_area);
    for (QcDockContainer *next = outer; next && next->isAncestorOf(m_area); next = EnclosingContainer(next))
        outer = next;
    return outer;
}

QString DockMove::Spoken() const
{
    return QCoreApplication::translate("QcDockIndicator", "%1, %2 of %3")
        .arg(SpokenPlace(m_place).arg(ShownText(NameOfArea(m_area))))
        .arg(m_offered.indexOf(m_place) + 1)
        .arg(m_offered.size());
}

bool DockMove::eventFilter(QObject * /*watched*/, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride: // no shortcut of a host takes a key meanwhile
        event->accept();
        return true;
    case QEvent::KeyPress:
        ServeKey(*static_cast<QKeyEvent *>(event));
        return true;
    default:
        End();
        return false;
    }
}

void DockMove::ServeKey(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Escape:
        return End();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Drop();
    case Qt::Key_Left:
        return GoTo(PlaceBeside(m_place, -1, 0, m_offered));
    case Qt::Key_Right:
        return GoTo(PlaceBeside(m_place, 1, 0, m_offered));
    case Qt::Key_Up:
        return GoTo(PlaceBeside(m_place, 0, -1, m_offered));
    case Qt::Key_Down:
        return GoTo(PlaceBeside(m_place, 0, 1, m_offered));
    case Qt::Key_Tab:
        return GoRound(1);
    case Qt::Key_Backtab:
        return GoRound(-1);
    default:
        return;
    }
}

void DockMove::GoTo(DockPosition place)
{
    if (place == m_place)
        return;
    m_place = place;
    Show();
}

void DockMove::GoRound(int steps)
{
    GoTo(m_offered[(m_offered.indexOf(m_place) + steps + m_offered.size()) % m_offered.size()]);
}

void DockMove::Drop()
{
    const QPointer<QcDockWidget> panel = m_panel;
    const QPointer<QcDockArea> area = m_area;
    End();
    if (!panel || !area || IsDoomed(area))
        return;
    Controller().DockAt(panel, m_place, area, Outer());
    if (!panel)
        return;
    FocusPage(*panel);
}

QList<QcDockArea *> AreasToMoveTo(QcDockWidget *panel)
{
    QList<QcDockArea *> areas;
    const QcDockArea *own = AreaOfPage(panel);
    const auto all = DockRegistry::Areas();
    for (QcDockArea *area : all) {
        const bool isAlone = area == own && area->count() < 2;
        if (area->isVisible() && !isAlone && !IsWrapper(area) && !IsDoomed(area) && EnclosingContainer(area) && !LiesIn(area, panel))
            areas.append(area);
    }
    return areas;
}

QString NameOfArea(const QcDockArea *area)
{
    const QWidget *page = area->widget(area->currentIndex());
    return page ? page->windowTitle() : QCoreApplication::translate("QcDockIndicator", "empty area");
}

void BeginDockMove(QcDockWidget *panel, QcDockArea *area)
{
    if (TheMove())
        TheMove()->End();
    auto *move = new DockMove(panel, area); // deletes itself with the end of the move
    if (!move->HasPlaces()) {
        delete move;
        return;
    }
    TheMove() = move;
    move->Show();
}

} // namespace Velmora
