#pragma once

namespace antialiasing {

// A line end. Any other value is no cap.
enum CapStyle {
    CAP_NONE = 0,
    CAP_ARROW_NARROW = 1, // arrowhead of 12 degrees
    CAP_ARROW_WIDE = 2,   // arrowhead of 18 degrees
    CAP_ROUND_LINE = 3,   // disc as wide as the line
    CAP_ROUND_5 = 4,      // discs of diameter 5, 7 and 10
    CAP_ROUND_7 = 5,
    CAP_ROUND_10 = 6,
};

} // namespace antialiasing

namespace mirelfrw7 {
using antialiasing::CapStyle;
using enum antialiasing::CapStyle;
} // namespace mirelfrw7
