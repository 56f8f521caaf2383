#include <mirelfrw7/core/label.h>
#include <mirelfrw7/items/saturating_int.h>

#include <mirelfrw7/layout/layout.h>
#include <mirelfrw7/layout/layout_manager.h>

#include <mirel7/image_list.h>
#include <mirel7/text_flow.h>

#include <algorithm>
#include <cstdint>

namespace mirelfrw7 {

using mirel7::IPainter;
using mirel7::point;
using mirel7::rectangle;
using mirel7::size;

char const DefaultDelimiters[] = " .\n";
char const HTMLDelimiters[] = " .\n<>";

namespace {

// A label may stand at the ends of int, and its image space may be as large as an int goes: the places of
// its parts are summed wide and brought back saturated.
using Wide = std::int64_t;

point<int> SaturatingPoint(point<double> const& p) {
    return {SaturatingInt(p.x), SaturatingInt(p.y)};
}

// Turns the painter's font for the label's orientation while it lives, and gives the caller's font back on
// every way out.
class CLabelFont {
public:
    CLabelFont(IPainter* painter, ILayout const& layout) : m_painter(painter), m_saved(painter->GetFont()) {
        mirel7::font turned = m_saved;
        layout.ConvFont(&turned);
        m_painter->SetFont(turned);
    }
    ~CLabelFont() { m_painter->SetFont(m_saved); }
    CLabelFont(CLabelFont const&) = delete;
    CLabelFont& operator=(CLabelFont const&) = delete;

private:
    IPainter* m_painter;
    mirel7::font m_saved;
};

// Where the parts of a label go. DrawLabel and LabelHitTest both take it from PlanLabel, so that a hit test
// finds what a paint put there.
struct SLabelPlan {
    // DrawLabel's answer before the image has its say: the text's rectangle, all zero without text.
    rectangle<int> result;
    bool hasText = false;
    rectangle<double> textRect;
    // An image was asked for and fits; it goes at `imagePlace`, truncated as the image list draws it.
    bool imageFits = false;
    point<int> imagePlace;
    size<int> imageSize;
};

// The height of one line of the painter's font across its text. The painter measures a turned text in
// screen axes, so for text running up or down the screen the height of its line is the box's width.
int LineHeight(IPainter* painter) {
    size<double> const w = painter->GetTextSize("W", 0, -1, true, true);
    return static_cast<int>(mirel7::STurn::FromTenths(painter->GetFont().extra).AlongY() ? w.cx : w.cy);
}

// Where the image goes across the label. Next to several lines of text, or to a line that does not fill
// the label's height, it follows the first line of the text, if the text is aligned across at all.
int ImageAcross(int flags, double acrossStart, int acrossExtent, int across, int textAlong, int textAcross,
                int lineHeight) {
    int const centred = SaturatingInt((acrossExtent - across) * 0.5 + 0.5 + acrossStart);
    if (textAlong == 0 || (Wide(lineHeight) >= textAcross && 2 * Wide(lineHeight) >= acrossExtent))
        return centred;
    Wide const start = SaturatingInt(acrossStart);
    Wide firstLine;
    if (flags & IPainter::AlignTop)
        firstLine = start;
    else if (flags & IPainter::AlignBottom)
        firstLine = start + acrossExtent - textAcross;
    else if (flags & IPainter::AlignVCenter)
        firstLine = start + (Wide(acrossExtent) - textAcross) / 2;
    else
        return centred;
    return SaturatingInt(firstLine + SaturatingInt((Wide(lineHeight) - across) * 0.5 + 0.5));
}

// Where the image starts along the label: before the text by `imageSpace`, wherever the text is aligned.
double ImageAlong(int flags, ILayout const& layout, rectangle<int> const& r, int alongExtent, int along,
                  int textAlong, int imageSpace) {
    // Along of int corners is a whole number, so the sums in double are exact.
    double const alongStart = layout.GetAlong(r.left, r.top);
    if (flags & IPainter::AlignLeft) return alongStart;
    if (flags & IPainter::AlignRight)
        return layout.GetAlong(r.right, r.bottom) - along - textAlong - (textAlong != 0 ? imageSpace : 0);
    if (flags & IPainter::AlignHCenter)
        return textAlong != 0 ? 0.5 + (Wide(alongExtent) - textAlong) / 2 + alongStart - imageSpace - along
                              : 0.5 + (Wide(alongExtent) - along) / 2 + alongStart;
    return 0;
}

// `measureText` keeps the text from being drawn, whatever `flags` say.
SLabelPlan PlanLabel(IPainter* painter, ILayout const& layout, rectangle<int> const& rect,
                     std::string const& text, int flags, bool measureText, int imageSpace,
                     mirel7::IImageList* images, int imageIndex, char const* delimiters,
                     IPainter::ITextFormatter* formatter) {
    SLabelPlan plan;
    // An inverted rectangle still has one pixel to offer.
    rectangle<int> const whole{rect.left, rect.top,
                               rect.right < rect.left ? SaturatingInt(Wide(rect.left) + 1) : rect.right,
                               rect.bottom < rect.top ? SaturatingInt(Wide(rect.top) + 1) : rect.bottom};
    rectangle<int> r = whole;

    // The text starts after the image and the space between them.
    int along = 0, across = 0;
    if (imageIndex != -1 && images) {
        plan.imageSize = images->GetImageSize(imageIndex);
        along = static_cast<int>(layout.GetAlong(plan.imageSize.cx, plan.imageSize.cy));
        across = static_cast<int>(layout.GetAcross(plan.imageSize.cx, plan.imageSize.cy));
        point<double> start(r.left, r.top);
        layout.IncAlong(&start, along);
        if (!text.empty()) layout.IncAlong(&start, imageSpace);
        r.left = SaturatingInt(start.x);
        r.top = SaturatingInt(start.y);
    }

    size<double> textSize;
    int textAlong = 0, lineHeight = 0;
    if (!text.empty()) {
        // Vertical layouts keep only the alignment bits: the measuring bit goes back in after them.
        int const textFlags = layout.ConvTextAlign(flags) | IPainter::ClipToRect |
                              (measureText ? IPainter::MeasureOnly : flags & IPainter::MeasureOnly);
        rectangle<double> const area(r);
        textSize = painter->DrawStringEx(area, text.c_str(), textFlags, -1, delimiters, formatter);
        plan.hasText = true;
        plan.textRect = painter->GetTextRect(area, textSize, textFlags);
        point<int> const topLeft = SaturatingPoint({plan.textRect.left, plan.textRect.top});
        point<int> const bottomRight = SaturatingPoint({plan.textRect.right, plan.textRect.bottom});
        plan.result = {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
        textAlong = static_cast<int>(layout.GetAlong(textSize.cx, textSize.cy));
        lineHeight = LineHeight(painter);
    }
    if (imageIndex == -1) return plan;

    // A left-aligned image, or one alone, is placed in the whole label; any other relative to the room
    // the text had.
    if ((flags & IPainter::AlignLeft) || textAlong == 0) r = whole;
    int const w = SaturatingInt(Wide(r.right) - r.left), h = SaturatingInt(Wide(r.bottom) - r.top);
    int const acrossExtent = static_cast<int>(layout.GetAcross(w, h));
    int const alongExtent = static_cast<int>(layout.GetAlong(w, h));
    if (across > acrossExtent || along > alongExtent) return plan;

    int const posAcross =
        ImageAcross(flags, layout.GetAcross(r.left, r.top), acrossExtent, across, textAlong,
                    static_cast<int>(layout.GetAcross(textSize.cx, textSize.cy)), lineHeight);
    // Never before the label's own start, even when the text fills it.
    double const posAlong = std::max(ImageAlong(flags, layout, r, alongExtent, along, textAlong, imageSpace),
                                     layout.GetAlong(rect.left, rect.top));
    plan.imageFits = true;
    plan.imagePlace = SaturatingPoint(layout.MakePoint(posAlong, posAcross));
    return plan;
}

ILayout const& LayoutOrTop(ILayout* layout) {
    return layout ? *layout : *CLayoutManager::GetLayout(AlignTop);
}

// The sign test: `v` lies between `a` and `b`, both included, in either order.
bool Between(double v, double a, double b) {
    auto const sign = [](double d) { return (d > 0) - (d < 0); };
    return sign(v - a) != sign(v - b);
}

} // namespace

rectangle<int> DrawLabel(IPainter* painter, rectangle<int> const& rect, std::string const& text, int flags,
                         int imageSpace, mirel7::IImageList* images, int imageIndex, ILayout* layout,
                         char const* delimiters, IPainter::ITextFormatter* formatter) {
    if (!painter) return {};
    ILayout const& l = LayoutOrTop(layout);
    CLabelFont const font(painter, l);
    SLabelPlan const plan = PlanLabel(painter, l, rect, text, flags, false, imageSpace, images, imageIndex,
                                      delimiters, formatter);
    rectangle<int> result = plan.result;
    if (!plan.imageFits || !images || imageIndex < 0) return result;

    point<int> const at = plan.imagePlace;
    if (!(flags & LabelMeasureOnly)) {
        if (flags & LabelDisabledImage)
            images->DrawDisabled(painter, imageIndex, at.x, at.y, 0, 0);
        else
            images->Draw(painter, imageIndex, at.x, at.y, 0, 0);
    }
    // A label with an image starts at the image, even when that stands right of the text. The image's
    // rectangle is in screen axes, whatever the layout.
    if (result.IsAllZero())
        result = {at.x, at.y, SaturatingInt(Wide(at.x) + plan.imageSize.cx),
                  SaturatingInt(Wide(at.y) + plan.imageSize.cy)};
    else
        result.left = at.x;
    return result;
}

int LabelHitTest(point<double> const& at, IPainter* painter, rectangle<int> const& rect,
                 std::string const& text, int flags, int imageSpace, mirel7::IImageList* images,
                 int imageIndex, ILayout* layout, char const* delimiters,
                 IPainter::ITextFormatter* formatter) {
    if (!painter) return LabelHitNothing;
    ILayout const& l = LayoutOrTop(layout);
    CLabelFont const font(painter, l);
    // Without a list there is no image to find, whatever the index says.
    SLabelPlan const plan = PlanLabel(painter, l, rect, text, flags, true, imageSpace, images,
                                      images ? imageIndex : -1, delimiters, formatter);
    int answer = LabelHitNothing;
    rectangle<double> const& t = plan.textRect;
    if (plan.hasText && Between(at.x, t.left, t.right) && Between(at.y, t.bottom, t.top))
        answer = LabelHitText;
    // The image's height plays no part: its hit area is a square as wide as the image.
    point<int> const p = plan.imagePlace;
    double const width = plan.imageSize.cx;
    if (plan.imageFits && Between(at.x, p.x, p.x + width) && Between(at.y, p.y, p.y + width))
        answer = LabelHitImage;
    return answer;
}

} // namespace mirelfrw7
