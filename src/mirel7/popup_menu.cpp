#include <mirel7/events.h>
#include <mirel7/painter.h>
#include <mirel7/palette.h>
#include <mirel7/popup_menu.h>
#include <mirel7/sys_window_base.h>
#include <mirel7/system.h>

#include <algorithm>

namespace mirel7 {

namespace {

int Scaled(int pixels, double scale) {
    return static_cast<int>(pixels * std::max(1.0, scale));
}

_color PaletteColor(ISysPalette::SysColor index, _color fallback) {
    ISysPalette* const palette = GetSysPalette();
    return palette ? palette->GetColor(index) : fallback;
}

} // namespace

CPopupMenu::~CPopupMenu() {
    Close();
}

int CPopupMenu::AddItem(std::string const& text, bool enabled) {
    m_items.push_back({text, enabled, false});
    return static_cast<int>(m_items.size()) - 1;
}

void CPopupMenu::AddSeparator() {
    m_items.push_back({{}, false, true});
}

void CPopupMenu::Popup(ISysWindow* window, point<int> const& at) {
    if (auto* const base = dynamic_cast<CSysWindowBase*>(window)) base->OpenPopupMenu(this, at);
}

void CPopupMenu::Close() {
    if (CSysWindowBase* const window = std::exchange(m_window, nullptr)) window->ClosePopupMenu(this);
    m_current = -1;
}

int CPopupMenu::ItemHeight(SItem const& item, double scale) {
    return Scaled(item.separator ? 7 : 22, scale);
}

int CPopupMenu::ItemTop(int index, double scale) const {
    int top = Scaled(2, scale);
    for (int i = 0; i < index; ++i)
        top += ItemHeight(m_items[static_cast<std::size_t>(i)], scale);
    return top;
}

size<int> CPopupMenu::Measure(IPainter* painter, double scale) const {
    int width = Scaled(100, scale);
    painter->SetFont(GetDefaultGUIFont());
    for (SItem const& item : m_items)
        if (!item.separator)
            width = std::max(width, static_cast<int>(painter->GetTextSize(item.text).cx) + Scaled(24, scale));
    return {width, ItemTop(static_cast<int>(m_items.size()), scale) + Scaled(2, scale)};
}

void CPopupMenu::Draw(IPainter* painter, size<int> const& menuSize, double scale) const {
    _color const shadow = PaletteColor(ISysPalette::ColorShadow, {128, 128, 128});
    painter->BeginPaint(IPainter::PaintPlain);
    painter->SetFont(GetDefaultGUIFont());
    painter->SetBrush({PaletteColor(ISysPalette::ColorWindowBackground, {255, 255, 255})});
    painter->SetPen({shadow});
    painter->Rectangle(0, 0, menuSize.cx - 1, menuSize.cy - 1);
    int const pad = Scaled(12, scale);
    for (int i = 0; i < static_cast<int>(m_items.size()); ++i) {
        SItem const& item = m_items[static_cast<std::size_t>(i)];
        int const top = ItemTop(i, scale), bottom = top + ItemHeight(item, scale) - 1;
        if (item.separator) {
            painter->SetPen({shadow});
            painter->MoveTo(pad / 2, (top + bottom) / 2);
            painter->LineTo(menuSize.cx - pad / 2, (top + bottom) / 2);
            continue;
        }
        _color text = PaletteColor(ISysPalette::ColorWindowText, {0, 0, 0});
        if (i == m_current) {
            painter->SetBrush({PaletteColor(ISysPalette::ColorHighlight, {51, 102, 204})});
            painter->FillRect(2, top, menuSize.cx - 3, bottom);
            text = PaletteColor(ISysPalette::ColorHighlightText, {255, 255, 255});
        }
        if (!item.enabled) text = PaletteColor(ISysPalette::ColorGrayText, {128, 128, 128});
        painter->SetTextColor(text);
        painter->DrawString(rectangle<double>(pad, top, menuSize.cx - pad, bottom), item.text,
                            IPainter::AlignLeft | IPainter::AlignVCenter);
    }
    painter->EndPaint();
}

int CPopupMenu::ItemAt(point<int> const& at, double scale) const {
    if (at.x < 0 || at.y < 0) return -1;
    for (int i = 0; i < static_cast<int>(m_items.size()); ++i) {
        SItem const& item = m_items[static_cast<std::size_t>(i)];
        int const top = ItemTop(i, scale);
        if (at.y >= top && at.y < top + ItemHeight(item, scale)) return item.enabled ? i : -1;
    }
    return -1;
}

void CPopupMenu::SetCurrent(int index) {
    if (index == m_current) return;
    m_current = index;
    if (m_window) m_window->RedrawPopupMenu();
}

void CPopupMenu::PointerMoved(point<int> const& at, double scale) {
    SetCurrent(ItemAt(at, scale));
}

void CPopupMenu::PointerReleased(point<int> const& at, double scale) {
    int const index = ItemAt(at, scale);
    if (index >= 0) Choose(index);
}

void CPopupMenu::Step(int direction) {
    int const count = static_cast<int>(m_items.size());
    for (int n = 1; n <= count; ++n) {
        int const i =
            ((m_current < 0 ? (direction > 0 ? -1 : 0) : m_current) + direction * n + count) % count;
        if (m_items[static_cast<std::size_t>(i)].enabled) return SetCurrent(i);
    }
}

void CPopupMenu::KeyPressed(int virtualKey) {
    switch (virtualKey) {
    case KeyDown:
        Step(1);
        break;
    case KeyUp:
        Step(-1);
        break;
    case KeyReturn:
    case KeySpace:
        if (m_current >= 0) Choose(m_current);
        break;
    case KeyEscape:
        Close();
        break;
    default:
        break;
    }
}

void CPopupMenu::Choose(int index) {
    Close();
    // The handler may delete the menu: nothing of it is touched after the call.
    if (std::function<void(int)> const handler = m_onChoose) handler(index);
}

} // namespace mirel7
