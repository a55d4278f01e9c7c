#pragma once

#include "xlsx/TemplateContext_p.h"

#include <QStringList>
#include <QVariant>

namespace Velmora {

/// True if one list serves all cells in each place of \a name.
bool HasList(TemplateContext &context, const TemplateName &name);
/// The entries of its first cell's list, also of one that takes them from cells. None if they cannot be told, as of a formula, or with
/// a fault if they cannot be read.
QStringList OptionsOf(TemplateContext &context, const TemplateName &name, TemplateFault &fault);
/// Gives all cells of \a name a list. Nothing is changed if it fails.
TemplateFault SetOptions(TemplateContext &context, const TemplateName &name, const QStringList &options);
/// Why the list of that cell does not take \a value, if it has one; whether that matters is the caller's.
TemplateFault FaultOfList(TemplateContext &context, int sheet, int row, int column, const QVariant &value);

} // namespace Velmora
