#include <mirelfrw7/core/clip_holder.h>
#include <mirelfrw7/core/control.h>
#include <mirelfrw7/header/header.h>
#include <mirelfrw7/header/position_processor.h>
#include <mirelfrw7/header/section_painting.h>
#include <mirelfrw7/items/display_scale.h>

#include <mirel7/palette.h>
#include <mirel7/sys_window.h>
#include <mirel7/window_painter.h>

#include <algorithm>

namespace mirelfrw7 {

using SectionPainting::Fill;
using SectionPainting::SystemColor;

IHeaderItemDrawing::~IHeaderItemDrawing() = default;
IHeaderItemVisualisation::~IHeaderItemVisualisation() = default;

int IHeaderItemVisualisation::GetItemState(IHeaderItem const* item) const {
    if (!item || item->GetChildCount() == 0) return 0;
    return item->GetExpandState() == HeaderItemCollapsed ? 2 : 1;
}

// The header draws in its own pixels, whatever the scroll model along it maps.
void CHeader::SetCoordSystem(IPainter*) {}

void CHeader::SetPos(rectangle<int> const& newRect, bool force) {
    CScrollableElementEx::SetPos(newRect, force);
    UpdateElementsPos();
}

void CHeader::DrawContent(IPainter* painter) {
    painter->FillRect(rectangle<double>(GetContentRect()));
    if (!GetScrollModel() || !m_model) return;
    rectangle<double> const whole = GetHeaderRect();
    // The header's rectangle as far as it is on the element: sections scrolled off must not spill over
    // the neighbours.
    rectangle<double> shown = whole;
    CutRectByBounds(shown);
    CClipHolder clip(painter, shown);
    // The clip of the pass, back in the header's pixels: device clips end one pixel early.
    rectangle<double> limits(GetBounds());
    rectangle<double> passClip = painter->GetClipRect();
    if (!passClip.IsAllZero()) {
        passClip.right -= 1;
        painter->DeconvertCoord2(&passClip, false);
        passClip = passClip.Normalized();
        limits.left = std::max(limits.left, passClip.left);
        limits.right = std::min(limits.right, passClip.right);
    }
    CDrawer drawer(*this, limits.left, limits.right, painter, this);
    Walk(drawer, limits.left);
    if (!m_lastItemExpanded) {
        rectangle<double> const rest(whole.left + GetFullItemsSize(), whole.top, whole.right + 20,
                                     whole.bottom);
        if (rest.left <= rest.right) m_visualisation->DrawSectionBackground(painter, rest, nullptr);
    }
    if (m_processing.type == 2 && m_processing.item && m_dropIndex >= 0)
        DrawDraggingPointer(painter, m_processing.item, m_dropIndex, GetDraggingBounds(m_processing.item));
}

void CHeader::DrawSection(IPainter* painter, IHeaderItem* item, rectangle<double> const& rect) {
    DrawSection(painter, item, rect, m_visualisation);
}

void CHeader::DrawSection(IPainter* painter, IHeaderItem* item, rectangle<double> const& rect,
                          IHeaderItemVisualisation* visualisation) {
    visualisation->DrawSectionBackground(painter, rect, item);
    visualisation->DrawSectionContent(painter, visualisation->GetSectionContentRect(rect, item), item);
    visualisation->DrawExpandButton(painter, visualisation->GetExpandBtnRect(rect, item), item);
}

void CHeader::DrawDraggingPointer(IPainter* painter, IHeaderItem const* item, int to,
                                  rectangle<double> const& bounds) {
    std::vector<double> const edges = GetSiblingEdges(const_cast<IHeaderItem*>(item));
    if (to < 0 || to >= int(edges.size())) return;
    double const x = std::clamp(edges[to], bounds.left, bounds.right);
    Fill(painter, SystemColor(ISysPalette::ColorHighlight), {x - 1, bounds.top, x, bounds.bottom});
}

int CHeader::GetVisualisationState(IHeaderItem const* item) const {
    if (m_processing.type == 3 && item == m_processing.item) return HeaderSectionPressed;
    return item && item == m_hotItem ? m_processing.hotState : HeaderSectionNormal;
}

// Edges: the button covers its left..right and top..bottom inclusive, and a press on its border counts.
rectangle<double> CHeader::GetExpandBtnRect(rectangle<double> const& rect, IHeaderItem const* item) const {
    rectangle<double> cut = rect;
    CutRectByBounds(cut);
    if (m_visualisation->GetItemState(item) == 0) return {};
    double const margin = DisplayScaled(4), side = DisplayScaled(10);
    double const shift = GetVisualisationState(item) == HeaderSectionPressed ? 1 : 0;
    rectangle<double> const button(cut.right - margin - side + shift, cut.top + margin + shift,
                                   cut.right - margin + shift, cut.top + margin + side + shift);
    if (button.left <= cut.left || button.bottom >= cut.bottom) return {};
    return button;
}

rectangle<double> CHeader::GetSectionContentRect(rectangle<double> const& rect,
                                                 IHeaderItem const* item) const {
    rectangle<double> content = rect;
    if (GetVisualisationState(item) == HeaderSectionPressed) {
        content.left += 1;
        content.top += 1;
        content.right += 1;
        content.bottom += 1;
    }
    rectangle<double> const button = m_visualisation->GetExpandBtnRect(rect, item);
    if (!button.IsAllZero()) content.right = button.left - 1;
    content.right -= 4;
    return content;
}

void CHeader::DrawSectionBackground(IPainter* painter, rectangle<double> const& rect,
                                    IHeaderItem const* item) {
    int const sorting = item && m_sortingEnabled ? item->GetSortingDirection() : SortNone;
    SectionPainting::DrawBackground(painter, rect, GetVisualisationState(item), sorting, IsNativeDrawing(),
                                    !IsEnabled(), nullptr);
}

void CHeader::DrawSectionContent(IPainter* painter, rectangle<double> const& rect, IHeaderItem const* item) {
    if (!item) return;
    rectangle<double> inner = rect;
    inner.left += SectionPainting::Gap();
    SectionPainting::SContentParts const parts =
        SectionPainting::SplitContent(inner, m_sortingEnabled, nullptr);
    mirel7::IImageList* const images = m_control ? m_control->GetImageList() : nullptr;
    SectionPainting::DrawCaption(painter, parts.caption, item->GetText(),
                                 IPainter::AlignLeft | IPainter::AlignVCenter, images, item->GetImageIndex(),
                                 !IsEnabled(), nullptr);
    int const sorting = item->GetSortingDirection();
    // The native piece draws its own arrow.
    if (m_sortingEnabled && sorting != SortNone && !IsNativeDrawing())
        DrawSortingMarker(painter, sorting == SortAscending, parts.marker);
}

void CHeader::DrawSortingMarker(IPainter* painter, bool ascending, point<double> const& at) {
    SectionPainting::DrawSortingMarker(painter, ascending, at);
}

void CHeader::DrawExpandButton(IPainter* painter, rectangle<double> const& rect, IHeaderItem const* item) {
    if (rect.IsAllZero()) return;
    Fill(painter,
         mirel7::MixColors(SystemColor(ISysPalette::ColorElementBackground),
                           SystemColor(ISysPalette::ColorShadow), 0.25),
         rect);
    // An arrow to the right opens the group, to the left closes it.
    double const margin = SectionPainting::Gap();
    double const midY = (rect.top + rect.bottom) / 2, half = (rect.bottom - rect.top) / 2 - margin;
    bool const opens = m_visualisation->GetItemState(item) == 2;
    double const tip = opens ? rect.right - margin : rect.left + margin;
    double const base = opens ? rect.left + margin : rect.right - margin;
    point<double> const arrow[3] = {{base, midY - half}, {base, midY + half}, {tip, midY}};
    brush b;
    b.color = SystemColor(ISysPalette::ColorWindowText);
    painter->SetBrush(b);
    painter->SetPen({b.color});
    painter->Polygon(arrow, 3);
}

int CHeader::GetItemOptimalWidth(IHeaderItem const* item) const {
    if (!item) return 0;
    mirel7::ISysWindow* const window = m_control ? m_control->GetWindow() : nullptr;
    IPainter* const painter = window ? window->GetPainter() : nullptr;
    if (!painter) return 0;
    bool const began = !painter->IsInPaint();
    if (began) painter->BeginPaint(IPainter::PaintMeasure);
    painter->SetFont(GetFont());
    mirel7::IImageList* const images = m_control->GetImageList();
    int const content =
        SectionPainting::ContentWidth(painter, item->GetText(), images, item->GetImageIndex());
    if (began) painter->EndPaint();
    // What the section keeps around its content, found on a trial section.
    rectangle<double> const trial(0, 0, 199, 19);
    rectangle<double> const inner = m_visualisation->GetSectionContentRect(trial, item);
    return content + int(trial.Width() - inner.Width()) + SectionPainting::Gap();
}

// --- Hosted elements --------------------------------------------------------------------------------------

void CHeader::SetVisualElement(IHeaderItem* item, CVisualElement* element, bool stretch) {
    Host(item, {element, AlignNone, stretch});
}

void CHeader::SetVisualElement(IHeaderItem* item, CVisualElement* element, Alignment alignment) {
    Host(item, {element, alignment, false});
}

void CHeader::Host(IHeaderItem* item, ElementAnchor const& anchor) {
    if (!item || !anchor.element) return;
    ElementAnchor& slot = m_elements[item->GetModelIndex()];
    // One connection for each anchor, made and dropped with it.
    if (slot.element != anchor.element) {
        if (slot.element) slot.element->sigDestroy.disconnect(this, &CHeader::OnElementDestroy);
        anchor.element->sigDestroy.connect(this, &CHeader::OnElementDestroy);
    }
    slot = anchor;
    RecreateElement(item->GetModelIndex(), slot);
}

void CHeader::RemoveVisualElement(int modelIndex) {
    auto const it = m_elements.find(modelIndex);
    if (it == m_elements.end()) return;
    if (CVisualElement* const element = it->second.element) {
        element->sigDestroy.disconnect(this, &CHeader::OnElementDestroy);
        element->SetVisible(false);
    }
    m_elements.erase(it);
}

void CHeader::OnElementDestroy(CVisualElement* element) {
    std::erase_if(m_elements, [element](auto const& entry) { return entry.second.element == element; });
}

void CHeader::RecreateElements() {
    for (auto& [modelIndex, anchor] : m_elements)
        RecreateElement(modelIndex, anchor);
}

// The element becomes the header's child, placed by the header rather than docked.
void CHeader::RecreateElement(int modelIndex, ElementAnchor& anchor) {
    if (!anchor.element) return;
    if (anchor.element->GetParent() != this) anchor.element->ReParent(this, false);
    anchor.element->SetAlignment(AlignNone);
    UpdateElementPos(modelIndex, anchor);
}

void CHeader::UpdateElementsPos() {
    for (auto& [modelIndex, anchor] : m_elements)
        UpdateElementPos(modelIndex, anchor);
}

// An element that was moved to another parent is left where its new parent puts it.
void CHeader::UpdateElementPos(int modelIndex, ElementAnchor& anchor) {
    if (!anchor.element || anchor.element->GetParent() != this) return;
    FindByModelIndex find(modelIndex);
    WalkHeaderModel(m_model, find, 0);
    rectangle<double> const rect = GetItemRect(find.m_found);
    rectangle<int> const bounds = GetBounds();
    if (rect.IsAllZero() || rect.right < bounds.left || rect.left > bounds.right) {
        anchor.element->SetVisible(false);
        return;
    }
    rectangle<int> place(m_visualisation->GetSectionContentRect(rect, find.m_found));
    size<int> const wanted = anchor.element->GetSize();
    if (!anchor.stretch) {
        int const midX = (place.left + place.right - wanted.cx) / 2,
                  midY = (place.top + place.bottom - wanted.cy) / 2;
        switch (anchor.alignment) {
        case AlignLeft:
            place = {place.left, midY, place.left + wanted.cx, midY + wanted.cy};
            break;
        case AlignRight:
            place = {place.right - wanted.cx, midY, place.right, midY + wanted.cy};
            break;
        case AlignTop:
            place = {midX, place.top, midX + wanted.cx, place.top + wanted.cy};
            break;
        case AlignBottom:
            place = {midX, place.bottom - wanted.cy, midX + wanted.cx, place.bottom};
            break;
        case AlignClient:
            break;
        default:
            place = {midX, midY, midX + wanted.cx, midY + wanted.cy};
            break;
        }
    }
    anchor.element->SetPos(place, false);
    anchor.element->SetVisible(true);
}

} // namespace mirelfrw7
