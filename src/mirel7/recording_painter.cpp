#include <mirel7/recording_painter.h>
#include <mirel7/xpm.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace mirel7 {

namespace {

std::string Num(double v) {
    char buffer[32];
    if (v == std::floor(v) && std::abs(v) < 1e15) {
        std::snprintf(buffer, sizeof buffer, "%lld", static_cast<long long>(v));
    } else {
        std::snprintf(buffer, sizeof buffer, "%.2f", v);
        std::string s = buffer;
        s.erase(s.find_last_not_of('0') + 1);
        return s;
    }
    return buffer;
}

std::string Pair(point<double> const& p) {
    return Num(p.x) + "," + Num(p.y);
}

std::string Rect(rectangle<double> const& r) {
    return Num(r.left) + "," + Num(r.top) + "," + Num(r.right) + "," + Num(r.bottom);
}

std::string Rect(rectangle<int> const& r) {
    return Rect(rectangle<double>(r));
}

std::string Color(std::optional<_color> const& c) {
    if (!c) return "none";
    char buffer[16];
    if (c->a == 255)
        std::snprintf(buffer, sizeof buffer, "#%02x%02x%02x", c->r, c->g, c->b);
    else
        std::snprintf(buffer, sizeof buffer, "#%02x%02x%02x%02x", c->r, c->g, c->b, c->a);
    return buffer;
}

std::string Color(_color const& c) {
    return Color(c.empty ? std::nullopt : std::optional<_color>(c));
}

std::string Hex(int v) {
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "0x%x", static_cast<unsigned>(v));
    return buffer;
}

std::string Quoted(std::string_view text) {
    std::string s = "\"";
    for (char c : text) {
        if (c == '\n')
            s += "\\n";
        else if (c == '"' || c == '\\')
            s += {'\\', c};
        else
            s += c;
    }
    return s + '"';
}

char const* PenStyleName(pen::PenStyle style) {
    static char const* const names[] = {"none", "solid", "dash", "dot", "dashdot", "dashdotdot"};
    return style >= pen::None && style <= pen::DashDotDot ? names[style] : "solid";
}

