#include <mirelfrw7/core/control.h>
#include <mirelfrw7/layout/container.h>
#include <mirelfrw7/layout/insets.h>

#include <mirel7/event_sender.h>
#include <mirel7/sys_window.h>

#include <algorithm>

namespace mirelfrw7 {

CContainer::CContainer(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CVisualElement(parent, elementSize, alignment) {}

// A native control that outlives its container must not stay on the window where nothing holds it.
CContainer::~CContainer() {
    if (m_native) m_native->SetVisible(false);
    Attach(false);
}

void CContainer::Attach(bool attach) {
    if (!m_native) return;
    mirel7::IEventSender* const sender = m_native->GetEventSender();
    if (!sender) return;
    if (attach)
        sender->Subscribe<mirel7::ICustomControlNotify>(this);
    else
        sender->Unsubscribe(this, typeid(mirel7::ICustomControlNotify));
}

void CContainer::FitControlPos(rectangle<int> const&) {}

void CContainer::SetPos(rectangle<int> const& newRect, bool force) {
    CVisualElement::SetPos(newRect, force);
    if (!m_manualPositioning) UpdateControlPos();
}

rectangle<int> CContainer::GetContentRect() const {
    return Inset(GetBounds().Normalized(), m_offset);
}

void CContainer::SetEnabled(bool enabled) {
    if (m_native) m_native->SetEnabled(enabled);
    CVisualElement::SetEnabled(enabled);
}

void CContainer::DrawContent(IPainter* painter) {
    painter->FillRect(rectangle<double>(GetBounds()));
    ProcessNeedToShow();
}

void CContainer::AttributeChanged() {
    if (m_native) m_native->Measure();
    CVisualElement::AttributeChanged();
    // Measuring took the control's natural size; the container still decides where it goes.
    if (!m_manualPositioning) UpdateControlPos();
}

void CContainer::ProcessSetVisible(bool) {
    CheckVisible();
}

void CContainer::ProcessSetParentVisible(bool) {
    CheckVisible();
}

void CContainer::HandleGetFocus(CVisualElement*, bool) {
    if (m_native && !m_takingFocus && !m_native->HasFocus()) m_native->SetFocus();
}

void CContainer::HandleLostFocus(CVisualElement* next) {
    mirel7::ISysWindow* const window = m_control ? m_control->GetWindow() : nullptr;
    if (window && next && window->HasFocus()) window->SetFocus();
}

void CContainer::HandleControlDestroy() {
    Attach(false);
    m_native.reset();
    m_needToShow = false;
}

void CContainer::HandleRefreshPos() {
    if (!m_manualPositioning) UpdateControlPos();
}

std::string CContainer::HandleAsString() const {
    return m_native ? m_native->AsString() : std::string();
}

void CContainer::CustomControlOnFocusIn(mirel7::ICustomControl* control) {
    ControlFocusIn(control);
}

void CContainer::SetNativeControl(mirel7::ICustomControl* control) {
    Attach(false);
    m_native = control;
    m_needToShow = false;
    if (!m_native) return;
    Attach(true);
    m_native->SetVisible(IsDisplayable());
    UpdateControlPos();
}

void CContainer::UpdateControlPos() {
    if (!m_native) return;
    rectangle<int> r = GetContentRect();
    if (!GetDisplayableRect(&r)) {
        m_native->SetVisible(false);
        m_needToShow = false;
        return;
    }
    ElementToControl(&r);
    r.left = std::max(r.left, 0);
    m_controlPosition = r;
    rectangle<int> const n = r.Normalized();
    m_native->Move(n.left, n.top, n.right, n.bottom);
    FitControlPos(m_controlPosition);
    m_needToShow = !m_native->IsVisible();
}

void CContainer::SetOffset(rectangle<int> const& offset) {
    if (offset == m_offset) return;
    m_offset = offset;
    SetPos(m_bounds, false);
}

void CContainer::FitHeight() {
    if (!m_native) return;
    m_native->Measure();
    SetHeight(m_native->GetRect().Height() + m_offset.top - m_offset.bottom, false);
}

void CContainer::FitWidth() {
    if (!m_native) return;
    m_native->Measure();
    SetWidth(m_native->GetRect().Width() + m_offset.left - m_offset.right, false);
}

void CContainer::ProcessNeedToShow() {
    if (!m_needToShow || !m_native) return;
    m_native->SetVisible(true);
    m_needToShow = false;
}

void CContainer::CheckVisible() {
    if (!m_native) return;
    if (!IsDisplayable()) {
        m_native->SetVisible(false);
        m_needToShow = false;
        return;
    }
    UpdateControlPos();
    // The showing waits for a paint of the container, which must therefore come.
    if (m_needToShow) OnChange(this, UpdateLocal);
}

void CContainer::ControlFocusIn(mirel7::ICustomControl*) {
    if (m_takingFocus) return;
    m_takingFocus = true;
    // A slot may end the event with an exception: the flag must not outlive it.
    struct SClear {
        bool& flag;
        ~SClear() { flag = false; }
    } const clear{m_takingFocus};
    SetFocus(false);
}

} // namespace mirelfrw7
