#pragma once

#include <QFile>
#include <QString>
#include <QTemporaryDir>

namespace VelmoraTest {

/// An SVG file of one colour that fills its square to the edges, so that an icon's extent is its ink. Gone with the object.
class SquareIcon
{
public:
    explicit SquareIcon(const QString &color)
    {
        const QString svg = QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 24 24\">"
                                           "<rect width=\"24\" height=\"24\" fill=\"%1\"/></svg>");
        QFile file(Path());
        if (!file.open(QIODevice::WriteOnly) || file.write(svg.arg(color).toUtf8()) < 0)
            qFatal("cannot write %s", qPrintable(Path()));
    }

    QString Path() const { return m_folder.filePath(QStringLiteral("square.svg")); }

private:
    QTemporaryDir m_folder;
};

} // namespace VelmoraTest
