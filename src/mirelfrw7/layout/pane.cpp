#include <mirelfrw7/layout/insets.h>
#include <mirelfrw7/layout/pane.h>

namespace mirelfrw7 {

CPane::CPane(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CVisualElement(parent, elementSize, alignment) {}

_color CPane::GetActiveColor() const {
    ISysPalette const* const palette = mirel7::GetSysPalette();
    return palette ? palette->GetColor(ISysPalette::ColorHighlight) : _color();
}

_color CPane::GetInactiveColor() const {
    ISysPalette const* const palette = mirel7::GetSysPalette();
    return palette ? palette->GetColor(ISysPalette::ColorShadow) : _color();
}

rectangle<int> CPane::GetContentRect() const {
    return Inset(GetBounds().Normalized(), {1, 1, 1, 1});
}

void CPane::DrawContent(IPainter* painter) {
    if (!mirel7::GetSysPalette()) return;
    rectangle<int> const b = GetBounds();
    painter->FillRect(b.left, b.top, b.right, b.bottom);
    pen frame;
    frame.color = m_active ? GetActiveColor() : GetInactiveColor();
    painter->SetPen(frame);
    // An outline only: inside stays the element's own background, filled above in OnDraw's brush.
    brush hollow;
    hollow.style = brush::Hollow;
    painter->SetBrush(hollow);
    painter->Rectangle(b.left, b.top, b.right, b.bottom);
}

void CPane::HandleChildFocusChanged(CVisualElement*, CVisualElement* other, bool gained) {
    if (IsAncestor(other, this) || gained == m_active) return;
    m_active = gained;
    Update(UpdateLocal);
}

} // namespace mirelfrw7
