#pragma once

#include <mirelfrw7/export.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

namespace mirelfrw7 {

class IIndexTranslator;

// Per-item sizes over a default size: only items of another size have an entry, so that a million uniform
// items cost nothing. The entries lie sorted in small contiguous blocks with running sums before each block,
// so that a lookup is two short searches over memory that stays in cache, and sums and searches cost the
// same however many entries they pass.
class MIRELFRW7_API CSparseItemSizes {
public:
    int Get(int index, int defaultSize) const;
    // An item at the default size loses its entry.
    void Set(int index, int size, int defaultSize);

    // IBaseItemViewModel::GetItemsExtent and FindItemAt over these sizes.
    std::int64_t Extent(int from, int to, int defaultSize) const;
    int FindAt(int from, int to, std::int64_t pixel, int defaultSize, std::int64_t* itemStart) const;
    int FindFirstFitting(int from, int to, std::int64_t room, int defaultSize) const;

    // Moves every entry where the translator sends its item, in ascending order, so that of two entries
    // landing on one index the later wins; entries of removed items go.
    void Remap(IIndexTranslator const& translator);

    bool IsEmpty() const { return m_blocks.empty(); }
    // Every entry by index, made on demand.
    std::map<int, int> GetEntries() const;

private:
    struct SEntry {
        int index, size;
        // The sizes of the entries before this one in its block.
        std::int64_t before;
    };
    struct SBlock {
        std::vector<SEntry> entries;
        std::int64_t sum = 0;
        // Brings `before` and the sum up to date from entry `from` on.
        void Resum(std::size_t from);
        // The first entry at or after `index`.
        std::vector<SEntry>::const_iterator Find(std::int64_t index) const;
    };

    // The last block whose first entry is at or below `index`, or -1.
    std::ptrdiff_t BlockAtOrBelow(std::int64_t index) const;
    // Where item `index` starts, counted from item 0 as if every item before it were in the list.
    std::int64_t Position(std::int64_t index, int defaultSize) const;
    // The first item of lo..hi that starts beyond `limit`, or hi + 1.
    std::int64_t FirstBeyond(std::int64_t lo, std::int64_t hi, std::int64_t limit, int defaultSize) const;
    void RefreshSums() const;
    void Rebuild(std::vector<SEntry> const& sorted);

    std::vector<int> m_firsts;
    std::vector<SBlock> m_blocks;
    // The entries and their sizes in the blocks before each block, valid below m_sumsValid and brought up to
    // date by the queries that need them, so that a run of changes pays once.
    mutable std::vector<std::int64_t> m_countBefore, m_sumBefore;
    mutable std::size_t m_sumsValid = 0;
    // The blocks that the last searches found, the latest first.
    mutable std::size_t m_fingers[2] = {};
};

} // namespace mirelfrw7
