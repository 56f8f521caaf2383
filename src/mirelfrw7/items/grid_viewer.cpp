#include <mirelfrw7/items/grid_viewer.h>

namespace mirelfrw7 {

template <class R, class C>
CGridViewer<R, C>::CGridViewer(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CRowViewerBase<R>(parent, elementSize, alignment) {
    m_columnHandler.SetViewer(this);
    m_columnHandler.SetItemPainter(static_cast<IColumnPainter*>(this));
    m_columnHandler.SetDirection(CEventHandlerBase::Horizontal);
    // Every event reaches the rows first, then the columns.
    m_columnHandler.SetNext(this->m_firstHandler->GetNext());
    this->m_firstHandler->SetNext(&m_columnHandler);
    SetHorzScroll(nullptr);
    SetColumnViewModel(nullptr);
    SetColumnSelectionModel(nullptr);
    m_columnHandler.sigCurrentChange.connect(this, &CGridViewer::CurrentChange);
    m_columnHandler.sigSelectionChanged.connect(&sigColumnSelectionChanged,
                                                &tarnkit2::signal_t<>::operator());
}

template <class R, class C>
CGridViewer<R, C>::~CGridViewer() = default;

template <class R, class C>
void CGridViewer<R, C>::SetColumnViewModel(C* model) {
    m_columnHandler.SetViewModel(model);
    m_columnViewModel = m_columnHandler.GetViewModel();
    m_columnViewModel->SetViewSize(this->GetBounds().Width(), true);
    m_columnScroll.SetViewModel(m_columnViewModel);
    ColumnViewModelChanged(m_columnViewModel);
    this->Update(UpdateLocal);
}

template <class R, class C>
void CGridViewer<R, C>::SetColumnSelectionModel(ISelectionModel* model) {
    ISelectionModel* const old = m_columnSelection;
    m_columnHandler.SetSelectionModel(model);
    m_columnSelection = m_columnHandler.GetItemSelectionModel();
    ColumnSelectionModelChanged(old, m_columnSelection);
    this->Update(UpdateLocal);
}

template <class R, class C>
void CGridViewer<R, C>::DrawRow(IPainter* painter, int row, int hidden, int state,
                                rectangle<double> const& rect, IDirtyItemSet::DirtyType dirty) {
    m_paintRow = row;
    m_paintRowHidden = hidden;
    m_paintRowState = state;
    m_paintRowDirty = dirty;
    m_columnHandler.ProcessDraw(painter, rect);
}

template <class R, class C>
void CGridViewer<R, C>::DrawColumn(IPainter* painter, int column, int hidden, int state,
                                   rectangle<double> const& rect, IDirtyItemSet::DirtyType dirty) {
    int cell = m_paintRowState & state & IItemPainter::Current;
    if (this->m_rowHandler.GetSelectionType() != CEventHandlerBase::SelectNoItems)
        cell |= m_paintRowState & IItemPainter::Selected;
    if (m_columnHandler.GetSelectionType() != CEventHandlerBase::SelectNoItems)
        cell |= state & IItemPainter::Selected;
    DrawCell(painter, m_paintRow, m_paintRowHidden, column, hidden, cell, rect,
             GetCellUpdateType(painter, m_paintRowDirty, dirty));
}

template <class R, class C>
void CGridViewer<R, C>::DrawColumnEmptyArea(IPainter* painter, rectangle<double> const& rect) {
    FillEmptyArea(*this, painter, rect);
}

template <class R, class C>
void CGridViewer<R, C>::ProcessEndDraw() {
    CRowViewerBase<R>::ProcessEndDraw();
    if (m_columnViewModel) m_columnViewModel->OnEndDraw();
    if (m_columnSelection) m_columnSelection->OnEndDraw();
}

template <class R, class C>
void CGridViewer<R, C>::ProcessSetVisible(bool visible) {
    CRowViewerBase<R>::ProcessSetVisible(visible);
    m_columnViewModel->AddDirtyItems(0, m_columnViewModel->GetCount());
}

template <class R, class C>
void CGridViewer<R, C>::ProcessSetParentVisible(bool visible) {
    CRowViewerBase<R>::ProcessSetParentVisible(visible);
    m_columnViewModel->AddDirtyItems(0, m_columnViewModel->GetCount());
}

template <class R, class C>
void CGridViewer<R, C>::SetHorzScroll(IScrollModel* model) {
    CViewerBase::SetHorzScroll(model ? model : &m_columnScroll);
    m_columnHandler.SetScrollModel(this->GetHorzScroll());
}

template class CGridViewer<IDiscreteItemViewModel, IDiscreteItemViewModel>;
template class CGridViewer<IDiscreteItemViewModel, IContinuousItemViewModel>;

} // namespace mirelfrw7
