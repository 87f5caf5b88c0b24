// The library under test, loaded by name as any program would: every call of every test goes through an export.
#pragma once

#include "calls.h"

namespace vx::test {

// Every entry under its main name: lib().AllTrim(text, dest).
const Calls& lib();

// The address of an exported name in the loaded library; null if there is none.
void* address(const char* name);

// Loads the library that lies beside this program, under `file`; ends the program with a message if it can't.
void loadLibrary(const char* program, const char* file);

}  // namespace vx::test
