#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/discrete_item_event_handler.h>
#include <mirelfrw7/items/event_handler_base.h>
#include <mirelfrw7/items/holder_pointer.h>

namespace mirelfrw7 {

// The handler of an axis scrolled by pixels, where items may be cut off at both ends: columns, usually.
// Its geometry walks from the first item, which suits column counts rather than row counts.
class MIRELFRW7_API CContinuousItemEventHandler : public CEventHandlerBase {
public:
    CContinuousItemEventHandler();
    ~CContinuousItemEventHandler() override;

    IBaseItemViewModel* GetItemViewModel() const override { return m_viewModel.Get(); }
    IContinuousItemViewModel* GetViewModel() const { return m_viewModel.Get(); }
    int GetItemIndex(int x, int y) override;

    bool ProcessButtonDown(int x, int y, int flags, MouseButton button, bool* stop) override;
    bool ProcessKeyDown(int flags, int key, bool* stop) override;
    void ProcessDraw(IPainter* painter, rectangle<double> const& rect) override;
    void ProcessRepeatOperation() override;

    void SetViewModel(IContinuousItemViewModel* model);
    // In a grid, the rows' handler follows this one's drags.
    void SetRowHandler(CDiscreteItemEventHandler* rows) { SetNext(rows); }
    void CurrentItemToView() { ItemToView(GetItemSelectionModel()->GetCurrent()); }
    void ItemToView(int index);
    bool MakeCurrentVisible(bool toStart);
    // The first item in the view and how many of its pixels lie before it; both -1 when there is none.
    void CalcFirstSection(int* index, int* hiddenPixels) const;
    void OnColViewModelScroll(int position, int delta, bool* canScroll);

protected:
    void AfterPressMoved(int old, int target) override { MakeCurrentVisible(old < target); }
    // Whether item `index` shows whole.
    bool IsWhollyVisible(int index) const;

    CHolderPointer<IContinuousItemViewModel> m_viewModel;
};

} // namespace mirelfrw7
