#include <mirelfrw7/core/palette_routine.h>

namespace mirelfrw7 {

IPaletteSupport::~IPaletteSupport() = default;

void SPaletteElement::ProcessFlashed() const {
    if (element) element->SetCustomPaletteEx(flashed);
}

void SPaletteElement::ProcessNormal() const {
    if (element) element->SetCustomPaletteEx(normal);
}

void CPaletteRoutine::AddElement(IPaletteSupport* element,
                                 mirel7::mirel_ptr<mirel7::ICustomPaletteEx> const& palette) {
    if (!element) return;
    m_elements.push_back({element, element->GetCustomPaletteEx(), palette});
}

} // namespace mirelfrw7
