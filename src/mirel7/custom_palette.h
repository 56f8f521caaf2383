#pragma once

#include <mirel7/base.h>
#include <mirel7/export.h>
#include <mirel7/palette.h>

namespace mirel7 {

// A palette of one element that can be changed: the colours it was given, the current system's colours
// for the rest, so that it follows a change of the system's colours wherever it was not told otherwise.
class MIREL7_API ICustomPaletteEx : public ICustomPalette {
public:
    // Gives `index` a colour of its own; an empty colour hands it back to the system palette. Indices
    // outside the table and ColorNone are ignored.
    virtual void SetColor(ISysPalette::SysColor index, _color const& color) = 0;
};

// A new palette that answers the system's colours until it is told otherwise.
MIREL7_API mirel_ptr<ICustomPaletteEx> CreateCustomPalette();
// A palette for an element of the background `face`: the face and the shades that a border drawn on it
// needs (light, shadow, dark shadow) derived from it; the system's colours for the rest.
MIREL7_API mirel_ptr<ICustomPaletteEx> CreateCustomPalette(_color const& face);

} // namespace mirel7
