#include <mirel7/coord_mapping.h>
#include <mirel7/recording_painter.h>

#include <gtest/gtest.h>

namespace {

using namespace mirel7;

IPainter::CoordInfo Element(double left, double top, double width, double height, int x, int y, int cx,
                            int cy) {
    return IPainter::CoordInfo::Mapping(left, top, width, height, x, y, cx, cy);
}

TEST(CoordMapping, DeviceModeIsIdentityWhateverTheRecordSays) {
    CCoordMapping mapping;
    IPainter::CoordInfo const info = Element(5, 5, 10, 10, 100, 100, 20, 20);
    mapping.Set(IPainter::MapDevice, &info);
    EXPECT_EQ(mapping.ToDevice({3, 4}, false), (point<double>{3, 4}));
    EXPECT_EQ(mapping.Info(), info) << "kept to be read back";
    mapping.Set(IPainter::MapDevice, nullptr);
    EXPECT_EQ(mapping.ToLogical({3, 4}, false), (point<double>{3, 4}));
}

TEST(CoordMapping, ElementModeScalesShiftsAndFlips) {
    CCoordMapping mapping;
    // Logical 100..300 over device 10..110 in x; y flipped: logical 0 at device row 50, growing upwards.
    IPainter::CoordInfo const info = Element(100, 0, 200, 40, 10, 50, 100, -40);
    mapping.Set(IPainter::MapElement, &info);
    EXPECT_EQ(mapping.ToDevice({100, 0}, false), (point<double>{10, 50}));
    EXPECT_EQ(mapping.ToDevice({300, 40}, false), (point<double>{110, 10}));
    EXPECT_EQ(mapping.ToDevice({20, 10}, true), (point<double>{10, -10})) << "a distance leaves origins out";
    EXPECT_EQ(mapping.ToLogical({60, 30}, false), (point<double>{200, 20}));
    EXPECT_EQ(mapping.ScaleX(), 0.5);
    EXPECT_EQ(mapping.ScaleY(), -1);
}

TEST(CoordMapping, ZeroExtentsMeanScaleOneNeverADivision) {
    CCoordMapping mapping;
    IPainter::CoordInfo const info = Element(10, 20, 0, 50, 100, 200, 30, 0);
    mapping.Set(IPainter::MapElement, &info);
    EXPECT_EQ(mapping.ToDevice({15, 25}, false), (point<double>{105, 205}));
    EXPECT_EQ(mapping.ToLogical({105, 205}, false), (point<double>{15, 25}));
    mapping.Set(IPainter::MapElement, nullptr);
    EXPECT_EQ(mapping.ToDevice({7, 8}, false), (point<double>{7, 8}));
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
