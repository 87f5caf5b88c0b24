/* A program that links with the library through its header: C and C++, Linux and Windows. It keeps its C library. */
#include <ctype.h>
#include <stdio.h>
#include <string.h>

#define VEXLOR32_ALL_NAMES
#include "vexlor32.h"

static int failures = 0;

static void check(int holds, const char *what) {
    if (!holds) {
        printf("failed: %s\n", what);
        ++failures;
    }
}

int main(void) {
    char dest[16];
    check(AllTrim("  a b ", dest) == dest && strcmp(dest, "a b") == 0, "AllTrim");
    check(alltrim(" x", dest) == dest && strcmp(dest, "x") == 0, "alltrim, another name");
    check(StrCenter("ab", 6, "-", dest) == dest && strcmp(dest, "--ab--") == 0, "StrCenter");
    check(ChrTrimLen("--a--", "-", -1) == 3, "ChrTrimLen");

    /* Both libraries have a function of this name. */
    check(isalpha('x') != 0 && isalpha('1') == 0, "isalpha is the C library's");
    check(IsAlpha("ab1", 2) == 1 && IsAlpha("ab1", 3) == 0, "IsAlpha is this library's");
    check(isdigit('7') != 0 && IsDigit("77", 9) == 1, "isdigit, IsDigit");
    return failures != 0;
}
