#pragma once

#include "xlsx/TemplateFault_p.h"
#include "xlsx/TemplateStyles_p.h"

#include <QVariant>

#include <string>
#include <string_view>

namespace Velmora {

// From values to what stands in a cell, and back.

/// What a value becomes in a cell.
struct CellContent
{
    enum class Kind { Nothing, Number, Truth, Text };
    Kind kind = Kind::Nothing;
    std::string text; ///< of a number, as the file has it; of a text, with what XML has no room for escaped
    TemplateStyles::Shows shows = TemplateStyles::Shows::Number;

    /// True if programs are to be told so.
    bool KeepsItsBlanks() const;
};

/// A fault if \a value is none for a cell; without its place.
TemplateFault ContentOf(const QVariant &value, bool countsFrom1904, CellContent &content);

/// The shortest text that reads back equal.
std::string NumberText(double number);
/// A number of the file: qlonglong if it is a whole one in digits, else double; invalid if it is none.
QVariant NumberOf(std::string_view text);
/// The date that a number stands for, or the number itself if it stands for none.
QVariant DateOf(const QVariant &number, TemplateStyles::Shows shows, bool countsFrom1904);

/// Characters that XML has no room for, and texts that look like their escape, become _xHHHH_.
std::string Escaped(const QString &text);
QString Unescaped(const std::string &text);

} // namespace Velmora
