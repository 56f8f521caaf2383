#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/scroll/scroll_model.h>

namespace mirelfrw7 {

// Lets one class be a horizontal and a vertical pixel model at once: each adapter turns the range and
// position of IScrollModel into operations named after its axis.
class MIRELFRW7_API IHorzPhysicalScrollModel : public IPhysicalScrollModel {
public:
    double GetFrom() const override { return GetHorzFrom(); }
    double GetTo() const override { return GetHorzTo(); }
    void SetStart(double start) override { SetHorzStart(start); }
    double GetStart() const override { return GetHorzStart(); }
    int GetMinScrollDistance() const override { return GetHorzStepInPixels(); }

    virtual double GetHorzFrom() const = 0;
    virtual double GetHorzTo() const = 0;
    virtual void SetHorzStart(double start) = 0;
    virtual double GetHorzStart() const = 0;
    virtual int GetHorzStepInPixels() const = 0;
};

class MIRELFRW7_API IVertPhysicalScrollModel : public IPhysicalScrollModel {
public:
    double GetFrom() const override { return GetVertFrom(); }
    double GetTo() const override { return GetVertTo(); }
    void SetStart(double start) override { SetVertStart(start); }
    double GetStart() const override { return GetVertStart(); }
    int GetMinScrollDistance() const override { return GetVertStepInPixels(); }

    virtual double GetVertFrom() const = 0;
    virtual double GetVertTo() const = 0;
    virtual void SetVertStart(double start) = 0;
    virtual double GetVertStart() const = 0;
    virtual int GetVertStepInPixels() const = 0;
};

} // namespace mirelfrw7
