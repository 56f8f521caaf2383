#include <mirelfrw7/core/control.h>
#include <mirelfrw7/items/default_selection_model.h>
#include <mirelfrw7/items/event_handler_base.h>
#include <mirelfrw7/items/item_painter.h>
#include <mirelfrw7/items/postponed_operation.h>
#include <mirelfrw7/items/saturating_int.h>
#include <mirelfrw7/items/selection_runnable.h>
#include <mirelfrw7/layout/layout.h>
#include <mirelfrw7/layout/layout_manager.h>
#include <mirelfrw7/scroll/scroll_model.h>

#include <mirel7/events.h>
#include <mirel7/sys_window.h>

#include <algorithm>
#include <atomic>
#include <climits>
#include <cstdlib>

namespace mirelfrw7 {

namespace {

constexpr int LeftHeld = 1;
// Focus changes repaint up to this many selected items one by one, and everything beyond.
constexpr int FocusRepaintLimit = 6;

std::atomic<int> g_selectionChangeDelay{0};

} // namespace

void SetSelectionChangeDelay(int milliseconds) {
    g_selectionChangeDelay = milliseconds;
}

int GetSelectionChangeDelay() {
    return g_selectionChangeDelay;
}

CEventHandlerBase::CEventHandlerBase()
    : CRepeatableOperation(100), m_selection(std::make_unique<CDefaultSelectionModel>()) {
    SetDirection(Horizontal);
    LinkSelectionModel(m_selection.Get(), true);
}

void CEventHandlerBase::SetSelectionModel(ISelectionModel* model) {
    ISelectionModel* const old = m_selection.Get();
    m_selection.Set(model);
    if (m_selection.Get() == old) return;
    LinkSelectionModel(old, false);
    LinkSelectionModel(m_selection.Get(), true);
}

CEventHandlerBase::~CEventHandlerBase() = default;

void CEventHandlerBase::SetDirection(ItemsDirection direction) {
    m_direction = direction;
    m_layout = CLayoutManager::GetLayout(direction != Horizontal ? AlignLeft : AlignTop);
}

int CEventHandlerBase::AlongOf(int x, int y) const {
    return SaturatingInt(m_layout->GetAlong(x, y));
}

bool CEventHandlerBase::IsLastItemExpanded() const {
    IBaseItemViewModel* const vm = GetItemViewModel();
    return vm && vm->IsLastItemExpanded();
}

void CEventHandlerBase::UpdateScroll() {
    if (m_scrollModel) m_scrollModel->Update();
}

void CEventHandlerBase::UpdateLastItem() {
    IBaseItemViewModel* const vm = GetItemViewModel();
    if (vm && vm->IsLastItemExpanded() && vm->GetCount() > 0)
        vm->AddDirtyItems(vm->GetCount() - 1, vm->GetCount() - 1);
}

void CEventHandlerBase::OnViewModelChange() {
    UpdateScroll();
    UpdateLastItem();
    if (m_viewer) m_viewer->OnChange(m_viewer, UpdateLocal);
}

void CEventHandlerBase::OnSelectionModelChange() {
    if (m_viewer) m_viewer->OnChange(m_viewer, UpdateLocal);
    ISelectionModel* const sel = GetItemSelectionModel();
    if (sel && sel->GetSelectedCount() == 1) {
        int only = INT_MIN;
        if (sel->GetNextSelectedItem(only) && only == sel->GetCurrent() && only != m_anchor) m_anchor = only;
    }
    // A key while a notice waits for the keyboard to go quiet starts the wait again.
    bool const waiting = m_selectionPending && m_keyboardChange && m_postponed && m_postponed->IsPending();
    if (m_notifySelection && (!m_selectionPending || waiting)) {
        m_selectionPending = true;
        PostSelectionChanged();
    }
}

void CEventHandlerBase::PostSelectionChanged() {
    IControl* const control = m_viewer ? m_viewer->GetControl() : nullptr;
    mirel7::ISysWindow* const window = control ? control->GetWindow() : nullptr;
    if (!m_selectionPending) return;
    if (!window || window->IsClosing()) {
        // Nothing will come to clear the flag: left set, it would silence every later change.
        m_selectionPending = false;
        return;
    }
    int const delay = GetSelectionChangeDelay();
    if (delay != 0 && m_keyboardChange) {
        if (!m_postponed) {
            m_postponed = std::make_unique<CPostponedOperation>(delay);
            m_postponed->sigOperation.connect(this, &CEventHandlerBase::NotifySelectionChanged);
        }
        m_postponed->SetDelay(delay);
        m_postponed->Start();
        return;
    }
    auto* const runnable = new CSelectionRunnable;
    runnable->sigRun.connect(this, &CEventHandlerBase::NotifySelectionChanged);
    window->PostRunnable(runnable);
}

void CEventHandlerBase::NotifySelectionChanged() {
    bool const pending = std::exchange(m_selectionPending, false);
    if (pending && m_selectionType != SelectNoItems) sigSelectionChanged();
}

void CEventHandlerBase::SetCurrentItem(int index) {
    ISelectionModel* const sel = GetItemSelectionModel();
    if (!sel) return;
    int const old = sel->GetCurrent();
    sigCurrentChange(old, index);
    if (index != old) sel->SetCurrent(index);
}

void CEventHandlerBase::ProcessItemChange(int from, int to, int flags, ISelectionModel* sel) {
    if (m_selectionType == SelectOneItem) ProcessItemChangeOneItem(from, to, flags, sel);
    if (m_selectionType == SelectFree) ProcessItemChangeFree(from, to, flags, sel);
}

void CEventHandlerBase::ProcessItemChangeOneItem(int from, int to, int, ISelectionModel* sel) {
    if (!sel || from == to || m_selectionType == SelectNoItems) return;
    if (sel->IsItemSelected(from)) {
        sel->SelectItem(from, false);
    } else if (sel->GetSelectedCount() > 0) {
        int first = INT_MIN;
        if (sel->GetNextSelectedItem(first))
            sel->SelectItem(first, false);
        else
            sel->ClearSelection();
    }
    sel->SelectItem(to, true);
}

void CEventHandlerBase::ProcessItemChangeFree(int from, int to, int flags, ISelectionModel* sel) {
    IBaseItemViewModel* const vm = GetItemViewModel();
    if (!sel || !vm || from == to || m_selectionType == SelectNoItems) return;
    if (flags & mirel7::FlagShift) {
        int const count = vm->GetCount();
        if (m_anchor < 0 || m_anchor >= count) m_anchor = std::clamp(from, 0, std::max(count - 1, 0));
        sel->SetSelectionRange(m_anchor, to);
        sel->AddDirtyItems(from, to);
    } else if (flags & mirel7::FlagControl) {
        // The current item moves alone.
    } else if (sel->GetSelectedCount() < 2) {
        ProcessItemChangeOneItem(from, to, 0, sel);
    } else {
        sel->ClearSelection();
        sel->SelectItem(to, true);
    }
}

void CEventHandlerBase::Reselect(int index, ISelectionModel* sel) {
    if (m_selectionType == SelectNoItems) return;
    int const count = sel->GetSelectedCount();
    if (count == 0) {
        sel->SelectItem(index, true);
        return;
    }
    if (count == 1 && sel->IsItemSelected(index)) return;
    sel->ClearSelection();
    sel->SelectItem(index, true);
}

void CEventHandlerBase::ToggleItem(int index, ISelectionModel* sel) {
    bool const was = sel->IsItemSelected(index);
    sel->SelectItem(index, !was);
    if (was) sel->sigSelectionChanged();
}

bool CEventHandlerBase::PressItem(int index, int current, int flags, ISelectionModel* sel) {
    if (index == -1) return false;
    bool result = true;
    if (index == current) {
        if (flags & (mirel7::FlagShift | mirel7::FlagControl))
            result = false;
        else
            Reselect(index, sel);
    } else {
        flags &= mirel7::FlagShift | mirel7::FlagControl;
        SetCurrentItem(index);
        AfterPressMoved(current, index);
        ProcessItemChange(current, sel->GetCurrent(), flags, sel);
    }
    if ((flags & mirel7::FlagControl) && m_selectionType == SelectFree) {
        ToggleItem(index, sel);
        result = true;
    }
    return result;
}

bool CEventHandlerBase::ProcessButtonDown(int x, int y, int, MouseButton button, bool*) {
    m_downX = button == mirel7::ButtonLeft ? x : -1;
    m_downY = button == mirel7::ButtonLeft ? y : -1;
    m_keyboardChange = false;
    return false;
}

bool CEventHandlerBase::ProcessMouseMove(int x, int y, int flags, MouseButton button, bool* stop) {
    IControl* const control = m_viewer ? m_viewer->GetControl() : nullptr;
    if (!control) return false;
    bool const captured = control->GetCapture() == m_viewer;
    rectangle<int> const bounds = m_viewer->GetBounds();
    bool const over = x >= bounds.left && x <= bounds.right && y >= bounds.top && y <= bounds.bottom;
    if (!over && !captured) m_downX = m_downY = -1;
    if (!(flags & LeftHeld)) {
        m_downX = m_downY = -1;
        return false;
    }
    if (m_downX != -1 && !captured) {
        size<int> const threshold = control->GetDragStartSensitivity();
        if (std::abs(x - m_downX) > threshold.cx || std::abs(y - m_downY) > threshold.cy)
            m_viewer->CaptureMouse();
    }
    // A drag extends the selection as Shift+click does, and the other axis of the chain follows.
    if (control->GetCapture() != m_viewer || !GetItemViewModel()) return false;
    int const pos = AlongOf(x, y);
    int const index = GetItemIndex(x, y);
    ProcessScrolling(index, pos);
    if (index == -1 || pos < 0) return false;
    ProcessButtonDown(x, y, mirel7::FlagShift, button, stop);
    if (m_next && !*stop) m_next->ProcessButtonDown(x, y, mirel7::FlagShift, button, stop);
    return false;
}

// The item handlers, the only ones made, take the release; the base has no items of its own to answer for.
bool CEventHandlerBase::ProcessButtonUp(int, int, int, MouseButton, bool*) {
    IControl* const control = m_viewer ? m_viewer->GetControl() : nullptr;
    if (control && control->GetCapture() == m_viewer) m_viewer->ReleaseMouse();
    m_downX = m_downY = -1;
    StopScrolling();
    return GetItemViewModel() != nullptr;
}

void CEventHandlerBase::ProcessScrolling(int index, int pos) {
    if (index != -1 && pos >= 0) {
        StopScrolling();
        return;
    }
    // The pointer may cross from one end of the view to the other without coming back over an item.
    m_scrollState = pos >= 0 ? 1 : 2;
    if (!IsRepeating()) StartRepeating();
}

void CEventHandlerBase::StopScrolling() {
    m_scrollState = 0;
    StopRepeating();
}

void CEventHandlerBase::ScrollStepTo(int target) {
    ISelectionModel* const sel = GetItemSelectionModel();
    if (target == -1 || !sel) return;
    int const old = sel->GetCurrent();
    SetCurrentItem(target);
    ProcessItemChange(old, target, mirel7::FlagShift, sel);
}

bool CEventHandlerBase::ProcessKeyDown(int flags, int key, bool*) {
    IBaseItemViewModel* const vm = GetItemViewModel();
    ISelectionModel* const sel = GetItemSelectionModel();
    if (key == 'A' && (flags & mirel7::FlagControl) && m_selectionType == SelectFree && vm && sel) {
        if (vm->GetCount() >= 1) {
            sel->ClearSelection();
            sel->SetSelectionRange(0, vm->GetCount() - 1);
        }
        return true;
    }
    m_keyboardChange = true;
    return false;
}

bool CEventHandlerBase::BeginKey(int flags, int key, bool* stop, int& current) {
    CEventHandlerBase::ProcessKeyDown(flags, key, stop);
    IBaseItemViewModel* const vm = GetItemViewModel();
    ISelectionModel* const sel = GetItemSelectionModel();
    // With no items there is nothing to move to, and the current item stays -1.
    if (!vm || !sel || vm->GetCount() < 1 || !IsDirectionKey(key)) return false;
    current = sel->GetCurrent();
    return true;
}

void CEventHandlerBase::EndKey(int old, int flags) {
    ISelectionModel* const sel = GetItemSelectionModel();
    if (sel->GetCurrent() != old) ProcessItemChange(old, sel->GetCurrent(), flags, sel);
}

void CEventHandlerBase::LinkViewModel(IBaseItemViewModel* vm, bool link) {
    if (link)
        vm->sigModelChanged.connect(this, &CEventHandlerBase::OnViewModelChange);
    else
        vm->sigModelChanged.disconnect(this, &CEventHandlerBase::OnViewModelChange);
}

void CEventHandlerBase::LinkSelectionModel(ISelectionModel* sel, bool link) {
    if (link) {
        sel->sigModelChanged.connect(this, &CEventHandlerBase::OnSelectionModelChange);
        sel->sigSelectionChanged.connect(this, &CEventHandlerBase::OnSelectionModelChange);
    } else {
        sel->sigModelChanged.disconnect(this, &CEventHandlerBase::OnSelectionModelChange);
        sel->sigSelectionChanged.disconnect(this, &CEventHandlerBase::OnSelectionModelChange);
    }
}

void CEventHandlerBase::DrawItems(IPainter* painter, rectangle<double> const& rect, int first, int hidden,
                                  bool withinView) {
    IBaseItemViewModel* const vm = GetItemViewModel();
    ISelectionModel* const sel = GetItemSelectionModel();
    if (!m_itemPainter || !vm || !sel) return;
    int const count = vm->GetCount();
    int const viewSize = vm->GetViewSize();
    bool const expanded = vm->IsLastItemExpanded();
    std::int64_t pos = AlongOf(int(rect.left), int(rect.top));
    std::int64_t const end = AlongOf(int(rect.right), int(rect.bottom));
    double const a0 = m_layout->GetAcross(rect.left, rect.top),
                 a1 = m_layout->GetAcross(rect.right, rect.bottom);
    std::int64_t painted = 0;
    for (int i = first; i >= 0 && pos <= end && i < count; ++i) {
        int const size = vm->GetItemSize(i);
        std::int64_t itemEnd = pos - 1 + size - hidden;
        if (expanded && i == count - 1) itemEnd = std::max<std::int64_t>(itemEnd, viewSize);
        int const state = (sel->IsItemSelected(i) ? IItemPainter::Selected : 0) |
                          (sel->GetCurrent() == i ? IItemPainter::Current : 0);
        IDirtyItemSet::DirtyType const dirty =
            GetCellUpdateType(painter, vm->GetItemType(i), sel->GetItemType(i));
        m_itemPainter->DrawItem(painter, i, hidden, state,
                                m_layout->MakeRect(double(pos), a0, double(itemEnd), a1), dirty);
        painted += size - hidden;
        hidden = 0;
        pos = itemEnd + 1;
        if (withinView && painted > viewSize) return;
    }
    if (!expanded && pos <= end)
        m_itemPainter->DrawEmptyArea(painter, m_layout->MakeRect(double(pos), a0, double(end), a1));
}

bool CEventHandlerBase::IsDirectionKey(int key) const {
    switch (key) {
    case mirel7::KeyLeft:
    case mirel7::KeyRight:
        return m_direction == Horizontal;
    case mirel7::KeyUp:
    case mirel7::KeyDown:
    case mirel7::KeyPageUp:
    case mirel7::KeyPageDown:
    case mirel7::KeyHome:
    case mirel7::KeyEnd:
        return m_direction == Vertical;
    default:
        return true;
    }
}

void CEventHandlerBase::RepaintSelected() {
    ISelectionModel* const sel = GetItemSelectionModel();
    if (!sel) return;
    if (sel->GetSelectedCount() > FocusRepaintLimit) {
        sel->AddDirtyItems(0, IDirtyItemSet::ToEnd);
        return;
    }
    for (int index = INT_MIN; sel->GetNextSelectedItem(index);)
        sel->AddDirtyItems(index, index);
}

bool CEventHandlerBase::ProcessGetFocus(bool*) {
    RepaintSelected();
    return false;
}

bool CEventHandlerBase::ProcessLostFocus(bool*) {
    RepaintSelected();
    return false;
}

void CEventHandlerBase::ProcessResize(rectangle<int> const&, rectangle<int> const& newRect, bool force) {
    IBaseItemViewModel* const vm = GetItemViewModel();
    if (!vm) return;
    vm->SetViewSize(SaturatingInt(m_layout->GetAlong(newRect.Width(), newRect.Height())), force);
    if (!force) UpdateLastItem();
}

bool CEventHandlerBase::ScrollItems(int position, int delta) {
    IControl* const control = m_viewer ? m_viewer->GetControl() : nullptr;
    if (delta == 0 || !control || !m_viewer->IsDisplayable() || !control->GetWindow()) return false;
    rectangle<int> const content = m_viewer->GetContentRect();
    int const len = AlongOf(content.Width(), content.Height());
    if (position < 0 || position >= len || len <= std::abs(delta)) return false;
    point<double> p1(content.left, content.top), p2(content.right, content.bottom);
    m_layout->IncAlong(&p1, position);
    if (delta >= 1) m_layout->IncAlong(&p2, -delta);
    if (delta < 0 && position == 0) m_layout->IncAlong(&p1, -delta);
    if (p1.x > p2.x || p1.y > p2.y) return true;
    rectangle<int> moved(int(p1.x), int(p1.y), int(p2.x), int(p2.y));
    m_viewer->ElementToControl(&moved);
    point<double> shift(0, 0);
    m_layout->IncAlong(&shift, delta);
    control->ScrollContent(int(shift.x), int(shift.y), screen_rectangle<int>(moved));
    m_viewer->Invalidate();
    return true;
}

} // namespace mirelfrw7
