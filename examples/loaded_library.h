// A library loaded at run time whose functions are found by name: all that a host needs to call it.
#pragma once

#include <dlfcn.h>

#include <stdexcept>
#include <string>

class LoadedLibrary {
 public:
    explicit LoadedLibrary(const std::string& path) : handle_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
        if (!handle_) throw std::runtime_error(dlerror());
    }
    ~LoadedLibrary() { dlclose(handle_); }
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;

    // library.function<char*(const char*, char*)>("AllTrim")
    template <class Signature>
    Signature* function(const char* name) const {
        void* address = dlsym(handle_, name);
        if (!address) throw std::runtime_error(std::string("the library has no function ") + name);
        return reinterpret_cast<Signature*>(address);
    }

 private:
    void* handle_;
};
