#pragma once

#include "Arguments.h"

namespace FillTemplate {

/// Sets the elements that the values name, and replaces the output by the result once it has read back as it should.
void Fill(const Arguments &arguments);

} // namespace FillTemplate
