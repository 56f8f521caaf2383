#include <mirelfrw7/core/invalid_region.h>

#include "mirel7/cairo/cairo_fixture.h"

#include <vector>

namespace {

using namespace mirel7;
using namespace mirel_test;
using mirelfrw7::CInvalidRegion;
using Rects = std::vector<rectangle<double>>;

Rects All(CInvalidRegion const& region) {
    Rects rects;
    for (int i = 0; i < region.GetCount(); ++i)
        rects.push_back(region[i]);
    return rects;
}

// Sides run the whole height, top and bottom fill between; only the parts that stick out count. An axis
// reversed in both rectangles swaps before and after; reversed in one only, it counts as running forwards,
// and no side of the reversed whole lies before or after the valid part.
TEST(InvalidRegion, PartsOutsideTheValidPart) {
    struct SCase {
        rectangle<double> whole, valid;
        Rects parts;
    } const cases[] = {
        {{0, 0, 100, 50},
         {20, 10, 80, 40},
         {{0, 0, 20, 50}, {80, 0, 100, 50}, {20, 0, 80, 10}, {20, 40, 80, 50}}},
        {{0, 0, 100, 50}, {0, 0, 100, 50}, {}},
        {{0, 0, 100, 50}, {0, 10, 100, 50}, {{0, 0, 100, 10}}},
        {{0, 0, 100, 50}, {0, 0, 60, 30}, {{60, 0, 100, 50}, {0, 30, 60, 50}}},
        {{0, 0, 100, 50}, {20, 10, 20, 40}, {{0, 0, 100, 50}}},
        {{0, 0, 100, 50}, {}, {{0, 0, 100, 50}}},
        {{100, 0, 0, 50},
         {80, 10, 20, 40},
         {{100, 0, 80, 50}, {20, 0, 0, 50}, {80, 0, 20, 10}, {80, 40, 20, 50}}},
        {{0, 50, 100, 0},
         {20, 40, 80, 10},
         {{0, 50, 20, 0}, {80, 50, 100, 0}, {20, 50, 80, 40}, {20, 10, 80, 0}}},
        {{100, 0, 0, 50}, {20, 10, 80, 40}, {{100, 0, 0, 10}, {100, 40, 0, 50}}},
    };
    for (SCase const& c : cases) {
        CInvalidRegion const region(c.whole, c.valid);
        EXPECT_EQ(All(region), c.parts) << "row " << &c - cases;
        EXPECT_TRUE(region[region.GetCount()].IsAllZero());
        EXPECT_TRUE(region[-1].IsAllZero());
    }
}

// The rectangles of a region and its valid part cover the whole on the screen, whichever way the
// element's mapping runs.
class InvalidRegionOnScreen : public CCairoPainterTest, public testing::WithParamInterface<bool> {};

TEST_P(InvalidRegionOnScreen, CoversEverythingOutsideTheValidPart) {
    bool const flipped = GetParam();
    // Flipped, logical x runs from device 39 down to 0 and logical y from 29 down to 0.
    IPainter::CoordInfo const mapping =
        flipped ? Mapping(0, 0, 40, 30, 39, 29, -40, -30) : Mapping(0, 0, 40, 30, 0, 0, 40, 30);
    painter->SetCoordSystem(IPainter::MapElement, &mapping);
    // Device (0, 0)..(39, 29) and (10, 8)..(29, 20), written in the mapping's own direction.
    rectangle<double> const whole =
        flipped ? rectangle<double>{39, 29, 0, 0} : rectangle<double>{0, 0, 39, 29};
    rectangle<double> const valid =
        flipped ? rectangle<double>{29, 21, 10, 9} : rectangle<double>{10, 8, 29, 20};
    CInvalidRegion const region(whole, valid);
    EXPECT_EQ(region.GetCount(), 4);
    painter->SetBrush({_color(255, 0, 0)});
    for (rectangle<double> const& r : All(region))
        painter->FillRect(r);
    painter->SetBrush({_color(0, 0, 255)});
    painter->FillRect(valid);
    EXPECT_TRUE(ImagesMatch(Shot(), CPixelImage(Width, Height, Red).Fill({10, 8, 29, 20}, Blue)));
}

INSTANTIATE_TEST_SUITE_P(Mappings, InvalidRegionOnScreen, testing::Values(false, true),
                         [](testing::TestParamInfo<bool> const& info) {
                             return info.param ? "Flipped" : "Forwards";
                         });

} // namespace
