#include <mirelfrw7/layout/scrolled.h>

#include <mirel7/events.h>

namespace mirelfrw7 {

namespace {
// Keeps a span of the element that must cover [0, view] of the window: a start past 0 goes back to 0, and
// then an end short of the view is pushed out to it.
void Cover(int& start, int& end, int view) {
    if (start > 0) {
        end -= start;
        start = 0;
    }
    if (end < view) {
        start += view - end;
        end = view;
    }
}
} // namespace

CScrolled::CScrolled(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CTransparentFlavor<CVisualElement>(parent, elementSize, alignment) {}

void CScrolled::SetPos(rectangle<int> const& newRect, bool force) {
    rectangle<int> const old = m_bounds;
    bool const resized = newRect.Width() != old.Width() || newRect.Height() != old.Height();
    // The base emits the signal whenever it arranges; a second one would tell of one move twice.
    bool const arranges = force || (resized && m_alignment != AlignNone && m_visible);
    CTransparentFlavor<CVisualElement>::SetPos(newRect, force);
    bool const scrolled = (newRect.Height() == old.Height() && newRect.top != old.top) ||
                          (newRect.Width() == old.Width() && newRect.left != old.left);
    if (scrolled && !arranges) sigPosChanged(this);
}

rectangle<int> CScrolled::GetDrawBounds() const {
    if (!m_clipToParent || !m_parent) return {};
    rectangle<int> r = m_parent->GetBounds();
    r.left -= m_bounds.left;
    r.right -= m_bounds.left;
    r.top -= m_bounds.top;
    r.bottom -= m_bounds.top;
    return r;
}

void CScrolled::DrawContent(IPainter* painter) {
    if (m_transparent) return;
    rectangle<int> r = GetBounds();
    if (m_clipToParent) r = r.Intersect(GetDrawBounds());
    painter->FillRect(rectangle<double>(r));
}

bool CScrolled::HandleKeyDown(int flags, int key) {
    if (!m_clipToParent) return false;
    int const page = GetDrawBounds().Height();
    bool const ctrl = (flags & mirel7::FlagControl) != 0;
    switch (key) {
    case 33:
        JumpVert(page);
        break;
    case 34:
        JumpVert(-page);
        break;
    case 35:
        ctrl ? GotoEnd() : GotoEndLine();
        break;
    case 36:
        ctrl ? GotoBegin() : GotoBeginLine();
        break;
    case 37:
        JumpHorz(10);
        break;
    case 38:
        JumpVert(10);
        break;
    case 39:
        JumpHorz(-10);
        break;
    case 40:
        JumpVert(-10);
        break;
    default:
        return false;
    }
    if (m_parent) m_parent->OnRearrange(m_parent);
    return true;
}

void CScrolled::JumpVert(int d) {
    rectangle<int> r = m_bounds;
    r.top += d;
    r.bottom += d;
    Cover(r.top, r.bottom, GetDrawBounds().Height());
    SetPos(r, false);
}

void CScrolled::JumpHorz(int d) {
    rectangle<int> r = m_bounds;
    r.left += d;
    r.right += d;
    Cover(r.left, r.right, GetDrawBounds().Width());
    SetPos(r, false);
}

void CScrolled::GotoBegin() {
    SetPos({m_bounds.left, 0, m_bounds.right, m_bounds.bottom - m_bounds.top}, false);
}

void CScrolled::GotoBeginLine() {
    SetPos({0, m_bounds.top, m_bounds.right - m_bounds.left, m_bounds.bottom}, false);
}

// The bottom edge comes to the last pixel of the window.
void CScrolled::GotoEnd() {
    int const delta = GetDrawBounds().bottom - m_size.cy - 1;
    if (delta < 0)
        SetPos({m_bounds.left, m_bounds.top + delta, m_bounds.right, m_bounds.bottom + delta}, false);
}

// Measured in the element's own coordinates, where its left edge is 0, like GotoEnd.
void CScrolled::GotoEndLine() {
    int const delta = GetDrawBounds().right - m_size.cx;
    if (delta < 0)
        SetPos({m_bounds.left + delta, m_bounds.top, m_bounds.right + delta, m_bounds.bottom}, false);
}

} // namespace mirelfrw7
