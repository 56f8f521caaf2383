#pragma once

#include <mirel7/cairo/cairo_painter.h>
#include <mirel7/raster_picture.h>

namespace mirel7::cairo {

// A picture in memory: an image surface with a painter of its own, starting transparent.
class CCairoRasterPicture final : public IRasterPicture {
public:
    CCairoRasterPicture(int width, int height);

    size<int> GetSize() const override { return m_painter.GetBufferSize(); }
    bool CopyFrom(IRasterPicture* source, rectangle<int> const* sourcePart = nullptr) override;
    void Scale(size<int> const& newSize) override;
    IPainter* GetPainter() override { return &m_painter; }

    CCairoPainter& Painter() { return m_painter; }
    CImageSurface& Surface() { return m_painter.Surface(); }

private:
    CCairoPainter m_painter;
};

// The Cairo picture behind `picture`, or null for a picture of another kind.
CCairoRasterPicture* AsCairoPicture(IRasterPicture* picture);

} // namespace mirel7::cairo
