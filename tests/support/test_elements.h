#pragma once

#include <mirelfrw7/core/visual_element.h>

#include <string>

namespace mirel_test {

// An element that paints its bounds in its background colour, counts its paints and can be made
// transparent: the plain brick of tree tests.
class CFilledElement : public mirelfrw7::CVisualElement {
public:
    CFilledElement(mirelfrw7::CVisualElement* parent, mirel7::size<int> elementSize,
                   mirelfrw7::Alignment alignment, std::string name = {})
        : CVisualElement(parent, elementSize, alignment), name(std::move(name)) {}

    void DrawContent(mirel7::IPainter* painter) override {
        ++paints;
        mirel7::rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
    }
    bool IsTransparent() const override { return transparent; }
    std::string HandleAsString() const override { return text; }

    std::string name;
    std::string text;
    bool transparent = false;
    int paints = 0;
};

} // namespace mirel_test
