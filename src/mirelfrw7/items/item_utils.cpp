#include <mirelfrw7/items/item_utils.h>
#include <mirelfrw7/items/saturating_int.h>

#include <algorithm>
#include <climits>
#include <optional>

namespace mirelfrw7::Utils {

namespace {

// The coordinates hit tests count in: pixel 0 at the start of item `first`, and view pixel p at p + before.
// A discrete model counts from its start item, a continuous one from item 0 with its offset before the view.
struct SWalk {
    int first;
    std::int64_t before;
};

SWalk WalkOf(IDiscreteItemViewModel const& model) {
    return {model.GetStartItem(), 0};
}
SWalk WalkOf(IContinuousItemViewModel const& model) {
    return {0, model.GetOffset()};
}

struct SPlace {
    std::int64_t first, last;
};

range<int> None() {
    return {-1, -1};
}

// Where item `index` lies, both ends inclusive, in view pixels; an expanded last item reaches as far as
// HitTestImpl lets it.
std::optional<SPlace> PlaceOf(IBaseItemViewModel const& model, SWalk walk, int index) {
    int const count = model.GetCount();
    if (index < 0 || index >= count) return std::nullopt;
    std::int64_t const start = index >= walk.first ? model.GetItemsExtent(walk.first, index)
                                                   : -model.GetItemsExtent(index, walk.first);
    std::int64_t last = start + model.GetItemSize(index) - 1;
    if (model.IsLastItemExpanded() && index == count - 1)
        last = std::max<std::int64_t>(last, std::int64_t(model.GetViewSize()) - 1);
    return SPlace{start - walk.before, last - walk.before};
}

range<int> Clipped(std::optional<SPlace> place, range<int> view, bool clipStart) {
    if (!place) return None();
    std::int64_t const lower = clipStart ? std::max<std::int64_t>(place->first, view.lower) : place->first;
    std::int64_t const upper = std::min<std::int64_t>(place->last, view.upper);
    if (upper < lower || upper < view.lower || lower > view.upper) return None();
    return {SaturatingInt(lower), SaturatingInt(upper)};
}

range<int> WholeRange(IBaseItemViewModel const& model, SWalk walk, range<int> view) {
    int const count = model.GetCount();
    std::optional<SPlace> const first = PlaceOf(model, walk, 0);
    if (!first || walk.first < 0 || walk.first >= count) return None();
    // Only the items up to the view's end are measured: a long list costs no walk beyond the view.
    std::int64_t end = 0;
    std::int64_t upper = view.upper;
    if (model.FindItemAt(walk.first, count, view.upper + walk.before, &end) == count) {
        std::int64_t last = end - 1;
        if (model.IsLastItemExpanded())
            last = std::max<std::int64_t>(last, std::int64_t(model.GetViewSize()) - 1);
        upper = std::min<std::int64_t>(last - walk.before, view.upper);
    }
    if (upper < first->first || upper < view.lower) return None();
    return {SaturatingInt(first->first), SaturatingInt(upper)};
}

} // namespace

bool HitTestTest(IBaseItemViewModel const& model, int pos) {
    return pos >= 0 && pos <= model.GetViewSize() && model.GetCount() != 0;
}

int HitTestImpl(IBaseItemViewModel const& model, std::int64_t pos, int firstIndex) {
    int const count = model.GetCount();
    if (firstIndex < 0 || firstIndex >= count) return -1;
    std::int64_t start = 0;
    int const found = model.FindItemAt(firstIndex, count, pos, &start);
    int const last = count - 1;
    if (found < last) return found;
    // The last item, or past it: the last item alone may stretch to the view's end.
    std::int64_t size = model.GetItemSize(last);
    if (found == count) start -= size;
    if (model.IsLastItemExpanded()) size = std::max<std::int64_t>(size, model.GetViewSize() - start);
    return pos - start < size ? last : -1;
}

int HitTest(IDiscreteItemViewModel const& model, int pos) {
    return HitTestTest(model, pos) ? HitTestImpl(model, pos, model.GetStartItem()) : -1;
}

int HitTest(IContinuousItemViewModel const& model, int pos) {
    return HitTestTest(model, pos) ? HitTestImpl(model, std::int64_t(pos) + model.GetOffset(), 0) : -1;
}

int GetLastVisibleItem(IDiscreteItemViewModel const& model) {
    int const start = model.GetStartItem();
    int const count = model.GetCount();
    if (start < 0 || start >= count) return start;
    std::int64_t end = 0;
    int const beyond = model.FindItemAt(start, count, model.GetViewSize(), &end);
    return beyond > start ? beyond - 1 : start;
}

int CalcStart(IDiscreteItemViewModel const& model, int last) {
    if (last < 0) return 0;
    // No item lies there, and one past it would not be an int.
    last = std::min(last, INT_MAX - 1);
    int const view = model.GetViewSize();
    if (view <= model.GetItemSize(last) || last == 0) return last;
    // Stepping back while the items still leave room is finding the first start from which they take less
    // than the view: the strict comparison that leaves a blank on an exact fit.
    return model.FindFirstFitting(0, last + 1, view);
}

int CalcMaxStart(IDiscreteItemViewModel const& model) {
    return CalcStart(model, model.GetCount() - 1);
}

int GetStartItem(IDiscreteItemViewModel const& model, int last) {
    return CalcStart(model, last);
}

int GetItemsSize(IDiscreteItemViewModel const& model, int a, int b) {
    return SaturatingInt(model.GetItemsExtent(std::min(a, b), std::min(std::max(a, b), model.GetCount())));
}

int GetItemOffset(IContinuousItemViewModel const& model, int index) {
    return index < 1 ? 0 : SaturatingInt(model.GetItemsExtent(0, index));
}

range<int> GetItemRange(IDiscreteItemViewModel const& model, int pos, range<int> view) {
    return GetItemIndexRange(model, HitTest(model, pos), view);
}
range<int> GetItemRange(IContinuousItemViewModel const& model, int pos, range<int> view) {
    return GetItemIndexRange(model, HitTest(model, pos), view);
}

range<int> GetItemIndexRange(IDiscreteItemViewModel const& model, int index, range<int> view) {
    return Clipped(PlaceOf(model, WalkOf(model), index), view, true);
}
range<int> GetItemIndexRange(IContinuousItemViewModel const& model, int index, range<int> view) {
    return Clipped(PlaceOf(model, WalkOf(model), index), view, true);
}

range<int> GetItemIndexRangeEx(IDiscreteItemViewModel const& model, int index, range<int> view) {
    return Clipped(PlaceOf(model, WalkOf(model), index), view, false);
}
range<int> GetItemIndexRangeEx(IContinuousItemViewModel const& model, int index, range<int> view) {
    return Clipped(PlaceOf(model, WalkOf(model), index), view, false);
}

range<int> GetWholeIndexRange(IDiscreteItemViewModel const& model, range<int> view) {
    return WholeRange(model, WalkOf(model), view);
}
range<int> GetWholeIndexRange(IContinuousItemViewModel const& model, range<int> view) {
    return WholeRange(model, WalkOf(model), view);
}

} // namespace mirelfrw7::Utils
