#include <mirelfrw7/items/continuous_steps.h>
#include <mirelfrw7/items/item_utils.h>
#include <mirelfrw7/items/saturating_int.h>

#include <algorithm>

namespace mirelfrw7::ContinuousSteps {

void ScrollTo(IContinuousItemViewModel& model, int& offset, int value) {
    if (value == offset) return;
    int const old = offset;
    std::int64_t const view = model.GetViewSize();
    std::int64_t target = value;
    if (view >= 0) {
        std::int64_t const full = model.GetFullItemsSize();
        if (full < view + target) target = full - view;
    }
    int const now = SaturatingInt(std::max<std::int64_t>(target, 0));
    offset = now;
    if (now == old) return;

    // The items that come into view: at the end going forward, at the start going back.
    std::int64_t const moved = std::int64_t(old) - now;
    int first, last;
    if (old <= now) {
        first = Utils::HitTest(model, SaturatingInt(moved + view - 1));
        last = Utils::HitTest(model, SaturatingInt(view - 1));
        if (last == -1) last = first;
    } else {
        first = Utils::HitTest(model, 0);
        last = Utils::HitTest(model, SaturatingInt(moved));
    }
    if (first != -1 && last != -1) model.AddDirtyItems(first, last);

    bool canScroll = true;
    model.sigItemsScrolled(0, SaturatingInt(moved), &canScroll);
    if (!canScroll) model.AddDirtyItems(0, model.GetCount());
    model.sigModelChanged();
}

void ResizeView(IContinuousItemViewModel& model, int previous, int size, bool force) {
    int const old = std::max(previous, 0);
    int const count = model.GetCount();
    if (size > old) {
        std::int64_t const full = model.GetFullItemsSize();
        if (size > full - model.GetOffset())
            model.SetOffset(SaturatingInt(std::max<std::int64_t>(full - size, 0)));
        int const first = Utils::HitTest(model, old);
        if (first != -1) model.AddDirtyItems(first, count);
    }
    // The empty area behind the last item.
    if (size != previous) model.AddDirtyItems(count, count);
    if (force) model.AddDirtyItems(0, count);
    if (size != previous) model.sigModelChanged();
}

void AnnounceItemResize(IContinuousItemViewModel& model, int index, int oldSize, int newSize) {
    int const count = model.GetCount();
    int const lastVisible = Utils::HitTest(model, model.GetViewSize());
    bool canScroll = false;
    // What follows the item: the offset of the next item (as GetItemOffset would give it) in the view.
    std::int64_t const next = index < 0 ? 0 : model.GetItemsExtent(0, index) + oldSize;
    model.sigItemsScrolled(SaturatingInt(next - model.GetOffset()),
                           SaturatingInt(std::int64_t(newSize) - oldSize), &canScroll);
    if (!canScroll) {
        model.AddDirtyItems(index, count);
        return;
    }
    model.AddDirtyItems(index, SaturatingInt(std::int64_t(index) + 1));
    if (lastVisible != -1) model.AddDirtyItems(lastVisible, count);
}

} // namespace mirelfrw7::ContinuousSteps
