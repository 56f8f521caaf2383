#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/event_handler_base.h>
#include <mirelfrw7/items/holder_pointer.h>

namespace mirelfrw7 {

// The handler of an axis whose view starts at an item's edge: rows, usually. It works from birth on a
// default view model and selection of its own, until others are set.
class MIRELFRW7_API CDiscreteItemEventHandler : public CEventHandlerBase {
public:
    CDiscreteItemEventHandler();
    ~CDiscreteItemEventHandler() override;

    IBaseItemViewModel* GetItemViewModel() const override { return m_viewModel.Get(); }
    IDiscreteItemViewModel* GetViewModel() const { return m_viewModel.Get(); }
    int GetItemIndex(int x, int y) override;

    bool ProcessButtonDown(int x, int y, int flags, MouseButton button, bool* stop) override;
    bool ProcessKeyDown(int flags, int key, bool* stop) override;
    // Only the visible items, from the start item.
    void ProcessDraw(IPainter* painter, rectangle<double> const& rect) override;
    void ProcessRepeatOperation() override;

    // Null means the handler's own default; another model is not owned.
    void SetViewModel(IDiscreteItemViewModel* model);
    void CurrentItemToView() { ItemToView(GetItemSelectionModel()->GetCurrent()); }
    // Centres the item in the view, as far as the end of the items allows.
    void ItemToView(int index);
    // Scrolls so that the current item shows, at the view's start or its end; true when it scrolled.
    bool MakeCurrentVisible(bool toStart);
    // A current item just past the view's end scrolls in as the view's last item.
    void CheckNewCurrent();
    void OnRowViewModelScroll(int position, int delta, bool* canScroll);

protected:
    void AfterPressMoved(int old, int target) override;

    CHolderPointer<IDiscreteItemViewModel> m_viewModel;
};

} // namespace mirelfrw7
