#include <mirelfrw7/chart/bar.h>
#include <mirelfrw7/chart/caption_source.h>
#include <mirelfrw7/core/clip_holder.h>
#include <mirelfrw7/core/control.h>
#include <mirelfrw7/scroll/axis_mapping.h>
#include <mirelfrw7/scroll/scroll_converter.h>
#include <mirelfrw7/scroll/scroll_model.h>

#include <mirel7/border.h>
#include <mirel7/custom_palette.h>
#include <mirel7/events.h>
#include <mirel7/sys_window.h>
#include <mirel7/window_painter.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace mirelfrw7 {

namespace {

// How far a press moves before it becomes a drag, and how near a border or edge grabs it.
constexpr int DragDistance = 6;
constexpr int GrabDistance = 3;

} // namespace

CBar::CBar(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CCategoricalAxis(parent, elementSize, alignment) {
    sigPosChanged.connect(this, &CBar::OnSigResize);
    m_scrollTimer.sigTick.connect(this, &CBar::OnSigTimerTick);
}

int CBar::Count() const {
    return m_captionSource ? m_captionSource->GetCount() : 0;
}

double CBar::Map() const {
    IScrollModel* const model = GetScrollModel();
    if (!model) return 1.0;
    auto const [units, pixels] = UsableMeasure(*model);
    return pixels / units;
}

void CBar::FillHorizontal(IPainter::CoordInfo* info, IScrollModel* model) {
    FillMapping(info, model);
}

void CBar::FillVertical(IPainter::CoordInfo* info, IScrollModel* model) {
    FillMapping(info, model);
}

void CBar::FillMapping(IPainter::CoordInfo* info, IScrollModel* model) const {
    if (!info || !model) return;
    rectangle<int> const r = Truncated(GetAxisRect(nullptr));
    bool const vertical = GetAlignment() == AlignLeft || GetAlignment() == AlignRight;
    bool const backward = model->GetFrom() > model->GetTo();
    // Along from the start of the range, across away from the pane.
    bool const flipX = vertical ? GetAlignment() == AlignLeft : backward;
    bool const flipY = vertical ? backward : GetAlignment() == AlignTop;
    info->left = info->top = 0;
    info->width = r.Width();
    info->height = r.Height();
    info->x = flipX ? r.right : r.left;
    info->y = flipY ? r.bottom : r.top;
    info->cx = flipX ? -r.Width() : r.Width();
    info->cy = flipY ? -r.Height() : r.Height();
}

IPainter::CoordInfo CBar::Mapping() const {
    IPainter::CoordInfo info;
    FillMapping(&info, GetScrollModel());
    return info;
}

rectangle<int> CBar::BarToElement(rectangle<double> const& r) const {
    IPainter::CoordInfo const m = Mapping();
    auto const x = [&m](double v) { return m.width == 0 ? m.x : m.x + v * m.cx / m.width; };
    auto const y = [&m](double v) { return m.height == 0 ? m.y : m.y + v * m.cy / m.height; };
    rectangle<int> out =
        rectangle<int>(rectangle<double>(x(r.left), y(r.top), x(r.right), y(r.bottom))).Normalized();
    ControlToElement(&out);
    return out;
}

double CBar::AlongOf(point<int> const& p) const {
    IPainter::CoordInfo const m = Mapping();
    bool const vertical = GetAlignment() == AlignLeft || GetAlignment() == AlignRight;
    int const device = vertical ? p.y - m.y : p.x - m.x;
    int const extent = vertical ? m.cy : m.cx;
    return extent == 0 ? 0.0 : double(device) * (vertical ? m.height : m.width) / extent;
}

int CBar::AcrossOf(point<int> const& p) const {
    return int(GetAcross(p.x, p.y));
}

rectangle<double> CBar::GetSectionRect(int index) const {
    IScrollModel* const model = GetScrollModel();
    if (!model) return {};
    rectangle<double> const r = GetAxisRect(nullptr);
    double const across = std::abs(GetAcross(r.right - r.left, r.bottom - r.top));
    CScrollConverter const converter(model);
    double const origin = converter.L2P(model->GetStart());
    return MakeRect(converter.L2P(index) - origin, 0, converter.L2P(index + 1) - origin, across);
}

CBar::BarHit CBar::HitTest(point<int> const& p) const {
    BarHit hit;
    IScrollModel* const model = GetScrollModel();
    if (!m_captionSource || !model) return hit;
    rectangle<double> const r = GetAxisRect(nullptr);
    double const along = AlongOf(p);
    int const count = Count();
    CScrollConverter const converter(model);
    double const startPixel = converter.L2P(model->GetStart());
    bool const inside = IsInside(point<double>(p.x, p.y), r);
    if (!inside) {
        double const value = converter.P2L(int(std::lround(along + startPixel)));
        hit.kind = along < 0 || value < 0 ? BarHit::Before : BarHit::After;
        hit.index = hit.kind == BarHit::After ? count : -1;
        hit.first = hit.last = hit.index;
        return hit;
    }
    if (m_resizeFlags & 2) {
        // The outer edge lies away from the pane: the top of a top bar, the right of a right one.
        double const distance = GetAlignment() == AlignTop     ? p.y - r.top
                                : GetAlignment() == AlignLeft  ? p.x - r.left
                                : GetAlignment() == AlignRight ? r.right - p.x
                                                               : r.bottom - p.y;
        if (distance < GrabDistance) {
            hit.kind = BarHit::OuterEdge;
            return hit;
        }
    }
    double const value = converter.P2L(int(std::lround(along + startPixel)));
    if (count < value) {
        hit.kind = BarHit::After;
        hit.index = hit.first = hit.last = count;
        return hit;
    }
    int const index = int(value);
    double const fraction = value - index;
    double const width = model->GetStepSize(index) * Map();
    double const fromStart = fraction * width, toEnd = width - fromStart;
    hit.firstHalf = fraction <= 0.5;
    hit.kind = BarHit::Section;
    hit.index = index;
    if (std::round(fromStart) + 1e-08 < GrabDistance && index > 0) {
        hit.kind = BarHit::Border;
        hit.index = index - 1;
    } else if (std::round(toEnd) + 1e-08 < GrabDistance) {
        hit.kind = BarHit::Border;
    }
    hit.first = hit.last = hit.index;
    return hit;
}

void CBar::DrawContent(IPainter* painter) {
    m_firstPaint = false;
    if (!painter) return;
    painter->SetElementFlag(0);
    // Without sections the bar still owns its rectangle: what was drawn there before must go.
    DrawBackground(painter);
    IScrollModel* const model = GetScrollModel();
    if (!model || !m_captionSource) return;
    // Cut in the element's own coordinates: the bar's mapping may turn either way.
    CClipHolder const clip(painter, GetDrawRect(painter));
    // What the control draws after the content, such as a focus frame, comes in the element's mapping.
    IPainter::MapMode mode;
    IPainter::CoordInfo saved;
    painter->GetCoordSystem(mode, &saved);
    SetCoordSystem(painter);
    CFontHolder const font(painter, *this);
    int const count = Count();
    for (int i = std::max(0, int(model->GetStart())); i < count; ++i) {
        rectangle<double> const s = GetSectionRect(i);
        double const from = GetAlong(s.left, s.top);
        if (from >= m_alongEnd) break;
        double const to = std::min(GetAlong(s.right, s.bottom), double(m_alongEnd));
        if (i != m_dragSection)
            DrawSection(painter, rectangle<int>(MakeRect(from, 0, to, GetAcross(s.right, s.bottom))), i,
                        m_selection.IsSelected(i) || m_rangeSelection.IsSelected(i));
    }
    painter->SetCoordSystem(mode, &saved);
}

void CBar::DrawSection(IPainter* painter, rectangle<int> const& rect, int index, bool selected) {
    rectangle<int> r = rect;
    // Only the far end is cut, so that neighbours share no pixel.
    (GetAlignment() == AlignLeft || GetAlignment() == AlignRight ? r.bottom : r.right) -= 1;
    rectangle<double> const cell(r);
    _color const text = painter->GetTextColor();
    if (selected) {
        mirel7::mirel_ptr<mirel7::ICustomPalette> own;
        mirel7::ICustomPalette* palette = painter->GetCustomPalette();
        if (!palette) {
            own = mirel7::CreateCustomPalette();
            palette = own.get();
        }
        brush fill;
        fill.color = palette->GetColor(mirel7::ISysPalette::ColorHighlight);
        painter->SetBrush(fill);
        painter->FillRect(cell);
        painter->SetTextColor(palette->GetColor(mirel7::ISysPalette::ColorHighlightText));
    }
    mirel7::DrawBorder(painter, cell, mirel7::BorderBox, mirel7::BorderRaised, false);
    std::string const caption = m_captionSource ? m_captionSource->GetCaption(index) : std::to_string(index);
    painter->DrawString(cell, caption.c_str(),
                        ConvTextAlign(IPainter::AlignHCenter | IPainter::AlignVCenter) | 0x140, -1);
    painter->SetTextColor(text);
}

void CBar::DrawSpace(IPainter* painter, rectangle<int> const& rect) {
    mirel7::DrawBorder(painter, rectangle<double>(rect), mirel7::BorderBottom, mirel7::BorderRaised, true);
}

double CBar::GetSizeHint() {
    IPainter* const painter =
        m_control && m_control->GetWindow() ? m_control->GetWindow()->GetPainter() : nullptr;
    if (!painter) return 0;
    double widest = 0;
    for (int i = 0; i < Count(); ++i) {
        size<double> const s = painter->GetTextSize(m_captionSource->GetCaption(i));
        widest = std::max(widest, std::abs(GetAcross(s.cx, s.cy)));
    }
    return widest + 2.0;
}

void CBar::Select(int index, int flags) {
    if (flags & mirel7::FlagControl) {
        // A Shift range still pending becomes settled before the toggle.
        if (m_rangeEnd != -1 && m_anchor != -1)
            for (int i = std::min(m_anchor, m_rangeEnd); i <= std::max(m_anchor, m_rangeEnd); ++i)
                m_selection.SelectItem(i);
        m_rangeSelection.Clear();
        m_rangeEnd = -1;
        if (m_selection.IsSelected(index))
            m_selection.UnselectItem(index);
        else
            m_selection.SelectItem(index);
        m_anchor = index;
    } else if (flags & mirel7::FlagShift) {
        if (m_anchor == -1) m_anchor = index;
        m_rangeSelection.Clear();
        m_rangeSelection.SetItemsSelection(m_anchor, index, true);
        m_rangeEnd = index;
    } else {
        m_selection.Clear();
        m_rangeSelection.Clear();
        m_selection.SelectItem(index);
        m_anchor = index;
        m_rangeEnd = -1;
    }
}

bool CBar::HandleButtonDown(int x, int y, int flags, MouseButton button) {
    if (button != MouseButton(1)) return false;
    point<int> p{x, y};
    ElementToControl(&p);
    BarHit const hit = HitTest(p);
    if (m_control) m_control->SetCapture(this);
    bool ok = true;
    if (hit.kind == BarHit::OuterEdge && (m_resizeFlags & 2)) {
        sigStartBarResize(ok);
        if (!ok) return true;
        m_mouseState = ResizingBar;
        m_mouseStart = AcrossOf(p);
    } else if (hit.kind == BarHit::Border && (m_resizeFlags & 1)) {
        sigStartSectionResize(hit.index, ok);
        if (!ok) return true;
        m_mouseState = ResizingSection;
        m_mouseIndex = hit.index;
        m_mouseStart = int(AlongOf(p));
    } else if (hit.kind == BarHit::Section || hit.kind == BarHit::Border) {
        sigStartSectionPress(hit.index, ok);
        if (!ok) return true;
        m_mouseState = Pressed;
        m_mouseIndex = hit.index;
        m_mouseStart = int(AlongOf(p));
        Select(hit.index, flags);
    }
    OnChange(this, UpdateLocal);
    return true;
}

bool CBar::HandleMouseMove(int x, int y, int, MouseButton) {
    point<int> p{x, y};
    ElementToControl(&p);
    BarHit const hit = HitTest(p);
    sigHover(hit);
    int const along = int(AlongOf(p));
    switch (m_mouseState) {
    case ResizingSection: {
        int const delta = along - m_mouseStart;
        IScrollModel* const model = GetScrollModel();
        if (delta == 0 || !model) break;
        double const map = Map();
        int const pixels =
            std::max(int(std::ceil(model->GetStepSize(m_mouseIndex) * map)) + delta, m_minSectionSize);
        sigSectionResized(m_mouseIndex, pixels / map);
        m_mouseStart = along;
        OnChange(this, UpdateLocal);
        break;
    }
    case Pressed:
        if (std::abs(along - m_mouseStart) < DragDistance) break;
        {
            bool ok = true;
            sigStartDrag(ok);
            if (!ok) break;
        }
        m_mouseState = Dragging;
        m_mouseStart = along;
        OnChange(this, UpdateLocal);
        break;
    case ResizingBar: {
        int const across = AcrossOf(p);
        // The outer edge is the top or left of a top or left bar: moving it back makes the bar thicker.
        bool const outerFirst = GetAlignment() == AlignTop || GetAlignment() == AlignLeft;
        // The size asked for, not the bounds: moves may come before the layout that follows each of them.
        size<int> const b = GetSize();
        int const thickness = int(GetAcross(b.cx, b.cy)) + (outerFirst ? -1 : 1) * (across - m_mouseStart);
        int const limited = std::clamp(thickness, m_minBarSize, m_maxBarSize);
        m_mouseStart = across;
        bool const vertical = GetAlignment() == AlignLeft || GetAlignment() == AlignRight;
        SetSize(vertical ? size<int>{limited, b.cy} : size<int>{b.cx, limited}, false);
        break;
    }
    case Idle:
        SetCursor(((hit.kind == BarHit::Border && (m_resizeFlags & 1)) ||
                   (hit.kind == BarHit::OuterEdge && (m_resizeFlags & 2)))
                      ? ((hit.kind == BarHit::Border) ==
                                 (GetAlignment() == AlignTop || GetAlignment() == AlignBottom)
                             ? 1
                             : 2)
                      : 0);
        break;
    default:
        break;
    }
    return true;
}

bool CBar::HandleButtonUp(int x, int y, int, MouseButton) {
    int const index = m_mouseIndex;
    switch (m_mouseState) {
    case ResizingSection:
        sigSectionResizeRelease(index);
        sigRelease(index);
        break;
    case Dragging:
        sigDragRelease(index);
        sigRelease(index);
        OnChange(this, UpdateLocal);
        break;
    case Pressed: {
        point<int> p{x, y};
        ElementToControl(&p);
        int const kind = HitTest(p).kind;
        if (kind == BarHit::Section || kind == BarHit::Border) {
            sigClickRelease(index);
            sigRelease(index);
            OnChange(this, UpdateLocal);
        }
        break;
    }
    default:
        break;
    }
    ReleaseMouse();
    m_mouseState = Idle;
    m_mouseIndex = -1;
    return true;
}

void CBar::HandleMouseLeave(CVisualElement*) {
    if (m_mouseState != Pressed) return;
    m_mouseState = Idle;
    OnChange(this, UpdateLocal);
}

void CBar::SetAlignment(Alignment alignment) {
    CCategoricalAxis::SetAlignment(alignment);
    // Along and across change places.
    OnSigResize(this);
}

void CBar::OnSigResize(CVisualElement*) {
    rectangle<int> const b = GetBounds();
    m_alongStart = m_acrossStart = 0;
    m_alongEnd = int(GetAlong(b.Width(), b.Height()));
    m_acrossEnd = int(GetAcross(b.Width(), b.Height()));
}

void CBar::GetSelectedSections(std::vector<int>& out) const {
    out.clear();
    for (int i = 0; i < Count(); ++i)
        if (m_selection.IsSelected(i) || m_rangeSelection.IsSelected(i)) out.push_back(i);
}

void CBar::SetSelectedSections(std::vector<int> const& in) {
    m_selection.Clear();
    m_rangeSelection.Clear();
    m_anchor = m_rangeEnd = -1;
    for (int i : in)
        m_selection.SelectItem(i);
}

} // namespace mirelfrw7
