#include <mirelfrw7/controls/custom_button.h>

namespace mirelfrw7 {

void CCustomButton::DrawDisabledContent(IPainter*, bool& drawn) {
    drawn = false;
}

void CCustomButton::DrawFocusRect(IPainter* painter) {
    rectangle<int> const b = GetBounds();
    painter->FocusRect(b.left + 3, b.top + 3, b.right - 3, b.bottom - 3);
}

void CCustomButton::DrawContent(IPainter* painter) {
    painter->SetElementFlag(0);
    if (!m_enabled) {
        bool drawn = false;
        DrawDisabledContent(painter, drawn);
        if (drawn) return;
    }
    if (IsStagePressed())
        DrawPressedContent(painter);
    else if (IsMouseElement() && m_hovered)
        DrawHighlightedContent(painter);
    else
        DrawNormalContent(painter);
    if (IsFocused()) DrawFocusRect(painter);
}

bool CCustomButton::HandleMouseMove(int x, int y, int flags, MouseButton button) {
    bool const over = IsMouseOverButton(x, y);
    if (over != m_hovered) {
        m_hovered = over;
        Update(UpdateLocal);
    }
    return CCaption::HandleMouseMove(x, y, flags, button);
}

} // namespace mirelfrw7
