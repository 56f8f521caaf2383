#pragma once

#include <mirelfrw7/export.h>

#include <utility>

namespace mirelfrw7 {

class IScrollModel;

// The model's measure, or (1.0, 1) where it has a zero or infinite part that a conversion would divide by.
MIRELFRW7_API std::pair<double, int> UsableMeasure(IScrollModel const& model);

// The one place where the logical values of a scroll model become pixels and back. Pixels count from the
// lower end of the range; callers subtract as they need.
//
// A model that is linear (fixed or inseparable steps, the two item models among them) converts in constant
// time; any other is asked for the sums of runs of its steps (GetStepsSize), so that one that answers them
// from stored entries converts without a walk over every step. A measure with a zero part converts one
// logical unit to one pixel rather than divide by zero.
class MIRELFRW7_API CScrollConverter {
public:
    // Not owned; a converter without a model answers 0.
    explicit CScrollConverter(IScrollModel* model = nullptr) : m_model(model) {}

    double L2P(double value) const;
    double P2L(int pixel) const;
    // Whether the whole range fits into the 31 bits of a scroll bar. Needs a model.
    bool IsNormalScale() const;
    // Rescales a model whose range would not fit, so that it lands just inside; false when it fit already.
    // A model that ignores SetMeasure stays as it was. Needs a model.
    bool NormalizeScale();

    IScrollModel* GetModel() const { return m_model; }

private:
    IScrollModel* m_model;
};

} // namespace mirelfrw7
