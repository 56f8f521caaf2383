#pragma once

#include <mirelfrw7/core/visual_element.h>
#include <mirelfrw7/export.h>

namespace mirelfrw7 {

// The square where a vertical and a horizontal bar meet, filled so that nothing shows through it.
class MIRELFRW7_API CScrollCorner : public CVisualElement {
public:
    using CVisualElement::CVisualElement;
    void DrawContent(IPainter* painter) override;
};

} // namespace mirelfrw7
