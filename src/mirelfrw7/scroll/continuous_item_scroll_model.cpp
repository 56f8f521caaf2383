#include <mirelfrw7/items/item_view_model.h>
#include <mirelfrw7/items/saturating_int.h>
#include <mirelfrw7/scroll/continuous_item_scroll_model.h>

namespace mirelfrw7 {

double CContinuousItemScrollModel::GetFrom() const {
    return 0.0;
}

double CContinuousItemScrollModel::GetTo() const {
    return m_viewModel ? m_viewModel->GetFullItemsSize() : 0.0;
}

void CContinuousItemScrollModel::SetStart(double start) {
    if (m_viewModel) m_viewModel->SetOffset(SaturatingInt(start));
}

double CContinuousItemScrollModel::GetStart() const {
    return m_viewModel ? m_viewModel->GetOffset() : 0.0;
}

int CContinuousItemScrollModel::GetMinScrollDistance() const {
    return 4;
}

} // namespace mirelfrw7
