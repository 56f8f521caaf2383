#include <mirelfrw7/core/drawing_context.h>

#include "mirel7/cairo/cairo_fixture.h"

#include <mirel7/recording_painter.h>

namespace {

using namespace mirel7;
using namespace mirel_test;
using mirelfrw7::CDrawingContext;

TEST(DrawingContext, WritesOpaqueColourWordsThroughOriginAndScale) {
    CRecordingPainter painter({100, 100});
    CDrawingContext context(&painter, 10, 20, 2, 3);
    context.SetPixel(1, 2, 0x332211);
    // The byte above the colour is no alpha: it is ignored.
    context.SetPixel(-1, 0, 0x80ccbbaaUL);
    EXPECT_EQ(painter.Lines(), (std::vector<std::string>{"SetPixel 12,26 #112233", "SetPixel 8,20 #aabbcc"}));
}

using DrawingContextPixels = CCairoPainterTest;

TEST_F(DrawingContextPixels, ReadsColourWordsAtTheOrigin) {
    painter->SetPixel(5, 6, _color(0x44, 0x55, 0x66));
    EXPECT_EQ(CDrawingContext(painter.get()).GetPixel(5, 6), 0x665544UL);
    EXPECT_EQ(CDrawingContext(painter.get(), 3, 2).GetPixel(2, 4), 0x665544UL);
    // Beyond the surface there is no colour, which reads as white once masked.
    EXPECT_EQ(CDrawingContext(painter.get()).GetPixel(Width, 0), 0xffffffUL);
}

} // namespace
