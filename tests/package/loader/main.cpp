// A plain program that loads the form it is given, and names the class of each widget that has a name, and before them the folders in
// which its Qt looks for plugins. It knows nothing of the kit.

#include <QApplication>
#include <QFile>
#include <QUiLoader>
#include <QWidget>

#include <cstdio>
#include <memory>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QFile file(application.arguments().value(1));
    if (!file.open(QIODevice::ReadOnly))
        return 2;
    const std::unique_ptr<QWidget> form(QUiLoader().load(&file));
    if (!form)
        return 3;
    form->show();
    QCoreApplication::processEvents();
    const QStringList folders = QCoreApplication::libraryPaths();
    for (const QString &folder : folders)
        std::printf("plugins: %s\n", qPrintable(folder));
    const QList<QWidget *> widgets = form->findChildren<QWidget *>();
    for (const QWidget *widget : widgets)
        std::printf("%s: %s\n", qPrintable(widget->objectName()), widget->metaObject()->className());
    return 0;
}
