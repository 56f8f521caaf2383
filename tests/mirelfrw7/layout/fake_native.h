#pragma once

#include <mirel7/custom_control.h>
#include <mirel7/event_sender.h>
#include <mirel7/notify.h>

#include <string>

namespace layout_test {

// A native control that keeps what it is told, and announces every focus given to it, as a control that
// does not look whether it already has the focus would.
class CFakeNative : public mirel7::ICustomControl {
public:
    CFakeNative() { sender.SetSupportedEvent(typeid(mirel7::ICustomControlNotify)); }
    void Move(int l, int t, int r, int b) override { rect = {l, t, r, b}; }
    mirel7::screen_rectangle<int> GetRect() const override { return rect; }
    void SetVisible(bool v) override { visible = v; }
    bool IsVisible() const override { return visible; }
    void SetEnabled(bool e) override { enabled = e; }
    bool IsEnabled() const override { return enabled; }
    void SetFocus() override {
        if (++focusCalls > 5) return;
        mirel7::ICustomControl* const self = this;
        sender.Fire(&mirel7::ICustomControlNotify::CustomControlOnFocusIn, self);
    }
    bool HasFocus() const override { return false; }
    void Measure() override { rect = {rect.left, rect.top, rect.left + 40, rect.top + 12}; }
    std::string AsString() const override { return "native"; }
    mirel7::IEventSender* GetEventSender() override { return &sender; }

    mirel7::CImplEventSender<mirel7::IEventSender> sender;
    mirel7::screen_rectangle<int> rect;
    bool visible = true;
    bool enabled = true;
    int focusCalls = 0;
};

} // namespace layout_test
