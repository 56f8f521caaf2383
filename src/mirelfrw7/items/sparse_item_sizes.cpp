#include <mirelfrw7/items/index_translator.h>
#include <mirelfrw7/items/sparse_item_sizes.h>

#include <algorithm>

namespace mirelfrw7 {

namespace {

// A full block splits in two halves; small enough that a block is a few cache lines, large enough that the
// blocks' first indexes stay few.
constexpr std::size_t MaxBlock = 32;

std::int64_t FloorDiv(std::int64_t a, std::int64_t b) {
    return a / b - (a % b != 0 && (a < 0) != (b < 0));
}

} // namespace

void CSparseItemSizes::SBlock::Resum(std::size_t from) {
    std::int64_t running = from == 0 ? 0 : entries[from - 1].before + entries[from - 1].size;
    for (std::size_t i = from; i < entries.size(); ++i) {
        entries[i].before = running;
        running += entries[i].size;
    }
    sum = running;
}

std::vector<CSparseItemSizes::SEntry>::const_iterator
CSparseItemSizes::SBlock::Find(std::int64_t index) const {
    return std::lower_bound(entries.begin(), entries.end(), index,
                            [](SEntry const& e, std::int64_t i) { return e.index < i; });
}

std::ptrdiff_t CSparseItemSizes::BlockAtOrBelow(std::int64_t index) const {
    std::size_t const count = m_firsts.size();
    // The questions of a paint or a scroll fall near each other, around the start of the view and around
    // the end of the list, most often into the blocks of the last two answers.
    for (std::size_t& f : m_fingers)
        if (f < count && m_firsts[f] <= index && (f + 1 == count || index < m_firsts[f + 1])) {
            std::swap(f, m_fingers[0]);
            return std::ptrdiff_t(m_fingers[0]);
        }
    std::ptrdiff_t const found = std::upper_bound(m_firsts.begin(), m_firsts.end(), index,
                                                  [](std::int64_t i, int first) { return i < first; }) -
                                 m_firsts.begin() - 1;
    if (found >= 0) {
        m_fingers[1] = m_fingers[0];
        m_fingers[0] = std::size_t(found);
    }
    return found;
}

int CSparseItemSizes::Get(int index, int defaultSize) const {
    std::ptrdiff_t const b = BlockAtOrBelow(index);
    if (b < 0) return defaultSize;
    SBlock const& block = m_blocks[std::size_t(b)];
    auto const it = block.Find(index);
    return it != block.entries.end() && it->index == index ? it->size : defaultSize;
}

void CSparseItemSizes::Set(int index, int size, int defaultSize) {
    std::ptrdiff_t b = BlockAtOrBelow(index);
    if (size == defaultSize && b < 0) return;
    if (b < 0 && m_blocks.empty()) {
        m_blocks.emplace_back();
        m_firsts.push_back(index);
    }
    b = std::max<std::ptrdiff_t>(b, 0);
    SBlock& block = m_blocks[std::size_t(b)];
    std::size_t const at = std::size_t(block.Find(index) - block.entries.begin());
    bool const present = at < block.entries.size() && block.entries[at].index == index;
    if (size == defaultSize) {
        if (!present) return;
        block.entries.erase(block.entries.begin() + std::ptrdiff_t(at));
        if (block.entries.empty()) {
            m_blocks.erase(m_blocks.begin() + b);
            m_firsts.erase(m_firsts.begin() + b);
        } else {
            block.Resum(at);
            m_firsts[std::size_t(b)] = block.entries.front().index;
        }
    } else if (present) {
        block.entries[at].size = size;
        block.Resum(at);
    } else {
        block.entries.insert(block.entries.begin() + std::ptrdiff_t(at), {index, size, 0});
        block.Resum(at);
        m_firsts[std::size_t(b)] = block.entries.front().index;
        if (block.entries.size() > MaxBlock) {
            SBlock upper;
            upper.entries.assign(block.entries.begin() + MaxBlock / 2, block.entries.end());
            upper.Resum(0);
            block.entries.resize(MaxBlock / 2);
            block.Resum(MaxBlock / 2 - 1);
            m_firsts.insert(m_firsts.begin() + b + 1, upper.entries.front().index);
            m_blocks.insert(m_blocks.begin() + b + 1, std::move(upper));
        }
    }
    m_sumsValid = std::min(m_sumsValid, std::size_t(b));
}

void CSparseItemSizes::RefreshSums() const {
    std::size_t const count = m_blocks.size();
    if (m_sumsValid == count) return;
    m_countBefore.resize(count);
    m_sumBefore.resize(count);
    for (std::size_t b = m_sumsValid; b < count; ++b) {
        m_countBefore[b] = b == 0 ? 0 : m_countBefore[b - 1] + std::int64_t(m_blocks[b - 1].entries.size());
        m_sumBefore[b] = b == 0 ? 0 : m_sumBefore[b - 1] + m_blocks[b - 1].sum;
    }
    m_sumsValid = count;
}

std::int64_t CSparseItemSizes::Position(std::int64_t index, int defaultSize) const {
    std::int64_t count = 0, sum = 0;
    if (std::ptrdiff_t const b = BlockAtOrBelow(index - 1); b >= 0) {
        RefreshSums();
        SBlock const& block = m_blocks[std::size_t(b)];
        auto const it = block.Find(index);
        count = m_countBefore[std::size_t(b)] + (it - block.entries.begin());
        sum = m_sumBefore[std::size_t(b)] + (it == block.entries.end() ? block.sum : it->before);
    }
    return index * defaultSize + sum - count * defaultSize;
}

// Positions only grow with the index. Between two entries they grow by the default size per item, so the
// answer is either found by division within the run after the last entry that still starts a run at or
// below the limit, or it is the item after the entry that ends that run.
std::int64_t CSparseItemSizes::FirstBeyond(std::int64_t lo, std::int64_t hi, std::int64_t limit,
                                           int defaultSize) const {
    if (Position(lo, defaultSize) > limit) return lo;
    RefreshSums();
    // Entry e qualifies when the run after it, from item e + 1, lies within lo..hi and starts at or below the
    // limit; the entries that qualify come first, and every entry below lo is one of them. A block whose
    // first entry qualifies starts at or below the limit, so the last qualifying entry lies in the last
    // block that does, or ends the block before it.
    auto const qualifies = [&](std::int64_t index, std::int64_t countTo, std::int64_t sumTo) {
        return index + 1 <= hi && (index + 1) * defaultSize + sumTo - countTo * defaultSize <= limit;
    };
    auto const blockStarts = [&](int const& first) {
        std::size_t const b = std::size_t(&first - m_firsts.data());
        return first + std::int64_t(1) <= hi &&
               first * std::int64_t(defaultSize) + m_sumBefore[b] - m_countBefore[b] * defaultSize <= limit;
    };
    // The answer is most often near lo, so the search gallops from lo's block before it halves.
    std::size_t low = std::size_t(std::max<std::ptrdiff_t>(BlockAtOrBelow(lo - 1) + 1, 0));
    std::size_t step = 1;
    while (low + step <= m_firsts.size() && blockStarts(m_firsts[low + step - 1])) {
        low += step;
        step *= 2;
    }
    std::size_t const high = std::min(low + step - 1, m_firsts.size());
    std::size_t const starting =
        std::size_t(std::partition_point(m_firsts.begin() + std::ptrdiff_t(low),
                                         m_firsts.begin() + std::ptrdiff_t(high), blockStarts) -
                    m_firsts.begin());
    // The count and sizes of the entries up to the last qualifying one, its index, and the entry after it.
    std::int64_t count = 0, sum = 0, lastIndex = lo - 1, next = hi;
    if (starting > 0) {
        std::size_t const b = starting - 1;
        SBlock const& block = m_blocks[b];
        auto const after =
            std::partition_point(block.entries.begin(), block.entries.end(), [&](SEntry const& e) {
                return qualifies(e.index, m_countBefore[b] + (&e - block.entries.data()) + 1,
                                 m_sumBefore[b] + e.before + e.size);
            });
        std::size_t const taken = std::size_t(after - block.entries.begin());
        count = m_countBefore[b] + std::int64_t(taken);
        sum = m_sumBefore[b] + (after == block.entries.end() ? block.sum : after->before);
        if (taken > 0)
            lastIndex = block.entries[taken - 1].index;
        else if (b > 0)
            lastIndex = m_blocks[b - 1].entries.back().index;
        if (after != block.entries.end())
            next = std::min<std::int64_t>(after->index, hi);
        else if (starting < m_blocks.size())
            next = std::min<std::int64_t>(m_firsts[starting], hi);
    } else if (!m_firsts.empty()) {
        next = std::min<std::int64_t>(m_firsts[0], hi);
    }
    // Items from `start` up to the next entry share the deviation of the entries before them.
    std::int64_t const start = std::max(lo, lastIndex + 1);
    if (defaultSize > 0) {
        std::int64_t const deviation = sum - count * defaultSize;
        std::int64_t const found = std::max(start, FloorDiv(limit - deviation, defaultSize) + 1);
        if (found <= next) return found;
    }
    return next + 1;
}

std::int64_t CSparseItemSizes::Extent(int from, int to, int defaultSize) const {
    if (to <= from) return 0;
    return Position(to, defaultSize) - Position(from, defaultSize);
}

int CSparseItemSizes::FindAt(int from, int to, std::int64_t pixel, int defaultSize,
                             std::int64_t* itemStart) const {
    if (to <= from) {
        *itemStart = 0;
        return from;
    }
    // Item i holds the pixel when it is the first whose end, the start of item i + 1, lies beyond it.
    std::int64_t const origin = Position(from, defaultSize);
    std::int64_t const after = FirstBeyond(std::int64_t(from) + 1, to, origin + pixel, defaultSize);
    int const found = int(std::min<std::int64_t>(after - 1, to));
    *itemStart = Position(found, defaultSize) - origin;
    return found;
}

int CSparseItemSizes::FindFirstFitting(int from, int to, std::int64_t room, int defaultSize) const {
    if (to <= from || room <= 0) return to;
    return int(FirstBeyond(from, to, Position(to, defaultSize) - room, defaultSize));
}

void CSparseItemSizes::Remap(IIndexTranslator const& translator) {
    std::vector<SEntry> moved;
    for (SBlock const& block : m_blocks)
        for (SEntry const& e : block.entries) {
            bool removed = false;
            int const target = translator.TranslateIndex(e.index, &removed);
            if (!removed) moved.push_back({target, e.size, 0});
        }
    std::stable_sort(moved.begin(), moved.end(),
                     [](SEntry const& a, SEntry const& b) { return a.index < b.index; });
    // Of entries landing on one index, the last moved is the one that stays.
    std::vector<SEntry> kept;
    for (SEntry const& e : moved) {
        if (!kept.empty() && kept.back().index == e.index)
            kept.back() = e;
        else
            kept.push_back(e);
    }
    Rebuild(kept);
}

void CSparseItemSizes::Rebuild(std::vector<SEntry> const& sorted) {
    m_blocks.clear();
    m_firsts.clear();
    for (std::size_t i = 0; i < sorted.size(); i += MaxBlock / 2) {
        SBlock& block = m_blocks.emplace_back();
        block.entries.assign(sorted.begin() + std::ptrdiff_t(i),
                             sorted.begin() + std::ptrdiff_t(std::min(sorted.size(), i + MaxBlock / 2)));
        block.Resum(0);
        m_firsts.push_back(block.entries.front().index);
    }
    m_sumsValid = 0;
}

std::map<int, int> CSparseItemSizes::GetEntries() const {
    std::map<int, int> entries;
    for (SBlock const& block : m_blocks)
        for (SEntry const& e : block.entries)
            entries.emplace_hint(entries.end(), e.index, e.size);
    return entries;
}

} // namespace mirelfrw7
