#include <mirelfrw7/items/continuous_steps.h>
#include <mirelfrw7/items/saturating_int.h>
#include <mirelfrw7/items/simple_continuous_item_view_model.h>

namespace mirelfrw7 {

void CSimpleContinuousItemViewModel::SetItemSize(int index, int size) {
    int const old = GetItemSize(index);
    if (size == old) return;
    ContinuousSteps::AnnounceItemResize(*this, index, old, size);
    SaveItemWidth(index, size);
    UpdateFullWidth(SaturatingInt(std::int64_t(size) - old));
    sigModelChanged();
}

void CSimpleContinuousItemViewModel::SetViewSize(int size, bool force) {
    int const previous = GetViewSize();
    SaveViewWidth(size);
    ContinuousSteps::ResizeView(*this, previous, size, force);
}

void CSimpleContinuousItemViewModel::SetOffset(int offset) {
    ContinuousSteps::ScrollTo(*this, m_offset, offset);
}

} // namespace mirelfrw7
