#pragma once

#include <mirelfrw7/export.h>

#include <cstdint>

namespace antialiasing {

struct CColorInfoR;

// One pixel's accumulated state: premultiplied colour sums and coverage (255 is full, and sums may run past
// it). As a source colour, r, g and b are plain 0..255 channels and a is not read by the adding operations.
struct MIRELFRW7_API CColorInfo {
    std::uint32_t r = 0;
    std::uint32_t g = 0;
    std::uint32_t b = 0;
    std::uint32_t a = 0;
    // The side of the outline set by Classify: 0 not classified, 1 inner edge, 2 outer edge, 3 both or
    // neither.
    std::uint32_t part = 0;

    // One gradient step. Each channel ends within 0..255: round caps walk past the gradient's ends.
    CColorInfo& operator+=(CColorInfoR& step);
    // Sums the channels of a later add into this pixel; the side stays.
    CColorInfo& operator+=(CColorInfo const& add) {
        r += add.r;
        g += add.g;
        b += add.b;
        a += add.a;
        return *this;
    }

    friend constexpr bool operator==(CColorInfo const&, CColorInfo const&) = default;
};

// The fractional stepper of a gradient: increments per step, then what is left over of each channel, so
// that a slow gradient stays exact over thousands of steps and negative increments work.
struct CColorInfoR {
    double r = 0, g = 0, b = 0, a = 0;
    double restR = 0, restG = 0, restB = 0, restA = 0;
};

} // namespace antialiasing
