#pragma once

#include <mirelfrw7/export.h>

#include <cstdint>
#include <map>

namespace mirelfrw7 {

class IIndexTranslator;

// Per-item sizes over a default size: only items of another size have an entry, so that a million uniform
// items cost nothing. Sums and searches step over the runs of default items between entries by arithmetic,
// so their cost grows with the entries they pass, never with the items.
class MIRELFRW7_API CSparseItemSizes {
public:
    int Get(int index, int defaultSize) const {
        auto const it = m_sizes.find(index);
        return it == m_sizes.end() ? defaultSize : it->second;
    }
    // An item at the default size loses its entry.
    void Set(int index, int size, int defaultSize);

    // IBaseItemViewModel::GetItemsExtent and FindItemAt over these sizes.
    std::int64_t Extent(int from, int to, int defaultSize) const;
    int FindAt(int from, int to, std::int64_t pixel, int defaultSize, std::int64_t* itemStart) const;
    int FindFirstFitting(int from, int to, std::int64_t room, int defaultSize) const;

    // Moves every entry where the translator sends its item, in ascending order, so that of two entries
    // landing on one index the later wins; entries of removed items go.
    void Remap(IIndexTranslator const& translator);

    std::map<int, int> const& GetEntries() const { return m_sizes; }

private:
    std::map<int, int> m_sizes;
};

} // namespace mirelfrw7
