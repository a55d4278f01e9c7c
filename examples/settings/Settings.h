#pragma once

#include "BuiltInTables.h"

#include <QString>

#include <optional>

/// What the program remembers, with the values of a first start.
struct Settings
{
    QString name;
    QString mail;
    QString language = QStringLiteral("en");
    std::optional<Examples::Table> look; // none: as the desktop wishes
    QString remarks;

    QString folder;
    int timeout = 30; // seconds
    int keepDays = 14;
    double limit = 2.5; // gigabytes
    bool autoSave = true;

    bool tellErrors = true;
    bool tellUpdates = false;
    bool sound = true;
    int volume = 70; // percent
};

constexpr int kLongestRemarks = 200;

/// Reads the INI file \a path. What is missing there, or makes no sense, has the value of a first start.
Settings LoadSettings(const QString &path);
/// False if the file cannot be written.
bool SaveSettings(const Settings &settings, const QString &path);
