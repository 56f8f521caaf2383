#pragma once

#include <mirelfrw7/core/element_list.h>
#include <mirelfrw7/export.h>
#include <mirelfrw7/scroll/physical_scroll_adapters.h>
#include <mirelfrw7/scroll/scroll_box.h>

namespace mirelfrw7 {

// A scroll box ready for one arbitrary element, scrolled by pixels: the element lies in a central part
// whose two pixel models read the position straight off the element's rectangle.
class MIRELFRW7_API CScrollContainer : public CScrollBox {
public:
    // The window onto the scrolled element. It clips its content to itself, so that the content never
    // spills over the bars or the box's neighbours; for that, the changes inside come to it, and it
    // repaints only the elements that changed unless it changed itself.
    class MIRELFRW7_API CCentralPart : public CScrollableElement,
                                       public IHorzPhysicalScrollModel,
                                       public IVertPhysicalScrollModel {
    public:
        // 1 the height follows the view, 2 the width follows the view, 3 the content keeps its size.
        enum FitMode { FitHeight = 1, FitWidth = 2, FitNone = 3 };

        CCentralPart(CScrollContainer* box, size<int> const& elementSize, Alignment alignment);

        void SetPos(rectangle<int> const& newRect, bool force) override;
        void OnDraw(IPainter* painter) override;
        void ProcessChange(CVisualElement** target) override;
        bool BeforeProcessChange(CVisualElement* element, UpdateType type) override;
        void DrawContent(IPainter* painter) override;
        bool ScrollContent(int dx, int dy) override;
        void HandleChildFocusChanged(CVisualElement* element, CVisualElement* other, bool gotFocus) override;

        double GetHorzFrom() const override { return 0.0; }
        double GetHorzTo() const override;
        void SetHorzStart(double start) override;
        double GetHorzStart() const override;
        int GetHorzStepInPixels() const override { return m_horzStep; }
        double GetVertFrom() const override { return 0.0; }
        double GetVertTo() const override;
        void SetVertStart(double start) override;
        double GetVertStart() const override;
        int GetVertStepInPixels() const override { return m_vertStep; }

        // Scrolls the least that shows `child` whole, when it can show whole at all.
        void ChildToParentView(CVisualElement* child);
        // A click on the empty part gives the focus to the deepest first element that takes it, unless the
        // focus is inside already.
        void HandlePaneButtonDown(CVisualElement* element, int x, int y, int flags, MouseButton button);
        // The box paints under the part: what waits in the dirty list is then not all that must be drawn.
        void OnBoxPaint(CVisualElement* box, IPainter* painter);

        void SetScrolledElement(CVisualElement* scrolled) { m_scrolled = scrolled; }
        CVisualElement* GetScrolled() const { return m_scrolled; }
        void SetSteps(int horz, int vert);
        void SetFillMarginsOnly(bool only) { m_fillMarginsOnly = only; }
        void SetFitMode(FitMode mode);
        FitMode GetFitMode() const { return m_fitMode; }

    private:
        CScrollContainer* m_box;
        CVisualElement* m_scrolled = nullptr;
        int m_horzStep = 10;
        int m_vertStep = 10;
        CElementList m_dirty;
        bool m_fullRepaint = true;
        bool m_fillMarginsOnly = false;
        FitMode m_fitMode = FitNone;
    };

    CScrollContainer(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    // Not owned; the former element is detached. Both starts go back to 0 through the box.
    void SetScrolled(CVisualElement* element);
    CVisualElement* GetScrolled() const { return m_part.GetScrolled(); }
    CCentralPart& GetPart() { return m_part; }
    void GetWheelStepSize(CVisualElement* element, int& step);
    void OnScrolledResized(CVisualElement* element);

private:
    CCentralPart m_part;
};

} // namespace mirelfrw7
