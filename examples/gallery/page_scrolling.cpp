// Scrolling: a grid viewer of ten million rows in a scroll box, one row in a hundred a taller section row,
// under thirty columns of mixed widths. The bars, the wheel (three rows a notch) and the keys scroll; a click
// selects a row and makes its cell current, Shift+click and Ctrl+click extend the selection, Ctrl+A selects
// all of it. The status line tells the visible rows, the current cell and how many rows are selected.
#include "gallery.h"

#include <mirelfrw7/core/clip_holder.h>
#include <mirelfrw7/items/grid_viewer.h>
#include <mirelfrw7/items/item_utils.h>
#include <mirelfrw7/scroll/scroll_box.h>

#include <cstdint>
#include <string>

namespace gallery {

namespace {
using mirel7::_color;
using namespace mirelfrw7;
using D = IDiscreteItemViewModel;

constexpr int RowCount = 10'000'000;
constexpr int SectionEvery = 100;
constexpr int SectionHeight = 34;
constexpr int ColumnCount = 30;
constexpr int Widths[] = {96, 84, 120, 88, 140, 100};

// 1234567 -> "1,234,567".
std::string Grouped(std::int64_t value) {
    std::string const digits = std::to_string(value);
    std::string grouped;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && digits[i - 1] != '-' && (digits.size() - i) % 3 == 0) grouped += ',';
        grouped += digits[i];
    }
    return grouped;
}

// Made-up figures that stay the same for a cell wherever it is scrolled to.
std::string CellText(int row, int column) {
    std::uint32_t h = std::uint32_t(row) * 2654435761u ^ std::uint32_t(column) * 40503u;
    h ^= h >> 13;
    h *= 0x5bd1e995u;
    h ^= h >> 15;
    return Grouped(h % 100000) + "." + std::to_string(h % 10);
}

void Fill(IPainter* painter, _color color, rectangle<double> const& r) {
    brush b;
    b.style = brush::Solid;
    b.color = color;
    painter->SetBrush(b);
    painter->FillRect(r);
}

bool IsSection(int row) {
    return row % SectionEvery == 0;
}

// The application's data is made up as it is painted: the viewer holds none of it.
class CScrollingGrid : public CGridViewer<D, D> {
public:
    explicit CScrollingGrid(CVisualElement* parent) : CGridViewer(parent, {0, 0}, AlignClient) {
        D* const rows = GetRowViewModel();
        rows->SetCount(RowCount);
        for (int row = 0; row < RowCount; row += SectionEvery)
            rows->SetItemSize(row, SectionHeight);
        D* const columns = GetColumnViewModel();
        columns->SetCount(ColumnCount);
        for (int column = 0; column < ColumnCount; ++column)
            columns->SetItemSize(column, Widths[column % std::size(Widths)]);
        // Whole columns are never selected: the column axis only says which cell is current.
        GetColumnHandler().SetSelectionType(CEventHandlerBase::SelectNoItems);
    }

    void DrawCell(IPainter* painter, int row, int, int column, int, int state, rectangle<double> const& r,
                  IDirtyItemSet::DirtyType dirty) override {
        if (dirty == IDirtyItemSet::CleanItem) return;
        bool const selected = state & IItemPainter::Selected;
        if (IsSection(row)) {
            // One band across the columns: each cell draws its piece of the title, placed from the row's
            // start and clipped to the cell.
            Fill(painter, selected ? _color(70, 110, 170) : _color(214, 228, 245), r);
            D const* const columns = GetColumnViewModel();
            double const rowLeft = r.left - double(columns->GetItemsExtent(columns->GetStartItem(), column));
            CClipHolder const clip(painter, r);
            painter->SetTextColor(selected ? _color(255, 255, 255) : _color(20, 60, 120));
            painter->DrawString(rectangle<double>(rowLeft + 8, r.top, rowLeft + 600, r.bottom),
                                "section " + Grouped(row / SectionEvery + 1) + ": rows " + Grouped(row + 1) +
                                    " to " + Grouped(row + SectionEvery),
                                IPainter::AlignLeft | IPainter::AlignVCenter);
            return;
        }
        Fill(painter,
             selected  ? _color(52, 101, 164)
             : row % 2 ? _color(244, 246, 248)
                       : _color(255, 255, 255),
             r);
        painter->SetTextColor(selected ? _color(255, 255, 255) : _color(40, 44, 52));
        std::string const text = column == 0 ? Grouped(row + 1) : CellText(row, column);
        painter->DrawString(rectangle<double>(r.left + 5, r.top, r.right - 5, r.bottom), text,
                            (column == 0 ? IPainter::AlignLeft : IPainter::AlignRight) |
                                IPainter::AlignVCenter | IPainter::ClipToRect);
        pen line;
        line.color = _color(218, 222, 228);
        painter->SetPen(line);
        painter->MoveTo(r.right, r.top);
        painter->LineTo(r.right, r.bottom);
        if (!(state & IItemPainter::Current)) return;
        // The current cell: a frame two pixels wide inside it.
        _color const frame(230, 120, 20);
        Fill(painter, frame, {r.left, r.top, r.right, r.top + 1});
        Fill(painter, frame, {r.left, r.bottom - 1, r.right, r.bottom});
        Fill(painter, frame, {r.left, r.top, r.left + 1, r.bottom});
        Fill(painter, frame, {r.right - 1, r.top, r.right, r.bottom});
    }
};

