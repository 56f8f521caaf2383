#include <mirelfrw7/items/dirty_item_set.h>

#include <mirel7/painter.h>

#include <algorithm>

namespace mirelfrw7 {

IDirtyItemSet::~IDirtyItemSet() = default;

IDirtyItemSet::DirtyType GetCellUpdateType(mirel7::IPainter* painter, IDirtyItemSet::DirtyType a,
                                           IDirtyItemSet::DirtyType b) {
    if (painter && painter->NeedsFullRepaint()) return IDirtyItemSet::DirtyItem;
    return std::min(a, b);
}

} // namespace mirelfrw7
