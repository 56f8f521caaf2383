#include <mirelfrw7/core/control.h>
#include <mirelfrw7/header/header.h>

#include <mirel7/sys_window.h>

#include <algorithm>

namespace mirelfrw7 {

namespace {

constexpr int DefaultCursor = 1;
constexpr int ResizeCursor = 9;

} // namespace

bool CHeader::HandleButtonDown(int x, int y, int flags, MouseButton button) {
    if (mirel7::ISysWindow* const window = m_control ? m_control->GetWindow() : nullptr)
        window->HideTooltip();
    HitTestResult const hit = HitTest(x, y);
    if (button != mirel7::ButtonLeft || hit.type == 0) return hit.type != 0;
    // A press whose button came up unseen ends here: its pressed look, and its hosted element's shift, go.
    if (m_processing.type == 3) {
        m_processing.Clear();
        UpdateElementsPos();
        OnChange(this, UpdateLocal);
    }
    CaptureMouse();
    m_processing.item = hit.item;
    m_processing.index = m_items.IndexOf(hit.item);
    int type = hit.type;
    // Without the resize bit an edge is part of its section.
    if (type == 3 && !(m_style & 1)) type = 1;
    if (type == 3) {
        // A group's edge is its last column's.
        m_processing.item = LastLeaf(hit.item);
        m_processing.index = m_items.IndexOf(m_processing.item);
        m_processing.type = 1;
        if (GetAlignment() != AlignLeft) m_processing.anchor = int(GetItemRect(m_processing.item).left);
    } else if (type == 1) {
        if (!(m_style & 2)) return true;
        m_processing.anchor = x;
        bool allow = true;
        sigSectionPressing(this, hit.item, &allow);
        if (!allow) {
            HandleButtonUp(x, y, flags, mirel7::ButtonLeft);
            return true;
        }
        m_processing.type = 3;
        // The pressed look shifts the section's content, the hosted element with it.
        UpdateElementsPos();
        OnChange(this, UpdateLocal);
    } else {
        ExpandItem(hit.item, hit.item->GetExpandState() == HeaderItemCollapsed);
        HitTestResult again = HitTest(x, y);
        ProcessHotSection(again);
    }
    return true;
}

void CHeader::ResizeTo(int x, int y) {
    int const index = m_processing.index;
    if (index < 0) return;
    int const width = std::max(x - m_processing.anchor, m_minSectionWidth);
    if (width == GetItemSize(index)) return;
    IHeaderItem* const item = m_processing.item;
    bool allow = true;
    sigSectionResizing(this, item, width, &allow);
    if (!allow) {
        SetCursor(DefaultCursor);
        HandleButtonUp(x, y, 0, mirel7::ButtonLeft);
        return;
    }
    SetItemSize(index, width);
    OnChange(this, UpdateLocal);
    sigSectionResized(this, item, GetItemSize(index));
}

bool CHeader::HandleMouseMove(int x, int y, int flags, MouseButton) {
    if (!IsEnabled()) return false;
    if (m_processing.type != 0) {
        if (!(flags & 1)) {
            // The button came up unseen: the press ends without a click, but not without its look.
            bool const pressed = m_processing.type == 3;
            if (pressed) m_processing.type = 0;
            HandleButtonUp(x, y, flags, mirel7::ButtonLeft);
            if (pressed) OnChange(this, UpdateLocal);
            return true;
        }
        if (m_processing.type == 1) ResizeTo(x, y);
        if (m_processing.type == 3) m_processing.anchor = x;
        return true;
    }
    HitTestResult const hit = HitTest(x, y);
    SetCursor(hit.type == 3 && (m_style & 1) ? ResizeCursor : DefaultCursor);
    ProcessHotSection(hit);
    return hit.type != 0;
}

bool CHeader::HandleButtonUp(int, int, int, MouseButton button) {
    IHeaderItem* clicked = nullptr;
    if (button == mirel7::ButtonLeft) {
        if (m_processing.type == 3) clicked = m_processing.item;
        if (m_processing.type != 2) m_processing.Clear();
    }
    // Whichever way the press ended, a move without the button included, the hosted elements go back.
    UpdateElementsPos();
    ReleaseMouse();
    // Last: a slot may change the tree or let go of the header.
    if (clicked) {
        OnChange(this, UpdateLocal);
        sigSectionPressed(this, clicked);
    }
    return true;
}

bool CHeader::HandleDoubleClick(int x, int y, int, MouseButton button) {
    if (button != mirel7::ButtonLeft) return false;
    HitTestResult const hit = HitTest(x, y);
    if (hit.type != 3) return hit.type != 0;
    sigSectionEdgeDoubleClicked(this, LastLeaf(hit.item));
    return true;
}

void CHeader::HandleMouseLeave(CVisualElement* next) {
    CScrollableElementEx::HandleMouseLeave(next);
    ProcessHotSection({});
}

bool CHeader::ProcessHotSection(HitTestResult const& hit) {
    IHeaderItem* const item = hit.type != 0 ? hit.item : nullptr;
    int const state = !item ? HeaderSectionNormal : hit.type == 2 ? HeaderButtonHot : HeaderSectionHot;
    if (item == m_hotItem && state == m_processing.hotState) return false;
    m_hotItem = item;
    m_processing.hotState = state;
    Update(UpdateLocal);
    return true;
}

bool CHeader::HandleOnTooltip(mirel7::CTooltipEvent* ev) {
    HitTestResult const hit = HitTest(ev->x, ev->y);
    if (!hit.item) return false;
    screen_rectangle<int> const itemRect(hit.rect);
    screen_rectangle<int> tipRect(hit.rect);
    std::string text;
    SetHeaderTooltip(ev->x, ev->y, hit.item, itemRect, tipRect, text);
    if (text.empty()) return false;
    ev->text = text;
    ev->rect = rectangle<int>(tipRect);
    return true;
}

void CHeader::SetHeaderTooltip(int, int, IHeaderItem*, screen_rectangle<int> const&, screen_rectangle<int>&,
                               std::string&) {}

// --- Reordering -------------------------------------------------------------------------------------------

rectangle<double> CHeader::GetDraggingBounds(IHeaderItem* item) const {
    if (IHeaderItem* const parent = item ? item->GetParent() : nullptr) return GetItemRect(parent);
    return rectangle<double>(m_dragBounds.IsAllZero() ? GetBounds() : m_dragBounds);
}

std::vector<double> CHeader::GetSiblingEdges(IHeaderItem* item) const {
    IHeaderItem* const parent = item->GetParent();
    rectangle<double> const span = parent ? GetItemRect(parent) : GetHeaderRect();
    int const count = GetSiblingCount(item);
    std::vector<double> edges{span.left};
    for (int i = 0; i < count; ++i) {
        IHeaderItem* const sibling = parent ? parent->GetChild(i) : m_model->GetItem(i);
        edges.push_back(edges.back() + GetSectionWidth(sibling));
    }
    // A stretched last sibling reaches its parent's end.
    if (m_lastItemExpanded && count > 0) edges.back() = std::max(edges.back(), span.right + 1);
    return edges;
}

int CHeader::GetDragDropIndex(int x, int, IHeaderItem* item, rectangle<double> const& bounds) const {
    if (!item) return -1;
    int const count = GetSiblingCount(item);
    if (x >= bounds.right) return count;
    if (x <= bounds.left) return 0;
    // The sibling whose span holds x, on whatever row the pointer is: a drop never leaves the parent.
    std::vector<double> const edges = GetSiblingEdges(item);
    for (int i = 0; i < count; ++i)
        if (x >= edges[i] && x < edges[i + 1]) return i + (x > (edges[i] + edges[i + 1] - 1) / 2 ? 1 : 0);
    return count;
}

void CHeader::CheckScroll(int x) {
    rectangle<int> const b = GetBounds();
    if (x < b.left)
        StartScrolling(1, ScrollBackward, false);
    else if (x > b.right)
        StartScrolling(1, ScrollForward, false);
    else
        StopScrolling(1);
}

bool CHeader::HandleStartDragging(int x, int y, DragInfo& info) {
    if (!(m_style & 4) || m_processing.type == 1 || !m_model) return false;
    HitTestResult const hit = HitTest(x, y);
    if (hit.type != 1) return false;
    m_processing.type = 2;
    m_processing.item = hit.item;
    m_processing.index = m_items.IndexOf(hit.item);
    // A drag ends the press it grew out of.
    UpdateElementsPos();
    m_dropIndex = -1;
    info.rect = hit.rect;
    info.limits = rectangle<int>(GetDraggingBounds(hit.item));
    info.data = GetSiblingIndex(hit.item);
    OnChange(this, UpdateLocal);
    return true;
}

bool CHeader::HandleDragOver(CVisualElement* source, int x, int y, DragInfo&) {
    if (source != this || m_processing.type != 2) return false;
    IHeaderItem* const item = m_processing.item;
    int const to = GetDragDropIndex(x, y, item, GetDraggingBounds(item));
    CheckScroll(x);
    if (to != m_dropIndex) {
        m_dropIndex = to;
        Update(UpdateLocal);
    }
    return true;
}

void CHeader::EndDrag() {
    StopScrolling(1);
    if (m_processing.type == 2) m_processing.Clear();
    m_dropIndex = -1;
    Update(UpdateLocal);
}

void CHeader::HandleDropDone(CVisualElement* source, int x, int y, DragInfo&) {
    StopScrolling(1);
    if (source != this || m_processing.type != 2) return;
    IHeaderItem* const item = m_processing.item;
    int const to = GetDragDropIndex(x, y, item, GetDraggingBounds(item));
    int const from = GetSiblingIndex(item);
    EndDrag();
    if (to >= 0) sigSectionMoved(this, item, from, to);
}

void CHeader::HandleDragFinished(CVisualElement*, DragInfo&) {
    EndDrag();
}

void CHeader::HandleDrawDragItem(IPainter* painter, DragInfo& info, bool, CVisualElement*) {
    if (m_processing.type != 2 || !m_processing.item) return;
    DrawSection(painter, m_processing.item, rectangle<double>(info.rect), m_visualisation);
}

} // namespace mirelfrw7
