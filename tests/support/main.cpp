#include <gtest/gtest.h>

#include "tests/support/child.h"
#include "tests/support/library.h"

int main(int argc, char** argv) {
    vx::test::loadLibrary(argv[0], VEXLOR_LIBRARY_FILE);
    if (auto code = vx::test::playRole(argc, argv)) return *code;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
