#pragma once

#include <mirel7/export.h>
#include <mirel7/painter.h>

namespace mirel7 {

// The logical-to-device mapping of a painter, per axis an affine map kept as the two origins and the two
// extents it was given, so that converting back and forth multiplies and divides by the same numbers and
// integer coordinates survive a round trip exactly.
class MIREL7_API CCoordMapping {
public:
    void Set(IPainter::MapMode mode, IPainter::CoordInfo const* info);
    IPainter::MapMode Mode() const { return m_mode; }
    IPainter::CoordInfo const& Info() const { return m_info; }

    point<double> ToDevice(point<double> p, bool distance) const {
        return {m_x.ToDevice(p.x, distance), m_y.ToDevice(p.y, distance)};
    }
    point<double> ToLogical(point<double> p, bool distance) const {
        return {m_x.ToLogical(p.x, distance), m_y.ToLogical(p.y, distance)};
    }
    // Device pixels per logical unit, signed: negative on a flipped axis.
    double ScaleX() const { return m_x.Scale(); }
    double ScaleY() const { return m_y.Scale(); }

private:
    struct SAxis {
        double logicalOrigin = 0, deviceOrigin = 0;
        // A zero on either side stands for a scale of 1.
        double logicalExtent = 1, deviceExtent = 1;

        double ToDevice(double v, bool distance) const {
            // Equal extents, as every element's own mapping has, need no multiplication: pixel calls go
            // through here once a pixel.
            double const moved = distance ? v : v - logicalOrigin;
            double const scaled =
                deviceExtent == logicalExtent ? moved : moved * deviceExtent / logicalExtent;
            return distance ? scaled : scaled + deviceOrigin;
        }
        double ToLogical(double v, bool distance) const {
            double const moved = distance ? v : v - deviceOrigin;
            double const scaled =
                deviceExtent == logicalExtent ? moved : moved * logicalExtent / deviceExtent;
            return distance ? scaled : scaled + logicalOrigin;
        }
        double Scale() const { return deviceExtent / logicalExtent; }
    };
    static SAxis MakeAxis(double logicalOrigin, double logicalExtent, int deviceOrigin, int deviceExtent);

    IPainter::MapMode m_mode = IPainter::MapDevice;
    IPainter::CoordInfo m_info;
    SAxis m_x, m_y;
};

} // namespace mirel7
