// Layouts: the same items flow along each of the four edges and line up in a grid in the middle. A shelf
// writes its geometry once, in along/across terms, and its edge's layout turns that into x and y, text
// included; each shelf grows across to hold the lines its flow needed, so resizing the window re-wraps the
// items and thickens or thins the shelves.
#include "gallery.h"
#include "swatch.h"

#include <mirelfrw7/layout/flow_layout.h>
#include <mirelfrw7/layout/grid_layout.h>
#include <mirelfrw7/layout/layout_flavor.h>
#include <mirelfrw7/layout/layout_manager.h>

#include <algorithm>
#include <string>
#include <vector>

namespace gallery {

namespace {
using mirel7::_color;
using mirel7::rectangle;
using namespace mirelfrw7;

struct SItem {
    char const* name;
    int length;
    _color colour;
};

SItem const Items[] = {
    {"alpha", 60, {230, 159, 0}},  {"beta", 48, {86, 180, 233}},        {"gamma ray", 84, {0, 158, 115}},
    {"delta", 56, {240, 228, 66}}, {"epsilon", 70, {0, 114, 178}},      {"zeta", 44, {213, 94, 0}},
    {"eta", 36, {204, 121, 167}},  {"theta wave", 92, {150, 150, 150}}, {"iota", 44, {120, 190, 120}},
};
constexpr int ItemCount = int(sizeof(Items) / sizeof(Items[0]));
constexpr int ItemThickness = 20;
constexpr int Margin = 6;

void DrawItem(IPainter* painter, ILayout const& layout, rectangle<double> const& box, SItem const& item) {
    mirel7::brush fill;
    fill.color = item.colour;
    painter->SetBrush(fill);
    painter->FillRect(box);
    painter->SetTextColor(ContrastingText(item.colour));
    painter->DrawString(box, item.name,
                        layout.ConvTextAlign(IPainter::AlignHCenter | IPainter::AlignVCenter) |
                            IPainter::ClipToRect);
}

// The items wrapped along one edge: along is the flow's x, across its y.
class CFlowShelf : public CVisualElement, public CLayoutFlavor, public IFlowLayoutSite {
public:
    CFlowShelf(CVisualElement* parent, Alignment edge, std::string title)
        : CVisualElement(parent, {0, 0}, edge), m_title(std::move(title)), m_boxes(ItemCount + 1) {
        ChangeLayout(edge);
        SetTextConversion(true);
        SetBkColor(_color(40, 44, 52));
        m_flow.SetSite(this);
    }

    void SetAlignment(Alignment alignment) override {
        ChangeLayout(alignment);
        CVisualElement::SetAlignment(alignment);
    }

    // Wraps at the length the parent gives, then asks for the thickness the lines took. The flow leaves a
    // line's closing item, and a last item on a line of its own, out of its extents, so the shelf measures
    // from where the items start instead.
    void SetPos(rectangle<int> const& rect, bool force) override {
        rectangle<int> const n = rect.Normalized();
        m_flow.SetWidth(int(GetAlong(n.Width(), n.Height())) - Margin);
        m_flow.Update();
        int across = 0;
        for (rectangle<int> const& box : m_boxes)
            across = std::max(across, box.top + ItemThickness);
        mirel7::size<int> s = GetSize();
        GetAcrossRef(s.cx, s.cy) = across + Margin;
        SetSize(s, false);
        CVisualElement::SetPos(rect, force);
    }

    void DrawContent(IPainter* painter) override {
        rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
        mirel7::font f = GetFont();
        ConvFont(&f);
        painter->SetFont(f);
        for (int i = 0; i <= ItemCount; ++i) {
            rectangle<int> const& r = m_boxes[std::size_t(i)];
            rectangle<double> const box = MakeRect(r.left, r.top, r.right, r.top + ItemThickness);
            SItem const title{m_title.c_str(), 0, _color(250, 250, 250)};
            DrawItem(painter, *this, box, i == 0 ? title : Items[i - 1]);
        }
    }

