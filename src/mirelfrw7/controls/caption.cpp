#include <mirelfrw7/controls/caption.h>
#include <mirelfrw7/core/control.h>
#include <mirelfrw7/core/label.h>
#include <mirelfrw7/header/delimiters.h>
#include <mirelfrw7/items/display_scale.h>

#include <mirel7/html_markup.h>
#include <mirel7/image_list.h>
#include <mirel7/sys_window.h>
#include <mirel7/window_painter.h>

#include <algorithm>
#include <tuple>

namespace mirelfrw7 {

namespace {

int Sign(int v) {
    return (v > 0) - (v < 0);
}

// Edges count as inside, except those of a rectangle collapsed on that axis.
bool Hits(rectangle<int> const& r, point<int> const& p) {
    return Sign(p.x - r.left) != Sign(p.x - r.right) && Sign(p.y - r.top) != Sign(p.y - r.bottom);
}

} // namespace

// --- LinkHolder -------------------------------------------------------------------------------------------

void CCaption::LinkHolder::AddLink(char const* text, int length, rectangle<int> const& rect) {
    m_links.push_back(
        {text ? std::string(text, static_cast<std::size_t>(std::max(length, 0))) : std::string(), rect});
}

void CCaption::LinkHolder::SetValid(bool valid) {
    m_valid = valid;
    if (!valid) {
        m_links.clear();
        return;
    }
    std::stable_sort(m_links.begin(), m_links.end(), [](Link const& a, Link const& b) {
        return std::tie(b.rect.top, b.rect.left) < std::tie(a.rect.top, a.rect.left);
    });
}

bool CCaption::LinkHolder::IsLink(point<int> const& p) const {
    return std::any_of(m_links.begin(), m_links.end(), [&](Link const& l) { return Hits(l.rect, p); });
}

std::string CCaption::LinkHolder::GetLink(point<int> const& p) const {
    bool found = false;
    for (Link const& l : m_links) {
        found = found || Hits(l.rect, p);
        if (found && !l.link.empty()) return l.link;
    }
    return {};
}

// --- CCaption ---------------------------------------------------------------------------------------------

CCaption::CCaption(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CTransparentFlavor<CVisualElement>(parent, elementSize, alignment), m_imageSpace(DisplayScaled(4)) {
    ChangeLayout(AlignTop);
}

size<int> CCaption::GetAutoSizeExtent() const {
    return {DisplayScaled(2), DisplayScaled(2)};
}

void CCaption::DrawBackground(IPainter* painter) {
    if (IsTransparent()) return;
    rectangle<int> const b = GetBounds();
    painter->FillRect(b.left, b.top, b.right, b.bottom);
}

rectangle<int> CCaption::GetInternalRect() const {
    return GetBounds();
}

size<int> CCaption::GetAutoSizeAdditionalExtent() const {
    return GetAutoSizeExtent();
}

size<int> CCaption::GetImageSize() const {
    mirel7::IImageList* const images = m_control ? m_control->GetImageList() : nullptr;
    if (!images || m_imageIndex == -1) return {};
    size<int> s = images->GetImageSize(m_imageIndex);
    if (!m_caption.empty()) s.cx += m_imageSpace;
    return s;
}

void CCaption::RecalculateSize() {
    if (m_control) m_links.SetValid(false);
    if (!m_autoSize) {
        OnChange(this, UpdateLocal);
        return;
    }
    mirel7::ISysWindow* const window = m_control ? m_control->GetWindow() : nullptr;
    IPainter* const painter = window ? window->GetPainter() : nullptr;
    if (!painter) return;
    bool const begun = !painter->IsInPaint();
    if (begun) painter->BeginPaint(IPainter::PaintMeasure);
    painter->SetFont(GetFont());
    size<int> const image = GetImageSize();
    size<int> const extra = GetAutoSizeAdditionalExtent();
    double const inset = GetAlong(extra.cx, extra.cy);
    int limit = 100000;
    if (m_adjustHeight) limit = m_bounds.Width() - image.cx - static_cast<int>(inset);
    if (m_maxTextWidth > 0 && m_maxTextWidth < limit) limit = m_maxTextWidth;
    size<double> text;
    if (!m_caption.empty())
        text = painter->DrawStringEx({0, 0, static_cast<double>(limit), 100000.0}, m_caption.c_str(), 0x1001,
                                     -1, GetDelimiters(m_useHTML), Formatter());
    if (begun) painter->EndPaint();
    int const height = std::max(static_cast<int>(text.cy), image.cy) + extra.cy;
    int const width = extra.cx + image.cx + static_cast<int>(text.cx);
    if (IsTextConverted())
        SetSize({static_cast<int>(GetAlong(width, height)), static_cast<int>(GetAcross(width, height))},
                false);
    else
        SetSize({width, height}, false);
}

void CCaption::SetPos(rectangle<int> const& newRect, bool force) {
    int const width = m_bounds.Width();
    CVisualElement::SetPos(newRect, force);
    if (m_adjustHeight && m_bounds.Width() != width) RecalculateSize();
}

void CCaption::SetAlignment(Alignment alignment) {
    ChangeLayout(IsTextConverted() ? alignment : AlignTop);
    CVisualElement::SetAlignment(alignment);
    // Turned text measures along the new edge.
    if (IsTextConverted()) RecalculateSize();
}

void CCaption::DrawContent(IPainter* painter) {
    Clear();
    DrawBackground(painter);
    rectangle<int> r = GetInternalRect();
    mirel7::IImageList* const images = m_control ? m_control->GetImageList() : nullptr;
    if (!(m_textAlign & IPainter::AlignHCenter) && !m_caption.empty()) {
        size<int> const extra = GetAutoSizeAdditionalExtent();
        int const v = static_cast<int>(GetAlong(extra.cx, extra.cy) * 0.5 + 0.5);
        r.top += v;
        r.bottom -= v;
    }
    size<int> const image = GetImageSize();
    if (m_maxTextWidth > 0 && image.cx + m_maxTextWidth < r.Width())
        r.right = r.left + image.cx + m_maxTextWidth;
    m_links.SetValid(false);
    int const flags = m_textAlign | (m_enabled ? 0 : LabelDisabledImage);
    painter->SetElementFlag(0);
    DrawLabel(painter, r, m_caption, flags, m_imageSpace, images, m_imageIndex, this,
              GetDelimiters(m_useHTML), Formatter());
    if (m_autoTooltip) {
        bool const overflow = painter->GetElementFlag() != 0;
        if (overflow && m_tooltip.empty()) SetTooltip(m_caption);
        if (!overflow && m_tooltip == m_caption) SetTooltip(std::string());
    }
    m_links.SetValid(true);
}

void CCaption::OwnerDrawLink(char const* link, int length, rectangle<int> const& rect) {
    OnDrawLink(link, length, rect);
}

void CCaption::OnDrawLink(char const* text, int length, rectangle<int> const& rect) {
    if (!m_links.IsValid()) m_links.AddLink(text, length, rect);
}

void CCaption::AttributeChanged() {
    OnChange(this, UpdateLocal);
    RecalculateSize();
}

bool CCaption::HandleMouseMove(int x, int y, int flags, MouseButton) {
    if (flags != 0 || !m_useHTML || m_links.GetLinks().empty()) return false;
    point<int> p{x, y};
    ElementToControl(&p);
    SetCursor(m_links.IsLink(p) ? 12 : 1);
    return true;
}

bool CCaption::HandleButtonDown(int x, int y, int, MouseButton button) {
    if (button != mirel7::ButtonLeft || !m_useHTML || m_links.GetLinks().empty()) return false;
    point<int> p{x, y};
    ElementToControl(&p);
    std::string const link = m_links.GetLink(p);
    if (link.empty()) return false;
    // A slot may delete the caption: only the copies on the stack are used after the signal.
    IControl* const control = m_control;
    bool taken = false;
    sigLinkClicked(link, taken);
    if (!taken && control) control->OpenLink(link);
    return true;
}

std::string CCaption::HandleAsString() const {
    return m_useHTML ? mirel7::RemoveLinks(m_caption) : m_caption;
}

// --- Setters ----------------------------------------------------------------------------------------------

void CCaption::SetCaption(std::string const& caption) {
    if (caption == m_caption) return;
    m_caption = caption;
    SetCursor(1);
    RecalculateSize();
    OnChange(this, UpdateLocal);
}

namespace {

// Stores `value` and measures again when it differs.
template <class T>
void Change(CCaption* caption, T& field, T value) {
    if (field == value) return;
    field = value;
    caption->RecalculateSize();
}

} // namespace

void CCaption::SetAutoSize(bool on) {
    Change(this, m_autoSize, on);
}
void CCaption::AdjustHeight(bool on) {
    Change(this, m_adjustHeight, on);
}
void CCaption::SetMaxTextWidth(int width) {
    Change(this, m_maxTextWidth, std::max(width, 0));
}
void CCaption::SetTextAlign(int flags) {
    Change(this, m_textAlign, flags);
}
void CCaption::UseHTML(bool on) {
    Change(this, m_useHTML, on);
}

void CCaption::SetImageIndex(int index) {
    if (index >= -1) Change(this, m_imageIndex, index);
}

void CCaption::SetImageSpace(int space) {
    Change(this, m_imageSpace, space < 0 ? DisplayScaled(4) : space);
}

void CCaption::SetTextLayout(bool on) {
    SetTextConversion(on);
    if (on)
        SetAlignment(m_alignment);
    else
        ChangeLayout(AlignTop);
    OnChange(this, UpdateLocal);
}

} // namespace mirelfrw7
