#pragma once

#include "Arguments.h"

namespace FillTemplate {

/// Numbers the parts of a template as XlsxOperator needs them, and says what it did.
void Prepare(const Arguments &arguments);

} // namespace FillTemplate
