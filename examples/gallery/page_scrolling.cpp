// Scrolling: ten million rows, one in a hundred a taller section row, under twelve columns of mixed widths.
// The wheel, the arrow keys, PageUp/PageDown and Home/End scroll the rows (click the list first), Shift with
// the wheel or Left/Right the columns. The header draws in the logical coordinates of the column model and
// follows it; holding the button down near either end of the header scrolls the columns, faster and faster.
#include "gallery.h"

#include <mirelfrw7/items/default_column_view_model.h>
#include <mirelfrw7/items/default_discrete_item_view_model.h>
#include <mirelfrw7/items/item_utils.h>
#include <mirelfrw7/scroll/continuous_item_scroll_model.h>
#include <mirelfrw7/scroll/discrete_item_scroll_model.h>
#include <mirelfrw7/scroll/scroll_timer.h>
#include <mirelfrw7/scroll/scrollable_element_ex.h>

#include <cstdint>
#include <string>

namespace gallery {

namespace {
using mirel7::_color;
using namespace mirelfrw7;

constexpr int RowCount = 10000000;
constexpr int SectionEvery = 100;
constexpr int ColumnCount = 12;

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

void Fill(IPainter* painter, _color color, double left, double top, double right, double bottom) {
    mirel7::brush b;
    b.color = color;
    painter->SetBrush(b);
    painter->FillRect(left, top, right, bottom);
}

// The rows and columns of the page, painted whole on every change: only the visible cells are visited, so a
// repaint costs the same at row 10 as at row 9,999,990.
class CGrid : public CScrollableElement {
public:
    explicit CGrid(CVisualElement* parent) : CScrollableElement(parent, {0, 0}, AlignClient) {
        m_rows.SetCount(RowCount);
        for (int row = 0; row < RowCount; row += SectionEvery)
            m_rows.SetItemSize(row, 34);
        m_columns.SetCount(ColumnCount);
        m_columns.SetItemSize(0, 110);
        m_columns.SetItemSize(3, 140);
        m_columns.SetItemSize(7, 84);
        m_rows.sigModelChanged.connect(this, &CGrid::OnModelChanged);
        m_rows.sigItemsScrolled.connect(this, &CGrid::OnItemsScrolled);
        m_columns.sigModelChanged.connect(this, &CGrid::OnModelChanged);
        m_columns.sigItemsScrolled.connect(this, &CGrid::OnItemsScrolled);
        SetVertScroll(&m_rowScroll);
        SetHorzScroll(&m_columnScroll);
        SetCentralPane(this);
        SetFocusable(true);
    }
    CDefaultDiscreteItemViewModel& Rows() { return m_rows; }
    CDefaultColumnViewModel& Columns() { return m_columns; }
    // Called whenever the models changed, after this element was told.
    tarnkit2::signal_t<> sigChanged;

    void SetPos(rectangle<int> const& newRect, bool force) override {
        CScrollableElement::SetPos(newRect, force);
        rectangle<int> const r = GetContentRect();
        m_rows.SetViewSize(r.Height(), false);
        m_columns.SetViewSize(r.Width(), false);
    }

    void DrawContent(IPainter* painter) override {
        rectangle<int> const r = GetContentRect();
        Fill(painter, _color(250, 250, 250), r.left, r.top, r.right, r.bottom);
        int const firstColumn = Utils::HitTest(m_columns, 0);
        int y = r.top;
        for (int row = m_rows.GetStartItem(); row < m_rows.GetCount() && y <= r.bottom; ++row) {
            int const height = m_rows.GetItemSize(row);
            bool const section = row % SectionEvery == 0;
            _color const shade = section   ? _color(214, 228, 245)
                                 : row % 2 ? _color(244, 246, 248)
                                           : _color(255, 255, 255);
            Fill(painter, shade, r.left, y, r.right, y + height - 1);
            if (section) {
                // A section row is one band across every column, its title at the row's start.
                painter->SetTextColor(_color(20, 60, 120));
                painter->DrawString(rectangle<double>(r.left + 8, y, r.right - 8, y + height - 1),
                                    "section " + Grouped(row / SectionEvery + 1) + ": rows " +
                                        Grouped(row + 1) + " to " + Grouped(row + SectionEvery),
                                    IPainter::AlignLeft | IPainter::AlignVCenter);
                y += height;
                continue;
            }
            painter->SetTextColor(_color(40, 44, 52));
            for (int column = firstColumn; column != -1 && column < m_columns.GetCount(); ++column) {
                mirel7::range<int> const span = Utils::GetItemIndexRangeEx(m_columns, column, {0, r.Width()});
                if (span.lower == -1 && span.upper == -1) break;
                rectangle<double> const cell(span.lower + 6, y, span.upper - 6, y + height - 1);
                std::string const text = column == 0 ? Grouped(row + 1) : CellText(row, column);
                int const align = (column == 0 ? IPainter::AlignLeft : IPainter::AlignRight) |
                                  IPainter::AlignVCenter | IPainter::ClipToRect;
                painter->DrawString(cell, text, align);
                Fill(painter, _color(226, 229, 234), span.upper, y, span.upper, y + height - 1);
            }
            y += height;
        }
        // Everything was drawn: what the models collected since the last paint is used up.
        m_rows.OnEndDraw();
        m_columns.OnEndDraw();
    }

    bool HandleWheel(int, int, int flags, MouseButton, int delta) override {
        if (flags & mirel7::FlagShift)
            m_columns.SetOffset(m_columns.GetOffset() - delta / 120 * 40);
        else
            m_rows.SetStartItem(m_rows.GetStartItem() - delta / 120 * 3);
        return true;
    }

