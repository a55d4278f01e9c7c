#include "xlsx/StaleResults_p.h"

namespace Velmora {

TemplateFault RemoveStaleResults(TemplateContext &)
{
    return {};
}

} // namespace Velmora
