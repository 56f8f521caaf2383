#include <mirelfrw7/items/update_storage.h>

#include <algorithm>
#include <cstdint>

namespace mirelfrw7 {

CUpdateStorage::CUpdateStorage(bool everythingDirty) {
    if (everythingDirty) Add(0, IDirtyItemSet::ToEnd);
}

void CUpdateStorage::Add(int from, int to) {
    if (from > to) std::swap(from, to);
    m_ranges.emplace_back(from, to);
    if (to == INT_MAX) m_dirtyFrom = std::min<std::int64_t>(m_dirtyFrom, from);
    m_mergedValid = false;
}

void CUpdateStorage::Clear() {
    m_ranges.clear();
    m_merged.clear();
    m_dirtyFrom = NoneToEnd;
    m_mergedValid = true;
}

IDirtyItemSet::DirtyType CUpdateStorage::GetItemType(int index) const {
    if (m_ranges.empty()) return IDirtyItemSet::NoDirtyItems;
    if (index >= m_dirtyFrom) return IDirtyItemSet::DirtyItem;
    if (!m_mergedValid) Merge();
    // The last merged range starting at or before the index is the only one that can hold it.
    auto const after = std::upper_bound(m_merged.begin(), m_merged.end(), index,
                                        [](int i, std::pair<int, int> const& r) { return i < r.first; });
    if (after != m_merged.begin() && std::prev(after)->second >= index) return IDirtyItemSet::DirtyItem;
    return IDirtyItemSet::CleanItem;
}

void CUpdateStorage::Merge() const {
    m_merged = m_ranges;
    std::sort(m_merged.begin(), m_merged.end());
    std::size_t out = 0;
    for (std::size_t i = 1; i < m_merged.size(); ++i) {
        // Touching ranges merge too: the question is only which indices are held.
        if (std::int64_t(m_merged[i].first) <= std::int64_t(m_merged[out].second) + 1)
            m_merged[out].second = std::max(m_merged[out].second, m_merged[i].second);
        else
            m_merged[++out] = m_merged[i];
    }
    m_merged.resize(out + 1);
    m_mergedValid = true;
}

} // namespace mirelfrw7
