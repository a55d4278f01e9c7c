#include "OpenedTemplate.h"

#include <QFile>
#include <QFileInfo>

namespace FillTemplate {

using Velmora::XlsxTemplate;

namespace {

ExitStatus StatusOf(XlsxTemplate::Error error)
{
    switch (error) {
    case XlsxTemplate::Error::FileError:
        return MissingFile;
    case XlsxTemplate::Error::FormatError:
        return LoadFailed;
    case XlsxTemplate::Error::UnknownName:
        return UnknownName;
    default:
        return WrongType;
    }
}

} // namespace

XlsxTemplate OpenedTemplate(const QString &path)
{
    RequireReadable(path);
    XlsxTemplate source;
    if (!source.load(path)) {
        Failure failure = FailureOf(source, path);
        if (failure.status == WrongType)
            failure.status = LoadFailed;
        throw failure;
    }
    return source;
}

Failure FailureOf(const XlsxTemplate &source, const QString &subject)
{
    const QString reason = source.errorString();
    return {StatusOf(source.error()), reason.startsWith(subject) ? reason : QStringLiteral("%1: %2").arg(subject, reason)};
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
