#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/item_view_model.h>
#include <mirelfrw7/items/update_storage.h>

namespace mirelfrw7 {

// A discrete model whose items all have the default size. Every field is stored before a signal goes out,
// so listeners may read the new state at once.
class MIRELFRW7_API CSimpleDiscreteItemViewModel : public IDiscreteItemViewModel {
public:
    CSimpleDiscreteItemViewModel();

    void AddDirtyItems(int from, int to) override { m_updates.Add(from, to); }
    DirtyType GetItemType(int index) const override { return m_updates.GetItemType(index); }
    void OnEndDraw() override { m_updates.Clear(); }

    // Keeps the start on the same item, no further than the last start.
    void UpdateModelState(IIndexTranslator* translator) override;

    // A negative count is taken as 0.
    void SetCount(int count) override;
    int GetCount() const override { return m_count; }
    // A negative size is taken as 0.
    void SetDefaultItemSize(int size) override;
    int GetDefaultItemSize() const override { return m_defaultItemSize; }
    void SetItemSize(int index, int size) override;
    int GetItemSize(int index) const override;
    void SetViewSize(int size, bool force) override;
    int GetViewSize() const override { return m_viewSize; }
    // Clamped at 0 and, once laid out, at the last start.
    void SetStartItem(int index) override;
    int GetStartItem() const override { return m_start; }

    // By arithmetic over the one size: a subclass with sizes of its own answers these three as well.
    std::int64_t GetItemsExtent(int from, int to) const override;
    int FindItemAt(int from, int to, std::int64_t pixel, std::int64_t* itemStart) const override;
    int FindFirstFitting(int from, int to, std::int64_t room) const override;

    CUpdateStorage const& GetUpdates() const { return m_updates; }

protected:
    int m_start = 0;
    int m_defaultItemSize;
    int m_count = 0;
    int m_viewSize = -1;
    CUpdateStorage m_updates{true};
};

} // namespace mirelfrw7
