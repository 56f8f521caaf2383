#pragma once

#include <compare>
#include <cstdint>

namespace antialiasing {

// A whole pixel position. Every map and set of the rasteriser orders by x first and then y: iteration runs
// column by column, which the lock-step walks and the nearest-point search rely on.
struct tagPOINT {
    std::int32_t x = 0;
    std::int32_t y = 0;

    friend constexpr auto operator<=>(tagPOINT const&, tagPOINT const&) = default;
};

struct tagRECT {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    friend constexpr bool operator==(tagRECT const&, tagRECT const&) = default;
};

} // namespace antialiasing
