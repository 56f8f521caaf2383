#pragma once

#include <mirelfrw7/antialiasing/tag_point.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace antialiasing {

// The pixel store of a contour: pixels in the order of tagPOINT, each once, in one flat array. An add to a
// pixel added to lately sums in place, found through a direct-mapped table of the last pixel of each 16 by
// 16 tile position; other adds are appended and merged the first time the map is read, by a sort and a pass
// that sums the adds of the same pixel. Sums of integers do not depend on their order, so this gives the
// same pixels in the same order with the same sums as an ordered map added to in place, without a tree node
// per pixel.
template <class V>
class pixel_map {
public:
    using value_type = std::pair<tagPOINT, V>;
    using iterator = typename std::vector<value_type>::iterator;
    using const_iterator = typename std::vector<value_type>::const_iterator;

    pixel_map() = default;
    // A copy journals nothing.
    pixel_map(pixel_map const& other) : m_items(other.m_items), m_merged(other.m_merged) {}
    pixel_map& operator=(pixel_map const& other) {
        m_items = other.m_items;
        m_merged = other.m_merged;
        return *this;
    }

    // Sums `add` into the pixel, inserting it first with all fields 0.
    void add(tagPOINT p, V const& add) {
        if (m_journal) m_journal->emplace_back(p, add);
        std::uint32_t& recent = m_recent[(std::uint32_t(p.x) & 15) << 4 | (std::uint32_t(p.y) & 15)];
        if (recent < m_items.size() && m_items[recent].first == p) {
            m_items[recent].second += add;
            return;
        }
        if (m_merged && !m_items.empty() && !(m_items.back().first < p)) m_merged = false;
        recent = std::uint32_t(m_items.size());
        m_items.emplace_back(p, add);
    }
    // From now on every add is also appended to `journal` as it comes (null stops it), so that the store can
    // be checked against another.
    void set_journal(std::vector<value_type>* journal) { m_journal = journal; }

    iterator begin() { return merged().begin(); }
    iterator end() { return merged().end(); }
    const_iterator begin() const { return merged().begin(); }
    const_iterator end() const { return merged().end(); }
    std::size_t size() const { return merged().size(); }
    bool empty() const { return m_items.empty(); }
    void clear() { m_items.clear(), m_merged = true; }
    void reserve(std::size_t n) { m_items.reserve(n); }

    iterator find(tagPOINT p) {
        auto& items = merged();
        auto const it = lower(items, p);
        return it != items.end() && it->first == p ? it : items.end();
    }
    const_iterator find(tagPOINT p) const {
        auto const& items = merged();
        auto const it = lower(items, p);
        return it != items.end() && it->first == p ? it : items.end();
    }
    bool contains(tagPOINT p) const { return find(p) != end(); }
    // The pixel's value, inserted with all fields 0 when it is missing.
    V& operator[](tagPOINT p) {
        auto& items = merged();
        auto const it = lower(items, p);
        if (it != items.end() && it->first == p) return it->second;
        return items.insert(it, value_type(p, V{}))->second;
    }
    void erase(tagPOINT p) {
        auto const it = find(p);
        if (it != m_items.end()) m_items.erase(it);
    }
    // Erases every pixel for which `pred(pixel)` holds, keeping the order of the rest.
    template <class Pred>
    void erase_if(Pred pred) {
        auto& items = merged();
        items.erase(std::remove_if(items.begin(), items.end(), pred), items.end());
    }
    // Moves every pixel by the same amount: the order stays.
    void offset(int dx, int dy) {
        for (value_type& item : m_items)
            item.first = {item.first.x + dx, item.first.y + dy};
    }
    // Writes `sorted` (in order, each pixel once) over this map: its values replace those of the same pixels.
    void assign_over(std::vector<value_type>&& sorted) {
        auto& items = merged();
        if (items.empty()) {
            items = std::move(sorted);
            return;
        }
        std::vector<value_type> both;
        both.reserve(items.size() + sorted.size());
        auto a = items.begin();
        for (value_type& s : sorted) {
            while (a != items.end() && a->first < s.first)
                both.push_back(std::move(*a++));
            if (a != items.end() && a->first == s.first) ++a;
            both.push_back(std::move(s));
        }
        both.insert(both.end(), std::make_move_iterator(a), std::make_move_iterator(items.end()));
        items = std::move(both);
    }

private:
    static auto lower(auto& items, tagPOINT p) {
        return std::lower_bound(items.begin(), items.end(), p,
                                [](value_type const& item, tagPOINT q) { return item.first < q; });
    }
    std::vector<value_type>& merged() const {
        if (!m_merged) merge();
        return m_items;
    }
    void merge() const {
        sort();
        auto out = m_items.begin();
        for (auto in = m_items.begin() + 1; in != m_items.end(); ++in)
            if (in->first == out->first)
                out->second += in->second;
            else
                *++out = std::move(*in);
        m_items.erase(out + 1, m_items.end());
        m_merged = true;
    }

    // Pixels lie in few columns for their number: a counting sort by column and then a sort of each short
    // column by row beats a general sort. Far-flung pixels take the general one.
    void sort() const {
        auto const byPoint = [](value_type const& l, value_type const& r) { return l.first < r.first; };
        auto const [low, high] =
            std::minmax_element(m_items.begin(), m_items.end(), [](value_type const& l, value_type const& r) {
                return l.first.x < r.first.x;
            });
        std::int64_t const columns = std::int64_t(high->first.x) - low->first.x + 1;
        if (columns > 2 * std::int64_t(m_items.size()) + 64) {
            std::sort(m_items.begin(), m_items.end(), byPoint);
            return;
        }
        std::int32_t const left = low->first.x;
        std::vector<std::uint32_t> starts(std::size_t(columns) + 1, 0);
        for (value_type const& item : m_items)
            ++starts[std::size_t(item.first.x - left) + 1];
        for (std::size_t c = 1; c < starts.size(); ++c)
            starts[c] += starts[c - 1];
        std::vector<value_type> sorted(m_items.size());
        std::vector<std::uint32_t> next(starts.begin(), starts.end() - 1);
        for (value_type& item : m_items)
            sorted[next[std::size_t(item.first.x - left)]++] = std::move(item);
        for (std::size_t c = 0; c + 1 < starts.size(); ++c)
            std::sort(sorted.begin() + starts[c], sorted.begin() + starts[c + 1], byPoint);
        m_items = std::move(sorted);
    }

    // Logically const: merging changes how the pixels are kept, not which they are.
    mutable std::vector<value_type> m_items;
    mutable bool m_merged = true;
    // Per tile position the index of the pixel last appended there; checked against the pixel before use.
    std::uint32_t m_recent[256] = {};
    std::vector<value_type>* m_journal = nullptr;
};

} // namespace antialiasing
