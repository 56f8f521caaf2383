#include <mirelfrw7/items/selection_model_base.h>

#include <climits>
#include <utility>

namespace mirelfrw7 {

void CSelectionModelBase::SetCurrent(int index) {
    int const old = std::exchange(m_current, index);
    if (old == index) return;
    m_updates.Add(old, old);
    m_updates.Add(index, index);
    sigModelChanged();
    sigCurrentChanged(old, index);
}

void CSelectionModelBase::SelectItem(int index, bool select) {
    if (index < 0 || IsItemSelected(index) == select) return;
    m_updates.Add(index, index);
    SetItemSelectionImp(index, select);
    sigModelChanged();
    sigSelectionChanged();
}

void CSelectionModelBase::SetSelectionRange(int from, int to) {
    if (from > to) std::swap(from, to);
    if (GetSelectedCount() <= 1) {
        m_updates.Add(from, to);
        // The one item selected so far loses its selection when it lies outside, and must not stay painted
        // as selected.
        int only = INT_MIN;
        if (GetNextSelectedItem(only)) m_updates.Add(only, only);
    } else {
        m_updates.Add(0, ToEnd);
    }
    ClearSelectionImp();
    SetItemsSelectionImp(from, to, true);
    sigModelChanged();
    sigSelectionChanged();
}

void CSelectionModelBase::ClearSelection() {
    if (IsSelectionEmpty()) return;
    m_updates.Add(0, ToEnd);
    ClearSelectionImp();
    sigModelChanged();
}

} // namespace mirelfrw7
