#pragma once

#include <mirel7/export.h>

namespace QUILL_2_18::debug {

// Receives a failed condition: its text, the source name, the line and the function's text.
using AssertHandler = void (*)(char const* condition, char const* source, int line, char const* function);

// Installs `handler` for every later assertion and answers the one it replaces. A null handler
// brings back the default, which prints the four values to stderr and returns.
MIREL7_API AssertHandler SetAssertHandler(AssertHandler handler);

namespace _private {
// The assertion routine. Callers go on after it returns: a failed condition is reported, never fatal.
MIREL7_API void ____________________ASSERT____________________(char const* condition, char const* source,
                                                               int line, char const* function);
} // namespace _private

} // namespace QUILL_2_18::debug

// Reports `cond` when it is false, and evaluates to nothing else: the caller goes on either way.
#define MIREL_ASSERT(cond)                                                                                   \
    do {                                                                                                     \
        if (!(cond))                                                                                         \
            ::QUILL_2_18::debug::_private::____________________ASSERT____________________(                   \
                #cond, __FILE__, __LINE__, __PRETTY_FUNCTION__);                                             \
    } while (false)
