#include "xlsx/TemplateLists_p.h"

namespace Velmora {

bool HasList(TemplateContext &, const TemplateName &)
{
    return false;
}

QStringList OptionsOf(TemplateContext &, const TemplateName &)
{
    return {};
}

TemplateFault SetOptions(TemplateContext &, const TemplateName &, const QStringList &)
{
    return {XlsxTemplate::Error::ObstacleError, QCoreApplication::translate("XlsxTemplate", "Lists cannot be set yet.")};
}

TemplateFault FaultOfList(TemplateContext &, int, int, int, const QVariant &)
{
    return {};
}

} // namespace Velmora
