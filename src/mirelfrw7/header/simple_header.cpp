#include <mirelfrw7/core/clip_holder.h>
#include <mirelfrw7/core/control.h>
#include <mirelfrw7/header/section_painting.h>
#include <mirelfrw7/header/simple_header.h>
#include <mirelfrw7/header/simple_header_model.h>
#include <mirelfrw7/items/display_scale.h>
#include <mirelfrw7/items/item_view_model.h>

#include <mirel7/sys_window.h>

#include <algorithm>

namespace mirelfrw7 {

namespace {

constexpr int DefaultCursor = 1;
constexpr int UpDownCursor = 7;
constexpr int LeftRightCursor = 9;
// How near the end of a section its divider lies, and how far from the header's end the last one is found.
constexpr int DividerWidth = 6;
constexpr int EndSlack = 3;

} // namespace

CSimpleHeader::CSimpleHeader(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CScrollableElementEx(parent, elementSize, alignment), m_minSectionWidth(DisplayScaled(15)) {
    SetTextConversion(true);
}

// The header draws in its own pixels, whatever the scroll model along it maps.
void CSimpleHeader::SetCoordSystem(IPainter*) {}

void CSimpleHeader::SetModel(ISimpleHeaderModel* model) {
    if (m_model) m_model->sigItemsChanged.disconnect(this, &CSimpleHeader::OnUpdateModel);
    m_model = model;
    if (m_model) m_model->sigItemsChanged.connect(this, &CSimpleHeader::OnUpdateModel);
    OnUpdateModel();
}

void CSimpleHeader::SetViewModel(IBaseItemViewModel* viewModel) {
    if (m_viewModel) m_viewModel->sigModelChanged.disconnect(this, &CSimpleHeader::OnUpdateModel);
    m_viewModel = viewModel;
    if (m_viewModel) m_viewModel->sigModelChanged.connect(this, &CSimpleHeader::OnUpdateModel);
    OnUpdateModel();
}

void CSimpleHeader::OnUpdateModel() {
    OnChange(this, UpdateLocal);
}

void CSimpleHeader::SetMinimalSectionWidth(int width) {
    m_minSectionWidth = std::max(width, DisplayScaled(15));
}

void CSimpleHeader::SetStyle(unsigned style) {
    if (style == m_style) return;
    m_style = style;
    OnChange(this, UpdateLocal);
}

void CSimpleHeader::ExpandLastSection(bool expanded) {
    if (m_viewModel || expanded == m_lastSectionExpanded) return;
    m_lastSectionExpanded = expanded;
    OnChange(this, UpdateLocal);
}

// --- Sections ---------------------------------------------------------------------------------------------

int CSimpleHeader::GetSectionCount() const {
    if (m_viewModel) return m_viewModel->GetCount();
    return m_model ? m_model->GetItemCount() : 0;
}

int CSimpleHeader::GetItemWidth(int index) const {
    if (m_viewModel) return m_viewModel->GetItemSize(index);
    return m_model ? m_model->GetItemWidth(index) : 0;
}

bool CSimpleHeader::IsLastSectionExpanded() const {
    return m_viewModel ? m_viewModel->IsLastItemExpanded() : m_lastSectionExpanded;
}

int CSimpleHeader::CalcItemWidth(int index, double start, double end) const {
    int const width = GetItemWidth(index) - 1;
    if (index == GetSectionCount() - 1 && IsLastSectionExpanded() && end > start + width)
        return int(end - start);
    return width;
}

void CSimpleHeader::CalcFirstSection(int* first, int* start) const {
    *first = 0;
    *start = 0;
    if (auto const* continuous = dynamic_cast<IContinuousItemViewModel const*>(m_viewModel)) {
        std::int64_t itemStart = 0;
        int const offset = continuous->GetOffset();
        *first = continuous->FindItemAt(0, continuous->GetCount(), offset, &itemStart);
        *start = int(itemStart - offset);
    } else if (auto const* discrete = dynamic_cast<IDiscreteItemViewModel const*>(m_viewModel)) {
        *first = std::max(discrete->GetStartItem(), 0);
    }
}

int CSimpleHeader::GetSortingDirection(int index) const {
    return m_model ? m_model->GetSortingDirection(index) : SortNone;
}

std::string CSimpleHeader::GetItemCaption(int index) const {
    return m_model ? m_model->GetItemText(index) : std::string();
}

int CSimpleHeader::GetItemTextAlign(int index) const {
    return m_model ? m_model->GetItemTextAlign(index) : IPainter::AlignLeft | IPainter::AlignVCenter;
}

int CSimpleHeader::GetItemImageIndex(int index) const {
    return m_model ? m_model->GetItemImageIndex(index) : -1;
}

std::string CSimpleHeader::GetItemDescription(int index) const {
    return m_model ? m_model->GetItemDescr(index) : std::string();
}

void CSimpleHeader::GetExtent(double* along0, double* along1, double* across0, double* across1) const {
    rectangle<int> const b = GetBounds();
    *along0 = std::min(GetAlong(b.left, b.top), GetAlong(b.right, b.bottom));
    *along1 = std::max(GetAlong(b.left, b.top), GetAlong(b.right, b.bottom));
    *across0 = GetAcross(b.left, b.top);
    *across1 = GetAcross(b.right, b.bottom);
}

rectangle<double> CSimpleHeader::GetSectionRect(int index) {
    double a0, a1, c0, c1;
    GetExtent(&a0, &a1, &c0, &c1);
    int first, start;
    CalcFirstSection(&first, &start);
    if (index < first || index >= GetSectionCount()) return {};
    double s = a0 + start;
    for (int i = first; i < index && s <= a1; ++i)
        s += GetItemWidth(i);
    if (s > a1) return {};
    return MakeRect(s, c0, s + CalcItemWidth(index, s, a1), c1).Normalized();
}

// Edges: a section holds its start and its inclusive end (start + width - 1); the divider is the part less
// than 6 pixels before that end.
CSimpleHeader::HitTestResult CSimpleHeader::HitTest(point<int> const& at) {
    HitTestResult hit;
    rectangle<int> const b = GetBounds();
    if (at.x < b.left || at.x > b.right || at.y < b.top || at.y > b.bottom) return hit;
    double a0, a1, c0, c1;
    GetExtent(&a0, &a1, &c0, &c1);
    double pos = GetAlong(at.x, at.y);
    if (a1 - pos <= EndSlack) pos -= EndSlack;
    int first, start;
    CalcFirstSection(&first, &start);
    int const count = GetSectionCount();
    double s = a0 + start;
    for (int i = first; i < count && s <= a1; ++i) {
        double const end = s + CalcItemWidth(i, s, a1);
        if (pos >= s && pos <= end) {
            rectangle<double> const r = MakeRect(s, c0, end, c1).Normalized();
            hit.left = int(r.left), hit.top = int(r.top), hit.right = int(r.right),
            hit.bottom = int(r.bottom);
            hit.section = i;
            bool const stretched = i == count - 1 && IsLastSectionExpanded();
            if (end - pos < DividerWidth && !stretched) {
                hit.area = AreaDivider;
                hit.dropIndex = i + 1;
            } else {
                hit.area = AreaSection;
                hit.dropIndex = i;
            }
            return hit;
        }
        s += GetItemWidth(i);
    }
    hit.area = AreaEmpty;
    hit.section = 0;
    hit.dropIndex = count - 1;
    return hit;
}

bool CSimpleHeader::ProcessHotSection(HitTestResult const& hit) {
    int const hot = hit.area == AreaSection || hit.area == AreaDivider ? hit.section : -1;
    if (hot == m_hotSection) return false;
    m_hotSection = hot;
    Update(UpdateLocal);
    return true;
}

// --- Mouse ------------------------------------------------------------------------------------------------

bool CSimpleHeader::HandleButtonDown(int x, int y, int flags, MouseButton button) {
    if (mirel7::ISysWindow* const window = m_control ? m_control->GetWindow() : nullptr)
        window->HideTooltip();
    HitTestResult const hit = HitTest({x, y});
    bool const onSection = hit.area == AreaSection || hit.area == AreaDivider;
    if (button != mirel7::ButtonLeft || !onSection) return onSection;
    CaptureMouse();
    m_section = hit.section;
    if (hit.area == AreaDivider && (m_style & 1)) {
        if (GetAlignment() != AlignLeft) m_startPos = int(GetAlong(hit.left, hit.top));
        m_state = 1;
    } else if (hit.area == AreaSection && (m_style & 2)) {
        bool allow = true;
        sigSectionPressing(this, hit.section, &allow);
        if (!allow) {
            HandleButtonUp(x, y, flags, mirel7::ButtonLeft);
            return true;
        }
        m_state = 3;
        OnChange(this, UpdateLocal);
    }
    return true;
}

bool CSimpleHeader::HandleMouseMove(int x, int y, int flags, MouseButton) {
    if (m_state == 0) {
        HitTestResult const hit = HitTest({x, y});
        int cursor = DefaultCursor;
        if (hit.area == AreaDivider && (m_style & 1)) {
            bool allow = true;
            sigSectionEdgeHover(this, hit.section, &allow);
            bool const vertical = GetAlignment() == AlignLeft || GetAlignment() == AlignRight;
            if (allow) cursor = vertical ? UpDownCursor : LeftRightCursor;
        }
        SetCursor(cursor);
        ProcessHotSection(hit);
        return hit.area != AreaNothing;
    }
    if (!(flags & 1)) {
        if (m_state == 3) m_state = 0;
        HandleButtonUp(x, y, flags, mirel7::ButtonLeft);
        return true;
    }
    if (m_state != 1) return true;
    int const size = std::max(int(GetAlong(x, y)) - m_startPos, m_minSectionWidth);
    if (size == GetItemWidth(m_section)) return true;
    bool allow = true;
    sigSectionResizing(this, m_section, size, &allow);
    if (!allow) {
        SetCursor(DefaultCursor);
        HandleButtonUp(x, y, flags, mirel7::ButtonLeft);
        return true;
    }
    if (m_viewModel) m_viewModel->SetItemSize(m_section, size);
    OnChange(this, UpdateLocal);
    sigSectionResized(this, m_section, size);
    return true;
}

bool CSimpleHeader::HandleButtonUp(int, int, int, MouseButton button) {
    ReleaseMouse();
    if (button != mirel7::ButtonLeft) return true;
    int clicked = -1;
    if (m_state == 2) StopScrolling(ScrollType());
    if (m_state == 3) {
        clicked = m_section;
        m_section = -1;
        OnChange(this, UpdateLocal);
    }
    m_state = 0;
    m_startPos = 0;
    // Last: a slot may change the models or let go of the header.
    if (clicked >= 0) sigSectionClicked(this, clicked);
    return true;
}

void CSimpleHeader::HandleMouseLeave(CVisualElement* next) {
    CScrollableElementEx::HandleMouseLeave(next);
    ProcessHotSection({});
}

bool CSimpleHeader::HandleOnTooltip(mirel7::CTooltipEvent* ev) {
    HitTestResult const hit = HitTest({ev->x, ev->y});
    if (hit.area != AreaSection && hit.area != AreaDivider) return false;
    std::string const text = GetItemDescription(hit.section);
    if (text.empty()) return false;
    ev->text = text;
    ev->rect = {hit.left, hit.top, hit.right, hit.bottom};
    return true;
}

// --- Reordering -------------------------------------------------------------------------------------------

int CSimpleHeader::ScrollType() const {
    return GetAlignment() == AlignLeft || GetAlignment() == AlignRight ? 2 : 1;
}

void CSimpleHeader::CheckScrolling(int section, int limit, HitTestArea area) {
    if (area == AreaSection || area == AreaDivider ||
        (area == AreaNothing && section >= 0 && section <= limit))
        StopScrolling(ScrollType());
}

bool CSimpleHeader::HandleStartDragging(int x, int y, DragInfo& info) {
    if (!(m_style & 4) || m_state == 1) return false;
    HitTestResult const hit = HitTest({x, y});
    if (hit.area != AreaSection) return false;
    m_state = 2;
    m_section = hit.section;
    m_dropIndex = -1;
    info.rect = {hit.left, hit.top, hit.right, hit.bottom};
    info.data = hit.section;
    OnChange(this, UpdateLocal);
    return true;
}

bool CSimpleHeader::HandleDragOver(CVisualElement* source, int x, int y, DragInfo&) {
    if (source != this || m_section < 0) return false;
    double a0, a1, c0, c1;
    GetExtent(&a0, &a1, &c0, &c1);
    double const pos = GetAlong(x, y);
    if (pos < a0 || pos > a1) {
        StartScrolling(ScrollType(), pos < a0 ? ScrollBackward : ScrollForward, false);
        return true;
    }
    HitTestResult const hit = HitTest({x, y});
    CheckScrolling(hit.section, GetSectionCount() - 1, hit.area);
    if (hit.dropIndex != m_dropIndex) {
        m_dropIndex = hit.dropIndex;
        Update(UpdateLocal);
    }
    return true;
}

void CSimpleHeader::EndDrag() {
    StopScrolling(ScrollType());
    if (m_state == 2) m_state = 0;
    m_section = -1;
    m_dropIndex = -1;
    Update(UpdateLocal);
}

// The button came up before the drop and ended the dragging state; the dragged section is still known.
void CSimpleHeader::HandleDropDone(CVisualElement* source, int x, int y, DragInfo&) {
    StopScrolling(ScrollType());
    if (source != this || m_section < 0) return;
    HitTestResult const hit = HitTest({x, y});
    int const from = m_section;
    EndDrag();
    if (hit.area != AreaNothing) sigSectionMoved(this, from, hit.dropIndex);
}

void CSimpleHeader::HandleDragFinished(CVisualElement*, DragInfo&) {
    EndDrag();
}

void CSimpleHeader::HandleDrawDragItem(IPainter* painter, DragInfo& info, bool, CVisualElement*) {
    if (m_section >= 0) DrawSectionRect(painter, rectangle<double>(info.rect), m_section);
}

// --- Painting ---------------------------------------------------------------------------------------------

void CSimpleHeader::DrawContent(IPainter* painter) {
    painter->FillRect(rectangle<double>(GetContentRect()));
    if (!IsModelAvailable()) return;
    // A section cut off at the start must not spill over the neighbours.
    CClipHolder clip(painter, GetHeaderRect());
    double a0, a1, c0, c1;
    GetExtent(&a0, &a1, &c0, &c1);
    int first, start;
    CalcFirstSection(&first, &start);
    int const count = GetSectionCount();
    double s = a0 + start;
    for (int i = first; i < count && s <= a1; ++i) {
        DrawSection(painter, {s, c0}, i);
        s += GetItemWidth(i);
    }
    if (s <= a1 && !(count > 0 && IsLastSectionExpanded())) DrawEmptyArea(painter, s, c0, a1, c1);
    if (m_dropIndex >= 0) DrawDraggingPointer(painter, m_dropIndex);
}

void CSimpleHeader::DrawSection(IPainter* painter, point<double> const& at, int index) {
    double a0, a1, c0, c1;
    GetExtent(&a0, &a1, &c0, &c1);
    rectangle<double> const r = MakeRect(at.x, at.y, at.x + CalcItemWidth(index, at.x, a1), c1).Normalized();
    DrawSectionRect(painter, r, index);
}

void CSimpleHeader::DrawSectionRect(IPainter* painter, rectangle<double> const& rect, int index) {
    bool const pressed = m_state == 3 && m_section == index;
    int const state = pressed ? 3 : index == m_hotSection ? 1 : 0;
    int const sorting = m_sorting ? GetSortingDirection(index) : SortNone;
    SectionPainting::DrawBackground(painter, rect, state, sorting, IsNativeDrawing(), !IsEnabled(), this);
    // Inside: a gap at the start along, 4 pixels at the end, one pixel down and right when pressed.
    double const shift = pressed ? 1 : 0;
    double const s0 = GetAlong(rect.left, rect.top), s1 = GetAlong(rect.right, rect.bottom);
    double const across0 = GetAcross(rect.left, rect.top), across1 = GetAcross(rect.right, rect.bottom);
    rectangle<double> const content =
        MakeRect(std::min(s0, s1) + SectionPainting::Gap(), across0, std::max(s0, s1) - 4, across1)
            .Normalized();
    rectangle<double> const moved(content.left + shift, content.top + shift, content.right + shift,
                                  content.bottom + shift);
    SectionPainting::SContentParts const parts = SectionPainting::SplitContent(moved, m_sorting, this);
    mirel7::IImageList* const images = m_control ? m_control->GetImageList() : nullptr;
    SectionPainting::DrawCaption(painter, parts.caption, GetItemCaption(index), GetItemTextAlign(index),
                                 images, GetItemImageIndex(index), !IsEnabled(), this);
    if (sorting != SortNone && !IsNativeDrawing())
        SectionPainting::DrawSortingMarker(painter, sorting == SortAscending, parts.marker);
}

void CSimpleHeader::DrawEmptyArea(IPainter* painter, double along0, double across0, double along1,
                                  double across1) {
    SectionPainting::DrawBackground(painter, MakeRect(along0, across0, along1, across1).Normalized(), 0,
                                    SortNone, IsNativeDrawing(), !IsEnabled(), this);
}

void CSimpleHeader::DrawDraggingPointer(IPainter* painter, int dropIndex) {
    rectangle<double> const r = GetSectionRect(std::min(dropIndex, GetSectionCount() - 1));
    if (r.IsAllZero()) return;
    double a0, a1, c0, c1;
    GetExtent(&a0, &a1, &c0, &c1);
    double const at = dropIndex >= GetSectionCount() ? GetAlong(r.right, r.bottom) : GetAlong(r.left, r.top);
    SectionPainting::Fill(painter, SectionPainting::SystemColor(ISysPalette::ColorHighlight),
                          MakeRect(at - 1, c0, at, c1).Normalized());
}

} // namespace mirelfrw7
