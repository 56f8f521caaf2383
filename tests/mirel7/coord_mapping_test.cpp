#include <mirel7/coord_mapping.h>
#include <mirel7/recording_painter.h>

#include <gtest/gtest.h>

namespace {

using namespace mirel7;

IPainter::CoordInfo Element(double left, double top, double width, double height, int x, int y, int cx,
                            int cy) {
    return IPainter::CoordInfo::Mapping(left, top, width, height, x, y, cx, cy);
}

// Device mode is the identity whatever the record says; element mode scales, shifts and flips, a distance
// leaving origins out; zero extents mean scale one, never a division.
TEST(CoordMapping, ToDeviceAndBack) {
    // Logical 100..300 over device 10..110 in x; y flipped: logical 0 at device row 50, growing upwards.
    IPainter::CoordInfo const flip = Element(100, 0, 200, 40, 10, 50, 100, -40);
    IPainter::CoordInfo const zero = Element(10, 20, 0, 50, 100, 200, 30, 0);
    IPainter::CoordInfo const other = Element(5, 5, 10, 10, 100, 100, 20, 20);
    struct SCase {
        IPainter::MapMode mode;
        IPainter::CoordInfo const* info;
        point<double> logical;
        bool distance;
        point<double> device;
    } const cases[] = {
        {IPainter::MapDevice, &other, {3, 4}, false, {3, 4}},
        {IPainter::MapDevice, nullptr, {3, 4}, false, {3, 4}},
        {IPainter::MapElement, &flip, {100, 0}, false, {10, 50}},
        {IPainter::MapElement, &flip, {300, 40}, false, {110, 10}},
        {IPainter::MapElement, &flip, {200, 20}, false, {60, 30}},
        {IPainter::MapElement, &flip, {20, 10}, true, {10, -10}},
        {IPainter::MapElement, &zero, {15, 25}, false, {105, 205}},
        {IPainter::MapElement, nullptr, {7, 8}, false, {7, 8}},
    };
    for (SCase const& c : cases) {
        CCoordMapping mapping;
        mapping.Set(c.mode, c.info);
        EXPECT_EQ(mapping.ToDevice(c.logical, c.distance), c.device) << "row " << &c - cases;
        EXPECT_EQ(mapping.ToLogical(c.device, c.distance), c.logical) << "row " << &c - cases;
        if (c.info) {
            EXPECT_EQ(mapping.Info(), *c.info);
        }
    }
    CCoordMapping mapping;
    mapping.Set(IPainter::MapElement, &flip);
    EXPECT_EQ(mapping.ScaleX(), 0.5);
    EXPECT_EQ(mapping.ScaleY(), -1);
}

TEST(CoordMapping, RoundTripsThroughThePainterAreExact) {
    CRecordingPainter painter;
    IPainter::CoordInfo const info = Element(-3.5, 1e6, 640, -480, 17, 900, 1280, 960);
    painter.SetCoordSystem(IPainter::MapElement, &info);

    IPainter::MapMode mode = IPainter::MapDevice;
    IPainter::CoordInfo back;
    painter.GetCoordSystem(mode, &back);
    EXPECT_EQ(mode, IPainter::MapElement);
    EXPECT_EQ(back, info);

    for (point<double> const p :
         {point<double>{0, 0}, point<double>{-3.5, 1e6}, point<double>{123.25, -77}, point<double>{1e5, 3}}) {
        for (bool const distance : {false, true}) {
            point<double> q = p;
            painter.ConvertCoord1(&q, distance);
            painter.DeconvertCoord1(&q, distance);
            EXPECT_EQ(q, p) << p.x << "," << p.y << " distance " << distance;
        }
    }
    rectangle<double> r{1, 2, 30, 40};
    painter.ConvertCoord2(&r, false);
    EXPECT_EQ(r, (rectangle<double>{26, 900 + (2 - 1e6) * -2, 84, 900 + (40 - 1e6) * -2}));
    painter.DeconvertCoord2(&r, false);
    EXPECT_EQ(r, (rectangle<double>{1, 2, 30, 40}));
}

} // namespace
