// Containers: bevels in every shape and style, borders that leave the inside to their children, panes
// that light up while the focus is inside, boxes that grow and shrink as their children come and go (a
// timer, or the space key), a scrolled holder moved with the arrow keys, a native scroll bar hosted in the
// tree, and a central part scrolled by moving its pixels.
#include "gallery.h"
#include "swatch.h"

#include <mirelfrw7/core/control.h>
#include <mirelfrw7/layout/bevel.h>
#include <mirelfrw7/layout/box.h>
#include <mirelfrw7/layout/central_part.h>
#include <mirelfrw7/layout/container.h>
#include <mirelfrw7/layout/pane.h>

#include <mirel7/scroll_bar.h>
#include <mirel7/sys_window.h>
#include <mirel7/system.h>
#include <mirel7/timer.h>

#include <string>

namespace gallery {

namespace {
using mirel7::_color;
using mirel7::IPainter;
using namespace mirelfrw7;

// A caption line in the page's own colours.
class CCaption : public CVisualElement {
public:
    CCaption(CVisualElement* parent, std::string text)
        : CVisualElement(parent, {0, 20}, AlignTop), m_text(std::move(text)) {}
    void DrawContent(IPainter* painter) override {
        rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
        painter->DrawString(rectangle<double>(b.left + 4, b.top, b.right, b.bottom), m_text,
                            IPainter::AlignLeft | IPainter::AlignVCenter);
    }

private:
    std::string m_text;
};

char const* const ShapeNames[] = {"box", "soft", "bottom", "top", "left", "right", "bottom-right", "none"};
char const* const StyleNames[] = {"flat", "raised", "sunken"};

// A name on the face of its parent, without a frame of its own.
class CLabel : public CCaption {
public:
    CLabel(CVisualElement* parent, std::string text, _color face) : CCaption(parent, std::move(text)) {
        SetAlignment(AlignClient);
        SetBkColor(face);
    }
};

// Every shape in every style, each bevel on a face of its own colour so that its shades show.
void BuildBevels(CVisualElement* column) {
    new CCaption(column, "Bevels: shape by row, style by column");
    _color const face(214, 226, 240);
    for (int shape = 0; shape <= 7; ++shape) {
        auto* row = new CVisualElement(column, {0, 32}, AlignTop);
        for (int style = 0; style <= 2; ++style) {
            auto* bevel = new CBevel(row, {104, 0}, AlignLeft);
            bevel->SetShape(static_cast<CBevel::BorderShape>(shape));
            bevel->SetStyle(static_cast<CBevel::BorderStyle>(style));
            bevel->SetBkColor(face);
            bevel->SetOffset({2, 2, 2, 2});
            bevel->SetContentOffset({4, 4, 4, 4});
            new CLabel(bevel, std::string(ShapeNames[shape]) + " " + StyleNames[style], face);
        }
    }
    new CCaption(column, "Borders: a frame only, the inside is the child's");
    auto* row = new CVisualElement(column, {0, 40}, AlignTop);
    for (int style = 0; style <= 2; ++style) {
        auto* border = new CBorder(row, {104, 0}, AlignLeft);
        border->SetShape(mirel7::BorderBox);
        border->SetStyle(static_cast<CBevel::BorderStyle>(style));
        border->SetBkColor(_color(86, 180, 233));
        border->SetOffset({2, 2, 2, 2});
        border->SetContentOffset({6, 6, 6, 6});
        new CLabel(border, StyleNames[style], _color(255, 255, 255));
    }
}

// A focusable swatch inside a pane: click it, or Tab, and the pane's frame turns to the highlight.
void BuildPanes(CVisualElement* column) {
    new CCaption(column, "Panes: click inside, the frame shows the focus");
    auto* row = new CVisualElement(column, {0, 50}, AlignTop);
    for (int i = 0; i < 2; ++i) {
        auto* pane = new CPane(row, {150, 0}, AlignLeft);
        auto* inside = new CSwatch(pane, AlignClient, {}, _color(240, 228, 66), "click to focus");
        inside->SetFocusable(true);
        // The first starts with the focus, so that both looks are there from the start.
        if (i == 0) inside->SetFocus(false);
        new CVisualElement(row, {10, 0}, AlignLeft);
    }
}

// Shows and hides the children of two boxes in turn, on a timer and on the space key.
class CBoxes : public CVisualElement, public mirel7::CTimerNotify {
public:
    explicit CBoxes(CVisualElement* column) : CVisualElement(column, {0, 140}, AlignTop) {
        SetFocusable(true);
        new CCaption(this, "Boxes: sized to their children (space, or wait)");
        auto* bevel = new CBevel(this, {180, 0}, AlignLeft);
        bevel->SetShape(mirel7::BorderBox);
        bevel->SetStyle(mirel7::BorderSunken);
        m_vert = new CVertBox(bevel, {0, 0}, AlignTop);
        m_vert->SetBkColor(_color(255, 220, 180));
        m_vert->SetBottomPadSize(4);
        auto* across = new CBevel(this, {0, 0}, AlignClient);
        across->SetShape(mirel7::BorderBox);
        across->SetStyle(mirel7::BorderSunken);
        m_horz = new CHorzBox(across, {0, 0}, AlignLeft);
        m_horz->SetBkColor(_color(200, 230, 200));
        m_horz->SetRightPadSize(4);
        static _color const colours[] = {{230, 159, 0}, {0, 114, 178}, {0, 158, 115}, {204, 121, 167}};
        for (int i = 0; i < 4; ++i) {
            // Appended rather than concatenated: GCC 12 at -O3 takes "literal" + string for an overlapping
            // copy.
            std::string const number = std::to_string(i + 1);
            m_rows[i] =
                new CSwatch(m_vert, AlignTop, {0, 22}, colours[i], std::string("row ").append(number));
            m_columns[i] =
                new CSwatch(m_horz, AlignLeft, {44, 0}, colours[3 - i], std::string("c").append(number));
        }
        if (mirel7::ISystem* const system = mirel7::GetCurrentSystem()) {
            m_timer = system->CreateTimer(900, true);
            if (m_timer) m_timer->GetEventSender()->Subscribe<mirel7::ITimerNotify>(this);
        }
    }
    ~CBoxes() override {
        if (m_timer) m_timer->GetEventSender()->Unsubscribe(this, true);
    }
    void OnTimer(mirel7::CTimerEvent*) override { Step(); }
    bool HandleKeyDown(int, int key) override {
        if (key != mirel7::KeySpace) return false;
        Step();
        return true;
    }

private:
    void Step() {
        int const i = m_step++ % 4;
        m_rows[i]->SetVisible(!m_rows[i]->IsVisible());
        m_columns[i]->SetVisible(!m_columns[i]->IsVisible());
    }

