#pragma once

#include <mirel7/base.h>
#include <mirel7/export.h>
#include <mirel7/types.h>

namespace mirel7 {

// The colours of the desktop, by role.
class MIREL7_API ISysPalette {
public:
    enum SysColor {
        ColorScrollBar = 0,
        ColorBorder = 1,
        ColorActiveCaption = 2,
        ColorElementBackground = 3,
        ColorWindowBackground = 4,
        ColorWindowText = 5,
        ColorShadow = 6,
        ColorLight = 7,
        ColorElementForeground = 8,
        ColorHighlight = 9,
        ColorHighlightText = 10,
        ColorGrayText = 11,
        ColorInfoBackground = 12,
        ColorInfoText = 13,
        // Not a colour: an element with this index uses a colour of its own.
        ColorNone = 14,
        ColorDarkShadow = 15,
        ColorHotLight = 16,
        ColorInactiveCaption = 17,
        SysColorCount = 18,
    };

    virtual ~ISysPalette();
    // The empty colour for ColorNone and for indices outside the table.
    virtual _color GetColor(SysColor index) const = 0;
};

// The colours of one element, where they differ from the system's.
class MIREL7_API ICustomPalette : public CBase {
public:
    virtual _color GetColor(ISysPalette::SysColor index) const = 0;
};

// `from` moved towards `to` by `amount`, 0 keeping `from` and 1 giving `to`, per channel and rounded; opaque.
inline _color MixColors(_color const& from, _color const& to, double amount) {
    auto const channel = [amount](std::uint8_t a, std::uint8_t b) {
        return static_cast<std::uint8_t>(a + (b - a) * amount + 0.5);
    };
    return {channel(from.r, to.r), channel(from.g, to.g), channel(from.b, to.b)};
}

// The palette of the current system; null without one.
MIREL7_API ISysPalette* GetSysPalette();
// The built-in light palette, which systems start with.
MIREL7_API ISysPalette* GetDefaultPalette();

} // namespace mirel7
