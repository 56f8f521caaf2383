#pragma once

#include <mirelfrw7/core/native_drawing_flavor.h>
#include <mirelfrw7/export.h>
#include <mirelfrw7/scroll/scrollable_element_ex.h>

#include <string>

namespace mirelfrw7 {

class IBaseItemViewModel;
class ISimpleHeaderModel;

// One row of sections along any edge, without a tree. The number of sections and their widths come from the
// view model of the viewer's axis (else from the model), the captions from an ISimpleHeaderModel. Sections
// resize, press and drag to a new place; the header only announces what the user did. Geometry is worked
// out along and across the edge, in the header's own pixels, from the first section in view on.
class MIRELFRW7_API CSimpleHeader : public CScrollableElementEx, public CNativeDrawingFlavor {
public:
    // 0 nothing, 1 a section, 2 a divider (the last 6 pixels of a section, not of a stretched last one),
    // 3 the empty area behind the last section, 4 before and 5 behind the header along it.
    enum HitTestArea {
        AreaNothing = 0,
        AreaSection = 1,
        AreaDivider = 2,
        AreaEmpty = 3,
        AreaBefore = 4,
        AreaBehind = 5
    };

    // `dropIndex`: the position a section dropped here takes; `left`..`bottom` the section, inclusive.
    struct HitTestResult {
        HitTestArea area = AreaNothing;
        int section = -1;
        int dropIndex = -1;
        int left = 0, top = 0, right = 0, bottom = 0;
    };

    // Every signal carries the header first.
    // (section, &allow): the pointer is over a divider; clearing allow keeps the normal cursor.
    signal_t<CSimpleHeader*, int, bool*> sigSectionEdgeHover;
    // (section, size, &allow): each step of a resize, before it is applied; clearing allow ends it.
    signal_t<CSimpleHeader*, int, int, bool*> sigSectionResizing;
    // (section, size): a step was applied.
    signal_t<CSimpleHeader*, int, int> sigSectionResized;
    // (section, &allow): a left press on a section, with style bit 2.
    signal_t<CSimpleHeader*, int, bool*> sigSectionPressing;
    // (section): the button came up on the pressed section.
    signal_t<CSimpleHeader*, int> sigSectionClicked;
    // (from, to): a drop; `to` is the position the section takes once moved, as CSimpleHeaderModel keeps
    // it: the section dropped on, the one after a divider, the last one behind the last section.
    signal_t<CSimpleHeader*, int, int> sigSectionMoved;

    CSimpleHeader(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    // --- Added virtual operations ------------------------------------------------------------------------
    // The insertion mark before section `dropIndex`.
    virtual void DrawDraggingPointer(IPainter* painter, int dropIndex);
    virtual void DrawSectionRect(IPainter* painter, rectangle<double> const& rect, int index);
    // The stretch behind the last section, along and across.
    virtual void DrawEmptyArea(IPainter* painter, double along0, double across0, double along1,
                               double across1);

    // --- Element -----------------------------------------------------------------------------------------
    void SetCoordSystem(IPainter* painter) override;
    void DrawContent(IPainter* painter) override;
    bool HandleMouseMove(int x, int y, int flags, MouseButton button) override;
    bool HandleButtonDown(int x, int y, int flags, MouseButton button) override;
    bool HandleButtonUp(int x, int y, int flags, MouseButton button) override;
    void HandleMouseLeave(CVisualElement* next) override;
    bool HandleOnTooltip(mirel7::CTooltipEvent* ev) override;
    bool HandleStartDragging(int x, int y, DragInfo& info) override;
    void HandleDragFinished(CVisualElement* target, DragInfo& info) override;
    void HandleDrawDragItem(IPainter* painter, DragInfo& info, bool droppable,
                            CVisualElement* target) override;
    bool HandleDragOver(CVisualElement* source, int x, int y, DragInfo& info) override;
    void HandleDropDone(CVisualElement* source, int x, int y, DragInfo& info) override;

    // --- Models and settings ----------------------------------------------------------------------------
    // Neither is owned.
    void SetModel(ISimpleHeaderModel* model);
    void SetViewModel(IBaseItemViewModel* viewModel);
    ISimpleHeaderModel* GetModel() const { return m_model; }
    IBaseItemViewModel* GetViewModel() const { return m_viewModel; }
    // Never below 15 pixels at the display scale.
    void SetMinimalSectionWidth(int width);
    int GetMinimalSectionWidth() const { return m_minSectionWidth; }
    void SetStyle(unsigned style);
    // Only without a view model, whose own setting rules otherwise.
    void ExpandLastSection(bool expanded);
    void SetSorting(bool sorting) { m_sorting = sorting; }

    // --- Sections ---------------------------------------------------------------------------------------
    bool IsModelAvailable() const { return m_model || m_viewModel; }
    int GetSectionCount() const;
    int GetItemWidth(int index) const;
    // The section's last pixel counted from its start: the width less one, or for a stretched last section
    // what reaches `end`.
    int CalcItemWidth(int index, double start, double end) const;
    // The first section in view, and where it starts along the header relative to the header's start (0 or
    // less).
    void CalcFirstSection(int* first, int* start) const;
    // Empty when the section is not in view.
    rectangle<double> GetSectionRect(int index);
    bool IsLastSectionExpanded() const;
    int GetSortingDirection(int index) const;
    std::string GetItemCaption(int index) const;
    int GetItemTextAlign(int index) const;
    int GetItemImageIndex(int index) const;
    std::string GetItemDescription(int index) const;
    rectangle<double> GetHeaderRect() const { return rectangle<double>(GetBounds()); }
    HitTestResult HitTest(point<int> const& at);
    // Answers whether the hot section changed.
    bool ProcessHotSection(HitTestResult const& hit);
    // Stops the automatic scrolling unless the pointer is before or behind the sections.
    void CheckScrolling(int section, int limit, HitTestArea area);
    void OnUpdateModel();

    int GetState() const { return m_state; }
    int GetSection() const { return m_section; }

protected:
    // Draws section `index` from `at`: along start and across start.
    void DrawSection(IPainter* painter, point<double> const& at, int index);
    // The header's extent along and across.
    void GetExtent(double* along0, double* along1, double* across0, double* across1) const;
    int ScrollType() const;
    void EndDrag();

    int m_state = 0;
    int m_section = -1;
    int m_hotSection = -1;
    int m_startPos = 0;
    int m_minSectionWidth;
    ISimpleHeaderModel* m_model = nullptr;
    IBaseItemViewModel* m_viewModel = nullptr;
    unsigned m_style = 7;
    bool m_lastSectionExpanded = false;
    bool m_sorting = true;
    // The drop position while a drag is over the header; -1 for none.
    int m_dropIndex = -1;
};

} // namespace mirelfrw7
