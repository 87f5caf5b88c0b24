#include "platform/linux/process_data.h"

#include <strings.h>
#include <unistd.h>

#include <cstring>
#include <new>

#include "platform/linux/system_file.h"

namespace vx::platform {
namespace {

// The value of the first variable that `matches`, which is given the entry.
template <typename Matches>
const char* valueOfFirst(std::size_t nameLength, Matches matches) {
    for (char** entry = environ; entry && *entry; ++entry) {
        if (matches(*entry) && (*entry)[nameLength] == '=') return *entry + nameLength + 1;
    }
    return nullptr;
}

}  // namespace

std::string joinedArguments() noexcept try {
    std::string line;
    std::string arguments = systemFile("/proc/self/cmdline");
    for (std::size_t from = 0; from < arguments.size();) {
        std::string argument = arguments.c_str() + from;
        from += argument.size() + 1;
        if (!line.empty()) line += ' ';
        bool quoted = argument.empty() || argument.find_first_of(" \t") != argument.npos;
        line += quoted ? '"' + argument + '"' : argument;
    }
    return line;
} catch (const std::bad_alloc&) {
    return {};
}

const char* findVariable(const char* name) {
    std::size_t length = std::strlen(name);
    if (length == 0 || std::strchr(name, '=')) return nullptr;
    auto same = [=](const char* entry) { return ::strncasecmp(entry, name, length) == 0; };
    const char* value =
        valueOfFirst(length, [=](const char* entry) { return same(entry) && std::memcmp(entry, name, length) == 0; });
    return value ? value : valueOfFirst(length, same);
}

char* copyVariables() {
    std::size_t size = 1;
    for (char** entry = environ; entry && *entry; ++entry) size += std::strlen(*entry) + 1;
    char* copy = new (std::nothrow) char[size];
    if (!copy) return nullptr;
    char* end = copy;
    for (char** entry = environ; entry && *entry; ++entry) {
        std::size_t length = std::strlen(*entry);
        if (length == 0) continue;  // would end the copy
        std::memcpy(end, *entry, length + 1);
        end += length + 1;
    }
    *end = '\0';
    return copy;
}

}  // namespace vx::platform
