#include <mirelfrw7/items/display_scale.h>
#include <mirelfrw7/items/row_viewer_base.h>

namespace mirelfrw7 {

void FillEmptyArea(CVisualElement const& element, IPainter* painter, rectangle<double> const& rect) {
    if (!painter) return;
    brush fill;
    fill.style = brush::Solid;
    fill.color = element.GetBkColor();
    painter->SetBrush(fill);
    painter->FillRect(rect);
}

template <class M>
CRowViewerBase<M>::CRowViewerBase(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CViewerBase(parent, elementSize, alignment) {
    SetFocusable(true);
    m_rowHandler.SetViewer(this);
    m_rowHandler.SetItemPainter(static_cast<IRowPainter*>(this));
    m_rowHandler.SetDirection(CEventHandlerBase::Vertical);
    SetDefEventHandler(&m_rowHandler);
    SetVertScroll(nullptr);
    SetRowViewModel(nullptr);
    SetRowSelectionModel(nullptr);
    m_rowHandler.sigCurrentChange.connect(this, &CRowViewerBase::CurrentChange);
    m_rowHandler.sigSelectionChanged.connect(&sigRowSelectionChanged, &tarnkit2::signal_t<>::operator());
}

template <class M>
CRowViewerBase<M>::~CRowViewerBase() = default;

template <class M>
void CRowViewerBase<M>::SetRowViewModel(M* model) {
    m_rowHandler.SetViewModel(model);
    m_rowViewModel = m_rowHandler.GetViewModel();
    m_rowViewModel->SetViewSize(GetBounds().Height(), true);
    m_rowScroll.SetViewModel(m_rowViewModel);
    RowViewModelChanged(m_rowViewModel);
    ApplyAutoRowHeight(true);
    Update(UpdateLocal);
}

template <class M>
void CRowViewerBase<M>::SetRowSelectionModel(ISelectionModel* model) {
    ISelectionModel* const old = m_rowSelection;
    m_rowHandler.SetSelectionModel(model);
    m_rowSelection = m_rowHandler.GetItemSelectionModel();
    RowSelectionModelChanged(old, m_rowSelection);
    Update(UpdateLocal);
    ApplyAutoRowHeight(true);
}

template <class M>
void CRowViewerBase<M>::SetSelectionType(CEventHandlerBase::SelectionType type) {
    if (type == m_rowHandler.GetSelectionType()) return;
    m_rowHandler.SetSelectionType(type);
    SelectionTypeChanged(type);
    Update(UpdateLocal);
}

// Until a font can be measured the row keeps the height it had.
template <class M>
int CRowViewerBase<M>::CalculateDefaultRowHeight() const {
    int const line = const_cast<CRowViewerBase*>(this)->GetTextLineHeight();
    return line > 0 ? line + DisplayScaled(1) : 0;
}

template <class M>
bool CRowViewerBase<M>::ApplyAutoRowHeight(bool needControl) {
    if (!m_autoRowHeight || (needControl && !m_control) || !m_rowViewModel) return false;
    int const base = CalculateDefaultRowHeight();
    if (base == 0) return false;
    int const height = base + GetRowMargin();
    if (height == m_rowViewModel->GetDefaultItemSize()) return false;
    m_rowViewModel->SetDefaultItemSize(height);
    return true;
}

template <class M>
void CRowViewerBase<M>::DrawRowEmptyArea(IPainter* painter, rectangle<double> const& rect) {
    FillEmptyArea(*this, painter, rect);
}

template <class M>
void CRowViewerBase<M>::AfterSetControl() {
    CViewerBase::AfterSetControl();
    ApplyAutoRowHeight(true);
}

template <class M>
void CRowViewerBase<M>::AttributeChanged() {
    if (ApplyAutoRowHeight(false)) m_rowViewModel->AddDirtyItems(0, IDirtyItemSet::ToEnd);
    OnChange(this, UpdateLocal);
}

template <class M>
void CRowViewerBase<M>::ProcessSetVisible(bool) {
    m_rowViewModel->AddDirtyItems(0, m_rowViewModel->GetCount());
}

template <class M>
void CRowViewerBase<M>::ProcessSetParentVisible(bool) {
    m_rowViewModel->AddDirtyItems(0, m_rowViewModel->GetCount());
}

template <class M>
void CRowViewerBase<M>::SetVertScroll(IScrollModel* model) {
    CViewerBase::SetVertScroll(model ? model : &m_rowScroll);
    // A change of the rows reaches whoever shows their range, a scroll box's bar say.
    m_rowHandler.SetScrollModel(GetVertScroll());
}

template <class M>
void CRowViewerBase<M>::ProcessEndDraw() {
    if (m_rowViewModel) m_rowViewModel->OnEndDraw();
    if (m_rowSelection) m_rowSelection->OnEndDraw();
}

template class CRowViewerBase<IDiscreteItemViewModel>;
template class CRowViewerBase<IContinuousItemViewModel>;

} // namespace mirelfrw7
