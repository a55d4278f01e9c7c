#pragma once

#include "BuiltInTables.h"

#include <Velmora/QcSelector.h>

#include <optional>

namespace Examples {

/// Lets a user choose a built-in table, or that of the desktop.
class TableSelector : public Velmora::QcSelector
{
    Q_OBJECT

public:
    explicit TableSelector(QWidget *parent = nullptr);

    /// None: that of the desktop.
    std::optional<Table> Chosen() const;
    void Choose(std::optional<Table> table);
};

} // namespace Examples
