#include <mirelfrw7/core/children.h>
#include <mirelfrw7/core/visual_element.h>

#include <mirel7/assert.h>

#include <algorithm>

namespace mirelfrw7 {

IVisualElements::~IVisualElements() = default;

void IChildren::Clear() {}

void CChildren::MoveItem(int from, int to) {
    if (from < 0 || from >= GetCount()) {
        MIREL_ASSERT(from >= 0 && from < GetCount() && "CChildren::MoveItem: no item at `from`");
        return;
    }
    CVisualElement* const element = m_items[static_cast<std::size_t>(from)];
    m_items.erase(m_items.begin() + from);
    if (to >= 0 && to < GetCount())
        m_items.insert(m_items.begin() + to, element);
    else
        m_items.push_back(element);
}

int CChildren::GetIndex(CVisualElement* element) const {
    auto const found = std::find(m_items.begin(), m_items.end(), element);
    return found == m_items.end() ? -1 : static_cast<int>(found - m_items.begin());
}

void CChildren::Clear() {
    while (!m_items.empty()) {
        CVisualElement* const first = m_items.front();
        if (first->IsDynamic())
            delete first;
        else
            first->ReParent(nullptr, false);
        // Both ways take the element out of this list; should one not, drop it rather than loop forever.
        if (!m_items.empty() && m_items.front() == first) {
            MIREL_ASSERT(!"CChildren::Clear: a child did not leave the list");
            m_items.erase(m_items.begin());
        }
    }
}

void CChildren::RemoveItem(CVisualElement* element) {
    auto const found = std::find(m_items.begin(), m_items.end(), element);
    if (found != m_items.end()) m_items.erase(found);
}

} // namespace mirelfrw7
