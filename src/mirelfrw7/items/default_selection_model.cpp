#include <mirelfrw7/items/default_selection_model.h>
#include <mirelfrw7/items/index_translator.h>
#include <mirelfrw7/items/saturating_int.h>

#include <algorithm>
#include <vector>

namespace mirelfrw7 {

int CDefaultSelectionModel::GetSelectedCount() const {
    return SaturatingInt(m_selection.GetCount());
}

void CDefaultSelectionModel::SetItemSelectionImp(int index, bool select) {
    m_selection.SetItemsSelection(index, index, select);
}

void CDefaultSelectionModel::SetItemsSelectionImp(int from, int to, bool select) {
    m_selection.SetItemsSelection(from, to, select);
}

void CDefaultSelectionModel::SetSelectionRange(int from, int to) {
    if (from > to) std::swap(from, to);
    auto const& map = m_selection.GetMap();
    if (m_selection.GetRunCount() == 1) {
        int const first = map.begin()->first;
        int const last = map.rbegin()->first;
        if (first != from || last != to) m_updates.Add(first, last);
    } else {
        m_updates.Add(0, ToEnd);
    }
    m_updates.Add(from, to);
    m_selection.Clear();
    m_selection.SetItemsSelection(from, to, true);
    sigModelChanged();
    sigSelectionChanged();
}

void CDefaultSelectionModel::UpdateModelState(IIndexTranslator* translator) {
    if (!translator || !translator->TranslationIsPresented()) return;
    int const oldCurrent = m_current;
    m_current = translator->TranslateIndex(m_current, nullptr);

    std::vector<std::pair<int, int>> images;
    bool moved = false;
    auto const& map = m_selection.GetMap();
    for (auto it = map.begin(); it != map.end(); ++it) {
        int const first = it->first;
        if (it->second == CSelectionTmpl<int>::SelBegin) ++it;
        moved |= translator->TranslateRun(first, it->first, images);
    }
    std::sort(images.begin(), images.end());
    m_selection.Clear();
    for (auto const& [from, to] : images)
        m_selection.AddRange(from, to);

    if (moved || m_current != oldCurrent) sigModelChanged();
    if (m_current != oldCurrent) sigCurrentChanged(oldCurrent, m_current);
}

} // namespace mirelfrw7
