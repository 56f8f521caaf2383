#include <mirelfrw7/items/saturating_int.h>
#include <mirelfrw7/scroll/scroll_converter.h>
#include <mirelfrw7/scroll/scroll_model.h>

#include <algorithm>
#include <climits>
#include <cmath>

namespace mirelfrw7 {

namespace {

constexpr double ScrollBarLimit = 2147483647.0;

bool IsLinear(IScrollModel const& model) {
    return model.IsFixedStepSize() || model.IsInseparableStep();
}

} // namespace

std::pair<double, int> UsableMeasure(IScrollModel const& model) {
    std::pair<double, int> const measure = model.GetMeasure();
    if (measure.first == 0.0 || !std::isfinite(measure.first) || measure.second == 0) return {1.0, 1};
    return measure;
}

double CScrollConverter::L2P(double value) const {
    if (!m_model) return 0.0;
    auto const [first, second] = UsableMeasure(*m_model);
    if (IsLinear(*m_model)) {
        double const base = std::min(m_model->GetFrom(), m_model->GetTo());
        return second * (value - base) / first;
    }
    // Step sizes are summed from step 0, not from GetFrom.
    int const whole = SaturatingInt(value);
    double const sum = m_model->GetStepsSize(0, whole);
    int const current = whole > 0 ? whole : 0;
    return second * ((value - whole) * m_model->GetStepSize(current) + sum) / first;
}

double CScrollConverter::P2L(int pixel) const {
    if (!m_model) return 0.0;
    auto const [first, second] = UsableMeasure(*m_model);
    if (IsLinear(*m_model)) return pixel * first / second + std::min(m_model->GetFrom(), m_model->GetTo());
    double rest = pixel * first / second;
    // Past the end the answer is just above the range; step numbers are ints, which bounds the search too.
    double const last = std::max(m_model->GetFrom(), m_model->GetTo());
    int const end = last >= 1.0 ? int(std::min(last, double(INT_MAX) - 1.0)) + 1 : 1;
    // Runs of steps are passed whole while they fit, doubling after each that does and halving after each
    // that does not: a model that sums its steps from stored entries answers in about as many sums as the
    // position has bits, however many steps of size 0 it passes.
    int i = 0;
    for (int run = 1; i < end;) {
        run = std::min(run, end - i);
        double const size = m_model->GetStepsSize(i, i + run);
        if (size <= rest) {
            rest -= size;
            i += run;
            run = run > INT_MAX / 2 ? INT_MAX : 2 * run;
        } else if (run > 1) {
            run /= 2;
        } else {
            double const step = m_model->GetStepSize(double(i));
            return step == 0.0 ? double(i) : double(i) + rest / step;
        }
    }
    return double(i);
}

bool CScrollConverter::IsNormalScale() const {
    auto const [first, second] = UsableMeasure(*m_model);
    return std::abs(m_model->GetTo() - m_model->GetFrom()) * (second / first) < ScrollBarLimit;
}

bool CScrollConverter::NormalizeScale() {
    auto const [first, second] = UsableMeasure(*m_model);
    double const span = std::abs(m_model->GetTo() - m_model->GetFrom());
    if (ScrollBarLimit > second / first * span) return false;
    // One below the limit of the test, so that the rescaled range lands strictly inside 31 bits.
    m_model->SetMeasure({span * second / (ScrollBarLimit - 1.0), second});
    return true;
}

} // namespace mirelfrw7
