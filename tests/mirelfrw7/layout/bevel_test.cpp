#include <mirelfrw7/layout/bevel.h>

#include "support/control_fixture.h"
#include "support/pixel_image.h"
#include "support/test_elements.h"

#include <mirel7/custom_palette.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel_test::CControlFixture;
using R = mirel7::rectangle<int>;
using Lines = std::vector<std::string>;

struct SInsets {
    R offset, contentOffset;
    mirel7::rectangle<double> bevel;
    R content;
};

// A bevel of 0..40 x 0..30.
SInsets const InsetVectors[] = {
    {{0, 0, 0, 0}, {2, 2, 2, 2}, {0, 0, 40, 30}, {2, 2, 38, 28}},
    {{1, 2, 3, 4}, {2, 2, 2, 2}, {1, 2, 37, 26}, {3, 4, 35, 24}},
    {{1, 2, 3, 4}, {0, 1, 5, 0}, {1, 2, 37, 26}, {1, 3, 32, 26}},
};

// An offset larger than the bevel turns its rectangle inside out, and the frame would fall outside.
TEST(Bevel, AFrameTurnedInsideOutByItsOffsetStaysWithinTheBounds) {
    CControlFixture f({60, 20}, false);
    CBevel bevel(f.Root(), {0, 0}, AlignNone);
    bevel.SetBkColor(mirel7::_color(200, 30, 30));
    bevel.SetShape(CBevel::BorderShape(0));
    bevel.SetPos({0, 0, 36, 2}, false);
    bevel.SetOffset({0, 3, 0, 0});
    while (f.Paint()) {
    }
    auto const image = mirel_test::CPixelImage::Of(*f.window->GetPainter());
    for (int x = 0; x < 40; ++x)
        ASSERT_EQ(image.At(x, 3), image.At(50, 10)) << "at " << x;
}

// A child docked to fill the content follows a new inset at once.
TEST(Bevel, TheContentIsInsetByTheOffsetAndTheContentOffset) {
    for (SInsets const& v : InsetVectors) {
        CControlFixture f;
        CBevel bevel(f.Root(), {0, 0}, AlignNone);
        mirel_test::CFilledElement child(&bevel, {0, 0}, AlignClient);
        bevel.SetPos({5, 5, 45, 35}, true);
        EXPECT_EQ(bevel.GetContentRect(), (R{2, 2, 38, 28})) << "the default reserves 2 pixels";
        bevel.SetOffset(v.offset);
        bevel.SetContentOffset(v.contentOffset);
        EXPECT_EQ(bevel.GetBevelRect(), v.bevel);
        EXPECT_EQ(bevel.GetContentRect(), v.content);
        EXPECT_EQ(child.GetPosition(), v.content);
    }
}

// The fills, and with `clips` the clips, of one paint of `e` alone.
Lines PaintOf(CControlFixture& f, CVisualElement& e, bool clips) {
    f.Paint();
    f.Recorder()->Clear();
    e.Update(UpdateLocal);
    f.Paint();
    return clips ? f.Recorder()->Lines({"FillRect", "SetClipRect", "ResetClip", "SimpleSetClipRect"})
                 : f.Recorder()->Lines({"FillRect"});
}

std::string Hex(mirel7::_color c) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", c.r, c.g, c.b);
    return text;
}

TEST(Bevel, TheDefaultShapeDrawsNoFrameAndAFrameTakesItsShadesFromTheBackground) {
    CControlFixture f;
    CBevel bevel(f.Root(), {0, 0}, AlignNone);
    bevel.SetPos({5, 5, 45, 35}, false);
    bevel.SetBkColor(mirel7::_color(200, 0, 0));
    EXPECT_EQ(PaintOf(f, bevel, false), (Lines{"FillRect 5,5,45,35 brush=#c80000"}));
    bevel.SetShape(mirel7::BorderBox);
    Lines const lines = PaintOf(f, bevel, false);
    ASSERT_GE(lines.size(), 3u);
    EXPECT_EQ(lines[1], "FillRect 5,5,45,35 brush=#c80000") << "the inside in the element's own face";
    std::string const shadow =
        Hex(mirel7::CreateCustomPalette(mirel7::_color(200, 0, 0))->GetColor(ISysPalette::ColorShadow));
    EXPECT_NE(lines[2].find("brush=" + shadow), std::string::npos) << lines[2];
}

// Where no child covers the inside, what lies behind shows: a border that repaints alone would leave there
// what a hidden child drew. Behind it is its parent, or the grandparent where the border stands beyond it.
TEST(Border, WhatLiesBehindRepaintsWithIt) {
    for (bool const beyond : {false, true}) {
        CControlFixture f;
        mirel_test::CFilledElement grandparent(f.Root(), {0, 0}, AlignClient);
        mirel_test::CFilledElement parent(&grandparent, {5, 0}, AlignLeft);
        CBorder border(&parent, {40, 0}, beyond ? AlignNone : AlignLeft);
        mirel_test::CFilledElement child(&border, {0, 10}, AlignTop);
        f.control->Rearrange();
        if (beyond) border.SetPos({0, 0, 28, 18}, false);
        f.Paint();
        parent.paints = grandparent.paints = 0;
        child.SetVisible(false);
        f.Paint();
        EXPECT_EQ((beyond ? grandparent : parent).paints, 1) << beyond;
    }
}

TEST(Border, PaintsOnlyItsFrameAndNothingWhenTransparent) {
    CControlFixture f;
    CBorder border(f.Root(), {0, 0}, AlignNone);
    border.SetPos({5, 5, 45, 35}, false);
    border.SetShape(mirel7::BorderBox);
    Lines const lines = PaintOf(f, border, true);
    // The frame is drawn with the inside cut out of the clip, which goes back after.
    ASSERT_EQ(lines.size(), 9u);
    EXPECT_EQ(lines[0], "SetClipRect 7,7,43,33 exclude");
    EXPECT_EQ(lines[7], "ResetClip");
    border.SetTransparent(true);
    f.Paint();
    f.Recorder()->Clear();
    border.Update(UpdateLocal);
    f.Paint();
    EXPECT_TRUE(f.Recorder()->Lines({"FillRect", "SetClipRect", "Rectangle"}).empty());
}

} // namespace
