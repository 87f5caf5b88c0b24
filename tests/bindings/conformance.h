// Runs the rows of the tests, or the examples of the table, through the declarations for another language: a program in
// that language loads this library and hands over a function that makes one call after the other.
#pragma once

#include <cstdint>

#if defined(_WIN32)
#define VX_CONFORMANCE extern "C"
#else
#define VX_CONFORMANCE extern "C" __attribute__((visibility("default")))
#endif

// What a language has: positions from 1; arrays that know their sizes, in exact calls; texts of all Unicode; numbers of
// more than 32 bits.
enum { kFromOne = 1, kArrays = 2, kUnicode = 4, kWide = 8 };

// `call` gets the name and the number of arguments, asks what they are, makes the call, and says what it gave.
// VEXLOR_LAYER=friendly wants friendly functions, by main names and without the arguments that they supply; else exact
// ones are called. `errors`, a regular expression, is how the language refuses bad arguments. Gives the exit code.
VX_CONFORMANCE int vxc_run(int traits, const char* errors, void (*call)(const char* name, int count));
VX_CONFORMANCE int vxc_is_friendly();

// What argument i is: n a number, z NULL, m memory, = the memory of the argument that the number says. In friendly
// calls t a text, u one in UTF-8, b bytes, B a block that is changed, T and F the table and the file with that number.
VX_CONFORMANCE int vxc_kind(int i);
VX_CONFORMANCE std::int64_t vxc_number(int i);
VX_CONFORMANCE char* vxc_memory(int i);
VX_CONFORMANCE std::int64_t vxc_size(int i);
VX_CONFORMANCE std::int64_t vxc_offset(int i);  // where in memory the pointer points
VX_CONFORMANCE char* vxc_pointer(int i);        // and so it is
// Copies the memory to a place of the language's, with which the call is made; it has to stay until the next one.
VX_CONFORMANCE void vxc_lend(int i, char* place);

// What the call gave: in exact ones its result, or nothing; in friendly ones each output, and behind them each block.
VX_CONFORMANCE void vxc_gave_number(std::int64_t number);  // an offset, or an object's number, too
VX_CONFORMANCE void vxc_gave_place(const char* place);
VX_CONFORMANCE void vxc_gave_text(const char* text, std::int64_t size);
VX_CONFORMANCE void vxc_gave_null();
VX_CONFORMANCE void vxc_refused(const char* words);  // could not be made, and why
