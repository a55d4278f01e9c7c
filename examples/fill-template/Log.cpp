#include "Log.h"

#include "Failure.h"

#include <QStringList>

#include <cstdio>

namespace FillTemplate {

namespace {

constexpr int kMostWarnings = 50; // a hostile template has one for each of its names

QStringList &Warnings()
{
    static QStringList warnings;
    return warnings;
}

void Keep(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString &message)
{
    if (Warnings().size() < kMostWarnings)
        Warnings().append(message);
    else if (Warnings().size() == kMostWarnings)
        Warnings().append(QStringLiteral("and more warnings"));
}

} // namespace

void KeepWarnings()
{
    qInstallMessageHandler(Keep);
}

void PrintWarnings()
{
    for (const QString &warning : qAsConst(Warnings()))
        PrintError(warning);
    Warnings().clear();
}

void PrintError(const QString &message)
{
    std::fprintf(stderr, "fill-template: %s\n", OneLine(message).toLocal8Bit().constData());
}

void Print(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    const bool written = std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), stdout) == std::size_t(bytes.size());
    if (!written || std::fflush(stdout) != 0)
        throw Failure{OutputFailed, QStringLiteral("the standard output cannot be written")};
}

QString OneLine(const QString &text)
{
    QString line;
    line.reserve(text.size());
    for (const QChar c : text) {
        if (c == QLatin1Char('\n'))
            line += QLatin1String("\\n");
        else if (c == QLatin1Char('\t'))
            line += QLatin1String("\\t");
        else if (c.category() == QChar::Other_Control)
            line += QStringLiteral("\\u%1").arg(int(c.unicode()), 4, 16, QLatin1Char('0'));
        else
            line += c;
    }
    return line;
}

} // namespace FillTemplate
