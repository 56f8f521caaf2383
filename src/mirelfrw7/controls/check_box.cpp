#include <mirelfrw7/controls/check_box.h>
#include <mirelfrw7/core/control.h>
#include <mirelfrw7/header/delimiters.h>
#include <mirelfrw7/items/display_scale.h>

#include <mirel7/system.h>

namespace mirelfrw7 {

namespace {

int CheckSize() {
    mirel7::ISystem* const system = mirel7::GetCurrentSystem();
    return system ? system->GetMetric(1) : 13;
}

// The top at which an image of `height` stands centred in `bounds`.
int CentredTop(rectangle<int> const& bounds, int height) {
    return bounds.top + static_cast<int>(0.5 + (bounds.Height() - height) * 0.5);
}

} // namespace

// --- CCheckBox --------------------------------------------------------------------------------------------

CCheckBox::CCheckBox(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CButton(parent, elementSize, alignment) {
    sigButtonClick.connect(this, &CCheckBox::ChangeCheck);
}

void CCheckBox::SetChecked(bool checked) {
    if (checked == m_checked) return;
    m_checked = checked;
    sigCheckChanged(this);
    Update(UpdateLocal);
}

void CCheckBox::ChangeCheck(CButton*) {
    if (ChangeAllowed()) SetChecked(!m_checked);
}

std::string CCheckBox::HandleAsString() const {
    return (m_checked ? "[X] " : "[ ] ") + CCaption::HandleAsString();
}

size<int> CCheckBox::GetAutoSizeAdditionalExtent() const {
    return {DisplayScaled(8), DisplayScaled(2)};
}

size<int> CCheckBox::GetImageSize() const {
    int const s = CheckSize();
    return {s, s};
}

int CCheckBox::DrawCheckImage(IPainter* painter) {
    int const s = CheckSize();
    rectangle<int> const b = GetBounds();
    int const top = CentredTop(b, s);
    painter->DrawControlElement(m_checked ? IPainter::ControlChecked : IPainter::ControlUnchecked, b.left,
                                top, b.left + s, top + s, GetNativeState());
    return s;
}

void CCheckBox::DrawContent(IPainter* painter) {
    painter->SetElementFlag(0);
    rectangle<int> const b = GetBounds();
    if (!IsTransparent()) painter->FillRect(b.left, b.top, b.right, b.bottom);
    int const w = DrawCheckImage(painter);
    if (m_caption.empty()) return;
    int const left = b.left + w + 5;
    if (left >= b.right) return;
    size<double> const text =
        painter->DrawStringEx({static_cast<double>(left), static_cast<double>(b.top),
                               static_cast<double>(b.right), static_cast<double>(b.bottom)},
                              m_caption.c_str(), 289, -1, GetDelimiters(m_useHTML), Formatter());
    if (!IsFocused()) return;
    int const top = static_cast<int>((b.top + b.bottom - text.cy) * 0.5 + 0.5);
    painter->FocusRect(left - 2, top, left + static_cast<int>(text.cx) + 3, top + static_cast<int>(text.cy));
}

// --- CCustomCheckBox --------------------------------------------------------------------------------------

size<int> CCustomCheckBox::GetImageSize() const {
    if (m_images.empty()) return {12, 12};
    return m_images.begin()->second.GetSize(m_control ? m_control->GetImageList() : nullptr);
}

int CCustomCheckBox::DrawCheckImage(IPainter* painter) {
    int const state = GetNativeState() | (m_checked ? IPainter::StateChecked : 0);
    auto it = m_images.find(state);
    if (it == m_images.end()) {
        // Whatever the slots leave in it, the holder is kept: each state asks once.
        CImageHolder holder;
        sigGetImage(this, state, holder);
        it = m_images.emplace(state, std::move(holder)).first;
    }
    mirel7::IImageList* const images = m_control ? m_control->GetImageList() : nullptr;
    size<int> const s = it->second.GetSize(images);
    rectangle<int> const b = GetBounds();
    it->second.DrawImage(painter, images, b.left, CentredTop(b, s.cy));
    return s.cx;
}

// --- CRadioButton -----------------------------------------------------------------------------------------

std::string CRadioButton::HandleAsString() const {
    return (m_checked ? "(*) " : "( ) ") + CCaption::HandleAsString();
}

} // namespace mirelfrw7
