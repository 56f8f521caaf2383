#pragma once

#include <mirelfrw7/export.h>

namespace mirelfrw7 {

// How a logical value of a scroll model reads on a ruler: a time stamp as seconds, a sample index as hertz.
// Not owned by the ruler, so deleting through it is not offered.
class MIRELFRW7_API IUnitConverter {
public:
    virtual double Convert(double logical) = 0;
    virtual double ConvertBack(double shown) = 0;

protected:
    ~IUnitConverter() = default;
};

// Shows the logical value itself.
class MIRELFRW7_API CDefUnitConverter : public IUnitConverter {
public:
    double Convert(double logical) override { return logical; }
    double ConvertBack(double shown) override { return shown; }
};

} // namespace mirelfrw7
