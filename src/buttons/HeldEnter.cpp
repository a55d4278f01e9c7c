#include "buttons/HeldEnter_p.h"

#include "core/ApplicationEvents_p.h"
#include "theme/KeyboardCues_p.h"

#include <Velmora/KeyboardCues.h>
#include <Velmora/QcButton.h>
#include <Velmora/QcMenuTextButton.h>

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>

#include <algorithm>

namespace Velmora {

namespace {

QPointer<HeldEnter> &Instance()
{
    static QPointer<HeldEnter> instance; // a child of the application
    return instance;
}

/// The default button that \a dialog clicks for \a key, by the rules of QDialog.
QPushButton *DefaultButtonOf(const QDialog &dialog, const QKeyEvent &key)
{
    const bool isPlain = key.modifiers() == Qt::NoModifier || (key.key() == Qt::Key_Enter && key.modifiers() & Qt::KeypadModifier);
    const QList<QPushButton *> buttons = isPlain ? dialog.findChildren<QPushButton *>() : QList<QPushButton *>();
    const auto found = std::find_if(buttons.cbegin(), buttons.cend(), [](QPushButton *b) { return b->isDefault() && b->isVisible(); });
    return found == buttons.cend() ? nullptr : *found;
}

/// The button that \a receiver clicks for \a key, if it is one of ours.
QPushButton *ClickedButton(QObject *receiver, const QKeyEvent &key)
{
    auto *button = qobject_cast<QPushButton *>(receiver);
    if (button && !button->autoDefault() && !button->isDefault())
        return nullptr;
    if (const auto *dialog = qobject_cast<QDialog *>(receiver))
        button = DefaultButtonOf(*dialog, key);
    const bool isOurs = qobject_cast<QcButton *>(button) || qobject_cast<QcMenuTextButton *>(button);
    return isOurs && button->isEnabled() ? button : nullptr;
}

} // namespace

void HeldEnter::Watch()
{
    if (!Instance())
        Instance() = new HeldEnter(qApp);
}

bool HeldEnter::Presses(const QAbstractButton &button)
{
    return Instance() && Instance()->m_button == &button;
}

HeldEnter::HeldEnter(QObject *application)
    : QObject(application)
{
    connect(KeyboardCuesNotifier::GetInstance(), &KeyboardCuesNotifier::Changed, this, &HeldEnter::FollowCues);
    connect(qApp, &QApplication::focusChanged, this, [this] { Show(nullptr); });
    FollowCues(KeyboardCuesEnabled());
}

void HeldEnter::FollowCues(bool areEnabled)
{
    Show(nullptr);
    m_hasPressed = false;
    if (areEnabled)
        WatchApplicationEvents(this, {QEvent::KeyPress, QEvent::KeyRelease});
    else
        UnwatchApplicationEvents(this);
}

bool HeldEnter::eventFilter(QObject *watched, QEvent *event)
{
    const auto &key = static_cast<const QKeyEvent &>(*event);
    if (key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter)
        return false;
    const bool isPress = event->type() == QEvent::KeyPress;
    if (key.isAutoRepeat())
        return isPress && m_hasPressed;
    // A press comes by each widget that it is offered to, the last of which takes it.
    QPushButton *button = isPress ? ClickedButton(watched, key) : nullptr;
    m_hasPressed = button != nullptr;
    Show(button);
    return false;
}

void HeldEnter::Show(QPushButton *button)
{
    if (m_button)
        m_button->update();
    m_button = button;
    if (m_button)
        m_button->update();
}

} // namespace Velmora
