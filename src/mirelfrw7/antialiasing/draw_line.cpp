#include <mirelfrw7/antialiasing/draw_line.h>

#include <mirelfrw7/antialiasing/line_contour.h>
#include <mirelfrw7/core/drawing_context.h>

#include <mirel7/assert.h>

#include <cmath>

namespace mirelfrw7 {

void DrawLine(mirel7::IPainter* painter, mirel7::point<double> const& first,
              mirel7::point<double> const& second, CapStyle firstCap, CapStyle secondCap) {
    if (!painter) return;
    mirel7::point<double> from = second, to = first;
    painter->ConvertCoord1(&from, false);
    painter->ConvertCoord1(&to, false);
    mirel7::pen const pen = painter->GetPen();
    bool const finite =
        std::isfinite(from.x) && std::isfinite(from.y) && std::isfinite(to.x) && std::isfinite(to.y);
    MIREL_ASSERT(finite && pen.width >= 0);
    if (!finite || pen.width < 0) return;

    antialiasing::CLineContour line(0);
    line.m_x1 = std::trunc(from.x);
    line.m_y1 = std::trunc(from.y);
    line.m_x2 = std::trunc(to.x);
    line.m_y2 = std::trunc(to.y);
    line.m_startCap = secondCap;
    line.m_endCap = firstCap;
    line.m_width = unsigned(pen.width);
    line.m_dash = pen.style;
    line.m_opacity = int(pen.color.a * 0.85);
    line.m_startColor = line.m_endColor = {pen.color.r, pen.color.g, pen.color.b, 255, 0};
    line.Generate(nullptr, nullptr);
    line.Normalize(254);

    mirel7::IPainter::MapMode mode;
    mirel7::IPainter::CoordInfo info;
    painter->GetCoordSystem(mode, &info);
    painter->SetCoordSystem(mirel7::IPainter::MapDevice, nullptr);
    CDrawingContext context(painter);
    line.Draw(&context);
    painter->SetCoordSystem(mode, &info);
}

} // namespace mirelfrw7
