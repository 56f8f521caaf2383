#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/item_view_model.h>
#include <mirelfrw7/items/sparse_item_sizes.h>
#include <mirelfrw7/items/update_storage.h>

namespace mirelfrw7 {

// A continuous model with per-item sizes kept sparsely, and the full size cached off the scroll path.
class MIRELFRW7_API CDefaultColumnViewModel : public IContinuousItemViewModel {
public:
    CDefaultColumnViewModel();

    void AddDirtyItems(int from, int to) override { m_updates.Add(from, to); }
    DirtyType GetItemType(int index) const override { return m_updates.GetItemType(index); }
    void OnEndDraw() override { m_updates.Clear(); }

    // The sizes follow their items; the offset stays.
    void UpdateModelState(IIndexTranslator* translator) override;

    // A negative count is taken as 0.
    void SetCount(int count) override;
    int GetCount() const override { return m_count; }
    // A negative size is taken as 0.
    void SetDefaultItemSize(int size) override;
    int GetDefaultItemSize() const override { return m_defaultItemSize; }
    // A size below 1 means the default size.
    void SetItemSize(int index, int size) override;
    int GetItemSize(int index) const override { return m_itemSizes.Get(index, m_defaultItemSize); }
    void SetViewSize(int size, bool force) override;
    int GetViewSize() const override { return m_viewSize; }
    void SetOffset(int offset) override;
    int GetOffset() const override { return m_offset; }
    // When there are no more items than entries, only the entries are summed: items without one count 0.
    int GetFullItemsSize() const override;

    std::int64_t GetItemsExtent(int from, int to) const override;
    int FindItemAt(int from, int to, std::int64_t pixel, std::int64_t* itemStart) const override;
    int FindFirstFitting(int from, int to, std::int64_t room) const override;

    CSparseItemSizes const& GetItemSizes() const { return m_itemSizes; }
    CUpdateStorage const& GetUpdates() const { return m_updates; }

protected:
    int m_offset = 0;
    int m_defaultItemSize;
    int m_count = 0;
    int m_viewSize = -1;
    // GetFullItemsSize's answer; 0 while not known.
    mutable int m_fullSize = 0;
    CSparseItemSizes m_itemSizes;
    CUpdateStorage m_updates{true};
};

} // namespace mirelfrw7
