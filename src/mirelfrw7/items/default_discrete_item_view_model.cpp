#include <mirelfrw7/items/default_discrete_item_view_model.h>
#include <mirelfrw7/items/index_translator.h>
#include <mirelfrw7/items/item_utils.h>

namespace mirelfrw7 {

void CDefaultDiscreteItemViewModel::UpdateModelState(IIndexTranslator* translator) {
    if (!translator || !translator->TranslationIsPresented()) return;
    CSimpleDiscreteItemViewModel::UpdateModelState(translator);
    if (m_itemSizes.IsEmpty()) return;
    m_itemSizes.Remap(*translator);
    sigModelChanged();
}

void CDefaultDiscreteItemViewModel::SetItemSize(int index, int size) {
    int const old = GetItemSize(index);
    if (size < 1) size = GetDefaultItemSize();
    int const lastVisible = Utils::GetLastVisibleItem(*this);
    int const maxStart = Utils::CalcMaxStart(*this);
    if (maxStart < GetStartItem()) SetStartItem(maxStart);
    if (size == old) return;

    int const start = GetStartItem();
    int const count = GetCount();
    // Only a change well inside the view can be a shift of what follows it; a change at the view's end
    // repaints from the item on.
    bool canScroll = false;
    if (start <= index && index < lastVisible - 2) {
        canScroll = true;
        sigItemsScrolled(Utils::GetItemsSize(*this, start, index + 1), size - old, &canScroll);
    }
    if (canScroll) {
        AddDirtyItems(index, index + 2);
        AddDirtyItems(lastVisible, count);
    } else if (start < index) {
        AddDirtyItems(index, count);
    }
    m_itemSizes.Set(index, size, GetDefaultItemSize());
    sigModelChanged();
}

std::int64_t CDefaultDiscreteItemViewModel::GetItemsExtent(int from, int to) const {
    return m_itemSizes.Extent(from, to, GetDefaultItemSize());
}

int CDefaultDiscreteItemViewModel::FindItemAt(int from, int to, std::int64_t pixel,
                                              std::int64_t* itemStart) const {
    return m_itemSizes.FindAt(from, to, pixel, GetDefaultItemSize(), itemStart);
}

int CDefaultDiscreteItemViewModel::FindFirstFitting(int from, int to, std::int64_t room) const {
    return m_itemSizes.FindFirstFitting(from, to, room, GetDefaultItemSize());
}

} // namespace mirelfrw7
