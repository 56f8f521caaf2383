#include "swatch.h"

namespace gallery {

CSwatch::CSwatch(mirelfrw7::CVisualElement* parent, mirelfrw7::Alignment alignment,
                 mirel7::size<int> swatchSize, mirel7::_color color, std::string name)
    : CVisualElement(parent, swatchSize, alignment), m_name(std::move(name)) {
    SetBkColor(color);
}

void CSwatch::DrawContent(mirel7::IPainter* painter) {
    mirel7::rectangle<int> const b = GetBounds();
    painter->FillRect(b.left, b.top, b.right, b.bottom);
    mirel7::pen edge = painter->GetPen();
    edge.color = mirel7::_color(0, 0, 0, 255);
    painter->SetPen(edge);
    mirel7::brush hollow;
    hollow.style = mirel7::brush::Hollow;
    painter->SetBrush(hollow);
    painter->Rectangle(b.left, b.top, b.right, b.bottom);
    painter->SetTextColor(ContrastingText(GetBkColor()));
    painter->DrawString(mirel7::rectangle<double>(b.left + 3, b.top + 2, b.right - 3, b.bottom - 2), m_name,
                        mirel7::IPainter::AlignLeft | mirel7::IPainter::AlignTop |
                            mirel7::IPainter::ClipToRect);
}

CReport::CReport(mirelfrw7::CVisualElement* parent, std::string text)
    : CVisualElement(parent, {0, 28}, mirelfrw7::AlignBottom), m_text(std::move(text)) {
    SetBkColor(mirel7::_color(40, 44, 52));
    SetFgColor(mirel7::_color(230, 230, 230));
}

void CReport::Say(std::string text) {
    m_text = std::move(text);
    Update(mirelfrw7::UpdateLocal);
}

void CReport::DrawContent(mirel7::IPainter* painter) {
    mirel7::rectangle<int> const b = GetBounds();
    painter->FillRect(b.left, b.top, b.right, b.bottom);
    painter->DrawString(mirel7::rectangle<double>(b.left + 8, b.top, b.right, b.bottom), m_text,
                        mirel7::IPainter::AlignLeft | mirel7::IPainter::AlignVCenter);
}

mirel7::_color ContrastingText(mirel7::_color const& background) {
    int const luminance = (background.r * 299 + background.g * 587 + background.b * 114) / 1000;
    return luminance > 140 ? mirel7::_color(0, 0, 0) : mirel7::_color(255, 255, 255);
}

} // namespace gallery
