#pragma once

#include "buttons/ButtonLooks.h"
#include "support/TestCase.h"

#include <Velmora/QcNotification.h>
#include <Velmora/QcNotificationPage.h>

#include <QAbstractButton>
#include <QGraphicsOpacityEffect>
#include <QLabel>
#include <QPropertyAnimation>
#include <QTimer>
#include <QTimerEvent>

#include <functional>

namespace VelmoraTest {

/// A child of \a parent by its object name.
template <typename Child = QWidget>
Child *Part(const QWidget &parent, const char *name)
{
    return parent.findChild<Child *>(QLatin1String(name));
}

inline QAbstractButton *ButtonOf(const QWidget &parent, const char *name)
{
    return Part<QAbstractButton>(parent, name);
}

/// The pages of \a card, the first message first.
inline QList<Velmora::QcNotificationPage *> PagesOf(const Velmora::QcNotification &card)
{
    return Part(card, "m_pageFrame")->findChildren<Velmora::QcNotificationPage *>();
}

inline QString TitleOf(const Velmora::QcNotificationPage &page)
{
    return Part<QLabel>(page, "m_titleLabel")->text();
}

/// The titles of the pages that a user sees at least a part of.
inline QStringList TitlesInSight(const Velmora::QcNotification &card)
{
    QStringList titles;
    for (const Velmora::QcNotificationPage *page : PagesOf(card)) {
        if (page->isVisible() && page->parentWidget()->rect().intersects(page->geometry()))
            titles.append(TitleOf(*page));
    }
    return titles;
}

inline QString PageNumberOf(const Velmora::QcNotification &card)
{
    return Part<QLabel>(card, "m_pageLabel")->text();
}

inline QPropertyAnimation *SlideOf(const Velmora::QcNotificationPage &page)
{
    const auto animations = page.findChildren<QPropertyAnimation *>();
    return animations.value(0)->propertyName() == "pos" ? animations.value(0) : animations.value(1);
}

inline QPropertyAnimation *FadeOf(const Velmora::QcNotificationPage &page)
{
    const auto animations = page.findChildren<QPropertyAnimation *>();
    return animations.value(0)->propertyName() == "opacity" ? animations.value(0) : animations.value(1);
}

inline double OpacityOf(const Velmora::QcNotificationPage &page)
{
    return static_cast<QGraphicsOpacityEffect *>(page.graphicsEffect())->opacity();
}

/// Brings all slides and fades of \a card to their end.
inline void EndMotion(const Velmora::QcNotification &card)
{
    for (QPropertyAnimation *animation : card.findChildren<QPropertyAnimation *>()) {
        if (animation->state() == QAbstractAnimation::Running)
            animation->setCurrentTime(animation->duration());
    }
}

/// From its next start on to the millisecond, so that its remaining time tells whether it began anew.
inline QTimer *TimerOf(const Velmora::QcNotification &card)
{
    auto *timer = card.findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    timer->setTimerType(Qt::PreciseTimer);
    return timer;
}

/// Lets the ten seconds be over.
inline void RunOut(const Velmora::QcNotification &card)
{
    QTimer *timer = TimerOf(card);
    QVERIFY(timer->isActive());
    QTimerEvent event(timer->timerId());
    QCoreApplication::sendEvent(timer, &event);
}

inline void ShowMessage(
    Velmora::QcNotification &card, const QString &title, std::function<void()> callback = [] {}, const QRect &rect = QRect())
{
    card.showNotification(title, QStringLiteral("Content of ") + title, QStringLiteral("Open"), std::move(callback), rect);
}

} // namespace VelmoraTest
