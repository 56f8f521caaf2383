#include <mirel7/cairo/cairo_painter.h>
#include <mirel7/cairo/cairo_raster_picture.h>

#include <algorithm>
#include <iterator>

namespace mirel7 {

std::unique_ptr<IWindowPainter> NewWindowPainter(size<int> const& bufferSize, double dpiScale) {
    return std::make_unique<cairo::CCairoPainter>(bufferSize, dpiScale);
}

mirel_ptr<IRasterPicture> NewRasterPicture(int width, int height) {
    return mirel_ptr<IRasterPicture>(new cairo::CCairoRasterPicture(width, height));
}

namespace cairo {

CCairoPainter::CCairoPainter(size<int> const& bufferSize, double dpiScale)
    : CPainterBase(bufferSize, dpiScale), m_surface(bufferSize) {
    ClipChanged();
}

CCairoPainter::~CCairoPainter() {
    if (m_clipRegion) cairo_region_destroy(m_clipRegion);
}

_color CCairoPainter::ColorOf(std::uint32_t word) {
    auto const channel = [word](int shift) { return static_cast<std::uint8_t>(word >> shift); };
    std::uint8_t const a = channel(24);
    if (a == 255 || a == 0) return {channel(16), channel(8), channel(0), a};
    // Premultiplied in memory; the colour of a translucent pixel is the unmultiplied one.
    auto const unmultiply = [&](int shift) {
        return static_cast<std::uint8_t>((channel(shift) * 255 + a / 2) / a);
    };
    return {unmultiply(16), unmultiply(8), unmultiply(0), a};
}

void CCairoPainter::Resize(size<int> const& newSize) {
    m_surface.Resize(newSize);
    CPainterBase::Resize(newSize);
    ClipChanged();
}

void CCairoPainter::Adopt(cairo_surface_t* replacement) {
    m_surface.Adopt(replacement);
    CPainterBase::Resize({m_surface.Width(), m_surface.Height()});
    ClipChanged();
}

void CCairoPainter::ClipChanged() {
    if (m_clipRegion) cairo_region_destroy(m_clipRegion);
    m_clipRegion = nullptr;
    cairo_t* const cr = m_surface.Context();
    cairo_reset_clip(cr);
    rectangle<int> const bounds{0, 0, m_surface.Width(), m_surface.Height()};
    SClip const& clip = GetClip();
    m_clipBox = bounds;
    if (!clip.active) return;

    rectangle<int> const include = clip.include ? clip.include->Intersect(bounds) : bounds;
    cairo_rectangle_int_t const start{include.left, include.top, include.Width(), include.Height()};
    cairo_region_t* const region = cairo_region_create_rectangle(&start);
    for (rectangle<int> const& r : clip.excluded) {
        cairo_rectangle_int_t const cut{r.left, r.top, r.Width(), r.Height()};
        cairo_region_subtract_rectangle(region, &cut);
    }
    int const count = cairo_region_num_rectangles(region);
    for (int i = 0; i < count; ++i) {
        cairo_rectangle_int_t r;
        cairo_region_get_rectangle(region, i, &r);
        cairo_rectangle(cr, r.x, r.y, r.width, r.height);
    }
    // An empty path clips everything away, which is what an empty region means.
    cairo_clip(cr);
    cairo_rectangle_int_t box;
    cairo_region_get_extents(region, &box);
    m_clipBox = {box.x, box.y, box.x + box.width, box.y + box.height};
    if (count > 1)
        m_clipRegion = region;
    else
        cairo_region_destroy(region);
}

void CCairoPainter::SetDashes(cairo_t* cr, double const* steps, int count, double width) {
    // Steps count in pen widths. Square caps stretch every dash by half a width at each end, so the dashes
    // are drawn that much shorter and the gaps that much longer: a dash then starts and ends on pixel
    // edges, however the line is stroked, and a dot of length 1 is one pixel.
    double dashes[6];
    for (int i = 0; i < count; ++i)
        dashes[i] = i % 2 ? (steps[i] + 1) * width : (steps[i] - 1) * width;
    cairo_set_dash(cr, dashes, count, 0);
}

void CCairoPainter::SetSource(cairo_t* cr, _color const& c) {
    double const r = c.r / 255.0, g = c.g / 255.0, b = c.b / 255.0, a = c.a / 255.0;
    // Cells fill and write in the same few colours again and again; a new source costs a pattern each time.
    double current[4];
    if (cairo_pattern_get_rgba(cairo_get_source(cr), &current[0], &current[1], &current[2], &current[3]) ==
            CAIRO_STATUS_SUCCESS &&
        current[0] == r && current[1] == g && current[2] == b && current[3] == a)
        return;
    cairo_set_source_rgba(cr, r, g, b, a);
}

cairo_t* CCairoPainter::BrushContext() {
    brush const& b = CurrentBrush();
    std::optional<_color> const c = Effective(b.color);
    if (b.style == brush::Hollow || !c) return nullptr;
    cairo_t* const cr = m_surface.Context();
    SetSource(cr, *c);
    return cr;
}

cairo_t* CCairoPainter::PenContext() {
    pen const& p = CurrentPen();
    std::optional<_color> const c = Effective(p.color);
    if (p.style == pen::None || !c) return nullptr;
    cairo_t* const cr = m_surface.Context();
    SetSource(cr, *c);
    double const width = std::max(p.width, 1);
    cairo_set_line_width(cr, width);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_MITER);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_SQUARE);
    static constexpr double dash[] = {4, 2}, dot[] = {1, 1}, dashDot[] = {4, 2, 1, 2},
                            dashDotDot[] = {4, 2, 1, 2, 1, 2};
    struct SPattern {
        double const* steps;
        int count;
    };
    static constexpr SPattern patterns[] = {{dash, 2}, {dot, 2}, {dashDot, 4}, {dashDotDot, 6}};
    if (p.style >= pen::Dash && p.style <= pen::DashDotDot) {
        SPattern const& pattern = patterns[p.style - pen::Dash];
        SetDashes(cr, pattern.steps, pattern.count, width);
    } else {
        cairo_set_dash(cr, nullptr, 0, 0);
    }
    return cr;
}

