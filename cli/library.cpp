#include "cli/library.h"

#include <dlfcn.h>

#include <filesystem>

#include "cli/errors.h"

namespace vx::cli {
namespace {

constexpr char kFile[] = VEXLOR_LIBRARY_FILE;

std::string besideProgram() {
    std::error_code failure;
    std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failure);
    std::filesystem::path file = program.parent_path() / kFile;
    return !failure && std::filesystem::exists(file, failure) ? file.string() : kFile;
}

// The loader takes a name without a slash for one to be searched for; who types a file's name means that file.
std::string asPath(const std::string& file) {
    std::error_code failure;
    bool here = file.find('/') == std::string::npos && std::filesystem::exists(file, failure);
    return here ? "./" + file : file;
}

}  // namespace

// The library's names include some of the C library's: RTLD_LOCAL keeps them from everybody else.
Library::Library(const std::string& file)
    : path_(file.empty() ? besideProgram() : asPath(file)), handle_(dlopen(path_.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    if (!handle_) throw SystemError(std::string("cannot load the library: ") + dlerror());
}

catalog::Function Library::find(const std::string& name) const {
    void* address = dlsym(handle_, name.c_str());
    if (!address) throw SystemError(path_ + " has no function " + name);
    return reinterpret_cast<catalog::Function>(address);
}

}  // namespace vx::cli
