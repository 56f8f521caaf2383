// Antialiased lines against Cairo stroking the same line with antialiasing, on the same surface in the same
// run. Each Cairo case runs first and leaves its time per line; the line that follows reports its own
// time as a multiple of it (counter x_cairo), and the allocations it made per line.
#include <mirelfrw7/antialiasing/draw_line.h>
#include <mirelfrw7/antialiasing/line_contour.h>

#include "support/allocation_counter.h"

#include <mirel7/window_painter.h>

#include <benchmark/benchmark.h>
#include <cairo.h>

#include <cmath>
#include <map>
#include <memory>
#include <string>
#include <time.h>

namespace {

using namespace mirel7;
using antialiasing::CapStyle;

constexpr int SurfaceWidth = 1024, SurfaceHeight = 640;

enum Variant { Plain, RoundCaps, Dashes, Gradient };
char const* const VariantNames[] = {"plain", "round_caps", "dashes", "gradient"};

struct SCase {
    int length;
    int width;
    Variant variant;

    // At 30 degrees, so that every line is walked at a slant, or along the x axis.
    bool level;
    point<double> From() const { return {20, 20}; }
    point<double> To() const {
        return level ? point<double>{20.0 + length, 20}
                     : point<double>{20 + length * 0.8660254037844386, 20 + length * 0.5};
    }
    std::string Name() const {
        return std::to_string(length) + "px/w" + std::to_string(width) + "/" + VariantNames[variant] +
               (level ? "/level" : "");
    }
};

std::map<std::string, double> s_cairoSeconds;

// Both sides draw the same lines over and over on one window painter; a timer around the loop gives the
// mean time of one line.
// The time is the thread's processor time, which the load of other programs on the machine does not
// inflate.
double ThreadSeconds() {
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

template <class Draw>
double MeanSeconds(benchmark::State& state, Draw draw) {
    double const start = ThreadSeconds();
    std::int64_t lines = 0;
    for (auto _ : state) {
        draw();
        ++lines;
    }
    return lines ? (ThreadSeconds() - start) / double(lines) : 0;
}

void CairoStroke(benchmark::State& state, SCase c) {
    std::unique_ptr<IWindowPainter> const painter = NewWindowPainter({SurfaceWidth, SurfaceHeight}, 1.0);
    IWindowPainter::SPixels const pixels = painter->BeginPixelAccess();
    cairo_surface_t* const surface = cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(pixels.data), CAIRO_FORMAT_ARGB32, pixels.width, pixels.height,
        pixels.stride * 4);
    cairo_t* const cr = cairo_create(surface);
    cairo_set_antialias(cr, CAIRO_ANTIALIAS_DEFAULT);
    cairo_set_line_width(cr, c.width);
    cairo_set_line_cap(cr, c.variant == RoundCaps ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
    double const dash[] = {3.0 * c.width, 1.0 * c.width};
    if (c.variant == Dashes) cairo_set_dash(cr, dash, 2, 0);
    point<double> const from = c.From(), to = c.To();
    cairo_pattern_t* const gradient = cairo_pattern_create_linear(from.x, from.y, to.x, to.y);
    cairo_pattern_add_color_stop_rgb(gradient, 0, 0.8, 0.1, 0.1);
    cairo_pattern_add_color_stop_rgb(gradient, 1, 0.1, 0.2, 0.9);
    if (c.variant == Gradient)
        cairo_set_source(cr, gradient);
    else
        cairo_set_source_rgb(cr, 0.1, 0.2, 0.6);
    s_cairoSeconds[c.Name()] = MeanSeconds(state, [&] {
        cairo_move_to(cr, from.x, from.y);
        cairo_line_to(cr, to.x, to.y);
        cairo_stroke(cr);
    });
    cairo_pattern_destroy(gradient);
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
    painter->EndPixelAccess();
}

void AntialiasedLine(benchmark::State& state, SCase c) {
    std::unique_ptr<IWindowPainter> const painter = NewWindowPainter({SurfaceWidth, SurfaceHeight}, 1.0);
    IPainter* const p = painter.get();
    p->SetPen({_color(25, 50, 150), c.width, c.variant == Dashes ? pen::Dash : pen::Solid});
    CapStyle const cap = c.variant == RoundCaps ? antialiasing::CAP_ROUND_LINE : antialiasing::CAP_NONE;
    point<double> const from = c.From(), to = c.To();
    // DrawLine takes one colour; a gradient line is the same contour with two.
    antialiasing::LineContourParams gradient;
    gradient.m_x1 = from.x, gradient.m_y1 = from.y, gradient.m_x2 = to.x, gradient.m_y2 = to.y;
    gradient.m_width = unsigned(c.width);
    gradient.m_opacity = 216;
    gradient.m_startColor = {204, 25, 25, 255, 0};
    gradient.m_endColor = {25, 51, 229, 255, 0};
    mirelfrw7::CDrawingContext context(p);
    auto const draw = [&] {
        if (c.variant != Gradient) {
            mirelfrw7::DrawLine(p, to, from, cap, cap);
            return;
        }
        antialiasing::CLineContour line(0);
        static_cast<antialiasing::LINE_CONTOUR_PARAMS&>(line) = gradient;
        line.Generate(nullptr, nullptr);
        line.Normalize(254);
        line.Draw(&context);
    };
    std::size_t allocations;
    {
        mirel_test::CCountAllocations counter;
        draw();
        allocations = counter.Allocations();
    }
    double const seconds = MeanSeconds(state, draw);
    double const cairo = s_cairoSeconds[c.Name()];
    state.counters["x_cairo"] = cairo > 0 ? seconds / cairo : 0;
    state.counters["allocs"] = double(allocations);
}

int const Registered = [] {
    for (int length : {10, 100, 1000})
        for (int width : {1, 3, 10})
            for (Variant variant : {Plain, RoundCaps, Dashes, Gradient})
                for (bool level : {false, true}) {
                    SCase const c{length, width, variant, level};
                    benchmark::RegisterBenchmark(("Cairo/" + c.Name()).c_str(), CairoStroke, c);
                    benchmark::RegisterBenchmark(("DrawLine/" + c.Name()).c_str(), AntialiasedLine, c);
                }
    return 0;
}();

} // namespace

BENCHMARK_MAIN();
