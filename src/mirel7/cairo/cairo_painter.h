#pragma once

#include <mirel7/cairo/image_surface.h>
#include <mirel7/cairo/pango_text.h>
#include <mirel7/painter_base.h>

#include <cairo.h>

#include <cstdint>

namespace mirel7::cairo {

class CCairoRasterPicture;

// The painter of a window's back buffer or of a raster picture: Cairo on an image surface, text through
// Pango. Pixel calls bypass Cairo and work on the surface's memory.
class CCairoPainter final : public CPainterBase {
public:
    using IPainter::AlphaBlend;
    using IPainter::FillRect;

    CCairoPainter(size<int> const& bufferSize, double dpiScale);
    ~CCairoPainter() override;

    void GetFontMetrics(fontmetrics* metrics) override;

    void LineTo(double x, double y) override;
    void Rectangle(double left, double top, double right, double bottom) override;
    void RoundRect(double left, double top, double right, double bottom, double rx, double ry) override;
    void FillRect(double left, double top, double right, double bottom) override;
    void FocusRect(double left, double top, double right, double bottom) override;
    void Polygon(point<double> const* points, int count) override;

    // The rasteriser of antialiased lines calls these for every pixel it touches, so they stay inline.
    _color GetPixel(double x, double y) override {
        point<double> const d = ToDevice(x, y);
        int const px = FloorPixel(d.x), py = FloorPixel(d.y);
        if (!m_surface.Contains(px, py)) return {};
        return ColorOf(m_surface.PixelsToRead()[std::ptrdiff_t(py) * m_surface.Stride() + px]);
    }
    void SetPixel(double x, double y, _color c) override {
        point<double> const d = ToDevice(x, y);
        int const px = FloorPixel(d.x), py = FloorPixel(d.y);
        if (!PixelDrawable(px, py)) return;
        m_surface.PixelsToWrite()[std::ptrdiff_t(py) * m_surface.Stride() + px] =
            0xFF000000u | std::uint32_t(c.r) << 16 | std::uint32_t(c.g) << 8 | c.b;
    }

    void DrawRasterPicture(IRasterPicture* picture, double left, double top, double right, double bottom,
                           RasterOperation op = RopCopy) override;
    void DrawRasterPictureEx(IRasterPicture* picture, double left, double top, double right, double bottom,
                             rectangle<int> const& source, RasterOperation op = RopCopy) override;
    void ExtractRasterPicture(IRasterPicture* picture, double left, double top, double right,
                              double bottom) override;
    void ExtractRasterPictureEx(IRasterPicture* picture, double left, double top, double right, double bottom,
                                point<int> const& destination) override;
    void AlphaBlend(double left, double top, double right, double bottom, IRasterPicture* picture,
                    int alpha) override;
    void DrawXPM(XPMImage const& image, double x, double y, int srcX, int srcY, int width,
                 int height) override;
    void DrawControlElement(ControlElement element, double left, double top, double right, double bottom,
                            int state) override;

    void Resize(size<int> const& newSize) override;
    SPixels BeginPixelAccess() override;
    void EndPixelAccess() override;
    void ScrollBuffer(int dx, int dy, rectangle<int> const& source) override;
    bool SavePng(std::string const& path) override;

    CImageSurface& Surface() { return m_surface; }
    // Takes `replacement` as the surface, with its size (pictures copying and scaling).
    void Adopt(cairo_surface_t* replacement);

protected:
    void RenderText(STextCall const& call) override;
    ITextMeasure& Measure() override;
    void ClipChanged() override;

private:
    static int FloorPixel(double v) {
        // Mapped coordinates come out of a multiplication and a division; the tolerance keeps 2.9999999
        // on pixel 3, as DevicePixels does.
        v += 1e-7;
        int const i = static_cast<int>(v);
        return i - (v < i);
    }
    static _color ColorOf(std::uint32_t word);
    bool PixelDrawable(int x, int y) const {
        return x >= m_clipBox.left && y >= m_clipBox.top && x < m_clipBox.right && y < m_clipBox.bottom &&
               (!m_clipRegion || cairo_region_contains_point(m_clipRegion, x, y));
    }

    // The context, ready for a path in the pen, or null when the pen draws nothing.
    cairo_t* PenContext();
    // The context with the brush as source, or null when the brush draws nothing.
    cairo_t* BrushContext();
    static void SetSource(cairo_t* cr, _color const& c);
    static void SetDashes(cairo_t* cr, double const* steps, int count, double width);
    // Half a pixel for odd pen widths puts their strokes on whole pixels.
    double PenOffset() const;
    void DrawPicture(CCairoRasterPicture* picture, rectangle<int> const& destination,
                     rectangle<int> const& part, int alpha);
    // Paints the part `from` of `pixels`, found at `origin` in them, onto `destination`.
    void PaintSurface(cairo_surface_t* pixels, point<int> const& origin, rectangle<int> const& from,
                      rectangle<int> const& destination, int alpha);
    void AddRoundRect(cairo_t* cr, double left, double top, double right, double bottom, double rx,
                      double ry);

    CImageSurface m_surface;
    CPangoText m_text;
    // Pixels that SetPixel may write: the bounding box of the clip, and the clip itself when it is more
    // than that box.
    rectangle<int> m_clipBox;
    cairo_region_t* m_clipRegion = nullptr;
};

} // namespace mirel7::cairo
