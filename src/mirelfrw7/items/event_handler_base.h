#pragma once

#include <mirelfrw7/core/signal.h>
#include <mirelfrw7/export.h>
#include <mirelfrw7/items/event_handler.h>
#include <mirelfrw7/items/holder_pointer.h>
#include <mirelfrw7/items/item_view_model.h>
#include <mirelfrw7/items/selection_model.h>
#include <mirelfrw7/scroll/repeatable_operation.h>

#include <memory>

namespace mirelfrw7 {

class ILayout;
class IItemPainter;
class IScrollModel;
class CPostponedOperation;

// The delay, in milliseconds, after the last key of a run of keys before the application hears that the
// selection changed; 0 (the start) tells it on the next turn of the event loop, keys or not.
MIRELFRW7_API void SetSelectionChangeDelay(int milliseconds);
MIRELFRW7_API int GetSelectionChangeDelay();

// What one axis of a viewer does with the pointer and the keys: it moves the current item, selects, scrolls
// the view model, and tells the application of selection changes later, once per burst of changes.
class MIRELFRW7_API CEventHandlerBase : public CEventHandler,
                                        public tarnkit2::subscriber_base_t,
                                        public CRepeatableOperation {
public:
    // Items side by side (0) or one under the other (1).
    enum ItemsDirection { Horizontal = 0, Vertical = 1 };
    enum SelectionType { SelectOneItem = 0, SelectFree = 1, SelectNoItems = 2 };

    // (current, new current) before the current item changes; a slot may change the target.
    tarnkit2::signal_t<int, int&> sigCurrentChange;
    // The selection changed, told late: see SetSelectionChangeDelay.
    tarnkit2::signal_t<> sigSelectionChanged;

    CEventHandlerBase();
    ~CEventHandlerBase() override;

    virtual IBaseItemViewModel* GetItemViewModel() const = 0;
    virtual ISelectionModel* GetItemSelectionModel() const { return m_selection.Get(); }
    // Null means the handler's own default; another model is not owned.
    void SetSelectionModel(ISelectionModel* model);
    // The item under (x, y), or -1.
    virtual int GetItemIndex(int x, int y) = 0;

    bool ProcessMouseMove(int x, int y, int flags, MouseButton button, bool* stop) override;
    bool ProcessButtonDown(int x, int y, int flags, MouseButton button, bool* stop) override;
    bool ProcessButtonUp(int x, int y, int flags, MouseButton button, bool* stop) override;
    bool ProcessKeyDown(int flags, int key, bool* stop) override;
    // Selected items look different with and without the focus.
    bool ProcessGetFocus(bool* stop) override;
    bool ProcessLostFocus(bool* stop) override;
    void ProcessResize(rectangle<int> const& oldRect, rectangle<int> const& newRect, bool force) override;

    void SetDirection(ItemsDirection direction);
    ItemsDirection GetDirection() const { return m_direction; }
    void SetViewer(CVisualElement* viewer) { m_viewer = viewer; }
    CVisualElement* GetViewer() const { return m_viewer; }
    void SetItemPainter(IItemPainter* painter) { m_itemPainter = painter; }
    void SetSelectionType(SelectionType type) { m_selectionType = type; }
    SelectionType GetSelectionType() const { return m_selectionType; }
    void SetNotification(bool notify) { m_notifySelection = notify; }
    void SetFreezeView(bool freeze) { m_freezeView = freeze; }
    // The scroll model over the view model, told to refresh when the view model changes; not owned.
    void SetScrollModel(IScrollModel* model) { m_scrollModel = model; }
    int GetAnchor() const { return m_anchor; }
    void SetAnchor(int anchor) { m_anchor = anchor; }
    int GetScrollState() const { return m_scrollState; }

    void OnViewModelChange();
    void OnSelectionModelChange();
    void UpdateScroll();
    void UpdateLastItem();
    void PostSelectionChanged();
    void NotifySelectionChanged();
    void SetCurrentItem(int index);
    void ProcessItemChange(int from, int to, int flags, ISelectionModel* sel);
    void ProcessItemChangeOneItem(int from, int to, int flags, ISelectionModel* sel);
    void ProcessItemChangeFree(int from, int to, int flags, ISelectionModel* sel);
    // A plain click on the current item.
    void Reselect(int index, ISelectionModel* sel);
    // Starts, turns or stops the automatic scrolling of a drag by where the pointer is.
    void ProcessScrolling(int index, int pos);
    void StopScrolling();
    bool IsLastItemExpanded() const;
    // Moves the pixels of the items from `position` on by `delta` instead of repainting them; false when
    // they must be repainted.
    bool ScrollItems(int position, int delta);

protected:
    // The steps of a press on item `index` while `current` is the current item.
    bool PressItem(int index, int current, int flags, ISelectionModel* sel);
    // Brings the view after a press moved the current item from `old` towards `target`.
    virtual void AfterPressMoved(int old, int target) = 0;
    // Connects the handler to the signals of a model it takes on, or disconnects it from one it gives up.
    void LinkViewModel(IBaseItemViewModel* vm, bool link);
    void LinkSelectionModel(ISelectionModel* sel, bool link);
    // Paints the items from `first` on, whose first `hidden` pixels lie before the view; with `withinView`
    // the walk stops once the painted items fill the view.
    void DrawItems(IPainter* painter, rectangle<double> const& rect, int first, int hidden, bool withinView);
    // The current item before a key, or false when the key is not for this axis or there is nothing to move.
    bool BeginKey(int flags, int key, bool* stop, int& current);
    // The selection follows a key that moved the current item from `old`.
    void EndKey(int old, int flags);
    // The space key's toggle, with the second notice a toggle off gives.
    void ToggleItem(int index, ISelectionModel* sel);
    // The current item of an automatic scroll step.
    void ScrollStepTo(int target);
    // The along position of (x, y) in the viewer.
    int AlongOf(int x, int y) const;
    bool IsDirectionKey(int key) const;
    // Selected items to repaint when the focus comes or goes.
    void RepaintSelected();

    int m_scrollState = 0;
    CVisualElement* m_viewer = nullptr;
    IItemPainter* m_itemPainter = nullptr;
    ILayout* m_layout = nullptr;
    ItemsDirection m_direction = Horizontal;
    SelectionType m_selectionType = SelectFree;
    int m_anchor = -1;
    bool m_notifySelection = false;
    bool m_selectionPending = false;
    bool m_keyboardChange = false;
    bool m_freezeView = false;
    int m_downX = -1, m_downY = -1;
    std::unique_ptr<CPostponedOperation> m_postponed;
    IScrollModel* m_scrollModel = nullptr;
    CHolderPointer<ISelectionModel> m_selection;
};

} // namespace mirelfrw7
