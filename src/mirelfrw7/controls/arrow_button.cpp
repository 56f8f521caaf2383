#include <mirelfrw7/controls/arrow_button.h>
#include <mirelfrw7/items/display_scale.h>

namespace mirelfrw7 {

CArrowButton::CArrowButton(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CButton(parent, elementSize, alignment), m_arrowSize(DisplayScaled(8)) {}

void CArrowButton::SetArrowType(ArrowType type) {
    if (type == m_arrowType) return;
    m_arrowType = type;
    Update(UpdateLocal);
}

void CArrowButton::SetArrowSize(int size) {
    ApplyDPIScale(size);
    if (size == m_arrowSize) return;
    m_arrowSize = size;
    Update(UpdateLocal);
}

void CArrowButton::DrawContent(IPainter* painter) {
    CButton::DrawContent(painter);
    rectangle<int> const r = GetInternalRect().Normalized();
    pen p = painter->GetPen();
    if (m_enabled) {
        p.color = GetFgColor();
        p.style = pen::Solid;
    }
    p.width = 2;
    painter->SetPen(p);
    if (r.Width() <= m_arrowSize || r.Height() <= m_arrowSize) return;
    switch (m_arrowType) {
    case ArrowLeft:
        DrawLeftArrow(painter, r);
        break;
    case ArrowTop:
        DrawTopArrow(painter, r);
        break;
    case ArrowRight:
        DrawRightArrow(painter, r);
        break;
    case ArrowBottom:
        DrawBottomArrow(painter, r);
        break;
    }
}

void CArrowButton::DrawLeftArrow(IPainter* painter, rectangle<int> const& r) {
    DrawChevrons(painter, r, true, false);
}
void CArrowButton::DrawTopArrow(IPainter* painter, rectangle<int> const& r) {
    DrawChevrons(painter, r, false, false);
}
void CArrowButton::DrawRightArrow(IPainter* painter, rectangle<int> const& r) {
    DrawChevrons(painter, r, true, true);
}
void CArrowButton::DrawBottomArrow(IPainter* painter, rectangle<int> const& r) {
    DrawChevrons(painter, r, false, true);
}

void CArrowButton::DrawChevrons(IPainter* painter, rectangle<int> const& r, bool horizontal, bool forward) {
    int const s = m_arrowSize;
    int const gap = static_cast<int>(4.0 * painter->GetDPIScale());
    int const dir = forward ? 1 : -1;
    int const alongLength = horizontal ? r.Width() : r.Height();
    int const acrossLength = horizontal ? r.Height() : r.Width();
    int const alongStart = horizontal ? (forward ? r.left : r.right) : (forward ? r.top : r.bottom);
    int const a0 = alongStart + dir * ((alongLength - s) / 2);
    int const c0 = (horizontal ? r.top : r.left) + (acrossLength - s) / 2;
    auto const to = [&](bool move, int a, int c) {
        double const x = horizontal ? a : c, y = horizontal ? c : a;
        if (move)
            painter->MoveTo(x, y);
        else
            painter->LineTo(x, y);
    };
    for (int a : {a0, a0 + dir * gap}) {
        to(true, a, c0);
        to(false, a + dir * (s / 2), c0 + s / 2);
        to(false, a, c0 + s);
    }
}

} // namespace mirelfrw7
