#include "fuzz.h"

#include "theme/SvgRecoloring_p.h"

using namespace Velmora;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // A document that does not parse is told by a warning a colour.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    const QString text = TextOf(data, size);
    const QString path = QStringLiteral("fuzz.svg");
    const QString recolored = RecolorSvg(text, path, QColor(16, 32, 48, 64));
    const QVector<SvgSubstitution> chain{{QStringLiteral("#000000"), QColor(255, 0, 0)}, {QStringLiteral("#ff0000"), QColor(0, 0, 0, 0)}};
    const QString substituted = RecolorSvg(text, path, chain);
    if (IsNestedTooDeep(text) && (recolored != text || substituted != text))
        std::abort();
    return 0;
}
