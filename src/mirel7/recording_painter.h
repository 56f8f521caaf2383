#pragma once

#include <mirel7/export.h>
#include <mirel7/painter_base.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace mirel7 {

// A window painter without pixels that writes down every call, for tests of elements. It keeps the state
// of a real painter (mapping, clip, attributes, paint frame) and lays out text the same way, with a fixed
// font: a character is 8 and a line 16 pixels at font size 8, both growing with the font's size, its scale
// and the display scale.
//
// One call makes one line: the call's name, then its arguments in device coordinates, and for drawing
// calls the colours that take effect (after substitution; "none" when nothing is drawn):
//   FillRect 10,10,19,19 brush=#ff0000
//   DrawString "OK" 0,0,100,20 flags=0x25 at=0,2,16,18
// Rectangles keep the form of their call: fills, outlines and SetClipRect give the pixels covered, both
// ends inclusive; SimpleSetClipRect and pictures give right and bottom exclusive. Text answers where its
// box went ("at"), and "overflows" when it did not fit. Queries that cannot change anything (the const
// getters and conversions) are not written down.
class MIREL7_API CRecordingPainter : public CPainterBase {
public:
    using IPainter::AlphaBlend;
    using IPainter::FillRect;

    explicit CRecordingPainter(size<int> const& bufferSize = {}, double dpiScale = 1.0);

    // The log, one call a line.
    std::vector<std::string> const& Lines() const { return m_lines; }
    // The lines of the calls named.
    std::vector<std::string> Lines(std::initializer_list<std::string_view> calls) const;
    // All lines, each ended by a line feed.
    std::string Text() const;
    void Clear() { m_lines.clear(); }

    void BeginPaint(int settings) override;
    void EndPaint() override;
    void SetFont(font const& f) override;
    void GetFontMetrics(fontmetrics* metrics) override;
    void SetPen(pen const& p) override;
    void SetBrush(brush const& b) override;
    void SetBkColor(_color const& c) override;
    void SetTextColor(_color const& c) override;
    void SetDPIScale(double scale) override;
    void SetCoordSystem(MapMode mode, CoordInfo const* info) override;

    void SetClipRect(double left, double top, double right, double bottom, bool exclude) override;
    void SimpleSetClipRect(rectangle<double> const& deviceRect, bool exclude) override;
    void ResetClip() override;

    void MoveTo(double x, double y) override;
    void LineTo(double x, double y) override;
    void Rectangle(double left, double top, double right, double bottom) override;
    void RoundRect(double left, double top, double right, double bottom, double rx, double ry) override;
    void FillRect(double left, double top, double right, double bottom) override;
    void FocusRect(double left, double top, double right, double bottom) override;
    void Polygon(point<double> const* points, int count) override;
    _color GetPixel(double x, double y) override;
    void SetPixel(double x, double y, _color c) override;

    size<double> GetTextSize(std::string const& text, int flags = 0, int length = -1, bool breakLines = true,
                             bool logical = true) override;

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

protected:
    void RenderText(STextCall const& call) override;
    ITextMeasure& Measure() override { return m_measure; }

private:
    class CFixedMeasure : public ITextMeasure {
    public:
        explicit CFixedMeasure(CRecordingPainter const& painter) : m_painter(painter) {}
        double LineWidth(std::string_view line) override;
        double LineHeight() override;
        // Font size over the default size, times the display scale.
        double Scale() const;

    private:
        CRecordingPainter const& m_painter;
    };

    void Log(std::string line) { m_lines.push_back(std::move(line)); }
    std::string PenText() const;
    std::string BrushText() const;
    std::string PictureText(IRasterPicture* picture) const;
    std::string PixelsText(double left, double top, double right, double bottom) const;

    std::vector<std::string> m_lines;
    CFixedMeasure m_measure{*this};
};

} // namespace mirel7
