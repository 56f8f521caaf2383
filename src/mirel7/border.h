#pragma once

#include <mirel7/export.h>
#include <mirel7/types.h>

namespace mirel7 {

class IPainter;

// Which edges of its rectangle a border draws.
enum BorderShape {
    // All four edges.
    BorderBox = 0,
    // All four edges with the outer corner pixels left out, which reads as slightly rounded.
    BorderSoftBox = 1,
    // One edge: under, over, left of or right of what it borders.
    BorderBottom = 2,
    BorderTop = 3,
    BorderLeft = 4,
    BorderRight = 5,
    // The bottom and right edges, which part cells and sections from their neighbours.
    BorderBottomRight = 6,
    // This and every value above draw nothing.
    BorderNone = 7,
};

// How the edges shade. Flat is one line in the shadow colour. Raised and sunken are two lines deep: raised
// is light on top and left and dark below and right, sunken (which also shows a pressed button) the
// other way round. Values above sunken draw flat.
enum BorderStyle {
    BorderFlat = 0,
    BorderRaised = 1,
    BorderSunken = 2,
};

// Draws the edges of `shape` around the pixels of `rect` (both ends inclusive, as FillRect takes them), and
// with `fill` the inside in the element background colour. Lines are one pixel wide per whole step of the
// painter's display scale. The colours come from the painter's custom palette when it has one, else from
// the system palette; the painter's brush is left as it was.
MIREL7_API void DrawBorder(IPainter* painter, rectangle<double> const& rect, BorderShape shape,
                           BorderStyle style, bool fill);

} // namespace mirel7
