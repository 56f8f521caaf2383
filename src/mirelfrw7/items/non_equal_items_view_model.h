#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/default_discrete_item_view_model.h>
#include <mirelfrw7/items/pinned_item.h>

namespace mirelfrw7 {

// Per-item sizes, and a chosen item kept in view.
class MIRELFRW7_API CNonEqualItemsViewModel : public CDefaultDiscreteItemViewModel {
public:
    void SetCount(int count) override;
    void SetViewSize(int size, bool force) override;
    void SetStartItem(int index) override;

    // Brings the pinned item into view.
    void UpdateView();

    // -1: the selection's current item is kept in view instead.
    void SetPinnedItem(int index) { m_pinned.pinned = index; }
    int GetPinnedItem() const { return m_pinned.pinned; }
    void SetSelectionModel(ISelectionModel* selection) { m_pinned.selection = selection; }
    ISelectionModel* GetSelectionModel() const { return m_pinned.selection; }

private:
    SPinnedItem m_pinned;
};

} // namespace mirelfrw7
