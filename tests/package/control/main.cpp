// The README's control, under a built-in table and then under the README's own, which is made of that one and the README's changes:
// main TABLE CHANGES.
#include "LevelBar.h"

#include <Velmora/QcApplication.h>
#include <Velmora/QcStyleManager.h>

#include <QImage>
#include <QSettings>

#include <cstdio>

namespace {

const QString kBuiltIn = QStringLiteral(":/colors/blue_light.ini");

bool Shows(LevelBar &bar, const char *what)
{
    auto *theme = Velmora::QcStyleManager::GetInstance();
    const QImage image = bar.grab().toImage();
    const QColor filled = theme->GetColor("brand/brand");
    const QColor rest = theme->GetColor("bg/bg_primary");
    if (filled.isValid() && rest.isValid() && filled != rest && image.pixelColor(10, 4) == filled && image.pixelColor(90, 4) == rest)
        return true;
    std::fprintf(stderr, "wrong colours %s\n", what);
    return false;
}

/// Every token has a colour, and just those of the changes another one than the built-in table gives.
bool HasEveryToken(const QString &changes)
{
    auto *theme = Velmora::QcStyleManager::GetInstance();
    const QStringList tokens = QSettings(kBuiltIn, QSettings::IniFormat).allKeys();
    const QStringList changed = QSettings(changes, QSettings::IniFormat).allKeys();
    QHash<QString, QColor> before;
    for (const QString &token : tokens)
        before.insert(token, theme->GetColor(token));
    theme->SetColorFilePath(QCoreApplication::arguments().at(1));
    QCoreApplication::processEvents();

    bool isRight = !tokens.isEmpty() && !changed.isEmpty();
    for (const QString &token : tokens + changed) {
        const QColor color = theme->GetColor(token);
        if (!color.isValid() || !before.contains(token) || (color != before.value(token)) != changed.contains(token)) {
            std::fprintf(stderr, "%s is %s\n", qPrintable(token), color.isValid() ? qPrintable(color.name(QColor::HexArgb)) : "unknown");
            isRight = false;
        }
    }
    return isRight;
}

} // namespace

int main(int argc, char **argv)
{
    Velmora::QcApplication app(argc, argv);
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(kBuiltIn);
    app.Initialize();

    LevelBar bar;
    bar.resize(100, 8);
    bar.setLevel(0.5);
    bar.show();
    QCoreApplication::processEvents();
    if (!Shows(bar, "under a built-in table"))
        return 1;
    if (!HasEveryToken(app.arguments().value(2)))
        return 1;
    return Shows(bar, "under the README's table") ? 0 : 1;
}
