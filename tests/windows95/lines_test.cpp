// Lines of files where the system reads nowhere but at a handle's position, as Windows 95 does.
#include "tests/files/line_walk.h"
#include "tests/support/workplace.h"

namespace vx::test {
namespace {

TEST(Windows95, GoesOverLines) {
    Workplace place;
    for (unsigned seed = 201; seed <= 204; ++seed) {
        RandomTexts random(seed);
        const std::string data = randomLines(random, random.number(0, 40));
        const std::int32_t handle = lib().FOpen(place.put("f", data).c_str(), 2);
        walkLines(handle, data, seed, 120);
        EXPECT_EQ(lib().FClose(handle), 1);
    }
}

}  // namespace
}  // namespace vx::test
