#pragma once

#include <QAccessible>
#include <QMetaEnum>
#include <QStringList>

#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <private/qguiapplication_p.h>

namespace VelmoraTest {

/// Collects what assistive technology is told of one object, for as long as it lives. Qt tells nobody of changes until assistive
/// technology is there; this says that it is. One at a time; the program needs Qt5::GuiPrivate.
class AccessibleEvents
{
public:
    explicit AccessibleEvents(const QObject &watched)
    {
        s_watched = &watched;
        s_focused = nullptr;
        s_told.clear();
        s_update.clear();
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
        m_previous = QAccessible::installUpdateHandler(Note);
    }

    ~AccessibleEvents()
    {
        QAccessible::installUpdateHandler(m_previous);
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(false);
    }

    AccessibleEvents(const AccessibleEvents &) = delete;
    AccessibleEvents &operator=(const AccessibleEvents &) = delete;

    /// What was said last to have the keyboard, of whatever object it was said. Null if of none.
    static const QObject *Focused() { return s_focused; }

    /// What the last update of a text said: what was there before, and what is there now.
    static QStringList TextUpdate() { return s_update; }

    /// The events since the last call, such as "NameChanged" or "StateChanged checked".
    QStringList Take()
    {
        const QStringList told = s_told;
        s_told.clear();
        return told;
    }

private:
    static void Note(QAccessibleEvent *event)
    {
        if (event->type() == QAccessible::Focus)
            s_focused = event->object();
        if (event->object() != s_watched)
            return;
        if (event->type() == QAccessible::TextUpdated) {
            const auto *update = static_cast<QAccessibleTextUpdateEvent *>(event);
            s_update = QStringList{update->textRemoved(), update->textInserted()};
        }
        QString told = QString::fromLatin1(QMetaEnum::fromType<QAccessible::Event>().valueToKey(event->type()));
        if (event->type() == QAccessible::StateChanged) {
            const QAccessible::State changed = static_cast<QAccessibleStateChangeEvent *>(event)->changedStates();
            if (changed.checked)
                told += QStringLiteral(" checked");
            if (changed.disabled)
                told += QStringLiteral(" disabled");
            if (changed.defaultButton)
                told += QStringLiteral(" default");
        }
        if (event->child() >= 0)
            told += QStringLiteral(" of child %1").arg(event->child());
        s_told.append(told);
    }

    static inline const QObject *s_watched = nullptr; // Qt's handler is a plain function
    static inline const QObject *s_focused = nullptr;
    static inline QStringList s_told;
    static inline QStringList s_update;
    QAccessible::UpdateHandler m_previous;
};

} // namespace VelmoraTest
