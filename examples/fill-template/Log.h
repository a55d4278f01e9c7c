#pragma once

#include <QString>

namespace FillTemplate {

/// Keeps the library's warnings back, until the command has said on the standard output what it did.
void KeepWarnings();
/// Prints those kept back to the standard error, each behind the program's name.
void PrintWarnings();

void PrintError(const QString &message);
/// To the standard output, whole; else a Failure.
void Print(const QString &text);

/// \a text on one line and without control characters: what a template holds must not steer a terminal.
QString OneLine(const QString &text);

} // namespace FillTemplate
