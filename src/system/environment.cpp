// The process's command line, its program and its environment.
//
// The command line is taken apart here, from the one text that Windows has: arguments by blanks and tabs, quotes only
// at an argument's start and without any escape. A C runtime's rules are others.
#include "entries/environment.h"

#include <cstring>
#include <string_view>

#include "files/path.h"
#include "frame/text.h"
#include "platform/platform.h"

namespace vx {
namespace {

bool isGap(char c) { return c == ' ' || c == '\t'; }

const char* behindGap(const char* at) {
    while (isGap(*at)) ++at;
    return at;
}

const char* endOfWord(const char* at) {
    while (*at && !isGap(*at)) ++at;
    return at;
}

// The closing quote of a text whose first character is behind the opening one, or its end.
const char* closingQuote(const char* at) {
    while (*at && *at != '"') ++at;
    return at;
}

// Past one argument and the gap behind it. There is no escape: quotes count at the start only.
const char* behindArgument(const char* at) {
    if (*at != '"') return behindGap(endOfWord(at));
    at = closingQuote(at + 1);
    return *at ? behindGap(at + 1) : at;
}

const char* commandTail() { return behindArgument(platform::process().commandLine()); }

// The argument at a place in the command tail, without its quotes.
std::string_view argumentAt(const char* at) {
    const char* start = *at == '"' ? at + 1 : at;
    const char* end = *at == '"' ? closingQuote(start) : endOfWord(start);
    return {start, static_cast<std::size_t>(end - start)};
}

// Visits the arguments up to the first empty one, or until `visit` is false.
template <typename Visit>
void forEachArgument(Visit visit) {
    for (const char* at = commandTail(); !argumentAt(at).empty() && visit(argumentAt(at));) at = behindArgument(at);
}

std::string_view argument(std::int32_t n) {
    const char* at = commandTail();
    for (; n > 1 && *at; --n) at = behindArgument(at);
    return argumentAt(at);
}

std::int32_t countArguments() {
    std::int32_t count = 0;
    forEachArgument([&count](std::string_view) {
        ++count;
        return true;
    });
    return count;
}

std::string_view parameter(std::string_view prefix) {
    std::string_view rest;
    forEachArgument([&](std::string_view argument) {
        if (!argument.starts_with(prefix)) return true;
        rest = argument.substr(prefix.size());
        return false;
    });
    return rest;
}

char* putProgram(char* dest) {
    platform::process().programPath(dest, kPathRoom);
    return dest;
}

char* putVariable(const char* name, char* dest) {
    std::uint32_t room = name && *name ? platform::process().variable(name, nullptr, 0) : 0;
    std::uint32_t length = room > 0 ? platform::process().variable(name, dest, room) : 0;
    if (length == 0 || length >= room) *dest = '\0';
    return dest;
}

const char* behindEntry(const char* entry) { return entry + std::strlen(entry) + 1; }

char* putEntry(std::int32_t n, char* dest) {
    if (n < 1) return store(dest, {});
    platform::Environment environment(platform::process());
    const char* entry = environment.first();
    for (; n > 1 && *entry; --n) entry = behindEntry(entry);
    return store(dest, entry);
}

std::int32_t countEntries() {
    platform::Environment environment(platform::process());
    std::int32_t count = 0;
    for (const char* entry = environment.first(); *entry; entry = behindEntry(entry)) ++count;
    return count;
}

}  // namespace
}  // namespace vx

using namespace vx;

char* VX_CALL vx_Command(char* dest) noexcept { return dest ? store(dest, commandTail()) : nullptr; }
char* VX_CALL vx_Program(char* dest) noexcept { return dest ? putProgram(dest) : nullptr; }
char* VX_CALL vx_Arg(int32_t n, char* dest) noexcept {
    if (!dest || n == 0) return dest ? putProgram(dest) : nullptr;
    return store(dest, n > 0 ? argument(n) : std::string_view());
}
int32_t VX_CALL vx_ArgCount() noexcept { return countArguments(); }
char* VX_CALL vx_Param(const char* prefix, char* dest) noexcept {
    return dest ? store(dest, parameter(view(prefix))) : nullptr;
}
char* VX_CALL vx_GetEnv(const char* name, char* dest) noexcept { return dest ? putVariable(name, dest) : nullptr; }
char* VX_CALL vx_Env(int32_t n, char* dest) noexcept { return dest ? putEntry(n, dest) : nullptr; }
int32_t VX_CALL vx_EnvCount() noexcept { return countEntries(); }
