#pragma once

#include <mirelfrw7/layout/layout.h>

#include <mirel7/painter.h>

namespace mirelfrw7 {

// The orientation classes. A vertical layout serves the left and right edges (along is y), a horizontal one
// the top and bottom edges (along is x); the four leaves differ only in where text alignment goes. None holds
// any state, so the shared instances of CLayoutManager serve every element and thread.
class MIRELFRW7_API CLayoutBase : public ILayout {
public:
    void ConvFont(mirel7::font* f) const final { ConvFontInt(f); }
    int ConvTextAlign(int flags) const final { return ConvTextAlignInt(flags); }

protected:
    virtual void ConvFontInt(mirel7::font* f) const = 0;
    virtual int ConvTextAlignInt(int flags) const = 0;
};

class MIRELFRW7_API CVertLayout : public CLayoutBase {
public:
    mirel7::point<double>* IncAlong(mirel7::point<double>* p, double d) const override;
    mirel7::point<double>* IncAcross(mirel7::point<double>* p, double d) const override;
    double GetAlong(double, double y) const override { return y; }
    double& GetAlongRef(double&, double& y) const override { return y; }
    int& GetAlongRef(int&, int& y) const override { return y; }
    double GetAcross(double x, double) const override { return x; }
    double& GetAcrossRef(double& x, double&) const override { return x; }
    int& GetAcrossRef(int& x, int&) const override { return x; }
    mirel7::rectangle<int>* CutRect(mirel7::rectangle<int>* r,
                                    mirel7::rectangle<int> const& limit) const override;
    mirel7::point<double> MakePoint(double along, double across) const override { return {across, along}; }
    mirel7::rectangle<double> MakeRect(double along0, double across0, double along1,
                                       double across1) const override {
        return {across0, along0, across1, along1};
    }

protected:
    // A quarter turn and back: a font turned by 2700 tenths of a degree reads down the strip.
    void ConvFontInt(mirel7::font* f) const override;
    // Only the centres survive, swapped; the edge bits are each leaf's own.
    int ConvTextAlignInt(int flags) const override;
};

class MIRELFRW7_API CHorzLayout : public CLayoutBase {
public:
    mirel7::point<double>* IncAlong(mirel7::point<double>* p, double d) const override;
    mirel7::point<double>* IncAcross(mirel7::point<double>* p, double d) const override;
    double GetAlong(double x, double) const override { return x; }
    double& GetAlongRef(double& x, double&) const override { return x; }
    int& GetAlongRef(int& x, int&) const override { return x; }
    double GetAcross(double, double y) const override { return y; }
    double& GetAcrossRef(double&, double& y) const override { return y; }
    int& GetAcrossRef(int&, int& y) const override { return y; }
    mirel7::rectangle<int>* CutRect(mirel7::rectangle<int>* r,
                                    mirel7::rectangle<int> const& limit) const override;
    mirel7::point<double> MakePoint(double along, double across) const override { return {along, across}; }
    mirel7::rectangle<double> MakeRect(double along0, double across0, double along1,
                                       double across1) const override {
        return {along0, across0, along1, across1};
    }

protected:
    void ConvFontInt(mirel7::font*) const override {}
    int ConvTextAlignInt(int flags) const override { return flags; }
};

// Text that asks for the top of the strip goes to the right, text that asks for the left to the top.
class MIRELFRW7_API CLeftLayout final : public CVertLayout {
protected:
    int ConvTextAlignInt(int flags) const override;
};

class MIRELFRW7_API CRightLayout final : public CVertLayout {
protected:
    int ConvTextAlignInt(int flags) const override;
};

// Top and bottom are only added, never swapped: text flagged either way ends up with both bits.
class MIRELFRW7_API CTopLayout final : public CHorzLayout {
protected:
    int ConvTextAlignInt(int flags) const override;
};

// The horizontal map as it is: text on the bottom edge reads as anywhere else.
class MIRELFRW7_API CBottomLayout final : public CHorzLayout {};

// Ors `to` into `*result` when `flags` has any bit of `from`; never clears a bit. The text-alignment maps of
// the orientation classes are sequences of these.
MIRELFRW7_API void ChangeAlign(int flags, int* result, mirel7::IPainter::AlignmentFlags from,
                               mirel7::IPainter::AlignmentFlags to);

} // namespace mirelfrw7
