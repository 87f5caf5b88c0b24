/* Somebody else's library: it calls the C library, by a call and not by the macro, which is what could be captured; and it
   calls back when the process ends. */
#include <ctype.h>
#undef isalpha

int plugin_isalpha(int c) { return isalpha(c); }

static void (*at_end)(void);

void call_at_end(void (*call)(void)) { at_end = call; }

__attribute__((destructor)) static void end(void) {
    if (at_end) at_end();
}
