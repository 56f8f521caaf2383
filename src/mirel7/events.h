#pragma once

#include <mirel7/export.h>
#include <mirel7/types.h>

#include <string>

namespace mirel7 {

// Modifier and button bits of an event's `flags`, as they stand after the event: a left button-down has
// FlagLeftButton set, its button-up has it clear.
enum EventFlags {
    FlagLeftButton = 1,
    FlagShift = 0x100,
    FlagControl = 0x200,
    FlagAlt = 0x400,
};

enum MouseButton { ButtonNone = 0, ButtonLeft = 1, ButtonMiddle = 2, ButtonRight = 3 };

// Virtual key codes of the keys the framework looks at; letters and digits are their upper-case ASCII codes.
enum VirtualKey {
    KeyBackspace = 8,
    KeyTab = 9,
    KeyReturn = 13,
    KeyShift = 16,
    KeyControl = 17,
    KeyAlt = 18,
    KeyEscape = 27,
    KeySpace = 32,
    KeyPageUp = 33,
    KeyPageDown = 34,
    KeyEnd = 35,
    KeyHome = 36,
    KeyLeft = 37,
    KeyUp = 38,
    KeyRight = 39,
    KeyDown = 40,
    KeyInsert = 45,
    KeyDelete = 46,
    KeyF1 = 112, // F2 to F12 follow
};

// The base of every event record. Records are built by the window that sends them and live for the sending
// only; receivers may write the result words of those that have some.
class MIREL7_API CEvent {
public:
    virtual ~CEvent();
};

class MIREL7_API CFocusEvent : public CEvent {};

class MIREL7_API CWindowEvent : public CEvent {};

class MIREL7_API CTimerEvent : public CEvent {};

// Points are in client pixels. A move carries the button held during it.
class MIREL7_API CMouseEvent : public CEvent {
public:
    CMouseEvent() = default;
    CMouseEvent(int flags_, int x_, int y_, MouseButton button_)
        : flags(flags_), x(x_), y(y_), button(button_) {}

    int flags = 0;
    int x = 0;
    int y = 0;
    MouseButton button = ButtonNone;
};

// `delta` counts notches: +1 is one notch away from the user. A sideways wheel arrives the same way with
// FlagShift set, as a notch with Shift held scrolls sideways: +1 is one notch to the left.
class MIREL7_API CMouseWheelEvent : public CMouseEvent {
public:
    CMouseWheelEvent() = default;
    CMouseWheelEvent(int flags_, int x_, int y_, int delta_)
        : CMouseEvent(flags_, x_, y_, ButtonNone), delta(delta_) {}

    int delta = 0;
};

// Key down and up carry a virtual key code, a character event the character. Both result words start set;
// receivers clear them.
class MIREL7_API CKeyboardEvent : public CEvent {
public:
    CKeyboardEvent() = default;
    CKeyboardEvent(int flags_, int virtualKey, int characterCode)
        : flags(flags_), m_virtualKey(virtualKey), m_characterCode(characterCode) {}

    int GetVirtualKey() const { return m_virtualKey; }
    int GetCharacterCode() const { return m_characterCode; }

    // Cleared when no element handled the key.
    bool handled = true;
    int flags = 0;
    // Cleared when the base class must not see the key.
    bool passToBase = true;

private:
    int m_virtualKey = 0;
    int m_characterCode = 0;
};

class MIREL7_API CContextMenuEvent : public CEvent {
public:
    CContextMenuEvent() = default;
    CContextMenuEvent(int x_, int y_) : x(x_), y(y_) {}

    int x = 0;
    int y = 0;
};

// Asks for the tooltip at (x, y); the receiver fills in the text, the rectangle in which it stays valid, a
// second rectangle for the tip's placement, whether it came from an element, and the font to show it in.
class MIREL7_API CTooltipEvent : public CEvent {
public:
    CTooltipEvent() = default;
    CTooltipEvent(int x_, int y_) : x(x_), y(y_) {}

    int x = 0;
    int y = 0;
    rectangle<int> rect;
    rectangle<int> rect2;
    std::string text;
    bool fromElement = false;
    font tooltipFont;
};

// Sent by code, not by the user; the data words 0 and 1 hand the tab chain over to the control.
class MIREL7_API CCustomEvent : public CEvent {
public:
    CCustomEvent() = default;
    explicit CCustomEvent(int data_) : data(data_) {}

    int data = 0;
};

class MIREL7_API CScrollEvent : public CEvent {
public:
    enum ScrollAction {
        LineUp = 0,
        LineDown = 1,
        PageUp = 2,
        PageDown = 3,
        SetPosition = 4,
        TrackPosition = 5,
        ToStart = 6,
        ToEnd = 7,
        EndScroll = 8,
    };

    CScrollEvent() = default;
    CScrollEvent(ScrollAction action_, double position_) : action(action_), position(position_) {}

    ScrollAction action = LineUp;
    double position = 0;
};

} // namespace mirel7
