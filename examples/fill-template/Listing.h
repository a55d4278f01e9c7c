#pragma once

#include "Arguments.h"

namespace FillTemplate {

/// Prints the elements of a template, as a table or as JSON.
void List(const Arguments &arguments);

} // namespace FillTemplate
