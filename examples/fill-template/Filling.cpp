#include "Filling.h"

#include "Failure.h"
#include "LoadedTemplate.h"
#include "Log.h"
#include "NameFilter.h"
#include "OutputFile.h"
#include "Package.h"
#include "Values.h"
#include "Xml.h"

#include <Velmora/XlsxZip.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <iterator>
#include <vector>

namespace FillTemplate {

namespace {

using Velmora::XlsxOperator;

using Values = QMap<QString, Value>;
/// What is to be read back: the names of the pictures' files in the package.
using MediaNames = QMap<QString, QString>;

QByteArray ContentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The suffix that fits the content of an image; empty for any other file. Templates have a content type for these two alone.
QString ImageSuffix(const QByteArray &content)
{
    if (content.startsWith("\x89PNG\r\n\x1a\n"))
        return QStringLiteral("png");
    if (content.startsWith("\xff\xd8\xff"))
        return QStringLiteral("jpeg");
    return QString();
}

void RequireFittingElements(const Values &values, const QHash<QString, QVariant> &elements, const QString &templatePath)
{
    QStringList unknown;
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        if (!elements.contains(value.key()))
            unknown.append(value.key());
    }
    if (!unknown.isEmpty())
        throw Failure{UnknownName, QStringLiteral("%1 has no element named %2").arg(templatePath, unknown.join(QLatin1String(", ")))};
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        const bool isPicture = elements.value(value.key()).canConvert<XlsxOperator::PictureInfo>();
        if (isPicture && value->picture.isEmpty())
            throw Failure{WrongType, QStringLiteral("%1 is a picture and takes {\"picture\": FILE}").arg(value.key())};
        if (!isPicture && !value->picture.isEmpty())
            throw Failure{WrongType, QStringLiteral("%1 is a cell and takes no picture").arg(value.key())};
    }
}

/// A copy of the image under a name that no image of the package has, so that no other picture changes, and that is a part's name
/// whatever the file is called. One file is copied once.
QString CopiedImage(const QString &path, const QString &mediaFolder, const QDir &copies, QMap<QString, QString> &done)
{
    QString &copied = done[QFileInfo(path).canonicalFilePath()];
    if (!copied.isEmpty())
        return copied;
    const QByteArray content = ContentOf(path);
    const QString suffix = ImageSuffix(content);
    if (suffix.isEmpty())
        throw Failure{WrongType, QStringLiteral("%1 is no PNG or JPEG file").arg(path)};
    QString name;
    int number = 0;
    do {
        name = QStringLiteral("filled%1.%2").arg(++number).arg(suffix);
    } while (QFileInfo::exists(mediaFolder + QLatin1Char('/') + name) || copies.exists(name));
    copied = copies.filePath(name);
    const QString fault = WriteFault(copied, content);
    if (!fault.isEmpty())
        throw Failure{OutputFailed, QStringLiteral("%1 cannot be copied: %2").arg(path, fault)};
    return copied;
}

MediaNames SetPictures(LoadedTemplate &source, const Values &values, const QDir &copies)
{
    const QString mediaFolder = source.Folder() + QLatin1String("/xl/media");
    MediaNames names;
    QMap<QString, QString> done;
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        if (value->picture.isEmpty())
            continue;
        XlsxOperator::PictureInfo info;
        info.filePath = CopiedImage(value->picture, mediaFolder, copies, done);
        source.Operator().setPicturesPictureInfo(value.key(), info);
        names.insert(value.key(), QFileInfo(info.filePath).fileName());
    }
    // The placeholder's image may lie elsewhere.
    if (!names.isEmpty())
        QDir().mkpath(mediaFolder);
    return names;
}

void SetCells(LoadedTemplate &source, const Values &values)
{
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        if (!value->picture.isEmpty())
            continue;
        if (value->options.isEmpty()) {
            // A plain value leaves the list of a cell alone.
            source.Operator().setCellsValue(value.key(), value->content);
            continue;
        }
        // An invalid value leaves the content alone: what was read cannot be written back as it is.
        XlsxOperator::DropDownInfo info;
        info.value = value->content;
        info.options = value->options;
        source.Operator().setCellsDropDownInfo(value.key(), info);
    }
}

