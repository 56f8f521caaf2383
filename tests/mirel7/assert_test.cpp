#include <mirel7/assert.h>

#include "support/assert_capture.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string g_seen;
void Remember(char const* condition, char const* source, int line, char const* function) {
    g_seen = std::string(condition) + "|" + source + "|" + std::to_string(line) + "|" + function;
}

TEST(Assert, HandlerIsReplaceableAndTheDefaultPrintsAndReturns) {
    auto const previous = QUILL_2_18::debug::SetAssertHandler(&Remember);
    QUILL_2_18::debug::_private::____________________ASSERT____________________("x > 0", "file.cpp", 12,
                                                                                "f()");
    EXPECT_EQ(g_seen, "x > 0|file.cpp|12|f()");

    EXPECT_EQ(QUILL_2_18::debug::SetAssertHandler(nullptr), &Remember);
    testing::internal::CaptureStderr();
    QUILL_2_18::debug::_private::____________________ASSERT____________________("y < 1", "src.cpp", 7, "g()");
    std::string const printed = testing::internal::GetCapturedStderr();
    for (char const* part : {"y < 1", "src.cpp", "7", "g()"})
        EXPECT_NE(printed.find(part), std::string::npos) << part << " missing in: " << printed;

    QUILL_2_18::debug::SetAssertHandler(previous);
}

TEST(Assert, MacroReportsOnlyFalseConditionsAndGoesOn) {
    mirel_test::CExpectAssertions expected;
    int reached = 0;
    MIREL_ASSERT(1 + 1 == 2);
    MIREL_ASSERT(reached == 1);
    ++reached;
    ASSERT_EQ(expected.Count(), 1u);
    EXPECT_EQ(expected.Taken()[0].condition, "reached == 1");
    EXPECT_EQ(reached, 1);
}

} // namespace
