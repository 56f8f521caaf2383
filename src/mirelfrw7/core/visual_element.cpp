#include <mirelfrw7/core/control.h>
#include <mirelfrw7/core/life_guard.h>
#include <mirelfrw7/core/visual_element.h>
#include <mirelfrw7/items/saturating_int.h>

#include <mirel7/assert.h>
#include <mirel7/sys_window.h>
#include <mirel7/system.h>
#include <mirel7/window_painter.h>

#include <algorithm>
#include <limits>
#include <vector>

namespace mirelfrw7 {

namespace {
constexpr ISysPalette::SysColor NoSysColor = static_cast<ISysPalette::SysColor>(14);
constexpr ISysPalette::SysColor DefaultBkSysColor = static_cast<ISysPalette::SysColor>(3);
constexpr ISysPalette::SysColor DefaultFgSysColor = static_cast<ISysPalette::SysColor>(8);

// A wanted size as SetSize and the constructor store it: scaled when asked, never negative.
size<int> Wanted(size<int> s, bool scale) {
    if (scale) ApplyDPIScale(s);
    return {std::max(s.cx, 0), std::max(s.cy, 0)};
}

// A strip's far edge is summed in 64 bits: a wanted size as large as an int goes stops at the free space
// instead of wrapping around past it.
long long Wide(int v) {
    return v;
}
int AtMost(long long v, int limit) {
    return v < limit ? static_cast<int>(v) : limit;
}
int AtLeast(long long v, int limit) {
    return v > limit ? static_cast<int>(v) : limit;
}

void Shift(rectangle<int>& r, int dx, int dy) {
    r.left += dx;
    r.right += dx;
    r.top += dy;
    r.bottom += dy;
}

// Inclusive rectangles, as the docking makes them.
bool Overlap(rectangle<int> const& a, rectangle<int> const& b) {
    return a.left <= b.right && b.left <= a.right && a.top <= b.bottom && b.top <= a.bottom;
}
bool Inside(rectangle<int> const& inner, rectangle<int> const& outer) {
    return inner.left >= outer.left && inner.right <= outer.right && inner.top >= outer.top &&
           inner.bottom <= outer.bottom;
}
void Unite(rectangle<int>& a, rectangle<int> const& b) {
    a = {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
         std::max(a.bottom, b.bottom)};
}
// An element without width or height draws nothing, its children included.
bool HasArea(rectangle<int> const& r) {
    return r.right > r.left && r.bottom > r.top;
}
// A strip one pixel thin still takes its row or column from the free room, where nothing draws it: the
// parent's background shows there. An inverted strip took nothing.
bool TakesRoomUndrawn(rectangle<int> const& r) {
    return !HasArea(r) && r.right >= r.left && r.bottom >= r.top;
}

// A docking pass of the parent repaints the parent's own rectangle: a docked element that drew beyond it, or
// whose children drew beyond the element, leaves or takes places that nobody repaints but the element.
bool DockingCovers(CVisualElement const* parent, rectangle<int> const& place, rectangle<int> const& bounds) {
    return place == bounds && Inside(place, parent->GetBounds());
}

// The nearest of `element` and its ancestors whose own rectangle holds `place`, given in the element's
// coordinates: the one that repaints there, since the element's rectangle does not always.
CVisualElement* Holder(CVisualElement* element, rectangle<int> place) {
    CVisualElement* e = element;
    while (e->GetParent() && !(HasArea(e->GetPosition()) && Inside(place, e->GetBounds()))) {
        Shift(place, e->GetPosition().left, e->GetPosition().top);
        e = e->GetParent();
    }
    return e;
}

// The element repaints a place that its children drew on.
void RepaintPlace(CVisualElement* element, rectangle<int> const& place) {
    CVisualElement* const e = Holder(element, place);
    e->OnChange(e, UpdateLocal);
}
} // namespace

bool IsDrawn(CVisualElement const* element) {
    for (CVisualElement const* e = element; e; e = e->GetParent())
        if (!e->IsVisible() || !HasArea(e->GetPosition())) return false;
    return true;
}

bool GetExtent(CVisualElement const* element, rectangle<int>& extent, bool shown) {
    rectangle<int> const& b = element->GetPosition();
    if (!(shown || element->IsVisible()) || !HasArea(b)) return false;
    extent = b;
    IChildren* const children = element->GetChildren();
    for (int i = 0; i < children->GetCount(); ++i) {
        rectangle<int> inner;
        if (!GetExtent(children->GetItem(i), inner, false)) continue;
        Shift(inner, b.left, b.top);
        Unite(extent, inner);
    }
    return true;
}

CVisualElement::CVisualElement(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : m_size(Wanted(elementSize, true)), m_alignment(alignment), m_children(&m_ownChildren),
      m_bkSysColor(DefaultBkSysColor), m_fgSysColor(DefaultFgSysColor) {
    ReParent(parent, true);
}

CVisualElement::~CVisualElement() {
    CLifeGuard::Bury(this);
    sigDestroy(this);
    // The element leaves first, with its subtree: the control forgets all of it, and the parent docks its
    // other children anew and repaints the place it left. The children then die detached, with no control
    // to tell and no parent that still counts.
    if (m_parent)
        ReParent(nullptr, true);
    else
        SetControl(nullptr);
    m_children->Clear();
}

// --- Geometry ---------------------------------------------------------------------------------------------

void CVisualElement::SetSize(size<int> const& newSize, bool scale) {
    size<int> const s = Wanted(newSize, scale);
    if (s == m_size) return;
    m_size = s;
    OnRearrange(this);
}

void CVisualElement::SetWidth(int width, bool scale) {
    SetSize({width, m_size.cy}, scale);
}

void CVisualElement::SetHeight(int height, bool scale) {
    SetSize({m_size.cx, height}, scale);
}

void CVisualElement::SetPos(rectangle<int> const& newRect, bool force) {
    if (newRect == m_bounds && !force) return;
    rectangle<int> const old = m_bounds;
    // No docking pass repaints around an undocked element, nor around children drawn outside their
    // parent, nor where a docked element stood outside it (laid out late, below an undocked or hidden
    // ancestor): the places such an element drew on before and after repaint, with whatever lies over them.
    rectangle<int> oldPlace;
    bool const wasDrawn = m_parent && GetExtent(this, oldPlace, false);
    bool const loose = m_parent && m_visible &&
                       (m_alignment == AlignNone || (wasDrawn && !DockingCovers(m_parent, oldPlace, old)));
    m_bounds = newRect;

    // Pixels move only when the element does; asking the subtree whether it repaints fully costs a walk of
    // it, which a forced pass of thousands of elements in place must not pay at every level.
    bool const moved = newRect.left != old.left || newRect.top != old.top;
    if (moved && !IsFullRepainted()) ScrollOnSetPos(this, newRect, old, GetDrawBounds());

    // Widened: a rectangle may span the whole range of int.
    bool const resized = Wide(newRect.right) - newRect.left != Wide(old.right) - old.left ||
                         Wide(newRect.bottom) - newRect.top != Wide(old.bottom) - old.top;
    if (force || (resized && m_alignment != AlignNone && m_visible)) {
        rectangle<int> free = GetContentRect();
        CVisualElement* client = nullptr;
        bool gap = false;
        for (int i = 0; i < m_children->GetCount(); ++i) {
            CVisualElement* const child = m_children->GetItem(i);
            PrefetchSiblings(i);
            if (!child->m_visible) continue;
            rectangle<int> c = free;
            switch (child->m_alignment) {
            case AlignLeft:
                c.right = AtMost(Wide(free.left) + child->m_size.cx, free.right);
                free.left = c.right + 1;
                break;
            case AlignRight:
                c.left = AtLeast(Wide(free.right) - child->m_size.cx, free.left);
                free.right = c.left - 1;
                break;
            case AlignTop:
                c.bottom = AtMost(Wide(free.top) + child->m_size.cy, free.bottom);
                free.top = c.bottom + 1;
                break;
            case AlignBottom:
                c.top = AtLeast(Wide(free.bottom) - child->m_size.cy, free.top);
                free.bottom = c.top - 1;
                break;
            case AlignClient:
                client = child;
                continue;
            default:
                continue;
            }
            gap = gap || TakesRoomUndrawn(c);
            child->SetPos(c, force);
        }
        if (client) {
            gap = gap || TakesRoomUndrawn(free);
            client->SetPos(free, force);
            free = {};
        }
        // Where the children leave room, or take it without drawing there, the element shows its own
        // background. Its repaint covers what its subtree queued while it was placed, which the paint pass
        // drops as it reduces the list; not what lies outside it, places that loose children left, say.
        if (gap || !(free.IsAllZero() && GetBounds() == GetContentRect())) OnChange(this, UpdateLocal);
        sigPosChanged(this);
    } else if (!loose && IsFullRepainted() && IsScrollableOnSetPos()) {
        ScrollOnSetPos(this, newRect, old, GetDrawBounds());
        m_validRect = m_bounds;
    }

    rectangle<int> newPlace;
    bool const isDrawn = m_parent && GetExtent(this, newPlace, false);
    if (newRect != old && (loose || (isDrawn && !DockingCovers(m_parent, newPlace, m_bounds)))) {
        if (wasDrawn) RepaintPlace(m_parent, oldPlace);
        if (isDrawn) RepaintPlace(m_parent, newPlace);
    }

    if (m_validRect.right <= m_validRect.left || m_validRect.bottom <= m_validRect.top ||
        m_bounds.left != old.left || m_bounds.top != old.top)
        Invalidate();
}

// Placing a child takes long enough to hide the fetch from memory of the next ones, which otherwise rules
// a pass over more elements than the caches hold: the lines that arranging reads of the child after next,
// and the child list of the next, whose pointer came with its lines one step before.
void CVisualElement::PrefetchSiblings(int index) const {
    int const count = m_children->GetCount();
    if (index + 2 < count) {
        CVisualElement const* const e = m_children->GetItem(index + 2);
        __builtin_prefetch(e);
        __builtin_prefetch(&e->m_bounds);
        __builtin_prefetch(&e->m_visible);
        __builtin_prefetch(&e->m_children);
    }
    if (index + 1 < count) __builtin_prefetch(m_children->GetItem(index + 1)->m_children);
}

rectangle<int> CVisualElement::GetContentRect() const {
    return GetBounds();
}

rectangle<int> CVisualElement::GetBounds() const {
    return {0, 0, m_bounds.Width(), m_bounds.Height()};
}

rectangle<int> CVisualElement::GetValidRect() const {
    rectangle<int> r = m_validRect;
    Shift(r, -m_bounds.left, -m_bounds.top);
    return r;
}

void CVisualElement::Invalidate() {
    m_validRect = {m_bounds.left, m_bounds.top, m_bounds.left, m_bounds.top};
}

bool CVisualElement::GetDisplayableRect(rectangle<int>* rect) const {
    rectangle<int> r = *rect;
    int shiftX = 0, shiftY = 0;
    for (CVisualElement const* e = this; e; e = e->m_parent) {
        r = e->m_visible ? r.Intersect(e->GetContentRect()) : rectangle<int>{};
        if (r.Width() < 1 || r.Height() < 1) {
            *rect = {};
            return false;
        }
        Shift(r, e->m_bounds.left, e->m_bounds.top);
        shiftX += e->m_bounds.left;
        shiftY += e->m_bounds.top;
    }
    Shift(r, -shiftX, -shiftY);
    *rect = r;
    return !r.IsAllZero();
}

void CVisualElement::ElementToControl(point<int>* p) const {
    for (CVisualElement const* e = this; e; e = e->m_parent) {
        p->x += e->m_bounds.left;
        p->y += e->m_bounds.top;
    }
}

void CVisualElement::ControlToElement(point<int>* p) const {
    point<int> origin;
    ElementToControl(&origin);
    p->x -= origin.x;
    p->y -= origin.y;
}

void CVisualElement::ElementToControl(rectangle<int>* r) const {
    point<int> origin;
    ElementToControl(&origin);
    Shift(*r, origin.x, origin.y);
}

void CVisualElement::ControlToElement(rectangle<int>* r) const {
    point<int> origin;
    ElementToControl(&origin);
    Shift(*r, -origin.x, -origin.y);
}

namespace {
// The window's painter, inside a paint for the duration: a measuring paint is opened when none runs, with
// the element's coordinate system, and closed again at the end.
class CPainterScope {
public:
    CPainterScope(IControl* control, CVisualElement* element) {
        mirel7::ISysWindow* const window = control ? control->GetWindow() : nullptr;
        m_painter = window ? window->GetPainter() : nullptr;
        if (m_painter && !m_painter->IsInPaint()) {
            m_began = true;
            m_painter->BeginPaint(IPainter::PaintMeasure);
            if (element) element->SetCoordSystem(m_painter);
        }
    }
    ~CPainterScope() {
        if (m_began) m_painter->EndPaint();
    }
    CPainterScope(CPainterScope const&) = delete;
    CPainterScope& operator=(CPainterScope const&) = delete;
    IPainter* get() const { return m_painter; }

private:
    IPainter* m_painter = nullptr;
    bool m_began = false;
};
} // namespace

void CVisualElement::DP2LP(point<double>* p) {
    CPainterScope painter(m_control, this);
    if (!painter.get()) return;
    point<int> at(*p);
    ElementToControl(&at);
    *p = point<double>(at);
    painter.get()->DeconvertCoord1(p, false);
}

void CVisualElement::LP2DP(point<double>* p) {
    CPainterScope painter(m_control, this);
    if (!painter.get()) return;
    painter.get()->ConvertCoord1(p, false);
    point<int> at(*p);
    ControlToElement(&at);
    *p = point<double>(at);
}

rectangle<double> CVisualElement::GetDrawRect(IPainter* painter) const {
    rectangle<int> r = GetContentRect();
    ElementToControl(&r);
    rectangle<double> d(r);
    if (painter) painter->DeconvertCoord2(&d, false);
    return d;
}

rectangle<double> CVisualElement::GetDrawValidRect(IPainter* painter) const {
    rectangle<int> r = GetValidRect();
    ElementToControl(&r);
    rectangle<double> d(r);
    if (painter) painter->DeconvertCoord2(&d, false);
    return d;
}

void CVisualElement::Scroll(int dx, int dy, bool force) {
    bool const moved = ScrollContent(dx, dy);
    if (moved || force) OnChange(this, UpdateLocal);
    for (int i = 0; i < m_children->GetCount(); ++i) {
        CVisualElement* const child = m_children->GetItem(i);
        if (child->m_visible) child->Scroll(dx, dy, moved || force);
    }
}

void CVisualElement::ForceRearrange() {
    if (m_control) m_control->ForceRearrange();
}

void CVisualElement::RefreshPos() {
    HandleRefreshPos();
    for (int i = 0; i < m_children->GetCount(); ++i)
        m_children->GetItem(i)->RefreshPos();
}

point<int> CVisualElement::GetMousePos() const {
    mirel7::ISysWindow* const window = m_control ? m_control->GetWindow() : nullptr;
    mirel7::ISystem* const system = mirel7::GetCurrentSystem();
    if (!window || !system) return {};
    point<int> at = system->GetCursorState()->GetPosition();
    window->ScreenToClient(at);
    ControlToElement(&at);
    return at;
}

int CVisualElement::GetTextLineHeight() {
    CPainterScope painter(m_control, nullptr);
    if (!painter.get()) return -1;
    painter.get()->SetFont(GetFont());
    mirel7::fontmetrics metrics;
    painter.get()->GetFontMetrics(&metrics);
    return metrics.ascent + metrics.descent + metrics.externalLeading;
}

double CVisualElement::GetSizeScale() const {
    int const fontSize = GetFont().size;
    return fontSize < 1 ? 1.0 : fontSize * 0.125;
}

// --- Tree -------------------------------------------------------------------------------------------------

void CVisualElement::ReParent(CVisualElement* newParent, bool rearrange) {
    if (newParent == m_parent) return;
    if (newParent && IsAncestor(newParent, this)) {
        MIREL_ASSERT(!"CVisualElement::ReParent: the new parent lies inside the element");
        return;
    }
    CVisualElement* const oldParent = m_parent;
    bool const relayout = rearrange && m_visible && m_alignment != AlignNone;
    // An undocked element is placed by nobody: the parent it leaves repaints where it was, and it paints
    // itself where it comes.
    rectangle<int> place;
    if (oldParent) {
        // Ancestors that keep lists of what lies inside them hear of the leaving while the links still
        // say that the element was theirs: afterwards their lists would hold it past its life.
        for (CVisualElement* e = oldParent; e; e = e->m_parent)
            e->BeforeProcessChange(this, UpdateLeaving);
        if (relayout) OnRearrange(this);
        if (rearrange && GetExtent(this, place, false) &&
            (!relayout || !DockingCovers(oldParent, place, m_bounds)))
            RepaintPlace(oldParent, place);
        oldParent->m_children->RemoveItem(this);
    }
    if (newParent) newParent->m_children->AddItem(this);
    m_parent = newParent;
    if (!newParent) {
        SetControl(nullptr);
    } else {
        SetControl(newParent->m_control);
        SetFont(newParent->m_font);
        newParent->AddNewChild(this);
        if (relayout) OnRearrange(this);
        if (rearrange && GetExtent(this, place, false) &&
            (!relayout || !DockingCovers(newParent, place, m_bounds)))
            RepaintPlace(newParent, place);
    }
    ChangeParent(oldParent);
}

void CVisualElement::SetControl(IControl* control) {
    if (control == m_control) return;
    ProcessSetControl(control);
    // The old control must forget the element; also when it moves straight into another control's tree,
    // or the old one would keep a pointer that outlives the element. Whatever the element runs on the old
    // control's behalf, an animation on its window say, ends as if that control had gone.
    if (m_control) {
        OnChange(this, UpdateLeaving);
        HandleControlDestroy();
    }
    m_control = control;
    for (int i = 0; i < m_children->GetCount(); ++i)
        m_children->GetItem(i)->SetControl(control);
    if (control) AfterSetControl();
}

bool CVisualElement::IsDisplayable() const {
    return IsDisplayable(this);
}

bool CVisualElement::IsDisplayable(CVisualElement const* element) {
    for (CVisualElement const* e = element; e; e = e->m_parent)
        if (!e->m_visible) return false;
    return true;
}

bool CVisualElement::IsChildrenAvailable(int count) const {
    if (!m_children) return false;
    return count < 1 ? m_children->GetCount() > 0 : m_children->GetCount() == count;
}

namespace {
int Sign(int v) {
    return (v > 0) - (v < 0);
}
// Both edges hit; a zero extent never does; an inverted rectangle hits as if normalised.
bool SignTest(int v, int lower, int upper) {
    return Sign(SaturatingInt(0LL + v - lower)) != Sign(SaturatingInt(0LL + v - upper));
}
} // namespace

CVisualElement* CVisualElement::FindVisualElement(int x, int y) {
    for (int i = 0; i < m_children->GetCount(); ++i) {
        CVisualElement* const child = m_children->GetItem(i);
        rectangle<int> const& b = child->m_bounds;
        if (child->m_visible && SignTest(x, b.left, b.right) && SignTest(y, b.top, b.bottom)) {
            CVisualElement* const deeper =
                child->FindVisualElement(SaturatingInt(0LL + x - b.left), SaturatingInt(0LL + y - b.top));
            return deeper ? deeper : child;
        }
    }
    return nullptr;
}

CVisualElement* CVisualElement::FindVisualElement(unsigned long const& id, bool displayableOnly) {
    if (m_id == id && (!displayableOnly || IsDisplayable())) return this;
    for (int i = 0; i < m_children->GetCount(); ++i)
        if (CVisualElement* const found = m_children->GetItem(i)->FindVisualElement(id, displayableOnly))
            return found;
    return nullptr;
}

// --- State ------------------------------------------------------------------------------------------------

void CVisualElement::SetVisible(bool visible) {
    if (visible == m_visible) return;
    // Docking covers the strip of a docked element; an undocked element, or children drawn outside their
    // parent, leave or take a place that its parent repaints.
    rectangle<int> place;
    bool const drawn = m_parent && GetExtent(this, place, true);
    m_visible = visible;
    sigVisibleChanged(this, visible);
    ProcessSetVisible(visible);
    SetParentVisible(visible);
    // An undocked element takes no part in the docking: its parent repaints, shown or hidden.
    if (m_alignment != AlignNone) OnRearrange(this);
    if (drawn && (m_alignment == AlignNone || !DockingCovers(m_parent, place, m_bounds)))
        RepaintPlace(m_parent, place);
}

void CVisualElement::SetParentVisible(bool visible) {
    for (int i = 0; i < m_children->GetCount(); ++i)
        m_children->GetItem(i)->SetParentVisible(visible);
    ProcessSetParentVisible(visible);
}

void CVisualElement::SetEnabled(bool enabled) {
    if (enabled == m_enabled) return;
    m_enabled = enabled;
    AttributeChanged();
}

void CVisualElement::SetAlignment(Alignment alignment) {
    if (alignment == m_alignment) return;
    m_alignment = alignment;
    OnRearrange(this);
}

void CVisualElement::SetCursor(int cursor) {
    if (cursor == m_cursor) return;
    m_cursor = cursor;
    if (m_control && m_control->GetMouseElement() == this)
        if (mirel7::ISysWindow* const window = m_control->GetWindow()) window->SetCursor(cursor);
}

_color CVisualElement::PaletteColor(ISysPalette::SysColor index) const {
    if (mirel7::ICustomPalette* const custom = GetCustomPalette()) return custom->GetColor(index);
    mirel7::ISysPalette* const palette = mirel7::GetSysPalette();
    return (palette ? palette : mirel7::GetDefaultPalette())->GetColor(index);
}

_color CVisualElement::GetBkColor() const {
    return m_bkSysColor == NoSysColor ? m_bkColor : PaletteColor(m_bkSysColor);
}

_color CVisualElement::GetFgColor() const {
    return m_fgSysColor == NoSysColor ? m_fgColor : PaletteColor(m_fgSysColor);
}

// An explicit colour equal to the one in effect keeps the element bound to its palette index.
void CVisualElement::SetBkColor(_color const& color) {
    if (color == GetBkColor()) return;
    m_bkColor = color;
    m_bkSysColor = NoSysColor;
    AttributeChanged();
}

void CVisualElement::SetBkColor(ISysPalette::SysColor color) {
    if (color == m_bkSysColor) return;
    m_bkSysColor = color;
    AttributeChanged();
}

void CVisualElement::SetFgColor(_color const& color) {
    if (color == GetFgColor()) return;
    m_fgColor = color;
    m_fgSysColor = NoSysColor;
    AttributeChanged();
}

void CVisualElement::SetFgColor(ISysPalette::SysColor color) {
    if (color == m_fgSysColor) return;
    m_fgSysColor = color;
    AttributeChanged();
}

void CVisualElement::SetFont(font const& f) {
    if (f == m_font) return;
    m_font = f;
    AttributeChanged();
}

font CVisualElement::GetFont() const {
    if (m_font.size >= 1) return m_font;
    font result = mirel7::GetDefaultGUIFont();
    if (result.size > 0)
        result.size = static_cast<int>(m_font.scale * result.size);
    else
        result.scale = m_font.scale;
    if (m_font.style != 0) result.style = m_font.style;
    if (!m_font.face.empty()) result.face = m_font.face;
    if (m_font.family != font::FamilyNotSet && m_font.family != result.family) {
        result.family = m_font.family;
        if (m_font.face.empty()) result.face.clear();
    }
    return result;
}

void CVisualElement::SetTooltip(std::string const& text, bool flag) {
    m_tooltip = text;
    m_tooltipFlag = flag;
}

// --- Updates ----------------------------------------------------------------------------------------------

void CVisualElement::Update(UpdateType type) {
    OnChange(this, type);
}

void CVisualElement::OnChange(CVisualElement* sender, UpdateType type) {
    if (!sender) return;
    CVisualElement* const origin = sender;
    Invalidate();
    if (BeforeProcessChange(sender, type)) ProcessChange(&sender);
    if (sender) {
        CVisualElement* const parent = sender->m_parent;
        // A transparent element shows through what lies behind it, which repaints first: its parent, or an
        // ancestor further up where it stands beyond the parent. Not when it leaves: the parent it has then
        // may be a new one, in another control, which must not forget it.
        if (parent && sender->IsTransparent() && !(type & UpdateLeaving)) {
            CVisualElement* const behind = Holder(parent, sender->GetPosition());
            behind->OnChange(behind, type);
        }
        for (CVisualElement* e = parent; e && sender; e = e->m_parent)
            if (e->BeforeProcessChange(sender, type)) e->ProcessChange(&sender);
    }
    if (!m_control) return;
    // Ancestors may claim a repaint, but the element that leaves is the one the control must forget,
    // whatever they answered: a claimed notice would leave its pointers on an element outside the tree.
    if (type & UpdateLeaving)
        m_control->UpdateElement(origin, type);
    else if (sender)
        m_control->UpdateElement(sender, type);
}

void CVisualElement::OnRearrange(CVisualElement* sender) {
    if (!sender) return;
    ProcessRearrange(&sender);
    for (CVisualElement* e = sender ? sender->m_parent : nullptr; e && sender; e = e->m_parent)
        e->ProcessRearrange(&sender);
    if (m_control && sender) m_control->RearrangeElement(sender);
}

bool CVisualElement::OnGlobalUpdate() {
    UpdateElement();
    for (int i = 0; i < m_children->GetCount(); ++i)
        m_children->GetItem(i)->OnGlobalUpdate();
    return true;
}

// --- Drawing ----------------------------------------------------------------------------------------------

void CVisualElement::OnDraw(IPainter* painter) {
    rectangle<int> const bounds = GetBounds();
    if (!painter || bounds.Width() < 1 || bounds.Height() < 1 || !m_visible) return;
    if (painter->NeedsFullRepaint()) Invalidate();
    painter->SetDisabled(!m_enabled);
    painter->SetFont(GetFont());
    brush background;
    background.style = brush::Solid;
    background.color = GetBkColor();
    painter->SetBrush(background);
    _color const foreground = m_enabled ? GetFgColor() : _color(127, 127, 127, 255);
    painter->SetTextColor(foreground);
    pen outline;
    outline.color = foreground;
    painter->SetPen(outline);
    painter->SetElementFlag(0);
    sigPaint(this, painter);
    DrawContent(painter);
    DrawElements(m_children, painter, GetDrawBounds());
    painter->SetDisabled(false);
    m_validRect = m_bounds;
}

void DrawElements(IVisualElements* list, IPainter* painter, rectangle<int> const& clip) {
    if (!list || !painter) return;
    // Most of a list shares one parent, whose origin is therefore computed once.
    CVisualElement const* originOf = nullptr;
    bool haveOrigin = false;
    point<int> parentOrigin;
    for (int i = 0; i < list->GetCount(); ++i) {
        CVisualElement* const element = list->GetItem(i);
        if (!element || !element->IsVisible()) continue;
        rectangle<int> const& b = element->GetPosition();
        if (!clip.IsAllZero() && (b.Width() < 1 || b.Height() < 1 || b.right <= clip.left ||
                                  b.bottom <= clip.top || b.left >= clip.right || b.top >= clip.bottom))
            continue;
        CVisualElement const* const parent = element->GetParent();
        if (!haveOrigin || parent != originOf) {
            parentOrigin = {};
            if (parent) parent->ElementToControl(&parentOrigin);
            originOf = parent;
            haveOrigin = true;
        }
        auto const info = IPainter::CoordInfo::Mapping(0, 0, b.Width(), b.Height(), parentOrigin.x + b.left,
                                                       parentOrigin.y + b.top, b.Width(), b.Height());
        painter->SetCoordSystem(IPainter::MapElement, &info);
        element->OnDraw(painter);
    }
}

// --- Background image -------------------------------------------------------------------------------------

bool CVisualElement::GetBkImage(mirel_ptr<IRasterPicture>& picture, _color& color, rectangle<int>& place) {
    for (CVisualElement* e = this; e; e = e->m_parent)
        if (e->HandleGetBkImage(picture, color, place)) return picture.get() != nullptr;
    mirel7::ISysWindow* const window = m_control ? m_control->GetWindow() : nullptr;
    IPainter* const painter = window ? window->GetPainter() : nullptr;
    if (!painter) return false;
    picture = painter->GetBackgroundPicture();
    color = painter->GetBackgroundColor();
    place = painter->GetBackgroundPlace();
    return picture.get() != nullptr;
}

bool CVisualElement::IsBkImagePresented() {
    mirel_ptr<IRasterPicture> picture;
    _color color;
    rectangle<int> place;
    return GetBkImage(picture, color, place);
}

rectangle<int> CVisualElement::GetBkImageRectEx(rectangle<int>& dst, IRasterPicture* picture,
                                                rectangle<int> const& place) {
    if (!picture) return {};
    size<int> const pictureSize = picture->GetSize();
    screen_rectangle<int> client;
    if (mirel7::ISysWindow* const window = m_control ? m_control->GetWindow() : nullptr)
        window->GetClientRect(client);
    // A negative left or top anchors the picture to the right or bottom of the client area.
    int const x0 = place.left < 0 ? client.right - place.right - pictureSize.cx : place.left;
    int const y0 = place.top < 0 ? client.bottom - place.bottom - pictureSize.cy : place.top;
    rectangle<int> shown = dst;
    ElementToControl(&shown);
    shown = shown.Intersect({x0, y0, x0 + pictureSize.cx, y0 + pictureSize.cy});
    if (shown.IsAllZero()) return {};
    rectangle<int> source = shown;
    ControlToElement(&shown);
    dst = shown;
    Shift(source, -x0, -y0);
    return source;
}

rectangle<int> CVisualElement::GetBkImageRect(rectangle<int>& dst) {
    mirel7::ISysWindow* const window = m_control ? m_control->GetWindow() : nullptr;
    IPainter* const painter = window ? window->GetPainter() : nullptr;
    if (!painter || !painter->GetBackgroundPicture()) return {};
    return GetBkImageRectEx(dst, painter->GetBackgroundPicture().get(), painter->GetBackgroundPlace());
}

bool CVisualElement::DrawBkImage(IPainter* painter, rectangle<int> const& rect, size<int> const& scaleTo) {
    mirel_ptr<IRasterPicture> picture;
    _color color;
    rectangle<int> place;
    GetBkImage(picture, color, place);
    return DrawBkImageEx(painter, rect, picture.get(), color, place, scaleTo);
}

bool CVisualElement::DrawBkImageEx(IPainter* painter, rectangle<int> const& rect, IRasterPicture* picture,
                                   _color const& color, rectangle<int> const& place,
                                   size<int> const& scaleTo) {
    if (!picture || !painter) return false;
    brush fill;
    fill.color = color;
    painter->SetBrush(fill);
    painter->FillRect(rectangle<double>(rect));
    rectangle<int> dst = rect;
    rectangle<int> const source = GetBkImageRectEx(dst, picture, place);
    if (source.Width() < 1 || source.Height() < 1) return true;
    if (scaleTo.cx < 1 && scaleTo.cy < 1) {
        painter->DrawRasterPictureEx(picture, dst.left, dst.top, dst.right, dst.bottom, source);
        return true;
    }
    mirel7::ISystem* const system = mirel7::GetCurrentSystem();
    mirel_ptr<IRasterPicture> part = system ? system->CreateRasterPicture(1, 1) : nullptr;
    if (!part) return true;
    part->CopyFrom(picture, &source);
    part->Scale(scaleTo);
    painter->DrawRasterPicture(part.get(), dst.left, dst.top, dst.left + scaleTo.cx, dst.top + scaleTo.cy);
    return true;
}

void CVisualElement::DrawBlendBk(IPainter* painter, rectangle<int> const& rect, brush const& b, int alpha) {
    mirel7::ISystem* const system = mirel7::GetCurrentSystem();
    if (!painter || !system) return;
    rectangle<int> const r = rect.Normalized();
    int const width = r.Width() + 1, height = r.Height() + 1;
    mirel_ptr<IRasterPicture> picture = system->CreateRasterPicture(width, height);
    IPainter* const inner = picture ? picture->GetPainter() : nullptr;
    if (!inner) return;
    inner->BeginPaint(IPainter::PaintPlain);
    inner->SetBrush(b);
    inner->FillRect(0, 0, width - 1, height - 1);
    inner->EndPaint();
    painter->AlphaBlend(r.left, r.top, r.right + 1, r.bottom + 1, picture.get(), alpha);
}

// --- Text -------------------------------------------------------------------------------------------------

std::string CVisualElement::AsString() const {
    std::string answer;
    sigAsString(const_cast<CVisualElement*>(this), answer);
    if (answer.empty()) answer = HandleAsString();
    if (!answer.empty()) return answer;

    std::vector<CVisualElement*> children;
    for (int i = 0; i < m_children->GetCount(); ++i)
        children.push_back(m_children->GetItem(i));
    std::stable_sort(children.begin(), children.end(), [](CVisualElement* a, CVisualElement* b) {
        rectangle<int> const &pa = a->m_bounds, &pb = b->m_bounds;
        return pa.top != pb.top ? pa.top < pb.top : pa.left < pb.left;
    });
    // Children side by side on one row are joined by a tab, rows by an empty line.
    CVisualElement const* previous = nullptr;
    bool previousHadLineFeed = false;
    for (CVisualElement* child : children) {
        if (!child->m_visible) continue;
        std::string const text = child->AsString();
        if (text.empty()) continue;
        if (!answer.empty()) {
            bool const sameRow =
                previous && previous->m_bounds.top == child->m_bounds.top && !previousHadLineFeed;
            answer += sameRow ? "\t" : "\n\n";
        }
        answer += text;
        previous = child;
        previousHadLineFeed = text.find('\n') != std::string::npos;
    }
    return answer;
}

bool CVisualElement::CopyToClipboard() {
    bool enabled = IsCopyToClipboardEnabled();
    sigCopyToClipboard(this, enabled);
    return enabled && HandleCopyToClipboard();
}

bool CopyToClipboard(CVisualElement const* element) {
    std::string const text = element ? element->AsString() : std::string();
    if (text.empty()) return false;
    if (mirel7::ISystem* const system = mirel7::GetCurrentSystem()) system->GetClipboard()->SetText(text);
    return true;
}

// --- Free helpers -----------------------------------------------------------------------------------------

void ApplyDPIScale(int& value) {
    if (!(mirel7::GetDPIAutoScale() & 1)) return;
    mirel7::ISystem* const system = mirel7::GetCurrentSystem();
    double const scale = system ? system->GetDPIScale() : 1.0;
    if (scale <= 1.0) return;
    // Past the range of int the conversion would be undefined: such a value stops at the end of the range.
    double const scaled = std::clamp(value * scale, double(std::numeric_limits<int>::min()),
                                     double(std::numeric_limits<int>::max()));
    value = static_cast<int>(scaled);
}

void ApplyDPIScale(size<int>& value) {
    ApplyDPIScale(value.cx);
    ApplyDPIScale(value.cy);
}

void ApplyDPIScale(rectangle<int>& value) {
    ApplyDPIScale(value.left);
    ApplyDPIScale(value.top);
    ApplyDPIScale(value.right);
    ApplyDPIScale(value.bottom);
}

bool IsOverlapped(CVisualElement const* element, rectangle<int> const& rect) {
    std::vector<CVisualElement*> above;
    AddOverlapping(const_cast<CVisualElement*>(element), rect, above);
    return !above.empty();
}

void AddOverlapping(CVisualElement* element, rectangle<int> const& rect, std::vector<CVisualElement*>& out) {
    // The places drawn so far, in the coordinates of the current parent: the element's, then those of
    // every later sibling drawn over them, level by level up to the root.
    std::vector<rectangle<int>> drawn{rect};
    for (CVisualElement* node = element; CVisualElement* const parent = node->GetParent(); node = parent) {
        IChildren* const children = parent->GetChildren();
        for (int i = children->GetIndex(node) + 1; i < children->GetCount(); ++i) {
            CVisualElement* const sibling = children->GetItem(i);
            rectangle<int> b;
            if (!GetExtent(sibling, b, false)) continue;
            if (std::any_of(drawn.begin(), drawn.end(),
                            [&](rectangle<int> const& d) { return Overlap(b, d); })) {
                out.push_back(sibling);
                drawn.push_back(b);
            }
        }
        for (rectangle<int>& d : drawn)
            Shift(d, parent->GetPosition().left, parent->GetPosition().top);
    }
}

bool IsAncestor(CVisualElement const* element, CVisualElement const* ancestor) {
    if (!element || !ancestor) return false;
    for (CVisualElement const* e = element; e; e = e->GetParent())
        if (e == ancestor) return true;
    return false;
}

void ScrollOnSetPos(CVisualElement* element, rectangle<int> const& newRect, rectangle<int> const& oldRect,
                    rectangle<int> const& drawBounds) {
    CVisualElement* const parent = element->GetParent();
    IControl* const control = element->GetControl();
    // Below an ancestor squeezed to nothing the element is not on the screen: the pixels there are others'.
    if (!parent || !control || !element->IsVisible() || !IsDrawn(parent)) return;
    int const dx = newRect.left - oldRect.left, dy = newRect.top - oldRect.top;
    if (dx == 0 && dy == 0) return;
    // The window's pixels there show the later sibling on top too: they cannot move with the element.
    if (IsOverlapped(element, oldRect) || IsOverlapped(element, newRect)) {
        element->OnChange(element, UpdateLocal);
        return;
    }
    rectangle<int> source;
    if (drawBounds.IsAllZero()) {
        // The old place, less what would land outside the new one.
        source = {oldRect.left, oldRect.top,
                  newRect.right < oldRect.right + dx ? newRect.right - dx : oldRect.right,
                  newRect.bottom < oldRect.bottom + dy ? newRect.bottom - dy : oldRect.bottom};
        parent->ElementToControl(&source);
    } else {
        source = drawBounds;
        if (dx < 0)
            source.left = drawBounds.left - dx;
        else if (dx > 0)
            source.right = drawBounds.right - dx;
        if (dy < 0)
            source.top = drawBounds.top - dy;
        else if (dy > 0)
            source.bottom = drawBounds.bottom - dy;
        element->ElementToControl(&source);
    }
    if (source.Width() > 0 && source.Height() > 0)
        control->ScrollContent(dx, dy, screen_rectangle<int>(source));
}

// --- Defaults of the virtual operations
// ---------------------------------------------------------------------

bool CVisualElement::IsFullRepainted() const {
    for (int i = 0; i < m_children->GetCount(); ++i) {
        CVisualElement* const child = m_children->GetItem(i);
        if (child->m_visible && !child->IsFullRepainted()) return false;
    }
    return true;
}

bool CVisualElement::IsTransparent() const {
    return false;
}
void CVisualElement::SetHelpId(std::string const& id) {
    m_helpId = id;
}
rectangle<int> CVisualElement::GetDrawBounds() const {
    return {};
}
bool CVisualElement::IsCopyToClipboardEnabled() const {
    return false;
}
void CVisualElement::DrawContent(IPainter*) {}
mirel7::ICustomPalette* CVisualElement::GetCustomPalette() const {
    return nullptr;
}
bool CVisualElement::HandleGetBkImage(mirel_ptr<IRasterPicture>&, _color&, rectangle<int>&) {
    return false;
}
void CVisualElement::UpdateElement() {}
bool CVisualElement::ScrollContent(int, int) {
    return false;
}
bool CVisualElement::IsScrollableOnSetPos() const {
    return true;
}
void CVisualElement::ProcessSetControl(IControl*) {}
void CVisualElement::AfterSetControl() {}
void CVisualElement::SetCoordSystem(IPainter*) {}
void CVisualElement::SysColorsChanged() {}
void CVisualElement::AttributeChanged() {
    OnChange(this, UpdateLocal);
}
void CVisualElement::ProcessSetVisible(bool) {}
void CVisualElement::ProcessSetParentVisible(bool) {}
void CVisualElement::AddNewChild(CVisualElement*) {}
void CVisualElement::ChangeParent(CVisualElement*) {}
void CVisualElement::ProcessRearrange(CVisualElement**) {}
void CVisualElement::ProcessChange(CVisualElement**) {}
bool CVisualElement::BeforeProcessChange(CVisualElement*, UpdateType) {
    return true;
}
bool CVisualElement::IsControlFocused() const {
    return m_parent && m_parent->IsControlFocused();
}
std::string CVisualElement::HandleAsString() const {
    return {};
}
bool CVisualElement::HandleCopyToClipboard() const {
    return mirelfrw7::CopyToClipboard(this);
}

void CContent::DrawContent(IPainter*) {}

} // namespace mirelfrw7
