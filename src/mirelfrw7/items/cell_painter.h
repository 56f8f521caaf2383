#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/dirty_item_set.h>

#include <mirel7/painter.h>
#include <mirel7/types.h>

namespace mirelfrw7 {

// What a grid calls for each visible cell: the row and column with the pixels of each cut off at the view's
// start, and the cell's state and dirty type combined from both axes.
class MIRELFRW7_API ICellPainter {
public:
    virtual ~ICellPainter() = default;
    virtual void DrawCell(mirel7::IPainter* painter, int row, int rowHidden, int column, int columnHidden,
                          int state, mirel7::rectangle<double> const& rect,
                          IDirtyItemSet::DirtyType dirty) = 0;
};

} // namespace mirelfrw7
