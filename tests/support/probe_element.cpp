#include "support/probe_element.h"

#include <algorithm>

namespace mirel_test {

using mirelfrw7::CVisualElement;
using mirelfrw7::DragInfo;

// The probe's slots on its own signals; a member object so that the probe's destruction cuts them.
struct CProbe::CSignals : tarnkit2::subscriber_base_t {
    explicit CSignals(CProbe& probe) : p(probe) {
        p.sigButtonDown.connect(this, &CSignals::Down);
        p.sigButtonUp.connect(this, &CSignals::Up);
        p.sigClick.connect(this, &CSignals::Click);
        p.sigDoubleClick.connect(this, &CSignals::DoubleClick);
        p.sigWheel.connect(this, &CSignals::Wheel);
        p.sigKeyDown.connect(this, &CSignals::KeyDown);
        p.sigChar.connect(this, &CSignals::Char);
        p.sigGetFocus.connect(this, &CSignals::GetFocus);
        p.sigLostFocus.connect(this, &CSignals::LostFocus);
    }
    void Down(CVisualElement*, int, int, int, mirel7::MouseButton) { p.Log("sigButtonDown"); }
    void Up(CVisualElement*, int, int, int, mirel7::MouseButton) { p.Log("sigButtonUp"); }
    void Click(CVisualElement*, int, int, int, mirel7::MouseButton) { p.Log("sigClick"); }
    void DoubleClick(CVisualElement*, int, int, int, mirel7::MouseButton) { p.Log("sigDoubleClick"); }
    void Wheel(CVisualElement*, int, int, int, mirel7::MouseButton, int) { p.Log("sigWheel"); }
    void KeyDown(CVisualElement*, int, int key) { p.Log("sigKeyDown " + std::to_string(key)); }
    void Char(CVisualElement*, char c) { p.Log(std::string("sigChar ") + c); }
    void GetFocus(CVisualElement*) { p.Log("sigGetFocus"); }
    void LostFocus(CVisualElement*) { p.Log("sigLostFocus"); }
    CProbe& p;
};

CProbe::CProbe(CVisualElement* parent, Journal& journal_, std::string name_, mirelfrw7::Alignment alignment,
               mirel7::size<int> probeSize)
    : CVisualElement(parent, probeSize, alignment), journal(journal_), name(std::move(name_)),
      m_signals(new CSignals(*this)) {}

CProbe::~CProbe() {
    delete m_signals;
}

void CProbe::Log(std::string const& what) {
    std::string const kind = what.substr(0, what.find(' '));
    if (filter.empty() || std::find(filter.begin(), filter.end(), kind) != filter.end())
        journal.push_back(name + ":" + what);
}

namespace {
std::string At(int x, int y) {
    return " " + std::to_string(x) + "," + std::to_string(y);
}
std::string Name(CVisualElement* e) {
    auto* probe = dynamic_cast<CProbe*>(e);
    return probe ? probe->name : e ? "?" : "null";
}
} // namespace

bool CProbe::HandleButtonDown(int x, int y, int, mirel7::MouseButton) {
    Log("HandleButtonDown" + At(x, y));
    return handleMouse;
}
bool CProbe::HandleButtonUp(int x, int y, int, mirel7::MouseButton) {
    Log("HandleButtonUp" + At(x, y));
    return handleMouse;
}
bool CProbe::HandleClick(int x, int y, int, mirel7::MouseButton) {
    Log("HandleClick" + At(x, y));
    return handleMouse;
}
bool CProbe::HandleDoubleClick(int x, int y, int, mirel7::MouseButton) {
    Log("HandleDoubleClick" + At(x, y));
    return handleMouse;
}
bool CProbe::HandleMouseMove(int x, int y, int, mirel7::MouseButton) {
    Log("HandleMouseMove" + At(x, y));
    return handleMouse;
}
bool CProbe::HandleWheel(int, int, int, mirel7::MouseButton, int delta) {
    Log("HandleWheel " + std::to_string(delta));
    return handleWheel;
}
void CProbe::HandleMouseHover(CVisualElement* previous) {
    Log("HandleMouseHover from " + Name(previous));
}
void CProbe::HandleMouseLeave(CVisualElement* next) {
    Log("HandleMouseLeave to " + Name(next));
}
bool CProbe::HandleKeyDown(int, int key) {
    Log("HandleKeyDown " + std::to_string(key));
    return handleKeys;
}
bool CProbe::HandleKeyUp(int, int key) {
    Log("HandleKeyUp " + std::to_string(key));
    return handleKeys;
}
bool CProbe::HandleChar(char c) {
    Log(std::string("HandleChar ") + c);
    return handleKeys;
}
void CProbe::HandleGetFocus(CVisualElement* previous, bool direct) {
    Log("HandleGetFocus from " + Name(previous) + (direct ? "" : " indirect"));
    if (onFocus) onFocus("get");
    CVisualElement::HandleGetFocus(previous, direct);
}
void CProbe::HandleLostFocus(CVisualElement* next) {
    Log("HandleLostFocus to " + Name(next));
    if (onFocus) onFocus("lost");
}
bool CProbe::HandleStartDragging(int x, int y, DragInfo& info) {
    Log("HandleStartDragging" + At(x, y));
    if (startDrag) info.rect = {0, 0, 10, 10};
    return startDrag;
}
void CProbe::HandleDragFinished(CVisualElement* target, DragInfo&) {
    Log("HandleDragFinished on " + Name(target));
}
bool CProbe::HandleDragOver(CVisualElement* source, int x, int y, DragInfo&) {
    Log("HandleDragOver " + Name(source) + At(x, y));
    return acceptDrop;
}
void CProbe::HandleDropDone(CVisualElement* source, int x, int y, DragInfo&) {
    Log("HandleDropDone " + Name(source) + At(x, y));
}

} // namespace mirel_test
