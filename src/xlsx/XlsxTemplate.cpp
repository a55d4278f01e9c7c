#include <Velmora/XlsxTemplate.h>

#include "xlsx/MemoryBudget_p.h"
#include "xlsx/RowRepetition_p.h"
#include "xlsx/StaleResults_p.h"
#include "xlsx/TemplateContext_p.h"
#include "xlsx/TemplateLists_p.h"
#include "xlsx/TemplateNames_p.h"
#include "xlsx/TemplatePictures_p.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <utility>

#ifdef Q_OS_UNIX
#include <cerrno>

#include <unistd.h>
#endif

namespace Velmora {

namespace {

QString QText(const std::string &text)
{
    return QString::fromStdString(text);
}

TemplateFault FileFault(const QString &path, const QString &reason)
{
    return {XlsxTemplate::Error::FileError,
            QCoreApplication::translate("XlsxTemplate", "%1: %2", "a file and what is wrong with it").arg(path, reason)};
}

TemplateFault NamelessFile()
{
    return {XlsxTemplate::Error::FileError, QCoreApplication::translate("XlsxTemplate", "The file has no name.")};
}

/// Of a file, or an image: it lies in memory more than once while it is packed.
constexpr qint64 kMostBytes = MemoryBudget::kBytes / 3;

TemplateFault ReadFile(const QString &path, QByteArray &bytes)
{
    if (path.isEmpty()) // QFile logs it
        return NamelessFile();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return FileFault(path, file.errorString());
    if (file.size() <= kMostBytes)
        bytes = file.size() > 0 ? file.readAll() : file.read(kMostBytes + 1); // what is no regular file has no size
    if (file.size() > kMostBytes || bytes.size() > kMostBytes)
        return {XlsxTemplate::Error::LimitError, QCoreApplication::translate("XlsxTemplate", "%1: The file is too large.").arg(path)};
    return file.error() == QFileDevice::NoError ? TemplateFault() : FileFault(path, file.errorString());
}

/// Whole or not at all: under a name of its own beside \a path, which it then takes.
TemplateFault WriteFile(const QString &path, const QByteArray &bytes)
{
    if (path.isEmpty())
        return NamelessFile();
    const QFileInfo info(path);
    if (info.isDir())
        return FileFault(path, QCoreApplication::translate("XlsxTemplate", "It is a folder."));
    if (info.exists() && !info.isFile()) // a device or a pipe, which would be gone
        return FileFault(path, QCoreApplication::translate("XlsxTemplate", "It is no regular file."));
    QSaveFile file(path);
    // With a buffer QSaveFile does not notice that its last piece did not fit.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return FileFault(path, file.errorString());
    // What is written in part has no error yet, the rest of it has.
    for (int written = 0; written < bytes.size();) {
        const qint64 count = file.write(bytes.constData() + written, bytes.size() - written);
        if (count <= 0)
            return FileFault(path, file.errorString());
        written += int(count);
    }
#ifdef Q_OS_UNIX
    // Disks of other machines may tell only now that they are full. QSaveFile would not say it.
    if (fsync(file.handle()) != 0 && (errno == ENOSPC || errno == EDQUOT || errno == EIO))
        return FileFault(path, qt_error_string(errno));
#endif
    return file.commit() ? TemplateFault() : FileFault(path, file.errorString());
}

TemplateFault PutPicture(TemplateContext &context, const QString &name, const QByteArray &image, XlsxTemplate::PictureFit fit)
{
    const qint64 memory = XlsxPackage::MemoryOfBytes(image.size());
    return context.package.HasMemory(memory) ? SetPicture(context, name, image, fit) : context.package.TakeMemory(memory);
}

} // namespace

struct XlsxTemplate::Private
{
    std::unique_ptr<TemplateContext> context;
    bool takesValuesOutsideLists = false;
    TemplateFault fault;

