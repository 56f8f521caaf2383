#include <mirelfrw7/core/bk_fg_routine.h>

namespace mirelfrw7 {

namespace {

_color SystemColor(ISysPalette::SysColor index) {
    ISysPalette* const palette = mirel7::GetSysPalette();
    return (palette ? palette : mirel7::GetDefaultPalette())->GetColor(index);
}

_color OrSystem(_color const& color, ISysPalette::SysColor index) {
    return color.empty ? SystemColor(index) : color;
}

} // namespace

void SBkFgElement::ProcessFlashed() const {
    if (!element) return;
    element->SetFgColor(OrSystem(flashedFg, ISysPalette::ColorHighlightText));
    element->SetBkColor(OrSystem(flashedBk, ISysPalette::ColorHighlight));
}

void SBkFgElement::ProcessNormal() const {
    if (!element) return;
    element->SetFgColor(normalFg);
    element->SetBkColor(normalBk);
}

void CBkFgRoutine::AddElement(CVisualElement* element, _color const& fg, _color const& bk) {
    if (!element) return;
    m_elements.push_back({element, element->GetFgColor(), element->GetBkColor(), fg, bk});
}

} // namespace mirelfrw7
