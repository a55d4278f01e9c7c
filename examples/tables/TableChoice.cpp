#include "TableChoice.h"

namespace Examples {

TableChoice::TableChoice(std::optional<Table> chosen)
    : m_chosen(chosen)
{
#ifdef EXAMPLES_HAVE_DBUS
    if (!chosen)
        m_wish.AwaitAnswers();
    QObject::connect(&m_wish, &DesktopWish::SignalWishChanged, &m_wish, [this] { Apply(); });
#endif
    Apply();
}

void TableChoice::Choose(std::optional<Table> table)
{
    m_chosen = table;
    Apply();
}

void TableChoice::Apply()
{
    std::optional<Table> table = m_chosen;
#ifdef EXAMPLES_HAVE_DBUS
    if (!table)
        table = m_wish.WishedTable();
#endif
    if (!table)
        table = Table::Light;
    if (table == m_applied)
        return;
    m_applied = table;
    ApplyTable(*table);
}

} // namespace Examples
