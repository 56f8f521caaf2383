#include <mirelfrw7/items/display_scale.h>
#include <mirelfrw7/items/equal_items_view_model.h>

#include <algorithm>

namespace mirelfrw7 {

CEqualItemsViewModel::CEqualItemsViewModel()
    : m_minItemSize(DisplayScaled(50)), m_maxItemSize(DisplayScaled(100)) {}

void CEqualItemsViewModel::UpdateView() {
    int const view = GetViewSize();
    int const count = GetCount();
    // The minimum size is divided by: a size below 1 computes nothing rather than divide by zero.
    if (m_minItemSize < 1) return;
    int const fit = view / m_minItemSize;
    if (view < 1 || count < 1 || fit < 1) return;
    int const visible = std::min(fit, count);
    int const size = view / visible;
    int first = std::min(GetStartItem(), count - visible);
    int const pinned = m_pinned.Get();
    if (pinned >= 0) {
        if (pinned < first)
            first = pinned;
        else if (pinned >= first + visible)
            first = pinned - visible + 1;
    }
    // The size first: the start is clamped by the sizes, and with the old ones the pinned item could end up
    // out of view.
    CSimpleDiscreteItemViewModel::SetDefaultItemSize(std::min(m_maxItemSize, size));
    SetStartItem(first);
}

void CEqualItemsViewModel::SetCount(int count) {
    if (count == GetCount()) return;
    CSimpleDiscreteItemViewModel::SetCount(count);
    UpdateView();
}

void CEqualItemsViewModel::SetViewSize(int size, bool force) {
    if (size == GetViewSize() && !force) return;
    CSimpleDiscreteItemViewModel::SetViewSize(size, force);
    UpdateView();
    AddEdgeItems();
}

void CEqualItemsViewModel::SetStartItem(int index) {
    int const old = GetStartItem();
    CSimpleDiscreteItemViewModel::SetStartItem(index);
    if (GetStartItem() < old) AddEdgeItems();
}

void CEqualItemsViewModel::SetDefaultItemSize(int) {}

void CEqualItemsViewModel::AddEdgeItems() {
    int const size = GetDefaultItemSize();
    if (size < 1) return;
    std::int64_t const edge = std::int64_t(GetStartItem()) + std::max(GetViewSize(), 0) / size;
    AddDirtyItems(SaturatingInt(edge), SaturatingInt(edge + 1));
}

} // namespace mirelfrw7
