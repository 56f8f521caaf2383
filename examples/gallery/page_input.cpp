// Input: tiles that light up under the pointer, count their clicks and carry a focus ring that Tab moves; a
// block that can be dragged onto a target that accepts it or one that refuses it (the cursor tells which).
#include "gallery.h"
#include "swatch.h"

#include <mirelfrw7/core/control.h>

#include <string>

namespace gallery {

namespace {
using mirel7::_color;
using mirel7::IPainter;
using namespace mirelfrw7;

constexpr int TextFlags = IPainter::AlignHCenter | IPainter::AlignVCenter;

// Lights up under the pointer, counts clicks, shows a ring while it has the focus.
class CTile : public CVisualElement {
public:
    CTile(CVisualElement* parent, std::string name, _color color, CReport& report)
        : CVisualElement(parent, {150, 0}, AlignLeft), m_name(std::move(name)), m_color(color),
          m_report(report) {
        SetFocusable(true);
        SetBkColor(color);
    }
    void HandleMouseHover(CVisualElement*) override {
        SetBkColor(_color(std::min(255, m_color.r + 50), std::min(255, m_color.g + 50),
                          std::min(255, m_color.b + 50)));
        m_report.Say(m_name + ": the pointer came in");
    }
    void HandleMouseLeave(CVisualElement*) override {
        SetBkColor(m_color);
        m_report.Say(m_name + ": the pointer left");
    }
    bool HandleClick(int x, int y, int, mirel7::MouseButton) override {
        ++m_clicks;
        Update(UpdateLocal);
        m_report.Say(m_name + ": click at " + std::to_string(x) + "," + std::to_string(y));
        return true;
    }
    void HandleGetFocus(CVisualElement* previous, bool direct) override {
        CVisualElement::HandleGetFocus(previous, direct);
        m_report.Say(m_name + ": got the focus");
    }
    void DrawContent(IPainter* painter) override {
        rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
        painter->SetTextColor(ContrastingText(GetBkColor()));
        painter->DrawString(rectangle<double>(b), m_name + "\nclicks: " + std::to_string(m_clicks),
                            TextFlags);
        if (GetControl() && GetControl()->GetFocusedElement() == this)
            painter->FocusRect(b.left + 4, b.top + 4, b.right - 4, b.bottom - 4);
    }

private:
    std::string m_name;
    _color m_color;
    CReport& m_report;
    int m_clicks = 0;
};

// Can be dragged; while it is, a translucent copy follows the pointer.
class CBlock : public CSwatch {
public:
    CBlock(CVisualElement* parent, CReport& report)
        : CSwatch(parent, AlignNone, {}, _color(86, 180, 233), "drag me"), m_report(report) {}
    bool HandleStartDragging(int, int, DragInfo& info) override {
        info.rect = GetBounds();
        m_report.Say("dragging the block");
        return true;
    }
    void HandleDrawDragItem(IPainter* painter, DragInfo& info, bool droppable, CVisualElement*) override {
        mirel7::brush fill;
        fill.color = droppable ? _color(0, 158, 115) : _color(213, 94, 0);
        painter->SetBrush(fill);
        rectangle<int> const r = info.rect;
        painter->FillRect(r.left, r.top, r.right, r.bottom);
    }
    void HandleDragFinished(CVisualElement* target, DragInfo&) override {
        if (!target) m_report.Say("the block was dropped on nothing");
    }

private:
    CReport& m_report;
};

// A drop target that accepts the block or refuses it.
class CTarget : public CSwatch {
public:
    CTarget(CVisualElement* parent, bool accepts, CReport& report)
        : CSwatch(parent, AlignNone, {}, accepts ? _color(0, 158, 115) : _color(213, 94, 0),
                  accepts ? "accepts drops" : "refuses drops"),
          m_accepts(accepts), m_report(report) {}
    bool HandleDragOver(CVisualElement*, int, int, DragInfo&) override { return m_accepts; }
    void HandleDropDone(CVisualElement*, int x, int y, DragInfo&) override {
        m_report.Say("dropped at " + std::to_string(x) + "," + std::to_string(y) + " of the target");
    }

private:
    bool m_accepts;
    CReport& m_report;
};
} // namespace

void BuildInputPage(CVisualElement* host) {
    auto* report = new CReport(host, "Move, click, press Tab, or drag the block onto a target.");
    auto* tiles = new CSwatch(host, AlignTop, {0, 120}, _color(245, 245, 245), "");
    new CTile(tiles, "first", _color(0, 114, 178), *report);
    new CTile(tiles, "second", _color(204, 121, 167), *report);
    new CTile(tiles, "third", _color(230, 159, 0), *report);
    auto* field = new CSwatch(host, AlignClient, {}, _color(245, 245, 245), "");
    new CBlock(field, *report);
    new CTarget(field, true, *report);
    new CTarget(field, false, *report);
    field->GetChildren()->GetItem(0)->SetPos({40, 40, 160, 100}, false);
    field->GetChildren()->GetItem(1)->SetPos({300, 30, 480, 190}, false);
    field->GetChildren()->GetItem(2)->SetPos({520, 30, 700, 190}, false);
}

GALLERY_PAGE(20, "input", BuildInputPage)

} // namespace gallery
