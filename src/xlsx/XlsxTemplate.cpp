#include <Velmora/XlsxTemplate.h>

#include "xlsx/RowRepetition_p.h"
#include "xlsx/StaleResults_p.h"
#include "xlsx/TemplateContext_p.h"
#include "xlsx/TemplateLists_p.h"
#include "xlsx/TemplatePictures_p.h"

#include <QFile>

#include <utility>

namespace Velmora {

struct XlsxTemplate::Private
{
    bool takesValuesOutsideLists = false;
    TemplateFault fault;

    bool Fail(TemplateFault reason)
    {
        fault = std::move(reason);
        return !fault;
    }
    bool Refuse() { return Fail({Error::NotLoaded, QCoreApplication::translate("XlsxTemplate", "There is no template yet.")}); }
};

XlsxTemplate::XlsxTemplate()
    : d(std::make_unique<Private>())
{
}

XlsxTemplate::XlsxTemplate(XlsxTemplate &&other) noexcept = default;

XlsxTemplate &XlsxTemplate::operator=(XlsxTemplate &&other) noexcept = default;

XlsxTemplate::~XlsxTemplate() = default;

bool XlsxTemplate::load(const QString &)
{
    return d->Refuse();
}
bool XlsxTemplate::load(const QByteArray &)
{
    return d->Refuse();
}
QStringList XlsxTemplate::names() const
{
    return {};
}
XlsxTemplate::Kind XlsxTemplate::kindOf(const QString &) const
{
    return Kind::None;
}
bool XlsxTemplate::hasFormula(const QString &) const
{
    return false;
}
QString XlsxTemplate::unusableReason(const QString &) const
{
    return {};
}
QVariant XlsxTemplate::value(const QString &) const
{
    return {};
}
QStringList XlsxTemplate::options(const QString &) const
{
    return {};
}
QStringList XlsxTemplate::columnNames(const QString &) const
{
    return {};
}
bool XlsxTemplate::setValue(const QString &, const QVariant &)
{
    return d->Refuse();
}
bool XlsxTemplate::setFormula(const QString &, const QString &)
{
    return d->Refuse();
}
bool XlsxTemplate::setValues(const QString &, const QVector<QVariantList> &, Fitted *)
{
    return d->Refuse();
}
bool XlsxTemplate::setRows(const QString &, const QVector<QVariantList> &)
{
    return d->Refuse();
}
bool XlsxTemplate::setRows(const QString &, const QVector<QVariantHash> &)
{
    return d->Refuse();
}
bool XlsxTemplate::setOptions(const QString &, const QStringList &)
{
    return d->Refuse();
}
void XlsxTemplate::setValuesOutsideListsAllowed(bool allowed)
{
    d->takesValuesOutsideLists = allowed;
}
bool XlsxTemplate::setPicture(const QString &, const QString &, PictureFit)
{
    return d->Refuse();
}
bool XlsxTemplate::setPicture(const QString &, const QByteArray &, PictureFit)
{
    return d->Refuse();
}
bool XlsxTemplate::clear(const QString &)
{
    return d->Refuse();
}
bool XlsxTemplate::save(const QString &)
{
    return d->Refuse();
}
QByteArray XlsxTemplate::save()
{
    d->Refuse();
    return {};
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
