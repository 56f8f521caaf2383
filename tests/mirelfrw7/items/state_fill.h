#pragma once

#include <mirelfrw7/items/dirty_item_set.h>

#include <mirel7/painter.h>

namespace mirel_test {

// A colour per item and state, drawn only where the models say the item changed: a viewer whose dirty
// tracking, scrolling or end-of-paint bookkeeping is wrong leaves stale pixels behind.
inline void FillItemState(mirel7::IPainter* painter, int a, int b, int state,
                          mirel7::rectangle<double> const& r, mirelfrw7::IDirtyItemSet::DirtyType dirty) {
    if (dirty == mirelfrw7::IDirtyItemSet::CleanItem) return;
    mirel7::brush fill;
    fill.style = mirel7::brush::Solid;
    fill.color = mirel7::_color((a * 37 + b * 11) % 200, state * 80, (a + b) % 2 ? 220 : 120, 255);
    painter->SetBrush(fill);
    painter->FillRect(r);
}

} // namespace mirel_test
