// The contour keeps its pixels in a flat array merged once; an ordered map summed in place is the
// reference. Over random lines both must give the same pixels in the same order.
#include <mirelfrw7/antialiasing/line_contour.h>

#include "mirelfrw7/antialiasing/map_context.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace {

using namespace antialiasing;
using mirel_test::CMapContext;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int Lines = 1000;
#else
constexpr int Lines = 10000;
#endif

// The reference: every add summed in place into an ordered map, then the promotion and the blend over a
// fixed colour as the contour makes them, written in the same order (partial pixels, then solid ones).
std::vector<CMapContext::SWrite> ReferenceWrites(std::vector<CContour::map::value_type> const& adds,
                                                 unsigned long background) {
    std::map<tagPOINT, CColorInfo> partial;
    for (auto const& [p, add] : adds)
        partial[p] += add;
    std::map<tagPOINT, unsigned long> solid;
    for (auto it = partial.begin(); it != partial.end();) {
        CColorInfo const& c = it->second;
        if (c.a <= 254) {
            ++it;
            continue;
        }
        solid[it->first] =
            (c.r * 255 / c.a & 0xFF) | (c.g * 255 / c.a & 0xFF) << 8 | (c.b * 255 / c.a & 0xFF) << 16;
        it = partial.erase(it);
    }
    std::vector<CMapContext::SWrite> writes;
    for (auto const& [p, c] : partial)
        writes.push_back({p.x, p.y, CContour::Blend(c, background)});
    for (auto const& [p, colour] : solid)
        writes.push_back({p.x, p.y, colour});
    return writes;
}

TEST(PixelStore, GivesTheOrderedMapsPixelsOverRandomLines) {
    std::mt19937 random(20261125);
    auto const uniform = [&](double from, double to) {
        return std::uniform_real_distribution<>(from, to)(random);
    };
    auto const pick = [&](int from, int to) { return std::uniform_int_distribution<>(from, to)(random); };
    auto const colour = [&] {
        return CColorInfo{std::uint32_t(pick(0, 255)), std::uint32_t(pick(0, 255)),
                          std::uint32_t(pick(0, 255)), 255, 0};
    };
    std::size_t differing = 0, pixels = 0;
    for (int i = 0; i < Lines; ++i) {
        CLineContour line(std::uint32_t(pick(0, 2)));
        line.m_x1 = uniform(-20, 60), line.m_y1 = uniform(-20, 60);
        line.m_x2 = uniform(-20, 60), line.m_y2 = uniform(-20, 60);
        if (i % 5 == 0) line.m_y2 = line.m_y1; // horizontal lines have caps of their own
        line.m_width = unsigned(pick(0, 8));
        line.m_density = pick(50, 200);
        line.m_dash = pick(0, 6);
        line.m_startCap = CapStyle(pick(0, 7));
        line.m_endCap = CapStyle(pick(0, 7));
        line.m_opacity = pick(0, 255);
        line.m_startColor = colour();
        line.m_endColor = i % 2 ? colour() : line.m_startColor;
        line.m_startTrim = i % 7 == 0 ? uniform(0, 8) : 0;
        std::vector<CContour::map::value_type> adds;
        line.m_contour.set_journal(&adds);
        line.Generate(nullptr, nullptr);

        unsigned long const background = unsigned(pick(0, 0xFFFFFF));
        std::vector<CMapContext::SWrite> const expected = ReferenceWrites(adds, background);
        line.Normalize(254);
        CMapContext context;
        line.Draw(&context, background);
        pixels += expected.size();
        ASSERT_EQ(context.writes.size(), expected.size()) << "line " << i;
        for (std::size_t k = 0; k < expected.size(); ++k)
            differing += !(context.writes[k] == expected[k]);
    }
    EXPECT_EQ(differing, 0u);
    EXPECT_GT(pixels, std::size_t(Lines) * 20) << "the lines touch pixels";
}

} // namespace
