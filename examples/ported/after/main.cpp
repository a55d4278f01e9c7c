#include "AddressBook.h"
#include "TableChoice.h"

#include <Velmora/KeyboardCues.h>
#include <Velmora/PlainWidgets.h>
#include <Velmora/QcApplication.h>
#include <Velmora/Translations.h>

#include <QFont>
#include <QLocale>
#include <QTranslator>

int main(int argc, char **argv)
{
    Velmora::QcApplication app(argc, argv);
    QTranslator texts;
    if (texts.load(QLocale(), QStringLiteral("velmora"), QStringLiteral("_"), Velmora::TranslationsFolder(), QStringLiteral(".qm")))
        QCoreApplication::installTranslator(&texts);
    const Examples::TableChoice table; // as the desktop wishes
    app.Initialize();
    QFont font(QStringLiteral("Open Sans")); // of the list and of plain texts, as the kit's controls have it
    font.setPixelSize(12);
    Velmora::QcApplication::setFont(font);
    Velmora::SetKeyboardCuesEnabled(true);
    Velmora::SetPlainWidgetsFollowTable(true); // the list, for which the kit has no control

    AddressBook book;
    book.show();
    return Velmora::QcApplication::exec();
}
