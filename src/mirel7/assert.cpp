#include <mirel7/assert.h>

#include <atomic>
#include <cstdio>

namespace QUILL_2_18::debug {
namespace {

void PrintAssertion(char const* condition, char const* source, int line, char const* function) {
    std::fprintf(stderr, "assertion failed: %s\n  at %s:%d in %s\n", condition ? condition : "?",
                 source ? source : "?", line, function ? function : "?");
}

// Worker threads may assert too, so the handler is read and swapped atomically.
std::atomic<AssertHandler> g_handler{&PrintAssertion};

} // namespace

AssertHandler SetAssertHandler(AssertHandler handler) {
    return g_handler.exchange(handler ? handler : &PrintAssertion);
}

namespace _private {
void ____________________ASSERT____________________(char const* condition, char const* source, int line,
                                                    char const* function) {
    g_handler.load()(condition, source, line, function);
}
} // namespace _private

} // namespace QUILL_2_18::debug
