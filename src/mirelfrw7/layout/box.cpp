#include <mirelfrw7/core/children.h>
#include <mirelfrw7/items/saturating_int.h>
#include <mirelfrw7/layout/box.h>

#include <algorithm>
#include <cstdint>
#include <utility>

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
    m_sum = -1;
}

void CBoxBase::AfterSetControl() {
    CScrolled::AfterSetControl();
    m_autoSize = true;
    RecalculateSize();
}

void CBoxBase::AddNewChild(CVisualElement* child) {
    if (child == m_leaving) m_leaving = nullptr;
    CScrolled::AddNewChild(child);
    MeasureFor(child, 0);
}

// A box that keeps its size leaves the rearrangement where it was asked for: taking it over would queue the
// same top element again while a layout pass places it, which the control takes for a layout that never
// settles, and drops.
void CBoxBase::ProcessRearrange(CVisualElement** target) {
    if (*target == this || !m_autoSize) return;
    size<int> const before = m_size;
    // A descendant deeper down may live where a child known before died: only a child of the box counts.
    if (*target == m_known && (*target)->GetParent() == this)
        MeasureFor(m_known, m_knownTerm);
    else
        RecalculateSize();
    if (m_size != before) *target = this;
}

// A deleted child rearranges nobody: the box measures itself here, without it.
bool CBoxBase::BeforeProcessChange(CVisualElement* sender, UpdateType type) {
    if ((type & UpdateLeaving) && m_autoSize && sender->GetParent() == this) {
        m_leaving = sender;
        MeasureFor(sender, sender == m_known ? m_knownTerm : -1);
    }
    return CScrolled::BeforeProcessChange(sender, type);
}

void CBoxBase::MeasureFor(CVisualElement const* child, std::int64_t oldTerm) {
    m_changed = child;
    m_changedTerm = oldTerm;
    RecalculateSize();
    m_changed = nullptr;
}

std::int64_t CBoxBase::Term(CVisualElement const* child, bool vertical) const {
    if (!child->IsVisible() || child == m_leaving) return 0;
    Alignment const a = child->GetAlignment();
    bool const along = a == AlignClient ||
                       (vertical ? a == AlignTop || a == AlignBottom : a == AlignLeft || a == AlignRight);
    return along ? std::int64_t(vertical ? child->GetSize().cy : child->GetSize().cx) + 1 : 0;
}

void CBoxBase::Recalculate(bool vertical) {
    CVisualElement const* const changed = std::exchange(m_changed, nullptr);
    if (!m_control) return;
    if (m_sum >= 0 && changed && m_changedTerm >= 0) {
        m_sum += Term(changed, vertical) - m_changedTerm;
    } else {
        m_sum = 0;
        for (int i = 0, count = m_children->GetCount(); i < count; ++i)
            m_sum += Term(m_children->GetItem(i), vertical);
    }
    m_known = changed;
    m_knownTerm = changed ? Term(changed, vertical) : 0;
    size<int> s = m_size;
    (vertical ? s.cy : s.cx) = SaturatingInt(m_sum + m_padSize);
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
