#pragma once

#include "Failure.h"

#include <Velmora/XlsxTemplate.h>

namespace FillTemplate {

/// The workbook in \a path; else a Failure.
Velmora::XlsxTemplate OpenedTemplate(const QString &path);

/// What an operation on \a source that failed says of \a subject.
Failure FailureOf(const Velmora::XlsxTemplate &source, const QString &subject);

/// Throws a Failure unless \a path is a file that can be read.
void RequireReadable(const QString &path);

} // namespace FillTemplate
