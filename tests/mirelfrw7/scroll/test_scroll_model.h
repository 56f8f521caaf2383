#pragma once

#include <mirelfrw7/scroll/scroll_model.h>

#include <functional>
#include <utility>

namespace mirel_test {

// A scroll model whose every answer the test sets: a range, a start stored as given, a measure, and steps
// given by a function (fixed or inseparable on request).
struct CTestScrollModel : mirelfrw7::IScrollModel {
    CTestScrollModel(double from, double to, double start = 0.0) : from(from), to(to), start(start) {}

    double GetFrom() const override { return from; }
    double GetTo() const override { return to; }
    void SetStart(double value) override { start = value; }
    double GetStart() const override { return start; }
    int GetMinScrollDistance() const override { return 1; }
    bool IsFixedStepSize() const override { return fixed; }
    double GetStepSize(double step) const override { return stepSize(step); }
    void SetStepSize(double, double) const override {}
    void SetMeasure(std::pair<double, int> value) override {
        if (acceptsMeasure) measure = value;
    }
    std::pair<double, int> GetMeasure() const override { return measure; }
    bool IsInseparableStep() const override { return inseparable; }

    double from, to, start;
    std::pair<double, int> measure{1.0, 1};
    bool fixed = true;
    bool inseparable = false;
    bool acceptsMeasure = true;
    std::function<double(double)> stepSize = [](double) { return 1.0; };
};

} // namespace mirel_test
