#include "TableSelector.h"

namespace Examples {

TableSelector::TableSelector(QWidget *parent)
    : QcSelector(parent)
{
    addItem(tr("As the desktop"));
    addItem(tr("Light"), TableName(Table::Light));
    addItem(tr("Dark"), TableName(Table::Dark));
    addItem(tr("Light contrast"), TableName(Table::ContrastLight));
    addItem(tr("Dark contrast"), TableName(Table::ContrastDark));
}

std::optional<Table> TableSelector::Chosen() const
{
    return TableNamed(currentData().toString());
}

void TableSelector::Choose(std::optional<Table> table)
{
    setCurrentIndex(table ? findData(TableName(*table)) : 0);
}

} // namespace Examples
