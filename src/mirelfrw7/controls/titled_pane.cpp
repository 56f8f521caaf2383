#include <mirelfrw7/controls/titled_pane.h>
#include <mirelfrw7/items/display_scale.h>

namespace mirelfrw7 {

CTitledPane::CTitledPane(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CPane(parent, elementSize, alignment), m_title(this, {DisplayScaled(18), DisplayScaled(18)}, AlignTop) {
    m_title.SetDynamic(false);
    m_title.sigButtonDown.connect(this, &CTitledPane::HandleCaptionButtonDown);
}

void CTitledPane::HandleChildFocusChanged(CVisualElement* element, CVisualElement* other, bool gained) {
    CPane::HandleChildFocusChanged(element, other, gained);
    if (!IsAncestor(other, this)) m_title.SetActive(gained);
}

void CTitledPane::HandleCaptionButtonDown(CVisualElement*, int, int, int, MouseButton) {
    if (m_title.IsActive()) return;
    if (CVisualElement* const first = GetFirstTabElement()) first->SetFocus(true);
}

} // namespace mirelfrw7
