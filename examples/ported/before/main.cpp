#include "AddressBook.h"

#include <QApplication>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    AddressBook book;
    book.show();
    return QApplication::exec();
}
