#include "fuzz.h"
#include "xlsx/XlsxRoundTrip.h"

#include "xlsx/Template.h"

/// The input is the worksheet of a package that is otherwise sound.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const VelmoraTest::Template sound = [] {
        VelmoraTest::Template made;
        made.Strings({"<si><t>first</t></si>", "<si><r><t>rich</t></r></si>"});
        made.Name("Cell", "Sheet1!$A$1").Name("Range", "Sheet1!$B$2:$AC$4").Name("List", "Sheet1!$A$1,Sheet1!$B$9,Sheet1!$A$3");
        return made;
    }();
    VelmoraTest::Template source = sound;
    source.parts["xl/worksheets/sheet1.xml"] = QByteArray(reinterpret_cast<const char *>(data), int(size));
    VelmoraTest::RoundTrip(source.Archive());
    return 0;
}
