#pragma once

#include <climits>
#include <cmath>
#include <cstdint>
#include <type_traits>

namespace mirelfrw7 {

// Pixel and index arithmetic is done wide and brought back to int here: the same value when it fits, the
// nearest end of the int range when it does not. A bare cast of an out-of-range double is undefined, and
// item counts times item sizes overflow int long before they overflow 64 bits.
template <class T>
requires std::is_integral_v<T>
int SaturatingInt(T value) {
    auto const wide = static_cast<std::int64_t>(value);
    return wide > INT_MAX ? INT_MAX : wide < INT_MIN ? INT_MIN : static_cast<int>(wide);
}

// Truncates towards zero like a cast; NaN counts as 0.
inline int SaturatingInt(double value) {
    if (std::isnan(value)) return 0;
    if (value >= 2147483647.0) return INT_MAX;
    if (value <= -2147483648.0) return INT_MIN;
    return static_cast<int>(value);
}

} // namespace mirelfrw7
