#include <mirelfrw7/items/continuous_item_event_handler.h>
#include <mirelfrw7/items/default_column_view_model.h>
#include <mirelfrw7/items/item_utils.h>

#include <mirel7/events.h>

#include <algorithm>

namespace mirelfrw7 {

namespace {

// Pixels per automatic scroll step.
constexpr int ScrollStep = 8;

} // namespace

CContinuousItemEventHandler::CContinuousItemEventHandler()
    : CItemAxisHandler(std::make_unique<CDefaultColumnViewModel>()) {}

CContinuousItemEventHandler::~CContinuousItemEventHandler() = default;

bool CContinuousItemEventHandler::ProcessButtonDown(int x, int y, int flags, MouseButton button, bool* stop) {
    if (button != mirel7::ButtonLeft) return false;
    CEventHandlerBase::ProcessButtonDown(x, y, flags, button, stop);
    ISelectionModel* const sel = m_selection.Get();
    return PressItem(GetItemIndex(x, y), sel->GetCurrent(), flags, sel);
}

bool CContinuousItemEventHandler::ProcessKeyDown(int flags, int key, bool* stop) {
    int cur;
    if (!BeginKey(flags, key, stop, cur)) return false;
    IContinuousItemViewModel& vm = *m_viewModel.Get();
    int const count = vm.GetCount();
    switch (key) {
    case mirel7::KeyLeft:
    case mirel7::KeyUp:
        SetCurrentItem(std::clamp(cur - 1, 0, count - 1));
        MakeCurrentVisible(false);
        break;
    case mirel7::KeyRight:
    case mirel7::KeyDown:
        SetCurrentItem(std::clamp(cur + 1, 0, count - 1));
        MakeCurrentVisible(true);
        break;
    case mirel7::KeyHome:
        vm.SetOffset(0);
        SetCurrentItem(0);
        break;
    case mirel7::KeyEnd:
        vm.SetOffset(vm.GetFullItemsSize() - vm.GetViewSize());
        SetCurrentItem(count - 1);
        break;
    case mirel7::KeySpace:
        if (m_selectionType != SelectNoItems) ToggleItem(cur, m_selection.Get());
        break;
    default:
        return false;
    }
    EndKey(cur, flags);
    return true;
}

bool CContinuousItemEventHandler::IsWhollyVisible(int index) const {
    IContinuousItemViewModel const& vm = *m_viewModel.Get();
    std::int64_t const start = std::int64_t(Utils::GetItemOffset(vm, index)) - vm.GetOffset();
    return start >= 0 && start + vm.GetItemSize(index) <= vm.GetViewSize();
}

bool CContinuousItemEventHandler::MakeCurrentVisible(bool toStart) {
    IContinuousItemViewModel& vm = *m_viewModel.Get();
    int const cur = m_selection->GetCurrent();
    if (m_freezeView || vm.GetCount() < 2 || cur < 0 || cur >= vm.GetCount() || IsWhollyVisible(cur))
        return false;
    int const itemStart = Utils::GetItemOffset(vm, cur);
    int const size = vm.GetItemSize(cur);
    // Moving forwards the item comes in at the view's start; backwards it ends the view, where it fits.
    vm.SetOffset(!toStart && size < vm.GetViewSize() ? itemStart + size - vm.GetViewSize() : itemStart);
    return true;
}

void CContinuousItemEventHandler::ItemToView(int index) {
    IContinuousItemViewModel& vm = *m_viewModel.Get();
    if (vm.GetCount() < 2 || index < 0 || index >= vm.GetCount() || IsWhollyVisible(index)) return;
    int const itemStart = Utils::GetItemOffset(vm, index);
    int const size = vm.GetItemSize(index);
    int const view = vm.GetViewSize();
    int const full = vm.GetFullItemsSize();
    int target = itemStart;
    if (size < view) {
        int const half = (view - size) / 2;
        int const t = half < itemStart ? itemStart - half : itemStart;
        target = view < full - t ? t : full - view - 1;
    }
    vm.SetOffset(target);
}

void CContinuousItemEventHandler::CalcFirstSection(int* index, int* hiddenPixels) const {
    IContinuousItemViewModel const& vm = *m_viewModel.Get();
    std::int64_t itemStart = 0;
    int const count = vm.GetCount();
    int const first = vm.FindItemAt(0, count, vm.GetOffset(), &itemStart);
    *index = first < count ? first : -1;
    *hiddenPixels = first < count ? int(vm.GetOffset() - itemStart) : -1;
}

void CContinuousItemEventHandler::ProcessDraw(IPainter* painter, rectangle<double> const& rect) {
    int first, hidden;
    CalcFirstSection(&first, &hidden);
    DrawItems(painter, rect, first, std::max(hidden, 0), true);
}

void CContinuousItemEventHandler::ProcessRepeatOperation() {
    IContinuousItemViewModel& vm = *m_viewModel.Get();
    int const count = vm.GetCount();
    if (count < 1 || m_scrollState == 0) {
        StopScrolling();
        return;
    }
    int const view = vm.GetViewSize();
    bool const forward = m_scrollState == 1;
    int next = vm.GetOffset() + (forward ? ScrollStep : -ScrollStep);
    bool reachedEnd = false;
    if (forward) {
        int limit = vm.GetFullItemsSize() - view;
        if (limit < 2) limit = 0;
        if (next >= limit) {
            next = limit;
            reachedEnd = true;
            StopScrolling();
        }
    } else if (next < 0) {
        next = 0;
        StopScrolling();
    }
    vm.SetOffset(next);
    // At the end the last item is the target even when the view's end lies past it.
    ScrollStepTo(reachedEnd ? count - 1 : Utils::HitTest(vm, forward ? view : 0));
}

void CContinuousItemEventHandler::OnColViewModelScroll(int position, int delta, bool* canScroll) {
    ItemsScrolled(position, delta, canScroll, true);
}

} // namespace mirelfrw7
