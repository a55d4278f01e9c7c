#pragma once

#include <QMap>
#include <QString>

/// What is known of somebody. The port leaves it alone.
struct Entry
{
    QString kind;
    QString address;
    bool getsCard = false;
};

using Book = QMap<QString, Entry>; // by name
