// A host that checks what it links: the resources, the theme, a control on the screen, a task, the texts in another language.
#include <Velmora/Velmora.h>

#include <QFile>
#include <QImage>
#include <QLocale>
#include <QTranslator>

#include <cstdio>

#ifdef HOST_STANDARD
static_assert(__cplusplus == HOST_STANDARD, "the package changes the standard that its host asks for");
#endif

int main(int argc, char **argv)
{
    Velmora::QcApplication app(argc, argv);
    auto *theme = Velmora::QcStyleManager::GetInstance();
    theme->SetColorFilePath(QStringLiteral(":/colors/blue_dark.ini"));
    app.Initialize();

    for (const char *resource : {":/qss/Global.qss", ":/fonts/OpenSans-Medium.ttf", ":/images/close.svg"}) {
        if (!QFile::exists(QString::fromLatin1(resource))) {
            std::fprintf(stderr, "no %s\n", resource);
            return 1;
        }
    }

    QTranslator german;
    const bool isLoaded = german.load(QLocale(QStringLiteral("de_AT")), QStringLiteral("velmora"), QStringLiteral("_"),
                                      Velmora::TranslationsFolder(), QStringLiteral(".qm"));
    QCoreApplication::installTranslator(&german);
    if (!isLoaded || QCoreApplication::translate("QcWindow", "Close") != QStringLiteral("Schließen")) {
        std::fprintf(stderr, "no German in %s\n", qPrintable(Velmora::TranslationsFolder()));
        return 4;
    }

    Velmora::QcPrimaryButton button;
    button.setText(QStringLiteral("Host"));
    button.resize(110, 32);
    button.show();

    // Posted after the button's own first task, so by now it has its colours.
    int result = 2;
    Velmora::PostOwnedTask(
        &app,
        [&] {
            const QColor background = button.grab().toImage().pixelColor(8, 16);
            const QColor brand = theme->GetColor("brand/brand");
            result = brand.isValid() && background == brand ? 0 : 3;
            QCoreApplication::exit(result);
        },
        "look at the button");
    return app.exec();
}
