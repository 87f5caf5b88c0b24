/* Somebody else's library, which calls the C library. A call, not the macro: that is what could be captured. */
#include <ctype.h>
#undef isalpha

int plugin_isalpha(int c) { return isalpha(c); }
