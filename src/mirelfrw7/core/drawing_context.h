#pragma once

#include <mirelfrw7/export.h>

#include <mirel7/painter.h>

namespace mirelfrw7 {

// The only access of the antialiasing rasteriser to a surface: one pixel at a time, as a colour word (red in
// byte 0, green in byte 1, blue in byte 2).
class MIRELFRW7_API IDrawingContext {
public:
    virtual ~IDrawingContext();
    virtual unsigned long GetPixel(long x, long y) = 0;
    virtual void SetPixel(long x, long y, unsigned long color) = 0;
};

// A drawing context on a painter: the rasteriser's whole coordinates are placed at origin + x * scale in
// the painter's coordinates.
class MIRELFRW7_API CDrawingContext : public IDrawingContext {
public:
    explicit CDrawingContext(mirel7::IPainter* painter, double originX = 0, double originY = 0,
                             double scaleX = 1, double scaleY = 1)
        : m_painter(painter), m_originX(originX), m_originY(originY), m_scaleX(scaleX), m_scaleY(scaleY) {}

    // Only the colour: the alpha byte is masked off, and a point outside the surface reads as white.
    unsigned long GetPixel(long x, long y) override;
    // Writes an opaque pixel of the colour in the three low bytes of `color`.
    void SetPixel(long x, long y, unsigned long color) override;

private:
    double PainterX(long x) const { return double(x) * m_scaleX + m_originX; }
    double PainterY(long y) const { return double(y) * m_scaleY + m_originY; }

    mirel7::IPainter* m_painter;
    double m_originX, m_originY;
    double m_scaleX, m_scaleY;
};

} // namespace mirelfrw7