    bool HandleKeyDown(int, int key) override {
        int const start = m_rows.GetStartItem();
        int const page = std::max(Utils::GetLastVisibleItem(m_rows) - start, 1);
        switch (key) {
        case mirel7::KeyUp:
            m_rows.SetStartItem(start - 1);
            return true;
        case mirel7::KeyDown:
            m_rows.SetStartItem(start + 1);
            return true;
        case mirel7::KeyPageUp:
            m_rows.SetStartItem(start - page);
            return true;
        case mirel7::KeyPageDown:
            m_rows.SetStartItem(start + page);
            return true;
        case mirel7::KeyHome:
            m_rows.SetStartItem(0);
            return true;
        case mirel7::KeyEnd:
            m_rows.SetStartItem(Utils::CalcMaxStart(m_rows));
            return true;
        case mirel7::KeyLeft:
            m_columns.SetOffset(m_columns.GetOffset() - 40);
            return true;
        case mirel7::KeyRight:
            m_columns.SetOffset(m_columns.GetOffset() + 40);
            return true;
        default:
            return false;
        }
    }

    bool HandleButtonDown(int, int, int, MouseButton) override {
        SetFocus(true);
        return true;
    }

private:
    void OnModelChanged() {
        Update(UpdateLocal);
        sigChanged();
    }
    // The grid repaints whole instead of moving pixels: it says so, and the model marks everything.
    void OnItemsScrolled(int, int, bool* canScroll) { *canScroll = false; }

    CDefaultDiscreteItemViewModel m_rows;
    CDefaultColumnViewModel m_columns;
    CDiscreteItemScrollModel m_rowScroll{&m_rows};
    CContinuousItemScrollModel m_columnScroll{&m_columns};
};

// Column titles over the grid, drawn in the column model's own units: the strip's mapping places them.
class CColumnHeader : public CScrollableElementEx {
public:
    CColumnHeader(CVisualElement* parent, CGrid* grid)
        : CScrollableElementEx(parent, {0, 26}, AlignTop), m_grid(grid) {
        SetCentralPane(grid);
        SetHorzScroll(grid->GetHorzScroll());
        grid->sigChanged.connect(this, &CColumnHeader::OnChanged);
    }

    void DrawContent(IPainter* painter) override {
        rectangle<int> const b = GetBounds();
        Fill(painter, _color(60, 64, 72), b.left, b.top, b.right, b.bottom);
        SetCoordSystem(painter);
        // Across, the strip's units grow upwards from the grid.
        double const height = b.Height();
        CDefaultColumnViewModel const& columns = m_grid->Columns();
        painter->SetTextColor(_color(255, 255, 255));
        int const view = columns.GetViewSize();
        for (int column = Utils::HitTest(columns, 0); column != -1 && column < columns.GetCount(); ++column) {
            double const left = Utils::GetItemOffset(columns, column);
            if (left - columns.GetOffset() > view) break;
            double const right = left + columns.GetItemSize(column) - 1;
            Fill(painter, column % 2 ? _color(70, 76, 88) : _color(78, 86, 100), left, 0, right - 1, height);
            painter->DrawString({left + 6, 0, right - 6, height}, "column " + std::to_string(column + 1),
                                IPainter::AlignLeft | IPainter::AlignVCenter | IPainter::ClipToRect);
        }
    }

    // The outer thirds scroll while the button is held, the step growing from 4 to 32 pixels a tick.
    bool HandleButtonDown(int x, int, int, MouseButton button) override {
        if (button != mirel7::ButtonLeft) return false;
        int const width = GetBounds().Width();
        if (x > width * 2 / 3)
            m_timer.Start(true);
        else if (x < width / 3)
            m_timer.Start(false);
        CaptureMouse();
        return true;
    }
    bool HandleButtonUp(int, int, int, MouseButton) override {
        m_timer.Stop();
        ReleaseMouse();
        return true;
    }

private:
    void OnChanged() { Update(UpdateLocal); }

    CGrid* m_grid;
    CScrollTimer m_timer{this, 100, 4, 32, 4, 2};
};

// Where the view stands, in words.
class CStatusLine : public CVisualElement {
public:
    CStatusLine(CVisualElement* parent, CGrid* grid)
        : CVisualElement(parent, {0, 22}, AlignBottom), m_grid(grid) {
        SetBkColor(_color(40, 44, 52));
        grid->sigChanged.connect(this, &CStatusLine::OnChanged);
    }

    void DrawContent(IPainter* painter) override {
        rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
        auto& rows = m_grid->Rows();
        auto& columns = m_grid->Columns();
        std::string const text = "rows " + Grouped(rows.GetStartItem() + 1) + " to " +
                                 Grouped(Utils::GetLastVisibleItem(rows) + 1) + " of " +
                                 Grouped(rows.GetCount()) + "   columns at " + Grouped(columns.GetOffset()) +
                                 " of " + Grouped(columns.GetFullItemsSize()) + " px";
        painter->SetTextColor(_color(230, 230, 230));
        painter->DrawString(rectangle<double>(b.left + 8, b.top, b.right - 8, b.bottom), text,
                            IPainter::AlignLeft | IPainter::AlignVCenter);
    }

private:
    void OnChanged() { Update(UpdateLocal); }

    CGrid* m_grid;
};
} // namespace

void BuildScrollingPage(CVisualElement* host) {
    auto* grid = new CGrid(host);
    new CStatusLine(host, grid);
    new CColumnHeader(host, grid);
    // Somewhere in the middle, and the columns a little way in, so that both are cut off at the start.
    grid->Rows().SetStartItem(4999990);
    grid->Columns().SetOffset(45);
}

GALLERY_PAGE(50, "scrolling", BuildScrollingPage)

} // namespace gallery
