#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/def_list_box_handler.h>
#include <mirelfrw7/items/items_model.h>
#include <mirelfrw7/items/one_item_view_model.h>
#include <mirelfrw7/items/row_viewer.h>

namespace mirelfrw7 {

// Lets an application draw a list box's item itself; leaving `*drawDefault` true draws the text as well.
class MIRELFRW7_API IListBoxItemDrawing {
public:
    virtual ~IListBoxItemDrawing() = default;
    virtual void DrawItem(IPainter* painter, int index, int state, rectangle<int> const& rect,
                          bool* drawDefault) = 0;
};

// The ready-made list: the texts of an items model, one a row, a single selection, the row under the pointer
// highlighted, and a horizontal scroll in pixels for texts wider than the view. Its own link heads the
// handler chain, before the rows and the horizontal axis.
class MIRELFRW7_API CListBoxViewer : public CRowViewer<IDiscreteItemViewModel>, public CDefListBoxHandler {
public:
    // A left press on an item, or Return or space.
    tarnkit2::signal_t<int> sigItemActivated;

    CListBoxViewer(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);
    ~CListBoxViewer() override;
    // Null means the list's own horizontal scroll model.
    void SetHorzScroll(IScrollModel* model) override;

    // Not owned; a model that tells of its changes is followed.
    void SetModel(IItemsModel* model);
    void ModelChanged();
    // Not owned.
    void SetItemDrawing(IListBoxItemDrawing* drawing);
    // Makes `index` the current and only selected item, and tells the application at once.
    void SetCurrentItem(int index);
    // The same, as an activation.
    void SetCurrentItemEx(int index);
    int GetCurrentItem() const { return m_rowSelection->GetCurrent(); }
    int GetHotItem() const { return m_hotItem; }
    // The horizontal axis: one item as wide as the caller makes it.
    COneItemViewModel& GetHorzViewModel() { return m_horzViewModel; }

    void DrawRow(IPainter* painter, int row, int hidden, int state, rectangle<double> const& rect,
                 IDirtyItemSet::DirtyType dirty) override;

    bool SetCurProcessButtonDown(int x, int y, int flags, MouseButton button, bool* stop) override;
    bool HighlightingMouseMove(int x, int y, int flags, MouseButton button, bool* stop) override;
    bool HighlightingMouseLeave(bool* stop) override;
    bool SetCurProcessKeyDown(int key) override;

private:
    void SetHotItem(int index);

    CContinuousItemEventHandler m_horzHandler;
    CContinuousItemScrollModel m_horzScrollModel;
    COneItemViewModel m_horzViewModel;
    IItemsModel* m_model = nullptr;
    IListBoxItemDrawing* m_itemDrawing = nullptr;
    int m_hotItem = -1;
};

} // namespace mirelfrw7
