#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <map>
#include <utility>

namespace mirelfrw7 {

// A set of indices kept as the ends of its maximal runs, so that selecting everything of a hundred million
// items is two entries. The number of runs and of selected indices are kept as the runs change, so both are
// answered without a walk.
template <class T>
class CSelectionTmpl {
public:
    enum SelType { SelSingle = 0, SelBegin = 1, SelEnd = 2 };
    using Map = std::map<T, SelType>;

    Map const& GetMap() const { return m_map; }
    std::int64_t GetCount() const { return m_count; }
    std::size_t GetRunCount() const { return m_runs; }
    bool IsEmpty() const { return m_map.empty(); }

    void Clear() {
        m_map.clear();
        m_count = 0;
        m_runs = 0;
    }

    bool IsSelected(T index) const {
        auto const it = m_map.lower_bound(index);
        if (it == m_map.end()) return false;
        return it->first == index || it->second == SelEnd;
    }

    // The run holding `index`, as its two ends.
    bool FindRun(T index, T& from, T& to) const {
        auto const it = m_map.lower_bound(index);
        if (it == m_map.end()) return false;
        if (it->first == index) {
            from = to = index;
            if (it->second == SelBegin) to = std::next(it)->first;
            if (it->second == SelEnd) from = std::prev(it)->first;
            return true;
        }
        if (it->second != SelEnd) return false;
        from = std::prev(it)->first;
        to = it->first;
        return true;
    }

    void SelectItem(T index) { AddRange(index, index); }

    void UnselectItem(T index) {
        T from, to;
        if (!FindRun(index, from, to)) return;
        EraseRun(from, to);
        if (from < index) InsertRun(from, index - 1);
        if (index < to) InsertRun(index + 1, to);
    }

    // There is no deselection of a range: with `from` and `to` apart and `select` false nothing changes.
    void SetItemsSelection(T from, T to, bool select) {
        if (from == to) {
            select ? SelectItem(from) : UnselectItem(from);
        } else if (select) {
            AddRange(std::min(from, to), std::max(from, to));
        }
    }

    // The smallest selected index above `index`; false, leaving `index` alone, when there is none.
    bool GetNext(T& index) const {
        if (index == std::numeric_limits<T>::max()) return false;
        T const next = index + 1;
        auto const it = m_map.lower_bound(next);
        if (it == m_map.end()) return false;
        index = it->first == next || it->second != SelEnd ? it->first : next;
        return true;
    }

    // Joins lo..hi with every run it overlaps or touches.
    void AddRange(T lo, T hi) {
        T from, to;
        if (lo > std::numeric_limits<T>::min() && FindRun(lo - 1, from, to)) {
            EraseRun(from, to);
            lo = from;
            hi = std::max(hi, to);
        }
        auto it = m_map.lower_bound(lo);
        // Every entry from here is a run's first, the run before lo having gone.
        while (it != m_map.end() && (hi == std::numeric_limits<T>::max() || it->first <= hi + 1)) {
            T const first = it->first;
            bool const single = it->second != SelBegin;
            T const last = single ? first : std::next(it)->first;
            it = m_map.erase(it, std::next(it, single ? 1 : 2));
            --m_runs;
            m_count -= std::int64_t(last) - first + 1;
            hi = std::max(hi, last);
        }
        InsertRun(lo, hi);
    }

private:
    void InsertRun(T from, T to) {
        if (from == to) {
            m_map.emplace(from, SelSingle);
        } else {
            m_map.emplace(from, SelBegin);
            m_map.emplace(to, SelEnd);
        }
        ++m_runs;
        m_count += std::int64_t(to) - from + 1;
    }
    void EraseRun(T from, T to) {
        m_map.erase(from);
        m_map.erase(to);
        --m_runs;
        m_count -= std::int64_t(to) - from + 1;
    }

    Map m_map;
    std::int64_t m_count = 0;
    std::size_t m_runs = 0;
};

} // namespace mirelfrw7
