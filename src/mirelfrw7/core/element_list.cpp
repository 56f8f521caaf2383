#include <mirelfrw7/core/element_list.h>
#include <mirelfrw7/core/visual_element.h>

#include <algorithm>
#include <functional>

namespace mirelfrw7 {

CVisualElement* CElementList::GetItem(int index) {
    return index >= 0 && index < GetCount() ? m_items[static_cast<std::size_t>(index)] : nullptr;
}

void CElementList::AddElement(CVisualElement* element) {
    if (!element || !element->IsDisplayable()) return;
    if (std::find(m_items.begin(), m_items.end(), element) == m_items.end()) m_items.push_back(element);
}

void CElementList::RemoveElement(CVisualElement* element) {
    auto const found = std::find(m_items.begin(), m_items.end(), element);
    if (found != m_items.end()) m_items.erase(found);
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
                entry = nullptr;
                break;
            }
        }
    }
}

void CElementList::Clear(int keep) {
    if (keep < 1)
        m_items.clear();
    else if (keep < GetCount())
        m_items.resize(static_cast<std::size_t>(keep));
}

} // namespace mirelfrw7