std::size_t CharacterCount(std::string_view line) {
    // UTF-8: every byte but the continuation bytes starts a character.
    return static_cast<std::size_t>(
        std::count_if(line.begin(), line.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

} // namespace

CRecordingPainter::CRecordingPainter(size<int> const& bufferSize, double dpiScale)
    : CPainterBase(bufferSize, dpiScale) {}

std::vector<std::string> CRecordingPainter::Lines(std::initializer_list<std::string_view> calls) const {
    std::vector<std::string> lines;
    for (std::string const& line : m_lines) {
        std::string_view const name = std::string_view(line).substr(0, line.find(' '));
        if (std::find(calls.begin(), calls.end(), name) != calls.end()) lines.push_back(line);
    }
    return lines;
}

std::string CRecordingPainter::Text() const {
    std::string text;
    for (std::string const& line : m_lines)
        text += line + '\n';
    return text;
}

double CRecordingPainter::CFixedMeasure::Scale() const {
    return FontPixelSize(m_painter.CurrentFont(), m_painter.GetDPIScale()) / FontPixelSize(font{}, 1.0);
}

double CRecordingPainter::CFixedMeasure::LineWidth(std::string_view line) {
    return 8 * Scale() * static_cast<double>(CharacterCount(line));
}

double CRecordingPainter::CFixedMeasure::LineHeight() {
    return 16 * Scale();
}

std::string CRecordingPainter::PenText() const {
    pen const& p = CurrentPen();
    if (p.style == pen::None) return "pen=none";
    std::optional<_color> const c = Effective(p.color);
    if (!c) return "pen=none";
    return "pen=" + Color(c) + "/" + std::to_string(p.width) + "/" + PenStyleName(p.style);
}

std::string CRecordingPainter::BrushText() const {
    brush const& b = CurrentBrush();
    return "brush=" + (b.style == brush::Hollow ? std::string("none") : Color(Effective(b.color)));
}

std::string CRecordingPainter::PictureText(IRasterPicture* picture) const {
    if (!picture) return "picture=none";
    size<int> const s = picture->GetSize();
    return "picture=" + std::to_string(s.cx) + "x" + std::to_string(s.cy) + (IsDisabled() ? " disabled" : "");
}

std::string CRecordingPainter::PixelsText(double left, double top, double right, double bottom) const {
    return Rect(DevicePixels(left, top, right, bottom));
}

void CRecordingPainter::BeginPaint(int settings) {
    Log("BeginPaint " + std::to_string(settings));
    CPainterBase::BeginPaint(settings);
}

void CRecordingPainter::EndPaint() {
    Log("EndPaint");
    CPainterBase::EndPaint();
}

void CRecordingPainter::SetFont(font const& f) {
    Log("SetFont face=" + Quoted(f.face) + " family=" + std::to_string(f.family) +
        " size=" + std::to_string(f.size) + " style=" + std::to_string(f.style) +
        " extra=" + std::to_string(f.extra) + " scale=" + Num(f.scale));
    CPainterBase::SetFont(f);
}

void CRecordingPainter::GetFontMetrics(fontmetrics* metrics) {
    Log("GetFontMetrics");
    int const height = static_cast<int>(m_measure.LineHeight());
    int const width = static_cast<int>(m_measure.LineWidth("W"));
    // Three quarters above the baseline, the rest below; the three fields that make the line height add up
    // to the fixed line.
    int const ascent = height * 3 / 4;
    *metrics = {ascent, 0, height - ascent, width, width, 0};
}

void CRecordingPainter::SetPen(pen const& p) {
    Log("SetPen " + Color(p.color) + "/" + std::to_string(p.width) + "/" + PenStyleName(p.style));
    CPainterBase::SetPen(p);
}

void CRecordingPainter::SetBrush(brush const& b) {
    Log("SetBrush " + Color(b.color) + (b.style == brush::Hollow ? " hollow" : ""));
    CPainterBase::SetBrush(b);
}

void CRecordingPainter::SetBkColor(_color const& c) {
    Log("SetBkColor " + Color(c));
    CPainterBase::SetBkColor(c);
}

void CRecordingPainter::SetTextColor(_color const& c) {
    Log("SetTextColor " + Color(c));
    CPainterBase::SetTextColor(c);
}

void CRecordingPainter::SetDPIScale(double scale) {
    Log("SetDPIScale " + Num(scale));
    CPainterBase::SetDPIScale(scale);
}

void CRecordingPainter::SetCoordSystem(MapMode mode, CoordInfo const* info) {
    std::string line = "SetCoordSystem " + std::to_string(mode);
    if (mode == MapElement && info)
        line += " logical=" + Pair({info->left, info->top}) + "+" + Pair({info->width, info->height}) +
                " device=" + Pair({double(info->x), double(info->y)}) + "+" +
                Pair({double(info->cx), double(info->cy)});
    Log(line);
    CPainterBase::SetCoordSystem(mode, info);
}

void CRecordingPainter::SetClipRect(double left, double top, double right, double bottom, bool exclude) {
    Log("SetClipRect " + PixelsText(left, top, right, bottom) + (exclude ? " exclude" : ""));
    CPainterBase::SetClipRect(left, top, right, bottom, exclude);
}

void CRecordingPainter::SimpleSetClipRect(rectangle<double> const& deviceRect, bool exclude) {
    Log("SimpleSetClipRect " + Rect(deviceRect) + (exclude ? " exclude" : ""));
    CPainterBase::SimpleSetClipRect(deviceRect, exclude);
}

void CRecordingPainter::ResetClip() {
    Log("ResetClip");
    CPainterBase::ResetClip();
}

void CRecordingPainter::MoveTo(double x, double y) {
    CPainterBase::MoveTo(x, y);
    Log("MoveTo " + Pair(Position()));
}

void CRecordingPainter::LineTo(double x, double y) {
    point<double> const to = ToDevice(x, y);
    Log("LineTo " + Pair(Position()) + "-" + Pair(to) + " " + PenText());
    SetPosition(to);
}

void CRecordingPainter::Rectangle(double left, double top, double right, double bottom) {
    Log("Rectangle " + PixelsText(left, top, right, bottom) + " " + PenText() + " " + BrushText());
}

void CRecordingPainter::RoundRect(double left, double top, double right, double bottom, double rx,
                                  double ry) {
    Log("RoundRect " + PixelsText(left, top, right, bottom) + " radii=" + Pair(DeviceLength(rx, ry)) + " " +
        PenText() + " " + BrushText());
}

void CRecordingPainter::FillRect(double left, double top, double right, double bottom) {
    Log("FillRect " + PixelsText(left, top, right, bottom) + " " + BrushText());
}

void CRecordingPainter::FocusRect(double left, double top, double right, double bottom) {
    Log("FocusRect " + PixelsText(left, top, right, bottom) + " color=" + Color(Effective(TextColor())));
}

void CRecordingPainter::Polygon(point<double> const* points, int count) {
    std::string line = "Polygon";
    for (int i = 0; i < count; ++i) {
        line += ' ';
        line += Pair(ToDevice(points[i].x, points[i].y));
    }
    Log(line + " " + PenText() + " " + BrushText());
}

_color CRecordingPainter::GetPixel(double x, double y) {
    Log("GetPixel " + Pair(ToDevice(x, y)));
    return {};
}

void CRecordingPainter::SetPixel(double x, double y, _color c) {
    c.a = 255;
    Log("SetPixel " + Pair(ToDevice(x, y)) + " " + Color(c));
}

size<double> CRecordingPainter::GetTextSize(std::string const& text, int flags, int length, bool breakLines,
                                            bool logical) {
    size<double> const s = CPainterBase::GetTextSize(text, flags, length, breakLines, logical);
    Log("GetTextSize " + Quoted(length < 0 ? text : text.substr(0, std::size_t(length))) + " -> " +
        Num(s.cx) + "x" + Num(s.cy));
    return s;
}

void CRecordingPainter::RenderText(STextCall const& call) {
    std::string line = std::string(call.name) + " " + Quoted(call.text) + " " + Rect(call.block.area) +
                       " flags=" + Hex(call.flags);
    if (call.delimiters) line += " delimiters=" + Quoted(call.delimiters);
    if (!call.measureOnly()) line += " color=" + Color(Effective(TextColor()));
    line += " at=" + Rect(call.block.place);
    if (call.block.lines.size() > 1) {
        line += " lines=";
        for (std::size_t i = 0; i < call.block.lines.size(); ++i)
            line += (i ? "," : "") + Quoted(call.block.lines[i].text);
    }
    if (!call.block.fits) line += " overflows";
    Log(line);
}

void CRecordingPainter::DrawRasterPicture(IRasterPicture* picture, double left, double top, double right,
                                          double bottom, RasterOperation /*op*/) {
    Log("DrawRasterPicture " + PixelsText(left, top, right, bottom) + " " + PictureText(picture));
}

void CRecordingPainter::DrawRasterPictureEx(IRasterPicture* picture, double left, double top, double right,
                                            double bottom, rectangle<int> const& source,
                                            RasterOperation /*op*/) {
    Log("DrawRasterPictureEx " + PixelsText(left, top, right, bottom) + " source=" + Rect(source) + " " +
        PictureText(picture));
}

void CRecordingPainter::ExtractRasterPicture(IRasterPicture* /*picture*/, double left, double top,
                                             double right, double bottom) {
    Log("ExtractRasterPicture " + PixelsText(left, top, right, bottom));
}

void CRecordingPainter::ExtractRasterPictureEx(IRasterPicture* /*picture*/, double left, double top,
                                               double right, double bottom, point<int> const& destination) {
    Log("ExtractRasterPictureEx " + PixelsText(left, top, right, bottom) +
        " to=" + Pair(point<double>(destination)));
}

void CRecordingPainter::AlphaBlend(double left, double top, double right, double bottom,
                                   IRasterPicture* picture, int alpha) {
    Log("AlphaBlend " + PixelsText(left, top, right, bottom) + " " + PictureText(picture) +
        " alpha=" + std::to_string(alpha));
}

void CRecordingPainter::DrawXPM(XPMImage const& image, double x, double y, int srcX, int srcY, int width,
                                int height) {
    point<double> const at = ToDevice(x, y);
    std::optional<SXpmPlacement> const place = PlaceXPM(image, at, GetDPIScale(), srcX, srcY, width, height);
    if (!place) {
        Log("DrawXPM " + Pair(at) + " picture=none");
        return;
    }
    Log("DrawXPM " + Rect(place->destination) + " part=" + Rect(place->part) +
        " picture=" + std::to_string(image.GetWidth()) + "x" + std::to_string(image.GetHeight()) +
        (IsDisabled() ? " disabled" : ""));
}

void CRecordingPainter::DrawControlElement(ControlElement element, double left, double top, double right,
                                           double bottom, int state) {
    Log("DrawControlElement " + std::to_string(element) + " " + PixelsText(left, top, right, bottom) +
        " state=" + std::to_string(state) + (IsDisabled() ? " disabled" : ""));
}

void CRecordingPainter::Resize(size<int> const& newSize) {
    Log("Resize " + std::to_string(newSize.cx) + "x" + std::to_string(newSize.cy));
    CPainterBase::Resize(newSize);
}

IWindowPainter::SPixels CRecordingPainter::BeginPixelAccess() {
    Log("BeginPixelAccess");
    return {};
}

void CRecordingPainter::EndPixelAccess() {
    Log("EndPixelAccess");
}

void CRecordingPainter::ScrollBuffer(int dx, int dy, rectangle<int> const& source) {
    Log("ScrollBuffer " + std::to_string(dx) + "," + std::to_string(dy) + " " + Rect(source));
}

bool CRecordingPainter::SavePng(std::string const& path) {
    Log("SavePng " + Quoted(path));
    return false;
}

} // namespace mirel7
