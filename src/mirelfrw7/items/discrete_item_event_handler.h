#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/item_axis_handler.h>

namespace mirelfrw7 {

// The handler of an axis whose view starts at an item's edge: rows, usually. It works from birth on a
// default view model and selection of its own, until others are set.
class MIRELFRW7_API CDiscreteItemEventHandler
    : public CItemAxisHandler<IDiscreteItemViewModel, CDiscreteItemEventHandler> {
public:
    CDiscreteItemEventHandler();
    ~CDiscreteItemEventHandler() override;

    bool ProcessButtonDown(int x, int y, int flags, MouseButton button, bool* stop) override;
    bool ProcessKeyDown(int flags, int key, bool* stop) override;
    // Only the visible items, from the start item.
    void ProcessDraw(IPainter* painter, rectangle<double> const& rect) override;
    void ProcessRepeatOperation() override;

    void CurrentItemToView() { ItemToView(GetItemSelectionModel()->GetCurrent()); }
    // Centres the item in the view, as far as the end of the items allows.
    void ItemToView(int index);
    // Scrolls so that the current item shows, at the view's start or its end; true when it scrolled.
    bool MakeCurrentVisible(bool toStart);
    // A current item just past the view's end scrolls in as the view's last item.
    void CheckNewCurrent();
    void OnRowViewModelScroll(int position, int delta, bool* canScroll);
    static constexpr auto ScrollSlot() { return &CDiscreteItemEventHandler::OnRowViewModelScroll; }

protected:
    void AfterPressMoved(int old, int target) override;
};

} // namespace mirelfrw7
