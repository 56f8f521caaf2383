#pragma once

#include <mirelfrw7/antialiasing/cap_style.h>
#include <mirelfrw7/export.h>

#include <mirel7/painter.h>

namespace mirelfrw7 {

// Draws an antialiased line from `first` to `second` (logical coordinates of the painter) with its pen:
// colour, width, and style as the dash pattern. The pen's alpha times 0.85 is the weight of one sample, so
// that only the overlap of neighbouring samples makes the core of a line solid. The partial pixels blend
// over what the painter shows.
MIRELFRW7_API void DrawLine(mirel7::IPainter* painter, mirel7::point<double> const& first,
                            mirel7::point<double> const& second, CapStyle firstCap, CapStyle secondCap);

} // namespace mirelfrw7
