#pragma once

#include <mirelfrw7/core/native_drawing_flavor.h>
#include <mirelfrw7/export.h>
#include <mirelfrw7/header/header_item_visualisation.h>
#include <mirelfrw7/header/header_visitor.h>
#include <mirelfrw7/items/simple_continuous_item_view_model.h>
#include <mirelfrw7/scroll/scrollable_element_ex.h>

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace mirelfrw7 {

// A column header whose sections form a tree: groups over the sections below them, each group open into its
// children or closed into one column. The visible leaves are the columns, and the header is the continuous
// view model of a viewer's column axis, so that columns and sections agree in number, width and scroll
// offset. The tree belongs to the application's IHeaderModel; no rectangle of a section is kept: geometry
// comes from walking the tree, starting at the first section in view.
//
// It draws in its own pixels: the scroll offset moves the header's rectangle to the left, and only its left
// edge, so that a last section stretched to the view's end keeps its end there.
class MIRELFRW7_API CHeader : public CScrollableElementEx,
                              public CNativeDrawingFlavor,
                              public IHeaderItemDrawing,
                              public IHeaderItemVisualisation,
                              public CSimpleContinuousItemViewModel {
public:
    // The visible leaves in order, and where each starts counted from the first, so that a width or a
    // position needs no walk of the tree.
    class MIRELFRW7_API CViewModelItems : public BaseVisitor {
    public:
        bool Visit(IHeaderItem* item, int level) override;
        void Clear();
        // Sums the sizes again from leaf `from` on.
        void Reoffset(CHeader const& header, int from);
        int Count() const { return int(m_leaves.size()); }
        IHeaderItem* Leaf(int index) const { return m_leaves[index]; }
        // -1 for an item that is not a visible leaf.
        int IndexOf(IHeaderItem const* item) const;
        // Where leaf `index` starts; the total for the count.
        std::int64_t Offset(int index) const { return m_offsets[index]; }
        // The top-level section over leaf `index`, by its index in the model.
        int TopOf(int index) const { return m_tops[index]; }

    private:
        std::vector<IHeaderItem*> m_leaves;
        std::vector<std::int64_t> m_offsets{0};
        std::vector<int> m_tops;
        std::unordered_map<IHeaderItem const*, int> m_index;
        int m_top = -1;
    };

    // Type: 0 nothing, 1 a section, 2 its expand button, 3 its resize edge (the last 8 pixels).
    struct HitTestResult {
        int type = 0;
        IHeaderItem* item = nullptr;
        rectangle<int> rect;
    };

    // What the mouse is doing: 0 idle, 1 resizing, 2 dragging, 3 pressed. `index` is the visible index of
    // the item, -1 for a group; `anchor` the x where a resize measures from, or the last pointer x.
    struct Processing {
        int type = 0;
        IHeaderItem* item = nullptr;
        int index = -1;
        int anchor = 0;
        int hotState = 0;
        void Clear() {
            type = 0;
            item = nullptr;
        }
    };

    // An element shown on a section: placed with its alignment inside the section, or stretched over it.
    struct ElementAnchor {
        CVisualElement* element = nullptr;
        Alignment alignment = AlignNone;
        bool stretch = false;
    };

    // Every signal carries the header first.
    // (item, &allow): a left press on a section; clearing allow refuses it.
    signal_t<CHeader*, IHeaderItem*, bool*> sigSectionPressing;
    // (leaf, width, &allow): each step of a resize, before it is applied; clearing allow ends the resize.
    signal_t<CHeader*, IHeaderItem*, int, bool*> sigSectionResizing;
    // (leaf, width): a step of a resize was applied.
    signal_t<CHeader*, IHeaderItem*, int> sigSectionResized;
    // (item): the button came up on a pressed section: the click that sorts by a column.
    signal_t<CHeader*, IHeaderItem*> sigSectionPressed;
    // (leaf): a double click on a resize edge; GetItemOptimalWidth is the width to apply.
    signal_t<CHeader*, IHeaderItem*> sigSectionEdgeDoubleClicked;
    // (item, expanded): after ExpandItem.
    signal_t<CHeader*, IHeaderItem*, bool> sigSectionExpanded;
    // (item, from, to): a drop. Both are indices among the item's siblings; `to` is the gap the section was
    // dropped into, counted before the move: 0 before the first sibling, the sibling count after the last.
    // So `to` equal to `from` or `from + 1` leaves the order as it is. The application moves the section.
    signal_t<CHeader*, IHeaderItem*, int, int> sigSectionMoved;

    CHeader(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);
    ~CHeader() override;

    // --- Added virtual operations ------------------------------------------------------------------------
    // The insertion mark at the gap `to` among the siblings of `item` inside `bounds`.
    virtual void DrawDraggingPointer(IPainter* painter, IHeaderItem const* item, int to,
                                     rectangle<double> const& bounds);
    // Background, content and expand button, through `visualisation`.
    virtual void DrawSection(IPainter* painter, IHeaderItem* item, rectangle<double> const& rect,
                             IHeaderItemVisualisation* visualisation);
    virtual void SetHeaderTooltip(int x, int y, IHeaderItem* item, screen_rectangle<int> const& itemRect,
                                  screen_rectangle<int>& tooltipRect, std::string& text);

    // --- Element -----------------------------------------------------------------------------------------
    void SetPos(rectangle<int> const& newRect, bool force) override;
    void SetCoordSystem(IPainter* painter) override;
    void DrawContent(IPainter* painter) override;
    bool HandleMouseMove(int x, int y, int flags, MouseButton button) override;
    bool HandleButtonDown(int x, int y, int flags, MouseButton button) override;
    bool HandleButtonUp(int x, int y, int flags, MouseButton button) override;
    bool HandleDoubleClick(int x, int y, int flags, MouseButton button) override;
    void HandleMouseLeave(CVisualElement* next) override;
    bool HandleOnTooltip(mirel7::CTooltipEvent* ev) override;
    bool HandleStartDragging(int x, int y, DragInfo& info) override;
    void HandleDragFinished(CVisualElement* target, DragInfo& info) override;
    bool HandleDragOver(CVisualElement* source, int x, int y, DragInfo& info) override;
    void HandleDropDone(CVisualElement* source, int x, int y, DragInfo& info) override;
    void HandleDrawDragItem(IPainter* painter, DragInfo& info, bool droppable,
                            CVisualElement* target) override;

    // --- IHeaderItemDrawing, IHeaderItemVisualisation -----------------------------------------------------
    void DrawSection(IPainter* painter, IHeaderItem* item, rectangle<double> const& rect) override;
    int GetVisualisationState(IHeaderItem const* item) const override;
    rectangle<double> GetExpandBtnRect(rectangle<double> const& rect, IHeaderItem const* item) const override;
    rectangle<double> GetSectionContentRect(rectangle<double> const& rect,
                                            IHeaderItem const* item) const override;
    void DrawSectionBackground(IPainter* painter, rectangle<double> const& rect,
                               IHeaderItem const* item) override;
    void DrawSectionContent(IPainter* painter, rectangle<double> const& rect,
                            IHeaderItem const* item) override;
    void DrawExpandButton(IPainter* painter, rectangle<double> const& rect, IHeaderItem const* item) override;
    void DrawSortingMarker(IPainter* painter, bool ascending, point<double> const& at) override;

    // --- View model --------------------------------------------------------------------------------------
    void SetCount(int) override {}
    int GetCount() const override { return m_items.Count(); }
    void SetDefaultItemSize(int) override {}
    int GetDefaultItemSize() const override { return 0; }
    void UpdateModelState(IIndexTranslator*) override {}
    int GetItemSize(int index) const override;
    int GetViewSize() const override;
    int GetFullItemsSize() const override;
    // The header repaints at the new offset, and its hosted elements move with it.
    void SetOffset(int offset) override;
    std::int64_t GetItemsExtent(int from, int to) const override;
    int FindItemAt(int from, int to, std::int64_t pixel, std::int64_t* itemStart) const override;

    // --- Model and geometry ------------------------------------------------------------------------------
    // Not owned; the model outlives the header or is taken back with null.
    void SetModel(IHeaderModel* model);
    IHeaderModel* GetModel() const { return m_model; }
    void BuildViewModelItems();
    void SetStyle(unsigned style) { m_style = style; }
    unsigned GetStyle() const { return m_style; }
    void SetMinSectionWidth(int width) { m_minSectionWidth = width; }
    void SetSortingEnabled(bool enabled) { m_sortingEnabled = enabled; }
    // Columns report this width while there is exactly one of them; 0 or less switches it off.
    void SetSingleColumnWidth(int width);
    // A null visualisation stands for the header's own.
    void SetItemVisualisation(IHeaderItemVisualisation* visualisation);
    // Counts the levels again, and sizes the header to hold them.
    void RecalculateHeight();
    // As last counted: the tree's depth, collapsed groups included.
    int GetLevelCount() const { return m_levelCount; }
    // The whole header, its left edge moved by the scroll offset.
    rectangle<double> GetHeaderRect() const;
    // Empty when the item is not shown.
    rectangle<double> GetItemRect(IHeaderItem const* item) const;
    // Cuts to the header's bounds.
    void CutRectByBounds(rectangle<double>& rect) const;
    HitTestResult HitTest(int x, int y) const;
    // The width of the visible leaves below `item`, or its own for a leaf.
    int GetSectionWidth(IHeaderItem* item) const;
    int GetVisibleIndex(IHeaderItem const* item) const { return m_items.IndexOf(item); }
    int GetVisibleIndex(int modelIndex) const;
    int VisibleIndex2ModelIndex(int index) const;
    IHeaderItem* GetHeaderItem(int index) const;
    // Sets the item's state, rebuilds the columns and announces the change.
    void ExpandItem(IHeaderItem* item, bool expanded);
    // The width a leaf needs to show its image, caption and marker whole.
    int GetItemOptimalWidth(IHeaderItem const* item) const;
    Processing const& GetProcessing() const { return m_processing; }
    // Answers whether the hot section or its state changed.
    bool ProcessHotSection(HitTestResult const& hit);
    // Top-level sections drop only inside this rectangle (header coordinates); empty: the whole header.
    void SetDraggingBounds(rectangle<int> const& bounds) { m_dragBounds = bounds; }
    rectangle<double> GetDraggingBounds(IHeaderItem* item) const;
    // The gap among the siblings of `item` that a drop at (x, y) inside `bounds` goes into.
    int GetDragDropIndex(int x, int y, IHeaderItem* item, rectangle<double> const& bounds) const;
    // Scrolls while a drag holds the pointer beyond either end; stops inside.
    void CheckScroll(int x);

    // --- Hosted elements --------------------------------------------------------------------------------
    void SetVisualElement(IHeaderItem* item, CVisualElement* element, bool stretch);
    void SetVisualElement(IHeaderItem* item, CVisualElement* element, Alignment alignment);
    void RemoveVisualElement(int modelIndex);
    void RecreateElements();
    void RecreateElement(int modelIndex, ElementAnchor& anchor);
    void UpdateElementsPos();
    void UpdateElementPos(int modelIndex, ElementAnchor& anchor);

protected:
    void SaveItemWidth(int index, int size) override;
    void SaveViewWidth(int size) override;
    // Recounts the full width from the leaves instead of trusting `delta`: the item may have kept a width of
    // its own choosing.
    void UpdateFullWidth(int delta) override;

    void OnModelChanged();
    // A hosted element died: its anchor goes.
    void OnElementDestroy(CVisualElement* element);
    void Host(IHeaderItem* item, ElementAnchor const& anchor);
    // Walks `processor` over the sections, from the first top-level section that reaches `fromX`.
    void Walk(class CPositionProcessor& processor, double fromX) const;
    // The last visible leaf below a group, or the item itself.
    static IHeaderItem* LastLeaf(IHeaderItem* item);
    static IHeaderItem* FirstLeaf(IHeaderItem* item);
    // The index among its siblings.
    int GetSiblingIndex(IHeaderItem* item) const;
    int GetSiblingCount(IHeaderItem* item) const;
    void ResizeTo(int x, int y);
    // The left edges of the item and its siblings, and the right end after the last.
    std::vector<double> GetSiblingEdges(IHeaderItem* item) const;
    void EndDrag();

    std::map<int, ElementAnchor> m_elements;
    IHeaderModel* m_model = nullptr;
    IHeaderItemVisualisation* m_visualisation;
    CViewModelItems m_items;
    int m_minSectionWidth = 30;
    Processing m_processing;
    unsigned m_style = 7;
    bool m_sortingEnabled = true;
    rectangle<int> m_dragBounds;
    int m_fullWidth = 0;
    int m_viewWidth = -1;
    int m_singleColumnWidth = 0;
    int m_levelCount = 0;
    IHeaderItem* m_hotItem = nullptr;
    // The drop gap while a drag is over the header; -1 for none.
    int m_dropIndex = -1;
};

} // namespace mirelfrw7