    // The first item names the edge; the others are the shared ones.
    int GetItemCount() override { return ItemCount + 1; }
    mirel7::size<int> GetItemSize(int item) override {
        return {item == 0 ? 100 : Items[item - 1].length, ItemThickness};
    }
    void SetItemRect(int item, rectangle<int> const& r) override { m_boxes[std::size_t(item)] = r; }
    int GetItemSpace(int) override { return 4; }
    int GetLineSpace() override { return 3; }
    int GetTop() override { return Margin; }
    int GetLeft() override { return Margin; }

private:
    std::string m_title;
    CFlowLayout m_flow;
    std::vector<rectangle<int>> m_boxes;
};

// The items in rows of three: every column as wide as its widest item, shown behind the items.
class CGridPane : public CVisualElement, public IGridLayoutSite {
public:
    explicit CGridPane(CVisualElement* parent)
        : CVisualElement(parent, {0, 0}, AlignClient), m_cells(ItemCount) {
        SetBkColor(_color(245, 245, 245));
        m_grid.SetSite(this);
        m_grid.Update();
    }

    void DrawContent(IPainter* painter) override {
        rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
        painter->SetTextColor(_color(0, 0, 0));
        painter->DrawString(rectangle<double>(Margin * 3, Margin, b.right, Margin * 3 + 14),
                            "grid, three columns", IPainter::AlignLeft | IPainter::AlignTop);
        mirel7::brush column;
        column.color = _color(220, 224, 230);
        ILayout const& horizontal = *CLayoutManager::GetLayout(AlignTop);
        for (int i = 0; i < ItemCount; ++i) {
            rectangle<int> const& cell = m_cells[std::size_t(i)];
            painter->SetBrush(column);
            painter->FillRect(cell.left, cell.top, cell.right, cell.bottom);
            DrawItem(
                painter, horizontal,
                rectangle<double>(cell.left, cell.top, cell.left + Items[i].length, cell.top + ItemThickness),
                Items[i]);
        }
        mirel7::size<int> const extent = m_grid.GetSize();
        mirel7::pen edge = painter->GetPen();
        edge.color = _color(120, 120, 120);
        painter->SetPen(edge);
        mirel7::brush hollow;
        hollow.style = mirel7::brush::Hollow;
        painter->SetBrush(hollow);
        painter->Rectangle(Margin * 3 - 2, Margin * 4 + 14 - 2, extent.cx, extent.cy);
    }

    int GetColumnCount() override { return Columns; }
    int GetRowCount() override { return (ItemCount + Columns - 1) / Columns; }
    mirel7::size<int> GetCellSize(int row, int column) override {
        int const item = row * Columns + column;
        return item < ItemCount ? mirel7::size<int>{Items[item].length, ItemThickness} : mirel7::size<int>{};
    }
    void SetCellRect(int row, int column, rectangle<int> const& r) override {
        if (int const item = row * Columns + column; item < ItemCount) m_cells[std::size_t(item)] = r;
    }
    int GetColumnSpace(int) override { return 8; }
    int GetRowSpace(int) override { return 6; }
    int GetTop() override { return Margin * 4 + 14; }
    int GetLeft() override { return Margin * 3; }

private:
    static constexpr int Columns = 3;
    CGridLayout m_grid;
    std::vector<rectangle<int>> m_cells;
};
} // namespace

void BuildLayoutsPage(CVisualElement* host) {
    // Top and bottom first: they span the whole width, and the side shelves wrap in what they leave.
    new CFlowShelf(host, AlignTop, "flow on top");
    new CFlowShelf(host, AlignBottom, "flow on bottom");
    new CFlowShelf(host, AlignLeft, "flow on left");
    new CFlowShelf(host, AlignRight, "flow on right");
    new CGridPane(host);
}

} // namespace gallery
