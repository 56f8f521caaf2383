#include <mirelfrw7/items/default_discrete_item_view_model.h>
#include <mirelfrw7/items/discrete_item_event_handler.h>
#include <mirelfrw7/items/item_utils.h>

#include <mirel7/events.h>

#include <algorithm>

namespace mirelfrw7 {

CDiscreteItemEventHandler::CDiscreteItemEventHandler()
    : CItemAxisHandler(std::make_unique<CDefaultDiscreteItemViewModel>()) {}

CDiscreteItemEventHandler::~CDiscreteItemEventHandler() = default;

bool CDiscreteItemEventHandler::ProcessButtonDown(int x, int y, int flags, MouseButton button, bool* stop) {
    int const index = GetItemIndex(x, y);
    ISelectionModel* const sel = m_selection.Get();
    // A right press on the selection leaves it for the context menu; elsewhere it picks like a left one.
    if (button == mirel7::ButtonRight && index != -1 && sel->IsItemSelected(index)) return false;
    if (button != mirel7::ButtonLeft && button != mirel7::ButtonRight) return false;
    CEventHandlerBase::ProcessButtonDown(x, y, flags, mirel7::ButtonLeft, stop);
    return PressItem(index, sel->GetCurrent(), flags, sel);
}

void CDiscreteItemEventHandler::AfterPressMoved(int, int) {
    CheckNewCurrent();
}

bool CDiscreteItemEventHandler::ProcessKeyDown(int flags, int key, bool* stop) {
    int cur;
    if (!BeginKey(flags, key, stop, cur)) return false;
    IDiscreteItemViewModel& vm = *m_viewModel.Get();
    int const count = vm.GetCount();
    int const start = vm.GetStartItem();
    auto clamped = [count](int i) { return std::clamp(i, 0, count - 1); };
    switch (key) {
    case mirel7::KeyLeft:
    case mirel7::KeyUp:
        SetCurrentItem(clamped(cur - 1));
        if (m_selection->GetCurrent() == start - 1) vm.SetStartItem(start - 1);
        MakeCurrentVisible(false);
        break;
    case mirel7::KeyRight:
    case mirel7::KeyDown:
        SetCurrentItem(clamped(cur + 1));
        CheckNewCurrent();
        MakeCurrentVisible(true);
        break;
    case mirel7::KeyPageUp: {
        bool const moved = MakeCurrentVisible(false);
        int const keep = moved || start == 0 ? 0 : cur - start;
        int const s = Utils::CalcStart(vm, vm.GetStartItem() - 1);
        vm.SetStartItem(s);
        SetCurrentItem(clamped(s + keep));
        break;
    }
    case mirel7::KeyPageDown: {
        bool const moved = MakeCurrentVisible(true);
        int const keep = cur - start;
        int const last = Utils::GetLastVisibleItem(vm);
        vm.SetStartItem(last + 1);
        SetCurrentItem(clamped(last + 1 + (moved ? 0 : keep)));
        break;
    }
    case mirel7::KeyHome:
        vm.SetStartItem(0);
        SetCurrentItem(0);
        break;
    case mirel7::KeyEnd:
        vm.SetStartItem(count - 1);
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

bool CDiscreteItemEventHandler::MakeCurrentVisible(bool toStart) {
    IDiscreteItemViewModel& vm = *m_viewModel.Get();
    int const cur = m_selection->GetCurrent();
    if (m_freezeView || cur < 0) return false;
    if (vm.GetStartItem() <= cur && cur <= Utils::GetLastVisibleItem(vm)) return false;
    vm.SetStartItem(toStart ? cur : Utils::CalcStart(vm, cur));
    return true;
}

void CDiscreteItemEventHandler::CheckNewCurrent() {
    IDiscreteItemViewModel& vm = *m_viewModel.Get();
    int const cur = m_selection->GetCurrent();
    int const last = Utils::GetLastVisibleItem(vm);
    if (last < cur && cur < last + 3) vm.SetStartItem(Utils::CalcStart(vm, cur));
}

void CDiscreteItemEventHandler::ItemToView(int index) {
    IDiscreteItemViewModel& vm = *m_viewModel.Get();
    if (index < 0 || index >= vm.GetCount()) return;
    int const half = std::max(0, (vm.GetViewSize() - vm.GetItemSize(index)) / 2);
    int first = index;
    std::int64_t sum = 0;
    while (sum < half && first > 0)
        sum += vm.GetItemSize(--first);
    if (sum > half) ++first;
    vm.SetStartItem(std::min({first, Utils::CalcMaxStart(vm), index}));
}

void CDiscreteItemEventHandler::ProcessDraw(IPainter* painter, rectangle<double> const& rect) {
    DrawItems(painter, rect, m_viewModel->GetStartItem(), 0, false);
}

void CDiscreteItemEventHandler::ProcessRepeatOperation() {
    IDiscreteItemViewModel& vm = *m_viewModel.Get();
    int const count = vm.GetCount();
    if (count < 1 || m_scrollState == 0) {
        StopScrolling();
        return;
    }
    int next, target;
    if (m_scrollState == 1) {
        next = vm.GetStartItem() + 1;
        target = Utils::GetLastVisibleItem(vm);
        int const max = Utils::CalcMaxStart(vm);
        if (next >= max) {
            next = max;
            target = count - 1;
            StopScrolling();
        }
    } else {
        next = vm.GetStartItem() - 1;
        if (next < 0) {
            next = 0;
            StopScrolling();
        }
        target = next;
    }
    vm.SetStartItem(next);
    ScrollStepTo(target);
}

void CDiscreteItemEventHandler::OnRowViewModelScroll(int position, int delta, bool* canScroll) {
    ItemsScrolled(position, delta, canScroll, false);
}

} // namespace mirelfrw7
