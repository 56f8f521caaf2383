#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/item_view_model.h>
#include <mirelfrw7/items/update_storage.h>

namespace mirelfrw7 {

// The half of a continuous model that scrolls and tracks dirty items; a subclass keeps the count and the
// sizes, and stores what this half changes through the three Save/Update operations.
class MIRELFRW7_API CSimpleContinuousItemViewModel : public IContinuousItemViewModel {
public:
    void AddDirtyItems(int from, int to) override { m_updates.Add(from, to); }
    DirtyType GetItemType(int index) const override { return m_updates.GetItemType(index); }
    void OnEndDraw() override { m_updates.Clear(); }

    // The size is taken as given, also below 1.
    void SetItemSize(int index, int size) override;
    void SetViewSize(int size, bool force) override;
    void SetOffset(int offset) override;
    int GetOffset() const override { return m_offset; }

    CUpdateStorage const& GetUpdates() const { return m_updates; }

protected:
    virtual void SaveItemWidth(int index, int size) = 0;
    virtual void SaveViewWidth(int size) = 0;
    // The full size changed by `delta`.
    virtual void UpdateFullWidth(int delta) = 0;

    int m_offset = 0;
    CUpdateStorage m_updates{true};
};

} // namespace mirelfrw7
