#pragma once

#include <mirelfrw7/core/visual_element.h>

namespace mirelfrw7 {

// Adds a transparent flag to an element class `T` (CVisualElement or one of its subclasses). A transparent
// element lets its parent show through: an update of it repaints the parent too (CVisualElement::OnChange),
// so the element need not cover its whole rectangle.
template <class T>
class CTransparentFlavor : public T {
public:
    using T::T;

    bool IsTransparent() const override { return m_transparent; }
    // A change repaints the element, and with the new flag in force the parent as well when it shows.
    void SetTransparent(bool transparent) {
        if (transparent == m_transparent) return;
        m_transparent = transparent;
        this->AttributeChanged();
    }

protected:
    bool m_transparent = false;
};

} // namespace mirelfrw7
