#pragma once

#include <mirelfrw7/export.h>

#include <mirel7/base.h>
#include <mirel7/custom_palette.h>

#include <vector>

namespace mirelfrw7 {

// An element whose colours come from a custom palette of its own, which can be exchanged.
class MIRELFRW7_API IPaletteSupport {
public:
    virtual ~IPaletteSupport();
    virtual void SetCustomPaletteEx(mirel7::mirel_ptr<mirel7::ICustomPaletteEx> const& palette) = 0;
    virtual mirel7::mirel_ptr<mirel7::ICustomPaletteEx> GetCustomPaletteEx() const = 0;
};

// One element of a flashing group: the palette it had when it joined, and the one it flashes in.
struct MIRELFRW7_API SPaletteElement {
    IPaletteSupport* element = nullptr;
    mirel7::mirel_ptr<mirel7::ICustomPaletteEx> normal;
    mirel7::mirel_ptr<mirel7::ICustomPaletteEx> flashed;

    void ProcessFlashed() const;
    void ProcessNormal() const;
};

// Elements that flash their palettes together. When and how often they flash is the caller's business.
class MIRELFRW7_API CPaletteRoutine {
public:
    // Keeps the element's present palette; a null element is ignored.
    void AddElement(IPaletteSupport* element, mirel7::mirel_ptr<mirel7::ICustomPaletteEx> const& palette);
    std::vector<SPaletteElement> const& GetElements() const { return m_elements; }

private:
    std::vector<SPaletteElement> m_elements;
};

} // namespace mirelfrw7
