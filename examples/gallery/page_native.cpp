// Native pieces of the window: two scroll bars that scroll a pair of numbers, a context menu on the right
// button, tooltips, and a link that opens in the desktop's browser.
#include "gallery.h"

#include <mirelfrw7/core/control.h>

#include <mirel7/popup_menu.h>
#include <mirel7/scroll_bar.h>
#include <mirel7/sys_window.h>

#include <string>

namespace gallery {

namespace {
using mirel7::_color;
using mirel7::IPainter;
using namespace mirelfrw7;

constexpr int BarThickness = 16;

// The pair the bars scroll, with a menu of its own.
class CNumbers : public CVisualElement {
public:
    explicit CNumbers(CVisualElement* parent) : CVisualElement(parent, {}, AlignClient) {
        SetBkColor(_color(250, 250, 245));
        SetTooltip("Scroll with the bars or the wheel over them; the right button opens a menu");
        m_menu.AddItem("Reset both");
        m_menu.AddItem("Add ten to each");
        m_menu.AddSeparator();
        m_menu.AddItem("Nothing here", false);
        m_menu.SetChooseHandler([this](int item) {
            int const add = item == 1 ? 10 : 0;
            Set(item == 0 ? 0 : value[0] + add, item == 0 ? 0 : value[1] + add);
            sigReset(this);
        });
        SetContextMenu(&m_menu);
    }
    void Set(int x, int y) {
        value[0] = std::min(x, 990);
        value[1] = std::min(y, 990);
        Update(UpdateLocal);
    }
    void DrawContent(IPainter* painter) override {
        rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
        painter->DrawString(rectangle<double>(b),
                            "x = " + std::to_string(value[0]) + "    y = " + std::to_string(value[1]),
                            IPainter::AlignHCenter | IPainter::AlignVCenter);
    }

    int value[2] = {0, 0};
    tarnkit2::signal_t<CNumbers*> sigReset;

private:
    mirel7::CPopupMenu m_menu;
};

// Keeps a native bar on its own rectangle and hands the bar's position to the numbers.
class CBarHost : public CVisualElement, public mirel7::CScrollBarNotify {
public:
    CBarHost(CVisualElement* parent, mirel7::ISysWindow::ScrollType type, CNumbers& numbers)
        : CVisualElement(parent, {BarThickness, BarThickness},
                         type == mirel7::ISysWindow::ScrollVertical ? AlignRight : AlignBottom),
          m_axis(type == mirel7::ISysWindow::ScrollVertical ? 1 : 0), m_numbers(numbers) {
        if (mirel7::ISysWindow* const window = GetControl() ? GetControl()->GetWindow() : nullptr)
            m_bar = window->CreateScrollBar(type);
        if (!m_bar) return;
        m_bar->SetInfo({0, 0, 999, 1, 100, 0, false});
        m_bar->GetEventSender()->Subscribe<mirel7::IScrollBarNotify>(this);
        numbers.sigReset.connect(this, &CBarHost::OnReset);
    }
    void SetPos(rectangle<int> const& newRect, bool force) override {
        CVisualElement::SetPos(newRect, force);
        rectangle<int> r = GetBounds();
        ElementToControl(&r);
        if (m_bar) m_bar->Move(r.left, r.top, r.right, r.bottom);
    }
    void ScrollBarOnScroll(mirel7::CScrollEvent* event) override {
        int value[2] = {m_numbers.value[0], m_numbers.value[1]};
        value[m_axis] = static_cast<int>(event->position);
        m_numbers.Set(value[0], value[1]);
    }
    void OnReset(CNumbers* numbers) {
        numbers->value[m_axis] = static_cast<int>(m_bar->SetPos(numbers->value[m_axis]));
    }

private:
    int m_axis;
    CNumbers& m_numbers;
    mirel7::mirel_ptr<mirel7::IScrollBar> m_bar;
};

// Opens its address with the desktop, unless a slot of the control's open-link signal takes it.
class CLink : public CVisualElement {
public:
    CLink(CVisualElement* parent, std::string address)
        : CVisualElement(parent, {0, 28}, AlignBottom), m_address(std::move(address)) {
        SetBkColor(_color(240, 240, 240));
        SetFgColor(_color(0, 90, 200));
        SetCursor(mirel7::ISysWindow::CursorHand);
        SetTooltip(m_address);
    }
    bool HandleClick(int, int, int, mirel7::MouseButton button) override {
        if (button != mirel7::ButtonLeft || !GetControl()) return false;
        GetControl()->OpenLink(m_address);
        return true;
    }
    void DrawContent(IPainter* painter) override {
        rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
        painter->DrawString(rectangle<double>(b.left + 8, b.top, b.right, b.bottom), "Open " + m_address,
                            IPainter::AlignLeft | IPainter::AlignVCenter);
    }

private:
    std::string m_address;
};
} // namespace

void BuildNativePage(CVisualElement* host) {
    new CLink(host, "https://example.org/");
    auto* pane = new CVisualElement(host, {}, AlignClient);
    // Created before the numbers so that the docking gives them their strips first.
    auto* vertical = new CVisualElement(pane, {BarThickness, 0}, AlignRight);
    auto* horizontal = new CVisualElement(pane, {0, BarThickness}, AlignBottom);
    auto* numbers = new CNumbers(pane);
    new CBarHost(vertical, mirel7::ISysWindow::ScrollVertical, *numbers);
    new CBarHost(horizontal, mirel7::ISysWindow::ScrollHorizontal, *numbers);
}

GALLERY_PAGE(65, "native", BuildNativePage)

} // namespace gallery
