#include <mirel7/painter.h>
#include <mirel7/text_flow.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

namespace mirel7 {

namespace {

// Where a box goes along one screen axis: 0 start, 1 centre, 2 end.
int HorizontalPlacement(int flags) {
    if (flags & IPainter::AlignRight) return 2;
    if (flags & IPainter::AlignHCenter) return 1;
    return 0;
}

int VerticalPlacement(int flags) {
    if (flags & IPainter::AlignBottom) return 2;
    if (flags & IPainter::AlignVCenter) return 1;
    return 0;
}

double Place(double start, double extent, double boxExtent, int placement) {
    return start + (extent - boxExtent) * placement / 2;
}

std::string_view TrimBlanks(std::string_view s) {
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r'))
        s.remove_suffix(1);
    return s;
}

std::size_t PieceEnd(std::string_view paragraph, char const* delimiters, std::size_t from) {
    return std::min(paragraph.find_first_of(delimiters, from), paragraph.size() - 1) + 1;
}

// Each line takes its first piece and then as many more as fit. Measuring the line after every piece would
// cost the square of its length; instead the count of pieces tried doubles until the line overflows and is
// then halved back, so a line costs a few measurements of about its own length. Widths grow with the
// pieces, so this finds the break that trying piece after piece would.
void WrapParagraph(std::string_view paragraph, char const* delimiters, double maxWidth, ITextMeasure& measure,
                   std::vector<STextLine>& lines) {
    if (paragraph.empty()) {
        lines.push_back({paragraph, measure.LineWidth(paragraph)});
        return;
    }
    std::vector<std::size_t> ends; // where the pieces of the line end, as far as they were looked at
    for (std::size_t lineStart = 0; lineStart < paragraph.size();) {
        auto const lineTo = [&](std::size_t piece) {
            return TrimBlanks(paragraph.substr(lineStart, ends[piece] - lineStart));
        };
        ends.assign(1, PieceEnd(paragraph, delimiters, lineStart));
        std::size_t fit = 0, over = 0; // the last piece known to fit, the first known not to (0: none yet)
        double fitWidth = -1;
        auto const tryPiece = [&](std::size_t piece) {
            double const width = measure.LineWidth(lineTo(piece));
            if (width > maxWidth) {
                over = piece;
            } else {
                fit = piece;
                fitWidth = width;
            }
        };
        for (std::size_t step = 1; over == 0; step *= 2) {
            while (ends.size() <= fit + step && ends.back() < paragraph.size())
                ends.push_back(PieceEnd(paragraph, delimiters, ends.back()));
            std::size_t const piece = std::min(fit + step, ends.size() - 1);
            if (piece == fit) break; // the paragraph ends on the line
            tryPiece(piece);
        }
        while (over > fit + 1)
            tryPiece((fit + over) / 2);
        if (fitWidth < 0) fitWidth = measure.LineWidth(lineTo(fit));
        lines.push_back({lineTo(fit), fitWidth});
        lineStart = ends[fit];
    }
}

} // namespace

std::string_view TextOf(char const* text, int length) {
    if (!text) return {};
    return length < 0 ? std::string_view(text) : std::string_view(text, strnlen(text, std::size_t(length)));
}

STurn STurn::FromTenths(int tenths) {
    tenths = ((tenths % 3600) + 3600) % 3600;
    if (tenths % 900 == 0) {
        static constexpr double cosines[] = {1, 0, -1, 0};
        return {cosines[tenths / 900], cosines[(tenths / 900 + 3) % 4]};
    }
    double const radians = tenths / 10.0 * std::numbers::pi / 180;
    return {std::cos(radians), std::sin(radians)};
}

bool STurn::AlongY() const {
    return std::abs(sine) > std::abs(cosine);
}

size<double> STurn::BoundingBox(size<double> const& extent) const {
    double const c = std::abs(cosine), s = std::abs(sine);
    return {extent.cx * c + extent.cy * s, extent.cx * s + extent.cy * c};
}

point<double> STextBlock::LineOrigin(std::size_t index) const {
    double const u = -extent.cx / 2 + lines[index].offset;
    double const v = -extent.cy / 2 + lineHeight * static_cast<double>(index);
    double const cx = (place.left + place.right) / 2, cy = (place.top + place.bottom) / 2;
    return {cx + u * turn.cosine + v * turn.sine, cy - u * turn.sine + v * turn.cosine};
}

size<double> TextExtent(std::vector<STextLine> const& lines, double lineHeight) {
    double width = 0;
    for (STextLine const& line : lines)
        width = std::max(width, line.width);
    return {width, lineHeight * static_cast<double>(lines.size())};
}

rectangle<double> AlignBox(rectangle<double> const& area, size<double> const& boxSize, int flags) {
    double const left = Place(area.left, area.Width(), boxSize.cx, HorizontalPlacement(flags));
    double const top = Place(area.top, area.Height(), boxSize.cy, VerticalPlacement(flags));
    return {left, top, left + boxSize.cx, top + boxSize.cy};
}

std::vector<STextLine> BreakLines(std::string_view text, char const* delimiters, double maxWidth,
                                  ITextMeasure& measure) {
    std::vector<STextLine> lines;
    bool const wrap = delimiters && *delimiters;
    for (std::size_t start = 0;;) {
        std::size_t const end = std::min(text.find('\n', start), text.size());
        std::string_view const paragraph = text.substr(start, end - start);
        if (wrap) {
            WrapParagraph(paragraph, delimiters, maxWidth, measure, lines);
        } else {
            std::string_view const line =
                paragraph.ends_with('\r') ? paragraph.substr(0, paragraph.size() - 1) : paragraph;
            lines.push_back({line, measure.LineWidth(line)});
        }
        if (end == text.size()) break;
        start = end + 1;
    }
    return lines;
}

STextBlock FlowText(rectangle<double> const& area, std::string_view text, int flags, char const* delimiters,
                    int rotation, ITextMeasure& measure) {
    STextBlock block;
    block.area = area;
    block.turn = STurn::FromTenths(rotation);
    bool const alongY = block.turn.AlongY();
    if (!text.empty()) {
        block.lineHeight = measure.LineHeight();
        block.lines = BreakLines(text, delimiters, alongY ? area.Height() : area.Width(), measure);
    }
    block.extent = TextExtent(block.lines, block.lineHeight);

    // Lines align along the text the way the flags align along the screen axis that the text follows,
    // reversed when the text runs against that axis.
    int placement = alongY ? VerticalPlacement(flags) : HorizontalPlacement(flags);
    if (alongY ? block.turn.sine > 0 : block.turn.cosine < 0) placement = 2 - placement;
    for (STextLine& line : block.lines)
        line.offset = std::round((block.extent.cx - line.width) * placement / 2);

    block.screenSize = block.turn.BoundingBox(block.extent);
    rectangle<double> const aligned = AlignBox(area, block.screenSize, flags);
    // Whole pixels keep glyphs as crisp as the font's hinting made them.
    double const left = std::round(aligned.left), top = std::round(aligned.top);
    block.place = {left, top, left + block.screenSize.cx, top + block.screenSize.cy};

    constexpr double tolerance = 0.01;
    block.fits =
        block.screenSize.cx <= area.Width() + tolerance && block.screenSize.cy <= area.Height() + tolerance;
    return block;
}

} // namespace mirel7
