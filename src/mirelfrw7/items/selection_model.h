#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/base_items_model.h>

namespace mirelfrw7 {

// Which items of one axis are selected, and which single one is current (-1: none).
class MIRELFRW7_API ISelectionModel : public IBaseItemsModel {
public:
    // (old current, new current), after the current item changed.
    tarnkit2::signal_t<int, int> sigCurrentChanged;
    // After SelectItem or SetSelectionRange changed the set; translations and clearing say so only through
    // sigModelChanged.
    tarnkit2::signal_t<> sigSelectionChanged;

    virtual void SetCurrent(int index) = 0;
    virtual int GetCurrent() const = 0;
    virtual void SelectItem(int index, bool select) = 0;
    virtual void SetSelectionRange(int from, int to) = 0;
    virtual bool IsItemSelected(int index) const = 0;
    virtual void ClearSelection() = 0;
    virtual int GetSelectedCount() const = 0;
    // Moves `index` to the next selected item above it; false when there is none.
    virtual bool GetNextSelectedItem(int& index) const = 0;
};

} // namespace mirelfrw7
