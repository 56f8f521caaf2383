// A grid viewer of 10^8 rows, painted by a callback that formats numbers: the viewer holds no data, and
// only the cells on the screen are ever asked for. Click a cell, Shift+click or Ctrl+click to select rows,
// the arrow keys and PageUp/PageDown move the current cell; the wheel scrolls the rows.
#include "gallery.h"

#include <mirelfrw7/items/grid_viewer.h>

#include <cstdio>

namespace gallery {

namespace {
using mirel7::_color;
using namespace mirelfrw7;
using D = IDiscreteItemViewModel;

constexpr int RowCount = 100'000'000;
constexpr int Widths[] = {110, 70, 90, 120, 80, 100, 90, 130};

class CNumbersGrid : public CGridViewer<D, D> {
public:
    explicit CNumbersGrid(CVisualElement* parent) : CGridViewer(parent, {0, 0}, AlignClient) {
        D* const columns = GetColumnViewModel();
        columns->SetCount(int(std::size(Widths)));
        for (int c = 0; c < int(std::size(Widths)); ++c)
            columns->SetItemSize(c, Widths[c]);
        GetRowViewModel()->SetCount(RowCount);
        GetRowViewModel()->SetStartItem(RowCount / 2);
        GetRowSelectionModel()->SetSelectionRange(RowCount / 2 + 2, RowCount / 2 + 4);
        GetRowSelectionModel()->SetCurrent(RowCount / 2 + 4);
        GetColumnSelectionModel()->SetCurrent(3);
    }

    void DrawCell(IPainter* painter, int row, int, int column, int, int state, rectangle<double> const& r,
                  IDirtyItemSet::DirtyType dirty) override {
        if (dirty == IDirtyItemSet::CleanItem) return;
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
        painter->DrawString(
            inner, text, (column == 0 ? IPainter::AlignLeft : IPainter::AlignRight) | IPainter::AlignVCenter);
        pen grid;
        grid.color = _color(214, 218, 224, 255);
        if (state & IItemPainter::Current) grid.color = _color(230, 120, 20, 255);
        painter->SetPen(grid);
        painter->MoveTo(r.right, r.top);
        painter->LineTo(r.right, r.bottom);
        painter->LineTo(r.left, r.bottom);
    }

    bool HandleWheel(int, int, int, MouseButton, int delta) override {
        GetVertScroll()->SetStart(GetVertScroll()->GetStart() - 3 * delta / 120);
        return true;
    }
};
} // namespace

void BuildGridPage(CVisualElement* host) {
    new CNumbersGrid(host);
}

GALLERY_PAGE(150, "grid", BuildGridPage)

} // namespace gallery
