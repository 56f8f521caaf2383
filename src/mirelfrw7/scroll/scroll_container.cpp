#include <mirelfrw7/core/clip_holder.h>
#include <mirelfrw7/core/control.h>
#include <mirelfrw7/scroll/scroll_container.h>

#include <algorithm>
#include <optional>

namespace mirelfrw7 {

using CCentralPart = CScrollContainer::CCentralPart;

CCentralPart::CCentralPart(CScrollContainer* box, size<int> const& elementSize, Alignment alignment)
    : CScrollableElement(box, elementSize, alignment), m_box(box) {
    sigButtonDown.connect(this, &CCentralPart::HandlePaneButtonDown);
    box->sigPaint.connect(this, &CCentralPart::OnBoxPaint);
}

void CCentralPart::OnBoxPaint(CVisualElement*, IPainter*) {
    m_fullRepaint = true;
}

double CCentralPart::GetHorzTo() const {
    return m_scrolled && m_horzStep != 0 ? m_scrolled->GetSize().cx + 1 : 0.0;
}

double CCentralPart::GetVertTo() const {
    return m_scrolled && m_vertStep != 0 ? m_scrolled->GetSize().cy + 1 : 0.0;
}

double CCentralPart::GetHorzStart() const {
    return m_scrolled ? -m_scrolled->GetPosition().left : 0.0;
}

double CCentralPart::GetVertStart() const {
    return m_scrolled ? -m_scrolled->GetPosition().top : 0.0;
}

namespace {
// A start that keeps the view covered where the content allows: content that ends above the view's end
// lines up with it.
double Clamp(double start, double to, int view) {
    if (view > to - start) start = to > view ? int(to - view) : 0;
    return std::max(0.0, start);
}
} // namespace

void CCentralPart::SetVertStart(double start) {
    double const v = Clamp(start, GetVertTo(), GetBounds().Height());
    if (!m_scrolled || v == GetVertStart()) return;
    rectangle<int> r = m_scrolled->GetPosition();
    int const height = r.bottom - r.top;
    r.top = int(-v);
    r.bottom = int(height - v);
    m_scrolled->SetPos(r, false);
    m_box->RepaintAtOnce();
}

void CCentralPart::SetHorzStart(double start) {
    double const h = Clamp(start, GetHorzTo(), GetBounds().Width());
    if (!m_scrolled || h == GetHorzStart()) return;
    rectangle<int> r = m_scrolled->GetPosition();
    int const width = r.right - r.left;
    r.left = int(-h);
    r.right = int(width - h);
    m_scrolled->SetPos(r, false);
    m_box->RepaintAtOnce();
}

void CCentralPart::SetPos(rectangle<int> const& newRect, bool force) {
    CScrollableElement::SetPos(newRect, force);
    if (!m_scrolled) return;
    rectangle<int> const view = GetBounds();
    if (m_fitMode == FitWidth) m_scrolled->SetWidth(view.Width() - 1, false);
    if (m_fitMode == FitHeight) m_scrolled->SetHeight(view.Height() - 1, false);
    auto const place = [](double start, double to, int view) {
        if (to - start >= view) return int(-start);
        return to > view ? int(view - to) : 0;
    };
    int const x = place(GetHorzStart(), GetHorzTo(), view.Width());
    int const y = place(GetVertStart(), GetVertTo(), view.Height());
    size<int> const s = m_scrolled->GetSize();
    m_scrolled->SetPos({x, y, x + s.cx, y + s.cy}, force);
}

void CCentralPart::OnDraw(IPainter* painter) {
    rectangle<int> const b = GetBounds();
    if (!painter || b.Width() < 1 || b.Height() < 1 || !IsVisible()) return;
    std::optional<CClipHolder> clip;
    if (m_scrolled) clip.emplace(painter, rectangle<double>(b.left, b.top, b.right, b.bottom));
    if (!m_fullRepaint && !m_dirty.IsEmpty() && !painter->NeedsFullRepaint()) {
        m_dirty.Reduce();
        DrawElements(&m_dirty, painter, {});
    } else {
        CScrollableElement::OnDraw(painter);
    }
    m_dirty.Clear();
    m_fullRepaint = false;
}

void CCentralPart::ProcessChange(CVisualElement** target) {
    if (*target == this) {
        m_dirty.Clear();
        m_fullRepaint = true;
    } else if (!m_fullRepaint) {
        m_dirty.AddElement(*target);
    }
    *target = this;
}

bool CCentralPart::BeforeProcessChange(CVisualElement* element, UpdateType type) {
    if (!(type & UpdateLeaving)) return true;
    // Whatever of the leaving subtree waits here would outlive it.
    for (int i = 0; i < m_dirty.GetCount(); ++i)
        if (IsAncestor(m_dirty.GetItem(i), element)) m_dirty.RemoveElement(m_dirty.GetItem(i--));
    return false;
}

void CCentralPart::DrawContent(IPainter* painter) {
    rectangle<int> const b = GetBounds();
    if (!m_fillMarginsOnly || !m_scrolled) {
        painter->FillRect(b.left, b.top, b.right, b.bottom);
        return;
    }
    rectangle<int> const c = m_scrolled->GetPosition();
    if (c.top > b.top) painter->FillRect(b.left, b.top, b.right, c.top);
    if (c.bottom < b.bottom) painter->FillRect(b.left, c.bottom, b.right, b.bottom);
    if (c.left > b.left) painter->FillRect(b.left, c.top, c.left, c.bottom);
    if (c.right < b.right) painter->FillRect(c.right, c.top, b.right, c.bottom);
}

bool CCentralPart::ScrollContent(int, int) {
    // The content moved with its rectangle already; a blit would move it twice.
    RefreshPos();
    return false;
}

void CCentralPart::HandleChildFocusChanged(CVisualElement* element, CVisualElement* other, bool gotFocus) {
    CScrollableElement::HandleChildFocusChanged(element, other, gotFocus);
    if (gotFocus) ChildToParentView(element);
}

void CCentralPart::ChildToParentView(CVisualElement* child) {
    if (!child || child->GetControl() != m_control) return;
    rectangle<int> c = child->GetBounds();
    child->ElementToControl(&c);
    ControlToElement(&c);
    rectangle<int> const view = GetBounds();
    if (c.Width() > view.Width() || c.Height() > view.Height()) return;
    if (c.left < view.left || c.right > view.right) {
        int const dx = c.left < view.left ? view.left - c.left : view.right - c.right;
        if (m_horzScroll) m_horzScroll->SetStart(GetHorzStart() - dx);
    }
    if (c.top < view.top || c.bottom > view.bottom) {
        int const dy = c.top < view.top ? view.top - c.top : view.bottom - c.bottom;
        if (m_vertScroll) m_vertScroll->SetStart(GetVertStart() - dy);
    }
}

void CCentralPart::HandlePaneButtonDown(CVisualElement*, int, int, int, MouseButton button) {
    if (!(button & 1) || !m_control) return;
    if (IsAncestor(m_control->GetFocusedElement(), this)) return;
    CVisualElement* last = nullptr;
    for (CVisualElement* e = GetFirstTabElement(); e; e = e->GetFirstTabElement()) {
        if (e == last) break;
        last = e;
    }
    if (last) last->SetFocus(true);
}

void CCentralPart::SetSteps(int horz, int vert) {
    m_horzStep = horz;
    m_vertStep = vert;
    m_box->RefreshScroll();
}

void CCentralPart::SetFitMode(FitMode mode) {
    m_fitMode = mode;
    SetPos(m_bounds, true);
}

CScrollContainer::CScrollContainer(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CScrollBox(parent, elementSize, alignment), m_part(this, {12, 12}, AlignClient) {
    sigWheelStep.connect(this, &CScrollContainer::GetWheelStepSize);
    SetVertScroll(static_cast<IVertPhysicalScrollModel*>(&m_part));
    SetHorzScroll(static_cast<IHorzPhysicalScrollModel*>(&m_part));
    m_part.SetVertScroll(&m_vertWrapper);
    m_part.SetHorzScroll(&m_horzWrapper);
    SetCentralPane(&m_part);
}

void CScrollContainer::SetScrolled(CVisualElement* element) {
    if (CVisualElement* const old = m_part.GetScrolled()) {
        old->sigPosChanged.disconnect(this, &CScrollContainer::OnScrolledResized);
        m_part.SetScrolledElement(nullptr);
        old->ReParent(nullptr, true);
    }
    if (element) {
        element->ReParent(&m_part, true);
        element->SetAlignment(AlignNone);
        m_part.SetScrolledElement(element);
        element->sigPosChanged.connect(this, &CScrollContainer::OnScrolledResized);
    }
    m_vertWrapper.SetStart(0);
    m_horzWrapper.SetStart(0);
    RefreshScroll();
}

void CScrollContainer::GetWheelStepSize(CVisualElement* element, int& step) {
    if (element) step = element->GetTextLineHeight();
}

void CScrollContainer::OnScrolledResized(CVisualElement*) {
    RefreshScroll();
}

} // namespace mirelfrw7
