#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/base_items_model.h>

#include <cstdint>

namespace mirelfrw7 {

// A run of items along one axis: how many, how many pixels each takes along the axis, how long the visible
// stretch (the view) is, and where the view stands. It holds no content.
//
// Pixels: the view's size is the along difference of its rectangle (right - left); positions in the view run
// from 0 to the view size inclusive; an item's last pixel is its start + size - 1.
//
// A viewer reads the position, the view size, the count, and the size and dirty state of the visible items
// only; none of that costs more than a map lookup.
class MIRELFRW7_API IBaseItemViewModel : public IBaseItemsModel {
public:
    // (position, delta, canScroll): what is painted from view pixel `position` on is about to move by `delta`
    // pixels, negative towards the view's start. `*canScroll` comes in true when a shift of the screen's
    // pixels can stand for a repaint; a listener that did not shift sets it false.
    tarnkit2::signal_t<int, int, bool*> sigItemsScrolled;

    virtual void SetCount(int count) = 0;
    virtual int GetCount() const = 0;
    virtual void SetDefaultItemSize(int size) = 0;
    virtual int GetDefaultItemSize() const = 0;
    virtual void SetItemSize(int index, int size) = 0;
    virtual int GetItemSize(int index) const = 0;
    // `force` marks every item dirty as well.
    virtual void SetViewSize(int size, bool force) = 0;
    // -1 until the first layout.
    virtual int GetViewSize() const = 0;

    // The pixels of the items from..to-1 (0 when `to` is not above `from`). Indices are not limited to the
    // count: sizes are answered for any index. Walks by default; models that keep sizes sparsely answer
    // from their entries, so that a position far down a long list costs no walk over every item.
    virtual std::int64_t GetItemsExtent(int from, int to) const;
    // The first item of from..to-1 that ends beyond `pixel`, counted from the start of item `from` (for a
    // pixel not below 0, the item that holds it), and in `*itemStart` where that item starts; `to` and the
    // extent of all of them when none does. Walks by default, like GetItemsExtent.
    virtual int FindItemAt(int from, int to, std::int64_t pixel, std::int64_t* itemStart) const;
    // The same search backwards: the first item of from..to-1 from which the items up to to-1 take fewer
    // than `room` pixels; `to` when not even the last one does. Sizes are taken as not negative.
    virtual int FindFirstFitting(int from, int to, std::int64_t room) const;

    // The last item stretches to the end of the view, in hit tests and painting, and no empty area shows
    // behind it.
    void SetLastItemExpanded(bool expanded) { m_lastItemExpanded = expanded; }
    bool IsLastItemExpanded() const { return m_lastItemExpanded; }

protected:
    bool m_lastItemExpanded = false;
};

// The scroll position is the index of the first visible item: the view always begins at an item's edge, and
// the last item may be cut off.
class MIRELFRW7_API IDiscreteItemViewModel : public IBaseItemViewModel {
public:
    // Takes any integer and keeps the start legal.
    virtual void SetStartItem(int index) = 0;
    virtual int GetStartItem() const = 0;
};

// The scroll position is a pixel offset into all items laid end to end: items may be cut off at both ends.
class MIRELFRW7_API IContinuousItemViewModel : public IBaseItemViewModel {
public:
    // Takes any integer and keeps the offset legal.
    virtual void SetOffset(int offset) = 0;
    virtual int GetOffset() const = 0;
    // The sum of all sizes.
    virtual int GetFullItemsSize() const = 0;
};

} // namespace mirelfrw7
