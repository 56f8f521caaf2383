#include <mirelfrw7/antialiasing/cacheable_line_contour.h>
#include <mirelfrw7/antialiasing/line_contour.h>

#include "mirelfrw7/antialiasing/map_context.h"
#include "support/assert_capture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <set>

namespace {

using namespace antialiasing;
using mirel_test::CoverageAt;

// A horizontal line of width 1 along row 5 from x = 0 to 10, at the weight DrawLine gives an opaque pen.
CLineContour RowLine(int dash) {
    CLineContour line(0);
    line.m_x2 = 10;
    line.m_y1 = line.m_y2 = 5;
    line.m_dash = dash;
    line.m_opacity = 216;
    return line;
}

TEST(LineContour, CapsTakeTheirExtraAreaAndAtMostFortyPercent) {
    struct SCase {
        CapStyle style;
        unsigned width;
        int extra;
    };
    for (SCase c : {SCase{CAP_NONE, 3, 6}, SCase{CAP_ARROW_NARROW, 1, 7}, SCase{CAP_ROUND_10, 1, 10},
                    SCase{CapStyle(7), 4, 7}})
        EXPECT_EQ(CLineContour::GetExtraArea(c.style, c.width), c.extra) << c.style;
    CLineContour::CapParams cap;
    cap.Set(CAP_ARROW_WIDE, 1, 10, 0, 0);
    EXPECT_EQ(cap.m_length, 4.0) << "40% of the line, not 7";
    cap.Set(CAP_ROUND_7, 1, 100, 0, 0);
    EXPECT_EQ(cap.m_radius, 3.5);
}

TEST(LineContour, RowCoverageFollowsTheDashPattern) {
    // Sample k lies at (k + 0.25, 5.25) and gives 120 to (k, 5) and 36 to (k + 1, 5).
    struct SCase {
        int dash;
        std::vector<std::uint32_t> row;
    };
    SCase const cases[] = {
        {1, {120, 156, 156, 156, 156, 156, 156, 156, 156, 156, 36}},
        // Dashes of three from the second unit: the line ends inside the third dash.
        {2, {120, 156, 156, 36, 120, 156, 156, 36, 120, 156, 36}},
        {3, {120, 36, 120, 36, 120, 36, 120, 36, 120, 36, 0}},
        {0, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
    };
    for (SCase const& c : cases) {
        CLineContour line = RowLine(c.dash);
        line.Generate(nullptr, nullptr);
        std::vector<std::uint32_t> row;
        for (int x = 0; x <= 10; ++x)
            row.push_back(CoverageAt(line, x, 5));
        EXPECT_EQ(row, c.row) << "dash " << c.dash;
        EXPECT_EQ(CoverageAt(line, 0, 6), c.dash == 0 ? 0u : 36u) << "the row below takes the far shares";
    }
}

TEST(LineContour, GradientsAdvanceOverTheGapsOfDashes) {
    CLineContour line = RowLine(3);
    line.m_endColor = {255, 0, 0, 255, 0};
    line.Generate(nullptr, nullptr);
    // The colour of sample k is the start colour stepped k times, whether or not the steps were drawn.
    CColorInfoR step{255 * (0.999 / 11), 0, 0, 0, 0, 0, 0, 0};
    CColorInfo colour = line.m_startColor;
    for (int k = 0; k < 10; k += 2, colour += step, colour += step) {
        EXPECT_EQ(line.m_contour.find({k, 5})->second.r, std::uint32_t(colour.r * 0.47306139970878286)) << k;
    }
}

TEST(LineContour, RoundCapsAreDiscsExceptOnHorizontalLines) {
    auto const rows = [](double x2, double y2) {
        CLineContour line(0);
        line.m_x1 = line.m_y1 = 20;
        line.m_x2 = x2, line.m_y2 = y2;
        line.m_startCap = CAP_ROUND_10;
        line.Generate(nullptr, nullptr);
        std::set<int> across;
        for (auto const& [p, c] : line.m_contour)
            across.insert(x2 == 20 ? p.x : p.y);
        return across.size();
    };
    EXPECT_GE(rows(20, 60), 10u) << "vertical: a disc of diameter 10";
    EXPECT_EQ(rows(60, 20), 2u) << "horizontal: one sample across, on two rows";
}

TEST(LineContour, DegenerateLinesDrawNothing) {
    CLineContour point = RowLine(1);
    point.m_x2 = 0;
    point.m_startCap = point.m_endCap = CAP_ROUND_10;
    point.Generate(nullptr, nullptr);
    EXPECT_TRUE(point.m_contour.empty());
    for (double bad : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        mirel_test::CExpectAssertions assertions;
        CLineContour line = RowLine(1);
        line.m_y2 = bad;
        line.Generate(nullptr, nullptr);
        EXPECT_TRUE(line.m_contour.empty());
        EXPECT_EQ(assertions.Count(), 1u);
    }
}

TEST(CacheableLineContour, MasksMoveWithTheirLineAndLargeOnesAreTheirOwn) {
    constexpr long W = 128, H = 112;
    LineContourParams params;
    params.m_width = 3;
    params.m_endCap = CAP_ARROW_WIDE;
    // Within one binade of doubles, whole moves leave the fractions of every sample as they were.
    auto const mask = [&](int dx, int dy, long width, long height) {
        LineContourParams moved = params;
        moved.m_x1 = 70 + dx, moved.m_y1 = 72 + dy, moved.m_x2 = 100 + dx, moved.m_y2 = 90 + dy;
        CCacheableLineContour contour(moved, 0);
        unsigned char const* bytes = contour.Generate(width, height, false);
        return std::vector<unsigned char>(bytes, bytes + width * height);
    };
    std::vector<unsigned char> const here = mask(0, 0, W, H);
    EXPECT_LT(std::count(here.begin(), here.end(), 255), W * H - 60) << "the line is in the mask";
    for (auto [dx, dy] : {std::pair{3, 0}, std::pair{0, 7}, std::pair{5, 9}}) {
        std::vector<unsigned char> const there = mask(dx, dy, W, H);
        for (int y = 0; y + dy < H; ++y)
            for (int x = 0; x + dx < W; ++x)
                ASSERT_EQ(here[y * W + x], there[(y + dy) * W + x + dx]) << x << "," << y;
    }
    // Past the shared buffer: a mask of its own, with the same line in it.
    std::vector<unsigned char> const large = mask(0, 0, 1024, 1024);
    for (int y = 0; y < H; ++y)
        for (int x = 0; x < W; ++x)
            ASSERT_EQ(here[y * W + x], large[y * 1024 + x]);

    CCacheableLineContour::Tag const tag(params, true, W, H);
    EXPECT_EQ(tag.m_words[0], 1u | CAP_ARROW_WIDE << 1 | 1u << 7 | 3u << 13);
    EXPECT_EQ(tag.m_words[2], std::uint32_t(W | H));
}

} // namespace
