// A section dragged along its bar to a new place, with the bar scrolling near its ends.
#include <mirelfrw7/chart/bar.h>
#include <mirelfrw7/chart/caption_source.h>
#include <mirelfrw7/core/transparent_painter.h>
#include <mirelfrw7/items/display_scale.h>
#include <mirelfrw7/scroll/scroll_converter.h>
#include <mirelfrw7/scroll/scroll_model.h>

#include <algorithm>
#include <cmath>

namespace mirelfrw7 {

namespace {

// How near either end of the bar a drag scrolls it, before the display scale.
constexpr int ScrollZone = 10;
// The end of the bar's width that never starts a drag, where its outer edge or a scroll bar may lie.
constexpr int NoDragMargin = 4;

// Moves lo..hi, keeping its length, back inside least..most; the far end wins when it does not fit.
void KeepInside(int& lo, int& hi, int least, int most) {
    if (lo < least) hi += least - lo, lo = least;
    if (hi > most) lo -= hi - most, hi = most;
}

} // namespace

int CBar::DropIndexOf(BarHit const& hit) const {
    int const count = Count();
    int index = hit.kind == BarHit::Before  ? 0
                : hit.kind == BarHit::After ? count
                // A border belongs to the section before it: the drop falls after that one.
                : hit.kind == BarHit::Border ? hit.index + 1
                : hit.firstHalf              ? hit.index
                                             : hit.index + 1;
    return std::clamp(index, 0, count);
}

bool CBar::HandleStartDragging(int x, int y, DragInfo& info) {
    if (!(m_dragFlags & 3) || m_mouseState == ResizingSection || m_mouseState == ResizingBar) return false;
    // Only a single section is dragged.
    if (m_selection.GetCount() + m_rangeSelection.GetCount() > 1) return false;
    if (x > GetBounds().Width() - NoDragMargin) return false;
    point<int> p{x, y};
    ElementToControl(&p);
    BarHit const hit = HitTest(p);
    if (hit.index >= Count()) return false;
    m_dragSection = hit.index;
    if (hit.index < 0) return false;
    info.rect = BarToElement(GetSectionRect(hit.index));
    return true;
}

void CBar::HandleDragFinished(CVisualElement*, DragInfo&) {
    m_dropIndex = m_dragSection = -1;
    m_scrollTimer.Stop();
}

void CBar::HandleDrawDragItem(IPainter* painter, DragInfo& info, bool, CVisualElement*) {
    if (m_dragSection < 0) return;
    rectangle<int> r = info.rect;
    if (m_dragFlags & 2) {
        KeepInside(GetAlongRef(r.left, r.top), GetAlongRef(r.right, r.bottom), m_alongStart, m_alongEnd);
        KeepInside(GetAcrossRef(r.left, r.top), GetAcrossRef(r.right, r.bottom), m_acrossStart, m_acrossEnd);
    }
    CTransparentPainter const layer(painter, r, 255 - m_dragAlpha);
    IPainter* const image = layer.GetPainter();
    if (!image) return;
    image->SetFont(painter->GetFont());
    CFontHolder const font(image, *this);
    brush fill;
    fill.color = GetBkColor();
    image->SetBrush(fill);
    image->FillRect(rectangle<double>(0, 0, r.Width(), r.Height()));
    DrawSection(image, rectangle<int>(0, 0, r.Width(), r.Height()), m_dragSection,
                m_selection.IsSelected(m_dragSection) || m_rangeSelection.IsSelected(m_dragSection));
}

bool CBar::HandleDragOver(CVisualElement* source, int x, int y, DragInfo&) {
    if (source != this) return false;
    point<int> p{x, y};
    ElementToControl(&p);
    m_dragPos = int(AlongOf(p));
    // Only the place along the bar counts: across, the point is moved into the middle of the bar.
    rectangle<double> const axis = GetAxisRect(nullptr);
    GetAcrossRef(p.x, p.y) = int((GetAcross(axis.left, axis.top) + GetAcross(axis.right, axis.bottom)) / 2);
    m_dropIndex = DropIndexOf(HitTest(p));
    int const zone = DisplayScaled(ScrollZone);
    bool const visible = m_alongStart <= m_dragPos && m_dragPos < m_alongEnd;
    if (visible && m_dragPos >= m_alongEnd - zone)
        m_scrollTimer.Start(true);
    else if (visible && m_dragPos < m_alongStart + zone)
        m_scrollTimer.Start(false);
    else
        m_scrollTimer.Stop();
    return true;
}

void CBar::OnSigTimerTick(CScrollTimer*) {
    IScrollModel* const model = GetScrollModel();
    if (m_dragSection < 0 || !model) return;
    CScrollConverter const converter(model);
    double const value = converter.P2L(int(m_dragPos + converter.L2P(model->GetStart())));
    m_dropIndex = std::clamp(int(std::lround(value)), 0, Count());
}

void CBar::HandleDropDone(CVisualElement* source, int, int, DragInfo&) {
    if (source != this || m_dragSection < 0 || m_dropIndex < 0) return;
    int const from = m_dragSection;
    // The section leaves its old place first.
    int const to = from < m_dropIndex ? m_dropIndex - 1 : m_dropIndex;
    if (from == to) return;
    if (m_selection.IsSelected(from) || m_rangeSelection.IsSelected(from)) {
        m_selection.Clear();
        m_rangeSelection.Clear();
        m_selection.SelectItem(to);
        m_anchor = -1;
    }
    sigReorder(this, from, to);
}

} // namespace mirelfrw7
