#pragma once

#include <mirel7/window_painter.h>

#include <cstdint>
#include <vector>

namespace mirel_test {

// A window painter over a plain pixel array, for the window tests: it fills rectangles, scrolls its buffer
// and gives its pixels; every other drawing call does nothing.
class CPixelPainter : public mirel7::IWindowPainter {
public:
    explicit CPixelPainter(mirel7::size<int> size);

    std::uint32_t Pixel(int x, int y) const { return m_pixels[static_cast<std::size_t>(y * m_size.cx + x)]; }
    void Fill(int left, int top, int right, int bottom, std::uint32_t argb);
    int paints = 0;

    void BeginPaint(int) override;
    void EndPaint() override { m_inPaint = false; }
    bool NeedsFullRepaint() const override { return false; }
    void SetFont(mirel7::font const&) override {}
    mirel7::font GetFont() const override { return {}; }
    void GetFontMetrics(mirel7::fontmetrics*) override {}
    void SetPen(mirel7::pen const&) override {}
    mirel7::pen GetPen() const override { return {}; }
    void SetBrush(mirel7::brush const& b) override { m_brush = b; }
    mirel7::brush GetBrush() const override { return m_brush; }
    void SetBkColor(mirel7::_color const&) override {}
    void SetTextColor(mirel7::_color const&) override {}
    double GetDPIScale() const override { return 1.0; }
    void SetCoordSystem(MapMode, CoordInfo const*) override {}
    void GetCoordSystem(MapMode& mode, CoordInfo*) const override { mode = MapDevice; }
    void ConvertCoord1(mirel7::point<double>*, bool) const override {}
    void ConvertCoord2(mirel7::point<double>*, bool) const override {}
    void DeconvertCoord1(mirel7::point<double>*, bool) const override {}
    void DeconvertCoord2(mirel7::point<double>*, bool) const override {}
    void SetClipRect(double, double, double, double, bool) override {}
    void SimpleSetClipRect(mirel7::rectangle<double> const&, bool) override {}
    void ResetClip() override {}
    void MoveTo(double, double) override {}
    void LineTo(double, double) override {}
    void Rectangle(double, double, double, double) override {}
    void RoundRect(double, double, double, double, double, double) override {}
    void FillRect(double left, double top, double right, double bottom) override;
    void FocusRect(double, double, double, double) override {}
    void Polygon(mirel7::point<double> const*, int) override {}
    mirel7::_color GetPixel(double, double) override { return {}; }
    void SetPixel(double, double, mirel7::_color) override {}
    mirel7::size<double> DrawString(mirel7::rectangle<double> const&, char const*, int, int) override {
        return {};
    }
    mirel7::size<double> DrawStringEx(mirel7::rectangle<double> const&, char const*, int, int, char const*,
                                      ITextFormatter*) override {
        return {};
    }
    mirel7::rectangle<double> GetTextRect(mirel7::rectangle<double> const& r, mirel7::size<double> const&,
                                          int) const override {
        return r;
    }
    mirel7::size<double> GetTextSize(std::string const&, int, int, bool, bool) override { return {}; }
    void DrawRasterPicture(mirel7::IRasterPicture*, double, double, double, double,
                           RasterOperation) override {}
    void DrawRasterPictureEx(mirel7::IRasterPicture*, double, double, double, double,
                             mirel7::rectangle<int> const&, RasterOperation) override {}
    void ExtractRasterPicture(mirel7::IRasterPicture*, double, double, double, double) override {}
    void ExtractRasterPictureEx(mirel7::IRasterPicture*, double, double, double, double,
                                mirel7::point<int> const&) override {}
    void AlphaBlend(double, double, double, double, mirel7::IRasterPicture*, int) override {}
    void DrawXPM(mirel7::XPMImage const&, double, double, int, int, int, int) override {}
    void DrawControlElement(ControlElement, double, double, double, double, int) override {}

    void Resize(mirel7::size<int> const& newSize) override;
    mirel7::size<int> GetBufferSize() const override { return m_size; }
    void SetDPIScale(double) override {}
    SPixels BeginPixelAccess() override { return {m_pixels.data(), m_size.cx, m_size.cy, m_size.cx}; }
    void EndPixelAccess() override {}
    void ScrollBuffer(int dx, int dy, mirel7::rectangle<int> const& source) override;
    bool SavePng(std::string const&) override { return false; }

private:
    mirel7::size<int> m_size;
    std::vector<std::uint32_t> m_pixels;
    mirel7::brush m_brush;
};

} // namespace mirel_test
