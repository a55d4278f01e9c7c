#pragma once

#include <QMap>
#include <QString>

namespace FillTemplate {

/// Where the elements of the package unpacked in \a folder lie, by name: the references of a defined name as they stand, for a
/// picture the cell under its upper left corner.
QMap<QString, QString> PlacesOf(const QString &folder);

} // namespace FillTemplate
