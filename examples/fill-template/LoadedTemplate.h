#pragma once

#include <Velmora/XlsxOperator.h>

#include <QString>
#include <QTemporaryDir>

namespace FillTemplate {

/// A package that is loaded into a working directory of its own, which goes with it.
class LoadedTemplate
{
public:
    /// Loads the elements whose names match \a filter. Whatever stands in the way is a Failure.
    LoadedTemplate(const QString &path, const QString &filter);

    Velmora::XlsxOperator &Operator() { return m_operator; }
    QHash<QString, QVariant> Elements();
    /// The working directory.
    QString Folder() const { return m_folder; }

private:
    QTemporaryDir m_dir;
    QString m_folder;
    Velmora::XlsxOperator m_operator;
};

/// Throws a Failure unless \a path is a file that can be read.
void RequireReadable(const QString &path);

/// The part that load() adds to a package that lacks it.
constexpr const char *kSharedStringsPath = "xl/sharedStrings.xml";

} // namespace FillTemplate
