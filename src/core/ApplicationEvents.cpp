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
        Remove(watcher); // to its new place, last
        // Purging when the list has doubled keeps an addition at constant cost on the average.
        if (m_watchers.size() >= m_purgeAt && !m_isWalking)
            Purge();
        m_places[watcher] = m_watchers.size();
        m_watchers.emplace_back(watcher);
    }

    void Remove(const QObject *watcher)
    {
        const auto found = m_places.find(watcher);
        if (found == m_places.end())
            return;
        m_watchers[found->second].clear(); // its place stays: somebody may be walking
        m_places.erase(found);
        ++m_removed;
        PurgeIfMostAre(m_removed);
    }

    bool Dispatch(QObject *watched, QEvent *event)
    {
        bool isConsumed = false;
        std::size_t gone = 0;
        {
            // By index, from the end: a watcher may add others meanwhile, which are not called for this event.
            const QScopedValueRollback<bool> walking(m_isWalking, true);
            for (std::size_t i = m_watchers.size(); i > 0 && !isConsumed; --i) {
                if (QObject *watcher = m_watchers[i - 1].data())
                    isConsumed = watcher->eventFilter(watched, event);
                else
                    ++gone;
            }
        }
        // Nothing may be added for a long time after many have died.
        PurgeIfMostAre(gone);
        return isConsumed;
    }

private:
    void PurgeIfMostAre(std::size_t gone)
    {
        if (gone > m_watchers.size() / 2 && !m_isWalking)
            Purge();
    }

    void Purge()
    {
        const auto isGone = [](const QPointer<QObject> &watcher) { return watcher.isNull(); };
        m_watchers.erase(std::remove_if(m_watchers.begin(), m_watchers.end(), isGone), m_watchers.end());
        m_places.clear();
        for (std::size_t i = 0; i < m_watchers.size(); ++i)
            m_places[m_watchers[i].data()] = i;
        m_removed = 0;
        m_purgeAt = std::max<std::size_t>(kSmallestPurge, m_watchers.size() * 2);
    }

    static constexpr std::size_t kSmallestPurge = 16;

    std::vector<QPointer<QObject>> m_watchers;                 // null where one has died or was removed
    std::unordered_map<const QObject *, std::size_t> m_places; // in that list; the dead stay in it until the next purge
    std::size_t m_removed = 0;
    std::size_t m_purgeAt = kSmallestPurge;
    bool m_isWalking = false;
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

    void Unwatch(const QObject *watcher)
    {
        for (auto &watchers : m_watchers)
            watchers.second.Remove(watcher);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto found = m_watchers.find(event->type());
        return found != m_watchers.end() && found->second.Dispatch(watched, event);
    }

private:
    std::unordered_map<int, WatcherList> m_watchers; // its entries stay in place while a watcher adds others
};

/// Of the application that lives now; null before the first watcher and after the application.
QPointer<ApplicationEvents> &Events()
{
    static QPointer<ApplicationEvents> events;
    return events;
}

} // namespace

void WatchApplicationEvents(QObject *watcher, std::initializer_list<QEvent::Type> types)
{
    QPointer<ApplicationEvents> &events = Events();
    if (!events)
        events = new ApplicationEvents(QCoreApplication::instance()); // the application's child
    for (const QEvent::Type type : types)
        events->Watch(watcher, type);
}

void UnwatchApplicationEvents(const QObject *watcher)
{
    if (Events())
        Events()->Unwatch(watcher);
}

} // namespace Velmora
