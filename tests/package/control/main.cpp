// The README's control, under a built-in table and then under the README's own.
#include "LevelBar.h"

#include <Velmora/QcApplication.h>
#include <Velmora/QcStyleManager.h>

#include <QImage>

#include <cstdio>

namespace {

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

} // namespace

int main(int argc, char **argv)
{
    Velmora::QcApplication app(argc, argv);
    auto *theme = Velmora::QcStyleManager::GetInstance();
    theme->SetColorFilePath(QStringLiteral(":/colors/blue_light.ini"));
    app.Initialize();

    LevelBar bar;
    bar.resize(100, 8);
    bar.setLevel(0.5);
    bar.show();
    QCoreApplication::processEvents();
    if (!Shows(bar, "under a built-in table"))
        return 1;

    const QColor before = theme->GetColor("brand/brand");
    theme->SetColorFilePath(QStringLiteral(TABLE));
    QCoreApplication::processEvents();
    if (theme->GetColor("brand/brand") == before) {
        std::fprintf(stderr, "the README's table changes nothing\n");
        return 1;
    }
    return Shows(bar, "under the README's table") ? 0 : 1;
}
