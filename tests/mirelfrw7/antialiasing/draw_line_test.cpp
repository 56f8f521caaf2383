#include <mirelfrw7/antialiasing/draw_line.h>

#include "mirel7/cairo/cairo_fixture.h"
#include "support/assert_capture.h"

#include <limits>

namespace {

using namespace mirel7;
using namespace mirel_test;
using mirelfrw7::DrawLine;

using DrawLinePixels = CCairoPainterTest;

constexpr std::uint32_t Grey(std::uint8_t v) {
    return Opaque(v, v, v);
}

TEST_F(DrawLinePixels, BlackRowOfWidthOneOnWhite) {
    painter->SetPen({_color(0, 0, 0)});
    DrawLine(painter.get(), {10, 5}, {0, 5}, mirelfrw7::CAP_NONE, mirelfrw7::CAP_NONE);
    // Each sample at (k + 0.25, 5.25) gives coverage 120, 36, 36 and 23 at 216/255 of its weight.
    CPixelImage expected = Blank();
    expected.Fill({0, 5, 0, 5}, Grey(135)).Fill({1, 5, 9, 5}, Grey(99)).Fill({10, 5, 10, 5}, Grey(219));
    expected.Fill({0, 6, 0, 6}, Grey(219)).Fill({1, 6, 9, 6}, Grey(196)).Fill({10, 6, 10, 6}, Grey(232));
    EXPECT_TRUE(ImagesMatch(Shot(), expected));
}

TEST_F(DrawLinePixels, BlendsOverWhatTheSurfaceShowsAndLeavesTheBounds) {
    Clear(*painter, Blue);
    painter->SetPen({_color(255, 0, 0), 3});
    DrawLine(painter.get(), {-30, -20}, {70, 50}, mirelfrw7::CAP_ROUND_10, mirelfrw7::CAP_ARROW_WIDE);
    CPixelImage const shot = Shot();
    EXPECT_EQ(shot.InkBounds(Blue), (rectangle<int>{0, 0, Width - 1, Height - 1}));
    int blended = 0;
    for (int y = 0; y < Height; ++y)
        for (int x = 0; x < Width; ++x)
            blended += shot.At(x, y) != Blue && shot.At(x, y) != Red;
    EXPECT_GT(blended, 0) << "edges mix red with the blue underneath";
}

TEST_F(DrawLinePixels, NothingForAPointOrAnInvalidCoordinate) {
    painter->SetPen({_color(0, 0, 0), 4});
    DrawLine(painter.get(), {7, 7}, {7, 7}, mirelfrw7::CAP_ROUND_10, mirelfrw7::CAP_ROUND_10);
    CExpectAssertions assertions;
    DrawLine(painter.get(), {std::numeric_limits<double>::quiet_NaN(), 3}, {7, 7}, mirelfrw7::CAP_NONE,
             mirelfrw7::CAP_NONE);
    EXPECT_EQ(assertions.Count(), 1u);
    EXPECT_TRUE(ImagesMatch(Shot(), Blank()));
}

// A raster picture mapped at scale 1 and 2 gets the pixels of the device line, and keeps its mapping.
TEST(DrawLineOnPictures, ConvertsThroughTheMappingAndRestoresIt) {
    auto const draw = [](double scale, point<double> a, point<double> b) {
        mirel_ptr<IRasterPicture> const picture = NewRasterPicture(60, 40);
        IPainter* const p = picture->GetPainter();
        p->BeginPaint(IPainter::PaintPlain);
        p->SetBrush({_color(255, 255, 255)});
        p->FillRect(0, 0, 59, 39);
        IPainter::CoordInfo const info =
            IPainter::CoordInfo::Mapping(0, 0, 60, 40, 0, 0, int(60 * scale), int(40 * scale));
        p->SetCoordSystem(IPainter::MapElement, &info);
        p->SetPen({_color(30, 60, 200), 2, pen::Dash});
        DrawLine(p, a, b, mirelfrw7::CAP_ARROW_NARROW, mirelfrw7::CAP_NONE);
        IPainter::MapMode mode;
        IPainter::CoordInfo after;
        p->GetCoordSystem(mode, &after);
        EXPECT_EQ(mode, IPainter::MapElement);
        EXPECT_EQ(after, info);
        std::vector<std::uint32_t> words;
        for (int y = 0; y < 40; ++y)
            for (int x = 0; x < 60; ++x)
                words.push_back(p->GetPixel(x / scale, y / scale).ToWord());
        p->EndPaint();
        return words;
    };
    std::vector<std::uint32_t> const device = draw(1.0, {50, 30}, {4, 6});
    EXPECT_NE(std::count(device.begin(), device.end(), 0xFFFFFFu), 60 * 40);
    EXPECT_EQ(draw(2.0, {25, 15}, {2, 3}), device);
}

} // namespace
