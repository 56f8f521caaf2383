#include <mirel7/custom_control_base.h>
#include <mirel7/sys_window_base.h>

namespace mirel7 {

CCustomControlBase::CCustomControlBase(CSysWindowBase& window) : m_window(&window) {
    m_sender.SetSupportedEvent(typeid(ICustomControlNotify));
    window.AddCustomControl(this);
}

CCustomControlBase::~CCustomControlBase() {
    if (m_window) m_window->RemoveCustomControl(this);
}

void CCustomControlBase::Move(int left, int top, int right, int bottom) {
    screen_rectangle<int> const rect = screen_rectangle<int>{left, top, right, bottom}.Normalized();
    if (rect == m_rect) return;
    Invalidate();
    m_rect = rect;
    OnCancel();
    Invalidate();
}

void CCustomControlBase::SetVisible(bool visible) {
    if (visible == m_visible) return;
    Invalidate();
    m_visible = visible;
    if (!visible) {
        OnCancel();
        if (m_window) m_window->ForgetCustomControl(this);
    }
    Invalidate();
}

void CCustomControlBase::SetEnabled(bool enabled) {
    if (enabled == m_enabled) return;
    m_enabled = enabled;
    if (!enabled) OnCancel();
    Invalidate();
}

void CCustomControlBase::SetFocus() {
    if (!m_window || HasFocus()) return;
    m_window->FocusCustomControl(this);
    m_window->SetFocus();
    Invalidate();
    ICustomControl* const self = this;
    m_sender.Fire(&ICustomControlNotify::CustomControlOnFocusIn, self);
}

bool CCustomControlBase::HasFocus() const {
    return m_window && m_window->GetFocusedCustomControl() == this;
}

void CCustomControlBase::Measure() {
    size<int> const natural = NaturalSize();
    Move(m_rect.left, m_rect.top, m_rect.left + natural.cx - 1, m_rect.top + natural.cy - 1);
}

bool CCustomControlBase::HitTest(point<int> const& at) const {
    return m_visible && at.x >= m_rect.left && at.x <= m_rect.right && at.y >= m_rect.top &&
           at.y <= m_rect.bottom;
}

void CCustomControlBase::Invalidate() {
    if (m_window && m_visible)
        m_window->Invalidate({m_rect.left, m_rect.top, m_rect.right + 1, m_rect.bottom + 1});
}

} // namespace mirel7