bool IsReadBack(const Value &expected, const QVariant &found, const QString &mediaName)
{
    if (!expected.picture.isEmpty())
        return found.value<XlsxOperator::PictureInfo>().filePath == QLatin1String("../media/") + mediaName;
    const bool isList = found.canConvert<XlsxOperator::DropDownInfo>();
    const QVariant content = isList ? found.value<XlsxOperator::DropDownInfo>().value : found;
    if (!expected.options.isEmpty() && (!isList || found.value<XlsxOperator::DropDownInfo>().options != expected.options))
        return false;
    if (!expected.content.isValid() || expected.isFormula) // formulas are not read
        return true;
    if (expected.content.type() == QVariant::String)
        return content.type() == QVariant::String && DecodedText(content.toString()) == expected.content.toString();
    return content.type() == expected.content.type() && content == expected.content;
}

/// Loads what was saved and compares it with what was to be saved.
void ReadBack(const QString &path, const QString &filter, LoadedTemplate &source, const Values &values, const MediaNames &mediaNames)
{
    RequireSameFiles(source.Folder(), path);
    LoadedTemplate saved(path, filter);
    const QHash<QString, QVariant> elements = saved.Elements();
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        if (!IsReadBack(value.value(), elements.value(value.key()), mediaNames.value(value.key())))
            throw Failure{OutputFailed,
                          QStringLiteral("%1 does not hold its value; does its name lead to a cell that can hold it?").arg(value.key())};
    }
    for (auto name = mediaNames.cbegin(); name != mediaNames.cend(); ++name) {
        if (ContentOf(saved.Folder() + QLatin1String("/xl/media/") + name.value()) != ContentOf(values.value(name.key()).picture))
            throw Failure{OutputFailed, QStringLiteral("%1 does not hold its picture").arg(name.key())};
    }
}

/// Puts the strings of the template back as they were, before those that were added: load() and save() leave one more level of
/// entities in each, so that R&D would show as R&amp;D.
void RestoreStrings(const QString &path, const QByteArray &original)
{
    XmlPart saved(path);
    std::vector<pugi::xml_node> strings;
    for (const pugi::xml_node &string : saved.Root().children("si"))
        strings.push_back(string);
    const QString fault = WriteFault(path, original);
    if (!fault.isEmpty())
        throw Failure{OutputFailed, QStringLiteral("%1 cannot be written: %2").arg(path, fault)};

    XmlPart restored(path);
    pugi::xml_node table = restored.Root();
    const auto old = table.children("si");
    const auto added = strings.begin() + qMin(std::distance(old.begin(), old.end()), std::distance(strings.begin(), strings.end()));
    std::for_each(added, strings.end(), [&table](const pugi::xml_node &string) { table.append_copy(string); });
    restored.Save();
}

} // namespace

void Fill(const Arguments &arguments)
{
    const Values values = ReadValues(arguments.valuesPath, arguments.filter);
    // save() writes every element that was loaded, so no other name is: it would change cells that nobody spoke of.
    const QString filter = PatternOfExactly(values.keys());
    if (!QRegularExpression(filter).isValid())
        throw Failure{NotJson, QStringLiteral("%1 has more names than fit one run; split it").arg(arguments.valuesPath)};
    LoadedTemplate source(arguments.templatePath, filter);
    RequireFittingElements(values, source.Elements(), arguments.templatePath);

    const QString stringsPath = source.Folder() + QLatin1Char('/') + QLatin1String(kSharedStringsPath);
    const QByteArray strings = ContentOf(stringsPath);
    const QTemporaryDir copies;
    if (!copies.isValid())
        throw Failure{OutputFailed, QStringLiteral("no working directory: %1").arg(copies.errorString())};
    const MediaNames mediaNames = SetPictures(source, values, QDir(copies.path()));
    SetCells(source, values);

    OutputFile output(arguments.outputPath);
    source.Operator().setNewXlsxAbsolutePath(output.WorkPath());
    if (!source.Operator().save())
        throw Failure{OutputFailed, QStringLiteral("%1 cannot be written").arg(arguments.outputPath)};
    if (strings.contains('&') || strings.contains("<![CDATA[")) {
        RestoreStrings(stringsPath, strings);
        if (!Velmora::XlsxZip::compressToXlsxFile(source.Folder(), output.WorkPath()))
            throw Failure{OutputFailed, QStringLiteral("%1 cannot be written").arg(arguments.outputPath)};
    }
    try {
        ReadBack(output.WorkPath(), filter, source, values, mediaNames);
    } catch (const Failure &failure) {
        throw NotReadBack(arguments.outputPath, failure);
    }
    output.Commit();
}

} // namespace FillTemplate
