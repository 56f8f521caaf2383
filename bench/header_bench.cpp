// What painting, hit testing and scrolling a tree header cost with 1,000 leaves in 5 levels, scrolled to the
// middle, against the baseline of the same header with 10 leaves in 5 levels in the same run; and the same
// for a grid whose columns that header is. All show five columns in a 300 pixel view, so the figures must
// stay close: the paint and the hit test follow the sections in view (and the fan-out of the groups above
// them), and a scroll by one column walks no tree.
#include <mirelfrw7/core/base_control.h>
#include <mirelfrw7/header/header_grid.h>
#include <mirelfrw7/scroll/continuous_item_scroll_model.h>

#include <mirel7/headless/headless_system.h>
#include <mirel7/headless/headless_window.h>

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;

constexpr int LeafWidth = 60;
constexpr int ViewWidth = 300;

struct CNode : IHeaderItem {
    IHeaderItem* GetParent() override { return parent; }
    int GetChildCount() const override { return int(children.size()); }
    IHeaderItem* GetChild(int i) override { return children[i].get(); }
    IHeaderItem const* GetChild(int i) const override { return children[i].get(); }
    int GetWidth() const override { return LeafWidth; }
    void SetWidth(int) override {}
    int GetModelIndex() const override { return index; }
    int GetExpandState() const override { return 1; }
    void SetExpanded(bool) override {}
    std::string GetText() const override { return text; }

    CNode* parent = nullptr;
    std::vector<std::unique_ptr<CNode>> children;
    int index = 0;
    std::string text;
};

// `top` sections at level 0, each level below fanning out as given: five levels in all.
struct CTree : IHeaderModel {
    CTree(int top, std::vector<int> const& fanOut) {
        int next = 0;
        for (int i = 0; i < top; ++i)
            nodes.push_back(Make(nullptr, fanOut, 0, next));
    }
    std::unique_ptr<CNode> Make(CNode* parent, std::vector<int> const& fanOut, std::size_t level, int& next) {
        auto node = std::make_unique<CNode>();
        node->parent = parent;
        node->index = next++;
        node->text = "S" + std::to_string(node->index);
        if (level < fanOut.size())
            for (int i = 0; i < fanOut[level]; ++i)
                node->children.push_back(Make(node.get(), fanOut, level + 1, next));
        return node;
    }
    int GetItemCount() const override { return int(nodes.size()); }
    IHeaderItem* GetItem(int i) override { return nodes[i].get(); }
    std::vector<std::unique_ptr<CNode>> nodes;
};

// Cells filled with one colour: the grid's own cost, not a cell's.
struct CFilledGrid : CHeaderGrid {
    explicit CFilledGrid(CVisualElement* parent) : CGridViewer(parent, {0, 0}, AlignClient) {
        GetRowViewModel()->SetCount(1000);
    }
    void DrawCell(IPainter* painter, int, int, int, int, int, rectangle<double> const& r,
                  IDirtyItemSet::DirtyType) override {
        painter->FillRect(r);
    }
};

// A header of 1,000 leaves (argument 1) or 10 (argument 0) on a drawing window, scrolled to the middle;
// with `grid`, over the grid whose columns it is.
struct SHeader {
    explicit SHeader(bool large, bool withGrid = false)
        : tree(5, large ? std::vector<int>{5, 5, 4, 2} : std::vector<int>{1, 1, 1, 2}),
          window(system, {ViewWidth + 1, withGrid ? 400 : 120}, nullptr), control(&window) {
        if (withGrid) grid = new CFilledGrid(control.GetContent());
        header = new CHeader(control.GetContent(), {0, 0}, AlignTop);
        scroll.SetViewModel(header);
        header->SetHorzScroll(&scroll);
        header->SetModel(&tree);
        if (grid) ServeAsColumns(header, grid);
        window.Paint();
        header->SetOffset((header->GetFullItemsSize() - ViewWidth) / 2);
        window.Paint();
    }
    ~SHeader() {
        // The grid, the older sibling, dies first: it lets go of the header while the header lives.
        if (grid) grid->SetColumnViewModel(nullptr);
        header->SetHorzScroll(nullptr);
        header->SetModel(nullptr);
    }

    CTree tree;
    mirel7::headless::CHeadlessSystem system;
    mirel7::headless::CHeadlessWindow window;
    CBaseControl control;
    CContinuousItemScrollModel scroll;
    CHeader* header = nullptr;
    CFilledGrid* grid = nullptr;
};

void Sizes(benchmark::internal::Benchmark* b) {
    b->Arg(0)->Arg(1)->ArgNames({"large"});
}

void Paint(benchmark::State& state) {
    SHeader h(state.range(0) != 0);
    for (auto _ : state) {
        h.header->Update(UpdateLocal);
        h.window.Paint();
    }
    state.counters["columns"] = h.header->GetCount();
}
BENCHMARK(Paint)->Apply(Sizes);

// Every tenth pixel of the view on the lowest row, where the walk goes deepest.
void HitTest(benchmark::State& state) {
    SHeader h(state.range(0) != 0);
    int const y = h.header->GetBounds().bottom - 2;
    for (auto _ : state)
        for (int x = 0; x < ViewWidth; x += 10)
            benchmark::DoNotOptimize(h.header->HitTest(x, y));
}
BENCHMARK(HitTest)->Apply(Sizes);

// One column right and back, with the repaint each step asks for.
void ScrollOneColumn(benchmark::State& state) {
    SHeader h(state.range(0) != 0);
    int const middle = h.header->GetOffset();
    for (auto _ : state) {
        h.header->SetOffset(middle + LeafWidth);
        h.window.Paint();
        h.header->SetOffset(middle);
        h.window.Paint();
    }
}
BENCHMARK(ScrollOneColumn)->Apply(Sizes);

// A grid of rows under the header, scrolled one column right and back by its column scroll model, which the
// header follows: both repaint.
void GridScrollOneColumn(benchmark::State& state) {
    SHeader h(state.range(0) != 0, true);
    IScrollModel& scroll = h.grid->GetColumnScrollModel();
    double const middle = scroll.GetStart();
    for (auto _ : state) {
        scroll.SetStart(middle + LeafWidth);
        h.window.Paint();
        scroll.SetStart(middle);
        h.window.Paint();
    }
}
BENCHMARK(GridScrollOneColumn)->Apply(Sizes);

// The model side of the same scroll: what a viewer's scroll bar asks of its column model.
void ScrollModelOnly(benchmark::State& state) {
    SHeader h(state.range(0) != 0);
    int const middle = h.header->GetOffset();
    for (auto _ : state) {
        h.header->SetOffset(middle + LeafWidth);
        h.header->SetOffset(middle);
        h.header->OnEndDraw();
    }
}
BENCHMARK(ScrollModelOnly)->Apply(Sizes);

} // namespace

BENCHMARK_MAIN();
