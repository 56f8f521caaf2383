#include <mirelfrw7/core/control.h>
#include <mirelfrw7/layout/central_part.h>
#include <mirelfrw7/scroll/axis_mapping.h>

#include <cstdlib>

namespace mirelfrw7 {

CCentralPart::CCentralPart(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CScrollableElement(parent, elementSize, alignment) {
    m_centralPane = this;
    SetBkColor(ISysPalette::ColorBorder);
    SetFgColor(ISysPalette::ColorActiveCaption);
    Listen(m_control, true);
}

void CCentralPart::Listen(IControl* control, bool listen) {
    if (!control) return;
    if (listen)
        control->sigBeforeArrange.connect(this, &CCentralPart::StartRearrange);
    else
        control->sigBeforeArrange.disconnect(this, &CCentralPart::StartRearrange);
}

void CCentralPart::ProcessSetControl(IControl* control) {
    CScrollableElement::ProcessSetControl(control);
    Listen(m_control, false);
    Listen(control, true);
}

void CCentralPart::StartRearrange() {
    m_rearrangeRect = GetBounds();
    ElementToControl(&m_rearrangeRect);
}

// What the window shows of the element was drawn for its old place in the window: an ancestor's move
// carries the element along without a move of its own, and the pixels left behind are not its content.
void CCentralPart::SetPos(rectangle<int> const& newRect, bool force) {
    CScrollableElement::SetPos(newRect, force);
    rectangle<int> now = GetBounds();
    ElementToControl(&now);
    bool const moved = now.left != m_rearrangeRect.left || now.top != m_rearrangeRect.top;
    m_rearrangeRect = now;
    if (moved) OnChange(this, UpdateLocal);
}

bool CCentralPart::IsFullRepainted() const {
    return false;
}

bool CCentralPart::ScrollContent(int dx, int dy) {
    if (dx == 0 && dy == 0) return false;
    rectangle<int> v = m_validRect;
    if (std::abs(dx) >= v.Width() || std::abs(dy) >= v.Height()) {
        // Nothing on the screen stays right: the next paint draws everything.
        m_validRect = {v.left, v.top, v.left, v.top};
        return true;
    }
    rectangle<int> c = GetContentRect();
    if (dx < 0) {
        c.left -= dx;
        v.right += dx;
    } else {
        c.right -= dx;
        v.left += dx;
    }
    if (dy < 0) {
        c.top -= dy;
        v.bottom += dy;
    } else {
        c.bottom -= dy;
        v.top += dy;
    }
    ElementToControl(&c);
    if (m_control) m_control->ScrollContent(dx, dy, screen_rectangle<int>(c.Normalized()));
    m_validRect = v;
    return true;
}

void CCentralPart::FillCoordInfo(IPainter::CoordInfo* info) {
    if (!info) return;
    rectangle<int> const r = Truncated(GetDrawRect(nullptr));
    if (m_horzScroll) FillAlong({info->left, info->width, info->x, info->cx, r.left, r.right}, *m_horzScroll);
    if (m_vertScroll) FillAlong({info->top, info->height, info->y, info->cy, r.top, r.bottom}, *m_vertScroll);
}

void CCentralPart::SetCoordSystem(IPainter* painter) {
    if (!painter || !m_control || !m_horzScroll || !m_vertScroll) return;
    IPainter::MapMode mode;
    IPainter::CoordInfo info;
    painter->GetCoordSystem(mode, &info);
    mode = IPainter::MapElement;
    FillCoordInfo(&info);
    painter->SetCoordSystem(mode, &info);
}

void CCentralPart::SetCentralPane(CVisualElement*) {}

} // namespace mirelfrw7
