#pragma once

#include "BuiltInTables.h"

#include <QByteArray>
#include <QMap>
#include <QString>

#include <optional>

/// What the workbench keeps from one run to the next, in a folder of its own: which file each editor number had, the window's
/// place and the colour table. The layouts stand beside it, in files of the kit's.
struct Session
{
    QMap<int, QString> files;
    QByteArray geometry;
    std::optional<Examples::Table> table; // none: as the desktop wishes
};

/// An empty session where there is none yet.
Session LoadSession(const QString &folder);
/// False if the folder or the file cannot be written.
bool SaveSession(const Session &session, const QString &folder);

/// Kept when the program ends, and restored when it starts.
QString LayoutOfLastRun(const QString &folder);
/// Kept and restored by the user.
QString SavedLayout(const QString &folder);
