#pragma once

#include <mirelfrw7/export.h>

namespace mirelfrw7 {

class CVisualElement;

// A pointer to an element that the element's death clears. Code that calls out (signals, virtuals) and
// goes on with the element afterwards holds it here: a slot may delete the element on the way. Guards live
// on the stack of the GUI thread; an element's destructor walks the guards alive at that moment.
class MIRELFRW7_API CLifeGuard {
public:
    explicit CLifeGuard(CVisualElement* element);
    ~CLifeGuard();
    CLifeGuard(CLifeGuard const&) = delete;
    CLifeGuard& operator=(CLifeGuard const&) = delete;

    CVisualElement* Get() const { return m_element; }
    explicit operator bool() const { return m_element != nullptr; }
    CVisualElement* operator->() const { return m_element; }

    // Called by the element's destructor: every guard of `element` lets go of it.
    static void Bury(CVisualElement const* element);

private:
    CVisualElement* m_element;
    CLifeGuard* m_outer;
};

} // namespace mirelfrw7
