// Rows whose set-up is wrong: said as their failure, not by the end of the program.
#include "rows/setup.h"

#include <gtest/gtest.h>

#include "tests/support/library.h"

namespace vx::rows {
namespace {

std::vector<std::string> failuresOf(const std::string& setup) {
    Host host{[](const char* name) { return reinterpret_cast<catalog::Function>(test::address(name)); }, nullptr};
    return run(parse("made.rows", setup + "\nTrim \"a\" \"b\" 0 -> \"a\"\n"), host).failures;
}

TEST(RowsSetup, WhatCannotBeTakenBackIsSaidBeforeItIsDone) {
    const std::pair<const char*, const char*> rows[] = {
        {"with SetFillChar \"*\" until NoSuchName", "there is no function NoSuchName"},
        {"with SetFillChar \"*\" until SetFillChar", "takes more arguments"},
        {"with SetFillChar \"*\" until SetFillChar 32 1", "takes fewer arguments"},
        {"with SetFillChar \"*\" until SetFillChar \"text\"", "takes a number"},
    };
    for (const auto& [setup, complaint] : rows) {
        SCOPED_TRACE(setup);
        std::int32_t before = test::lib().SetFillChar(0);
        auto failures = failuresOf(setup);
        ASSERT_EQ(failures.size(), 1U);
        EXPECT_NE(failures[0].find(complaint), std::string::npos) << failures[0];
        EXPECT_EQ(test::lib().SetFillChar(0), before);
    }
}

}  // namespace
}  // namespace vx::rows
