#include <mirelfrw7/core/clip_holder.h>

#include "mirel7/cairo/cairo_fixture.h"

#include <mirel7/recording_painter.h>

namespace {

using namespace mirel7;
using namespace mirel_test;
using mirelfrw7::CClipHolder;

// Every pixel drawable now turns `word`.
void FloodWith(IPainter& painter, std::uint32_t word) {
    painter.SetCoordSystem(IPainter::MapDevice, nullptr);
    painter.SetBrush({_color(std::uint8_t(word >> 16), std::uint8_t(word >> 8), std::uint8_t(word))});
    painter.FillRect(-100, -100, 1000, 1000);
}

using ClipHolder = CCairoPainterTest;

TEST_F(ClipHolder, DrawsOnlyInsideTheIntersectionAndRestoresTheFormerClip) {
    painter->SimpleSetClipRect({5, 5, 30, 25}, false);
    {
        // The inclusive far edges of the rectangle reach one pixel further than the numbers.
        CClipHolder const hold(painter.get(), {10, 0, 35, 20});
        FloodWith(*painter, Red);
        EXPECT_EQ(painter->GetClipRect(), (rectangle<double>{10, 5, 30, 21}));
    }
    EXPECT_EQ(painter->GetClipRect(), (rectangle<double>{5, 5, 30, 25}));
    CPixelImage const inside = Shot();
    EXPECT_TRUE(ImagesMatch(inside, Blank().Fill({10, 5, 29, 20}, Red), 0, 0, "held"));

    FloodWith(*painter, Blue);
    EXPECT_TRUE(ImagesMatch(Shot(), Blank().Fill({5, 5, 29, 24}, Blue), 0, 0, "restored"));
}

TEST_F(ClipHolder, MarginsWidenTheRectangleInTheElementsMapping) {
    IPainter::CoordInfo const element = Mapping(0, 0, 30, 25, 10, 5, 30, 25);
    painter->SimpleSetClipRect({10, 5, 40, 30}, false);
    painter->SetCoordSystem(IPainter::MapElement, &element);
    {
        // Logical (2, 2)..(9, 9) widened by 2 on three sides and by at least 1 at the bottom: device
        // (10, 5)..(20, 14) inclusive.
        CClipHolder const hold(painter.get(), {2, 2, 9, 9}, {-2, -2, 2, 0.5});
        FloodWith(*painter, Red);
    }
    EXPECT_TRUE(ImagesMatch(Shot(), Blank().Fill({10, 5, 20, 14}, Red)));
}

TEST_F(ClipHolder, ASliverOfOnePixelKeepsTheWiderClip) {
    painter->SimpleSetClipRect({5, 5, 30, 25}, false);
    {
        // (29, 0)..(40, 20) meets the clip in one column only.
        CClipHolder const hold(painter.get(), {29, 0, 40, 20});
        EXPECT_EQ(painter->GetClipRect(), (rectangle<double>{5, 5, 30, 25}));
        FloodWith(*painter, Red);
    }
    EXPECT_TRUE(ImagesMatch(Shot(), Blank().Fill({5, 5, 29, 24}, Red)));
}

TEST_F(ClipHolder, NestedHoldersUnwindInTurn) {
    painter->SimpleSetClipRect({0, 0, 40, 30}, false);
    {
        CClipHolder const outer(painter.get(), {5, 5, 34, 24});
        {
            CClipHolder const inner(painter.get(), {0, 10, 39, 14});
            FloodWith(*painter, Red);
        }
        EXPECT_EQ(painter->GetClipRect(), (rectangle<double>{5, 5, 35, 25}));
        painter->SetBrush({_color(0, 0, 255)});
        painter->FillRect(0, 0, 39, 7);
    }
    EXPECT_TRUE(ImagesMatch(Shot(), Blank().Fill({5, 5, 34, 7}, Blue).Fill({5, 10, 34, 14}, Red)));
}

// Without a former clip the rectangle alone clips, the margins play no part, and nothing comes back; a held
// clip is set in device pixels and the saved one after.
TEST(ClipHolderCalls, SetsAndRestoresTheClip) {
    CRecordingPainter painter({100, 100});
    {
        CClipHolder const hold(&painter, {10, 10, 19, 19}, {-5, -5, 5, 5});
        EXPECT_EQ(painter.GetClipRect(), (rectangle<double>{10, 10, 20, 20}));
    }
    EXPECT_TRUE(painter.GetClipRect().IsAllZero());
    EXPECT_FALSE(painter.GetClip().active);
    painter.SimpleSetClipRect({0, 0, 50, 50}, false);
    { CClipHolder const hold(&painter, {10, 10, 19, 19}); }
    EXPECT_EQ(painter.Lines(),
              (std::vector<std::string>{"SetClipRect 10,10,19,19", "ResetClip", "SimpleSetClipRect 0,0,50,50",
                                        "ResetClip", "SimpleSetClipRect 10,10,20,20", "ResetClip",
                                        "SimpleSetClipRect 0,0,50,50"}));
}

} // namespace
