#include <mirelfrw7/items/item_view_model.h>
#include <mirelfrw7/items/saturating_int.h>
#include <mirelfrw7/scroll/discrete_item_scroll_model.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace mirelfrw7 {

double CDiscreteItemScrollModel::GetFrom() const {
    return 0.0;
}

double CDiscreteItemScrollModel::GetTo() const {
    return m_viewModel ? m_viewModel->GetCount() : 0.0;
}

void CDiscreteItemScrollModel::SetStart(double start) {
    if (m_viewModel) m_viewModel->SetStartItem(SaturatingInt(start + 0.5));
}

double CDiscreteItemScrollModel::GetStart() const {
    return m_viewModel ? m_viewModel->GetStartItem() : 0.0;
}

int CDiscreteItemScrollModel::GetMinScrollDistance() const {
    return m_viewModel ? m_viewModel->GetDefaultItemSize() : 1;
}

bool CDiscreteItemScrollModel::IsFixedStepSize() const {
    return false;
}

double CDiscreteItemScrollModel::GetStepSize(double step) const {
    if (!m_viewModel) return 1.0;
    int const unit = m_viewModel->GetDefaultItemSize();
    if (unit == 0) return 1.0;
    return double(m_viewModel->GetItemSize(SaturatingInt(step))) / double(unit);
}

double CDiscreteItemScrollModel::GetStepsSize(int from, int to) const {
    if (to <= from) return 0.0;
    int const unit = m_viewModel ? m_viewModel->GetDefaultItemSize() : 0;
    if (unit == 0) return double(to) - from;
    return double(m_viewModel->GetItemsExtent(from, to)) / double(unit);
}

int CDiscreteItemScrollModel::PassSteps(int from, int limit, double* left) const {
    if (from >= limit || SaturatingInt(*left) < 1) return from;
    int const unit = m_viewModel ? m_viewModel->GetDefaultItemSize() : 0;
    if (unit < 0) return IScrollModel::PassSteps(from, limit, left);
    if (unit == 0) {
        // Every step is 1.
        int const steps = SaturatingInt(std::min(std::floor(*left), double(limit) - from));
        *left -= steps;
        return from + steps;
    }
    // A step is passed while a whole unit is left before it: the walk passes the first item that ends
    // beyond what is left less a unit, and every item before it, those of size 0 among them.
    double const beyond = std::min(std::floor(*left * unit) - unit, 9.0e18);
    std::int64_t itemStart = 0;
    int const item = m_viewModel->FindItemAt(from, limit, std::int64_t(beyond), &itemStart);
    int const stop = item < limit ? item + 1 : limit;
    *left -= double(m_viewModel->GetItemsExtent(from, stop)) / unit;
    return stop;
}

void CDiscreteItemScrollModel::SetStepSize(double step, double size) const {
    if (m_viewModel)
        m_viewModel->SetItemSize(SaturatingInt(step),
                                 SaturatingInt(m_viewModel->GetDefaultItemSize() * size));
}

void CDiscreteItemScrollModel::SetMeasure(std::pair<double, int>) {}

std::pair<double, int> CDiscreteItemScrollModel::GetMeasure() const {
    return {1.0, m_viewModel ? m_viewModel->GetDefaultItemSize() : 1};
}

bool CDiscreteItemScrollModel::IsInseparableStep() const {
    return true;
}

} // namespace mirelfrw7
