#include <mirelfrw7/antialiasing/contour.h>

#include "mirelfrw7/antialiasing/map_context.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using namespace antialiasing;
using mirel_test::CMapContext;
using mirel_test::CoverageAt;

// The contour of its samples only: nothing generates a shape.
struct CSamples : CContour {
    using CContour::CContour;
    void Generate(CContour*, CContour*) override {}
};

TEST(Contour, SpreadsASampleByTheDistanceLaw) {
    struct SCase {
        unsigned long law;
        double x, y, weight;
        std::uint32_t a00, a01, a10, a11;
    };
    SCase const cases[] = {
        {0, 0.25, 0.25, 1.0, 142, 42, 42, 27}, // the distance to the power 1.5
        {1, 0.25, 0.25, 1.0, 114, 51, 51, 38}, // the distance
        {2, 0.25, 0.25, 1.0, 168, 33, 33, 18}, // its square
        {0, 0.5, 0.5, 1.0, 63, 63, 63, 63},    // four shares of 63.75, truncated
        {0, 2.25, 3.25, 1.0, 142, 42, 42, 27},
    };
    for (SCase const& c : cases) {
        CSamples contour(c.law);
        CColorInfo colour{255, 0, 0, 0, 0};
        contour.AddPoint(c.x, c.y, colour, 0, c.weight);
        int const x = int(c.x), y = int(c.y);
        EXPECT_EQ(CoverageAt(contour, x, y), c.a00) << c.law << " " << c.x;
        EXPECT_EQ(CoverageAt(contour, x, y + 1), c.a01) << c.law << " " << c.x;
        EXPECT_EQ(CoverageAt(contour, x + 1, y), c.a10) << c.law << " " << c.x;
        EXPECT_EQ(CoverageAt(contour, x + 1, y + 1), c.a11) << c.law << " " << c.x;
        EXPECT_EQ(contour.m_contour.find({x, y})->second.r, c.a00) << "red at 255 sums like coverage";
    }
}

TEST(Contour, AWholeSampleCountsInFullAndLawThreeAddsNothing) {
    CSamples contour(3);
    CColorInfo colour{10, 20, 30, 0, 0};
    contour.AddPoint(4.5, 4.5, colour, 0, 1.0);
    EXPECT_TRUE(contour.m_contour.empty());
    EXPECT_EQ(contour.m_bounds, (tagRECT{}));
    contour.AddPoint(-3, 2, colour, 8, 0.0);
    EXPECT_EQ(CoverageAt(contour, -3, 2), 255u) << "weight and flags play no part";
    EXPECT_EQ(contour.m_bounds, (tagRECT{-3, 0, 0, 2}));
    contour.Normalize(254);
    EXPECT_TRUE(contour.m_contour.empty());
    EXPECT_EQ(contour.GetColor({-3, 2}, 0), 0x1E140Aul);
    EXPECT_EQ(contour.GetColor({0, 0}, 0), 0xFFFFFFFFul);
}

TEST(Contour, SumsInPlaceAndBlendsWrappingAtEightBits) {
    CSamples contour(0);
    CColorInfo colour{200, 0, 0, 0, 0};
    contour.AddPoint(contour.m_contour, 1, 1, colour, 0.5);
    contour.AddPoint(contour.m_contour, 1, 1, colour, 0.5);
    ASSERT_EQ(contour.m_contour.size(), 1u);
    EXPECT_EQ(contour.m_contour.begin()->second, (CColorInfo{200, 0, 0, 254, 0}));
    // 254 is not above the threshold: the pixel stays partial, and 1/255 of the background shows.
    contour.Normalize(254);
    EXPECT_EQ(contour.GetColor({1, 1}, 0xFFFFFF), 0x0101C9ul);
    contour.AddPoint(contour.m_contour, 1, 1, colour, 0.5);
    EXPECT_EQ(contour.GetColor({1, 1}, 0), 300ul & 0xFF) << "a wrapped red sum of 300";
}

TEST(Contour, DrawsOverEachBackgroundSource) {
    // Three partial pixels of coverage 127 and no colour, on the sides 0, 2 and 3; a solid one last.
    CSamples contour(0);
    CColorInfo black{};
    for (int x = 0; x < 3; ++x)
        contour.AddPoint(contour.m_contour, x, 0, black, 0.5);
    contour.m_contour[{1, 0}].part = 2;
    contour.m_contour[{2, 0}].part = 3;
    CColorInfo blue{0, 0, 255, 0, 0};
    contour.AddPoint(contour.m_contour, 3, 0, blue, 1.0);
    contour.Normalize(254);
    using W = CMapContext::SWrite;
    struct SCase {
        char const* source;
        void (*draw)(CContour const&, CMapContext&);
        std::vector<W> writes;
    };
    SCase const cases[] = {
        // Unknown pixels take the mid grey until a colour was read, then the last one read.
        {"context",
         [](CContour const& c, CMapContext& ctx) {
             ctx.pixels[{1, 0}] = 0x0000FE;
             c.Draw(&ctx);
         },
         {{0, 0, 0x404040}, {1, 0, 0x00007F}, {2, 0, 0x00007F}, {3, 0, 0xFF0000}}},
        {"fixed",
         [](CContour const& c, CMapContext& ctx) { c.Draw(&ctx, 0xFEFEFE); },
         {{0, 0, 0x7F7F7F}, {1, 0, 0x7F7F7F}, {2, 0, 0x7F7F7F}, {3, 0, 0xFF0000}}},
        {"by side",
         [](CContour const& c, CMapContext& ctx) { c.Draw(&ctx, 0x0000FE, 0xFE0000); },
         {{0, 0, 0x00007F}, {1, 0, 0x7F0000}, {2, 0, 0x3F003F}, {3, 0, 0xFF0000}}},
    };
    for (SCase const& c : cases) {
        CMapContext context;
        c.draw(contour, context);
        EXPECT_EQ(context.writes, c.writes) << c.source;
    }
}

