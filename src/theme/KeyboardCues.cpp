#include <Velmora/KeyboardCues.h>

#include "theme/FocusRing_p.h"
#include "theme/KeyboardCues_p.h"

#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QVector>
#include <QWidget>

namespace Velmora {

namespace {

bool isEnabledNow = false;

/// Texts are as wide as they are shown, with the marks of their keys or without. It is for widgets as if their style had changed its mind.
void ShowTextsAnew()
{
    QVector<QPointer<QWidget>> widgets;
    const QWidgetList all = QApplication::allWidgets();
    for (QWidget *widget : all)
        widgets.append(widget);
    for (const QPointer<QWidget> &widget : qAsConst(widgets)) {
        if (!widget) // done away with by a host that heard of it
            continue;
        QEvent change(QEvent::StyleChange);
        QCoreApplication::sendEvent(widget, &change);
    }
}

} // namespace

KeyboardCuesNotifier *KeyboardCuesNotifier::GetInstance()
{
    static KeyboardCuesNotifier instance;
    return &instance;
}

void SetKeyboardCuesEnabled(bool enabled)
{
    if (enabled == isEnabledNow)
        return;
    isEnabledNow = enabled;
    FollowKeyboardCues();
    Q_EMIT KeyboardCuesNotifier::GetInstance()->Changed(enabled);
    ShowTextsAnew();
}

bool KeyboardCuesEnabled()
{
    return isEnabledNow;
}

} // namespace Velmora
