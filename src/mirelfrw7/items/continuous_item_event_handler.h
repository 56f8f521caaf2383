#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/discrete_item_event_handler.h>
#include <mirelfrw7/items/item_axis_handler.h>

namespace mirelfrw7 {

// The handler of an axis scrolled by pixels, where items may be cut off at both ends: columns, usually.
// Its geometry walks from the first item, which suits column counts rather than row counts.
class MIRELFRW7_API CContinuousItemEventHandler
    : public CItemAxisHandler<IContinuousItemViewModel, CContinuousItemEventHandler> {
public:
    CContinuousItemEventHandler();
    ~CContinuousItemEventHandler() override;

    bool ProcessButtonDown(int x, int y, int flags, MouseButton button, bool* stop) override;
    bool ProcessKeyDown(int flags, int key, bool* stop) override;
    void ProcessDraw(IPainter* painter, rectangle<double> const& rect) override;
    void ProcessRepeatOperation() override;

    // In a grid, the rows' handler follows this one's drags.
    void SetRowHandler(CDiscreteItemEventHandler* rows) { SetNext(rows); }
    void CurrentItemToView() { ItemToView(GetItemSelectionModel()->GetCurrent()); }
    void ItemToView(int index);
    bool MakeCurrentVisible(bool toStart);
    // The first item in the view and how many of its pixels lie before it; both -1 when there is none.
    void CalcFirstSection(int* index, int* hiddenPixels) const;
    void OnColViewModelScroll(int position, int delta, bool* canScroll);
    static constexpr auto ScrollSlot() { return &CContinuousItemEventHandler::OnColViewModelScroll; }

protected:
    void AfterPressMoved(int old, int target) override { MakeCurrentVisible(old < target); }
    // Whether item `index` shows whole.
    bool IsWhollyVisible(int index) const;
};

} // namespace mirelfrw7
