#include <mirelfrw7/antialiasing/contour.h>

#include <mirelfrw7/items/saturating_int.h>

#include <mirel7/assert.h>

#include <cmath>
#include <cstdlib>

namespace antialiasing {

namespace {
constexpr unsigned long NoColor = 0xFFFFFFFFul;
constexpr unsigned long MidGrey = 0x808080ul;

// A product truncated toward zero before it is summed; the integer sums wrap like the channels.
std::uint32_t Truncated(double product) {
    return std::uint32_t(mirelfrw7::SaturatingInt(product));
}

void Extend(tagRECT& bounds, int x0, int y0, int x1, int y1) {
    bounds.left = std::min(bounds.left, x0);
    bounds.right = std::max(bounds.right, x1);
    bounds.top = std::min(bounds.top, y0);
    bounds.bottom = std::max(bounds.bottom, y1);
}

double Law(double squared, unsigned long law) {
    switch (law) {
    case 0:
        return std::pow(squared, 0.75);
    case 1:
        return std::sqrt(squared);
    default:
        return squared;
    }
}

// The row of a mask that holds pixel row `y`; -1 when it lies outside the mask.
long MaskRow(long y, long height, bool flip, long flipBase) {
    long const row = flip ? flipBase - y : y;
    return row >= 0 && row < std::labs(height) ? row : -1;
}
} // namespace

CContour::~CContour() = default;

void CContour::Clear() {
    m_bounds = {};
    m_contour.clear();
    m_solid.clear();
    m_overlaid.clear();
    m_forced.clear();
    m_lastPass.clear();
}

void CContour::AddPoint(double x, double y, CColorInfo& colour, unsigned long flags, double weight) {
    double const fx0 = std::floor(x), fx1 = std::ceil(x), fy0 = std::floor(y), fy1 = std::ceil(y);
    int const x0 = mirelfrw7::SaturatingInt(fx0), x1 = mirelfrw7::SaturatingInt(fx1);
    int const y0 = mirelfrw7::SaturatingInt(fy0), y1 = mirelfrw7::SaturatingInt(fy1);
    double const ax = x - fx0, bx = x - fx1, ay = y - fy0, by = y - fy1;
    double d00 = ax * ax + ay * ay, d01 = ax * ax + by * by, d10 = bx * bx + ay * ay, d11 = bx * bx + by * by;
    if (d00 + d01 + d10 + d11 == 0) {
        AddPoint(m_contour, x0, y0, colour, 1.0);
    } else {
        unsigned long const law = m_params & 3;
        if (law == 3) return;
        SLawMemo& memo = m_lawMemo;
        if (memo.law != law || memo.squared[0] != d00 || memo.squared[1] != d01 || memo.squared[2] != d10 ||
            memo.squared[3] != d11) {
            memo = {law, {d00, d01, d10, d11}, {Law(d00, law), Law(d01, law), Law(d10, law), Law(d11, law)}};
        }
        d00 = memo.distance[0], d01 = memo.distance[1], d10 = memo.distance[2], d11 = memo.distance[3];
        double const k = weight / (1 / d00 + 1 / d01 + 1 / d10 + 1 / d11);
        int const xs[4] = {x0, x0, x1, x1}, ys[4] = {y0, y1, y0, y1};
        double const shares[4] = {k / d00, k / d01, k / d10, k / d11};
        if (flags & 0x10) {
            for (int i = 0; i < 4; ++i)
                AddLastPoint(xs[i], ys[i], colour, shares[i]);
        } else {
            for (int i = 0; i < 4; ++i)
                AddPoint(m_contour, xs[i], ys[i], colour, shares[i]);
            if (flags & 8)
                for (int i = 0; i < 4; ++i)
                    AddPoint(m_lastPass, xs[i], ys[i], colour, shares[i]);
        }
    }
    Extend(m_bounds, x0, y0, x1, y1);
}

void CContour::AddPoint(map& target, int x, int y, CColorInfo& colour, double share) {
    target.add({x, y}, {Truncated(colour.r * share), Truncated(colour.g * share), Truncated(colour.b * share),
                        Truncated(255.0 * share), 0});
}

void CContour::AddLastPoint(int x, int y, CColorInfo& colour, double share) {
    if (!m_lastPass.contains({x, y})) {
        AddPoint(m_contour, x, y, colour, share);
        return;
    }
    // A share of 0..1 against a remainder of 0..255: only a pixel full or within one unit of full is held
    // back.
    CColorInfo& pixel = m_contour[{x, y}];
    double const limit = std::max(255.0 - double(pixel.a), 0.0);
    share = std::min(share, limit);
    if (!(share > 0)) return;
    pixel += CColorInfo{Truncated(colour.r * share), Truncated(colour.g * share), Truncated(colour.b * share),
                        Truncated(255.0 * share), 0};
}

void CContour::Normalize(unsigned long threshold) {
    std::vector<solid_map::value_type> promoted;
    m_contour.erase_if([&](map::value_type const& item) {
        CColorInfo const& c = item.second;
        if (!(c.a > threshold || m_forced.count(item.first))) return false;
        // A forced pixel without coverage has no mean colour.
        MIREL_ASSERT(c.a != 0);
        if (c.a == 0) return false;
        auto const mean = [&](std::uint32_t channel) { return (channel * 255u / c.a) & 0xFFu; };
        promoted.emplace_back(item.first, mean(c.r) | mean(c.g) << 8 | mean(c.b) << 16);
        return true;
    });
    m_solid.assign_over(std::move(promoted));
    m_forced.clear();
}

unsigned long CContour::Blend(CColorInfo const& pixel, unsigned long background) {
    auto const channel = [&](std::uint32_t sum, int shift) {
        std::uint32_t const b = std::uint32_t(background >> shift) & 0xFFu;
        return (((255u - pixel.a) * b) / 255u + sum) & 0xFFu;
    };
    return channel(pixel.r, 0) | channel(pixel.g, 8) << 8 | channel(pixel.b, 16) << 16;
}

void CContour::Draw(IDrawingContext* context) const {
    if (!context) return;
    unsigned long good = MidGrey;
    for (auto const& [p, pixel] : m_contour) {
        unsigned long const read = context->GetPixel(p.x, p.y);
        if (read != NoColor) good = read;
        context->SetPixel(p.x, p.y, Blend(pixel, good));
    }
    DrawSolidContour(context);
}

void CContour::Draw(IDrawingContext* context, unsigned long background) const {
    if (!context) return;
    for (auto const& [p, pixel] : m_contour)
        context->SetPixel(p.x, p.y, Blend(pixel, background));
    DrawSolidContour(context);
}

void CContour::Draw(IDrawingContext* context, unsigned long first, unsigned long second) const {
    if (!context) return;
    unsigned long mean = 0;
    for (int shift = 0; shift < 24; shift += 8)
        mean |= ((((first >> shift) & 0xFFu) + ((second >> shift) & 0xFFu)) / 2) << shift;
    for (auto const& [p, pixel] : m_contour) {
        unsigned long const background = pixel.part == 2 ? second : pixel.part == 3 ? mean : first;
        context->SetPixel(p.x, p.y, Blend(pixel, background));
    }
    DrawSolidContour(context);
}

void CContour::DrawSolidContour(IDrawingContext* context) const {
    if (!context) return;
    for (auto const& [p, colour] : m_solid)
        context->SetPixel(p.x, p.y, colour);
}

void CContour::MixWithBackground(unsigned long background) {
    Normalize(254);
    std::vector<solid_map::value_type> mixed;
    mixed.reserve(m_contour.size());
    for (auto const& [p, pixel] : m_contour)
        mixed.emplace_back(p, Blend(pixel, background));
    m_contour.clear();
    m_solid.assign_over(std::move(mixed));
}

unsigned long CContour::GetColor(tagPOINT const& point, unsigned long background) const {
    if (auto const it = m_contour.find(point); it != m_contour.end()) return Blend(it->second, background);
    if (auto const it = m_solid.find(point); it != m_solid.end()) return it->second;
    if (auto const it = m_overlaid.find(point); it != m_overlaid.end()) return Blend(it->second, background);
    return NoColor;
}

void CContour::PaintContour(unsigned long colour) {
    for (auto& [p, pixel] : m_contour) {
        double const coverage = pixel.a / 255.0;
        pixel.r = Truncated(double(colour & 0xFFu) * coverage);
        pixel.g = Truncated(double((colour >> 8) & 0xFFu) * coverage);
        pixel.b = Truncated(double((colour >> 16) & 0xFFu) * coverage);
    }
    for (auto& [p, solid] : m_solid)
        solid = colour;
}

void CContour::ScaleAlpha(double factor) {
    for (auto& [p, pixel] : m_contour) {
        pixel.r = Truncated(pixel.r * factor);
        pixel.g = Truncated(pixel.g * factor);
        pixel.b = Truncated(pixel.b * factor);
        pixel.a = Truncated(pixel.a * factor);
    }
}

void CContour::Offset(int dx, int dy) {
    m_solid.offset(dx, dy);
    m_contour.offset(dx, dy);
    m_overlaid.offset(dx, dy);
}

void CContour::Overlay(CContour* first, CContour* second) {
    if (!first || first == this) return;
    // A sum that is negative as a signed value is taken as none.
    auto const sum = [](std::uint32_t under, std::uint32_t over) {
        std::uint32_t const s = under + over;
        return std::int32_t(s) < 0 ? 0u : s;
    };
    auto const give = [&](map& target, map::value_type const& item) {
        auto const under = target.find(item.first);
        if (under == target.end()) return false;
        CColorInfo& u = under->second;
        CColorInfo const& o = item.second;
        u.r = sum(u.r, o.r), u.g = sum(u.g, o.g), u.b = sum(u.b, o.b), u.a = sum(u.a, o.a);
        return true;
    };
    std::vector<map::value_type> given;
    m_contour.erase_if([&](map::value_type const& item) {
        bool const moves = give(first->m_contour, item) || first->m_solid.contains(item.first) ||
                           (second && second != this && give(second->m_contour, item));
        if (moves && !m_overlaid.contains(item.first)) given.push_back(item);
        return moves;
    });
    for (map::value_type& item : given)
        m_overlaid.add(item.first, item.second);
}

void CContour::FillAlphaMask(unsigned char* mask, long stride, long height, bool flip) const {
    if (!mask) return;
    auto const put = [&](tagPOINT p, unsigned char value) {
        long const row = MaskRow(p.y, height, flip, height - 1);
        if (row >= 0 && p.x >= 0 && p.x < stride) mask[row * stride + p.x] = value;
    };
    for (auto const& [p, colour] : m_solid)
        put(p, 0);
    for (auto const& [p, pixel] : m_contour)
        put(p, static_cast<unsigned char>(255u - pixel.a));
}

void CContour::ClearAlphaMask(unsigned char* mask, long stride, long height, bool flip) const {
    if (!mask) return;
    // One row lower than FillAlphaMask when flipped, as masks have always been cleared.
    auto const put = [&](tagPOINT p) {
        long const row = MaskRow(p.y, height, flip, height);
        if (row >= 0 && p.x >= 0 && p.x < stride) mask[row * stride + p.x] = 255;
    };
    for (auto const& [p, colour] : m_solid)
        put(p);
    for (auto const& [p, pixel] : m_contour)
        if (p.y >= 1 && p.y <= height - 1 && p.x >= 1 && p.x <= stride - 1) put(p);
}

void CContour::Copy(CContour const& other) {
    SetParams(other);
    m_contour = other.m_contour;
    m_solid = other.m_solid;
    m_overlaid = other.m_overlaid;
    m_forced = other.m_forced;
    m_lastPass = other.m_lastPass;
}

void CContour::SetParams(CContour const& other) {
    m_params = other.m_params;
    m_bounds = other.m_bounds;
}

} // namespace antialiasing
