#pragma once

#include <mirel7/custom_control_base.h>
#include <mirel7/export.h>
#include <mirel7/scroll_bar.h>
#include <mirel7/sys_window.h>
#include <mirel7/timer.h>

namespace mirel7 {

class ISysTimer;

// The scroll bar of every backend, drawn with the painter's native pieces. Along the bar lie an arrow, the
// track before the thumb, the thumb, the track after it and the other arrow. A held arrow or track repeats
// its step after RepeatDelayMs and then every RepeatIntervalMs while the pointer stays on it, so paging
// stops once the thumb reached the pointer; the thumb follows the pointer anywhere until the button is up.
// A bar whose page covers its range has no thumb and does nothing.
class MIREL7_API CSysScrollBar : public IScrollBar, public CCustomControlBase {
public:
    static constexpr int RepeatDelayMs = 300;
    static constexpr int RepeatIntervalMs = 50;
    static constexpr int WheelLines = 3;
    // Across the bar, before the display's scale.
    static constexpr int Thickness = 16;
    static constexpr int MinThumb = 8;

    enum Part { PartNone, PartArrowDec, PartTrackDec, PartThumb, PartTrackInc, PartArrowInc };

    CSysScrollBar(CSysWindowBase& window, ISysWindow::ScrollType type);
    ~CSysScrollBar() override;

    void SetInfo(SScrollBarInfo const& info) override;
    SScrollBarInfo GetInfo() const override { return m_info; }
    double SetPos(double position) override;
    double GetPos() const override { return m_info.position; }

    bool IsVertical() const { return m_vertical; }
    // In client pixels, inclusive; empty (right left of left) for a part the bar does not show.
    screen_rectangle<int> GetPartRect(Part part) const;
    Part HitPart(point<int> const& at) const;
    // The last position the user can reach.
    double GetMaxPos() const;

protected:
    void Draw(IPainter* painter) override;
    size<int> NaturalSize() const override;
    void OnButtonDown(point<int> const& at, MouseButton button) override;
    void OnButtonUp(point<int> const& at, MouseButton button) override;
    void OnMouseMove(point<int> const& at) override;
    void OnWheel(point<int> const& at, int delta) override;
    bool OnKeyDown(int virtualKey, int modifiers) override;
    void OnHot(bool hot) override;
    void OnCancel() override;

private:
    class CRepeat : public CTimerNotify {
    public:
        explicit CRepeat(CSysScrollBar& bar) : m_bar(bar) {}
        void OnTimer(CTimerEvent* event) override;

    private:
        CSysScrollBar& m_bar;
    };

    // Along the bar: its first and last pixel, the arrows' length, and the thumb's first and last pixel
    // (last below first without a thumb).
    struct SLayout {
        int first = 0, last = -1, arrow = 0, thumbFirst = 0, thumbLast = -1;
    };
    SLayout Layout() const;
    int Along(point<int> const& at) const { return m_vertical ? at.y : at.x; }
    double Clamp(double position) const;
    // The step of a held part, once; false when it has nothing left to do.
    bool Step(Part part);
    // Moves to `position` and tells the subscribers, when the position changed.
    void Scroll(CScrollEvent::ScrollAction action, double position);
    void Notify(CScrollEvent::ScrollAction action);
    void Repeat();
    void StopRepeat();
    void UpdateHot();

    bool m_vertical;
    SScrollBarInfo m_info;
    Part m_pressed = PartNone;
    Part m_hot = PartNone;
    bool m_isHot = false;
    point<int> m_pointer;
    // Where in the thumb it was taken.
    int m_grab = 0;
    CRepeat m_repeat{*this};
    mirel_ptr<ISysTimer> m_timer;
};

} // namespace mirel7
