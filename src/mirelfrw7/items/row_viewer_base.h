#pragma once

#include <mirelfrw7/core/signal.h>
#include <mirelfrw7/export.h>
#include <mirelfrw7/items/continuous_item_event_handler.h>
#include <mirelfrw7/items/discrete_item_event_handler.h>
#include <mirelfrw7/items/row_painter.h>
#include <mirelfrw7/items/viewer_base.h>
#include <mirelfrw7/scroll/continuous_item_scroll_model.h>
#include <mirelfrw7/scroll/discrete_item_scroll_model.h>

namespace mirelfrw7 {

// The handler and scroll model that go with a kind of view model.
template <class M>
struct SItemAxis;
template <>
struct SItemAxis<IDiscreteItemViewModel> {
    using Handler = CDiscreteItemEventHandler;
    using ScrollModel = CDiscreteItemScrollModel;
};
template <>
struct SItemAxis<IContinuousItemViewModel> {
    using Handler = CContinuousItemEventHandler;
    using ScrollModel = CContinuousItemScrollModel;
};

// A viewer of one axis of items drawn as rows, one under the other. It works from birth on the handler's
// default view model and selection, scrolled by a scroll model of its own, until others are set.
template <class M>
class MIRELFRW7_API CRowViewerBase : public CViewerBase, public IRowPainter {
public:
    using Handler = typename SItemAxis<M>::Handler;
    using ScrollModel = typename SItemAxis<M>::ScrollModel;

    // The selection of rows changed, told late as the handler tells it.
    tarnkit2::signal_t<> sigRowSelectionChanged;

    CRowViewerBase(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);
    ~CRowViewerBase() override;

    // Null means the handler's own default; another model is not owned.
    void SetRowViewModel(M* model);
    M* GetRowViewModel() const { return m_rowViewModel; }
    void SetRowSelectionModel(ISelectionModel* model);
    ISelectionModel* GetRowSelectionModel() const { return m_rowSelection; }
    void SetSelectionType(CEventHandlerBase::SelectionType type);
    CEventHandlerBase::SelectionType GetSelectionType() const { return m_rowHandler.GetSelectionType(); }
    Handler& GetRowHandler() { return m_rowHandler; }
    ScrollModel& GetRowScrollModel() { return m_rowScroll; }
    // While set, the row height follows the font.
    void SetAutoRowHeight(bool autoHeight) { m_autoRowHeight = autoHeight; }
    bool GetAutoRowHeight() const { return m_autoRowHeight; }

    // The font's line height and the display's scale; 0 while no font can be measured.
    virtual int CalculateDefaultRowHeight() const;
    virtual int GetRowMargin() const { return 0; }
    // The element's background colour.
    void DrawRowEmptyArea(IPainter* painter, rectangle<double> const& rect) override;
    virtual void RowViewModelChanged(M*) {}
    virtual void RowSelectionModelChanged(ISelectionModel*, ISelectionModel*) {}
    virtual void SelectionTypeChanged(CEventHandlerBase::SelectionType) {}
    // Before the current row moves from `current` to `newCurrent`, which may be changed.
    virtual void CurrentRowChanged(int, int&) {}

    void AfterSetControl() override;
    // A new font brings a new row height.
    void AttributeChanged() override;
    // An element that comes back paints in full.
    void ProcessSetVisible(bool visible) override;
    void ProcessSetParentVisible(bool visible) override;
    // Null means the viewer's own row scroll model.
    void SetVertScroll(IScrollModel* model) override;
    void ProcessEndDraw() override;

    void CurrentChange(int current, int& newCurrent) { CurrentRowChanged(current, newCurrent); }

protected:
    // The row height from the font replaces the model's default when it differs; true when it changed.
    bool ApplyAutoRowHeight(bool needControl);

    M* m_rowViewModel = nullptr;
    ISelectionModel* m_rowSelection = nullptr;
    Handler m_rowHandler;
    ScrollModel m_rowScroll;
    bool m_autoRowHeight = true;
};

// Fills a solid brush of the element's background colour over `rect`.
MIRELFRW7_API void FillEmptyArea(CVisualElement const& element, IPainter* painter,
                                 rectangle<double> const& rect);

extern template class CRowViewerBase<IDiscreteItemViewModel>;
extern template class CRowViewerBase<IContinuousItemViewModel>;

} // namespace mirelfrw7
