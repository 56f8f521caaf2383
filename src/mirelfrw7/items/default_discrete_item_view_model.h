#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/simple_discrete_item_view_model.h>
#include <mirelfrw7/items/sparse_item_sizes.h>

namespace mirelfrw7 {

// A discrete model with per-item sizes, kept sparsely over the default size.
class MIRELFRW7_API CDefaultDiscreteItemViewModel : public CSimpleDiscreteItemViewModel {
public:
    // The sizes follow their items as well as the start.
    void UpdateModelState(IIndexTranslator* translator) override;

    // A size below 1 means the default size. During the sigItemsScrolled of a change the old size is still
    // in force.
    void SetItemSize(int index, int size) override;
    int GetItemSize(int index) const override { return m_itemSizes.Get(index, GetDefaultItemSize()); }

    std::int64_t GetItemsExtent(int from, int to) const override;
    int FindItemAt(int from, int to, std::int64_t pixel, std::int64_t* itemStart) const override;
    int FindFirstFitting(int from, int to, std::int64_t room) const override;

    CSparseItemSizes const& GetItemSizes() const { return m_itemSizes; }

protected:
    CSparseItemSizes m_itemSizes;
};

} // namespace mirelfrw7