double CCairoPainter::PenOffset() const {
    return std::max(CurrentPen().width, 1) % 2 ? 0.5 : 0.0;
}

void CCairoPainter::LineTo(double x, double y) {
    point<double> const from = Position(), to = ToDevice(x, y);
    SetPosition(to);
    cairo_t* const cr = PenContext();
    if (!cr) return;
    double const o = PenOffset();
    cairo_move_to(cr, from.x + o, from.y + o);
    cairo_line_to(cr, to.x + o, to.y + o);
    cairo_stroke(cr);
}

void CCairoPainter::AddRoundRect(cairo_t* cr, double left, double top, double right, double bottom, double rx,
                                 double ry) {
    rx = std::min(rx, (right - left) / 2);
    ry = std::min(ry, (bottom - top) / 2);
    if (rx <= 0 || ry <= 0) {
        cairo_rectangle(cr, left, top, right - left, bottom - top);
        return;
    }
    struct SCorner {
        double x, y, from;
    };
    constexpr double quarter = 1.5707963267948966;
    SCorner const corners[] = {{right - rx, top + ry, -quarter},
                               {right - rx, bottom - ry, 0},
                               {left + rx, bottom - ry, quarter},
                               {left + rx, top + ry, 2 * quarter}};
    cairo_new_sub_path(cr);
    for (SCorner const& c : corners) {
        cairo_save(cr);
        cairo_translate(cr, c.x, c.y);
        cairo_scale(cr, rx, ry);
        cairo_arc(cr, 0, 0, 1, c.from, c.from + quarter);
        cairo_restore(cr);
    }
    cairo_close_path(cr);
}

void CCairoPainter::RoundRect(double left, double top, double right, double bottom, double rx, double ry) {
    rectangle<int> const px = DevicePixels(left, top, right, bottom);
    point<double> const radii = DeviceLength(rx, ry);
    if (cairo_t* const cr = BrushContext()) {
        AddRoundRect(cr, px.left, px.top, px.right + 1, px.bottom + 1, radii.x, radii.y);
        cairo_fill(cr);
    }
    if (cairo_t* const cr = PenContext()) {
        // Odd widths run through pixel centres, even ones between pixels, both keeping the outline on the
        // rectangle's own outermost pixels.
        double const o = PenOffset();
        AddRoundRect(cr, px.left + o, px.top + o, px.right + 1 - o, px.bottom + 1 - o, radii.x, radii.y);
        cairo_stroke(cr);
    }
}

void CCairoPainter::Rectangle(double left, double top, double right, double bottom) {
    RoundRect(left, top, right, bottom, 0, 0);
}

void CCairoPainter::FillRect(double left, double top, double right, double bottom) {
    cairo_t* const cr = BrushContext();
    if (!cr) return;
    rectangle<int> const px = DevicePixels(left, top, right, bottom);
    cairo_rectangle(cr, px.left, px.top, px.Width() + 1, px.Height() + 1);
    cairo_fill(cr);
}

void CCairoPainter::FocusRect(double left, double top, double right, double bottom) {
    std::optional<_color> const c = Effective(TextColor());
    if (!c) return;
    rectangle<int> const px = DevicePixels(left, top, right, bottom);
    cairo_t* const cr = m_surface.Context();
    cairo_save(cr);
    SetSource(cr, *c);
    static constexpr double dots[] = {1, 1};
    SetDashes(cr, dots, 2, 1);
    cairo_set_line_width(cr, 1);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_SQUARE);
    cairo_rectangle(cr, px.left + 0.5, px.top + 0.5, px.Width(), px.Height());
    cairo_stroke(cr);
    cairo_restore(cr);
}

void CCairoPainter::Polygon(point<double> const* points, int count) {
    if (!points || count < 2) return;
    double const o = PenOffset();
    auto const addPath = [&](cairo_t* cr) {
        cairo_new_path(cr);
        for (int i = 0; i < count; ++i) {
            point<double> const d = ToDevice(points[i].x, points[i].y);
            cairo_line_to(cr, d.x + o, d.y + o);
        }
        cairo_close_path(cr);
    };
    if (cairo_t* const cr = BrushContext()) {
        addPath(cr);
        cairo_fill(cr);
    }
    if (cairo_t* const cr = PenContext()) {
        addPath(cr);
        cairo_stroke(cr);
    }
}

IWindowPainter::SPixels CCairoPainter::BeginPixelAccess() {
    // Counted as written: Cairo looks at the memory again before it draws next.
    return {m_surface.PixelsToWrite(), m_surface.Width(), m_surface.Height(), m_surface.Stride()};
}

void CCairoPainter::EndPixelAccess() {
    // Nothing to do: BeginPixelAccess already handed the memory over until the next Cairo drawing.
}

void CCairoPainter::ScrollBuffer(int dx, int dy, rectangle<int> const& source) {
    rectangle<int> const r = source.Normalized();
    m_surface.Scroll(dx, dy, {r.left, r.top, r.right + 1, r.bottom + 1});
}

bool CCairoPainter::SavePng(std::string const& path) {
    return cairo_surface_write_to_png(m_surface.ForCairo(), path.c_str()) == CAIRO_STATUS_SUCCESS;
}

} // namespace cairo
} // namespace mirel7
