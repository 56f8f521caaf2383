#include <mirelfrw7/layout/pane.h>

#include "support/control_fixture.h"
#include "support/test_elements.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel_test::CControlFixture;
using mirel_test::CFilledElement;
using Lines = std::vector<std::string>;

struct CColouredPane : CPane {
    using CPane::CPane;
    _color GetActiveColor() const override { return {0, 0, 255}; }
    _color GetInactiveColor() const override { return {0, 255, 0}; }
};

TEST(Pane, AnOutlineOfTheFocusStateOverItsOwnBackground) {
    CControlFixture f;
    CColouredPane pane(f.Root(), {0, 0}, AlignClient);
    CFilledElement inside(&pane, {0, 10}, AlignTop), outside(f.Root(), {0, 10}, AlignTop);
    inside.SetFocusable(true);
    outside.SetFocusable(true);
    f.control->Rearrange();
    EXPECT_EQ(pane.GetContentRect(), (mirel7::rectangle<int>{1, 1, 198, 87}));
    EXPECT_EQ(inside.GetPosition(), (mirel7::rectangle<int>{1, 1, 198, 11}));
    auto const outline = [&] {
        f.Paint();
        return f.Recorder()->Lines({"Rectangle"});
    };
    outline();
    f.Recorder()->Clear();
    inside.SetFocus(false);
    EXPECT_TRUE(pane.IsActive());
    EXPECT_EQ(outline(), (Lines{"Rectangle 0,11,199,99 pen=#0000ff/1/solid brush=none"}));
    f.Recorder()->Clear();
    outside.SetFocus(false);
    EXPECT_FALSE(pane.IsActive());
    EXPECT_EQ(outline(), (Lines{"Rectangle 0,11,199,99 pen=#00ff00/1/solid brush=none"}));
}

} // namespace
