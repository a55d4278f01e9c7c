#pragma once

#include "xlsx/TemplateSheet_p.h"

#include <functional>
#include <utility>
#include <vector>

namespace Velmora {

/// How wide the columns of a sheet are and how high its rows, together.
class CellExtents
{
public:
    explicit CellExtents(const TemplateSheet &sheet);

    double WidthOfFirst(int columns) const;
    double HeightOfFirst(int rows) const;

private:
    std::vector<double> m_widths; ///< of so many columns
    double m_usualHeight = 0;
    std::vector<std::pair<int, double>> m_changes; ///< by row: how much more all rows to there take than so many usual ones
};

/// How wide the frame of a picture is for its height, before it is turned; 0 if that cannot be told. \a extents are asked for if they are
/// needed, and may be null.
double FrameProportion(const pugi::xml_node &picture, const std::function<const CellExtents *()> &extents);

/// Has the picture filled with its image: all of it, in the whole frame, or, for a \a frame and an \a image of these proportions, with as
/// much free on both sides as it takes to keep those of the image.
void FillFrame(const pugi::xml_node &picture, double frame, double image);

} // namespace Velmora
