#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

namespace VelmoraTest {

QByteArray FileContent(const QString &path);
/// Makes the folders above it, too.
void WriteFile(const QString &path, const QByteArray &content);
/// All files below \a dirPath, hidden ones included, by their path in it.
QMap<QByteArray, QByteArray> FilesBelow(const QString &dirPath);

} // namespace VelmoraTest
