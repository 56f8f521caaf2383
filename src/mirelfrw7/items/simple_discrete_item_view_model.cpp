#include <mirelfrw7/items/display_scale.h>
#include <mirelfrw7/items/index_translator.h>
#include <mirelfrw7/items/item_utils.h>
#include <mirelfrw7/items/simple_discrete_item_view_model.h>

#include <algorithm>

namespace mirelfrw7 {

CSimpleDiscreteItemViewModel::CSimpleDiscreteItemViewModel() : m_defaultItemSize(DisplayScaled(20)) {}

void CSimpleDiscreteItemViewModel::UpdateModelState(IIndexTranslator* translator) {
    if (!translator || !translator->TranslationIsPresented()) return;
    int const old = GetStartItem();
    // A removal that takes the first items away sends them to the index before them, which can be -1.
    int const start =
        std::max(std::min(translator->TranslateIndex(old, nullptr), Utils::CalcMaxStart(*this)), 0);
    m_start = start;
    if (start != old) sigModelChanged();
}

void CSimpleDiscreteItemViewModel::SetCount(int count) {
    m_count = std::max(count, 0);
    if (GetStartItem() >= m_count) SetStartItem(0);
    AddDirtyItems(0, ToEnd);
    sigModelChanged();
}

void CSimpleDiscreteItemViewModel::SetDefaultItemSize(int size) {
    m_defaultItemSize = std::max(size, 0);
    AddDirtyItems(0, ToEnd);
    sigModelChanged();
}

void CSimpleDiscreteItemViewModel::SetItemSize(int, int) {}

int CSimpleDiscreteItemViewModel::GetItemSize(int) const {
    return GetDefaultItemSize();
}

std::int64_t CSimpleDiscreteItemViewModel::GetItemsExtent(int from, int to) const {
    return to <= from ? 0 : (std::int64_t(to) - from) * GetDefaultItemSize();
}

int CSimpleDiscreteItemViewModel::FindItemAt(int from, int to, std::int64_t pixel,
                                             std::int64_t* itemStart) const {
    std::int64_t const size = GetDefaultItemSize();
    std::int64_t const items = std::max<std::int64_t>(std::int64_t(to) - from, 0);
    // Items of size 0 hold no pixel: all of them lie at or before any pixel not below 0.
    std::int64_t const skip = pixel < 0 ? 0 : size == 0 ? items : std::min(pixel / size, items);
    *itemStart = skip * size;
    return int(from + skip);
}

int CSimpleDiscreteItemViewModel::FindFirstFitting(int from, int to, std::int64_t room) const {
    std::int64_t const size = GetDefaultItemSize();
    std::int64_t const items = std::max<std::int64_t>(std::int64_t(to) - from, 0);
    std::int64_t fit = room > 0 ? items : 0;
    if (size > 0) fit = std::clamp<std::int64_t>((room - 1) / size, 0, items);
    return int(to - fit);
}

void CSimpleDiscreteItemViewModel::SetStartItem(int index) {
    int const old = GetStartItem();
    if (index == old) return;
    int const lastBefore = Utils::GetLastVisibleItem(*this);
    int start = std::max(index, 0);
    if (GetViewSize() > 0) start = std::min(start, Utils::CalcMaxStart(*this));
    m_start = start;

    int const count = GetCount();
    // What comes into view: behind the old last item going down, before the old start going up. Also when
    // the clamp left the start where it was.
    if (start >= old)
        AddDirtyItems(lastBefore + 1, count - 1);
    else
        AddDirtyItems(start, old - 1);
    if (start == old) return;

    int const lastAfter = Utils::GetLastVisibleItem(*this);
    bool canScroll = start < lastBefore && old < lastAfter;
    int delta = 1;
    if (canScroll) {
        delta = Utils::GetItemsSize(*this, old, start);
        if (start > old) delta = -delta;
    }
    sigItemsScrolled(0, delta, &canScroll);
    if (!canScroll) AddDirtyItems(0, count);
    sigModelChanged();
}

void CSimpleDiscreteItemViewModel::SetViewSize(int size, bool force) {
    int const previous = m_viewSize;
    int const old = std::max(previous, 0);
    m_viewSize = size;
    int const count = GetCount();
    if (size > old) {
        int const maxStart = Utils::CalcMaxStart(*this);
        if (maxStart >= GetStartItem()) {
            int const first = Utils::HitTest(*this, old);
            if (first != -1) AddDirtyItems(first, count);
        } else {
            SetStartItem(maxStart);
        }
    }
    // The empty area behind the last item.
    if (size != previous) AddDirtyItems(count, count);
    if (force) AddDirtyItems(0, count);
    if (size != previous) sigModelChanged();
}

} // namespace mirelfrw7
