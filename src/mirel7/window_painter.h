#pragma once

#include <mirel7/export.h>
#include <mirel7/painter.h>

#include <cstdint>
#include <memory>
#include <string>

namespace mirel7 {

// The painter of a system window: it draws into a back buffer that keeps its pixels between paint passes,
// since the framework repaints only what changed and moves pixels instead of repainting them. The window
// presents the buffer and scrolls inside it. Windows use only this interface; how the buffer is drawn is
// the backend's business.
class MIREL7_API IWindowPainter : public IPainter {
public:
    // The back buffer's pixels: premultiplied ARGB in native 32-bit words, row after row.
    struct SPixels {
        std::uint32_t* data = nullptr;
        int width = 0;
        int height = 0;
        int stride = 0; // in pixels
    };

    // A new size keeps the old pixels anchored at the top left; what is new is undefined until painted, and
    // NeedsFullRepaint() answers true until the next paint pass ends.
    virtual void Resize(size<int> const& newSize) = 0;
    virtual size<int> GetBufferSize() const = 0;
    virtual void SetDPIScale(double scale) = 0;

    // Direct access to the buffer between the two calls; no drawing may happen in between. A painter without
    // pixels answers an empty SPixels.
    virtual SPixels BeginPixelAccess() = 0;
    virtual void EndPixelAccess() = 0;

    // Moves the pixels of `source` (device pixels, right and bottom inclusive) by (dx, dy), clipped to the
    // buffer; pixels of the source not covered by the moved copy keep their old content.
    virtual void ScrollBuffer(int dx, int dy, rectangle<int> const& source) = 0;

    // Writes the buffer as a PNG file; false when it could not.
    virtual bool SavePng(std::string const& path) = 0;
};

// The window painter and raster pictures of the drawing backend.
MIREL7_API std::unique_ptr<IWindowPainter> NewWindowPainter(size<int> const& bufferSize, double dpiScale);
MIREL7_API mirel_ptr<IRasterPicture> NewRasterPicture(int width, int height);

} // namespace mirel7
