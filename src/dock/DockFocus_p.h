#pragma once

#include <QPointer>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QKeyEvent;
QT_END_NAMESPACE

namespace Velmora {

/// Keeps the keyboard's focus in what is about to get another parent, which takes it away.
class FocusKeeper
{
public:
    /// Notes which widget of \a moved has the focus, if one does.
    explicit FocusKeeper(const QWidget &moved);

    /// To be called when \a moved is in its new place.
    void GiveBack();

private:
    QPointer<QWidget> m_focus;
};

/// Gives the focus to what had it last in \a page, a panel or another page of an area, or else to what Tab reaches first there.
void FocusPage(QWidget &page);

/// How many areas further a key leads: 1 for F6, -1 for Shift+F6, 0 for any other.
int AreaStepsOf(const QKeyEvent &event);

/// Moves the focus to the page shown by the next area of the tree that \a page is in, or with \a steps of -1 by the one before; floating
/// panels come after the areas. False if there is no other.
bool FocusOtherArea(QWidget &page, int steps);

} // namespace Velmora