TEST(Contour, OffsetMovesPixelsAndKeepsBounds) {
    CSamples contour(0);
    CColorInfo colour{255, 255, 255, 0, 0};
    contour.AddPoint(1.5, 2.5, colour, 0, 1.0);
    contour.AddPoint(4, 4, colour, 0, 1.0);
    contour.Normalize(254);
    tagRECT const bounds = contour.m_bounds;
    contour.Offset(10, -2);
    EXPECT_EQ(contour.m_bounds, bounds);
    EXPECT_EQ(CoverageAt(contour, 11, 0), 63u);
    EXPECT_EQ(contour.GetColor({14, 2}, 0), 0xFFFFFFul);
    EXPECT_EQ(contour.GetColor({4, 4}, 0), 0xFFFFFFFFul);
}

TEST(Contour, AlphaMasksStayInsideTheirBytes) {
    CSamples contour(0);
    CColorInfo colour{};
    for (int x = -2; x < 6; ++x)
        contour.AddPoint(x + 0.5, 1.5, colour, 0, 1.0);
    contour.AddPoint(1, 1, colour, 0, 1.0);
    contour.Normalize(254);
    // Four by three bytes with guards around them: pixels outside the mask write nothing.
    std::vector<unsigned char> bytes(4 + 12 + 4, 255);
    contour.FillAlphaMask(bytes.data() + 4, 4, 3, false);
    EXPECT_EQ(std::vector<unsigned char>(bytes.begin(), bytes.begin() + 4),
              std::vector<unsigned char>(4, 255));
    EXPECT_EQ(std::vector<unsigned char>(bytes.end() - 4, bytes.end()), std::vector<unsigned char>(4, 255));
    EXPECT_EQ(bytes[4 + 4 + 1], 0) << "the solid pixel (1, 1)";
    EXPECT_EQ(bytes[4 + 8 + 0], 255 - 126) << "(0, 2), half covered by two samples";
    contour.FillAlphaMask(bytes.data() + 4, 4, 3, true);
    EXPECT_EQ(bytes[4 + 0 + 0], 255 - 126) << "(0, 2) flipped to row 0";
    contour.ClearAlphaMask(bytes.data() + 4, 4, 3, false);
    EXPECT_EQ(bytes[4 + 4 + 1], 255);
}

// Three half-covered pixels on row 0 with their ambient ring on row 1.
struct CRowWithRing : CSamples {
    CRowWithRing() : CSamples(0) {
        CColorInfo black{};
        for (int x = 0; x < 3; ++x)
            AddPoint(m_contour, x, 0, black, 0.5);
        BuildAmbientArea(0, 1, false);
    }
};

TEST(Contour, TheAmbientRingKeepsTheColoursOnceCaptured) {
    CRowWithRing contour;
    CMapContext context;
    context.pixels = {{{0, 1}, 0x0000FE}, {{1, 1}, 0xFE0000}};
    contour.UpdateAmbientColors(&context);
    context.pixels.clear();
    contour.Draw(&context);
    using W = CMapContext::SWrite;
    EXPECT_EQ(context.writes, (std::vector<W>{{0, 0, 0x00007F}, {1, 0, 0x7F0000}, {2, 0, 0x7F0000}}))
        << "an unknown ambient colour takes the last known one";

    CRowWithRing client;
    client.ShareAmbientArea(contour);
    contour.Offset(5, 5);
    EXPECT_EQ(contour.GetAmbientColorForPt({6, 5}), 0xFE0000ul);
    EXPECT_EQ(client.GetAmbientColorForPt({6, 5}), 0xFE0000ul) << "the client's index moved with the table";
    EXPECT_EQ(client.GetAmbientColorForPt({1, 0}), 0xFFFFFFFFul);

    contour.MixWithBackground(0);
    EXPECT_TRUE(contour.m_contour.empty());
    EXPECT_EQ(contour.GetColor({5, 5}, 0), 0x00007Ful);
    EXPECT_EQ(contour.GetColor({7, 5}, 0), 0x404040ul) << "over the mid grey";
}

TEST(Contour, ClassifiesSidesAndCutsOutlineRows) {
    CSamples contour(0);
    CColorInfo black{};
    // A block of 3 by 3 pixels right of and below the centre (0, 0).
    for (int x = 1; x <= 3; ++x)
        for (int y = 1; y <= 3; ++y)
            contour.AddPoint(contour.m_contour, x, y, black, 0.5);
    contour.Classify(contour.m_contour, 0, 0);
    std::map<std::uint32_t, int> parts;
    for (auto const& [p, pixel] : contour.m_contour)
        ++parts[pixel.part];
    EXPECT_EQ(contour.m_contour.find({1, 1})->second.part, 1u) << "inner edge";
    EXPECT_EQ(contour.m_contour.find({3, 3})->second.part, 2u) << "outer edge";
    EXPECT_EQ(contour.m_contour.find({2, 2})->second.part, 3u) << "both ways occupied";
    contour.RemoveContourPart(contour.m_contour, 2, 1);
    EXPECT_EQ(contour.m_contour.size(), 9u - parts[2]);

    CContour::solid_map solid;
    CContour::map none;
    struct SCase {
        int shift;
        tagPOINT expected;
    };
    // Rows 1 and 2 are left; the last test compares the shifted x with the bottom.
    for (SCase c : {SCase{0, {1, 1}}, SCase{6, {0x7FFFFFFF, 2}}})
        EXPECT_EQ(contour.FindUtmostHorzPoint(solid, contour.m_contour, none, true, c.shift, {0, 0, 20, 6}),
                  c.expected);
}

} // namespace
