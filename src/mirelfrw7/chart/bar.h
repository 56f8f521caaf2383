#pragma once

#include <mirelfrw7/chart/categorical_axis.h>
#include <mirelfrw7/core/signal.h>
#include <mirelfrw7/export.h>
#include <mirelfrw7/items/selection_tmpl.h>
#include <mirelfrw7/scroll/scroll_timer.h>

#include <vector>

namespace mirelfrw7 {

// A strip of sections over a scroll model, one unit of the model each and as wide as the model's step, that
// a user selects, resizes and presses to drag. The bar changes no data: every gesture is announced, and
// the owner of the sections resizes or reorders them.
//
// Signals, each a step of a gesture:
//   sigStartBarResize(ok)            a press on the outer edge; clearing `ok` refuses the resize
//   sigStartSectionResize(i, ok)     a press on the border after section i; clearing `ok` refuses
//   sigSectionResized(i, size)       each move of a section resize, the new size in logical units
//   sigStartSectionPress(i, ok)      a press on section i; clearing `ok` refuses it, selection included
//   sigStartDrag(ok)                 a press that moved far enough; clearing `ok` keeps it a press
//   sigHover(hit)                    every move, before anything else
//   sigRelease(i)                    the end of a resize, a drag or a click, with the section pressed
//   sigSectionResizeRelease(i)       the end of a section resize
//   sigDragRelease(i)                the end of a drag
//   sigClickRelease(i)               a press released without a drag: a click
//   sigReorder(bar, from, to)        a dragged section dropped: `from` should move to `to`, counted after it
//                                    left its place
//
// The bar draws in pixels from the start of its axis rectangle along it, and from the pane side across it;
// a drag near either end of the bar scrolls the model.
class MIRELFRW7_API CBar : public CCategoricalAxis {
public:
    struct BarHit {
        enum Kind { Nothing = 0, Section = 1, Border = 2, Before = 3, After = 4, OuterEdge = 5 };
        int kind = Nothing;
        int index = -1;
        int first = -1;
        int last = -1;
        int firstHalf = 0;
    };
    enum MouseState { Idle = 0, ResizingSection = 1, ResizingBar = 2, Dragging = 3, Pressed = 4 };

    tarnkit2::signal_t<CBar*, int, int> sigReorder;
    tarnkit2::signal_t<bool&> sigStartBarResize;
    tarnkit2::signal_t<int, bool&> sigStartSectionResize;
    tarnkit2::signal_t<int, double> sigSectionResized;
    tarnkit2::signal_t<int, bool&> sigStartSectionPress;
    tarnkit2::signal_t<bool&> sigStartDrag;
    tarnkit2::signal_t<BarHit const&> sigHover;
    tarnkit2::signal_t<int> sigRelease;
    tarnkit2::signal_t<int> sigSectionResizeRelease;
    tarnkit2::signal_t<int> sigDragRelease;
    tarnkit2::signal_t<int> sigClickRelease;

    CBar(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    virtual void DrawSection(IPainter* painter, rectangle<int> const& rect, int index, bool selected);
    virtual void DrawSpace(IPainter* painter, rectangle<int> const& rect);

    void DrawContent(IPainter* painter) override;
    bool HandleMouseMove(int x, int y, int flags, MouseButton button) override;
    bool HandleButtonDown(int x, int y, int flags, MouseButton button) override;
    bool HandleButtonUp(int x, int y, int flags, MouseButton button) override;
    void HandleMouseLeave(CVisualElement* next) override;
    void SetAlignment(Alignment alignment) override;
    void FillHorizontal(IPainter::CoordInfo* info, IScrollModel* model) override;
    void FillVertical(IPainter::CoordInfo* info, IScrollModel* model) override;
    bool HandleStartDragging(int x, int y, DragInfo& info) override;
    void HandleDragFinished(CVisualElement* target, DragInfo& info) override;
    void HandleDrawDragItem(IPainter* painter, DragInfo& info, bool droppable,
                            CVisualElement* target) override;
    bool HandleDragOver(CVisualElement* source, int x, int y, DragInfo& info) override;
    void HandleDropDone(CVisualElement* source, int x, int y, DragInfo& info) override;

    // The thickness the widest caption needs; 0 without a painter.
    double GetSizeHint();
    void GetSelectedSections(std::vector<int>& out) const;
    // Asks for no repaint.
    void SetSelectedSections(std::vector<int> const& in);
    // Section `index` in pixels from the start of the axis rectangle; zero without a model.
    rectangle<double> GetSectionRect(int index) const;
    // `p` in control coordinates.
    BarHit HitTest(point<int> const& p) const;
    void OnSigResize(CVisualElement* element);
    // The timer has scrolled already: only the drop place follows.
    void OnSigTimerTick(CScrollTimer* timer);

    void SetResizeFlags(unsigned flags) { m_resizeFlags = flags; }
    void SetMinSectionSize(int pixels) { m_minSectionSize = pixels; }
    void SetBarSizeLimits(int least, int most) {
        m_minBarSize = least;
        m_maxBarSize = most;
    }
    // Bits 0 and 1 each allow dragging; bit 1 also keeps the drag image inside the bar.
    void SetDragFlags(unsigned flags) { m_dragFlags = flags; }
    // 0 (invisible) to 255 (opaque).
    void SetDragAlpha(int alpha) { m_dragAlpha = alpha; }
    MouseState GetMouseState() const { return MouseState(m_mouseState); }
    int GetDragSection() const { return m_dragSection; }
    int GetDropIndex() const { return m_dropIndex; }
    CScrollTimer const& GetScrollTimer() const { return m_scrollTimer; }

protected:
    CSelectionTmpl<int> m_selection;
    CSelectionTmpl<int> m_rangeSelection;
    int m_anchor = -1;
    int m_rangeEnd = -1;
    int m_minSectionSize = 1;
    unsigned m_resizeFlags = 0;
    int m_minBarSize = 4;
    int m_maxBarSize = 0x7FFFFFFF;
    unsigned m_dragFlags = 0;
    int m_dragAlpha = 128;
    int m_dragSection = -1;
    int m_dropIndex = -1;
    bool m_firstPaint = true;
    int m_dragPos = 0;
    int m_alongStart = 0, m_alongEnd = 0;
    int m_acrossStart = 0, m_acrossEnd = 0;
    int m_mouseState = Idle;
    int m_mouseIndex = -1;
    int m_mouseStart = 0;
    CScrollTimer m_scrollTimer{this, 100, 4, 32, 4, 2};

private:
    int Count() const;
    // Pixels per logical unit of the model.
    double Map() const;
    // The bar's drawing coordinates onto control coordinates.
    void FillMapping(IPainter::CoordInfo* info, IScrollModel* model) const;
    IPainter::CoordInfo Mapping() const;
    rectangle<int> BarToElement(rectangle<double> const& r) const;
    // Where `p` (control coordinates) lies along the bar, from its start, and across the control.
    double AlongOf(point<int> const& p) const;
    int AcrossOf(point<int> const& p) const;
    // The place a section dropped at `hit` lands, before the dragged one leaves its own.
    int DropIndexOf(BarHit const& hit) const;
    void Select(int index, int flags);
};

} // namespace mirelfrw7
