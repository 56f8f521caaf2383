#include <mirel7/painter_base.h>

#include <algorithm>
#include <climits>
#include <cmath>

namespace mirel7 {

namespace {

// Mapped coordinates come out of a multiplication and a division; a hair of tolerance keeps 2.9999999 on
// pixel 3. Coordinates may also lie past the range of int: the pixel stops at its end.
int PixelOf(double v) {
    double const pixel = std::floor(v + 1e-7);
    if (std::isnan(pixel)) return 0;
    return static_cast<int>(std::clamp(pixel, double(INT_MIN), double(INT_MAX)));
}

} // namespace

CPainterBase::CPainterBase(size<int> const& bufferSize, double dpiScale)
    : m_bufferSize(bufferSize), m_dpiScale(dpiScale) {}

double CPainterBase::FontPixelSize(font const& f, double dpiScale) {
    constexpr double pixelsPerUnit = 1.5;
    // The text backend counts sizes in 1/1024 pixel in an int: past about two million pixels its metrics
    // turn negative. No screen shows a glyph taller than this; a NaN or negative size draws nothing.
    constexpr double smallest = 0.0, largest = 16384.0;
    double const size = (f.size > 0 ? f.size : DefaultFontSize) * f.scale * pixelsPerUnit * dpiScale;
    return std::fmin(std::fmax(size, smallest), largest);
}

void CPainterBase::BeginPaint(int settings) {
    if (m_paintDepth++ == 0) {
        m_passPaints = false;
        m_customPalette = nullptr;
    }
    m_passPaints = m_passPaints || settings != PaintMeasure;
    m_inPaint = true;
}

void CPainterBase::EndPaint() {
    if (m_paintDepth == 0 || --m_paintDepth > 0) return;
    m_inPaint = false;
    if (m_passPaints) m_needsFullRepaint = false;
}

void CPainterBase::Resize(size<int> const& newSize) {
    m_bufferSize = newSize;
    m_needsFullRepaint = true;
}

void CPainterBase::GetCoordSystem(MapMode& mode, CoordInfo* info) const {
    mode = m_mapping.Mode();
    if (info) *info = m_mapping.Info();
}

void CPainterBase::ConvertCoord1(point<double>* p, bool distance) const {
    *p = m_mapping.ToDevice(*p, distance);
}

void CPainterBase::ConvertCoord2(point<double>* corners, bool distance) const {
    ConvertCoord1(&corners[0], distance);
    ConvertCoord1(&corners[1], distance);
}

void CPainterBase::DeconvertCoord1(point<double>* p, bool distance) const {
    *p = m_mapping.ToLogical(*p, distance);
}

void CPainterBase::DeconvertCoord2(point<double>* corners, bool distance) const {
    DeconvertCoord1(&corners[0], distance);
    DeconvertCoord1(&corners[1], distance);
}

rectangle<double> CPainterBase::DeviceRect(rectangle<double> const& r) const {
    point<double> const a = ToDevice(r.left, r.top), b = ToDevice(r.right, r.bottom);
    return rectangle<double>{a.x, a.y, b.x, b.y}.Normalized();
}

rectangle<int> CPainterBase::DevicePixels(double left, double top, double right, double bottom) const {
    rectangle<double> const r = DeviceRect({left, top, right, bottom});
    return {PixelOf(r.left), PixelOf(r.top), PixelOf(r.right), PixelOf(r.bottom)};
}

std::optional<_color> CPainterBase::Effective(_color const& c) const {
    if (c.empty) return std::nullopt;
    if (!m_substituting) return c;
    if (m_substitute.empty) return std::nullopt;
    return m_substitute;
}

void CPainterBase::SetClipRect(double left, double top, double right, double bottom, bool exclude) {
    rectangle<int> const pixels = DevicePixels(left, top, right, bottom);
    rectangle<int> const area{pixels.left, pixels.top, pixels.right + 1, pixels.bottom + 1};
    if (!exclude) m_storedClip = rectangle<double>(area);
    CutClip(area, exclude);
}

void CPainterBase::SimpleSetClipRect(rectangle<double> const& deviceRect, bool exclude) {
    rectangle<double> const r = deviceRect.Normalized();
    if (!exclude) m_storedClip = deviceRect;
    // A pixel touched by the rectangle at all stays drawable.
    CutClip({PixelOf(r.left), PixelOf(r.top), static_cast<int>(std::ceil(r.right - 1e-7)),
             static_cast<int>(std::ceil(r.bottom - 1e-7))},
            exclude);
}

void CPainterBase::CutClip(rectangle<int> const& deviceRect, bool exclude) {
    m_clip.active = true;
    if (exclude) {
        m_clip.excluded.push_back(deviceRect);
    } else {
        m_clip.include = deviceRect;
        m_clip.excluded.clear();
    }
    ClipChanged();
}

void CPainterBase::ResetClip() {
    m_clip = {};
    ClipChanged();
}

size<double> CPainterBase::ShowText(std::string_view name, rectangle<double> const& r, char const* text,
                                    int flags, int length, char const* delimiters) {
    std::string_view const s = TextOf(text, length);
    STextBlock const block = FlowText(DeviceRect(r), s, flags, delimiters, m_font.extra, Measure());
    if ((flags & ClipToRect) && !block.fits) m_elementFlag = 1;
    RenderText({name, s, flags, delimiters, block});
    point<double> const answer = m_mapping.ToLogical({block.screenSize.cx, block.screenSize.cy}, true);
    return {answer.x, answer.y};
}

size<double> CPainterBase::DrawString(rectangle<double> const& r, char const* text, int flags, int length) {
    return ShowText("DrawString", r, text, flags, length, nullptr);
}

size<double> CPainterBase::DrawStringEx(rectangle<double> const& r, char const* text, int flags, int length,
                                        char const* delimiters, ITextFormatter* formatter) {
    if (formatter) formatter->BeforeFormatting(this);
    size<double> answer;
    if (!formatter || !formatter->FormatText(this, r, TextOf(text, length), flags, delimiters, &answer))
        answer = ShowText("DrawStringEx", r, text, flags, length, delimiters);
    if (formatter) formatter->AfterFormatting(this);
    return answer;
}

rectangle<double> CPainterBase::GetTextRect(rectangle<double> const& r, size<double> const& textSize,
                                            int flags) const {
    point<double> const deviceSize = m_mapping.ToDevice({textSize.cx, textSize.cy}, true);
    rectangle<double> const placed =
        AlignBox(DeviceRect(r), {std::abs(deviceSize.x), std::abs(deviceSize.y)}, flags);
    // Back through the mapping corner by corner, so that a flipped axis gives the rectangle in the
    // orientation its caller works in.
    point<double> const a = m_mapping.ToLogical({placed.left, placed.top}, false);
    point<double> const b = m_mapping.ToLogical({placed.right, placed.bottom}, false);
    return {a.x, a.y, b.x, b.y};
}

size<double> CPainterBase::GetTextSize(std::string const& text, int /*flags*/, int length, bool breakLines,
                                       bool logical) {
    std::string_view s = text;
    if (length >= 0) s = s.substr(0, std::size_t(length));
    ITextMeasure& measure = Measure();
    std::vector<STextLine> const lines =
        breakLines ? BreakLines(s, nullptr, 0, measure) : std::vector<STextLine>{{s, measure.LineWidth(s)}};
    size<double> const screen =
        STurn::FromTenths(m_font.extra).BoundingBox(TextExtent(lines, s.empty() ? 0 : measure.LineHeight()));
    if (!logical) return screen;
    point<double> const answer = m_mapping.ToLogical({screen.cx, screen.cy}, true);
    return {answer.x, answer.y};
}

} // namespace mirel7
