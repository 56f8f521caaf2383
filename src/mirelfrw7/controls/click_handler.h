#pragma once

#include <mirelfrw7/export.h>

#include <mirel7/events.h>

namespace mirelfrw7 {

// The small state machine of a pressable thing: idle, hovered, pressed, driven by mouse and key events. A
// press that leaves before the release clicks nothing.
class MIRELFRW7_API CClickHandler {
public:
    enum ClickStage { StageIdle = 0, StageHover = 1, StagePressed = 2 };
    enum ClickEvent { EventEnter = 0, EventLeave = 1, EventDown = 2, EventUp = 3 };

    CClickHandler() = default;
    // A handler deleted inside its own click tells the event that is still running on it.
    virtual ~CClickHandler();
    CClickHandler(CClickHandler const&) = delete;
    CClickHandler& operator=(CClickHandler const&) = delete;

    virtual void ProcessClick() = 0;
    virtual void ProcessStageChange(ClickStage stage) = 0;

    bool HandleButtonDown(int modifiers, mirel7::MouseButton button);
    bool HandleButtonUp(int modifiers, mirel7::MouseButton button);
    void HandleMouseHover();
    void HandleMouseLeave();
    bool HandleKeyDown(int modifiers, int key);
    bool HandleKeyUp(int modifiers, int key);
    void ProcessEvent(ClickEvent event);

    ClickStage GetStage() const { return m_stage; }

protected:
    ClickStage m_stage = StageIdle;

private:
    // Set while a click runs: the flag on the stack of the innermost event, cleared by the destructor.
    bool* m_alive = nullptr;
};

} // namespace mirelfrw7
