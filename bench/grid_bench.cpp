// What a full-screen grid of 20 text columns costs, painted by callback, against drawing the same cells
// straight through the painter in the same run; and how that holds from 10^3 to 10^8 rows: a repaint, a
// scroll by one row, selecting everything, and the resident memory. Numbers further down a longer list have
// more digits, and each digit is a glyph to draw: the padded variants draw ten digits at every count, which
// leaves only what the row count itself costs.
#include <mirelfrw7/core/base_control.h>
#include <mirelfrw7/items/grid_viewer.h>

#include <mirel7/headless/headless_system.h>
#include <mirel7/headless/headless_window.h>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <unistd.h>

namespace {

using namespace mirelfrw7;
using D = IDiscreteItemViewModel;

constexpr int Columns = 20;
constexpr int ColumnWidth = 96;
constexpr int RowHeight = 20;

// The numbers as they come, or zero-padded to ten digits.
bool padded = false;

// The cell as both sides draw it: a selected background where it applies, and the number of the cell.
void PaintCell(IPainter* painter, long long row, int column, int state, rectangle<double> const& r) {
    brush fill;
    fill.style = brush::Solid;
    fill.color = (state & IItemPainter::Selected) ? _color(51, 102, 204, 255) : _color(255, 255, 255, 255);
    painter->SetBrush(fill);
    painter->FillRect(r);
    char text[32];
    int const length = std::snprintf(text, sizeof text, padded ? "%010lld" : "%lld", row * Columns + column);
    painter->DrawString(r, text, IPainter::AlignRight | IPainter::AlignVCenter, length);
}

struct CBenchGrid : CGridViewer<D, D> {
    explicit CBenchGrid(CVisualElement* parent) : CGridViewer(parent, {0, 0}, AlignClient) {
        SetAutoRowHeight(false);
        GetRowViewModel()->SetDefaultItemSize(RowHeight);
        GetColumnViewModel()->SetDefaultItemSize(ColumnWidth);
        GetColumnViewModel()->SetCount(Columns);
    }
    void DrawCell(IPainter* painter, int row, int, int column, int, int state, rectangle<double> const& r,
                  IDirtyItemSet::DirtyType dirty) override {
        // What the screen shift carried along is still right.
        if (dirty == IDirtyItemSet::CleanItem) return;
        PaintCell(painter, row, column, state, r);
    }
};

// The baseline: the cells of the same screen, walked by hand.
struct CDirectCells : CVisualElement {
    explicit CDirectCells(CVisualElement* parent) : CVisualElement(parent, {0, 0}, AlignClient) {}
    void DrawContent(IPainter* painter) override {
        rectangle<int> const b = GetBounds();
        for (int y = 0, row = first; y < b.bottom; y += RowHeight, ++row)
            for (int c = 0; c < Columns; ++c)
                PaintCell(
                    painter, row, c, 0,
                    rectangle<double>(c * ColumnWidth, y, (c + 1) * ColumnWidth - 1, y + RowHeight - 1));
    }
    int first = 0;
};

long ResidentBytes() {
    long pages = 0, resident = 0;
    if (FILE* f = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(f, "%ld %ld", &pages, &resident) != 2) resident = 0;
        std::fclose(f);
    }
    return resident * sysconf(_SC_PAGESIZE);
}

struct SScreen {
    SScreen() : window(system, {1920, 1080}), control(&window) {}
    mirel7::headless::CHeadlessSystem system;
    mirel7::headless::CHeadlessWindow window;
    CBaseControl control;
};

// A grid of `rows` rows, scrolled to the middle and painted once.
struct SGrid : SScreen {
    explicit SGrid(int rows) {
        grid = new CBenchGrid(control.GetContent());
        grid->GetRowViewModel()->SetCount(rows);
        window.Paint();
        middle = rows / 2;
        grid->GetRowViewModel()->SetStartItem(middle);
        window.Paint();
    }
    CBenchGrid* grid;
    int middle = 0;
};

void Rows(benchmark::internal::Benchmark* b) {
    b->Arg(1'000)->Arg(1'000'000)->Arg(100'000'000)->ArgNames({"rows"});
}

void FullRepaintDirect(benchmark::State& state) {
    padded = state.range(1) != 0;
    SScreen s;
    auto* cells = new CDirectCells(s.control.GetContent());
    cells->first = int(state.range(0) / 2);
    s.window.Paint();
    for (auto _ : state) {
        cells->Update(UpdateLocal);
        s.window.Paint();
    }
}
void RowsAndDigits(benchmark::internal::Benchmark* b) {
    for (int digits : {0, 1})
        for (long rows : {1'000L, 1'000'000L, 100'000'000L})
            b->Args({rows, digits});
    b->ArgNames({"rows", "padded"});
}

BENCHMARK(FullRepaintDirect)->Apply(RowsAndDigits)->Unit(benchmark::kMillisecond);

void FullRepaintCallback(benchmark::State& state) {
    padded = state.range(1) != 0;
    long const before = ResidentBytes();
    SGrid g(int(state.range(0)));
    state.counters["resident_bytes"] = double(ResidentBytes() - before);
    for (auto _ : state) {
        g.grid->Update(UpdateLocal);
        g.window.Paint();
    }
}
BENCHMARK(FullRepaintCallback)->Apply(RowsAndDigits)->Unit(benchmark::kMillisecond);

// Down one row and back: each step a shift of the screen and one strip of new cells. The time is that of
// one step, to set beside one full repaint.
void ScrollOneRow(benchmark::State& state) {
    padded = false;
    SGrid g(int(state.range(0)));
    bool down = true;
    for (auto _ : state) {
        g.grid->GetRowViewModel()->SetStartItem(down ? g.middle + 1 : g.middle);
        g.window.Paint();
        down = !down;
    }
}
BENCHMARK(ScrollOneRow)->Apply(Rows)->Unit(benchmark::kMillisecond);

// Everything selected and the repaint, or cleared and the repaint, by turns: the time is that of one.
void SelectAllAndRepaint(benchmark::State& state) {
    padded = false;
    SGrid g(int(state.range(0)));
    ISelectionModel* const sel = g.grid->GetRowSelectionModel();
    bool select = true;
    for (auto _ : state) {
        if (select)
            sel->SetSelectionRange(0, int(state.range(0)) - 1);
        else
            sel->ClearSelection();
        g.window.Paint();
        select = !select;
    }
}
BENCHMARK(SelectAllAndRepaint)->Apply(Rows)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
