#include "fuzz.h"
#include "xlsx/XlsxRoundTrip.h"

#include <QByteArray>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    VelmoraTest::RoundTrip(QByteArray(reinterpret_cast<const char *>(data), int(size)));
    return 0;
}
