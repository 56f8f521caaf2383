#include <mirelfrw7/layout/layout_manager.h>

#include <mirelfrw7/layout/layout_base.h>

namespace mirelfrw7 {

ILayout* CLayoutManager::GetLayout(Alignment alignment) {
    // Function-local statics: the first call on any thread builds them once, all four in this order.
    static CLeftLayout left;
    static CTopLayout top;
    static CRightLayout right;
    static CBottomLayout bottom;
    switch (alignment) {
    case AlignLeft:
        return &left;
    case AlignTop:
        return &top;
    case AlignRight:
        return &right;
    default:
        return &bottom;
    }
}

} // namespace mirelfrw7
