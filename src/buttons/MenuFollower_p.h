#pragma once

#include <QHash>
#include <QObject>
#include <QStyle>

QT_BEGIN_NAMESPACE
class QAbstractButton;
class QMenu;
QT_END_NAMESPACE

namespace Velmora {

/// Keeps a button looking pressed and checked while one of its menus is open.
///
/// To be owned by the button and to go before the rest of it: a menu that is the button's child dies after the button's own
/// destructor, and must then not reach it.
class MenuFollower : public QObject
{
    Q_OBJECT

public:
    /// \a state is the state word of \a button.
    MenuFollower(QAbstractButton &button, QStyle::State &state);

    /// From now on \a menu is followed as well, wherever it is opened. Null and a menu already followed change nothing.
    void Follow(QMenu *menu);

private:
    void Show(bool isOpen);

    QAbstractButton &m_button;
    QStyle::State &m_state;
    QHash<const QMenu *, bool> m_isOpen; ///< for each menu that is followed
};

} // namespace Velmora
