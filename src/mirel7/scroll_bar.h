#pragma once

#include <mirel7/custom_control.h>
#include <mirel7/events.h>
#include <mirel7/export.h>
#include <mirel7/notify.h>

namespace mirel7 {

// What a scroll bar shows, exchanged as a unit. Positions run from minimum to maximum inclusive; the thumb
// covers `page` of them, so the position stays between minimum and maximum - page + 1.
struct SScrollBarInfo {
    int mask = 0;
    double minimum = 0;
    double maximum = 0;
    double lineStep = 1;
    double page = 0;
    double position = 0;
    bool reversed = false;

    friend bool operator==(SScrollBarInfo const&, SScrollBarInfo const&) = default;
};

class MIREL7_API IScrollBarNotify : public virtual INotify {
public:
    // The user moved the bar: the action and the position it now shows, as the record counts it.
    virtual void ScrollBarOnScroll(CScrollEvent* event) = 0;
};

class MIREL7_API CScrollBarNotify : public CSubscriber<IScrollBarNotify> {};

// A native scroll bar. Code that sets its record or position is never told of it: only the user's gestures
// are sent, through GetEventSender() as IScrollBarNotify.
class MIREL7_API IScrollBar : public virtual ICustomControl {
public:
    // Whatever is given, the bar keeps its record in order: maximum at least minimum, page between 0 and
    // the range, position inside its bounds.
    virtual void SetInfo(SScrollBarInfo const& info) = 0;
    virtual SScrollBarInfo GetInfo() const = 0;
    // Answers the position the bar could show.
    virtual double SetPos(double position) = 0;
    virtual double GetPos() const = 0;
};

} // namespace mirel7
