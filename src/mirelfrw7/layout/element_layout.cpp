#include <mirelfrw7/layout/element_layout.h>

namespace mirelfrw7 {

IElementLayout::~IElementLayout() = default;

} // namespace mirelfrw7
