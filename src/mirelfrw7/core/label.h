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

// Flags of a label beyond IPainter::AlignmentFlags.
enum LabelFlags {
    // Measures: neither the text nor the image is drawn, and the answer is the same.
    LabelMeasureOnly = mirel7::IPainter::MeasureOnly,
    // Draws the image greyed.
    LabelDisabledImage = 0x2000,
};

// What LabelHitTest finds under a point.
enum LabelHit { LabelHitNothing = 0, LabelHitImage = 1, LabelHitText = 2 };

// Draws an optional image (`imageIndex` of `images`, -1 for none) and a text in `rect`, `imageSpace` pixels
// apart, and answers the rectangle they took. The geometry is written along and across a strip and `layout`
// turns it for any edge; null stands for the top edge. The image is placed by the text's alignment: before
// the text, centred across the label or on the first of several lines; an image that does not fit is left
// out whole. The painter's font is the same after as before.
MIRELFRW7_API mirel7::rectangle<int> DrawLabel(mirel7::IPainter* painter, mirel7::rectangle<int> const& rect,
                                               std::string const& text, int flags, int imageSpace,
                                               mirel7::IImageList* images, int imageIndex, ILayout* layout,
                                               char const* delimiters,
                                               mirel7::IPainter::ITextFormatter* formatter);

// What DrawLabel with the same arguments put under `at`: a LabelHit. The image's hit area is a square as
// wide as the image, whatever its height.
MIRELFRW7_API int LabelHitTest(mirel7::point<double> const& at, mirel7::IPainter* painter,
                               mirel7::rectangle<int> const& rect, std::string const& text, int flags,
                               int imageSpace, mirel7::IImageList* images, int imageIndex, ILayout* layout,
                               char const* delimiters, mirel7::IPainter::ITextFormatter* formatter);

// The word breaks of labels: plain text breaks at blanks, full stops and line feeds, HTML-like text at its
// tags as well.
MIRELFRW7_API extern char const DefaultDelimiters[];
MIRELFRW7_API extern char const HTMLDelimiters[];

} // namespace mirelfrw7
