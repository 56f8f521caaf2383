#include <mirelfrw7/layout/layout_base.h>

#include <algorithm>

namespace mirelfrw7 {

using mirel7::IPainter;
using mirel7::point;
using mirel7::rectangle;

void ChangeAlign(int flags, int* result, IPainter::AlignmentFlags from, IPainter::AlignmentFlags to) {
    if (flags & from) *result |= to;
}

point<double>* CVertLayout::IncAlong(point<double>* p, double d) const {
    p->y += d;
    return p;
}

point<double>* CVertLayout::IncAcross(point<double>* p, double d) const {
    p->x += d;
    return p;
}

rectangle<int>* CVertLayout::CutRect(rectangle<int>* r, rectangle<int> const& limit) const {
    r->top = std::max(r->top, limit.top);
    r->bottom = std::min(r->bottom, limit.bottom);
    return r;
}

void CVertLayout::ConvFontInt(mirel7::font* f) const {
    if (f->extra == 0)
        f->extra = 2700;
    else if (f->extra == 2700)
        f->extra = 0;
}

int CVertLayout::ConvTextAlignInt(int flags) const {
    int result = 0;
    ChangeAlign(flags, &result, IPainter::AlignHCenter, IPainter::AlignVCenter);
    ChangeAlign(flags, &result, IPainter::AlignVCenter, IPainter::AlignHCenter);
    return result;
}

int CLeftLayout::ConvTextAlignInt(int flags) const {
    int result = CVertLayout::ConvTextAlignInt(flags);
    ChangeAlign(flags, &result, IPainter::AlignTop, IPainter::AlignRight);
    ChangeAlign(flags, &result, IPainter::AlignBottom, IPainter::AlignLeft);
    ChangeAlign(flags, &result, IPainter::AlignRight, IPainter::AlignBottom);
    ChangeAlign(flags, &result, IPainter::AlignLeft, IPainter::AlignTop);
    return result;
}

// Left and right go where they go on the left edge; only top and bottom differ.
int CRightLayout::ConvTextAlignInt(int flags) const {
    int result = CVertLayout::ConvTextAlignInt(flags);
    ChangeAlign(flags, &result, IPainter::AlignTop, IPainter::AlignLeft);
    ChangeAlign(flags, &result, IPainter::AlignBottom, IPainter::AlignRight);
    ChangeAlign(flags, &result, IPainter::AlignRight, IPainter::AlignBottom);
    ChangeAlign(flags, &result, IPainter::AlignLeft, IPainter::AlignTop);
    return result;
}

point<double>* CHorzLayout::IncAlong(point<double>* p, double d) const {
    p->x += d;
    return p;
}

point<double>* CHorzLayout::IncAcross(point<double>* p, double d) const {
    p->y += d;
    return p;
}

rectangle<int>* CHorzLayout::CutRect(rectangle<int>* r, rectangle<int> const& limit) const {
    r->left = std::max(r->left, limit.left);
    r->right = std::min(r->right, limit.right);
    return r;
}

int CTopLayout::ConvTextAlignInt(int flags) const {
    int result = flags;
    ChangeAlign(flags, &result, IPainter::AlignTop, IPainter::AlignBottom);
    ChangeAlign(flags, &result, IPainter::AlignBottom, IPainter::AlignTop);
    return result;
}

} // namespace mirelfrw7
