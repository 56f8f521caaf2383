// A grid viewer of 10^8 rows, painted by a callback that formats numbers: the viewer holds no data, and
// only the cells on the screen are ever asked for. Its columns are the leaves of a three-level tree header
// above it: drag an edge to resize a column (a group's edge resizes its last one), drag a section among its
// siblings to reorder, click a group's arrow to close it into one column. Click a cell, Shift+click or
// Ctrl+click to select rows, the arrow keys and PageUp/PageDown move the current cell; the wheel scrolls the
// rows, Shift+wheel the columns.
#include "gallery.h"
#include "header_tree.h"

#include <mirelfrw7/header/header_grid.h>

#include <cstdio>

namespace gallery {

namespace {
using mirel7::_color;
using namespace mirelfrw7;

constexpr int RowCount = 100'000'000;

// The row number, then measures raw and scaled, then totals; the model index of each leaf picks its figures.
void BuildTree(CTree& tree) {
    tree.Add("Row", 110);
    CNode* const measures = tree.Add("Measures");
    CNode* const raw = measures->Add("Raw");
    raw->Add("Count", 84);
    raw->Add("Weight", 90);
    CNode* const scaled = measures->Add("Scaled");
    scaled->Add("Rate", 120);
    scaled->Add("Share", 80);
    CNode* const totals = tree.Add("Totals");
    totals->Add("Sum", 100);
    totals->Add("Mean", 90);
    totals->Add("Trend", 130);
    tree.Number();
}

class CColumnsHeader : public CHeader {
public:
    explicit CColumnsHeader(CVisualElement* parent) : CHeader(parent, {0, 0}, AlignTop) {
        SetNativeDrawing(true);
        BuildTree(m_tree);
        m_tree.Serve(this);
    }
    ~CColumnsHeader() override { SetModel(nullptr); }

private:
    CTree m_tree;
};

class CNumbersGrid : public CHeaderGrid {
public:
    explicit CNumbersGrid(CVisualElement* parent) : CGridViewer(parent, {0, 0}, AlignClient) {
        GetRowViewModel()->SetCount(RowCount);
        GetRowViewModel()->SetStartItem(RowCount / 2);
        GetRowSelectionModel()->SetSelectionRange(RowCount / 2 + 2, RowCount / 2 + 4);
        GetRowSelectionModel()->SetCurrent(RowCount / 2 + 4);
    }

    // The grid dies first, as the older sibling: it lets go of the header while the header lives.
    ~CNumbersGrid() override {
        SetColumnViewModel(nullptr);
        if (m_header) m_header->SetHorzScroll(nullptr);
    }
    void ShowColumnsOf(CHeader* header) {
        m_header = header;
        ServeAsColumns(header, this);
        GetColumnSelectionModel()->SetCurrent(3);
    }

    void DrawCell(IPainter* painter, int row, int, int visible, int, int state, rectangle<double> const& r,
                  IDirtyItemSet::DirtyType dirty) override {
        if (dirty == IDirtyItemSet::CleanItem) return;
        int const column = m_header->VisibleIndex2ModelIndex(visible);
        bool const selected = state & IItemPainter::Selected;
        brush fill;
        fill.style = brush::Solid;
        fill.color = selected ? _color(52, 101, 164, 255)
                              : (row % 2 ? _color(244, 246, 250, 255) : _color(255, 255, 255, 255));
        painter->SetBrush(fill);
        painter->FillRect(r);
        char text[48];
        if (column == 0)
            std::snprintf(text, sizeof text, "%d", row);
        else
            std::snprintf(text, sizeof text, "%.2f", (row % 100'003) * 0.37 * column - 1000.0 * (column % 3));
        painter->SetTextColor(selected ? _color(255, 255, 255, 255) : _color(30, 30, 30, 255));
        rectangle<double> const inner(r.left + 4, r.top, r.right - 4, r.bottom);
        painter->DrawString(inner, text,
                            (column == 0 ? IPainter::AlignLeft : IPainter::AlignRight) |
                                IPainter::AlignVCenter | IPainter::ClipToRect);
        pen grid;
        grid.color = _color(214, 218, 224, 255);
        if (state & IItemPainter::Current) grid.color = _color(230, 120, 20, 255);
        painter->SetPen(grid);
        painter->MoveTo(r.right, r.top);
        painter->LineTo(r.right, r.bottom);
        painter->LineTo(r.left, r.bottom);
    }

    bool HandleWheel(int, int, int flags, MouseButton, int delta) override {
        // `delta` counts notches; a sideways wheel comes with Shift.
        if (flags & mirel7::FlagShift)
            GetHorzScroll()->SetStart(GetHorzScroll()->GetStart() - 40.0 * delta);
        else
            GetVertScroll()->SetStart(GetVertScroll()->GetStart() - 3.0 * delta);
        return true;
    }

private:
    CHeader* m_header = nullptr;
};
} // namespace

void BuildGridPage(CVisualElement* host) {
    auto* grid = new CNumbersGrid(host);
    grid->ShowColumnsOf(new CColumnsHeader(host));
}

GALLERY_PAGE(150, "grid", BuildGridPage)

} // namespace gallery
