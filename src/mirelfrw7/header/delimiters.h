#pragma once

#include <mirelfrw7/export.h>

namespace mirelfrw7 {

// The label word breaks for plain (false) or HTML-like (true) text; section captions take the plain set.
MIRELFRW7_API char const* GetDelimiters(bool html);

} // namespace mirelfrw7
