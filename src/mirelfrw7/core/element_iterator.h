#pragma once

#include <mirelfrw7/core/children.h>
#include <mirelfrw7/export.h>

#include <cstddef>
#include <iterator>

namespace mirelfrw7 {

// An input iterator over the elements of an IVisualElements list, for the algorithms of the standard
// library. Two iterators are equal at the same index of the same list; the end is the index GetCount() had
// when it was taken, so the list must not change its length during a walk.
class MIRELFRW7_API CElementIterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = CVisualElement*;
    using difference_type = std::ptrdiff_t;
    using pointer = CVisualElement* const*;
    using reference = CVisualElement*;

    CElementIterator() = default;
    CElementIterator(IVisualElements* list, int index) : m_list(list), m_index(index) {}

    CVisualElement* operator*() const { return m_list->GetItem(m_index); }
    CElementIterator& operator++() {
        ++m_index;
        return *this;
    }
    CElementIterator operator++(int) {
        CElementIterator const before = *this;
        ++m_index;
        return before;
    }
    friend bool operator==(CElementIterator const&, CElementIterator const&) = default;

private:
    IVisualElements* m_list = nullptr;
    int m_index = 0;
};

// The first and the past-the-end positions of `list`; a null list is empty.
inline CElementIterator ElementsBegin(IVisualElements* list) {
    return {list, 0};
}
inline CElementIterator ElementsEnd(IVisualElements* list) {
    return {list, list ? list->GetCount() : 0};
}

} // namespace mirelfrw7
