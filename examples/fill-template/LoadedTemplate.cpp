#include "LoadedTemplate.h"

#include "Failure.h"
#include "Log.h"
#include "Numbering.h"
#include "Package.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace FillTemplate {

LoadedTemplate::LoadedTemplate(const QString &path, const QString &filter)
    : m_folder(QDir(m_dir.path()).absoluteFilePath(QStringLiteral("package")))
{
    RequireReadable(path);
    if (!m_dir.isValid())
        throw Failure{OutputFailed, QStringLiteral("no working directory: %1").arg(m_dir.errorString())};
    m_operator.setOldXlsxAbsolutePath(QFileInfo(path).absoluteFilePath());
    m_operator.setExtractDirAbsolutePath(m_folder);
    m_operator.setElementNameFilterRegExp(filter);
    const bool isLoaded = m_operator.load();
    // A part that a full disk cut is no fault of the template's. Of a refused archive nothing is unpacked.
    if (isLoaded || !QDir(m_folder).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
        RequireSameFiles(m_folder, path, QLatin1String(kSharedStringsPath));
    if (!isLoaded)
        throw Failure{LoadFailed, QStringLiteral("%1 cannot be loaded").arg(path)};

    const Numbering numbering = NumberingOf(m_folder);
    if (!numbering.IsInOrder()) {
        // Its names lead to other sheets than they say, which is what the warnings would be about.
        DropWarnings();
        throw Failure{NeedsPrepare,
                      QStringLiteral("%1 needs `fill-template prepare` first: %2").arg(path, numbering.Description().first())};
    }
}

QHash<QString, QVariant> LoadedTemplate::Elements()
{
    QHash<QString, QVariant> elements;
    m_operator.getElementsNameToValueHash(elements);
    return elements;
}

void RequireReadable(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile())
        throw Failure{MissingFile, QStringLiteral("%1 is no file").arg(path)};
    if (!file.open(QIODevice::ReadOnly))
        throw Failure{MissingFile, QStringLiteral("%1 cannot be read: %2").arg(path, file.errorString())};
}

} // namespace FillTemplate
