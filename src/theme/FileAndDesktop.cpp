#include <Velmora/FileAndDesktop.h>

#include "theme/WindowsShell_p.h"

#include <QCursor>
#include <QDebug>
#include <QFile>
#include <QGuiApplication>
#include <QScreen>

#include <exception>
#include <string>

#if defined(Q_OS_WIN)
#include <QDir>
#include <QFileInfo>

#include <qt_windows.h>

#include <shellapi.h>
#elif defined(Q_OS_DARWIN)
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>
#else
#include "theme/FileManager_p.h"
#endif

namespace Velmora {

namespace {

/// A text ends at a zero byte, as Qt 5 converts it. Qt 6 would go on.
QByteArray UpToZero(QByteArray bytes)
{
    const auto end = bytes.indexOf('\0');
    if (end >= 0)
        bytes.truncate(end);
    return bytes;
}

} // namespace

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
        content = QString::fromUtf8(UpToZero(file.readAll()));
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
#if defined(Q_OS_WIN)
    return WindowsShell::ShortPath(path, [](const wchar_t *longPath, wchar_t *buffer, unsigned long size) -> unsigned long {
        return GetShortPathNameW(longPath, buffer, size);
    });
#else
    return path;
#endif
}

void openDir(const QString &path)
{
#if defined(Q_OS_WIN)
    const QString nativePath = QDir::toNativeSeparators(longPathToShortPath(path));
    const std::wstring arguments = WindowsShell::ExplorerArguments(nativePath, QFileInfo(nativePath).isDir()).toStdWString();
    ShellExecuteW(nullptr, L"open", L"explorer", arguments.c_str(), nullptr, SW_SHOWDEFAULT);
#elif defined(Q_OS_DARWIN)
    const QFileInfo info(path);
    QDesktopServices::openUrl(QUrl::fromLocalFile(info.isDir() ? info.absoluteFilePath() : info.absolutePath()));
#else
    if (FileManager *fileManager = FileManager::OfApplication())
        fileManager->Show(path);
#endif
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
