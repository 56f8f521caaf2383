#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/pinned_item.h>
#include <mirelfrw7/items/simple_discrete_item_view_model.h>

namespace mirelfrw7 {

// Items of one size computed from the view: as many as fit at the minimum size, sharing the view, at most
// the maximum size each; and a chosen item kept in view. The tab strip's equal widths.
class MIRELFRW7_API CEqualItemsViewModel : public CSimpleDiscreteItemViewModel {
public:
    CEqualItemsViewModel();

    void SetCount(int count) override;
    void SetViewSize(int size, bool force) override;
    void SetStartItem(int index) override;
    // The size is computed: setting it does nothing.
    void SetDefaultItemSize(int size) override;

    // Computes the item size and brings the pinned item into view.
    void UpdateView();

    // Below 1, the model computes nothing.
    void SetMinItemSize(int size) { m_minItemSize = size; }
    int GetMinItemSize() const { return m_minItemSize; }
    void SetMaxItemSize(int size) { m_maxItemSize = size; }
    int GetMaxItemSize() const { return m_maxItemSize; }
    // -1: the selection's current item is kept in view instead.
    void SetPinnedItem(int index) { m_pinned.pinned = index; }
    int GetPinnedItem() const { return m_pinned.pinned; }
    void SetSelectionModel(ISelectionModel* selection) { m_pinned.selection = selection; }
    ISelectionModel* GetSelectionModel() const { return m_pinned.selection; }

private:
    // The item partly covered at the view's end and the one after it.
    void AddEdgeItems();

    int m_minItemSize;
    int m_maxItemSize;
    SPinnedItem m_pinned;
};

} // namespace mirelfrw7
