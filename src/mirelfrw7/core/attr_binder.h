#pragma once

#include <mirelfrw7/core/element_iterator.h>
#include <mirelfrw7/core/visual_element.h>

#include <algorithm>
#include <type_traits>

namespace mirelfrw7 {

// Hands one value to one setter of every element of a subtree: given to std::for_each over a child list
// (ElementsBegin, ElementsEnd), it calls the setter on each element and then walks that element's own
// children, depth first, parents before children, visible or not.
//
// `T` is the setter's parameter type (ISysPalette::SysColor, _color const&); the binder keeps a copy of
// the value, so a temporary may be bound.
template <class T>
class CAttrBinder {
public:
    using Setter = void (CVisualElement::*)(T);

    CAttrBinder(Setter setter, std::decay_t<T> value) : m_setter(setter), m_value(std::move(value)) {}

    void operator()(CVisualElement* element) const {
        if (!element) return;
        (element->*m_setter)(m_value);
        IChildren* const children = element->GetChildren();
        std::for_each(ElementsBegin(children), ElementsEnd(children), *this);
    }

private:
    Setter m_setter;
    std::decay_t<T> m_value;
};

} // namespace mirelfrw7
