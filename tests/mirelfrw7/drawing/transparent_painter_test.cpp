#include <mirelfrw7/core/transparent_painter.h>

#include "mirel7/cairo/cairo_fixture.h"

#include <mirel7/headless/headless_system.h>
#include <mirel7/recording_painter.h>

namespace {

using namespace mirel7;
using namespace mirel_test;
using mirelfrw7::CTransparentPainter;

// Pictures come from the current system.
class TransparentPainter : public CCairoPainterTest {
protected:
    // Draws red over the left half of the picture of (10, 5)..(20, 15) and lets it go.
    void DrawHalfRed(int transparency) {
        CTransparentPainter over(painter.get(), {10, 5, 20, 15}, transparency);
        ASSERT_NE(over.GetPainter(), nullptr);
        over.GetPainter()->SetBrush({_color(255, 0, 0)});
        over.GetPainter()->FillRect(0, 0, 4, 9);
        // Not on the target before the holder goes.
        EXPECT_EQ(CPixelImage::Of(*painter).At(10, 5), White);
    }

    headless::CHeadlessSystem system;
};

// Opaque at 0, half way at 127 (alpha 128 over white keeps 127 of green and blue), invisible at 255; what
// was not drawn stays clear.
TEST_F(TransparentPainter, TransparencyOfTheDrawing) {
    struct SCase {
        int transparency;
        std::uint32_t colour;
    } const cases[] = {{0, Red}, {127, Opaque(255, 127, 127)}, {255, White}};
    for (SCase const& c : cases) {
        Clear(*painter, White);
        DrawHalfRed(c.transparency);
        EXPECT_TRUE(ImagesMatch(Shot(), Blank().Fill({10, 5, 14, 14}, c.colour), 1)) << c.transparency;
    }
}

TEST(TransparentPainterCalls, BlendsThePictureOfTheRectanglesSizeOnceAndNeedsASystem) {
    CRecordingPainter target({100, 100});
    {
        CTransparentPainter const over(&target, {10, 5, 30, 15}, 0);
        EXPECT_EQ(over.GetPainter(), nullptr);
    }
    EXPECT_TRUE(target.Lines().empty());
    headless::CHeadlessSystem system;
    { CTransparentPainter const over(&target, {10, 5, 30, 15}, 55); }
    EXPECT_EQ(target.Lines(), (std::vector<std::string>{"AlphaBlend 10,5,30,15 picture=20x10 alpha=200"}));
}

} // namespace
