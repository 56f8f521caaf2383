// A program of someone else's: a control with one element on an offscreen window, painted once.
#include <mirelfrw7/core/base_control.h>

#include <mirel7/headless/headless_system.h>
#include <mirel7/headless/headless_window.h>

#include <cstdio>

class CBlock : public mirelfrw7::CVisualElement {
public:
    using CVisualElement::CVisualElement;
    void DrawContent(mirel7::IPainter* painter) override {
        ++paints;
        mirel7::rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
    }
    int paints = 0;
};

int main() {
    mirel7::headless::CHeadlessSystem system;
    mirel7::headless::CHeadlessWindow window(system, {120, 80});
    mirelfrw7::CBaseControl control(&window);
    CBlock block(control.GetContent(), {40, 0}, mirelfrw7::AlignLeft);
    block.SetBkColor(mirel7::_color(200, 30, 30));
    window.Paint();
    bool const ok = block.paints == 1 && block.GetPosition() == mirel7::rectangle<int>{0, 0, 40, 79};
    std::puts(ok ? "consumer ok" : "consumer wrong");
    return ok ? 0 : 1;
}
