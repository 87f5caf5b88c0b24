#include "tests/support/library.h"

#include <cstdio>
#include <cstdlib>
#include <string>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace vx::test {
namespace {

Calls calls;

#if defined(_WIN32)
HMODULE module;
void* open(const std::string& path) { return module = LoadLibraryA(path.c_str()); }
std::string reason() { return "error " + std::to_string(GetLastError()); }
#else
void* module;
void* open(const std::string& path) { return module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL); }
std::string reason() { return dlerror(); }
#endif

}  // namespace

const Calls& lib() { return calls; }

#if defined(_WIN32)
void* address(const char* name) { return reinterpret_cast<void*>(GetProcAddress(module, name)); }
#else
void* address(const char* name) { return dlsym(module, name); }
#endif

void loadLibrary(const char* program, const char* file) {
    std::string path = program;
    std::size_t slash = path.find_last_of("/\\");
    path = (slash == std::string::npos ? "./" : path.substr(0, slash + 1)) + file;
    if (!open(path)) {
        std::fprintf(stderr, "cannot load %s: %s\n", path.c_str(), reason().c_str());
        std::exit(2);
    }
    calls.load(address);
}

}  // namespace vx::test
