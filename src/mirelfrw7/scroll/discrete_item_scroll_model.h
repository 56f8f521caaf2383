#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/scroll/scroll_model.h>

namespace mirelfrw7 {

class IDiscreteItemViewModel;

// A discrete view model as a scroll model: one logical unit is one item, and the scale is one default item
// size per item, so the scroll bar of a list with rows of mixed height is proportional to the rows. Without
// a view model every operation answers neutrally.
class MIRELFRW7_API CDiscreteItemScrollModel : public IScrollModel {
public:
    explicit CDiscreteItemScrollModel(IDiscreteItemViewModel* viewModel = nullptr) : m_viewModel(viewModel) {}

    // Not owned.
    void SetViewModel(IDiscreteItemViewModel* viewModel) { m_viewModel = viewModel; }
    IDiscreteItemViewModel* GetViewModel() const { return m_viewModel; }

    double GetFrom() const override;
    double GetTo() const override;
    // Rounds to the nearest item.
    void SetStart(double start) override;
    double GetStart() const override;
    int GetMinScrollDistance() const override;
    bool IsFixedStepSize() const override;
    // An item's size in default item sizes; 1 while the default size is 0.
    double GetStepSize(double step) const override;
    void SetStepSize(double step, double size) const override;
    // From the view model's extent, which a sparse model answers from its entries.
    double GetStepsSize(int from, int to) const override;
    int PassSteps(int from, int limit, double* left) const override;
    void SetMeasure(std::pair<double, int> measure) override;
    std::pair<double, int> GetMeasure() const override;
    bool IsInseparableStep() const override;

private:
    IDiscreteItemViewModel* m_viewModel;
};

} // namespace mirelfrw7
