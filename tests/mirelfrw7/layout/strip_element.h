#pragma once

#include <mirelfrw7/layout/layout_flavor.h>

#include "support/test_elements.h"

namespace layout_test {

// A filled element that follows its docking edge and keeps its thickness across it whatever the edge, as
// the framework's strip elements do.
class CStrip : public mirel_test::CFilledElement, public mirelfrw7::CLayoutFlavor {
public:
    CStrip(mirelfrw7::CVisualElement* parent, int thickness, mirelfrw7::Alignment alignment)
        : CFilledElement(parent, {0, 0}, alignment) {
        ChangeLayout(alignment);
        SetThickness(thickness);
    }

    void SetAlignment(mirelfrw7::Alignment alignment) override {
        ChangeLayout(alignment);
        CVisualElement::SetAlignment(alignment);
    }

    // The length stays 7: docking must read the stored size across the edge, never along it.
    void SetThickness(int thickness) {
        mirel7::size<int> s{7, 7};
        GetAcrossRef(s.cx, s.cy) = thickness;
        SetSize(s, false);
    }
};

} // namespace layout_test
