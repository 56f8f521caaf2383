#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/dirty_item_set.h>

#include <climits>
#include <cstdint>
#include <utility>
#include <vector>

namespace mirelfrw7 {

// The update list of a model: inclusive index ranges in the order they were added, each stored low end
// first, duplicates kept.
//
// A paint pass asks about every visible item, and a scroll adds a range each time, so the list can be long
// when it is asked. Queries are therefore answered from a sorted, merged copy, built on the first query
// after a change; a range reaching to the end answers for everything from its start without any copy.
class MIRELFRW7_API CUpdateStorage {
public:
    explicit CUpdateStorage(bool everythingDirty = false);

    void Add(int from, int to);
    IDirtyItemSet::DirtyType GetItemType(int index) const;
    // Empties the list and keeps its storage.
    void Clear();

    std::vector<std::pair<int, int>> const& GetRanges() const { return m_ranges; }

private:
    static constexpr std::int64_t NoneToEnd = std::int64_t(INT_MAX) + 1;

    void Merge() const;

    std::vector<std::pair<int, int>> m_ranges;
    // The lowest start of a range that reaches to the end: every index from here on is dirty. Beyond any
    // int while there is none.
    std::int64_t m_dirtyFrom = NoneToEnd;
    mutable std::vector<std::pair<int, int>> m_merged;
    mutable bool m_mergedValid = true;
};

} // namespace mirelfrw7
