#pragma once

#include <Velmora/QcIconButton.h>
#include <Velmora/QcMultiLineText.h>
#include <Velmora/QcToast.h>

#include <QCoreApplication>
#include <QPropertyAnimation>
#include <QTest>
#include <QTimer>
#include <QTimerEvent>

namespace VelmoraTest {

inline QPropertyAnimation *AnimationOf(const Velmora::QcToast &toast, const char *property)
{
    const auto animations = toast.findChildren<QPropertyAnimation *>();
    for (QPropertyAnimation *animation : animations) {
        if (animation->propertyName() == property)
            return animation;
    }
    return nullptr;
}

inline QTimer *TimerOf(const Velmora::QcToast &toast)
{
    return toast.findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
}

/// Has the toast's time run out, now.
inline void Fire(QTimer &timer)
{
    QTimerEvent event(timer.timerId());
    QCoreApplication::sendEvent(&timer, &event);
}

inline void EndFade(const Velmora::QcToast &toast)
{
    QPropertyAnimation *fade = AnimationOf(toast, "opacity");
    fade->setCurrentTime(fade->duration());
}

inline bool IsGliding(const Velmora::QcToast &toast)
{
    return AnimationOf(toast, "pos")->state() == QAbstractAnimation::Running;
}

/// Where a toast will be when it has come to rest.
inline QPoint EndOf(const Velmora::QcToast &toast)
{
    return IsGliding(toast) ? AnimationOf(toast, "pos")->endValue().toPoint() : toast.pos();
}

inline Velmora::QcMultiLineText *TextOf(const Velmora::QcToast &toast)
{
    return toast.findChild<Velmora::QcMultiLineText *>();
}

inline Velmora::QcIconButton *CloseButtonOf(const Velmora::QcToast &toast)
{
    return toast.findChild<Velmora::QcIconButton *>();
}

/// Presses the only link of a toast with a key.
inline void PressLink(const Velmora::QcToast &toast)
{
    toast.window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(toast.window()));
    TextOf(toast)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(TextOf(toast), Qt::Key_Return);
}

} // namespace VelmoraTest
