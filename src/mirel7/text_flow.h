#pragma once

#include <mirel7/export.h>
#include <mirel7/types.h>

#include <string_view>
#include <vector>

namespace mirel7 {

// What laying out text needs to know of the current font: device pixels, along the text's own axes.
class ITextMeasure {
public:
    virtual double LineWidth(std::string_view line) = 0;
    virtual double LineHeight() = 0;

protected:
    ~ITextMeasure() = default;
};

struct STextLine {
    std::string_view text;
    double width = 0;
    // From the start of the block along the text, after the line's own alignment.
    double offset = 0;
};

// A turn of text by a multiple of a tenth of a degree, counter-clockwise on the screen. Quarter turns are
// exact, so that text along a vertical edge measures exactly as it does horizontally.
struct MIREL7_API STurn {
    double cosine = 1, sine = 0;

    static STurn FromTenths(int tenths);
    bool IsNone() const { return sine == 0 && cosine == 1; }
    // Text running closer to the screen's y axis than to its x axis.
    bool AlongY() const;
    // The screen-axis bounding box of a block `extent` long along the text and high across it.
    size<double> BoundingBox(size<double> const& extent) const;
};

// A text laid out in one device rectangle. The lines stand in the text's own axes (a block `extent` wide
// and high); the block is turned by `angle` and its bounding box, `screenSize`, is aligned at `place`.
struct MIREL7_API STextBlock {
    std::vector<STextLine> lines;
    double lineHeight = 0;
    size<double> extent;
    size<double> screenSize;
    rectangle<double> area;
    rectangle<double> place;
    STurn turn;
    bool fits = true;

    // Where the top left of line `index` lands on the screen.
    point<double> LineOrigin(std::size_t index) const;
};

// The alignment bits put a box of `boxSize` inside `area`: horizontally right (2) before centre (4) before
// left, vertically bottom (16) before centre (32) before top.
MIREL7_API rectangle<double> AlignBox(rectangle<double> const& area, size<double> const& boxSize, int flags);

// Splits `text` at line feeds and, with delimiters, wraps it at them so that lines stay within `maxWidth`
// where a break allows it. A delimiter stays at the end of the line it closes; trailing blanks of a
// wrapped line and carriage returns are left out.
MIREL7_API std::vector<STextLine> BreakLines(std::string_view text, char const* delimiters, double maxWidth,
                                             ITextMeasure& measure);

// Lays out `text` in `area` (device pixels, normalised) under the alignment bits of `flags`, turned by
// `rotation` tenths of a degree. Wrapping runs against the rectangle's extent along the text.
MIREL7_API STextBlock FlowText(rectangle<double> const& area, std::string_view text, int flags,
                               char const* delimiters, int rotation, ITextMeasure& measure);

// The size of a text laid out in `lines` of the current font, in screen axes.
MIREL7_API size<double> TextExtent(std::vector<STextLine> const& lines, double lineHeight);

// The text of a call: `length` bytes, or up to the terminating zero when it is negative.
MIREL7_API std::string_view TextOf(char const* text, int length);

} // namespace mirel7