    bool Done(TemplateFault reason)
    {
        fault = std::move(reason);
        return !fault;
    }
    /// Does what is to be done by name, in cells: action(context, name) returns a fault.
    template <typename Action>
    bool DoByName(const QString &name, const Action &action);
    /// Reads what stands in cells by name: read(context, name, fault) returns it, or what it returns for nothing.
    template <typename Result, typename Read>
    Result ReadByName(const QString &name, const Read &read);
    /// Of pictures: action(context) returns a fault.
    template <typename Action>
    bool DoWithPicture(const QString &name, const Action &action);
    const TemplateName *Find(const QString &name) const { return context ? context->workbook.FindName(name.toStdString()) : nullptr; }
    bool IsPicture(const QString &name) const { return context && !Find(name) && HasPicture(*context, name); }
    TemplateFault Load(const QByteArray &package);
    TemplateFault Save(QByteArray &package, bool asTemplate);
    TemplateFault NotLoaded() const
    {
        return context ? TemplateFault()
                       : TemplateFault{Error::NotLoaded, QCoreApplication::translate("XlsxTemplate", "There is no template yet.")};
    }
    TemplateFault Unknown(const QString &name) const
    {
        return {Error::UnknownName, QCoreApplication::translate("XlsxTemplate", "There is no name %1 in the workbook.").arg(name)};
    }
};

template <typename Action>
bool XlsxTemplate::Private::DoByName(const QString &name, const Action &action)
{
    if (!context)
        return Done(NotLoaded());
    const TemplateName *found = Find(name);
    if (!found && HasPicture(*context, name))
        return Done({Error::UnusableName, QCoreApplication::translate("XlsxTemplate", "%1 is a picture, not a cell.").arg(name)});
    if (!found)
        return Done(Unknown(name));
    if (found->places.empty())
        return Done({Error::UnusableName, name + QLatin1String(": ") + WhyUnusable(*context, *found)});
    context->takesValuesOutsideLists = takesValuesOutsideLists;
    return Done(action(*context, *found));
}

template <typename Result, typename Read>
Result XlsxTemplate::Private::ReadByName(const QString &name, const Read &read)
{
    Result result{};
    DoByName(name, [&](TemplateContext &loaded, const TemplateName &found) {
        TemplateFault reason;
        result = read(loaded, found, reason);
        return reason;
    });
    return result;
}

template <typename Action>
bool XlsxTemplate::Private::DoWithPicture(const QString &name, const Action &action)
{
    if (!context)
        return Done(NotLoaded());
    if (Find(name))
        return Done({Error::UnusableName, QCoreApplication::translate("XlsxTemplate", "%1 is not a picture.").arg(name)});
    if (!HasPicture(*context, name))
        return Done(Unknown(name));
    return Done(action(*context));
}

TemplateFault XlsxTemplate::Private::Load(const QByteArray &package)
{
    auto loaded = std::make_unique<TemplateContext>();
    TemplateFault reason = loaded->Load(package);
    if (!reason)
        context = std::move(loaded);
    return reason;
}

TemplateFault XlsxTemplate::Private::Save(QByteArray &package, bool asTemplate)
{
    if (TemplateFault reason = NotLoaded())
        return reason;
    if (!context->changed.empty()) {
        if (TemplateFault reason = RemoveStaleResults(*context))
            return reason;
        if (TemplateFault reason = context->workbook.RequireCalculation())
            return reason;
        context->changed.clear();
        context->ForgetEntries();
    }
    if (TemplateFault reason = context->workbook.SetTemplate(asTemplate))
        return reason;
    if (context->package.IsChanged()) {
        if (TemplateFault reason = context->package.RemoveSignatures())
            return reason;
    }
    return context->package.Write(package);
}

// --- XlsxTemplate ---

XlsxTemplate::XlsxTemplate()
    : d(std::make_unique<Private>())
{
}

XlsxTemplate::XlsxTemplate(XlsxTemplate &&other) noexcept
    : d(std::exchange(other.d, std::make_unique<Private>()))
{
}

XlsxTemplate &XlsxTemplate::operator=(XlsxTemplate &&other) noexcept
{
    if (this != &other)
        d = std::exchange(other.d, std::make_unique<Private>());
    return *this;
}

XlsxTemplate::~XlsxTemplate() = default;

bool XlsxTemplate::load(const QString &path)
{
    d->context.reset();
    QByteArray package;
    TemplateFault fault = ReadFile(path, package);
    if (!fault)
        fault = d->Load(package);
    return d->Done(std::move(fault));
}

bool XlsxTemplate::load(const QByteArray &package)
{
    d->context.reset();
    return d->Done(d->Load(package));
}

// --- What there is ---

QStringList XlsxTemplate::names() const
{
    QStringList names;
    if (!d->context)
        return names;
    for (const TemplateName &name : d->context->workbook.Names())
        names.append(QText(name.display));
    for (const QString &picture : PictureNames(*d->context)) {
        if (!d->Find(picture)) // a cell's name comes before a picture's
            names.append(picture);
    }
    return names;
}

XlsxTemplate::Kind XlsxTemplate::kindOf(const QString &name) const
{
    if (const TemplateName *found = d->Find(name))
        return KindOfName(*d->context, *found);
    if (!d->context || !HasPicture(*d->context, name))
        return Kind::None;
    return WhyPictureIsUnusable(*d->context, name).isEmpty() ? Kind::Picture : Kind::Unusable;
}

bool XlsxTemplate::hasFormula(const QString &name) const
{
    if (d->IsPicture(name))
        return !d->Done({}); // which has none
    return d->ReadByName<bool>(name, HasFormula);
}

QString XlsxTemplate::unusableReason(const QString &name) const
{
    if (const TemplateName *found = d->Find(name))
        return WhyUnusable(*d->context, *found);
    return d->context && HasPicture(*d->context, name) ? WhyPictureIsUnusable(*d->context, name) : QString();
}

QString XlsxTemplate::reference(const QString &name) const
{
    if (const TemplateName *found = d->Find(name))
        return ReferenceOfName(*d->context, *found);
    return d->context ? PictureReference(*d->context, name) : QString();
}

QVariant XlsxTemplate::value(const QString &name) const
{
    if (!d->IsPicture(name))
        return d->ReadByName<QVariant>(name, ValueOfName);
    QVariant image;
    d->DoWithPicture(name, [&](TemplateContext &context) {
        TemplateFault fault;
        image = PictureImage(context, name, fault);
        return fault;
    });
    return image;
}

QStringList XlsxTemplate::options(const QString &name) const
{
    return d->ReadByName<QStringList>(name, OptionsOf);
}

QStringList XlsxTemplate::columnNames(const QString &name) const
{
    return d->ReadByName<QStringList>(name, ColumnNamesOf);
}

// --- Filling in ---

bool XlsxTemplate::setValue(const QString &name, const QVariant &value)
{
    return d->DoByName(name,
                       [&value](TemplateContext &context, const TemplateName &found) { return SetValueOfName(context, found, value); });
}

bool XlsxTemplate::setFormula(const QString &name, const QString &formula)
{
    return d->DoByName(
        name, [&formula](TemplateContext &context, const TemplateName &found) { return SetFormulaOfName(context, found, formula); });
}

bool XlsxTemplate::setValues(const QString &name, const QVector<QVariantList> &rows, Fitted *fitted)
{
    Fitted counted;
    const bool isDone = d->DoByName(
        name, [&](TemplateContext &context, const TemplateName &found) { return SetValuesOfName(context, found, rows, counted); });
    if (fitted)
        *fitted = isDone ? counted : Fitted();
    return isDone;
}

bool XlsxTemplate::setRows(const QString &name, const QVector<QVariantList> &rows)
{
    return d->DoByName(name, [&rows](TemplateContext &context, const TemplateName &found) { return RepeatRow(context, found, rows); });
}

bool XlsxTemplate::setRows(const QString &name, const QVector<QVariantHash> &rows)
{
    return d->DoByName(name, [&rows](TemplateContext &context, const TemplateName &found) {
        QVector<QVariantList> sorted;
        const TemplateFault fault = RowsByColumn(context, found, rows, sorted);
        return fault ? fault : RepeatRow(context, found, sorted);
    });
}

bool XlsxTemplate::setOptions(const QString &name, const QStringList &options)
{
    return d->DoByName(name,
                       [&options](TemplateContext &context, const TemplateName &found) { return SetOptions(context, found, options); });
}

void XlsxTemplate::setValuesOutsideListsAllowed(bool allowed)
{
    d->takesValuesOutsideLists = allowed;
}

bool XlsxTemplate::setPicture(const QString &name, const QString &file, PictureFit fit)
{
    return d->DoWithPicture(name, [&](TemplateContext &context) {
        QByteArray image;
        const TemplateFault fault = ReadFile(file, image);
        return fault ? fault : PutPicture(context, name, image, fit);
    });
}

bool XlsxTemplate::setPicture(const QString &name, const QByteArray &image, PictureFit fit)
{
    return d->DoWithPicture(name, [&](TemplateContext &context) { return PutPicture(context, name, image, fit); });
}

bool XlsxTemplate::clear(const QString &name)
{
    return d->DoByName(name, [](TemplateContext &context, const TemplateName &found) { return ClearName(context, found); });
}

// --- Saving ---

bool XlsxTemplate::save(const QString &path)
{
    QByteArray package;
    const bool asTemplate =
        path.endsWith(QLatin1String(".xltx"), Qt::CaseInsensitive) || path.endsWith(QLatin1String(".xltm"), Qt::CaseInsensitive);
    if (!d->Done(d->Save(package, asTemplate)))
        return false;
    return d->Done(WriteFile(path, package));
}

QByteArray XlsxTemplate::save()
{
    QByteArray package;
    return d->Done(d->Save(package, false)) ? package : QByteArray();
}

XlsxTemplate::Error XlsxTemplate::error() const
{
    return d->fault.error;
}

QString XlsxTemplate::errorString() const
{
    return d->fault.text;
}

} // namespace Velmora
