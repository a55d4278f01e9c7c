#pragma once

#include <QString>

namespace FillTemplate {

/// What the program's exit status says. docs/spreadsheets.md lists them.
enum ExitStatus {
    Done = 0,
    WrongUsage = 2,
    MissingFile = 3,   ///< a file that is to be read is missing or cannot be read
    LoadFailed = 4,    ///< the template is no workbook that the library loads
    NotJson = 6,       ///< the values are no JSON object
    UnknownName = 7,   ///< a value for a name that is no element of the template
    WrongType = 8,     ///< a value that the element does not take
    OutputFailed = 9,  ///< the output could not be written
    CannotPrepare = 10 ///< the parts lie in a way that renumbering does not mend
};

/// Ends the command. Whatever lies at the output path is as it was.
struct Failure
{
    ExitStatus status;
    QString message;
};

} // namespace FillTemplate
