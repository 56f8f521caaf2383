#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/scroll/scroll_model.h>

namespace mirelfrw7 {

class IContinuousItemViewModel;

// A continuous view model as a scroll model: one logical unit is one pixel. Without a view model every
// operation answers neutrally.
class MIRELFRW7_API CContinuousItemScrollModel : public IPhysicalScrollModel {
public:
    explicit CContinuousItemScrollModel(IContinuousItemViewModel* viewModel = nullptr)
        : m_viewModel(viewModel) {}

    // Not owned.
    void SetViewModel(IContinuousItemViewModel* viewModel) { m_viewModel = viewModel; }
    IContinuousItemViewModel* GetViewModel() const { return m_viewModel; }

    double GetFrom() const override;
    double GetTo() const override;
    // Truncates to a pixel.
    void SetStart(double start) override;
    double GetStart() const override;
    int GetMinScrollDistance() const override;

private:
    IContinuousItemViewModel* m_viewModel;
};

} // namespace mirelfrw7
