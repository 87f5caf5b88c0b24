// Numbers that the platform formats.
#include <gtest/gtest.h>

#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {
namespace {

TEST(CommaSeam, TakesWhatTheLocaleGives) {
    lab::FakePlatform fake(door());
    Dest dest(64);
    EXPECT_STREQ(lib().Comma("1", dest), "1,234,567.00");
    fake.locale.formatted = std::string(63, '9');
    EXPECT_EQ(lib().strcomma("1", dest), 63u);
    fake.locale.works = false;
    EXPECT_EQ(lib().strcomma("1", dest), 0u);
    EXPECT_EQ(dest.text(), "");
}

}  // namespace
}  // namespace vx::test
