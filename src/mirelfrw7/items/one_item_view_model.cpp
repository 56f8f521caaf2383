#include <mirelfrw7/items/one_item_view_model.h>
#include <mirelfrw7/items/saturating_int.h>
#include <mirelfrw7/items/sparse_item_sizes.h>

#include <algorithm>

namespace mirelfrw7 {

namespace {
// Sizes without an entry: every item at the default size.
CSparseItemSizes const Uniform;
} // namespace

std::int64_t COneItemViewModel::GetItemsExtent(int from, int to) const {
    return Uniform.Extent(from, to, m_itemSize);
}

int COneItemViewModel::FindItemAt(int from, int to, std::int64_t pixel, std::int64_t* itemStart) const {
    return Uniform.FindAt(from, to, pixel, m_itemSize, itemStart);
}

int COneItemViewModel::FindFirstFitting(int from, int to, std::int64_t room) const {
    return Uniform.FindFirstFitting(from, to, room, m_itemSize);
}

int COneItemViewModel::Legal(int offset) const {
    std::int64_t value = offset;
    if (value + m_viewSize > m_itemSize) value = std::int64_t(m_itemSize) - m_viewSize;
    return SaturatingInt(std::max<std::int64_t>(value, 0));
}

void COneItemViewModel::Changed(bool changed) {
    if (changed == m_changed) return;
    m_changed = changed;
    sigModelChanged();
}

void COneItemViewModel::SetViewSize(int size, bool) {
    if (size == m_viewSize) return;
    int const old = m_viewSize;
    m_viewSize = size;
    Changed(size > old);
    SetOffset(Legal(m_offset));
}

void COneItemViewModel::SetOffset(int offset) {
    int const now = Legal(offset);
    if (now == m_offset) return;
    // The whole view moves, from its first pixel on.
    bool canScroll = true;
    sigItemsScrolled(0, SaturatingInt(std::int64_t(m_offset) - now), &canScroll);
    m_offset = now;
    Changed(true);
}

} // namespace mirelfrw7
