#include <mirelfrw7/antialiasing/contour.h>

#include <mirelfrw7/items/saturating_int.h>

#include <mirel7/assert.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <iterator>

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
    m_ambient.forget_saved();
    m_ambient.detach();
    m_ambient.primary().clear();
    m_ambient.secondary().clear();
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

template <class Visit>
void CContour::WalkAmbient(Visit visit) const {
    auto pixel = m_contour.begin();
    for (auto const& [p, colour] : m_ambient.secondary()) {
        if (pixel == m_contour.end()) break;
        if (p == pixel->first) visit(*pixel++, *colour);
    }
}

void CContour::Draw(IDrawingContext* context) const {
    if (!context) return;
    unsigned long good = MidGrey;
    if (!m_ambient.master_primary().empty() && !m_contour.empty()) {
        WalkAmbient([&](map::value_type const& pixel, unsigned long ambient) {
            if (ambient != NoColor) good = ambient;
            context->SetPixel(pixel.first.x, pixel.first.y, Blend(pixel.second, good));
        });
        DrawSolidContour(context);
        return;
    }
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
    if (m_ambient.master_primary().empty()) {
        for (auto const& [p, pixel] : m_contour)
            mixed.emplace_back(p, Blend(pixel, background));
        m_contour.clear();
    } else {
        WalkAmbient([&](map::value_type const& pixel, unsigned long ambient) {
            CColorInfo const& c = pixel.second;
            if (ambient != NoColor) {
                mixed.emplace_back(pixel.first, Blend(c, ambient));
                return;
            }
            // Over the mid grey: 128 x (255 - a) / 255 added to each channel.
            std::uint32_t const grey = (32640u - 128u * c.a) / 255u;
            auto const channel = [grey](std::uint32_t sum) { return (sum + grey) & 0xFFu; };
            mixed.emplace_back(pixel.first, channel(c.r) | channel(c.g) << 8 | channel(c.b) << 16);
        });
        // Pixels left out of the walk stay partial.
        m_contour.erase_if([&](map::value_type const& item) {
            return std::binary_search(mixed.begin(), mixed.end(), solid_map::value_type(item.first, 0),
                                      [](auto const& l, auto const& r) { return l.first < r.first; });
        });
    }
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

namespace {
// Moves an ambient pixel with its contour.
struct OffsetPtPred {
    int dx, dy;
    tagPOINT operator()(tagPOINT const& p) const { return {p.x + dx, p.y + dy}; }
};
} // namespace

void CContour::Offset(int dx, int dy) {
    m_solid.offset(dx, dy);
    m_contour.offset(dx, dy);
    m_overlaid.offset(dx, dy);
    OffsetPtPred const move{dx, dy};
    m_ambient.modify_primary_keys(move);
    ambient_map::_modify_secondary_map(m_ambient.saved() ? *m_ambient.saved() : m_ambient.secondary(), move);
    for (ambient_map* client : m_ambient.clients())
        if (!client->secondary().empty()) ambient_map::_modify_secondary_map(client->secondary(), move);
}

void CContour::Classify(map& points, int cx, int cy) {
    auto const sign = [](int v, int centre) { return v > centre ? 1 : v < centre ? -1 : 0; };
    auto const occupied = [this](int x, int y) {
        return m_contour.contains({x, y}) || m_solid.contains({x, y});
    };
    // `points` may be the partial pixels themselves: every neighbour is read before any side is written.
    std::vector<std::uint32_t> parts;
    parts.reserve(points.size());
    for (auto const& [p, pixel] : points) {
        int const sx = sign(p.x, cx), sy = sign(p.y, cy);
        bool const outward = occupied(p.x + sx, p.y) && occupied(p.x, p.y + sy);
        bool const inward = occupied(p.x - sx, p.y) && occupied(p.x, p.y - sy);
        parts.push_back(outward == inward ? 3 : outward ? 1 : 2);
    }
    std::size_t i = 0;
    for (auto& [p, pixel] : points)
        pixel.part = parts[i++];
}

void CContour::RemoveContourPart(map& points, unsigned long mask, unsigned long exclude) {
    points.erase_if([&](map::value_type const& item) {
        return (item.second.part & mask) != 0 && (item.second.part & exclude) == 0;
    });
}

tagPOINT CContour::FindUtmostHorzPoint(solid_map& solid, map& first, map& second, bool toLeft, int shift,
                                       tagRECT const& rect) {
    tagPOINT start;
    if (!solid.empty()) {
        start = solid.begin()->first;
        solid.erase(start);
    } else if (!first.empty()) {
        start = first.begin()->first;
        first.erase(start);
    } else {
        MIREL_ASSERT(!second.empty());
        if (second.empty()) return {0x7FFFFFFF, 0};
        start = second.begin()->first;
        second.erase(start);
    }
    int x = start.x;
    auto const take = [&](tagPOINT const& p) {
        if (p.y != start.y) return false;
        x = toLeft ? std::min(x, p.x) : std::max(x, p.x);
        return true;
    };
    solid.erase_if([&](solid_map::value_type const& item) { return take(item.first); });
    first.erase_if([&](map::value_type const& item) { return take(item.first); });
    long const shifted = long(x) + shift;
    // The last comparison is with the shifted x, not with y: outlines have always been cut so.
    bool const inside =
        shifted >= rect.left && shifted < rect.right && start.y >= rect.top && shifted < rect.bottom;
    return {inside ? int(shifted) : 0x7FFFFFFF, start.y};
}

void CContour::BuildAmbientArea(map shifted, map opposite, bool bothSides) {
    m_ambient.forget_saved();
    m_ambient.detach();
    m_ambient.primary().clear();
    m_ambient.secondary().clear();
    AddAmbientPoints(shifted);
    if (bothSides) AddAmbientPoints(opposite);
    IndexAmbientPoints();
}

void CContour::BuildAmbientArea(int dx, int dy, bool bothSides) {
    if (m_contour.empty()) return;
    map shifted = m_contour, opposite = m_contour;
    shifted.offset(dx, dy);
    opposite.offset(-dx, -dy);
    BuildAmbientArea(std::move(shifted), std::move(opposite), bothSides);
}

void CContour::BuildAmbientArea(int cx, int cy, int dx, int dy, bool bothSides) {
    if (m_contour.empty()) return;
    // Away from the centre; a point on a centre line lands on column or row 0.
    auto const away = [](int v, int centre, int d) { return v > centre ? v + d : v < centre ? v - d : 0; };
    map shifted, opposite;
    for (auto const& [p, pixel] : m_contour) {
        shifted.add({away(p.x, cx, dx), away(p.y, cy, dy)}, pixel);
        opposite.add({away(p.x, cx, -dx), away(p.y, cy, -dy)}, pixel);
    }
    BuildAmbientArea(std::move(shifted), std::move(opposite), bothSides);
}

void CContour::AddAmbientPoints(map const& points) {
    for (auto const& [p, pixel] : points)
        if (!m_contour.contains(p) && !m_solid.contains(p) && !m_overlaid.contains(p))
            m_ambient.primary().emplace(p, NoColor);
}

void CContour::IndexAmbientPoints() {
    auto const& ambient = m_ambient.master_primary();
    if (ambient.empty() || m_contour.empty()) return;
    auto const distance = [](tagPOINT a, tagPOINT b) {
        std::int64_t const dx = std::int64_t(a.x) - b.x, dy = std::int64_t(a.y) - b.y;
        return std::sqrt(double(dx * dx + dy * dy));
    };
    auto const chebyshev = [](tagPOINT a, tagPOINT b) {
        return std::max(std::llabs(std::int64_t(a.x) - b.x), std::llabs(std::int64_t(a.y) - b.y));
    };
    auto candidate = ambient.lower_bound(m_contour.begin()->first);
    if (candidate == ambient.end()) candidate = std::prev(ambient.end());
    auto lower = ambient.end();
    std::int64_t lowerX = 0;
    bool haveLower = false;
    for (auto const& [p, pixel] : m_contour) {
        std::int64_t const r = chebyshev(candidate->first, p);
        std::int64_t const fromX = p.x - r;
        if (!haveLower || fromX != lowerX) {
            tagPOINT const from{int(std::max<std::int64_t>(fromX, INT32_MIN)), INT32_MIN};
            lower = fromX < INT32_MIN ? ambient.begin() : ambient.lower_bound(from);
            lowerX = fromX;
            haveLower = true;
        }
        double best = distance(candidate->first, p);
        std::int64_t toX = p.x + r;
        for (auto it = lower; it != ambient.end() && it->first.x <= toX; ++it) {
            double const d = distance(it->first, p);
            if (d < best || (d == best && it->first < candidate->first)) {
                best = d;
                candidate = it;
                toX = p.x + chebyshev(it->first, p);
            }
        }
        // The index is into the master's table, which the contour shares but never changes through it.
        m_ambient.secondary().emplace(p, const_cast<unsigned long*>(&candidate->second));
    }
}

void CContour::ShareAmbientArea(CContour& other) {
    if (other.m_ambient.primary().empty()) return;
    m_ambient.attach(other.m_ambient, true);
    IndexAmbientPoints();
}

void CContour::UpdateAmbientColors(IDrawingContext* context) {
    if (!context) return;
    for (auto& [p, colour] : m_ambient.primary())
        colour = context->GetPixel(p.x, p.y);
}

unsigned long CContour::GetAmbientColorForPt(tagPOINT const& point) const {
    if (m_ambient.master_primary().empty()) return NoColor;
    auto const it = m_ambient.secondary().find(point);
    return it == m_ambient.secondary().end() ? NoColor : *it->second;
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
    m_ambient = other.m_ambient;
    m_forced = other.m_forced;
    m_lastPass = other.m_lastPass;
}

void CContour::SetParams(CContour const& other) {
    m_params = other.m_params;
    m_bounds = other.m_bounds;
}

} // namespace antialiasing
