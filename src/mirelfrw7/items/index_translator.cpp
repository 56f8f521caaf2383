#include <mirelfrw7/items/index_translator.h>
#include <mirelfrw7/items/saturating_int.h>

#include <algorithm>
#include <cstdint>

namespace mirelfrw7 {

IIndexTranslator::~IIndexTranslator() = default;

bool IIndexTranslator::TranslationIsPresented() const {
    return true;
}

bool IIndexTranslator::TranslateRun(int from, int to, std::vector<std::pair<int, int>>& images) const {
    bool moved = false;
    for (std::int64_t i = from; i <= to; ++i) {
        int const j = TranslateIndex(int(i), nullptr);
        moved |= j != i;
        if (i > from && std::int64_t(images.back().second) + 1 == j)
            images.back().second = j;
        else
            images.emplace_back(j, j);
    }
    return moved;
}

int CMoveTranslator::TranslateIndex(int index, bool* removed) const {
    if (removed) *removed = false;
    if (index < std::min(m_from, m_to) || index > std::max(m_from, m_to)) return index;
    if (index == m_from) return m_to;
    return m_to > m_from ? index - 1 : index + 1;
}

bool CMoveTranslator::TranslateRun(int from, int to, std::vector<std::pair<int, int>>& images) const {
    int const lo = std::max(from, std::min(m_from, m_to));
    int const hi = std::min(to, std::max(m_from, m_to));
    if (m_from == m_to || lo > hi) {
        images.emplace_back(from, to);
        return false;
    }
    if (from < lo) images.emplace_back(from, lo - 1);
    if (hi < to) images.emplace_back(hi + 1, to);
    // Within the moved stretch every index shifts by one towards m_from's old place, and m_from itself
    // goes to m_to.
    int const shift = m_to > m_from ? -1 : 1;
    int const restFrom = lo == m_from ? lo + 1 : lo;
    int const restTo = hi == m_from ? hi - 1 : hi;
    if (restFrom <= restTo) images.emplace_back(restFrom + shift, restTo + shift);
    if (lo <= m_from && m_from <= hi) images.emplace_back(m_to, m_to);
    return true;
}

int CAddRemoveTranslator::TranslateIndex(int index, bool* removed) const {
    if (removed) *removed = false;
    if (index <= m_pos) return index;
    if (m_delta <= 0 && std::int64_t(index) <= std::int64_t(m_pos) - m_delta) {
        if (removed) *removed = true;
        return m_pos;
    }
    return SaturatingInt(std::int64_t(index) + m_delta);
}

bool CAddRemoveTranslator::TranslateRun(int from, int to, std::vector<std::pair<int, int>>& images) const {
    // Added items open a gap after m_pos; removed ones close up onto m_pos, which keeps a run in one piece.
    if (m_delta > 0 && from <= m_pos && m_pos < to) {
        images.emplace_back(from, m_pos);
        images.emplace_back(TranslateIndex(m_pos + 1, nullptr), TranslateIndex(to, nullptr));
        return true;
    }
    int const first = TranslateIndex(from, nullptr);
    int const last = TranslateIndex(to, nullptr);
    images.emplace_back(first, last);
    return first != from || last != to;
}

} // namespace mirelfrw7
