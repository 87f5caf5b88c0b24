// How an exported entry point is declared and defined.
//
// Declarations are made from the export table (entries/<family>.h); a family's source includes them and defines
//     ENTRY(char*, AllTrim)(const char* text, char* dest) noexcept { ... }
// which does not compile when it differs from the table.
#pragma once

#include <cstdint>

#if defined(_WIN32)
#define VX_CALL __stdcall
#define DECLARE_ENTRY(type, symbol) extern "C" type VX_CALL vx_##symbol
#else
#define VX_CALL
#define DECLARE_ENTRY(type, symbol) extern "C" __attribute__((visibility("default"))) type vx_##symbol
#endif

#define ENTRY(type, symbol) extern "C" type VX_CALL vx_##symbol
