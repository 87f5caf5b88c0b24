/* A Windows program that loads the DLL by name and calls by name, counting what each call leaves on its stack. */
#include <stdint.h>
#include <stdio.h>
#include <string.h>
#include <windows.h>

typedef char *(__stdcall *TextCall)(const char *, char *);
typedef uint32_t(__stdcall *LengthCall)(const char *, const char *, int32_t);
typedef int32_t(__stdcall *NumberCall)(void);

static void *find(HMODULE library, const char *name) { return (void *)(uintptr_t)GetProcAddress(library, name); }

#if defined(__i386__)
/* Calls with the stack moved down by `shift` bytes, and puts it back. */
uint32_t shifted_call(LengthCall call, const char *text, const char *set, int32_t mode, int32_t shift);
__asm__(
    ".globl _shifted_call\n"
    "_shifted_call:\n"
    "    push %ebp\n"
    "    mov %esp, %ebp\n"
    "    sub 24(%ebp), %esp\n"
    "    pushl 20(%ebp)\n"
    "    pushl 16(%ebp)\n"
    "    pushl 12(%ebp)\n"
    "    call *8(%ebp)\n"
    "    leave\n"
    "    ret\n");
#else
/* The convention of 64-bit code keeps every stack aligned. */
static uint32_t shifted_call(LengthCall call, const char *text, const char *set, int32_t mode, int32_t shift) {
    (void)shift;
    return call(text, set, mode);
}
#endif

int main(void) {
    HMODULE library = LoadLibraryA(VEXLOR_LIBRARY_FILE);
    if (!library) return printf("cannot load %s: error %lu\n", VEXLOR_LIBRARY_FILE, GetLastError()), 1;
    TextCall alltrim = (TextCall)(uintptr_t)find(library, "_alltrim");
    LengthCall chrtrimlen = (LengthCall)(uintptr_t)find(library, "chrtrimlen");
    NumberCall version = (NumberCall)(uintptr_t)find(library, "VEXVERSION");
    if (!alltrim || !chrtrimlen || !version || find(library, "NoSuchName")) return puts("names differ"), 1;

    char dest[16];
    int fine = 1;
    for (int i = 0; i < 100000; ++i) fine &= alltrim("  a b ", dest) == dest && strcmp(dest, "a b") == 0;
    fine &= chrtrimlen("--a--", "-", 1) == 3 && version() == 199;

    /* Callers promise no more than a 4-byte aligned stack. */
    for (int shift = 0; shift < 16; shift += 4) {
        uint32_t length = shifted_call(chrtrimlen, "--a--", "-", 0, shift);
        fine &= length == 1;
    }
    if (!FreeLibrary(library)) fine = 0;
    if (!fine) puts("a call gave a wrong result");
    return !fine;
}
