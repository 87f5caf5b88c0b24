#include "tests/bindings/caller_process.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <sstream>

#include "tests/bindings/hex.h"

extern char** environ;

namespace vx::test {
namespace {

using catalog::Argument;
using catalog::Entry;
using catalog::Kind;
using rows::Passed;

std::string exactWord(const Passed& argument) {
    switch (argument.how) {
        case Passed::How::kNumber:
            return "n" + std::to_string(argument.number);
        case Passed::How::kNull:
            return "z";
        case Passed::How::kSame:
            return "=" + std::to_string(argument.sameAs) + "@0";
        case Passed::How::kMemory:
            return "m" + hex({argument.memory, argument.size}) + "@" + std::to_string(argument.offset);
    }
    return {};
}

// Texts end at their NUL; a block is passed whole.
std::string friendlyWord(const Argument& declared, const Passed& argument) {
    if (argument.how != Passed::How::kMemory) return exactWord(argument);
    bool isText = declared.kind == Kind::kStr || declared.kind == Kind::kEdit;
    return "t" + hex({argument.memory, isText ? strnlen(argument.memory, argument.size) : argument.size});
}

// What a friendly function makes itself, or does not ask for.
bool isOmitted(Kind kind) { return isMade(kind) || kind == Kind::kAny; }

std::size_t argumentCalled(const Entry& entry, const std::string& name) {
    for (std::size_t i = 0; i < entry.arguments.size(); ++i) {
        if (name == entry.arguments[i].name) return i;
    }
    throw std::string(entry.main()) + " has no argument " + name;
}

// Rows compare the 32 bits of a number; what it is in a wider one of the language is checked here.
void checkRange(catalog::Result kind, std::int64_t number) {
    bool isUnsigned = kind == catalog::Result::kUint || kind == catalog::Result::kTable;
    bool fits = isUnsigned ? number >= 0 && number <= UINT32_MAX : number >= INT32_MIN && number <= INT32_MAX;
    if (catalog::isNumber(kind) && !fits)
        throw "gave " + std::to_string(number) + ", which the result's type cannot be";
}

void fill(const Passed& argument, const std::string& bytes, bool isText) {
    if (argument.how != Passed::How::kMemory) return;
    if (bytes.size() + isText > argument.size)
        throw "gave " + std::to_string(bytes.size()) + " bytes, more than the documented room";
    std::memcpy(argument.memory, bytes.data(), bytes.size());
    if (isText) argument.memory[bytes.size()] = '\0';
}

}  // namespace

CallerProcess::CallerProcess(const std::vector<std::string>& command, bool isFriendly) : isFriendly_(isFriendly) {
    int input[2];
    int output[2];
    if (pipe(input) != 0 || pipe(output) != 0) throw std::string("no pipes");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
    for (int descriptor : {input[0], input[1], output[0], output[1]})
        posix_spawn_file_actions_addclose(&actions, descriptor);
    std::vector<char*> words;
    for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    int failure = posix_spawnp(&process_, words[0], &actions, nullptr, words.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(input[0]);
    close(output[1]);
    to_ = fdopen(input[1], "w");
    from_ = fdopen(output[0], "r");
    if (failure != 0) process_ = -1;  // the first request says so
}

CallerProcess::~CallerProcess() { end(); }

int CallerProcess::end() {
    if (process_ <= 0) return -1;
    std::fclose(to_);
    std::fclose(from_);
    int status = 0;
    waitpid(process_, &status, 0);
    process_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

CallerProcess::Words CallerProcess::ask(const std::string& request) {
    std::fprintf(to_, "%s\n", request.c_str());
    std::fflush(to_);
    char* line = nullptr;
    std::size_t room = 0;
    auto size = getline(&line, &room, from_);
    std::string answer(line ? line : "", static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    std::free(line);
    if (answer.empty() || answer.back() != '\n') throw std::string("the calling process has ended");
    answer.erase(answer.find_last_not_of("\r\n") + 1);
    if (answer.starts_with('!')) throw answer.substr(1);
    std::istringstream stream(answer);
    Words words;
    for (std::string word; stream >> word;) words.push_back(word);
    if (words.empty()) throw std::string("the calling process answered with nothing");
    return words;
}

void CallerProcess::enter(const std::filesystem::path& directory) { ask("enter " + hex(directory.string())); }

void CallerProcess::call(const Entry& entry, const std::string& name, std::span<const Passed> arguments,
                         catalog::Value& result) {
    std::string request = isFriendly_ ? std::string("friendly ") + entry.main() : "call " + name;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const Argument& declared = entry.arguments[i];
        if (!isFriendly_) request += " " + exactWord(arguments[i]);
        if (isFriendly_ && !isOmitted(declared.kind)) request += " " + friendlyWord(declared, arguments[i]);
    }
    Words answer = ask(request);
    if (isFriendly_)
        takeFriendly(answer, entry, arguments, result);
    else
        takeExact(answer, arguments, result);
    checkRange(entry.result, result.number);
}

void CallerProcess::takeExact(const Words& answer, std::span<const Passed> arguments, catalog::Value& result) {
    std::size_t next = 1;
    for (const Passed& argument : arguments) {
        if (argument.how != Passed::How::kMemory) continue;
        std::string bytes = next < answer.size() ? bytesOf(answer[next].substr(1)) : "";
        if (bytes.size() != argument.size) throw std::string("the answer has no bytes for every argument");
        std::memcpy(argument.memory, bytes.data(), bytes.size());
        ++next;
    }
    const std::string& word = answer[0];
    if (word[0] == 'n') {
        result.number = std::stoll(word.substr(1));
    } else if (word[0] == 'p') {
        std::size_t at = word.find('@');
        result.text = arguments[std::stoul(word.substr(1, at))].memory + std::stoll(word.substr(at + 1));
    } else if (word[0] == 't') {
        result.constant = texts_.emplace_back(bytesOf(std::string_view(word).substr(1))).c_str();
    } else {
        result.text = nullptr;
    }
}

void CallerProcess::takeFriendly(const Words& answer, const Entry& entry, std::span<const Passed> arguments,
                                 catalog::Value& result) {
    const std::string& word = answer[0];
    if (word[0] == 'n') {
        result.number = std::stoll(word.substr(1));
    } else if (word[0] == 't') {
        std::string text = bytesOf(std::string_view(word).substr(1));
        result.constant = texts_.emplace_back(text).c_str();
    } else if (word[0] == 'p') {
        std::size_t at = word.find('@');
        std::size_t place = argumentCalled(entry, word.substr(1, at - 1));
        if (arguments[place].how != Passed::How::kMemory) throw std::string("the result lies in no memory of the call");
        result.text = arguments[place].memory + std::stoll(word.substr(at + 1));
    } else {
        result.text = nullptr;
    }
    // What a call gives back as it was given, callers of friendly functions have.
    if (entry.result == catalog::Result::kGiven && entry.arguments.back().kind == Kind::kStr)
        result.text = arguments.back().memory;
    for (std::size_t i = 1; i < answer.size(); ++i) {
        std::size_t equals = answer[i].find('=');
        std::string name = answer[i].substr(0, equals);
        std::string value = answer[i].substr(equals + 1);
        std::size_t a = argumentCalled(entry, name);
        Kind kind = entry.arguments[a].kind;
        if (arguments[a].how != Passed::How::kMemory) continue;
        if (kind == Kind::kOut) {
            auto number = static_cast<std::int32_t>(std::stoll(value.substr(1)));
            std::memcpy(arguments[a].memory, &number, sizeof number);
        } else {
            fill(arguments[a], bytesOf(std::string_view(value).substr(1)), kind != Kind::kBlock);
        }
    }
}

}  // namespace vx::test
