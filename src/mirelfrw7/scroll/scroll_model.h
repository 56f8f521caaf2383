#pragma once

#include <mirelfrw7/export.h>

#include <utility>

namespace mirelfrw7 {

// The position of anything that scrolls: a logical range from GetFrom to GetTo (backwards when GetTo is the
// smaller), the logical value at the view's start, and how logical units relate to pixels. The unit is the
// owner's: an item, a time stamp, a pixel. Scroll bars, painting elements and gestures all speak to the
// model and never to one another.
class MIRELFRW7_API IScrollModel {
public:
    virtual ~IScrollModel();

    virtual double GetFrom() const = 0;
    virtual double GetTo() const = 0;
    // The model may round or clamp.
    virtual void SetStart(double start) = 0;
    virtual double GetStart() const = 0;
    // Pixels of the smallest useful step: a scroll bar's line step.
    virtual int GetMinScrollDistance() const = 0;
    // All steps have one size.
    virtual bool IsFixedStepSize() const = 0;
    // The size of step number `step`, in logical units.
    virtual double GetStepSize(double step) const = 0;
    virtual void SetStepSize(double step, double size) const = 0;
    // The sizes of the whole steps from..to-1 summed; 0 when `to` is not above `from`. Walks by default; a
    // model that keeps its step sizes sparsely answers from its entries, so that a position far down a long
    // range costs no walk over every step.
    virtual double GetStepsSize(int from, int to) const;
    // Walks the steps from `from` towards `limit` while what is left of `*left` is at least 1, taking each
    // step's size off it (a step of size 0 is passed over and takes nothing), and answers where the walk
    // stopped. Steps of size 0 from the range's end on stop it, or it would never end. Walks by default; a
    // model that keeps its step sizes sparsely answers from its entries.
    virtual int PassSteps(int from, int limit, double* left) const;
    // The scale: `second` pixels stand for `first` logical units.
    virtual void SetMeasure(std::pair<double, int> measure) = 0;
    virtual std::pair<double, int> GetMeasure() const = 0;
    // The view stops only at step boundaries.
    virtual bool IsInseparableStep() const;
    // The owner's data changed: listeners refresh.
    virtual void Update();
};

// A uniform model without step sizes: every step is 1.
class MIRELFRW7_API ISimpleScrollModel : public IScrollModel {
public:
    bool IsFixedStepSize() const override;
    double GetStepSize(double step) const override;
    void SetStepSize(double step, double size) const override;
};

// A model in pixels: one logical unit is one pixel, every step is one, and the scale never changes.
class MIRELFRW7_API IPhysicalScrollModel : public ISimpleScrollModel {
public:
    void SetMeasure(std::pair<double, int> measure) override;
    std::pair<double, int> GetMeasure() const override;
};

} // namespace mirelfrw7
