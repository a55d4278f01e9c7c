#pragma once

#include "xlsx/TemplateContext_p.h"

namespace Velmora {

/// Takes the results out of all formulas that may depend on the cells in context.changed, and renews what shows such cells.
TemplateFault RemoveStaleResults(TemplateContext &context);

} // namespace Velmora
