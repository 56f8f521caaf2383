#include <mirel7/cancel_processing.h>

namespace mirel7 {

char const* cancel_processing::what() const noexcept {
    return "mirel7::cancel_processing";
}

} // namespace mirel7
