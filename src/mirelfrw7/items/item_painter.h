#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/dirty_item_set.h>

#include <mirel7/painter.h>
#include <mirel7/types.h>

namespace mirelfrw7 {

// What a viewer calls to paint its visible items; the viewer itself holds no content.
class MIRELFRW7_API IItemPainter {
public:
    enum State { Selected = 1, Current = 2 };

    virtual ~IItemPainter() = default;
    // `hidden`: the pixels of the item that lie before the view, cut off at its start. `state` is a bit
    // word of State. A clean item may be left as it is on the screen.
    virtual void DrawItem(mirel7::IPainter* painter, int index, int hidden, int state,
                          mirel7::rectangle<double> const& rect, IDirtyItemSet::DirtyType dirty) = 0;
    // The area behind the last item.
    virtual void DrawEmptyArea(mirel7::IPainter* painter, mirel7::rectangle<double> const& rect) = 0;
};

} // namespace mirelfrw7
