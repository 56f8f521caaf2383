#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/item_view_model.h>

namespace mirelfrw7 {

// Exactly one item, scrolled by pixels: a pane larger than its view. Its dirty state is one flag for the
// whole item.
class MIRELFRW7_API COneItemViewModel : public IContinuousItemViewModel {
public:
    // Nothing: the item is dirty as a whole, through Changed.
    void AddDirtyItems(int, int) override {}
    DirtyType GetItemType(int) const override { return m_changed ? DirtyItem : CleanItem; }
    void OnEndDraw() override { m_changed = false; }
    void UpdateModelState(IIndexTranslator*) override {}

    void SetCount(int) override {}
    int GetCount() const override { return 1; }
    // Both sizes are the item's size, stored silently: the caller repaints by itself.
    void SetDefaultItemSize(int size) override { m_itemSize = size; }
    int GetDefaultItemSize() const override { return m_itemSize; }
    void SetItemSize(int, int size) override { m_itemSize = size; }
    int GetItemSize(int) const override { return m_itemSize; }
    void SetViewSize(int size, bool force) override;
    int GetViewSize() const override { return m_viewSize; }
    void SetOffset(int offset) override;
    int GetOffset() const override { return m_offset; }
    int GetFullItemsSize() const override { return m_itemSize; }
    // Every index answers the item's size, so these are answered by arithmetic, not by a walk.
    std::int64_t GetItemsExtent(int from, int to) const override;
    int FindItemAt(int from, int to, std::int64_t pixel, std::int64_t* itemStart) const override;
    int FindFirstFitting(int from, int to, std::int64_t room) const override;

    // Marks the item dirty or clean; a change is announced.
    void Changed(bool changed);

private:
    // `offset` kept so that the view does not reach past the item's end, and not below 0.
    int Legal(int offset) const;

    int m_itemSize = 0;
    int m_viewSize = 0;
    int m_offset = 0;
    bool m_changed = false;
};

} // namespace mirelfrw7
