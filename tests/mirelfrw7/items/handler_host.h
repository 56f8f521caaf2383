#pragma once

#include <mirelfrw7/items/event_handler.h>
#include <mirelfrw7/items/item_painter.h>

#include <string>
#include <vector>

namespace mirel_test {

// The smallest viewer: an element that offers its input, size and painting to one chain of handlers.
struct CHandlerHost : mirelfrw7::CVisualElement {
    explicit CHandlerHost(mirelfrw7::CVisualElement* parent)
        : CVisualElement(parent, {0, 0}, mirelfrw7::AlignClient) {
        SetFocusable(true);
    }

    template <class F>
    bool Offer(F f) {
        bool stop = false, handled = false;
        for (auto* h = first; h && !stop; h = h->GetNext())
            handled |= f(h, &stop);
        return handled;
    }
    bool HandleButtonDown(int x, int y, int flags, mirel7::MouseButton b) override {
        return Offer([&](auto* h, bool* s) { return h->ProcessButtonDown(x, y, flags, b, s); });
    }
    bool HandleButtonUp(int x, int y, int flags, mirel7::MouseButton b) override {
        return Offer([&](auto* h, bool* s) { return h->ProcessButtonUp(x, y, flags, b, s); });
    }
    bool HandleMouseMove(int x, int y, int flags, mirel7::MouseButton b) override {
        return Offer([&](auto* h, bool* s) { return h->ProcessMouseMove(x, y, flags, b, s); });
    }
    bool HandleKeyDown(int flags, int key) override {
        return Offer([&](auto* h, bool* s) { return h->ProcessKeyDown(flags, key, s); });
    }
    bool HandleOnTooltip(mirel7::CTooltipEvent* ev) override {
        return Offer([&](auto* h, bool* s) { return h->ProcessOnTooltip(ev, s); });
    }
    bool HandleContextMenu(int x, int y) override {
        return Offer([&](auto* h, bool* s) { return h->ProcessContextMenu(x, y, s); });
    }
    void HandleGetFocus(CVisualElement*, bool) override {
        Offer([&](auto* h, bool* s) { return h->ProcessGetFocus(s); });
    }
    void HandleLostFocus(CVisualElement*) override {
        Offer([&](auto* h, bool* s) { return h->ProcessLostFocus(s); });
    }
    void SetPos(mirel7::rectangle<int> const& r, bool force) override {
        mirel7::rectangle<int> const old = GetPosition();
        CVisualElement::SetPos(r, force);
        if (first) first->ProcessResize(old, GetBounds(), false);
    }
    void DrawContent(mirel7::IPainter* painter) override {
        if (first) first->ProcessDraw(painter, mirel7::rectangle<double>(GetBounds()));
    }

    mirelfrw7::CEventHandler* first = nullptr;
};

// Writes down what the handlers paint: "<index>:<state><' dirty' when dirty>", "h<hidden>" when cut off,
// and "empty <from>..<to>" along the axis.
struct CItemJournal : mirelfrw7::IItemPainter {
    void DrawItem(mirel7::IPainter*, int index, int hidden, int state, mirel7::rectangle<double> const&,
                  mirelfrw7::IDirtyItemSet::DirtyType dirty) override {
        entries.push_back(std::to_string(index) + ":" + std::to_string(state) +
                          (hidden ? " h" + std::to_string(hidden) : "") +
                          (dirty == mirelfrw7::IDirtyItemSet::DirtyItem ? " dirty" : ""));
    }
    void DrawEmptyArea(mirel7::IPainter*, mirel7::rectangle<double> const& r) override {
        entries.push_back("empty " + std::to_string(int(r.top)) + ".." + std::to_string(int(r.bottom)));
    }
    std::vector<std::string> entries;
};

} // namespace mirel_test
