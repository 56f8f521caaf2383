#include <mirelfrw7/layout/layout.h>

namespace mirelfrw7 {

ILayout::~ILayout() = default;

} // namespace mirelfrw7
