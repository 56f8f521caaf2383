#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

namespace mirel7 {

template <class T>
struct point {
    T x{}, y{};

    constexpr point() = default;
    constexpr point(T x_, T y_) : x(x_), y(y_) {}
    // Between int and double; double to int truncates, as every conversion in the framework does.
    template <class U>
    constexpr explicit point(point<U> const& p) : x(static_cast<T>(p.x)), y(static_cast<T>(p.y)) {}

    friend constexpr bool operator==(point const&, point const&) = default;
};

template <class T>
struct size {
    T cx{}, cy{};

    constexpr size() = default;
    constexpr size(T cx_, T cy_) : cx(cx_), cy(cy_) {}
    template <class U>
    constexpr explicit size(size<U> const& s) : cx(static_cast<T>(s.cx)), cy(static_cast<T>(s.cy)) {}

    friend constexpr bool operator==(size const&, size const&) = default;
};

template <class T>
struct range {
    T lower{}, upper{};

    constexpr range() = default;
    constexpr range(T lower_, T upper_) : lower(lower_), upper(upper_) {}

    friend constexpr bool operator==(range const&, range const&) = default;
};

// The rectangle of the framework, and the same four values in window pixels as a type of its own, so the
// two cannot be mixed up without saying so. Rectangles may be unnormalised (right left of left): mapped
// coordinate systems run backwards, and the callers normalise where it matters.
template <class T, class Tag>
struct basic_rectangle {
    T left{}, top{}, right{}, bottom{};

    constexpr basic_rectangle() = default;
    constexpr basic_rectangle(T l, T t, T r, T b) : left(l), top(t), right(r), bottom(b) {}
    template <class U, class OtherTag>
    constexpr explicit basic_rectangle(basic_rectangle<U, OtherTag> const& r)
        : left(static_cast<T>(r.left)), top(static_cast<T>(r.top)), right(static_cast<T>(r.right)),
          bottom(static_cast<T>(r.bottom)) {}

    constexpr T Width() const { return right - left; }
    constexpr T Height() const { return bottom - top; }
    constexpr bool IsAllZero() const { return left == T{} && top == T{} && right == T{} && bottom == T{}; }

    // Left not above right and top not above bottom.
    constexpr basic_rectangle Normalized() const {
        return {std::min(left, right), std::min(top, bottom), std::max(left, right), std::max(top, bottom)};
    }

    // The common part of both rectangles taken normalised; all zero when they do not meet. Rectangles that
    // only touch meet in a degenerate one.
    constexpr basic_rectangle Intersect(basic_rectangle const& other) const {
        basic_rectangle const a = Normalized(), b = other.Normalized();
        basic_rectangle const r{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                                std::min(a.bottom, b.bottom)};
        return r.left > r.right || r.top > r.bottom ? basic_rectangle{} : r;
    }

    friend constexpr bool operator==(basic_rectangle const&, basic_rectangle const&) = default;
};

struct rectangle_tag;
struct screen_rectangle_tag;

template <class T>
using rectangle = basic_rectangle<T, rectangle_tag>;
template <class T>
using screen_rectangle = basic_rectangle<T, screen_rectangle_tag>;

// A colour of four bytes and a flag for "no colour given". Equality looks at the bytes only, so the default
// colour (all bytes 0, flag set) equals _color(0, 0, 0, 0); the flag serves code that must know whether a
// colour was ever set.
struct _color {
    std::uint8_t r = 0, g = 0, b = 0, a = 0;
    bool empty = true;

    constexpr _color() = default;
    constexpr _color(std::uint8_t r_, std::uint8_t g_, std::uint8_t b_, std::uint8_t a_ = 255)
        : r(r_), g(g_), b(b_), a(a_), empty(false) {}

    // The plain colour word: red in byte 0, green in byte 1, blue in byte 2. 0xFFFFFFFF stands for no colour;
    // an opaque colour has byte 3 clear, so white (0x00FFFFFF) stays apart from it.
    static constexpr std::uint32_t NoColorWord = 0xFFFFFFFFu;
    static constexpr _color FromWord(std::uint32_t word) {
        if (word == NoColorWord) return {};
        return {static_cast<std::uint8_t>(word), static_cast<std::uint8_t>(word >> 8),
                static_cast<std::uint8_t>(word >> 16)};
    }
    constexpr std::uint32_t ToWord() const {
        return empty ? NoColorWord : std::uint32_t(r) | std::uint32_t(g) << 8 | std::uint32_t(b) << 16;
    }

    friend constexpr bool operator==(_color const& x, _color const& y) {
        return x.r == y.r && x.g == y.g && x.b == y.b && x.a == y.a;
    }
};

struct font {
    static constexpr int FamilyNotSet = 4;
    static constexpr int StyleBold = 1;
    static constexpr int StyleItalic = 2;
    static constexpr int StyleUnderline = 16;

    std::string face;
    int family = FamilyNotSet;
    int size = 0; // 0 or less takes the default size
    int style = 0;
    int extra = 0;
    double scale = 1.0;

    friend bool operator==(font const&, font const&) = default;
};

struct pen {
    enum PenStyle { None = 0, Solid = 1, Dash = 2, Dot = 3, DashDot = 4, DashDotDot = 5 };

    _color color;
    int width = 1;
    PenStyle style = Solid;
    int extra1 = 0;
    int extra2 = 0;

    friend constexpr bool operator==(pen const&, pen const&) = default;
};

struct brush {
    enum { Hollow = 0, Solid = 1 };

    _color color;
    int style = Solid;
    int extra[4] = {0, 0, 0, 0};

    friend constexpr bool operator==(brush const&, brush const&) = default;
};

// In this order so that ascent, descent and external leading (fields 1, 3 and 6) give the line height.
struct fontmetrics {
    int ascent = 0;
    int internalLeading = 0;
    int descent = 0;
    int averageWidth = 0;
    int maximumWidth = 0;
    int externalLeading = 0;

    friend constexpr bool operator==(fontmetrics const&, fontmetrics const&) = default;
};

} // namespace mirel7
