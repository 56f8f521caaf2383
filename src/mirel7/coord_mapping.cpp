#include <mirel7/coord_mapping.h>

namespace mirel7 {

CCoordMapping::SAxis CCoordMapping::MakeAxis(double logicalOrigin, double logicalExtent, int deviceOrigin,
                                             int deviceExtent) {
    bool const identityScale = logicalExtent == 0 || deviceExtent == 0;
    return {logicalOrigin, static_cast<double>(deviceOrigin), identityScale ? 1.0 : logicalExtent,
            identityScale ? 1.0 : static_cast<double>(deviceExtent)};
}

void CCoordMapping::Set(IPainter::MapMode mode, IPainter::CoordInfo const* info) {
    m_mode = mode;
    m_info = info ? *info : IPainter::CoordInfo{};
    if (mode == IPainter::MapElement) {
        m_x = MakeAxis(m_info.left, m_info.width, m_info.x, m_info.cx);
        m_y = MakeAxis(m_info.top, m_info.height, m_info.y, m_info.cy);
    } else {
        // Any other mode draws in raw device pixels; the record is kept only to be read back.
        m_x = m_y = SAxis{};
    }
}

} // namespace mirel7
