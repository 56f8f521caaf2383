#include "mirel7/cairo/cairo_fixture.h"

#include <mirel7/window_painter.h>

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace mirel7;
using mirel_test::CPixelImage;

constexpr int CellWidth = 32, CellHeight = 24;

constexpr IPainter::ControlElement Elements[] = {
    IPainter::ControlChecked,          IPainter::ControlUnchecked,       IPainter::ControlRadioOn,
    IPainter::ControlRadioOff,         IPainter::ControlHeaderSection,   IPainter::ControlHeaderSortUp,
    IPainter::ControlPushButton,       IPainter::ControlHeaderSortDown,  IPainter::ControlScrollArrowLeft,
    IPainter::ControlScrollArrowRight, IPainter::ControlScrollArrowUp,   IPainter::ControlScrollArrowDown,
    IPainter::ControlScrollTrackHorz,  IPainter::ControlScrollTrackVert, IPainter::ControlScrollThumbHorz,
    IPainter::ControlScrollThumbVert,  IPainter::ControlDropDownArrow,   IPainter::ControlRollUp,
    IPainter::ControlRollDown,         IPainter::ControlCloseCross,
};

// The last column is drawn with the painter's disabled flag instead of the state bit.
constexpr int States[] = {0,
                          IPainter::StateHot,
                          IPainter::StateHot | IPainter::StatePressed,
                          IPainter::StateFocused,
                          IPainter::StateChecked,
                          IPainter::StateDisabled,
                          0};
constexpr int StateCount = std::size(States);

// Every element a row, every state a column, each in its cell less a margin, on white.
CPixelImage Sheet(double scale) {
    int const w = int(CellWidth * scale), h = int(CellHeight * scale), margin = int(2 * scale);
    auto painter = NewWindowPainter({w * StateCount, h * int(std::size(Elements))}, scale);
    painter->SetBrush({_color(255, 255, 255)});
    painter->FillRect(0, 0, 10000, 10000);
    for (int row = 0; row < int(std::size(Elements)); ++row)
        for (int column = 0; column < StateCount; ++column) {
            painter->SetDisabled(column == StateCount - 1);
            painter->DrawControlElement(Elements[row], column * w + margin, row * h + margin,
                                        (column + 1) * w - margin - 1, (row + 1) * h - margin - 1,
                                        States[column]);
        }
    return CPixelImage::Of(*painter);
}

class ControlLook : public testing::TestWithParam<double> {};

// The references were rendered once and looked at. A missing one fails the test, which leaves the
// rendering in the test output directory to be looked at and checked in.
TEST_P(ControlLook, MatchesTheReferenceSheet) {
    std::string const name = "look_" + std::to_string(int(GetParam())) + "x";
    CPixelImage const actual = Sheet(GetParam());
    CPixelImage const expected = CPixelImage::Load(std::string(MIREL_LOOK_DATA "/") + name + ".png");
    if (expected.Width() == 0) {
        std::string const rendered = mirel_test::TestOutputDirectory() + "/" + name + ".png";
        actual.Save(rendered);
        FAIL() << "no reference " << name << ".png; this rendering is in " << rendered;
    }
    // Antialiased edges may land a little differently from one Cairo to another.
    int const allowed = actual.Width() * actual.Height() / 500;
    EXPECT_TRUE(mirel_test::ImagesMatch(actual, expected, 24, allowed, name));
}

INSTANTIATE_TEST_SUITE_P(Scales, ControlLook, testing::Values(1.0, 2.0));

TEST(ControlLookSubstitution, DrawsEveryPieceInTheSubstituteColourOnly) {
    auto painter = NewWindowPainter({CellWidth, CellHeight}, 1.0);
    painter->SetColorSubstitution(_color(255, 0, 0), true);
    for (IPainter::ControlElement e : Elements)
        painter->DrawControlElement(e, 0, 0, CellWidth - 1, CellHeight - 1, IPainter::StateFocused);
    CPixelImage const shot = CPixelImage::Of(*painter);
    EXPECT_EQ(shot.CountOf(mirel_test::Red), CellWidth * CellHeight) << "the tracks fill their whole cell";
    painter->SetColorSubstitution({}, false);
    painter->SetBrush({_color(0, 0, 255)});
    painter->FillRect(0, 0, 100, 100);
    painter->SetColorSubstitution(_color(), true);
    painter->DrawControlElement(IPainter::ControlPushButton, 0, 0, CellWidth - 1, CellHeight - 1, 0);
    EXPECT_EQ(CPixelImage::Of(*painter).CountOf(mirel_test::Blue), CellWidth * CellHeight)
        << "an empty substitute draws nothing";
}

} // namespace
