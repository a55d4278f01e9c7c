#pragma once

#include "xlsx/XmlPart_p.h"

namespace Velmora {

class TemplateSheet;

/// How wide the frame of a picture is for its height, before it is turned; 0 if that cannot be told. \a sheet is the one that it lies
/// in, or null.
double FrameProportion(const pugi::xml_node &picture, TemplateSheet *sheet);

/// Has the picture filled with its image: all of it, in the whole frame, or, for a \a frame and an \a image of these proportions, with as
/// much free on both sides as it takes to keep those of the image.
void FillFrame(const pugi::xml_node &picture, double frame, double image);

} // namespace Velmora
