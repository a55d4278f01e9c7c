#pragma once

#include "xlsx/TemplateContext_p.h"

#include <QByteArray>
#include <QStringList>

namespace Velmora {

/// The names of all pictures in sheets, in the order of the sheets and their drawings, each once.
QStringList PictureNames(TemplateContext &context);
/// Found whatever its case, as defined names are.
bool HasPicture(TemplateContext &context, const QString &name);
/// Why the picture cannot be replaced, or empty: it is linked, say.
QString WhyPictureIsUnusable(TemplateContext &context, const QString &name);
/// The cells under the upper left corners of all pictures of that name, as formulas have them; nothing of those that lie in no cell.
QString PictureReference(TemplateContext &context, const QString &name);
/// The image of the first picture of that name.
QByteArray PictureImage(TemplateContext &context, const QString &name, TemplateFault &fault);
/// Nothing is changed if it fails.
TemplateFault SetPicture(TemplateContext &context, const QString &name, const QByteArray &image, XlsxTemplate::PictureFit fit);

} // namespace Velmora
