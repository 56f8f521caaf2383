#pragma once

#include <mirelfrw7/core/visual_element.h>
#include <mirelfrw7/export.h>
#include <mirelfrw7/scroll/repeatable_operation.h>

namespace mirelfrw7 {

class IScrollModel;

// 1 moves towards GetTo; every other value towards GetFrom.
enum ScrollDirection { ScrollForward = 1, ScrollBackward = 2 };

// An element showing a window onto a vertical and a horizontal scroll model, over a central pane: the
// element whose area the logical coordinates are laid over. Elements that share a model move together,
// whoever moves it.
//
// It scrolls by itself while a gesture holds (automatic scrolling), 8 logical units per tick on a repeat
// timer. Scroll types are the bits of ISysWindow::ScrollType: 1 horizontal, 2 vertical.
class MIRELFRW7_API CScrollableElement : public CVisualElement, public CRepeatableOperation {
public:
    // When and where automatic scrolling of one axis goes. A conditional scroll ends when the pointer has
    // moved 3 pixels or more in either direction since it started.
    class MIRELFRW7_API ScrollCondition {
    public:
        void Init(ScrollDirection direction, bool conditional);
        void Clear();
        // Answers true without a system to ask where the pointer is.
        bool ScrollIsPossible() const;
        ScrollDirection GetDirection() const { return m_direction; }
        bool IsConditional() const { return m_conditional; }

    private:
        ScrollDirection m_direction = ScrollDirection(0);
        int m_x = 0;
        int m_y = 0;
        bool m_conditional = false;
    };

    CScrollableElement(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    // Plain stores here; none of the three is owned.
    virtual void SetCentralPane(CVisualElement* pane);
    virtual void SetVertScroll(IScrollModel* model);
    virtual void SetHorzScroll(IScrollModel* model);
    // One tick of automatic scrolling.
    void ProcessRepeatOperation() override;
    // A strip repaints only for a motion along itself; others for any motion.
    bool ScrollContent(int dx, int dy) override;

    CVisualElement* GetCentralPane() const { return m_centralPane; }
    IScrollModel* GetVertScroll() const { return m_vertScroll; }
    IScrollModel* GetHorzScroll() const { return m_horzScroll; }

    // Registers the axes of `type` only when its lowest bit is set and no axis scrolls yet, and only type 1
    // records its condition (type 3 scrolls both axes towards GetFrom); the timer starts in every case, so
    // type 2 on its own ticks with nothing to do.
    void StartScrolling(int type, ScrollDirection direction, bool conditional);
    // Both axes share the timer: stopping one stops the other's ticks too.
    void StopScrolling(int type);
    // One step of axis `type` (1 or 2), or the end of its scrolling.
    void DoScroll(int type, ScrollDirection direction);
    int GetScrolling() const { return m_scrolling; }
    ScrollCondition const& GetHorzCondition() const { return m_horzCondition; }
    ScrollCondition const& GetVertCondition() const { return m_vertCondition; }

    // The central pane's content rectangle in control coordinates; all zero without one.
    rectangle<int> GetCentralRect() const;
    // A step number as a position that counts the sizes of the steps from the range's origin.
    double AddStepsInfo(double value, IScrollModel* model) const;
    // The inverse, counted from the view's start (where AddStepsInfo counts from the range's origin).
    double DelStepsInfo(double value, IScrollModel* model) const;

protected:
    IScrollModel* m_vertScroll = nullptr;
    IScrollModel* m_horzScroll = nullptr;
    CVisualElement* m_centralPane = nullptr;
    int m_scrolling = 0;
    ScrollCondition m_vertCondition;
    ScrollCondition m_horzCondition;
};

} // namespace mirelfrw7
