// The native look against plain Cairo doing the least a push button needs in the same run: one rounded
// shape filled and outlined. The look adds the palette, the state and the path of its own.
#include <mirel7/border.h>
#include <mirel7/window_painter.h>

#include <benchmark/benchmark.h>
#include <cairo.h>

#include <memory>

namespace {

using namespace mirel7;

constexpr int Side = 512, Width = 80, Height = 24;

int Place(int i, int span) {
    return (i * 37) % (Side - span);
}

void PushButtonPainter(benchmark::State& state) {
    std::unique_ptr<IWindowPainter> const painter = NewWindowPainter({Side, Side}, 1.0);
    int i = 0;
    for (auto _ : state) {
        int const x = Place(i, Width), y = Place(i * 3, Height);
        painter->DrawControlElement(IPainter::ControlPushButton, x, y, x + Width - 1, y + Height - 1,
                                    i % 2 ? IPainter::StateHot : 0);
        ++i;
    }
    state.SetItemsProcessed(state.iterations());
}

void PushButtonPlainCairo(benchmark::State& state) {
    cairo_surface_t* const surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, Side, Side);
    cairo_t* const cr = cairo_create(surface);
    int i = 0;
    for (auto _ : state) {
        double const x = Place(i, Width), y = Place(i * 3, Height), r = 3;
        for (double inset : {0.0, 0.5}) {
            double const l = x + inset, t = y + inset, w = Width - 2 * inset, h = Height - 2 * inset;
            cairo_new_sub_path(cr);
            cairo_arc(cr, l + w - r, t + r, r, -1.5707963, 0);
            cairo_arc(cr, l + w - r, t + h - r, r, 0, 1.5707963);
            cairo_arc(cr, l + r, t + h - r, r, 1.5707963, 3.1415926);
            cairo_arc(cr, l + r, t + r, r, 3.1415926, 4.712389);
            cairo_close_path(cr);
            cairo_set_source_rgb(cr, 0.9, 0.9, i % 2 ? 1.0 : 0.9);
            if (inset == 0) {
                cairo_fill(cr);
            } else {
                cairo_set_line_width(cr, 1);
                cairo_stroke(cr);
            }
        }
        ++i;
    }
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
    state.SetItemsProcessed(state.iterations());
}

// A raised box through the painter's fills, for the cost of DrawBorder next to one push button.
void RaisedBorder(benchmark::State& state) {
    std::unique_ptr<IWindowPainter> const painter = NewWindowPainter({Side, Side}, 1.0);
    int i = 0;
    for (auto _ : state) {
        double const x = Place(i, Width), y = Place(i * 3, Height);
        DrawBorder(painter.get(), {x, y, x + Width - 1, y + Height - 1}, BorderBox, BorderRaised, true);
        ++i;
    }
    state.SetItemsProcessed(state.iterations());
}

} // namespace

BENCHMARK(PushButtonPainter);
BENCHMARK(PushButtonPlainCairo);
BENCHMARK(RaisedBorder);

BENCHMARK_MAIN();
