#pragma once

#include <mirelfrw7/core/visual_element.h>
#include <mirelfrw7/export.h>

#include <vector>

namespace mirelfrw7 {

// One element of a flashing group: the colours it showed when it joined, and those it flashes in.
struct MIRELFRW7_API SBkFgElement {
    CVisualElement* element = nullptr;
    _color normalFg;
    _color normalBk;
    _color flashedFg;
    _color flashedBk;

    // The flash colours; an empty one takes the system's highlight text (foreground) or highlight
    // (background) colour.
    void ProcessFlashed() const;
    // The colours saved when the element joined, set as explicit colours: the element stays bound to no
    // palette index afterwards, even when the system's colours changed in between.
    void ProcessNormal() const;
};

// Elements that flash their colours together. When and how often they flash is the caller's business.
class MIRELFRW7_API CBkFgRoutine {
public:
    // Saves the element's present colours; a null element is ignored, an element added twice is listed
    // twice.
    void AddElement(CVisualElement* element, _color const& fg, _color const& bk);
    std::vector<SBkFgElement> const& GetElements() const { return m_elements; }

private:
    std::vector<SBkFgElement> m_elements;
};

} // namespace mirelfrw7
