#include <mirelfrw7/core/label.h>
#include <mirelfrw7/header/delimiters.h>

namespace mirelfrw7 {

char const* GetDelimiters(bool html) {
    return html ? HTMLDelimiters : DefaultDelimiters;
}

} // namespace mirelfrw7
