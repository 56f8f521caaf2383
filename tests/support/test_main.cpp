#include "support/assert_capture.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    mirel_test::InstallAssertHandler();
    return RUN_ALL_TESTS();
}
