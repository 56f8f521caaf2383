#pragma once

#include <mirelfrw7/controls/button.h>

namespace mirelfrw7 {

// A button that paints itself completely in one of four looks: normal, under the mouse, pressed, disabled.
class MIRELFRW7_API CCustomButton : public CButton {
public:
    using CButton::CButton;

    // Sets `drawn` when it drew: a look that draws nothing leaves the disabled button to the normal look.
    virtual void DrawDisabledContent(IPainter* painter, bool& drawn);
    virtual void DrawNormalContent(IPainter* painter) = 0;
    virtual void DrawHighlightedContent(IPainter* painter) = 0;
    virtual void DrawPressedContent(IPainter* painter) = 0;
    virtual void DrawFocusRect(IPainter* painter);

    void DrawContent(IPainter* painter) override;
    bool HandleMouseMove(int x, int y, int flags, MouseButton button) override;

    bool IsHovered() const { return m_hovered; }

protected:
    bool m_hovered = false;
};

} // namespace mirelfrw7
