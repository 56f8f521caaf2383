#pragma once

#include <mirelfrw7/export.h>

#include <mirel7/types.h>

namespace mirelfrw7 {

// Turns the along/across coordinates of a strip into x/y, so that one drawing routine serves a strip on any
// of the four edges. Along is the direction in which the strip runs, across its thickness.
//
// Points and sizes go in as (x, y) or (width, height) and the layout picks one; only MakePoint and MakeRect
// take along first. Implementations are stateless and shared: see CLayoutManager.
class MIRELFRW7_API ILayout {
public:
    virtual ~ILayout();

    // Both add `d` to one coordinate of `*p` in place and answer `p`.
    virtual mirel7::point<double>* IncAlong(mirel7::point<double>* p, double d) const = 0;
    virtual mirel7::point<double>* IncAcross(mirel7::point<double>* p, double d) const = 0;

    virtual double GetAlong(double x, double y) const = 0;
    virtual double& GetAlongRef(double& x, double& y) const = 0;
    virtual int& GetAlongRef(int& x, int& y) const = 0;
    virtual double GetAcross(double x, double y) const = 0;
    virtual double& GetAcrossRef(double& x, double& y) const = 0;
    virtual int& GetAcrossRef(int& x, int& y) const = 0;

    // Clips the along extent of `*r` to that of `limit`, keeps its across extent, and answers `r`.
    virtual mirel7::rectangle<int>* CutRect(mirel7::rectangle<int>* r,
                                            mirel7::rectangle<int> const& limit) const = 0;

    virtual mirel7::point<double> MakePoint(double along, double across) const = 0;
    virtual mirel7::rectangle<double> MakeRect(double along0, double across0, double along1,
                                               double across1) const = 0;

    // Turns a font so that its text reads along the strip.
    virtual void ConvFont(mirel7::font* f) const = 0;
    // Maps IPainter::AlignmentFlags to the strip's orientation. Bits other than the six alignment bits may
    // be lost: callers or their drawing bits in afterwards.
    virtual int ConvTextAlign(int flags) const = 0;
};

} // namespace mirelfrw7
