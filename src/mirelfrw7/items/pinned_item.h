#pragma once

#include <mirelfrw7/items/selection_model.h>

namespace mirelfrw7 {

// The item a model keeps in view: the one pinned explicitly, else the selection's current item.
struct SPinnedItem {
    ISelectionModel* selection = nullptr; // not owned
    int pinned = -1;

    // -1 when there is none.
    int Get() const {
        if (pinned >= 0) return pinned;
        return selection ? selection->GetCurrent() : -1;
    }
};

} // namespace mirelfrw7
