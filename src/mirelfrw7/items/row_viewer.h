#pragma once

#include <mirelfrw7/items/row_viewer_base.h>

namespace mirelfrw7 {

// The class to derive from for a plain list: DrawRow is the application's.
template <class M>
class CRowViewer : public CRowViewerBase<M> {
public:
    using CRowViewerBase<M>::CRowViewerBase;
};

} // namespace mirelfrw7
