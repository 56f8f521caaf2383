// The painter against plain Cairo and Pango doing the same work in the same run: pixel access as the
// antialiased line rasteriser uses it, small fills, measuring and drawing a short string, wrapping a
// paragraph against drawing the same lines broken beforehand, and a page of number cells against showing
// the same glyphs shaped beforehand.
#include <mirel7/window_painter.h>

#include <benchmark/benchmark.h>
#include <cairo.h>
#include <pango/pangocairo.h>

#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace mirel7;

constexpr int Side = 1024;

// A plain ARGB32 surface with its context, and a Pango layout set up as the painter sets up its own.
struct SPlainCairo {
    SPlainCairo() {
        surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, Side, Side);
        cr = cairo_create(surface);
        layout = pango_cairo_create_layout(cr);
        PangoFontDescription* const description = pango_font_description_from_string("DejaVu Sans");
        pango_font_description_set_absolute_size(description, 12 * PANGO_SCALE);
        pango_layout_set_font_description(layout, description);
        pango_font_description_free(description);
    }
    ~SPlainCairo() {
        g_object_unref(layout);
        cairo_destroy(cr);
        cairo_surface_destroy(surface);
    }
    cairo_surface_t* surface;
    cairo_t* cr;
    PangoLayout* layout;
};

std::vector<std::string> VariedStrings() {
    // More than any cache of measured lines holds, so every measurement is a new one.
    std::vector<std::string> strings;
    for (int i = 0; i < 20000; ++i)
        strings.push_back("Row " + std::to_string(i * 7919));
    return strings;
}

// SetPixel and GetPixel of every pixel of a 1024x1024 buffer, through the IPainter interface.
void PixelsPainter(benchmark::State& state) {
    std::unique_ptr<IWindowPainter> const painter = NewWindowPainter({Side, Side}, 1.0);
    IPainter* const p = painter.get();
    unsigned sum = 0;
    for (auto _ : state) {
        for (int y = 0; y < Side; ++y)
            for (int x = 0; x < Side; ++x) {
                p->SetPixel(x, y, _color(std::uint8_t(x), std::uint8_t(y), 7));
                sum += p->GetPixel(x, y).g;
            }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * Side * Side);
}

// The same on the surface's memory, as a loop with no painter at all would do it: the upper bound.
void PixelsPlainMemory(benchmark::State& state) {
    SPlainCairo plain;
    unsigned sum = 0;
    for (auto _ : state) {
        cairo_surface_flush(plain.surface);
        auto* const data = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(plain.surface));
        int const stride = cairo_image_surface_get_stride(plain.surface) / 4;
        for (int y = 0; y < Side; ++y)
            for (int x = 0; x < Side; ++x) {
                std::uint32_t& pixel = data[y * stride + x];
                pixel = 0xFF000000u | std::uint32_t(std::uint8_t(x)) << 16 |
                        std::uint32_t(std::uint8_t(y)) << 8 | 7;
                sum += (pixel >> 8) & 255;
            }
        cairo_surface_mark_dirty(plain.surface);
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * Side * Side);
}

// The same through Cairo calls: a 1 by 1 fill to write, a flush to read (a 256x256 corner, for time).
void PixelsPlainCairo(benchmark::State& state) {
    SPlainCairo plain;
    constexpr int corner = 256;
    unsigned sum = 0;
    for (auto _ : state) {
        for (int y = 0; y < corner; ++y)
            for (int x = 0; x < corner; ++x) {
                cairo_set_source_rgb(plain.cr, std::uint8_t(x) / 255.0, std::uint8_t(y) / 255.0, 7 / 255.0);
                cairo_rectangle(plain.cr, x, y, 1, 1);
                cairo_fill(plain.cr);
                cairo_surface_flush(plain.surface);
                auto const* const data = cairo_image_surface_get_data(plain.surface);
                sum += data[y * cairo_image_surface_get_stride(plain.surface) + x * 4 + 1];
            }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * corner * corner);
}

// 16x16 fills walking over the buffer.
void FillRectPainter(benchmark::State& state) {
    std::unique_ptr<IWindowPainter> const painter = NewWindowPainter({Side, Side}, 1.0);
    IPainter* const p = painter.get();
    int i = 0;
    for (auto _ : state) {
        int const x = (i * 37) % (Side - 16), y = (i * 91) % (Side - 16);
        p->SetBrush({_color(std::uint8_t(i), 128, 200)});
        p->FillRect(x, y, x + 15, y + 15);
        ++i;
    }
    state.SetItemsProcessed(state.iterations());
}

