#include <mirelfrw7/core/clip_holder.h>
#include <mirelfrw7/core/label.h>
#include <mirelfrw7/header/delimiters.h>
#include <mirelfrw7/header/section_painting.h>
#include <mirelfrw7/header/sorting.h>
#include <mirelfrw7/items/display_scale.h>
#include <mirelfrw7/layout/layout.h>

#include <mirel7/border.h>
#include <mirel7/image_list.h>
#include <mirel7/palette.h>

namespace mirelfrw7::SectionPainting {

using mirel7::_color;
using mirel7::IPainter;
using mirel7::ISysPalette;
using mirel7::point;
using mirel7::rectangle;

namespace {

bool Vertical(ILayout const* layout) {
    return layout && layout->GetAlong(0, 1) != 0;
}

} // namespace

_color SystemColor(ISysPalette::SysColor index) {
    ISysPalette* const palette = mirel7::GetSysPalette();
    return palette ? palette->GetColor(index) : _color();
}

void Fill(IPainter* painter, _color const& color, rectangle<double> const& r) {
    mirel7::brush b;
    b.color = color;
    painter->SetBrush(b);
    painter->FillRect(r);
}

int MarkerPlace() {
    return DisplayScaled(15);
}

int Gap() {
    return DisplayScaled(3);
}

void DrawBackground(IPainter* painter, rectangle<double> const& rect, int state, int sorting, bool native,
                    bool disabled, ILayout const* layout) {
    if (rect.right < rect.left || rect.bottom < rect.top) return;
    if (native) {
        CClipHolder clip(painter, rect);
        rectangle<double> wide = rect;
        if (Vertical(layout)) {
            wide.top -= 4;
            wide.bottom += 4;
        } else {
            wide.left -= 4;
            wide.right += 4;
        }
        IPainter::ControlElement const piece = sorting == SortAscending    ? IPainter::ControlHeaderSortUp
                                               : sorting == SortDescending ? IPainter::ControlHeaderSortDown
                                                                           : IPainter::ControlHeaderSection;
        int const bits = (state == 1 ? IPainter::StateHot : 0) | (state == 3 ? IPainter::StatePressed : 0) |
                         (disabled ? IPainter::StateDisabled : 0);
        painter->DrawControlElement(piece, wide.left, wide.top, wide.right, wide.bottom, bits);
        return;
    }
    double const weight = state == 3 ? 0.3 : state == 1 ? 0.2 : 0.02;
    _color const back = SystemColor(ISysPalette::ColorElementBackground);
    _color const shade = SystemColor(ISysPalette::ColorShadow);
    _color const top = mirel7::MixColors(back, shade, weight);
    // The lower half darker, so that a section reads as raised.
    rectangle<double> upper = rect, lower = rect;
    upper.bottom = lower.top = rect.top + (rect.bottom - rect.top) / 2;
    lower.top += 1;
    Fill(painter, top, upper);
    Fill(painter, mirel7::MixColors(top, shade, weight * 0.4 + 0.04), lower);
    mirel7::DrawBorder(painter, rect, Vertical(layout) ? mirel7::BorderBottom : mirel7::BorderBottomRight,
                       mirel7::BorderFlat, false);
}

SContentParts SplitContent(rectangle<double> const& content, bool withMarker, ILayout const* layout) {
    SContentParts parts{content, {}};
    if (!withMarker) return parts;
    double const place = MarkerPlace();
    if (Vertical(layout)) {
        parts.caption.bottom = content.bottom - place;
        parts.marker = {(content.left + content.right) / 2, content.bottom - place / 2 + 1};
    } else {
        parts.caption.right = content.right - place;
        parts.marker = {content.right - place / 2 + 1, (content.top + content.bottom) / 2};
    }
    return parts;
}

void DrawCaption(IPainter* painter, rectangle<double> const& rect, std::string const& text, int align,
                 mirel7::IImageList* images, int image, bool disabled, ILayout* layout) {
    if (rect.right < rect.left || rect.bottom < rect.top) return;
    rectangle<int> const r(int(rect.left), int(rect.top), int(rect.right), int(rect.bottom));
    int const flags = align | IPainter::ClipToRect | (disabled ? LabelDisabledImage : 0);
    DrawLabel(painter, r, text, flags, Gap(), images, image, layout, GetDelimiters(false), nullptr);
}

void DrawSortingMarker(IPainter* painter, bool ascending, point<double> const& at) {
    double const half = (MarkerPlace() - 2 * Gap()) / 2.0;
    double const dy = ascending ? -half / 2 : half / 2;
    point<double> const corners[3] = {{at.x - half, at.y - dy}, {at.x + half, at.y - dy}, {at.x, at.y + dy}};
    mirel7::brush b;
    b.color = SystemColor(ISysPalette::ColorShadow);
    painter->SetBrush(b);
    painter->SetPen({b.color});
    painter->Polygon(corners, 3);
}

int ContentWidth(IPainter* painter, std::string const& text, mirel7::IImageList* images, int image) {
    int const textWidth = painter ? int(painter->GetTextSize(text, 0, -1, false).cx) : 0;
    int const imageWidth = images && image >= 0 ? images->GetImageSize(image).cx + Gap() : 0;
    return imageWidth + textWidth + Gap() + MarkerPlace();
}

} // namespace mirelfrw7::SectionPainting
