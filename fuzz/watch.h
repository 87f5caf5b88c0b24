// Tells which call was running when the program crashes or hangs.
#pragma once

#include "fuzz/call.h"

namespace vx::fuzz {

// Once, before the first call. From then on a crash, a sanitizer's complaint, or a call of more than ten seconds ends
// the program with exit code 1, after telling how to make the call again.
void watch();

// Between these two a call is under way. `purpose` says what it is made for; it must outlive the call.
void beginCall(const Call& call, const char* purpose);
void endCall();

}  // namespace vx::fuzz
