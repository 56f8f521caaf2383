#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/item_view_model.h>

#include <mirel7/types.h>

#include <cstdint>

// Geometry of view models, for both kinds. Positions are view pixels, 0 at the view's start.
//
// The range helpers answer inclusive pixel ranges relative to the view's start, clipped to `view` (a range
// of view positions, usually 0 to the view size), and (-1, -1) where there is none. An expanded last item
// reaches as far as HitTest finds it.
namespace mirelfrw7::Utils {

using mirel7::range;

// Whether a hit test can find anything: `pos` within 0..view size, and items present.
MIRELFRW7_API bool HitTestTest(IBaseItemViewModel const& model, int pos);
// The item under `pos`, counted from the start of item `firstIndex`, or -1.
MIRELFRW7_API int HitTestImpl(IBaseItemViewModel const& model, std::int64_t pos, int firstIndex);
// The item under view position `pos`, or -1.
MIRELFRW7_API int HitTest(IDiscreteItemViewModel const& model, int pos);
MIRELFRW7_API int HitTest(IContinuousItemViewModel const& model, int pos);

// The last item wholly in the view; the start item when even that one is not, or there are no items.
MIRELFRW7_API int GetLastVisibleItem(IDiscreteItemViewModel const& model);
// The start at which `last` ends the view. When the items fill the view exactly the answer is one item
// later than it could be, and the end of a list shows one item's worth of blank: the scroll range follows
// from this.
MIRELFRW7_API int CalcStart(IDiscreteItemViewModel const& model, int last);
MIRELFRW7_API int CalcMaxStart(IDiscreteItemViewModel const& model);
MIRELFRW7_API int GetStartItem(IDiscreteItemViewModel const& model, int last);
// The pixels of the items from min(a, b) up to but not including max(a, b), stopped at the count.
MIRELFRW7_API int GetItemsSize(IDiscreteItemViewModel const& model, int a, int b);
// The pixels of the items before `index`; 0 for an index below 1.
MIRELFRW7_API int GetItemOffset(IContinuousItemViewModel const& model, int index);

// The item under `pos`.
MIRELFRW7_API range<int> GetItemRange(IDiscreteItemViewModel const& model, int pos, range<int> view);
MIRELFRW7_API range<int> GetItemRange(IContinuousItemViewModel const& model, int pos, range<int> view);
// Item `index`.
MIRELFRW7_API range<int> GetItemIndexRange(IDiscreteItemViewModel const& model, int index, range<int> view);
MIRELFRW7_API range<int> GetItemIndexRange(IContinuousItemViewModel const& model, int index, range<int> view);
// Item `index`, not clipped at the view's start: an item cut off there starts below it.
MIRELFRW7_API range<int> GetItemIndexRangeEx(IDiscreteItemViewModel const& model, int index, range<int> view);
MIRELFRW7_API range<int> GetItemIndexRangeEx(IContinuousItemViewModel const& model, int index,
                                             range<int> view);
// All items: the first member is zero or negative (the pixels before the view), the second clipped to the
// view's end.
MIRELFRW7_API range<int> GetWholeIndexRange(IDiscreteItemViewModel const& model, range<int> view);
MIRELFRW7_API range<int> GetWholeIndexRange(IContinuousItemViewModel const& model, range<int> view);

} // namespace mirelfrw7::Utils
