// Headers: a three-level tree header over a table of made-up quarterly figures, and simple headers along the
// bottom and the left edge. Drag a section's right edge to resize it (a group's edge resizes its last
// column), drag a section among its siblings to reorder, click a group's arrow to close or open it, and
// double-click an edge to fit the caption. The wheel scrolls the columns.
#include "gallery.h"
#include "header_tree.h"

#include <mirelfrw7/header/header.h>
#include <mirelfrw7/header/simple_header.h>
#include <mirelfrw7/header/simple_header_model.h>
#include <mirelfrw7/items/default_column_view_model.h>
#include <mirelfrw7/items/default_discrete_item_view_model.h>
#include <mirelfrw7/scroll/continuous_item_scroll_model.h>

#include <string>

namespace gallery {

namespace {
using mirel7::_color;
using namespace mirelfrw7;

// Regions over years over quarters; the first column sorts.
void BuildTree(CTree& tree) {
    tree.Add("Product", 110)->m_sorting = SortAscending;
    for (char const* region : {"North", "South"}) {
        CNode* const r = tree.Add(region);
        for (char const* year : {"2025", "2026"}) {
            CNode* const y = r->Add(year);
            for (char const* q : {"Q1", "Q2", "Q3", "Q4"})
                y->Add(q, 52);
        }
    }
    tree.Add("Total", 90);
    tree.Number();
}

// The rows under the tree header: the header is the column model, so each cell is read back through it.
class CTable : public CVisualElement {
public:
    CTable(CVisualElement* parent, CHeader* header)
        : CVisualElement(parent, {0, 0}, AlignClient), m_header(header) {
        header->sigModelChanged.connect(this, &CTable::OnChanged);
        SetBkColor(_color(252, 252, 250));
    }
    void OnChanged() { Update(UpdateLocal); }
    void SetPos(rectangle<int> const& r, bool force) override {
        CVisualElement::SetPos(r, force);
        m_header->SetViewSize(GetBounds().Width(), false);
    }
    bool HandleWheel(int, int, int, MouseButton, int delta) override {
        m_header->SetOffset(m_header->GetOffset() - delta / 2);
        return true;
    }
    void DrawContent(IPainter* painter) override {
        rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
        int x = -m_header->GetOffset();
        for (int c = 0; c < m_header->GetCount() && x <= b.right; ++c) {
            int const w = m_header->GetItemSize(c);
            int const model = m_header->VisibleIndex2ModelIndex(c);
            for (int row = 0; row * 20 <= b.bottom; ++row) {
                std::string const text = model == 0 ? "Item " + std::to_string(row + 1)
                                                    : std::to_string((row * 37 + model * 53) % 900 + 100);
                painter->DrawString({double(x + 4), row * 20.0, double(x + w - 5), row * 20.0 + 19}, text,
                                    IPainter::AlignRight | IPainter::AlignVCenter | IPainter::ClipToRect);
            }
            painter->SetPen({_color(225, 225, 220)});
            painter->MoveTo(x + w - 1, b.top);
            painter->LineTo(x + w - 1, b.bottom);
            x += w;
        }
    }

private:
    CHeader* m_header;
};

// The tree header on its own scroll model.
class CTreeHeader : public CHeader {
public:
    explicit CTreeHeader(CVisualElement* parent) : CHeader(parent, {0, 0}, AlignTop), m_scroll(this) {
        SetHorzScroll(&m_scroll);
        SetNativeDrawing(true);
        BuildTree(m_tree);
        m_tree.Serve(this);
    }
    ~CTreeHeader() override { SetModel(nullptr); }

private:
    CTree m_tree;
    CContinuousItemScrollModel m_scroll;
};

// Month captions in the order the user leaves them.
class CMonths : public CSimpleHeaderModel {
public:
    explicit CMonths(int count) { InitStartOrder(count); }
    int GetItemCount() override { return int(GetOrder().size()); }
    std::string GetItemText(int index) const override {
        static char const* const names[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
        int const m = GetModelIndex(index);
        return m >= 0 && m < 12 ? names[m] : "";
    }
    int GetItemTextAlign(int) const override { return IPainter::AlignHCenter | IPainter::AlignVCenter; }
    int GetSortingDirection(int index) const override {
        return GetModelIndex(index) == 0 ? SortDescending : SortNone;
    }
};

// A simple header with its own columns and captions, on any edge.
class CEdgeHeader : public CSimpleHeader {
public:
    CEdgeHeader(CVisualElement* parent, Alignment alignment, int count, int size)
        : CSimpleHeader(parent, {24, 24}, alignment), m_months(count) {
        m_columns.SetDefaultItemSize(size);
        m_columns.SetCount(count);
        SetViewModel(&m_columns);
        SetModel(&m_months);
        m_months.ConnectHeader(this);
        sigSectionMoved.connect(this, &CEdgeHeader::OnMoved);
    }
    void OnMoved(CSimpleHeader*, int, int) { OnUpdateModel(); }

private:
    CDefaultColumnViewModel m_columns;
    CMonths m_months;
};
} // namespace

void BuildHeaderPage(CVisualElement* host) {
    new CEdgeHeader(host, AlignBottom, 12, 60);
    new CEdgeHeader(host, AlignLeft, 6, 44);
    auto* header = new CTreeHeader(host);
    new CTable(host, header);
}

GALLERY_PAGE(110, "headers", BuildHeaderPage)

} // namespace gallery
