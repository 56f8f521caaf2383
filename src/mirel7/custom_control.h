#pragma once

#include <mirel7/base.h>
#include <mirel7/export.h>
#include <mirel7/notify.h>
#include <mirel7/types.h>

#include <string>

namespace mirel7 {

class ICustomControl;
class IEventSender;

class MIREL7_API ICustomControlNotify : public virtual INotify {
public:
    // The user gave the control the keyboard focus, or code did with SetFocus().
    virtual void CustomControlOnFocusIn(ICustomControl* control) = 0;
};

// A native control living in a region of a system window, which an element can host: the window draws it
// over what the control painted there and gives it the pointer before the control. Shared by counting.
class MIREL7_API ICustomControl : public CBase {
public:
    // Places the control at the corners, in the window's client pixels, right and bottom inclusive.
    virtual void Move(int left, int top, int right, int bottom) = 0;
    // The place as given to Move(), or as Measure() left it.
    virtual screen_rectangle<int> GetRect() const = 0;
    virtual void SetVisible(bool visible) = 0;
    virtual bool IsVisible() const = 0;
    virtual void SetEnabled(bool enabled) = 0;
    virtual bool IsEnabled() const = 0;
    virtual void SetFocus() = 0;
    virtual bool HasFocus() const = 0;
    // Takes the control's natural size from the window's settings, keeping the top-left corner.
    virtual void Measure() = 0;
    virtual std::string AsString() const = 0;
    // Sends ICustomControlNotify.
    virtual IEventSender* GetEventSender() = 0;
};

} // namespace mirel7
