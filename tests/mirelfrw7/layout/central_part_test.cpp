#include <mirelfrw7/layout/central_part.h>

#include "mirelfrw7/scroll/test_scroll_model.h"
#include "support/control_fixture.h"
#include "support/test_elements.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel_test::CControlFixture;
using mirel_test::CFilledElement;
using R = mirel7::rectangle<int>;
using Lines = std::vector<std::string>;

// A central part of 0..199 x 20..99 in the window, under a strip, painted once.
struct CentralPart : testing::Test {
    CentralPart() {
        f.control->Rearrange();
        f.Paint();
        f.Recorder()->Clear();
    }
    CControlFixture f;
    CFilledElement strip{f.Root(), {0, 19}, AlignTop};
    CCentralPart part{f.Root(), {0, 0}, AlignClient};
};

struct SScroll {
    int dx, dy;
    Lines blit;
    R valid;
};

// No move is no scroll and leaves the valid rectangle; a move as large as it empties it.
SScroll const Scrolls[] = {
    {0, 0, {}, {0, 0, 199, 79}},
    {0, -10, {"ScrollBuffer 0,-10 0,30,199,99"}, {0, 0, 199, 69}},
    {0, 10, {"ScrollBuffer 0,10 0,20,199,89"}, {0, 10, 199, 79}},
    {5, 0, {"ScrollBuffer 5,0 0,20,194,99"}, {5, 0, 199, 79}},
    {0, 79, {}, {0, 0, 0, 0}},
    {0, -300, {}, {0, 0, 0, 0}},
};

TEST_F(CentralPart, TheValidRectShrinksByTheScrollAndAScrollAsLargeAsItEmptiesIt) {
    for (SScroll const& s : Scrolls) {
        part.Update(UpdateLocal);
        f.Paint();
        f.Recorder()->Clear();
        EXPECT_EQ(part.ScrollContent(s.dx, s.dy), s.dx != 0 || s.dy != 0);
        EXPECT_EQ(f.Recorder()->Lines({"ScrollBuffer"}), s.blit) << s.dx << "," << s.dy;
        EXPECT_EQ(part.GetValidRect(), s.valid) << s.dx << "," << s.dy;
    }
    part.SetCentralPane(&strip);
    EXPECT_EQ(part.GetCentralPane(), &part) << "always its own central pane";
}

// The part keeps its place in its holder while the holder moves down the window with its bottom edge:
// what the window shows there is no longer known to be right.
TEST(CentralPartIn, AMovingHolderInvalidatesIt) {
    CControlFixture f;
    CFilledElement holder(f.Root(), {0, 40}, AlignBottom);
    CCentralPart part(&holder, {50, 0}, AlignLeft);
    f.control->Rearrange();
    f.Paint();
    ASSERT_EQ(part.GetValidRect(), (R{0, 0, 50, 40}));
    f.window->InjectResize(220, 130);
    EXPECT_EQ(part.GetPosition(), (R{0, 0, 50, 40}));
    EXPECT_EQ(part.GetValidRect(), (R{0, 0, 0, 0}));
    EXPECT_EQ(part.GetRearrangeRect(), (R{0, 89, 50, 129}));
}

// Below an element squeezed to nothing the part is not on the screen: the pixels a blit would move there are
// others'.
TEST(CentralPartIn, ASqueezedParentMovesNoPixels) {
    CControlFixture f;
    CFilledElement squeezed(f.Root(), {0, 0}, AlignLeft);
    CCentralPart part(&squeezed, {0, 0}, AlignNone);
    part.SetPos({0, 0, 30, 30}, false);
    f.Paint();
    f.Recorder()->Clear();
    part.SetPos({0, 5, 30, 35}, false);
    EXPECT_EQ(f.Recorder()->Lines({"ScrollBuffer"}), Lines{});
}

// Over 0..199 x 20..99 of the window: 1000 units from 250 at 4 to a pixel across, 50 from 5 at 20 pixels
// each down.
TEST_F(CentralPart, DrawsInTheUnitsOfBothModelsAndLeavesThePainterAloneWithoutOne) {
    mirel_test::CTestScrollModel horz{0, 1000, 250}, vert{0, 50, 5};
    horz.measure = {4.0, 1};
    vert.measure = {1.0, 20};
    part.SetHorzScroll(&horz);
    mirel7::CRecordingPainter& painter = *f.Recorder();
    IPainter::CoordInfo const blank;
    IPainter::MapMode mode;
    IPainter::CoordInfo info;
    painter.SetCoordSystem(IPainter::MapDevice, &blank);
    part.SetCoordSystem(&painter);
    painter.GetCoordSystem(mode, &info);
    EXPECT_EQ(mode, IPainter::MapDevice);
    EXPECT_EQ(info, blank);
    part.SetVertScroll(&vert);
    part.SetCoordSystem(&painter);
    painter.GetCoordSystem(mode, &info);
    EXPECT_EQ(mode, IPainter::MapElement);
    EXPECT_EQ(info, IPainter::CoordInfo::Mapping(250, 5, 1000, 50, 0, 20, 250, 1000));
}

} // namespace
