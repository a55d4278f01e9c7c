#include "xlsx/TemplatePictures_p.h"

namespace Velmora {

QStringList PictureNames(TemplateContext &)
{
    return {};
}

bool HasPicture(TemplateContext &, const QString &)
{
    return false;
}

QString WhyPictureIsUnusable(TemplateContext &, const QString &)
{
    return {};
}

QByteArray PictureImage(TemplateContext &, const QString &)
{
    return {};
}

TemplateFault SetPicture(TemplateContext &, const QString &, const QByteArray &, XlsxTemplate::PictureFit)
{
    return {XlsxTemplate::Error::ObstacleError, QCoreApplication::translate("XlsxTemplate", "Pictures cannot be set yet.")};
}

} // namespace Velmora
