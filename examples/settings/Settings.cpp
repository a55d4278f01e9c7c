#include "Settings.h"

#include <QSettings>

#include <cmath>

namespace {

int Number(const QSettings &file, const QString &key, int least, int greatest, int otherwise)
{
    bool ok = false;
    const int number = file.value(key).toInt(&ok);
    return ok && number >= least && number <= greatest ? number : otherwise;
}

void WriteUtf8(QSettings &file)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0) // later ones write nothing else
    file.setIniCodec("UTF-8");
#else
    Q_UNUSED(file)
#endif
}

} // namespace

Settings LoadSettings(const QString &path)
{
    QSettings file(path, QSettings::IniFormat);
    WriteUtf8(file);
    Settings settings;
    settings.name = file.value(QStringLiteral("user/name")).toString();
    settings.mail = file.value(QStringLiteral("user/mail")).toString();
    settings.language = file.value(QStringLiteral("user/language"), settings.language).toString();
    settings.look = Examples::TableNamed(file.value(QStringLiteral("user/look")).toString());
    settings.remarks = file.value(QStringLiteral("user/remarks")).toString().left(kLongestRemarks);

    settings.folder = file.value(QStringLiteral("storage/folder")).toString();
    settings.timeout = Number(file, QStringLiteral("storage/timeout"), 1, 600, settings.timeout);
    settings.keepDays = Number(file, QStringLiteral("storage/keepDays"), 1, 365, settings.keepDays);
    bool ok = false;
    const double limit = file.value(QStringLiteral("storage/limit")).toDouble(&ok);
    if (ok && std::isfinite(limit))
        settings.limit = limit;
    settings.autoSave = file.value(QStringLiteral("storage/autoSave"), settings.autoSave).toBool();

    settings.tellErrors = file.value(QStringLiteral("notices/errors"), settings.tellErrors).toBool();
    settings.tellUpdates = file.value(QStringLiteral("notices/updates"), settings.tellUpdates).toBool();
    settings.sound = file.value(QStringLiteral("notices/sound"), settings.sound).toBool();
    settings.volume = Number(file, QStringLiteral("notices/volume"), 0, 100, settings.volume);
    return settings;
}

bool SaveSettings(const Settings &settings, const QString &path)
{
    QSettings file(path, QSettings::IniFormat);
    WriteUtf8(file);
    file.setValue(QStringLiteral("user/name"), settings.name);
    file.setValue(QStringLiteral("user/mail"), settings.mail);
    file.setValue(QStringLiteral("user/language"), settings.language);
    file.setValue(QStringLiteral("user/look"), settings.look ? Examples::TableName(*settings.look) : QStringLiteral("desktop"));
    file.setValue(QStringLiteral("user/remarks"), settings.remarks);

    file.setValue(QStringLiteral("storage/folder"), settings.folder);
    file.setValue(QStringLiteral("storage/timeout"), settings.timeout);
    file.setValue(QStringLiteral("storage/keepDays"), settings.keepDays);
    file.setValue(QStringLiteral("storage/limit"), settings.limit);
    file.setValue(QStringLiteral("storage/autoSave"), settings.autoSave);

    file.setValue(QStringLiteral("notices/errors"), settings.tellErrors);
    file.setValue(QStringLiteral("notices/updates"), settings.tellUpdates);
    file.setValue(QStringLiteral("notices/sound"), settings.sound);
    file.setValue(QStringLiteral("notices/volume"), settings.volume);
    file.sync();
    return file.status() == QSettings::NoError;
}
