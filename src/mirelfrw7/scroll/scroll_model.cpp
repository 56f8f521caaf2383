#include <mirelfrw7/scroll/scroll_model.h>

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
