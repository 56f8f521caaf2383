#include <mirelfrw7/items/index_translator.h>
#include <mirelfrw7/items/sparse_item_sizes.h>

#include <algorithm>

namespace mirelfrw7 {

namespace {

// A full block splits in two halves; small enough that a block is a few cache lines, large enough that the
// blocks' first indexes stay few.
constexpr std::size_t MaxBlock = 64;

std::int64_t FloorDiv(std::int64_t a, std::int64_t b) {
    return a / b - (a % b != 0 && (a < 0) != (b < 0));
}

} // namespace

std::ptrdiff_t CSparseItemSizes::BlockAtOrBelow(std::int64_t index) const {
    return std::upper_bound(m_firsts.begin(), m_firsts.end(), index,
                            [](std::int64_t i, int first) { return i < first; }) -
           m_firsts.begin() - 1;
}

int CSparseItemSizes::Get(int index, int defaultSize) const {
    std::ptrdiff_t const b = BlockAtOrBelow(index);
    if (b < 0) return defaultSize;
    auto const& entries = m_blocks[std::size_t(b)].entries;
    auto const it = std::lower_bound(entries.begin(), entries.end(), index,
                                     [](SEntry const& e, int i) { return e.index < i; });
    return it != entries.end() && it->index == index ? it->size : defaultSize;
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
    auto const it = std::lower_bound(block.entries.begin(), block.entries.end(), index,
                                     [](SEntry const& e, int i) { return e.index < i; });
    bool const present = it != block.entries.end() && it->index == index;
    if (size == defaultSize) {
        if (!present) return;
        block.sum -= it->size;
        block.entries.erase(it);
        if (block.entries.empty()) {
            m_blocks.erase(m_blocks.begin() + b);
            m_firsts.erase(m_firsts.begin() + b);
        } else {
            m_firsts[std::size_t(b)] = block.entries.front().index;
        }
    } else if (present) {
        block.sum += std::int64_t(size) - it->size;
        it->size = size;
    } else {
        block.sum += size;
        block.entries.insert(it, {index, size});
        m_firsts[std::size_t(b)] = block.entries.front().index;
        if (block.entries.size() > MaxBlock) {
            SBlock upper;
            upper.entries.assign(block.entries.begin() + MaxBlock / 2, block.entries.end());
            block.entries.resize(MaxBlock / 2);
            for (SEntry const& e : upper.entries)
                upper.sum += e.size;
            block.sum -= upper.sum;
            m_firsts.insert(m_firsts.begin() + b + 1, upper.entries.front().index);
            m_blocks.insert(m_blocks.begin() + b + 1, std::move(upper));
        }
    }
    Changed(std::size_t(b));
}

void CSparseItemSizes::RefreshSums() const {
    std::size_t const count = m_blocks.size();
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
        count = m_countBefore[std::size_t(b)];
        sum = m_sumBefore[std::size_t(b)];
        for (SEntry const& e : m_blocks[std::size_t(b)].entries) {
            if (e.index >= index) break;
            ++count;
            sum += e.size;
        }
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
    // Where the run after entry e starts: item e + 1, given the count and sum of the entries up to e.
    auto runStart = [&](SEntry const& e, std::int64_t countTo, std::int64_t sumTo) {
        return (std::int64_t(e.index) + 1) * defaultSize + sumTo - countTo * defaultSize;
    };
    auto fits = [&](SEntry const& e, std::int64_t countTo, std::int64_t sumTo) {
        return e.index + std::int64_t(1) <= hi && runStart(e, countTo, sumTo) <= limit;
    };
    std::size_t low = 0, high = m_blocks.size();
    while (low < high) {
        std::size_t const mid = (low + high) / 2;
        SEntry const& first = m_blocks[mid].entries.front();
        if (fits(first, m_countBefore[mid] + 1, m_sumBefore[mid] + first.size))
            low = mid + 1;
        else
            high = mid;
    }
    std::int64_t start = lo;
    if (low > 0) {
        std::size_t const b = low - 1;
        std::int64_t count = m_countBefore[b], sum = m_sumBefore[b], last = lo - 1;
        for (SEntry const& e : m_blocks[b].entries) {
            if (!fits(e, count + 1, sum + e.size)) break;
            ++count;
            sum += e.size;
            last = e.index;
        }
        start = std::max(start, last + 1);
    }
    // Items start..end share the deviation from the default sizes that item `start` has.
    std::ptrdiff_t const b = BlockAtOrBelow(start - 1);
    std::int64_t next = hi + 1;
    for (std::size_t k = std::size_t(std::max<std::ptrdiff_t>(b, 0)); k < m_blocks.size(); ++k) {
        auto const& entries = m_blocks[k].entries;
        auto const it = std::lower_bound(entries.begin(), entries.end(), start,
                                         [](SEntry const& e, std::int64_t i) { return e.index < i; });
        if (it != entries.end()) {
            next = it->index;
            break;
        }
    }
    std::int64_t const end = std::min(next, hi);
    if (defaultSize > 0) {
        std::int64_t const deviation = Position(start, defaultSize) - start * defaultSize;
        std::int64_t const found = std::max(start, FloorDiv(limit - deviation, defaultSize) + 1);
        if (found <= end) return found;
    }
    return std::min(end + 1, hi + 1);
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
            if (!removed) moved.push_back({target, e.size});
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
        for (SEntry const& e : block.entries)
            block.sum += e.size;
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
