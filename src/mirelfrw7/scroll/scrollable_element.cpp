#include <mirelfrw7/items/saturating_int.h>
#include <mirelfrw7/scroll/scroll_model.h>
#include <mirelfrw7/scroll/scrollable_element.h>

#include <mirel7/system.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace mirelfrw7 {

// --- ScrollCondition ---------------------------------------------------------------------------------------

namespace {
mirel7::ISystem::ICursorState* CursorState() {
    mirel7::ISystem* const system = mirel7::GetCurrentSystem();
    return system ? system->GetCursorState() : nullptr;
}
} // namespace

void CScrollableElement::ScrollCondition::Init(ScrollDirection direction, bool conditional) {
    m_direction = direction;
    m_conditional = conditional;
    if (!conditional) return;
    if (mirel7::ISystem::ICursorState* const cursor = CursorState()) {
        point<int> const at = cursor->GetPosition();
        m_x = at.x;
        m_y = at.y;
    }
}

void CScrollableElement::ScrollCondition::Clear() {
    m_direction = ScrollDirection(0);
    m_conditional = false;
}

bool CScrollableElement::ScrollCondition::ScrollIsPossible() const {
    if (!m_conditional) return true;
    mirel7::ISystem::ICursorState* const cursor = CursorState();
    if (!cursor) return true;
    point<int> const at = cursor->GetPosition();
    return std::abs(std::int64_t(at.x) - m_x) < 3 && std::abs(std::int64_t(at.y) - m_y) < 3;
}

// --- CScrollableElement ------------------------------------------------------------------------------------

CScrollableElement::CScrollableElement(CVisualElement* parent, size<int> const& elementSize,
                                       Alignment alignment)
    : CVisualElement(parent, elementSize, alignment), CRepeatableOperation(100) {}

void CScrollableElement::SetCentralPane(CVisualElement* pane) {
    m_centralPane = pane;
}

void CScrollableElement::SetVertScroll(IScrollModel* model) {
    m_vertScroll = model;
}

void CScrollableElement::SetHorzScroll(IScrollModel* model) {
    m_horzScroll = model;
}

void CScrollableElement::StartScrolling(int type, ScrollDirection direction, bool conditional) {
    if (type & (m_scrolling == 0 ? 1 : 0)) {
        m_scrolling |= type;
        if (type == 1) m_horzCondition.Init(direction, conditional);
        if (type == 2) m_vertCondition.Init(direction, conditional);
    }
    StartRepeating();
}

void CScrollableElement::StopScrolling(int type) {
    if (!(type & m_scrolling)) return;
    m_scrolling &= ~type;
    StopRepeating();
    if (type == 1) m_horzCondition.Clear();
    if (type == 2) m_vertCondition.Clear();
}

void CScrollableElement::ProcessRepeatOperation() {
    DoScroll(m_scrolling & 1, m_horzCondition.GetDirection());
    DoScroll(m_scrolling & 2, m_vertCondition.GetDirection());
}

void CScrollableElement::DoScroll(int type, ScrollDirection direction) {
    ScrollCondition const* const condition = type == 1   ? &m_horzCondition
                                             : type == 2 ? &m_vertCondition
                                                         : nullptr;
    IScrollModel* const model = type == 1 ? m_horzScroll : m_vertScroll;
    if (!condition || !condition->ScrollIsPossible() || !model) {
        StopScrolling(type);
        return;
    }
    // 8 logical units a tick whatever the scale; the end of the range is still reached exactly.
    double start;
    if (direction == ScrollForward) {
        start = model->GetStart() + 8.0;
        if (start > model->GetTo()) {
            start = model->GetTo();
            StopScrolling(type);
        }
    } else {
        start = model->GetStart() - 8.0;
        if (model->GetFrom() > start) {
            start = model->GetFrom();
            StopScrolling(type);
        }
    }
    model->SetStart(start);
}

bool CScrollableElement::ScrollContent(int dx, int dy) {
    switch (GetAlignment()) {
    case AlignTop:
    case AlignBottom:
        return dx != 0;
    case AlignLeft:
    case AlignRight:
        return dy != 0;
    default:
        return dx != 0 || dy != 0;
    }
}

rectangle<int> CScrollableElement::GetCentralRect() const {
    if (!m_centralPane) return {};
    rectangle<int> r = m_centralPane->GetContentRect();
    m_centralPane->ElementToControl(&r);
    return r;
}

double CScrollableElement::AddStepsInfo(double value, IScrollModel* model) const {
    if (!model || model->IsFixedStepSize()) return value;
    double const base = SaturatingInt(model->GetFrom());
    if (base > value) return value;
    double rest = value - base;
    if (SaturatingInt(rest) < 1) return base + rest;
    // The whole steps from the base on, then what is left of the value.
    int const steps = SaturatingInt(std::min(std::floor(rest), double(INT_MAX) - base));
    return base + model->GetStepsSize(int(base), int(base) + steps) + (rest - steps);
}

double CScrollableElement::DelStepsInfo(double value, IScrollModel* model) const {
    if (!model || model->IsFixedStepSize()) return value;
    double const base = SaturatingInt(model->GetStart());
    if (base > value) return value;
    double rest = value - base;
    if (SaturatingInt(rest) < 1) return base + rest;
    int const stop = model->PassSteps(int(base), INT_MAX, &rest);
    return stop + rest;
}

} // namespace mirelfrw7
