#pragma once

#include <QDebug>
#include <QString>
#include <QtGlobal>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

/// What libFuzzer and the replay program call with each input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

/// The input as text. Its first byte chooses between UTF-8 and one character a byte, so that both are tried.
inline QString TextOf(const std::uint8_t *data, std::size_t size)
{
    const char *text = reinterpret_cast<const char *>(data);
    if (size > 0 && data[0] == 'L')
        return QString::fromLatin1(text + 1, int(size) - 1);
    return QString::fromUtf8(text, int(size));
}

/// Ends the program with both texts if they differ.
inline void MustBeEqual(const QString &actual, const QString &expected)
{
    if (actual == expected)
        return;
    qCritical() << "actual:  " << actual;
    qCritical() << "expected:" << expected;
    std::abort();
}

/// From now on every line that Qt or the library logs ends the program: these operations are silent.
inline void ForbidLogLines()
{
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &line) {
        fprintf(stderr, "%s\n", qPrintable(line));
        if (type != QtCriticalMsg)
            std::abort();
    });
}
