#include <mirelfrw7/items/item_view_model.h>

namespace mirelfrw7 {

std::int64_t IBaseItemViewModel::GetItemsExtent(int from, int to) const {
    std::int64_t sum = 0;
    for (int i = from; i < to; ++i)
        sum += GetItemSize(i);
    return sum;
}

int IBaseItemViewModel::FindItemAt(int from, int to, std::int64_t pixel, std::int64_t* itemStart) const {
    std::int64_t start = 0;
    int i = from;
    for (; i < to; ++i) {
        std::int64_t const end = start + GetItemSize(i);
        if (end > pixel) break;
        start = end;
    }
    *itemStart = start;
    return i;
}

int IBaseItemViewModel::FindFirstFitting(int from, int to, std::int64_t room) const {
    std::int64_t taken = 0;
    int first = to;
    for (; first > from; --first) {
        std::int64_t const more = taken + GetItemSize(first - 1);
        if (more >= room) break;
        taken = more;
    }
    return first;
}

} // namespace mirelfrw7
