#include "xlsx/RowRepetition_p.h"

namespace Velmora {

TemplateFault RepeatRow(TemplateContext &, const TemplateName &, const QVector<QVariantList> &)
{
    return {XlsxTemplate::Error::ObstacleError, QCoreApplication::translate("XlsxTemplate", "Rows cannot be repeated yet.")};
}

} // namespace Velmora
