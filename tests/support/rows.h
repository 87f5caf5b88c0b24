// The rows of all families as tests: one test a family, in a program with or without a made-up machine.
#pragma once

namespace vx::rows {
class Machine;
}

namespace vx::test {

// To be called before the tests run. Without a machine, blocks that ask for one are left to the other program.
bool registerRows(rows::Machine* machine);

}  // namespace vx::test
