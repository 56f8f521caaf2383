#include <mirelfrw7/items/item_utils.h>
#include <mirelfrw7/items/non_equal_items_view_model.h>
#include <mirelfrw7/items/saturating_int.h>

#include <algorithm>

namespace mirelfrw7 {

void CNonEqualItemsViewModel::UpdateView() {
    int const pinned = m_pinned.Get();
    int const start = GetStartItem();
    // Without a pinned item the start stays where it is.
    if (pinned < 0) return;
    int first = start;
    if (pinned < start)
        first = pinned;
    else if (pinned > Utils::GetLastVisibleItem(*this))
        first = Utils::GetStartItem(*this, pinned);
    SetStartItem(std::max(first, 0));
}

void CNonEqualItemsViewModel::SetCount(int count) {
    if (count == GetCount()) return;
    CDefaultDiscreteItemViewModel::SetCount(count);
    UpdateView();
}

void CNonEqualItemsViewModel::SetViewSize(int size, bool force) {
    if (size == GetViewSize() && !force) return;
    CDefaultDiscreteItemViewModel::SetViewSize(size, force);
    UpdateView();
    // The items around the view's end.
    int const last = Utils::GetLastVisibleItem(*this);
    AddDirtyItems(SaturatingInt(std::int64_t(last) - 1), SaturatingInt(std::int64_t(last) + 1));
}

void CNonEqualItemsViewModel::SetStartItem(int index) {
    int const old = GetStartItem();
    CDefaultDiscreteItemViewModel::SetStartItem(index);
    if (GetStartItem() >= old) return;
    // The item partly covered at the view's end, and the one after it.
    int const last = Utils::GetLastVisibleItem(*this);
    AddDirtyItems(last, SaturatingInt(std::int64_t(last) + 1));
}

} // namespace mirelfrw7
