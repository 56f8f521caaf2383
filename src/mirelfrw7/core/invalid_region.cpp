#include <mirelfrw7/core/invalid_region.h>

namespace mirelfrw7 {

using mirel7::rectangle;

namespace {

// Whether `a` comes before `b` on an axis that may run backwards.
bool Before(double a, double b, bool reversed) {
    return reversed ? b < a : a < b;
}

// An axis counts as reversed only when both rectangles run backwards on it.

bool ReversedX(rectangle<double> const& a, rectangle<double> const& b) {
    return a.left > a.right && b.left > b.right;
}

bool ReversedY(rectangle<double> const& a, rectangle<double> const& b) {
    return a.top > a.bottom && b.top > b.bottom;
}

} // namespace

CInvalidRegion::CInvalidRegion(rectangle<double> const& whole, rectangle<double> const& valid) {
    FillRects(whole, valid);
}

bool CInvalidRegion::LeftIsInvalid(rectangle<double> const& cur, rectangle<double> const& valid) {
    return Before(cur.left, valid.left, ReversedX(cur, valid));
}

bool CInvalidRegion::RightIsInvalid(rectangle<double> const& cur, rectangle<double> const& valid) {
    return Before(valid.right, cur.right, ReversedX(cur, valid));
}

bool CInvalidRegion::TopIsInvalid(rectangle<double> const& cur, rectangle<double> const& valid) {
    return Before(cur.top, valid.top, ReversedY(cur, valid));
}

bool CInvalidRegion::BottomIsInvalid(rectangle<double> const& cur, rectangle<double> const& valid) {
    return Before(valid.bottom, cur.bottom, ReversedY(cur, valid));
}

void CInvalidRegion::FillRects(rectangle<double> const& whole, rectangle<double> const& valid) {
    m_count = 0;
    if (valid.left == valid.right || valid.top == valid.bottom) {
        Add(whole);
        return;
    }
    rectangle<double> cur = whole;
    if (LeftIsInvalid(cur, valid)) {
        Add({cur.left, cur.top, valid.left, cur.bottom});
        cur.left = valid.left;
    }
    if (RightIsInvalid(cur, valid)) {
        Add({valid.right, cur.top, cur.right, cur.bottom});
        cur.right = valid.right;
    }
    if (TopIsInvalid(cur, valid)) {
        Add({cur.left, cur.top, cur.right, valid.top});
        cur.top = valid.top;
    }
    if (BottomIsInvalid(cur, valid)) Add({cur.left, valid.bottom, cur.right, cur.bottom});
}

rectangle<double> CInvalidRegion::operator[](int index) const {
    return index >= 0 && index < m_count ? m_rects[index] : rectangle<double>{};
}

} // namespace mirelfrw7
