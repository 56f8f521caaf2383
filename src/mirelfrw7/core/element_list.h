#pragma once

#include <mirelfrw7/core/children.h>
#include <mirelfrw7/export.h>

#include <unordered_set>
#include <vector>

namespace mirelfrw7 {

// A queue of elements waiting for a repaint or a rearrangement. The entries are not owned; after Reduce()
// some are null holes, which users skip.
class MIRELFRW7_API CElementList : public IVisualElements {
public:
    int GetCount() const override { return static_cast<int>(m_items.size()); }
    // Null out of range.
    CVisualElement* GetItem(int index) override;
    // Skips elements that are not displayable and elements already listed.
    void AddElement(CVisualElement* element);
    void RemoveElement(CVisualElement* element);
    // Leaves only top-most elements: an entry with an ancestor in the list becomes a hole, since the
    // ancestor's repaint or rearrangement covers it.
    void Reduce();
    // Keeps the first `keep` entries; below 1 empties the list.
    void Clear(int keep = 0);
    bool IsEmpty() const { return m_items.empty(); }
    bool Contains(CVisualElement* element) const;
    bool operator==(CElementList const& other) const { return m_items == other.m_items; }

private:
    // A long list also keeps its entries in a set, so that a layout queuing thousands of elements does not
    // scan the list for each; a short one is scanned, which is cheaper. The set is empty or holds exactly
    // the non-null entries.
    static constexpr std::size_t IndexFrom = 32;
    void Unindex(CVisualElement* element);

    std::vector<CVisualElement*> m_items;
    std::unordered_set<CVisualElement*> m_index;
};

} // namespace mirelfrw7
