#pragma once

#include <QString>
#include <QStringList>

namespace FillTemplate {

struct Arguments
{
    enum Command { List, Fill, Prepare, Help };

    Command command = Help;
    QString templatePath;
    QString valuesPath;
    QString outputPath;
    bool allowUnlisted = false;
    bool quiet = false;
    QString filter; ///< a regular expression; empty takes all names
    bool json = false;
};

/// What the help says.
QString Usage();

/// Of the arguments behind the program's name. A wrong one is a Failure.
Arguments ParseArguments(const QStringList &arguments);

} // namespace FillTemplate
