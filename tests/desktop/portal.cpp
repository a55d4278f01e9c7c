// A settings portal on the session bus. It says "ready", then takes lines from its input: "color-scheme 1" makes that its answer, and
// announces it. It ends with its input.

#include "gallery/FakePortal.h"

#include <QCoreApplication>
#include <QDBusVariant>
#include <QSocketNotifier>

#include <iostream>
#include <string>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    VelmoraTest::FakePortal portal(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"));
    const QSocketNotifier input(0, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, [&portal] {
        std::string key;
        uint value = 0;
        if (!(std::cin >> key >> value)) {
            QCoreApplication::quit();
            return;
        }
        const QString name = QString::fromStdString(key);
        portal.SetAnswer(name, value);
        portal.Announce({QStringLiteral("org.freedesktop.appearance"), name, QVariant::fromValue(QDBusVariant(value))});
        std::cout << "said" << std::endl;
    });
    std::cout << "ready" << std::endl;
    return QCoreApplication::exec();
}
