#include "support/assert_capture.h"

#include <mirel7/assert.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <mutex>

namespace mirel_test {

void RecordAssertion(SAssertion a);

namespace {
// Assertions may come from worker threads.
std::mutex g_mutex;
CExpectAssertions* g_innermost = nullptr;

void Handler(char const* condition, char const* source, int line, char const* function) {
    RecordAssertion({condition ? condition : "", source ? source : "", line, function ? function : ""});
}
} // namespace

void RecordAssertion(SAssertion a) {
    std::lock_guard lock(g_mutex);
    if (g_innermost) {
        g_innermost->m_taken.push_back(std::move(a));
        return;
    }
    ADD_FAILURE() << "unexpected assertion: " << a.condition << "\n  at " << a.source << ":" << a.line
                  << " in " << a.function;
}

CExpectAssertions::CExpectAssertions() {
    std::lock_guard lock(g_mutex);
    m_outer = g_innermost;
    g_innermost = this;
}

CExpectAssertions::~CExpectAssertions() {
    std::lock_guard lock(g_mutex);
    g_innermost = m_outer;
}

std::vector<SAssertion> CExpectAssertions::Taken() const {
    std::lock_guard lock(g_mutex);
    return m_taken;
}

std::size_t CExpectAssertions::Count() const {
    return Taken().size();
}

std::size_t CExpectAssertions::CountContaining(std::string_view text) const {
    auto const taken = Taken();
    return static_cast<std::size_t>(std::count_if(taken.begin(), taken.end(), [text](SAssertion const& a) {
        return a.condition.find(text) != std::string::npos;
    }));
}

void InstallAssertHandler() {
    QUILL_2_18::debug::SetAssertHandler(&Handler);
}

} // namespace mirel_test
