#pragma once

#include <QObject>
#include <QPointer>

QT_BEGIN_NAMESPACE
class QAbstractButton;
class QKeyEvent;
class QPushButton;
QT_END_NAMESPACE

namespace Velmora {

/// The Enter key from its press to its release, while keyboard cues are on: Qt clicks a button with the press and again with each repeat,
/// and never counts it as down.
///
/// What it pressed looks so until the release, or until the focus moves. Its repeats are kept from all the program: the button may have
/// closed its dialog, and the next one to have the focus was not meant.
class HeldEnter : public QObject
{
public:
    /// Begins to watch, if nobody has, for the rest of the application's life.
    static void Watch();
    /// Whether \a button is what the key pressed.
    static bool Presses(const QAbstractButton &button);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit HeldEnter(QObject *application);

    void FollowCues(bool areEnabled);
    void Show(QPushButton *button);

    QPointer<QPushButton> m_button; ///< that looks pressed
    bool m_hasPressed = false;      ///< also one that looks so no more
};

} // namespace Velmora
