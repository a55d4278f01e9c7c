#pragma once

#include <QHash>
#include <QList>

namespace Velmora {

class QcDockArea;
class QcDockContainer;

/// Keeps a list of living objects in the order in which they came, so that an object leaves it at a cost that does not grow with the
/// list. Its place stays behind as a null, which whoever walks the list passes over.
template <typename T>
class RegistryPlaces
{
public:
    /// Appends \a entry; a null, or one that is there, changes nothing.
    void Add(QList<T *> &list, T *entry)
    {
        if (!entry || m_places.contains(entry))
            return;
        m_places.insert(entry, int(list.size()));
        list.append(entry);
    }

    void Remove(QList<T *> &list, T *entry)
    {
        const auto found = m_places.find(entry);
        if (found == m_places.end())
            return;
        list[*found] = nullptr;
        m_places.erase(found);
        if (m_places.size() < list.size() / 2)
            Close(list);
    }

private:
    void Close(QList<T *> &list)
    {
        list.removeAll(nullptr);
        for (int i = 0; i < list.size(); ++i)
            m_places[list[i]] = i;
    }

    QHash<const T *, int> m_places;
};

/// What the drag controller knows: all living areas and containers, each in order of construction.
struct DockRegistry
{
    static QList<QcDockArea *> Areas();
    static QList<QcDockContainer *> Containers();
};

} // namespace Velmora
