// Docking: children cut strips off the edges in child order, the client child takes the rest, an unaligned
// child keeps its own rectangle. Space recolours one element, a timer another: only they repaint.
#include "gallery.h"
#include "swatch.h"

#include <mirel7/system.h>
#include <mirel7/timer.h>

namespace gallery {

namespace {
using mirel7::_color;
using namespace mirelfrw7;

// Cycles the colour of one swatch, on a timer and on the space key.
class CRecolourer : public CSwatch, public mirel7::CTimerNotify {
public:
    CRecolourer(CVisualElement* parent, Alignment alignment, mirel7::size<int> s, std::string name)
        : CSwatch(parent, alignment, s, Colour(0), std::move(name)) {
        if (mirel7::ISystem* const system = mirel7::GetCurrentSystem()) {
            m_timer = system->CreateTimer(700, true);
            if (m_timer) m_timer->GetEventSender()->Subscribe<mirel7::ITimerNotify>(this);
        }
    }
    ~CRecolourer() override {
        if (m_timer) m_timer->GetEventSender()->Unsubscribe(this, true);
    }

    void OnTimer(mirel7::CTimerEvent*) override { Next(); }
    bool HandleKeyDown(int, int key) override {
        if (key != mirel7::KeySpace) return false;
        Next();
        return true;
    }
    void Next() { SetBkColor(Colour(++m_step)); }

private:
    static _color Colour(int step) {
        static _color const cycle[] = {{230, 159, 0}, {86, 180, 233}, {0, 158, 115},  {240, 228, 66},
                                       {0, 114, 178}, {213, 94, 0},   {204, 121, 167}};
        return cycle[step % 7];
    }

    mirel7::mirel_ptr<mirel7::ISysTimer> m_timer;
    int m_step = 0;
};
} // namespace

void BuildDockingPage(CVisualElement* host) {
    new CSwatch(host, AlignLeft, {120, 0}, _color(213, 94, 0), "left 120");
    new CSwatch(host, AlignTop, {0, 60}, _color(0, 114, 178), "top 60");
    new CSwatch(host, AlignRight, {100, 0}, _color(0, 158, 115), "right 100");
    new CSwatch(host, AlignBottom, {0, 50}, _color(204, 121, 167), "bottom 50");
    auto* client = new CSwatch(host, AlignClient, {0, 0}, _color(240, 240, 240), "client");

    // The same again inside the client, one level down.
    auto* nested = new CSwatch(client, AlignClient, {0, 0}, _color(250, 250, 250), "nested client");
    new CSwatch(client, AlignTop, {0, 40}, _color(86, 180, 233), "nested top 40");
    new CSwatch(client, AlignLeft, {90, 0}, _color(230, 159, 0), "nested left 90");
    new CSwatch(client, AlignBottom, {0, 30}, _color(240, 228, 66), "nested bottom 30");
    auto* ticker = new CRecolourer(client, AlignRight, {110, 0}, "timer / space");
    ticker->SetFocusable(true);

    // An unaligned child keeps the rectangle it was given.
    auto* none = new CSwatch(nested, AlignNone, {0, 0}, _color(120, 120, 120), "none");
    none->SetPos({20, 30, 140, 70}, false);
}

GALLERY_PAGE(10, "docking", BuildDockingPage)

} // namespace gallery
