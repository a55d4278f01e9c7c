#pragma once

#include "xlsx/TemplateContext_p.h"

#include <QVariantList>
#include <QVector>

namespace Velmora {

/// Repeats the row that \a name stands for once for each of \a rows and fills them in; see XlsxTemplate::setRows(). Nothing is changed if
/// it fails.
TemplateFault RepeatRow(TemplateContext &context, const TemplateName &name, const QVector<QVariantList> &rows);

} // namespace Velmora
