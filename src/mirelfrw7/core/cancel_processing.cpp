#include <mirelfrw7/core/cancel_processing.h>

namespace mirelfrw7 {

char const* cancel_processing::what() const noexcept {
    return "mirelfrw7::cancel_processing";
}

} // namespace mirelfrw7