    CVertBox* m_vert;
    CHorzBox* m_horz;
    CVisualElement* m_rows[4];
    CVisualElement* m_columns[4];
    mirel7::mirel_ptr<mirel7::ISysTimer> m_timer;
    int m_step = 0;
};

// A holder larger than its window; click it, then the arrow, page, home and end keys move it.
void BuildScrolled(CVisualElement* column) {
    new CCaption(column, "Scrolled: click, then arrows, Page, Home, End");
    auto* pane = new CPane(column, {0, 110}, AlignTop);
    auto* window = new CVisualElement(pane, {0, 0}, AlignClient);
    auto* scrolled = new CScrolled(window, {420, 252}, AlignNone);
    scrolled->SetBkColor(_color(250, 250, 245));
    scrolled->SetFocusable(true);
    for (int i = 0; i < 6; ++i) {
        auto* row = new CVisualElement(scrolled, {0, 41}, AlignTop);
        for (int j = 0; j < 5; ++j)
            new CSwatch(row, AlignLeft, {83, 0}, _color(uint8_t(60 + 30 * i), uint8_t(200 - 25 * j), 180),
                        std::to_string(i) + "," + std::to_string(j));
    }
    // Undocked, so it docks its rows only when told to.
    scrolled->SetPos({0, 0, 420, 252}, true);
}

// A native scroll bar that lives in the tree: hidden and shown with its parent, placed with it.
void BuildNative(CVisualElement* column) {
    new CCaption(column, "Container: a native scroll bar in the tree");
    auto* container = new CContainer(column, {0, 22}, AlignTop);
    container->SetOffset({4, 2, 4, 2});
    mirel7::ISysWindow* const window =
        container->GetControl() ? container->GetControl()->GetWindow() : nullptr;
    mirel7::mirel_ptr<mirel7::IScrollBar> bar =
        window ? window->CreateScrollBar(mirel7::ISysWindow::ScrollHorizontal) : nullptr;
    if (!bar) return;
    bar->SetInfo({0, 0, 100, 1, 20, 30, false});
    container->SetNativeControl(bar.get());
}

// Stripes that scroll by moving the window's pixels: only the uncovered strip is new.
class CStripes : public CCentralPart {
public:
    explicit CStripes(CVisualElement* parent) : CCentralPart(parent, {0, 0}, AlignClient) {
        SetFgColor(_color(20, 20, 20));
        SetFocusable(true);
    }
    void DrawContent(IPainter* painter) override {
        rectangle<int> const b = GetBounds();
        for (int y = b.top - ((m_offset % 20) + 20) % 20; y <= b.bottom; y += 20) {
            int const index = (y + m_offset) / 20;
            brush fill;
            fill.color = index % 2 ? _color(86, 180, 233) : _color(240, 240, 240);
            painter->SetBrush(fill);
            painter->FillRect(b.left, y, b.right, y + 19);
            painter->DrawString(rectangle<double>(b.left + 6, y, b.right, y + 19),
                                "line " + std::to_string(index),
                                IPainter::AlignLeft | IPainter::AlignVCenter);
        }
    }
    bool HandleKeyDown(int, int key) override {
        int const d = key == 38 ? -10 : key == 40 ? 10 : 0;
        if (d == 0) return false;
        m_offset += d;
        Scroll(0, -d, true);
        return true;
    }

private:
    int m_offset = 0;
};

void BuildCentral(CVisualElement* column) {
    new CCaption(column, "Central part: click, then up and down");
    auto* pane = new CPane(column, {0, 0}, AlignClient);
    new CStripes(pane);
}
} // namespace

void BuildBoxesPage(CVisualElement* host) {
    host->SetBkColor(_color(236, 236, 236));
    auto* left = new CVisualElement(host, {320, 0}, AlignLeft);
    new CVisualElement(host, {12, 0}, AlignLeft);
    auto* right = new CVisualElement(host, {0, 0}, AlignClient);
    BuildBevels(left);
    BuildPanes(left);
    new CBoxes(right);
    BuildScrolled(right);
    BuildNative(right);
    BuildCentral(right);
}

GALLERY_PAGE(90, "boxes", BuildBoxesPage)

} // namespace gallery
