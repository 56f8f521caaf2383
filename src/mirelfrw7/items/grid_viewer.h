#pragma once

#include <mirelfrw7/items/cell_painter.h>
#include <mirelfrw7/items/column_painter.h>
#include <mirelfrw7/items/row_viewer_base.h>

namespace mirelfrw7 {

// Rows and columns, and so cells: each visible row hands its rectangle to the column axis, which walks the
// visible columns within it, and each cell is called back with the state of both axes. The row being
// painted is kept in members between the two walks, so that the inner one needs no allocation.
template <class R, class C>
class MIRELFRW7_API CGridViewer : public CRowViewerBase<R>, public IColumnPainter, public ICellPainter {
public:
    using ColumnHandler = typename SItemAxis<C>::Handler;
    using ColumnScrollModel = typename SItemAxis<C>::ScrollModel;

    tarnkit2::signal_t<> sigColumnSelectionChanged;

    CGridViewer(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);
    ~CGridViewer() override;

    // Null means the column handler's own default; another model is not owned.
    void SetColumnViewModel(C* model);
    C* GetColumnViewModel() const { return m_columnViewModel; }
    void SetColumnSelectionModel(ISelectionModel* model);
    ISelectionModel* GetColumnSelectionModel() const { return m_columnSelection; }
    ColumnHandler& GetColumnHandler() { return m_columnHandler; }
    ColumnScrollModel& GetColumnScrollModel() { return m_columnScroll; }

    // One cell: selected when its row or column is (an axis that selects nothing adds nothing), current
    // only when both are.
    void DrawColumn(IPainter* painter, int column, int hidden, int state, rectangle<double> const& rect,
                    IDirtyItemSet::DirtyType dirty) override;
    // Right of the last column, once per row.
    void DrawColumnEmptyArea(IPainter* painter, rectangle<double> const& rect) override;
    virtual void ColumnViewModelChanged(C*) {}
    virtual void ColumnSelectionModelChanged(ISelectionModel*, ISelectionModel*) {}
    virtual void CurrentColumnChanged(int, int&) {}

    void DrawRow(IPainter* painter, int row, int hidden, int state, rectangle<double> const& rect,
                 IDirtyItemSet::DirtyType dirty) override;
    void ProcessEndDraw() override;
    void ProcessSetVisible(bool visible) override;
    void ProcessSetParentVisible(bool visible) override;
    // Null means the viewer's own column scroll model.
    void SetHorzScroll(IScrollModel* model) override;

    void CurrentChange(int current, int& newCurrent) { CurrentColumnChanged(current, newCurrent); }

protected:
    C* m_columnViewModel = nullptr;
    ISelectionModel* m_columnSelection = nullptr;
    ColumnHandler m_columnHandler;
    ColumnScrollModel m_columnScroll;
    bool m_autoColumnWidth = true;
    int m_paintRow = -1;
    int m_paintRowState = 0;
    int m_paintRowHidden = 0;
    IDirtyItemSet::DirtyType m_paintRowDirty = IDirtyItemSet::DirtyItem;
};

extern template class CGridViewer<IDiscreteItemViewModel, IDiscreteItemViewModel>;
// Columns scrolled by pixels: a tree header serves as this column axis.
extern template class CGridViewer<IDiscreteItemViewModel, IContinuousItemViewModel>;

} // namespace mirelfrw7
