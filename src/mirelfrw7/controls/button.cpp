#include <mirelfrw7/controls/button.h>
#include <mirelfrw7/core/control.h>
#include <mirelfrw7/items/display_scale.h>

#include <mirel7/custom_palette.h>

namespace mirelfrw7 {

namespace {

// Colour `index` of the painter's palette, else of the built-in one.
_color PainterColor(IPainter* painter, ISysPalette::SysColor index) {
    if (mirel7::ICustomPalette const* const custom = painter->GetCustomPalette())
        return custom->GetColor(index);
    return mirel7::GetDefaultPalette()->GetColor(index);
}

} // namespace

CButton::CButton(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CCaption(parent, elementSize, alignment), CNativeDrawingFlavor(true), CRepeatableOperation(200) {
    SetAlignment(alignment);
    SetTextLayout(false);
    SetFocusable(true);
}

bool CButton::IsMouseOverButton(int, int) const {
    return true;
}

void CButton::ProcessStageChange(ClickStage) {
    OnChange(this, UpdateLocal);
}

// The last thing done with the button: a slot may delete it.
void CButton::ProcessClick() {
    sigButtonClick(this);
}

void CButton::ProcessRepeatOperation() {
    if (m_enabled)
        ProcessClick();
    else
        StopRepeating();
}

void CButton::SetEnabled(bool enabled) {
    if (!enabled) {
        StopRepeating();
        m_stage = StageIdle;
    }
    CCaption::SetEnabled(enabled);
}

void CButton::ProcessSetVisible(bool visible) {
    m_stage = StageIdle;
    CCaption::ProcessSetVisible(visible);
}

bool CButton::HandleButtonDown(int x, int y, int flags, MouseButton button) {
    if (CCaption::HandleButtonDown(x, y, flags, button)) return true;
    if (button != mirel7::ButtonLeft || !IsMouseOverButton(x, y)) return false;
    CClickHandler::HandleButtonDown(flags, button);
    if (m_autoRepeat) StartRepeating();
    return true;
}

bool CButton::HandleButtonUp(int, int, int flags, MouseButton button) {
    StopRepeating();
    return CClickHandler::HandleButtonUp(flags, button);
}

// A disabled button still becomes the mouse element, but keeps its stage.
void CButton::HandleMouseHover(CVisualElement*) {
    if (m_enabled) CClickHandler::HandleMouseHover();
}

void CButton::HandleMouseLeave(CVisualElement*) {
    StopRepeating();
    CClickHandler::HandleMouseLeave();
}

bool CButton::HandleKeyDown(int flags, int key) {
    return CClickHandler::HandleKeyDown(flags, key);
}

bool CButton::HandleKeyUp(int flags, int key) {
    return CClickHandler::HandleKeyUp(flags, key);
}

bool CButton::IsMouseElement() const {
    return m_control && m_control->GetMouseElement() == this;
}

int CButton::GetNativeState() const {
    int state = 0;
    if (!m_enabled) state |= IPainter::StateDisabled;
    if (IsFocused()) state |= IPainter::StateFocused;
    if (m_stage == StagePressed) return state | IPainter::StatePressed;
    if (m_enabled && IsMouseElement()) state |= IPainter::StateHot;
    return state;
}

void CButton::SetStyle(BorderStyle style) {
    if (style == m_style) return;
    m_style = style;
    OnChange(this, UpdateLocal);
}

void CButton::SetShape(BorderShape shape) {
    if (shape == m_shape) return;
    m_shape = shape;
    OnChange(this, UpdateLocal);
}

void CButton::DrawBackground(IPainter* painter) {
    painter->SetElementFlag(0);
    rectangle<int> const b = GetBounds();
    if (m_nativeDrawing) {
        // The native piece leaves its rounded corners alone: what showed there before must not stay.
        if (!IsTransparent()) painter->FillRect(b.left, b.top, b.right, b.bottom);
        painter->DrawControlElement(IPainter::ControlPushButton, b.left, b.top, b.right, b.bottom,
                                    GetNativeState());
        return;
    }
    if (m_style == mirel7::BorderFlat) {
        DrawFlatBackground(painter);
        return;
    }
    bool const ownPalette = !painter->GetCustomPalette();
    if (ownPalette) painter->SetCustomPalette(mirel7::CreateCustomPalette(GetBkColor()));
    rectangle<double> const r(b.left, b.top, b.right, b.bottom);
    if (IsStagePressed())
        mirel7::DrawBorder(painter, r, mirel7::BorderBox, mirel7::BorderSunken, true);
    else if (m_shape >= mirel7::BorderBottom)
        painter->FillRect(r);
    else
        mirel7::DrawBorder(painter, r, m_shape, m_style, true);
    if (ownPalette) painter->SetCustomPalette(nullptr);
}

// The framework's own look: a fill and a one-pixel outline, both tinted by the highlight colour as the
// mouse comes over and presses.
void CButton::DrawFlatBackground(IPainter* painter) {
    rectangle<int> const b = GetBounds();
    bool const over = IsMouseElement();
    bool const image = IsTransparent() && DrawBkImage(painter, b, {});
    _color const background = GetBkColor();
    if (!image) {
        brush fill;
        fill.color = background;
        painter->SetBrush(fill);
        painter->FillRect(b.left, b.top, b.right, b.bottom);
    }
    _color const line = PainterColor(painter, ISysPalette::ColorHighlight);
    _color fill = background;
    _color outline = PainterColor(painter, ISysPalette::ColorShadow);
    bool const hot = over && m_enabled;
    if (IsStagePressed()) {
        fill = mirel7::MixColors(line, background, image ? 0 : 0.6);
        outline = over ? line : PainterColor(painter, ISysPalette::ColorLight);
    } else if (hot) {
        fill = mirel7::MixColors(line, background, image ? 0.5 : 0.85);
        outline = line;
    }
    if (m_shape >= mirel7::BorderBottom && !hot) return;
    brush inside;
    inside.color = fill;
    if (image) {
        DrawBlendBk(painter, b, inside, 127);
        inside.style = brush::Hollow;
    }
    painter->SetBrush(inside);
    pen frame;
    frame.color = outline;
    painter->SetPen(frame);
    painter->Rectangle(b.left, b.top, b.right, b.bottom);
}

void CButton::DrawContent(IPainter* painter) {
    if (m_nativeDrawing && m_enabled)
        painter->SetTextColor(PainterColor(painter, ISysPalette::ColorElementForeground));
    if (IsStagePressed() && m_style == mirel7::BorderFlat)
        painter->SetTextColor(PainterColor(painter, ISysPalette::ColorHighlightText));
    CCaption::DrawContent(painter);
    if (!IsFocused()) return;
    int i = static_cast<int>(3.0 * painter->GetDPIScale());
    if (!m_nativeDrawing && m_style == mirel7::BorderFlat) --i;
    rectangle<int> const b = GetBounds();
    painter->FocusRect(b.left + i, b.top + i, b.right - i, b.bottom - i);
}

rectangle<int> CButton::GetInternalRect() const {
    rectangle<int> r = GetBounds().Normalized();
    if (IsStagePressed()) r = {r.left + 1, r.top + 1, r.right + 1, r.bottom + 1};
    return r;
}

size<int> CButton::GetAutoSizeAdditionalExtent() const {
    if (m_imageIndex == -1) return {DisplayScaled(22), DisplayScaled(9)};
    return {DisplayScaled(9), DisplayScaled(9)};
}

} // namespace mirelfrw7
