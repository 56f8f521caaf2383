#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/item_painter.h>

namespace mirelfrw7 {

// The item painter of a row axis under names of its own, so that one viewer can paint rows and columns.
class MIRELFRW7_API IRowPainter : public IItemPainter {
public:
    void DrawItem(mirel7::IPainter* painter, int index, int hidden, int state,
                  mirel7::rectangle<double> const& rect, IDirtyItemSet::DirtyType dirty) override {
        DrawRow(painter, index, hidden, state, rect, dirty);
    }
    void DrawEmptyArea(mirel7::IPainter* painter, mirel7::rectangle<double> const& rect) override {
        DrawRowEmptyArea(painter, rect);
    }
    virtual void DrawRow(mirel7::IPainter* painter, int row, int hidden, int state,
                         mirel7::rectangle<double> const& rect, IDirtyItemSet::DirtyType dirty) = 0;
    virtual void DrawRowEmptyArea(mirel7::IPainter* painter, mirel7::rectangle<double> const& rect) = 0;
};

} // namespace mirelfrw7
