#include <mirelfrw7/items/continuous_steps.h>
#include <mirelfrw7/items/default_column_view_model.h>
#include <mirelfrw7/items/display_scale.h>
#include <mirelfrw7/items/index_translator.h>
#include <mirelfrw7/items/saturating_int.h>

#include <algorithm>

namespace mirelfrw7 {

CDefaultColumnViewModel::CDefaultColumnViewModel() : m_defaultItemSize(DisplayScaled(70)) {}

void CDefaultColumnViewModel::UpdateModelState(IIndexTranslator* translator) {
    if (!translator || !translator->TranslationIsPresented()) return;
    m_itemSizes.Remap(*translator);
    sigModelChanged();
}

void CDefaultColumnViewModel::SetCount(int count) {
    m_count = std::max(count, 0);
    AddDirtyItems(0, ToEnd);
    m_fullSize = 0;
    if (GetOffset() >= GetFullItemsSize()) SetOffset(0);
    sigModelChanged();
}

void CDefaultColumnViewModel::SetDefaultItemSize(int size) {
    size = std::max(size, 0);
    if (size == m_defaultItemSize) return;
    m_defaultItemSize = size;
    AddDirtyItems(0, ToEnd);
    m_fullSize = 0;
    sigModelChanged();
}

int CDefaultColumnViewModel::GetFullItemsSize() const {
    if (m_fullSize > 0) return m_fullSize;
    auto const& entries = m_itemSizes.GetEntries();
    std::int64_t full = 0;
    if (std::size_t(GetCount()) > entries.size()) {
        std::int64_t const size = GetDefaultItemSize();
        full = size * GetCount();
        for (auto it = entries.begin(); it != entries.end() && it->first < GetCount(); ++it)
            full += it->second - size;
    } else {
        for (auto it = entries.begin(); it != entries.end() && it->first < GetCount(); ++it)
            full += it->second;
    }
    m_fullSize = SaturatingInt(full);
    return m_fullSize;
}

void CDefaultColumnViewModel::SetItemSize(int index, int size) {
    int const old = GetItemSize(index);
    if (size < 1) size = GetDefaultItemSize();
    if (size == old) return;
    ContinuousSteps::AnnounceItemResize(*this, index, old, size);
    m_itemSizes.Set(index, size, GetDefaultItemSize());
    // Only a known full size is adjusted: one not yet computed will be, with the new size in it.
    if (m_fullSize > 0) m_fullSize = SaturatingInt(std::int64_t(m_fullSize) + size - old);
    sigModelChanged();
}

void CDefaultColumnViewModel::SetViewSize(int size, bool force) {
    int const previous = m_viewSize;
    m_viewSize = size;
    ContinuousSteps::ResizeView(*this, previous, size, force);
}

void CDefaultColumnViewModel::SetOffset(int offset) {
    ContinuousSteps::ScrollTo(*this, m_offset, offset);
}

std::int64_t CDefaultColumnViewModel::GetItemsExtent(int from, int to) const {
    return m_itemSizes.Extent(from, to, GetDefaultItemSize());
}

int CDefaultColumnViewModel::FindItemAt(int from, int to, std::int64_t pixel, std::int64_t* itemStart) const {
    return m_itemSizes.FindAt(from, to, pixel, GetDefaultItemSize(), itemStart);
}

int CDefaultColumnViewModel::FindFirstFitting(int from, int to, std::int64_t room) const {
    return m_itemSizes.FindFirstFitting(from, to, room, GetDefaultItemSize());
}

} // namespace mirelfrw7
