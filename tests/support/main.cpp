#include <gtest/gtest.h>

#include "tests/support/library.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    vx::test::loadLibrary(argv[0], VEXLOR_LIBRARY_FILE);
    return RUN_ALL_TESTS();
}
