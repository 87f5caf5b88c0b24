// The loaded library.
#pragma once

#include <string>

#include "catalog/catalog.h"

namespace vx::cli {

class Library {
 public:
    // Loads the file, or, where none is named, the library beside this program, or else the one that the system finds
    // by its plain name. Throws SystemError. It stays loaded until the program ends.
    explicit Library(const std::string& file);

    // The function of that exported name; throws SystemError if this library lacks it.
    catalog::Function find(const std::string& name) const;

 private:
    std::string path_;
    void* handle_;
};

}  // namespace vx::cli
