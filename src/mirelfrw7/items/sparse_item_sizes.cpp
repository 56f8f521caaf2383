#include <mirelfrw7/items/index_translator.h>
#include <mirelfrw7/items/sparse_item_sizes.h>

#include <algorithm>

namespace mirelfrw7 {

void CSparseItemSizes::Set(int index, int size, int defaultSize) {
    if (size == defaultSize)
        m_sizes.erase(index);
    else
        m_sizes[index] = size;
}

std::int64_t CSparseItemSizes::Extent(int from, int to, int defaultSize) const {
    if (to <= from) return 0;
    std::int64_t sum = (std::int64_t(to) - from) * defaultSize;
    for (auto it = m_sizes.lower_bound(from); it != m_sizes.end() && it->first < to; ++it)
        sum += std::int64_t(it->second) - defaultSize;
    return sum;
}

int CSparseItemSizes::FindAt(int from, int to, std::int64_t pixel, int defaultSize,
                             std::int64_t* itemStart) const {
    std::int64_t start = 0;
    int i = from;
    auto entry = m_sizes.lower_bound(from);
    while (i < to) {
        // Items i..runEnd-1 have the default size: the one that ends beyond the pixel, if any, is found by
        // division. Items of size 0 end where they start and never hold a pixel.
        int const runEnd = entry == m_sizes.end() || entry->first >= to ? to : entry->first;
        if (runEnd > i) {
            if (start > pixel) break;
            if (defaultSize > 0) {
                std::int64_t const skip = (pixel - start) / defaultSize;
                if (skip < std::int64_t(runEnd) - i) {
                    i += int(skip);
                    start += skip * defaultSize;
                    break;
                }
            }
            start += (std::int64_t(runEnd) - i) * defaultSize;
            i = runEnd;
            continue;
        }
        if (start + entry->second > pixel) break;
        start += entry->second;
        ++i;
        ++entry;
    }
    *itemStart = start;
    return i;
}

int CSparseItemSizes::FindFirstFitting(int from, int to, std::int64_t room, int defaultSize) const {
    std::int64_t taken = 0;
    int first = to;
    // The first entry at or after `first`; the one before it, if not below `from`, ends the run of default
    // items that lies directly before `first`.
    auto after = m_sizes.lower_bound(to);
    while (first > from) {
        auto const before = after == m_sizes.begin() ? m_sizes.end() : std::prev(after);
        bool const entryBefore = before != m_sizes.end() && before->first >= from;
        int const runStart = entryBefore ? before->first + 1 : from;
        if (runStart < first) {
            std::int64_t const items = std::int64_t(first) - runStart;
            std::int64_t fit = taken < room ? items : 0;
            if (defaultSize > 0) fit = std::clamp<std::int64_t>((room - 1 - taken) / defaultSize, 0, items);
            // A run may span more than an int when its items take no room.
            first = int(first - fit);
            taken += fit * defaultSize;
            if (fit < items) break;
            continue;
        }
        if (taken + before->second >= room) break;
        taken += before->second;
        --first;
        after = before;
    }
    return first;
}

void CSparseItemSizes::Remap(IIndexTranslator const& translator) {
    std::map<int, int> const old = std::move(m_sizes);
    m_sizes.clear();
    for (auto const& [index, size] : old) {
        bool removed = false;
        int const target = translator.TranslateIndex(index, &removed);
        if (!removed) m_sizes[target] = size;
    }
}

} // namespace mirelfrw7
