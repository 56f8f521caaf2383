#include <mirelfrw7/items/saturating_int.h>
#include <mirelfrw7/scroll/axis_mapping.h>
#include <mirelfrw7/scroll/scroll_converter.h>
#include <mirelfrw7/scroll/scroll_model.h>
#include <mirelfrw7/scroll/scrollable_element_ex.h>

#include <cstdint>

namespace mirelfrw7 {

namespace {

// Across the strip: pixels growing away from the central pane, which lies after a top or left strip.
void FillAcross(SAxis axis, bool paneAfter) {
    std::int64_t const thickness = std::int64_t(axis.high) - axis.low;
    axis.logicalOrigin = 0;
    axis.logicalExtent = double(thickness);
    axis.extent = SaturatingInt(paneAfter ? -thickness : thickness);
    axis.origin = axis.extent < 0 ? axis.high : axis.low;
}

} // namespace

CScrollableElementEx::CScrollableElementEx(CVisualElement* parent, size<int> const& elementSize,
                                           Alignment alignment)
    : CScrollableElement(parent, elementSize, alignment) {
    ChangeLayout(alignment);
}

void CScrollableElementEx::SetAlignment(Alignment alignment) {
    ChangeLayout(alignment);
    CScrollableElement::SetAlignment(alignment);
}

IScrollModel* CScrollableElementEx::GetScrollModel() const {
    switch (GetAlignment()) {
    case AlignLeft:
    case AlignRight:
        return m_vertScroll;
    case AlignTop:
    case AlignBottom:
        return m_horzScroll;
    default:
        return nullptr;
    }
}

rectangle<double> CScrollableElementEx::GetAxisRect(IPainter* painter) const {
    rectangle<int> own = GetContentRect();
    // Without a pane the central rectangle is all zero, which leaves the strip nothing along it to draw on.
    rectangle<int> central = GetCentralRect();
    ControlToElement(&central);
    CutRect(&own, central);
    ElementToControl(&own);
    rectangle<double> r(own);
    if (painter) painter->DeconvertCoord2(&r, false);
    return r;
}

void CScrollableElementEx::FillHorizontal(IPainter::CoordInfo* info, IScrollModel* model) {
    if (!info || !model) return;
    rectangle<int> const r = Truncated(GetAxisRect(nullptr));
    FillAlong({info->left, info->width, info->x, info->cx, r.left, r.right}, *model);
    FillAcross({info->top, info->height, info->y, info->cy, r.top, r.bottom}, GetAlignment() == AlignTop);
}

void CScrollableElementEx::FillVertical(IPainter::CoordInfo* info, IScrollModel* model) {
    if (!info || !model) return;
    rectangle<int> const r = Truncated(GetAxisRect(nullptr));
    FillAlong({info->top, info->height, info->y, info->cy, r.top, r.bottom}, *model);
    FillAcross({info->left, info->width, info->x, info->cx, r.left, r.right}, GetAlignment() == AlignLeft);
}

void CScrollableElementEx::SetCoordSystem(IPainter* painter) {
    if (!painter) return;
    IPainter::MapMode mode;
    IPainter::CoordInfo info;
    painter->GetCoordSystem(mode, &info);
    if (IScrollModel* const model = GetScrollModel(); model && m_control) {
        // The mapping is whole, in control coordinates: it applies even where the element was drawn in
        // device pixels, as the control's content is on a full repaint.
        mode = IPainter::MapElement;
        if (GetAlignment() == AlignTop || GetAlignment() == AlignBottom)
            FillHorizontal(&info, model);
        else
            FillVertical(&info, model);
    }
    painter->SetCoordSystem(mode, &info);
}

} // namespace mirelfrw7
