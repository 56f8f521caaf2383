#pragma once

#include <mirelfrw7/antialiasing/tag_point.h>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace antialiasing {

// The pixel store of a contour: pixels in the order of tagPOINT, each once, in one flat array. Adds are
// appended as they come and merged once, by a sort and a pass that sums the adds of the same pixel, the
// first time the map is read. Sums of integers do not depend on their order, so this gives the same pixels
// in the same order with the same sums as an ordered map added to in place, without a tree node per pixel.
template <class V>
class pixel_map {
public:
    using value_type = std::pair<tagPOINT, V>;
    using iterator = typename std::vector<value_type>::iterator;
    using const_iterator = typename std::vector<value_type>::const_iterator;

    // Sums `add` into the pixel, inserting it first with all fields 0.
    void add(tagPOINT p, V const& add) {
        if (m_merged && !m_items.empty() && !(m_items.back().first < p)) m_merged = false;
        m_items.emplace_back(p, add);
    }
    // The adds not yet merged, in the order they were made; the whole map when everything is merged.
    std::vector<value_type> const& unmerged() const { return m_items; }

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
        std::sort(m_items.begin(), m_items.end(),
                  [](value_type const& l, value_type const& r) { return l.first < r.first; });
        auto out = m_items.begin();
        for (auto in = m_items.begin() + 1; in != m_items.end(); ++in)
            if (in->first == out->first)
                out->second += in->second;
            else
                *++out = std::move(*in);
        m_items.erase(out + 1, m_items.end());
        m_merged = true;
    }

    // Logically const: merging changes how the pixels are kept, not which they are.
    mutable std::vector<value_type> m_items;
    mutable bool m_merged = true;
};

} // namespace antialiasing
