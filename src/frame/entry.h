// How an exported entry point is declared and defined.
//
// Declarations are made from the export table (entries/<family>.h). A family's source includes them and defines plain
// functions:
//     char* VX_CALL vx_AllTrim(const char* text, char* dest) noexcept { ... }
// They take their linkage from the declaration; one that differs from the table is an overload that nobody declared,
// and does not compile.
#pragma once

#include <cstdint>

#if defined(_WIN32)
#define VX_CALL __stdcall
#define VX_EXPORT
#else
#define VX_CALL
#define VX_EXPORT __attribute__((visibility("default")))
#endif
