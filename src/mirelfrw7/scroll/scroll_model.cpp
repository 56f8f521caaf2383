#include <mirelfrw7/items/saturating_int.h>
#include <mirelfrw7/scroll/scroll_model.h>

#include <algorithm>

namespace mirelfrw7 {

IScrollModel::~IScrollModel() = default;

bool IScrollModel::IsInseparableStep() const {
    return false;
}

void IScrollModel::Update() {}

double IScrollModel::GetStepsSize(int from, int to) const {
    double sum = 0.0;
    for (int i = from; i < to; ++i)
        sum += GetStepSize(i);
    return sum;
}

int IScrollModel::PassSteps(int from, int limit, double* left) const {
    double const end = std::max(GetFrom(), GetTo());
    int i = from;
    for (; i < limit && SaturatingInt(*left) > 0; ++i) {
        double const size = GetStepSize(i);
        if (!(size > 0.0) && i >= end) break;
        *left -= size;
    }
    return i;
}

bool ISimpleScrollModel::IsFixedStepSize() const {
    return true;
}

double ISimpleScrollModel::GetStepSize(double) const {
    return 1.0;
}

void ISimpleScrollModel::SetStepSize(double, double) const {}

void IPhysicalScrollModel::SetMeasure(std::pair<double, int>) {}

std::pair<double, int> IPhysicalScrollModel::GetMeasure() const {
    return {1.0, 1};
}

} // namespace mirelfrw7
