#include <Velmora/FileAndDesktop.h>

#include <QCursor>
#include <QDebug>
#include <QFile>
#include <QGuiApplication>
#include <QScreen>

#include <exception>

namespace Velmora {

QString GetFileContent(const QString &path)
{
    QFile file(path);
    if (!file.exists()) {
        qWarning() << "GetFileContent: file not exist:" << path;
        return QString();
    }
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning() << "GetFileContent: file open failed:" << path;
        return QString();
    }
    QString content;
    try {
        content = QString::fromUtf8(file.readAll());
    } catch (const std::exception &error) {
        qWarning() << "GetFileContent: readAll failed:" << path << error.what();
    }
    file.close();
    return content;
}

bool IsFileExists(const QString &path)
{
    return QFile(path).exists();
}

QString longPathToShortPath(const QString &path)
{
    return path;
}

QScreen *getScreenUnderMouse()
{
    const QPoint cursor = QCursor::pos();
    const auto screens = QGuiApplication::screens();
    for (QScreen *screen : screens) {
        if (screen->geometry().contains(cursor))
            return screen;
    }
    return nullptr;
}

} // namespace Velmora
