#pragma once

#include <mirelfrw7/core/visual_element.h>
#include <mirelfrw7/export.h>

namespace mirelfrw7 {

// A one-pixel frame that shows whether the focus is inside: the active colour while an element within
// holds it, the inactive one otherwise. The background is the element's own.
class MIRELFRW7_API CPane : public CVisualElement {
public:
    CPane(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    virtual _color GetActiveColor() const;
    virtual _color GetInactiveColor() const;
    rectangle<int> GetContentRect() const override;
    void DrawContent(IPainter* painter) override;
    void HandleChildFocusChanged(CVisualElement* element, CVisualElement* other, bool gained) override;

    bool IsActive() const { return m_active; }

protected:
    bool m_active = false;
};

} // namespace mirelfrw7
