#pragma once

#include <mirelfrw7/export.h>

namespace mirel7 {
class IPainter;
}

namespace mirelfrw7 {

// The items that changed since the last paint pass, so that a pass can redraw only those. The three answers
// keep apart "not in the list" from "the list is empty": an empty list means the pass did not come from a
// model change (an exposure, say), and everything is drawn.
class MIRELFRW7_API IDirtyItemSet {
public:
    enum DirtyType { DirtyItem = 0, CleanItem = 1, NoDirtyItems = 2 };

    // Indices beyond the last item up to this one stand for "to the end".
    static constexpr int ToEnd = 0x7fffffff;

    virtual ~IDirtyItemSet();
    // Both bounds inclusive, in either order.
    virtual void AddDirtyItems(int from, int to) = 0;
    virtual DirtyType GetItemType(int index) const = 0;
    // Called once after every paint pass: the list starts empty again.
    virtual void OnEndDraw() = 0;
};

// The state of a cell from those of its row and column (or of an item and its selection): dirty when either
// is, and always dirty while the painter redraws its whole surface.
MIRELFRW7_API IDirtyItemSet::DirtyType
GetCellUpdateType(mirel7::IPainter* painter, IDirtyItemSet::DirtyType a, IDirtyItemSet::DirtyType b);

} // namespace mirelfrw7
