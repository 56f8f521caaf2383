#include <mirelfrw7/core/clip_holder.h>
#include <mirelfrw7/layout/bevel.h>

#include <mirelfrw7/layout/insets.h>
#include <optional>

#include <mirel7/custom_palette.h>

namespace mirelfrw7 {

namespace {
// The children dock inside the content rectangle: left where they were, they would cover the new frame or
// leave a gap to it until something else arranged the bevel.
void Redock(CBevel* bevel) {
    bevel->OnChange(bevel, UpdateLocal);
    bevel->SetPos(bevel->GetPosition(), true);
}
} // namespace

CBevel::CBevel(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CVisualElement(parent, elementSize, alignment) {}

void CBevel::SetStyle(BorderStyle style) {
    if (style == m_style) return;
    m_style = style;
    OnChange(this, UpdateLocal);
}

void CBevel::SetShape(BorderShape shape) {
    if (shape == m_shape) return;
    m_shape = shape;
    OnChange(this, UpdateLocal);
}

void CBevel::SetOffset(rectangle<int> const& offset) {
    if (offset == m_offset) return;
    m_offset = offset;
    Redock(this);
}

void CBevel::SetContentOffset(rectangle<int> offset) {
    if (offset == m_contentOffset) return;
    m_contentOffset = offset;
    Redock(this);
}

rectangle<double> CBevel::GetBevelRect() const {
    return rectangle<double>(Inset(GetBounds().Normalized(), m_offset));
}

rectangle<int> CBevel::GetContentRect() const {
    return Inset(rectangle<int>(GetBevelRect()).Normalized(), m_contentOffset);
}

void CBevel::DrawBackground(IPainter* painter) {
    painter->FillRect(rectangle<double>(GetBounds()));
}

void CBevel::DrawContent(IPainter* painter) {
    DrawBackground(painter);
    if (m_shape >= mirel7::BorderNone) return;
    // The shades of the frame derive from the element's own colour where it is not the usual one.
    _color const background = GetBkColor();
    ISysPalette const* const system = mirel7::GetSysPalette();
    _color const usual =
        (system ? system : mirel7::GetDefaultPalette())->GetColor(ISysPalette::ColorElementBackground);
    bool const custom = background != usual;
    if (custom) painter->SetCustomPalette(mirel7::CreateCustomPalette(background));
    rectangle<int> const frame(GetBevelRect());
    {
        // An offset past the bevel's size turns the frame inside out, and the border drawing, which takes it
        // the right way round, would paint beyond the element, where only a full repaint covers it again.
        std::optional<CClipHolder> within;
        if (frame.left > frame.right || frame.top > frame.bottom)
            within.emplace(painter, rectangle<double>(GetBounds()));
        mirel7::DrawBorder(painter, rectangle<double>(frame), m_shape, m_style, true);
    }
    if (custom) painter->SetCustomPalette(nullptr);
}

bool CBorder::IsTransparent() const {
    return true;
}

void CBorder::DrawContent(IPainter* painter) {
    if (m_transparent) return;
    rectangle<double> const saved = painter->GetClipRect();
    rectangle<int> const content = GetContentRect();
    painter->SetClipRect(content.left, content.top, content.right, content.bottom, true);
    CBevel::DrawContent(painter);
    painter->ResetClip();
    if (!saved.IsAllZero()) painter->SimpleSetClipRect(saved, false);
}

} // namespace mirelfrw7
