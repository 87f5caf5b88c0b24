/* A program that loads the library for everybody to see (RTLD_GLOBAL), beside others: all keep their C library. */
#include <ctype.h>
#include <dlfcn.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>

int main(int argc, char **argv) {
    if (argc != 3) return 2;
    void *library = dlopen(argv[1], RTLD_NOW | RTLD_GLOBAL);
    if (!library) return puts(dlerror()), 2;
    /* Loaded behind it, so that its references are resolved with the library in scope. */
    void *plugin = dlopen(argv[2], RTLD_LAZY | RTLD_GLOBAL);
    if (!plugin) return puts(dlerror()), 2;

    int (*plugin_isalpha)(int);
    *(void **)&plugin_isalpha = dlsym(plugin, "plugin_isalpha");
    int32_t (*own)(const char *, int32_t);
    *(void **)&own = dlsym(library, "isalpha");
    if (!plugin_isalpha || !own) return puts("a name is missing"), 1;

    int fine = 1;
    fine &= isalpha('x') != 0 && isalpha('1') == 0;
    fine &= plugin_isalpha('x') != 0 && plugin_isalpha('1') == 0;
    fine &= own("ab1", 2) == 1 && own("ab1", 3) == 0;
    if (!fine) puts("somebody got the other library's isalpha");
    return !fine;
}