void FillRectPlainCairo(benchmark::State& state) {
    SPlainCairo plain;
    int i = 0;
    for (auto _ : state) {
        int const x = (i * 37) % (Side - 16), y = (i * 91) % (Side - 16);
        cairo_set_source_rgba(plain.cr, std::uint8_t(i) / 255.0, 128 / 255.0, 200 / 255.0, 1.0);
        cairo_rectangle(plain.cr, x, y, 16, 16);
        cairo_fill(plain.cr);
        ++i;
    }
    state.SetItemsProcessed(state.iterations());
}

// Measuring the same caption again and again, as the framework does with captions and "W".
void MeasurePainter(benchmark::State& state) {
    std::unique_ptr<IWindowPainter> const painter = NewWindowPainter({Side, Side}, 1.0);
    std::string const text = "Hello, world";
    for (auto _ : state)
        benchmark::DoNotOptimize(painter->GetTextSize(text));
}

void MeasurePlainPango(benchmark::State& state) {
    SPlainCairo plain;
    for (auto _ : state) {
        pango_layout_set_text(plain.layout, "Hello, world", -1);
        PangoRectangle logical;
        pango_layout_get_extents(plain.layout, nullptr, &logical);
        benchmark::DoNotOptimize(logical);
    }
}

// Measuring strings never seen before.
void MeasureVariedPainter(benchmark::State& state) {
    std::unique_ptr<IWindowPainter> const painter = NewWindowPainter({Side, Side}, 1.0);
    std::vector<std::string> const strings = VariedStrings();
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(painter->GetTextSize(strings[i++ % strings.size()]));
}

void MeasureVariedPlainPango(benchmark::State& state) {
    SPlainCairo plain;
    std::vector<std::string> const strings = VariedStrings();
    std::size_t i = 0;
    for (auto _ : state) {
        pango_layout_set_text(plain.layout, strings[i++ % strings.size()].c_str(), -1);
        PangoRectangle logical;
        pango_layout_get_extents(plain.layout, nullptr, &logical);
        benchmark::DoNotOptimize(logical);
    }
}

void DrawStringPainter(benchmark::State& state) {
    std::unique_ptr<IWindowPainter> const painter = NewWindowPainter({Side, Side}, 1.0);
    painter->SetTextColor(_color(0, 0, 0));
    int i = 0;
    for (auto _ : state) {
        double const x = (i * 37) % 900, y = (i * 91) % 1000;
        painter->DrawString({x, y, x + 120, y + 20}, "Hello, world", IPainter::AlignVCenter, -1);
        ++i;
    }
}

void DrawStringPlainCairo(benchmark::State& state) {
    SPlainCairo plain;
    cairo_set_source_rgb(plain.cr, 0, 0, 0);
    int i = 0;
    for (auto _ : state) {
        double const x = (i * 37) % 900, y = (i * 91) % 1000;
        pango_layout_set_text(plain.layout, "Hello, world", -1);
        PangoRectangle logical;
        pango_layout_get_pixel_extents(plain.layout, nullptr, &logical);
        cairo_move_to(plain.cr, x, y + (20 - logical.height) / 2);
        pango_cairo_show_layout(plain.cr, plain.layout);
        ++i;
    }
}

// A paragraph of `words` words never seen before (the painter keeps widths it measured), wrapped into four
// lines; the baseline draws the same lines broken by line feeds, so the difference is the wrapping alone.
std::string FreshWords(int words, int& counter, int breakEvery) {
    std::string text;
    for (int i = 1; i <= words; ++i)
        text += "w" + std::to_string(100000 + counter++) + (i % breakEvery == 0 && i < words ? "\n" : " ");
    return text;
}

void WrapParagraph(benchmark::State& state, bool wrap) {
    std::unique_ptr<IWindowPainter> const painter = NewWindowPainter({Side, Side}, 1.0);
    painter->SetTextColor(_color(0, 0, 0));
    int const words = static_cast<int>(state.range(0));
    int counter = 0;
    // Digits are equally wide, so a quarter of any such paragraph takes this width.
    double const width = painter->GetTextSize(FreshWords(words / 4, counter, words)).cx + 4;
    for (auto _ : state) {
        std::string const text = FreshWords(words, counter, wrap ? words + 1 : words / 4);
        painter->DrawStringEx({0, 0, width, Side}, text.c_str(), 0, -1, wrap ? " " : nullptr, nullptr);
    }
}
void WrapPainter(benchmark::State& state) {
    WrapParagraph(state, true);
}
void WrapBrokenBeforehand(benchmark::State& state) {
    WrapParagraph(state, false);
}

// A page of 1,000 cells of 96x20 pixels, each a right-aligned number.
constexpr int Cells = 1000, CellColumns = 20, CellWidth = 96, CellHeight = 20;

