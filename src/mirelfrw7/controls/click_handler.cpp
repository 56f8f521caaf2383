#include <mirelfrw7/controls/click_handler.h>

namespace mirelfrw7 {

namespace {

struct STransition {
    CClickHandler::ClickStage from;
    CClickHandler::ClickEvent event;
    CClickHandler::ClickStage to;
};

constexpr STransition s_Transitions[] = {
    {CClickHandler::StageIdle, CClickHandler::EventEnter, CClickHandler::StageHover},
    {CClickHandler::StageHover, CClickHandler::EventDown, CClickHandler::StagePressed},
    {CClickHandler::StagePressed, CClickHandler::EventUp, CClickHandler::StageHover},
    {CClickHandler::StageHover, CClickHandler::EventLeave, CClickHandler::StageIdle},
    {CClickHandler::StagePressed, CClickHandler::EventLeave, CClickHandler::StageIdle},
};

constexpr int KeyReturn = 13;
constexpr int KeySpace = 32;

} // namespace

CClickHandler::~CClickHandler() {
    if (m_alive) *m_alive = false;
}

// The click comes before the stage change and may delete the handler's owner: then nothing of this object
// is touched after it, and every event running further out learns it too. The rows are tried in order
// against the stage as it then stands.
void CClickHandler::ProcessEvent(ClickEvent event) {
    if (m_stage == StagePressed && event == EventUp) {
        bool alive = true;
        bool* const outer = m_alive;
        m_alive = &alive;
        ProcessClick();
        if (!alive) {
            if (outer) *outer = false;
            return;
        }
        m_alive = outer;
    }
    for (STransition const& t : s_Transitions) {
        if (t.from != m_stage || t.event != event) continue;
        m_stage = t.to;
        ProcessStageChange(t.to);
    }
}

bool CClickHandler::HandleButtonDown(int, mirel7::MouseButton button) {
    if (button != mirel7::ButtonLeft) return false;
    ProcessEvent(EventDown);
    return true;
}

bool CClickHandler::HandleButtonUp(int, mirel7::MouseButton button) {
    if (button != mirel7::ButtonLeft) return false;
    ProcessEvent(EventUp);
    return true;
}

void CClickHandler::HandleMouseHover() {
    ProcessEvent(EventEnter);
}

void CClickHandler::HandleMouseLeave() {
    ProcessEvent(EventLeave);
}

bool CClickHandler::HandleKeyDown(int, int key) {
    if (key == KeyReturn) {
        ProcessClick();
        return true;
    }
    if (key != KeySpace) return false;
    m_stage = StageIdle;
    ProcessEvent(EventEnter);
    ProcessEvent(EventDown);
    return true;
}

bool CClickHandler::HandleKeyUp(int, int key) {
    if (key != KeySpace) return false;
    ProcessEvent(EventUp);
    return true;
}

} // namespace mirelfrw7
