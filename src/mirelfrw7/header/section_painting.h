#pragma once

#include <mirelfrw7/export.h>

#include <mirel7/painter.h>
#include <mirel7/types.h>

#include <string>

namespace mirel7 {
class IImageList;
}

namespace mirelfrw7 {

class ILayout;

// The look that both kinds of header give their sections. Rectangles are in the painter's coordinates with
// both ends inclusive; `layout` says which way the header runs (null: left to right). Metrics grow with the
// display scale.
namespace SectionPainting {

// A system palette colour; the empty colour without a palette.
MIRELFRW7_API mirel7::_color SystemColor(mirel7::ISysPalette::SysColor index);
// A solid fill in `color`.
MIRELFRW7_API void Fill(mirel7::IPainter* painter, mirel7::_color const& color,
                        mirel7::rectangle<double> const& rect);

// The place kept for the sorting marker at the section's end, and the gap between image, text and marker.
MIRELFRW7_API int MarkerPlace();
MIRELFRW7_API int Gap();

// `state`: 0 normal, 1 hot, 3 pressed (others draw as normal); `sorting` a SortingDirection. Natively, the
// piece is widened by 4 pixels along at both ends and clipped back to `rect`, so that the neighbours'
// borders stay hidden and the piece's divider lands on the section's end; the sorting arrow comes with it.
MIRELFRW7_API void DrawBackground(mirel7::IPainter* painter, mirel7::rectangle<double> const& rect, int state,
                                  int sorting, bool native, bool disabled, ILayout const* layout);

// The caption's rectangle in `content`, less the marker place at its end when `withMarker`; and the centre
// of that place.
struct SContentParts {
    mirel7::rectangle<double> caption;
    mirel7::point<double> marker;
};
MIRELFRW7_API SContentParts SplitContent(mirel7::rectangle<double> const& content, bool withMarker,
                                         ILayout const* layout);

// The image and the text, broken at the header word breaks and cut to the rectangle.
MIRELFRW7_API void DrawCaption(mirel7::IPainter* painter, mirel7::rectangle<double> const& rect,
                               std::string const& text, int align, mirel7::IImageList* images, int image,
                               bool disabled, ILayout* layout);

// A filled triangle pointing up for ascending, down otherwise, centred on `at`.
MIRELFRW7_API void DrawSortingMarker(mirel7::IPainter* painter, bool ascending,
                                     mirel7::point<double> const& at);

// Along the header: image, gap, text and the marker place.
MIRELFRW7_API int ContentWidth(mirel7::IPainter* painter, std::string const& text, mirel7::IImageList* images,
                               int image);

} // namespace SectionPainting
} // namespace mirelfrw7