rectangle<double> CellRect(int i) {
    double const x = (i % CellColumns) * CellWidth, y = (i / CellColumns) * CellHeight;
    return {x, y, x + CellWidth - 1, y + CellHeight - 1};
}

std::string CellText(long long n) {
    return std::to_string(n * 20 + 1'000'000);
}

// The numbers of a grid repainted: the same 1,000 strings every time.
void NumberCellsPainter(benchmark::State& state) {
    std::unique_ptr<IWindowPainter> const painter = NewWindowPainter({Side, Side}, 1.0);
    painter->SetTextColor(_color(0, 0, 0));
    std::vector<std::string> texts;
    for (int i = 0; i < Cells; ++i)
        texts.push_back(CellText(i));
    for (auto _ : state)
        for (int i = 0; i < Cells; ++i)
            painter->DrawString(CellRect(i), texts[std::size_t(i)].c_str(),
                                IPainter::AlignRight | IPainter::AlignVCenter, -1);
    state.SetItemsProcessed(state.iterations() * Cells);
}

// A page scrolled to numbers never drawn before, every time.
void FreshCellsPainter(benchmark::State& state) {
    std::unique_ptr<IWindowPainter> const painter = NewWindowPainter({Side, Side}, 1.0);
    painter->SetTextColor(_color(0, 0, 0));
    long long next = 0;
    for (auto _ : state)
        for (int i = 0; i < Cells; ++i) {
            std::string const text = CellText(next++);
            painter->DrawString(CellRect(i), text.c_str(), IPainter::AlignRight | IPainter::AlignVCenter, -1);
        }
    state.SetItemsProcessed(state.iterations() * Cells);
}

// The baseline of both: the glyphs of the same cells, shaped before the run, shown straight with Cairo at
// the places the painter puts them.
void NumberCellsPreshaped(benchmark::State& state) {
    SPlainCairo plain;
    cairo_set_source_rgb(plain.cr, 0, 0, 0);
    struct SCell {
        cairo_scaled_font_t* font;
        std::vector<cairo_glyph_t> glyphs;
    };
    std::vector<SCell> cells;
    for (int i = 0; i < Cells; ++i) {
        pango_layout_set_text(plain.layout, CellText(i).c_str(), -1);
        PangoRectangle logical;
        pango_layout_get_pixel_extents(plain.layout, nullptr, &logical);
        rectangle<double> const r = CellRect(i);
        double const x = std::round(r.right - logical.width),
                     y = std::round(r.top + (20 - logical.height) / 2);
        double const baseline = y + pango_layout_get_baseline(plain.layout) / double(PANGO_SCALE);
        auto const* const run =
            static_cast<PangoGlyphItem*>(pango_layout_get_line_readonly(plain.layout, 0)->runs->data);
        SCell& cell = cells.emplace_back();
        cell.font = pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(run->item->analysis.font));
        int advance = 0;
        for (int g = 0; g < run->glyphs->num_glyphs; ++g) {
            PangoGlyphInfo const& info = run->glyphs->glyphs[g];
            cell.glyphs.push_back(
                {info.glyph, x + (advance + info.geometry.x_offset) / double(PANGO_SCALE), baseline});
            advance += info.geometry.width;
        }
    }
    for (auto _ : state)
        for (SCell const& cell : cells) {
            cairo_set_scaled_font(plain.cr, cell.font);
            cairo_show_glyphs(plain.cr, cell.glyphs.data(), int(cell.glyphs.size()));
        }
    state.SetItemsProcessed(state.iterations() * Cells);
}

BENCHMARK(PixelsPainter)->Unit(benchmark::kMillisecond);
BENCHMARK(PixelsPlainMemory)->Unit(benchmark::kMillisecond);
BENCHMARK(PixelsPlainCairo)->Unit(benchmark::kMillisecond);
BENCHMARK(FillRectPainter);
BENCHMARK(FillRectPlainCairo);
BENCHMARK(MeasurePainter);
BENCHMARK(MeasurePlainPango);
BENCHMARK(MeasureVariedPainter);
BENCHMARK(MeasureVariedPlainPango);
BENCHMARK(DrawStringPainter);
BENCHMARK(DrawStringPlainCairo);
BENCHMARK(WrapPainter)->Arg(40)->Arg(160)->Arg(640)->Unit(benchmark::kMillisecond);
BENCHMARK(WrapBrokenBeforehand)->Arg(40)->Arg(160)->Arg(640)->Unit(benchmark::kMillisecond);
BENCHMARK(NumberCellsPainter)->Unit(benchmark::kMicrosecond);
BENCHMARK(FreshCellsPainter)->Unit(benchmark::kMicrosecond);
BENCHMARK(NumberCellsPreshaped)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
