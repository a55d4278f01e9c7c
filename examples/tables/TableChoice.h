#pragma once

#include "BuiltInTables.h"
#ifdef EXAMPLES_HAVE_DBUS
#include "DesktopWish.h"
#endif

#include <optional>

namespace Examples {

/// The colour table of a program: what its user has chosen, or else what the desktop wishes, now and later. Light where neither says.
class TableChoice
{
public:
    /// Puts the table in. Without a choice it waits a moment for the desktop's answer, so that no window changes as soon as it shows.
    explicit TableChoice(std::optional<Table> chosen = std::nullopt);
    TableChoice(const TableChoice &) = delete;
    TableChoice &operator=(const TableChoice &) = delete;

    /// Puts in \a table, or without one what the desktop wishes.
    void Choose(std::optional<Table> table);

private:
    void Apply();

    std::optional<Table> m_chosen;
    std::optional<Table> m_applied;
#ifdef EXAMPLES_HAVE_DBUS
    DesktopWish m_wish;
#endif
};

} // namespace Examples
