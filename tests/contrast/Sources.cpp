#include "contrast/Sources.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

namespace VelmoraTest {

QString CodeOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qWarning("cannot read %s", qPrintable(path));
    static const QRegularExpression comment(QStringLiteral("//[^\\n]*"));
    return QString::fromUtf8(file.readAll()).remove(comment);
}

QStringList SourcesBelow(const QString &folder)
{
    QStringList files;
    QDirIterator walk(folder, {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext())
        files.append(QDir(folder).relativeFilePath(walk.next()));
    files.sort();
    return files;
}

QStringList TokensIn(const QString &text)
{
    static const QRegularExpression literal(
        QStringLiteral("[\"{`]((?:base/[a-z]+|brand|tip|text|link|icon|border|bg|others|overlay|table|mask)/[a-z0-9_-]+)\\s*[\"},`]"));
    QStringList tokens;
    for (auto match = literal.globalMatch(text); match.hasNext();)
        tokens.append(match.next().captured(1));
    tokens.removeDuplicates();
    tokens.sort();
    return tokens;
}

QStringList ColorsIn(const QString &text)
{
    static const QRegularExpression literal(
        QStringLiteral("\"(#[0-9A-Fa-f]{6}[^\"]*)\"|\\bQt::(white|black|red|green|blue|gray|yellow|cyan)\\b"));
    QStringList colors;
    for (auto match = literal.globalMatch(text); match.hasNext();)
        colors.append(match.next().captured(0).remove(QLatin1Char('"')));
    colors.removeDuplicates();
    colors.sort();
    return colors;
}

} // namespace VelmoraTest
