#pragma once

#include <mirel7/coord_mapping.h>
#include <mirel7/export.h>
#include <mirel7/text_flow.h>
#include <mirel7/window_painter.h>

#include <optional>
#include <string_view>
#include <vector>

namespace mirel7 {

// The state every window painter keeps whatever it draws with: the paint frame, attributes, the mapping,
// the clip and the text flow. Drawing backends and the recording painter share it, so that a test on the
// recording painter sees the same rectangles, clip and text placement as the screen.
class MIREL7_API CPainterBase : public IWindowPainter {
public:
    using IPainter::ConvertCoord2;
    using IPainter::DeconvertCoord2;
    using IPainter::DrawString;

    explicit CPainterBase(size<int> const& bufferSize = {}, double dpiScale = 1.0);

    void BeginPaint(int settings) override;
    void EndPaint() override;
    bool NeedsFullRepaint() const override { return m_needsFullRepaint; }

    void SetFont(font const& f) override { m_font = f; }
    font GetFont() const override { return m_font; }
    void SetPen(pen const& p) override { m_pen = p; }
    pen GetPen() const override { return m_pen; }
    void SetBrush(brush const& b) override { m_brush = b; }
    brush GetBrush() const override { return m_brush; }
    void SetBkColor(_color const& c) override { m_bkColor = c; }
    void SetTextColor(_color const& c) override { m_textColor = c; }
    _color GetTextColor() const override { return m_textColor; }
    double GetDPIScale() const override { return m_dpiScale; }
    void SetDPIScale(double scale) override { m_dpiScale = scale; }

    void SetCoordSystem(MapMode mode, CoordInfo const* info) override { m_mapping.Set(mode, info); }
    void GetCoordSystem(MapMode& mode, CoordInfo* info) const override;
    void ConvertCoord1(point<double>* p, bool distance) const override;
    void ConvertCoord2(point<double>* corners, bool distance) const override;
    void DeconvertCoord1(point<double>* p, bool distance) const override;
    void DeconvertCoord2(point<double>* corners, bool distance) const override;

    void SetClipRect(double left, double top, double right, double bottom, bool exclude) override;
    void SimpleSetClipRect(rectangle<double> const& deviceRect, bool exclude) override;
    void ResetClip() override;

    size<double> DrawString(rectangle<double> const& r, char const* text, int flags, int length) override;
    size<double> DrawStringEx(rectangle<double> const& r, char const* text, int flags, int length,
                              char const* delimiters, ITextFormatter* formatter) override;
    rectangle<double> GetTextRect(rectangle<double> const& r, size<double> const& textSize,
                                  int flags) const override;
    size<double> GetTextSize(std::string const& text, int flags = 0, int length = -1, bool breakLines = true,
                             bool logical = true) override;

    void Resize(size<int> const& newSize) override;
    size<int> GetBufferSize() const override { return m_bufferSize; }

    void MoveTo(double x, double y) override { m_position = ToDevice(x, y); }

    // The clip in force, in whole device pixels: everything inside `include` (the whole buffer when
    // unset) except the excluded rectangles. All rectangles have right and bottom exclusive.
    struct SClip {
        bool active = false;
        std::optional<rectangle<int>> include;
        std::vector<rectangle<int>> excluded;
    };
    SClip const& GetClip() const { return m_clip; }

    // The size of the font in device pixels: its size (the default 8 when unset) times its scale, at 1.5
    // pixels a unit so that the default reads like 9 points at 96 dpi, times the display scale.
    static double FontPixelSize(font const& f, double dpiScale);
    // The default interface font.
    static constexpr int DefaultFontSize = 8;

protected:
    // A text call once laid out: the backend draws it (unless `measureOnly`) or records it.
    struct STextCall {
        std::string_view name;
        std::string_view text;
        int flags = 0;
        char const* delimiters = nullptr;
        STextBlock const& block;
        bool measureOnly() const { return (flags & MeasureOnly) != 0; }
    };
    virtual void RenderText(STextCall const& call) = 0;
    // Fixed-size fonts or real ones: how long a line of the current font is.
    virtual ITextMeasure& Measure() = 0;
    // The clip in force changed.
    virtual void ClipChanged() {}

    point<double> ToDevice(double x, double y) const { return m_mapping.ToDevice({x, y}, false); }
    // A length in device pixels along each axis, whatever the direction of the axis.
    point<double> DeviceLength(double dx, double dy) const {
        point<double> const d = m_mapping.ToDevice({dx, dy}, true);
        return {d.x < 0 ? -d.x : d.x, d.y < 0 ? -d.y : d.y};
    }
    // The device pixels at the two corners, normalised: both ends inclusive for fills and outlines, right
    // and bottom exclusive for pictures.
    rectangle<int> DevicePixels(double left, double top, double right, double bottom) const;
    rectangle<double> DeviceRect(rectangle<double> const& r) const;
    // The colour to draw for `c`: nothing for an empty one, else the substitute while substitution is on.
    std::optional<_color> Effective(_color const& c) const;
    // The pen's place in device coordinates, where the next LineTo starts.
    point<double> Position() const { return m_position; }
    void SetPosition(point<double> const& device) { m_position = device; }
    font const& CurrentFont() const { return m_font; }
    pen const& CurrentPen() const { return m_pen; }
    brush const& CurrentBrush() const { return m_brush; }
    _color const& TextColor() const { return m_textColor; }
    _color const& BkColor() const { return m_bkColor; }

private:
    size<double> ShowText(std::string_view name, rectangle<double> const& r, char const* text, int flags,
                          int length, char const* delimiters);
    void CutClip(rectangle<int> const& deviceRect, bool exclude);

    size<int> m_bufferSize;
    double m_dpiScale;
    bool m_needsFullRepaint = true;
    int m_paintDepth = 0;
    bool m_passPaints = false;
    font m_font;
    pen m_pen;
    brush m_brush;
    _color m_bkColor{255, 255, 255};
    _color m_textColor{0, 0, 0};
    CCoordMapping m_mapping;
    SClip m_clip;
    point<double> m_position;
};

} // namespace mirel7
