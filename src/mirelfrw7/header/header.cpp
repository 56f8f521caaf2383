#include <mirelfrw7/header/header.h>
#include <mirelfrw7/header/position_processor.h>
#include <mirelfrw7/items/saturating_int.h>

#include <algorithm>
#include <limits>

namespace mirelfrw7 {

namespace {

// Finds one item by its address: whether it is still in the tree.
class CFindItem : public FindVisitor {
public:
    explicit CFindItem(IHeaderItem const* item) : m_item(item) {}
    bool CheckItem(IHeaderItem* item) const override { return item == m_item; }

private:
    IHeaderItem const* m_item;
};

} // namespace

// --- Visible leaves ---------------------------------------------------------------------------------------

bool CHeader::CViewModelItems::Visit(IHeaderItem* item, int level) {
    if (level == 0) ++m_top;
    if (!IsVisibleLeaf(item)) return true;
    m_index[item] = int(m_leaves.size());
    m_leaves.push_back(item);
    m_tops.push_back(m_top);
    return false;
}

void CHeader::CViewModelItems::Clear() {
    m_leaves.clear();
    m_offsets.assign(1, 0);
    m_tops.clear();
    m_index.clear();
    m_top = -1;
}

void CHeader::CViewModelItems::Reoffset(CHeader const& header, int from) {
    int const count = Count();
    m_offsets.resize(count + 1);
    for (int i = std::max(from, 0); i < count; ++i)
        m_offsets[i + 1] = m_offsets[i] + header.GetItemSize(i);
}

int CHeader::CViewModelItems::IndexOf(IHeaderItem const* item) const {
    auto const it = m_index.find(item);
    return it == m_index.end() ? -1 : it->second;
}

// --- Construction and model -------------------------------------------------------------------------------

CHeader::CHeader(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CScrollableElementEx(parent, elementSize, alignment), m_visualisation(this) {
    m_lastItemExpanded = true;
}

// The hosted elements die after this body, with the children: they must not call back into it.
CHeader::~CHeader() {
    for (auto& [modelIndex, anchor] : m_elements)
        if (anchor.element) anchor.element->sigDestroy.disconnect(this, &CHeader::OnElementDestroy);
}

void CHeader::SetModel(IHeaderModel* model) {
    if (m_model) m_model->sigChanged.disconnect(this, &CHeader::OnModelChanged);
    m_model = model;
    if (m_model) m_model->sigChanged.connect(this, &CHeader::OnModelChanged);
    m_processing.Clear();
    m_hotItem = nullptr;
    OnModelChanged();
}

void CHeader::OnModelChanged() {
    // The tree may have lost the sections the mouse was working on.
    auto const gone = [this](IHeaderItem const* item) {
        CFindItem find(item);
        WalkHeaderModel(m_model, find, 0);
        return find.m_found == nullptr;
    };
    if (m_processing.item && gone(m_processing.item)) {
        if (m_processing.type == 1 || m_processing.type == 3) ReleaseMouse();
        m_processing.Clear();
    }
    if (m_hotItem && gone(m_hotItem)) m_hotItem = nullptr;
    BuildViewModelItems();
    RecalculateHeight();
    RecreateElements();
    AddDirtyItems(0, ToEnd);
    sigModelChanged();
    OnRearrange(this);
    Update(UpdateLocal);
}

void CHeader::BuildViewModelItems() {
    m_items.Clear();
    WalkHeaderModel(m_model, m_items, 0);
    m_items.Reoffset(*this, 0);
    UpdateFullWidth(0);
    // Fewer or narrower columns may leave the view beyond their end.
    int const view = GetViewSize();
    if (view >= 0 && m_offset > std::max(GetFullItemsSize() - view, 0))
        SetOffset(std::max(GetFullItemsSize() - view, 0));
}

void CHeader::RecalculateHeight() {
    CLevelCounter counter;
    WalkHeaderModel(m_model, counter, 0);
    m_levelCount = counter.m_maxLevel + 1;
    int const line = GetTextLineHeight();
    if (line >= 0) SetSize({GetSize().cx, m_levelCount * (line + 4)}, false);
}

void CHeader::SetSingleColumnWidth(int width) {
    m_singleColumnWidth = width;
    m_items.Reoffset(*this, 0);
    UpdateFullWidth(0);
    Update(UpdateLocal);
}

void CHeader::SetItemVisualisation(IHeaderItemVisualisation* visualisation) {
    m_visualisation = visualisation ? visualisation : this;
    Update(UpdateLocal);
}

// --- View model -------------------------------------------------------------------------------------------

int CHeader::GetItemSize(int index) const {
    if (index < 0 || index >= m_items.Count()) return -1;
    if (m_singleColumnWidth > 0 && m_items.Count() == 1) return m_singleColumnWidth;
    return m_items.Leaf(index)->GetWidth();
}

void CHeader::SaveItemWidth(int index, int size) {
    if (index < 0 || index >= m_items.Count()) return;
    m_items.Leaf(index)->SetWidth(size);
    m_items.Reoffset(*this, index);
    UpdateElementsPos();
    Update(UpdateLocal);
}

void CHeader::SaveViewWidth(int size) {
    UpdateFullWidth(0);
    m_viewWidth = size;
}

void CHeader::UpdateFullWidth(int) {
    m_fullWidth = SaturatingInt(m_items.Offset(m_items.Count()));
}

int CHeader::GetViewSize() const {
    return m_viewWidth >= 0 ? m_viewWidth : GetBounds().Width();
}

int CHeader::GetFullItemsSize() const {
    if (m_singleColumnWidth > 0 && m_items.Count() == 1) return m_singleColumnWidth;
    return m_fullWidth;
}

void CHeader::SetOffset(int offset) {
    int const old = m_offset;
    CSimpleContinuousItemViewModel::SetOffset(offset);
    if (m_offset == old) return;
    UpdateElementsPos();
    Update(UpdateLocal);
}

// Widths are taken as not negative, so that the running sums rise and can be searched.
std::int64_t CHeader::GetItemsExtent(int from, int to) const {
    if (to <= from) return 0;
    if (from < 0 || to > m_items.Count()) return CSimpleContinuousItemViewModel::GetItemsExtent(from, to);
    return m_items.Offset(to) - m_items.Offset(from);
}

int CHeader::FindItemAt(int from, int to, std::int64_t pixel, std::int64_t* itemStart) const {
    if (from < 0 || to > m_items.Count() || to <= from || pixel < 0)
        return CSimpleContinuousItemViewModel::FindItemAt(from, to, pixel, itemStart);
    std::int64_t const base = m_items.Offset(from), target = base + pixel;
    // The first item whose end lies beyond the target.
    int lo = from, hi = to;
    while (lo < hi) {
        int const mid = lo + (hi - lo) / 2;
        if (m_items.Offset(mid + 1) > target)
            hi = mid;
        else
            lo = mid + 1;
    }
    *itemStart = m_items.Offset(lo) - base;
    return lo;
}

// --- Geometry ---------------------------------------------------------------------------------------------

rectangle<double> CHeader::GetHeaderRect() const {
    rectangle<double> r(GetBounds());
    r.left -= GetOffset();
    return r;
}

void CHeader::CutRectByBounds(rectangle<double>& rect) const {
    rectangle<int> const b = GetBounds();
    rect.left = std::max<double>(rect.left, b.left);
    rect.top = std::max<double>(rect.top, b.top);
    rect.right = std::min<double>(rect.right, b.right);
    rect.bottom = std::min<double>(rect.bottom, b.bottom);
}

IHeaderItem* CHeader::FirstLeaf(IHeaderItem* item) {
    while (item && !IsVisibleLeaf(item)) {
        IHeaderItem* const child = item->GetChild(0);
        if (!child) break;
        item = child;
    }
    return item;
}

IHeaderItem* CHeader::LastLeaf(IHeaderItem* item) {
    while (item && !IsVisibleLeaf(item)) {
        IHeaderItem* const child = item->GetChild(item->GetChildCount() - 1);
        if (!child) break;
        item = child;
    }
    return item;
}

int CHeader::GetSectionWidth(IHeaderItem* item) const {
    int const first = m_items.IndexOf(FirstLeaf(item)), last = m_items.IndexOf(LastLeaf(item));
    if (first >= 0 && first <= last) return SaturatingInt(m_items.Offset(last + 1) - m_items.Offset(first));
    // A tree changed behind the header's back: its own widths.
    CWidthCalc calc;
    WalkHeaderItem(item, calc, 0);
    return calc.m_width;
}

void CHeader::Walk(CPositionProcessor& processor, double fromX) const {
    int start = 0;
    double const left = GetHeaderRect().left;
    int const count = m_items.Count();
    if (m_model && count > 0 && fromX > left) {
        std::int64_t leafStart = 0;
        int const leaf = FindItemAt(0, count, std::int64_t(fromX - left), &leafStart);
        int const top = m_items.TopOf(std::min(leaf, count - 1));
        int const first = m_items.IndexOf(FirstLeaf(m_model->GetItem(top)));
        if (first >= 0) {
            start = top;
            processor.StartAt(left + double(m_items.Offset(first)));
        }
    }
    WalkHeaderModel(m_model, processor, start);
}

rectangle<double> CHeader::GetItemRect(IHeaderItem const* item) const {
    if (!item) return {};
    CRectCalculator calc(*this, item);
    WalkHeaderModel(m_model, calc, 0);
    return calc.m_rect;
}

CHeader::HitTestResult CHeader::HitTest(int x, int y) const {
    rectangle<int> const b = GetBounds();
    if (x < b.left || x > b.right || y < b.top || y > b.bottom) return {};
    CHitTester tester(*this, b.left, b.right, x, y, m_visualisation);
    Walk(tester, x);
    return tester.m_result;
}

int CHeader::GetVisibleIndex(int modelIndex) const {
    FindByModelIndex find(modelIndex);
    WalkHeaderModel(m_model, find, 0);
    return find.m_found ? m_items.IndexOf(find.m_found) : -1;
}

int CHeader::VisibleIndex2ModelIndex(int index) const {
    IHeaderItem* const item = GetHeaderItem(index);
    return item ? item->GetModelIndex() : -1;
}

IHeaderItem* CHeader::GetHeaderItem(int index) const {
    return index >= 0 && index < m_items.Count() ? m_items.Leaf(index) : nullptr;
}

void CHeader::ExpandItem(IHeaderItem* item, bool expanded) {
    if (!item) return;
    item->SetExpanded(expanded);
    BuildViewModelItems();
    sigModelChanged();
    AddDirtyItems(0, ToEnd);
    UpdateElementsPos();
    OnChange(this, UpdateLocal);
    sigSectionExpanded(this, item, expanded);
}

int CHeader::GetSiblingCount(IHeaderItem* item) const {
    if (IHeaderItem* const parent = item->GetParent()) return parent->GetChildCount();
    return m_model ? m_model->GetItemCount() : 0;
}

int CHeader::GetSiblingIndex(IHeaderItem* item) const {
    IHeaderItem* const parent = item->GetParent();
    int const count = GetSiblingCount(item);
    for (int i = 0; i < count; ++i)
        if ((parent ? parent->GetChild(i) : m_model->GetItem(i)) == item) return i;
    return -1;
}

} // namespace mirelfrw7
