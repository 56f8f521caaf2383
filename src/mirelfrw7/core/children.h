#pragma once

#include <mirelfrw7/export.h>

#include <vector>

namespace mirelfrw7 {

class CVisualElement;

// A read-only run of elements: a child list, or the control's update and rearrange lists.
class MIRELFRW7_API IVisualElements {
public:
    virtual ~IVisualElements();
    virtual int GetCount() const = 0;
    virtual CVisualElement* GetItem(int index) = 0;
};

// The children of an element. Index 0 is hit-tested first and drawn first: it lies at the bottom.
class MIRELFRW7_API IChildren : public IVisualElements {
public:
    virtual void MoveItem(int from, int to) = 0;
    virtual int GetIndex(CVisualElement* element) const = 0;
    virtual void Clear();
    virtual void AddItem(CVisualElement* element) = 0;
    virtual void RemoveItem(CVisualElement* element) = 0;
};

class MIRELFRW7_API CChildren : public IChildren {
public:
    int GetCount() const override { return static_cast<int>(m_items.size()); }
    // Unchecked, like indexing a vector.
    CVisualElement* GetItem(int index) override { return m_items[static_cast<std::size_t>(index)]; }
    // Takes the element out of `from` and inserts it before `to`, or appends it when `to` is past the end.
    void MoveItem(int from, int to) override;
    int GetIndex(CVisualElement* element) const override;
    // Deletes the children made with new and detaches the others, each of which leaves the list on its own.
    void Clear() override;
    void AddItem(CVisualElement* element) override { m_items.push_back(element); }
    void RemoveItem(CVisualElement* element) override;

private:
    std::vector<CVisualElement*> m_items;
};

} // namespace mirelfrw7
