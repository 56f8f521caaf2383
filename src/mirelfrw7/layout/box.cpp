#include <mirelfrw7/core/children.h>
#include <mirelfrw7/items/saturating_int.h>
#include <mirelfrw7/layout/box.h>

#include <algorithm>
#include <cstdint>

namespace mirelfrw7 {

CBoxBase::CBoxBase(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CScrolled(parent, elementSize, alignment), m_autoSize(m_control != nullptr) {}

bool CBoxBase::IsScrollableOnSetPos() const {
    return false;
}

void CBoxBase::ProcessSetControl(IControl* control) {
    CScrolled::ProcessSetControl(control);
    m_autoSize = false;
    m_leaving = nullptr;
}

void CBoxBase::AfterSetControl() {
    CScrolled::AfterSetControl();
    m_autoSize = true;
    RecalculateSize();
}

void CBoxBase::AddNewChild(CVisualElement* child) {
    if (child == m_leaving) m_leaving = nullptr;
    CScrolled::AddNewChild(child);
    RecalculateSize();
}

// A box that keeps its size leaves the rearrangement where it was asked for: taking it over would queue the
// same top element again while a layout pass places it, which the control takes for a layout that never
// settles, and drops.
void CBoxBase::ProcessRearrange(CVisualElement** target) {
    if (*target == this || !m_autoSize) return;
    size<int> const before = m_size;
    RecalculateSize();
    if (m_size != before) *target = this;
}

// A deleted child rearranges nobody: the box measures itself here, without it.
bool CBoxBase::BeforeProcessChange(CVisualElement* sender, UpdateType type) {
    if ((type & UpdateLeaving) && m_autoSize && sender->GetParent() == this) {
        m_leaving = sender;
        RecalculateSize();
    }
    return CScrolled::BeforeProcessChange(sender, type);
}

void CBoxBase::Recalculate(bool vertical) {
    if (!m_control) return;
    std::int64_t sum = m_padSize;
    for (int i = 0, count = m_children->GetCount(); i < count; ++i) {
        CVisualElement const* const child = m_children->GetItem(i);
        if (!child->IsVisible() || child == m_leaving) continue;
        Alignment const a = child->GetAlignment();
        bool const along = a == AlignClient ||
                           (vertical ? a == AlignTop || a == AlignBottom : a == AlignLeft || a == AlignRight);
        if (along) sum += std::int64_t(vertical ? child->GetSize().cy : child->GetSize().cx) + 1;
    }
    size<int> s = m_size;
    (vertical ? s.cy : s.cx) = SaturatingInt(sum);
    SetSize(s, false);
}

void CBoxBase::SetPadSize(int pad, bool vertical) {
    pad = std::max(pad, 0);
    if (pad == m_padSize) return;
    int const grow = pad - m_padSize;
    m_padSize = pad;
    if (!m_autoSize) return;
    size<int> s = m_size;
    int& along = vertical ? s.cy : s.cx;
    along = SaturatingInt(std::int64_t(along) + grow);
    SetSize(s, false);
}

void CBoxBase::PlaceAndMeasure(rectangle<int> const& newRect, bool force, bool vertical) {
    rectangle<int> const old = m_bounds;
    CScrolled::SetPos(newRect, force);
    bool const acrossChanged = vertical ? newRect.Width() != old.Width() : newRect.Height() != old.Height();
    if (acrossChanged) RecalculateSize();
    if (newRect.left != old.left || newRect.top != old.top) Update(UpdateLocal);
}

void CVertBox::SetPos(rectangle<int> const& newRect, bool force) {
    PlaceAndMeasure(newRect, force, true);
}

void CVertBox::RecalculateSize() {
    Recalculate(true);
}

void CVertBox::SetBottomPadSize(int pad) {
    SetPadSize(pad, true);
}

void CHorzBox::SetPos(rectangle<int> const& newRect, bool force) {
    PlaceAndMeasure(newRect, force, false);
}

void CHorzBox::RecalculateSize() {
    Recalculate(false);
}

void CHorzBox::SetRightPadSize(int pad) {
    SetPadSize(pad, false);
}

} // namespace mirelfrw7
