#include <mirelfrw7/items/item_utils.h>
#include <mirelfrw7/items/list_box_viewer.h>

#include <mirel7/palette.h>

namespace mirelfrw7 {

CListBoxViewer::CListBoxViewer(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CRowViewer(parent, elementSize, alignment) {
    m_horzHandler.SetViewer(this);
    m_horzHandler.SetDirection(CEventHandlerBase::Horizontal);
    m_horzHandler.SetViewModel(&m_horzViewModel);
    m_horzScrollModel.SetViewModel(&m_horzViewModel);
    m_horzViewModel.SetViewSize(GetBounds().Width(), true);
    m_horzHandler.SetNext(m_rowHandler.GetNext());
    m_rowHandler.SetNext(&m_horzHandler);
    SetHorzScroll(nullptr);
    m_rowHandler.SetSelectionType(CEventHandlerBase::SelectOneItem);
    m_rowHandler.SetNotification(true);
    SetDefEventHandler(static_cast<CDefListBoxHandler*>(this));
}

// The connection to the model goes with whichever of the two dies first.
CListBoxViewer::~CListBoxViewer() = default;

void CListBoxViewer::SetHorzScroll(IScrollModel* model) {
    CRowViewer::SetHorzScroll(model ? model : &m_horzScrollModel);
    m_horzHandler.SetScrollModel(GetHorzScroll());
}

void CListBoxViewer::SetModel(IItemsModel* model) {
    if (auto* old = dynamic_cast<IItemsModelEx*>(m_model))
        old->sigItemsChanged.disconnect(this, &CListBoxViewer::ModelChanged);
    m_model = model;
    if (auto* now = dynamic_cast<IItemsModelEx*>(m_model))
        now->sigItemsChanged.connect(this, &CListBoxViewer::ModelChanged);
    ModelChanged();
}

void CListBoxViewer::ModelChanged() {
    m_rowViewModel->SetCount(m_model ? m_model->GetItemCount() : 0);
}

void CListBoxViewer::SetItemDrawing(IListBoxItemDrawing* drawing) {
    m_itemDrawing = drawing;
    Update(UpdateLocal);
}

void CListBoxViewer::SetCurrentItem(int index) {
    if (index == m_rowSelection->GetCurrent()) return;
    m_rowSelection->SetCurrent(index);
    m_rowSelection->ClearSelection();
    if (index >= 0) m_rowSelection->SelectItem(index, true);
    m_rowHandler.SetAnchor(index);
    m_rowHandler.NotifySelectionChanged();
}

void CListBoxViewer::SetCurrentItemEx(int index) {
    SetCurrentItem(index);
    sigItemActivated(index);
}

// The hot row wins over the selection, so that the highlight is always where the pointer is.
void CListBoxViewer::DrawRow(IPainter* painter, int row, int hidden, int state, rectangle<double> const& rect,
                             IDirtyItemSet::DirtyType dirty) {
    int const offset = m_horzViewModel.GetOffset();
    if (dirty == IDirtyItemSet::CleanItem && offset != 0) return;
    rectangle<int> const r(int(rect.left) - offset, int(rect.top) - hidden, int(rect.right),
                           int(rect.bottom));
    bool const highlighted = row == m_hotItem || (m_hotItem == -1 && (state & IItemPainter::Selected));
    ISysPalette const* const palette = mirel7::GetSysPalette();
    _color text = GetFgColor(), background = GetBkColor();
    if (highlighted && palette) {
        text = palette->GetColor(ISysPalette::ColorHighlightText);
        background = palette->GetColor(ISysPalette::ColorHighlight);
    }
    brush fill;
    fill.style = brush::Solid;
    fill.color = background;
    painter->SetBrush(fill);
    painter->FillRect(rectangle<double>(r));
    std::string const caption = m_model ? m_model->GetItemText(row) : std::string();
    bool drawDefault = true;
    if (m_itemDrawing) m_itemDrawing->DrawItem(painter, row, state, r, &drawDefault);
    if (!drawDefault) return;
    painter->SetTextColor(text);
    painter->DrawString(rectangle<double>(r.left + 3, r.top, r.right, r.bottom), caption.c_str(),
                        IPainter::AlignVCenter, -1);
    if ((state & IItemPainter::Current) && IsFocused()) painter->FocusRect(r.left, r.top, r.right, r.bottom);
}

bool CListBoxViewer::SetCurProcessButtonDown(int, int, int, MouseButton button, bool* stop) {
    if (button == mirel7::ButtonLeft && m_hotItem != -1) {
        SetCurrentItemEx(m_hotItem);
        *stop = true;
    }
    return *stop;
}

void CListBoxViewer::SetHotItem(int index) {
    if (index == m_hotItem) return;
    if (m_hotItem != -1) m_rowViewModel->AddDirtyItems(m_hotItem, m_hotItem);
    m_hotItem = index;
    if (index != -1) m_rowViewModel->AddDirtyItems(index, index);
    Update(UpdateLocal);
}

bool CListBoxViewer::HighlightingMouseMove(int, int y, int, MouseButton, bool*) {
    SetHotItem(Utils::HitTest(*m_rowViewModel, y));
    return false;
}

bool CListBoxViewer::HighlightingMouseLeave(bool*) {
    SetHotItem(-1);
    return false;
}

bool CListBoxViewer::SetCurProcessKeyDown(int key) {
    if (key != mirel7::KeyReturn && key != mirel7::KeySpace) return false;
    if (m_hotItem == -1)
        sigItemActivated(GetCurrentItem());
    else
        SetCurrentItemEx(m_hotItem);
    return true;
}

} // namespace mirelfrw7