// A scroll box whose wheel moves three rows a notch.
class CGridBox : public CScrollBox {
public:
    explicit CGridBox(CVisualElement* parent) : CScrollBox(parent, {0, 0}, AlignClient) {
        sigWheelStep.connect(this, &CGridBox::ThreeRows);
    }

private:
    void ThreeRows(CVisualElement*, int& step) { step = 3; }
};

// Column titles that follow the grid's columns through the box's horizontal model.
class CColumnTitles : public CScrollableElement {
public:
    CColumnTitles(CVisualElement* parent, CScrollingGrid* grid)
        : CScrollableElement(parent, {0, 24}, AlignTop), m_grid(grid) {
        SetBkColor(_color(60, 64, 72));
        grid->GetColumnViewModel()->sigModelChanged.connect(this, &CColumnTitles::OnChanged);
    }

    void DrawContent(IPainter* painter) override {
        rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
        D const* const columns = m_grid->GetColumnViewModel();
        painter->SetTextColor(_color(255, 255, 255));
        int x = b.left;
        for (int column = columns->GetStartItem(); column < columns->GetCount() && x <= b.right; ++column) {
            int const width = columns->GetItemSize(column);
            Fill(painter, column % 2 ? _color(70, 76, 88) : _color(78, 86, 100),
                 rectangle<double>(x, b.top, x + width - 1, b.bottom));
            painter->DrawString(rectangle<double>(x + 5, b.top, x + width - 5, b.bottom),
                                "column " + std::to_string(column + 1),
                                IPainter::AlignLeft | IPainter::AlignVCenter | IPainter::ClipToRect);
            x += width;
        }
    }

private:
    void OnChanged() { Update(UpdateLocal); }

    CScrollingGrid* m_grid;
};

// Where the view stands and what is selected, in words.
class CStatusLine : public CVisualElement {
public:
    CStatusLine(CVisualElement* parent, CScrollingGrid* grid)
        : CVisualElement(parent, {0, 22}, AlignBottom), m_grid(grid) {
        SetBkColor(_color(40, 44, 52));
        grid->GetRowViewModel()->sigModelChanged.connect(this, &CStatusLine::OnChanged);
        grid->GetRowSelectionModel()->sigModelChanged.connect(this, &CStatusLine::OnChanged);
        grid->GetRowSelectionModel()->sigSelectionChanged.connect(this, &CStatusLine::OnChanged);
        grid->GetColumnSelectionModel()->sigModelChanged.connect(this, &CStatusLine::OnChanged);
    }

    void DrawContent(IPainter* painter) override {
        rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
        D const* const rows = m_grid->GetRowViewModel();
        ISelectionModel const* const selection = m_grid->GetRowSelectionModel();
        std::string const text = "rows " + Grouped(rows->GetStartItem() + 1) + " to " +
                                 Grouped(Utils::GetLastVisibleItem(*rows) + 1) + " of " +
                                 Grouped(rows->GetCount()) + "   cell " +
                                 Grouped(selection->GetCurrent() + 1) + ":" +
                                 std::to_string(m_grid->GetColumnSelectionModel()->GetCurrent() + 1) + "   " +
                                 Grouped(selection->GetSelectedCount()) + " rows selected";
        painter->SetTextColor(_color(230, 230, 230));
        painter->DrawString(rectangle<double>(b.left + 8, b.top, b.right - 8, b.bottom), text,
                            IPainter::AlignLeft | IPainter::AlignVCenter);
    }

private:
    void OnChanged() { Update(UpdateLocal); }

    CScrollingGrid* m_grid;
};
} // namespace

void BuildScrollingPage(CVisualElement* host) {
    auto* const box = new CGridBox(host);
    auto* const grid = new CScrollingGrid(box);
    box->ConnectElement(grid, CScrollBox::ConnectHorz | CScrollBox::ConnectVert, true);
    new CStatusLine(host, grid);
    box->ConnectElement(new CColumnTitles(host, grid), CScrollBox::ConnectHorz, false);
    // Somewhere in the middle, with a few rows selected and a cell current.
    grid->GetVertScroll()->SetStart(4'999'990);
    grid->GetRowSelectionModel()->SetSelectionRange(4'999'993, 4'999'995);
    grid->GetRowSelectionModel()->SetCurrent(4'999'995);
    grid->GetColumnSelectionModel()->SetCurrent(2);
}

GALLERY_PAGE(50, "scrolling", BuildScrollingPage)

} // namespace gallery
