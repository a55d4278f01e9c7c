// The README's lines, in a program whose user reads another language.
#include "../Check.h"

#include <Velmora/Velmora.h>

#include <QLocale>
#include <QTranslator>

int main(int argc, char **argv)
{
    QLocale::setDefault(QLocale(QStringLiteral("ar_EG")));
    Velmora::QcApplication app(argc, argv);
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(QStringLiteral(":/colors/blue_light.ini"));
    app.Initialize();
#include "languages.h"
    const Velmora::QcWindow window;
    Check(window.windowTitle() == QStringLiteral("نافذة"), "a window is named in the user's language");
    Check(QGuiApplication::isRightToLeft(), "and laid out as that is written");
    Check(kitTexts.load(QLocale(QStringLiteral("it_IT")), "velmora", "_", Velmora::TranslationsFolder(), ".qm"), "another one loads");
    for (int i = 0; i < 2; ++i) // the application hears of it first, and tells its windows
        QCoreApplication::processEvents();
    Check(window.windowTitle() == QStringLiteral("Window"), "and follows to another: English, where there is none");
    return failures;
}
