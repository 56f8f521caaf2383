#pragma once

#include <mirelfrw7/core/signal.h>
#include <mirelfrw7/export.h>
#include <mirelfrw7/items/dirty_item_set.h>

namespace mirelfrw7 {

class IIndexTranslator;

// A model of something per item along one axis that a viewer paints from: it collects dirty items and says
// when it changed.
class MIRELFRW7_API IBaseItemsModel : public IDirtyItemSet {
public:
    // Listeners mark themselves for repaint and bring their scroll bars up to date.
    tarnkit2::signal_t<> sigModelChanged;

    // The items were moved, added or removed: what the model keeps by index follows them.
    virtual void UpdateModelState(IIndexTranslator* translator) = 0;
};

} // namespace mirelfrw7
