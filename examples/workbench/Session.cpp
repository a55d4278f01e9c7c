#include "Session.h"

#include <QDir>
#include <QSettings>

namespace {

QString SessionFile(const QString &folder)
{
    return QDir(folder).filePath(QStringLiteral("session.ini"));
}

} // namespace

Session LoadSession(const QString &folder)
{
    QSettings file(SessionFile(folder), QSettings::IniFormat);
    Session session;
    session.table = Examples::TableNamed(file.value(QStringLiteral("window/table")).toString());
    session.geometry = file.value(QStringLiteral("window/geometry")).toByteArray();
    file.beginGroup(QStringLiteral("files"));
    const QStringList numbers = file.childKeys();
    for (const QString &number : numbers)
        session.files.insert(number.toInt(), file.value(number).toString());
    return session;
}

bool SaveSession(const Session &session, const QString &folder)
{
    if (!QDir().mkpath(folder))
        return false;
    QSettings file(SessionFile(folder), QSettings::IniFormat);
    file.clear();
    if (session.table)
        file.setValue(QStringLiteral("window/table"), Examples::TableName(*session.table));
    file.setValue(QStringLiteral("window/geometry"), session.geometry);
    file.beginGroup(QStringLiteral("files"));
    for (auto it = session.files.cbegin(); it != session.files.cend(); ++it)
        file.setValue(QString::number(it.key()), it.value());
    file.endGroup();
    file.sync();
    return file.status() == QSettings::NoError;
}

QString LayoutOfLastRun(const QString &folder)
{
    return QDir(folder).filePath(QStringLiteral("last-layout.json"));
}

QString SavedLayout(const QString &folder)
{
    return QDir(folder).filePath(QStringLiteral("saved-layout.json"));
}
