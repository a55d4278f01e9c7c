#include "core/ApplicationEvents_p.h"

#include <QCoreApplication>
#include <QPointer>
#include <QScopedValueRollback>

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace Velmora {

namespace {

/// The watchers of one event type, oldest first.
class WatcherList
{
public:
    void Add(QObject *watcher)
    {
        // Purging when the list has doubled keeps an addition at constant cost on the average.
        if (m_watchers.size() >= m_purgeAt && !m_walking)
            Purge();
        m_watchers.emplace_back(watcher);
    }

    bool Dispatch(QObject *watched, QEvent *event)
    {
        bool consumed = false;
        std::size_t dead = 0;
        {
            // By index, from the end: a watcher may add others meanwhile, which are not called for this event.
            const QScopedValueRollback<bool> walking(m_walking, true);
            for (std::size_t i = m_watchers.size(); i > 0 && !consumed; --i) {
                if (QObject *watcher = m_watchers[i - 1].data())
                    consumed = watcher->eventFilter(watched, event);
                else
                    ++dead;
            }
        }
        // Nothing may be added for a long time after many have gone.
        if (dead > m_watchers.size() / 2 && !m_walking)
            Purge();
        return consumed;
    }

private:
    void Purge()
    {
        const auto dead = [](const QPointer<QObject> &watcher) { return watcher.isNull(); };
        m_watchers.erase(std::remove_if(m_watchers.begin(), m_watchers.end(), dead), m_watchers.end());
        m_purgeAt = std::max<std::size_t>(kSmallestPurge, m_watchers.size() * 2);
    }

    static constexpr std::size_t kSmallestPurge = 16;

    std::vector<QPointer<QObject>> m_watchers;
    std::size_t m_purgeAt = kSmallestPurge;
    bool m_walking = false;
};

/// The one filter on the application, its child.
class ApplicationEvents : public QObject
{
public:
    explicit ApplicationEvents(QCoreApplication *application)
        : QObject(application)
    {
        application->installEventFilter(this);
    }

    void Watch(QObject *watcher, QEvent::Type type) { m_watchers[type].Add(watcher); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto found = m_watchers.find(event->type());
        return found != m_watchers.end() && found->second.Dispatch(watched, event);
    }

private:
    std::unordered_map<int, WatcherList> m_watchers; // its entries stay in place while a watcher adds others
};

} // namespace

void WatchApplicationEvents(QObject *watcher, std::initializer_list<QEvent::Type> types)
{
    static QPointer<ApplicationEvents> events;
    if (!events)
        events = new ApplicationEvents(QCoreApplication::instance()); // the application's child
    for (const QEvent::Type type : types)
        events->Watch(watcher, type);
}

} // namespace Velmora
