#include <mirelfrw7/core/element_list.h>
#include <mirelfrw7/core/visual_element.h>

#include <algorithm>

namespace mirelfrw7 {

CVisualElement* CElementList::GetItem(int index) {
    return index >= 0 && index < GetCount() ? m_items[static_cast<std::size_t>(index)] : nullptr;
}

bool CElementList::Contains(CVisualElement* element) const {
    if (!m_index.empty()) return m_index.count(element) != 0;
    return std::find(m_items.begin(), m_items.end(), element) != m_items.end();
}

void CElementList::AddElement(CVisualElement* element) {
    if (!element || !element->IsDisplayable() || Contains(element)) return;
    m_items.push_back(element);
    if (!m_index.empty())
        m_index.insert(element);
    else if (m_items.size() == IndexFrom)
        for (CVisualElement* e : m_items)
            if (e) m_index.insert(e);
}

void CElementList::RemoveElement(CVisualElement* element) {
    auto const found = std::find(m_items.begin(), m_items.end(), element);
    if (found == m_items.end()) return;
    m_items.erase(found);
    Unindex(element);
}

void CElementList::Unindex(CVisualElement* element) {
    m_index.erase(element);
}

void CElementList::Reduce() {
    if (m_items.size() < 2) return;
    std::vector<CVisualElement*> sorted(m_items);
    std::sort(sorted.begin(), sorted.end(), std::less<>());
    auto const listed = [&](CVisualElement* e) {
        return std::binary_search(sorted.begin(), sorted.end(), e, std::less<>());
    };
    for (CVisualElement*& entry : m_items) {
        if (!entry) continue;
        for (CVisualElement* a = entry->GetParent(); a; a = a->GetParent()) {
            if (listed(a)) {
                Unindex(entry);
                entry = nullptr;
                break;
            }
        }
    }
}

void CElementList::Clear(int keep) {
    std::size_t const kept = keep < 1 ? 0 : std::min(m_items.size(), static_cast<std::size_t>(keep));
    if (kept < IndexFrom)
        m_index.clear();
    else
        for (std::size_t i = kept; i < m_items.size(); ++i)
            Unindex(m_items[i]);
    m_items.resize(kept);
}

} // namespace mirelfrw7
