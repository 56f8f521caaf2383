#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/item_painter.h>

namespace mirelfrw7 {

// The item painter of a column axis under names of its own, the counterpart of IRowPainter.
class MIRELFRW7_API IColumnPainter : public IItemPainter {
public:
    void DrawItem(mirel7::IPainter* painter, int index, int hidden, int state,
                  mirel7::rectangle<double> const& rect, IDirtyItemSet::DirtyType dirty) override {
        DrawColumn(painter, index, hidden, state, rect, dirty);
    }
    void DrawEmptyArea(mirel7::IPainter* painter, mirel7::rectangle<double> const& rect) override {
        DrawColumnEmptyArea(painter, rect);
    }
    virtual void DrawColumn(mirel7::IPainter* painter, int column, int hidden, int state,
                            mirel7::rectangle<double> const& rect, IDirtyItemSet::DirtyType dirty) = 0;
    virtual void DrawColumnEmptyArea(mirel7::IPainter* painter, mirel7::rectangle<double> const& rect) = 0;
};

} // namespace mirelfrw7
