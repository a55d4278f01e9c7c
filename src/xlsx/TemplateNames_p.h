#pragma once

#include "xlsx/TemplateContext_p.h"

#include <QStringList>
#include <QVariant>
#include <QVector>

#include <functional>

namespace Velmora {

// What is asked and done by name, of cells.

/// What a name stands for; never None or Picture.
XlsxTemplate::Kind KindOfName(TemplateContext &context, const TemplateName &name);
/// Why nothing can be put there, for a user; else empty. It may be for what the name stands for, or because a sheet cannot be read.
QString WhyUnusable(TemplateContext &context, const TemplateName &name);
/// Where the name leads, as formulas have it.
QString ReferenceOfName(TemplateContext &context, const TemplateName &name);

// Nothing, with a fault, if a sheet cannot be read.

bool HasFormula(TemplateContext &context, const TemplateName &name, TemplateFault &fault);
/// The value of the first cell, or the rows of a range.
QVariant ValueOfName(TemplateContext &context, const TemplateName &name, TemplateFault &fault);
/// The headers of a table, or the texts above a range.
QStringList ColumnNamesOf(TemplateContext &context, const TemplateName &name, TemplateFault &fault);

// Nothing is changed by those that fail.

TemplateFault SetValueOfName(TemplateContext &context, const TemplateName &name, const QVariant &value);
TemplateFault SetFormulaOfName(TemplateContext &context, const TemplateName &name, const QString &formula);
TemplateFault SetValuesOfName(TemplateContext &context, const TemplateName &name, const QVector<QVariantList> &rows,
                              XlsxTemplate::Fitted &fitted);
TemplateFault ClearName(TemplateContext &context, const TemplateName &name);
/// Sorts values that are named after columns into these, with a Keep where there is none.
TemplateFault RowsByColumn(TemplateContext &context, const TemplateName &name, const QVector<QVariantHash> &named,
                           QVector<QVariantList> &rows);

} // namespace Velmora
