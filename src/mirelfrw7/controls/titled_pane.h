#pragma once

#include <mirelfrw7/controls/element_caption.h>
#include <mirelfrw7/layout/pane.h>

namespace mirelfrw7 {

// A pane with a title bar on top that lights up while the focus is inside; a click on a dim title brings
// the focus in.
class MIRELFRW7_API CTitledPane : public CPane {
public:
    CTitledPane(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    bool IsTransparent() const override { return m_title.IsTransparent(); }
    void HandleChildFocusChanged(CVisualElement* element, CVisualElement* other, bool gained) override;

    void SetTitleAlignment(Alignment alignment) { m_title.SetAlignment(alignment); }
    CElementCaption& GetTitle() { return m_title; }

private:
    void HandleCaptionButtonDown(CVisualElement* element, int x, int y, int flags, MouseButton button);

    CElementCaption m_title;
};

} // namespace mirelfrw7
