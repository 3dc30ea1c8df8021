// The test program. It runs the tests, or plays a part that a test has started.
#include <gtest/gtest.h>

#include "support/child.h"

int main(int argc, char** argv) {
    int status = 0;
    if (quorkit::test::playPart(argc, argv, status)) return status;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
