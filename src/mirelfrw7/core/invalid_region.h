#pragma once

#include <mirelfrw7/export.h>

#include <mirel7/types.h>

namespace mirelfrw7 {

// What of a rectangle still needs drawing when a part of it is known to be valid: up to four rectangles
// that together cover `whole` outside `valid`, in the order left, right, top, bottom. The sides run across
// the whole height; top and bottom fill in between them.
//
// A mapped coordinate system may run backwards: when both rectangles are reversed on an axis (left above
// right, or top above bottom), "left of" means the greater value on it.
class MIRELFRW7_API CInvalidRegion {
public:
    CInvalidRegion() = default;
    CInvalidRegion(mirel7::rectangle<double> const& whole, mirel7::rectangle<double> const& valid);

    // Replaces the rectangles by the split of `whole` around `valid`. An empty `valid` leaves `whole` alone.
    void FillRects(mirel7::rectangle<double> const& whole, mirel7::rectangle<double> const& valid);
    int GetCount() const { return m_count; }
    // Rectangle `index`, all zero outside 0 .. GetCount() - 1.
    mirel7::rectangle<double> operator[](int index) const;

    static bool LeftIsInvalid(mirel7::rectangle<double> const& cur, mirel7::rectangle<double> const& valid);
    static bool RightIsInvalid(mirel7::rectangle<double> const& cur, mirel7::rectangle<double> const& valid);
    static bool TopIsInvalid(mirel7::rectangle<double> const& cur, mirel7::rectangle<double> const& valid);
    static bool BottomIsInvalid(mirel7::rectangle<double> const& cur, mirel7::rectangle<double> const& valid);

private:
    void Add(mirel7::rectangle<double> const& r) { m_rects[m_count++] = r; }

    int m_count = 0;
    mirel7::rectangle<double> m_rects[4];
};

} // namespace mirelfrw7
