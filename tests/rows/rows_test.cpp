// All rows that need no made-up machine.
#include "tests/support/rows.h"

namespace {
const bool registered = vx::test::registerRows(nullptr);
}
