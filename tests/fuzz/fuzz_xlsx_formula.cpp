#include "fuzz.h"

#include "xlsx/Formula_p.h"

using namespace Velmora;

namespace {

void Require(bool condition, const char *what)
{
    if (condition)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

/// The tokens of the formula are its text.
void RequireTokens(const std::string &formula)
{
    FormulaReader reader(formula);
    FormulaToken token;
    std::string joined;
    while (reader.Next(token)) {
        Require(!token.text.empty(), "a token is empty");
        joined += token.text;
    }
    Require(joined == formula, "the tokens are not the text");
}

} // namespace

/// The input is a formula, behind two bytes that say what is done to it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < 2)
        return 0;
    const std::string formula(reinterpret_cast<const char *>(data) + 2, size - 2);
    RequireTokens(formula);
    for (const FormulaUse &use : References(formula)) {
        const CellRange &range = use.range;
        const bool isWithin = range.firstRow >= 1 && range.firstRow <= range.lastRow && range.lastRow <= kLastRow && range.firstColumn >= 1
            && range.firstColumn <= range.lastColumn && range.lastColumn <= kLastColumn;
        Require(use.kind != FormulaUse::Kind::Range || isWithin, "a range leaves the sheet");
    }

    const RowMove move{"Sheet1", 1 + data[0] % 16, 1 + data[0] % 16 + data[0] / 64, data[1]};
    for (const Growth growth : {Growth::None, Growth::Fixed, Growth::Ranges, Growth::All}) {
        if (const auto moved = MovedByRows(formula, "Sheet1", move, growth))
            RequireTokens(*moved);
    }
    const RowMove none{"Sheet1", 2, 3, 2};
    Require(!MovedByRows(formula, "Sheet1", none, Growth::All), "what does not move changes");
    RequireTokens(Translated(formula, data[0] - 128, data[1] - 128));
    const std::string written = Translated(formula, 0, 0); // in capitals
    Require(Translated(written, 0, 0) == written, "what is not translated changes");
    return 0;
}
