#pragma once

#include "dock/TabStage.h"
#include "support/Tokens.h"

#include <Velmora/DockPosition.h>
#include <Velmora/QcDockArea.h>
#include <Velmora/QcDockContainer.h>

#include <QPointer>
#include <QRandomGenerator>
#include <QSet>
#include <QStringList>
#include <QTemporaryDir>
#include <QVector>

#include <functional>
#include <memory>
#include <vector>

namespace VelmoraTest {

/// Does to docking whatever users and hosts can do, at random, the same for the same seed: two windows with a root each, panels that are
/// dragged, closed, vetoed, deleted, dealt, saved and loaded, and hosts that interfere in the middle of a drag or of a close.
class Monkey
{
public:
    explicit Monkey(quint32 seed);
    ~Monkey();

    /// One step, often of several operations in one turn of the main loop. Returns what is broken once all that is due has happened.
    QStringList Step();

    /// The last steps, in words.
    QStringList LastSteps() const { return m_steps.mid(qMax(0, m_steps.size() - 20)); }
    /// Roots, areas and panels by the names that the steps give them.
    QStringList Trees() const;

private:
    struct Operation
    {
        const char *name;
        int weight;
        bool mayLose; ///< it deletes panels or contents, or has them deleted
        void (Monkey::*run)();
    };
    static const std::vector<Operation> &Operations();

    // --- Chance ---
    int Below(int bound) { return m_random.bounded(qMax(1, bound)); }
    bool Chance(int percent) { return Below(100) < percent; }
    template <typename T>
    T OneOf(const QList<T> &list)
    {
        return list.isEmpty() ? T() : list.at(Below(int(list.size())));
    }
    Velmora::DockPosition AnyPosition();
    QPoint AnyPoint();

    // --- What there is ---
    void Furnish();
    void FindNewPanels();
    QSet<QString> Living() const;
    QList<Velmora::QcDockWidget *> Panels() const;
    QList<Velmora::QcDockWidget *> DockedPanels() const;
    QList<Velmora::QcDockWidget *> FloatingPanels() const;
    QList<Velmora::QcDockArea *> Areas() const;
    QList<Velmora::QcDockContainer *> Containers() const;
    QList<QWidget *> Contents() const;
    Velmora::QcDockContainer *AnyRoot();
    void Adopt(Velmora::QcDockWidget *panel);
    Velmora::QcDockWidget *NewPanel();
    Content *NewContent();
    void PutIntoWindow(int window, Velmora::QcDockContainer *root);

    // --- The log ---
    void Note(const QString &words);
    QString NameOf(const QWidget *widget) const;
    QString TreeOf(Velmora::QcDockContainer *container) const;

    // --- Operations ---
    void RunOne(bool inTheMiddle);
    void Interfere();
    void Drag(QWidget &pressed, const QPoint &at);
    void MoveSomewhere(Mouse &mouse);
    void InLoop();
    void WhileClosing();
    void WhenPanelLooksOtherwise();
    void Delete(QWidget *widget);

    void AddAtLeaf();
    void AddAtEdge();
    void AddContent();
    void AddToArea();
    void DragTitle();
    void DragTab();
    void ClickTitle();
    void MoveByKeys();
    void PressKey();
    void ChooseFromMenu();
    void Float();
    void Dock();
    void Select();
    void Navigate();
    void Rename();
    void SetTypes();
    void SetSizes();
    void Turn();
    void HideOrShow();
    void Resize();
    void ChangeTheme();
    void ChangeDirection();
    void RegisterRoot();
    void KeepEmpty();
    void TakeOut();
    void MoveContent();
    void ClosePanel();
    void CloseTab();
    void DeletePanel();
    void DeleteContent();
    void DeleteArea();
    void DeleteContainer();
    void DeleteFeedback();
    void Deal();
    void SaveAndLoad();
    void LoadRefused();
    void SaveAndCompare();
    void ListAreas();
    void DockInside();
    void StartAnew();

    QRandomGenerator m_random;
    QTemporaryDir m_folder;
    QWidget m_windows[2];
    QWidget m_elsewhere; ///< without docking: what happens here means nothing to it
    QPointer<Velmora::QcDockContainer> m_roots[2];
    QVector<QPointer<Velmora::QcDockWidget>> m_panels; ///< in the order in which they were met, so that a seed tells one story
    QVector<QPointer<QWidget>> m_contents;
    QStringList m_steps;
    bool m_mayLose = false;
    int m_depth = 0;   ///< of operations in each other
    int m_onStack = 0; ///< calls of the kit that wait for a host to return
    bool m_isMousePressed = false;
    QStringList m_faults;           ///< found in the middle of a step
    std::unique_ptr<QObject> m_ear; ///< hears how panels look
};

} // namespace VelmoraTest
