// Makes the calls of vexlor_conformance through vexlor32.h, linked, and vexlor32.hpp; caller_process.h has the
// protocol.
#define VEXLOR32_ALL_NAMES

#include <filesystem>
#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <vector>
#include <vexlor32.hpp>

#include "catalog/catalog.h"
#include "tests/bindings/hex.h"

namespace {

using vx::test::bytesOf;
using vx::test::hex;

std::map<std::string, vexlor32::Table> tables;
std::map<std::string, vexlor32::File> files;

// A friendly call: its words as what the functions take, and what they gave as words.
class Friendly {
 public:
    explicit Friendly(std::vector<std::string> words) : words_(std::move(words)), bytes_(words_.size()) {}

    std::int32_t number(std::size_t i) { return static_cast<std::int32_t>(std::stoll(words_.at(i).substr(1))); }
    std::uint32_t unsignedNumber(std::size_t i) {
        return static_cast<std::uint32_t>(std::stoll(words_.at(i).substr(1)));
    }
    vexlor32::Text text(std::size_t i) {
        if (words_.at(i) == "z") return nullptr;
        return bytes(i);
    }
    std::string& bytes(std::size_t i) { return bytes_.at(i) = bytesOf(words_.at(i).substr(1)); }
    std::string& block(std::size_t i) { return bytes(i); }
    vexlor32::Table& table(std::size_t i) { return tables.at(words_.at(i)); }
    vexlor32::File& file(std::size_t i) { return files.at(words_.at(i)); }

    void gave(const std::string& name, std::int64_t number) { keep(name, "n" + std::to_string(number)); }
    void gave(const std::string& name, const std::string& text) { keep(name, "t" + hex(text)); }
    void gave(const std::string& name, std::ptrdiff_t offset, const std::string& place) {
        keep(name, offset < 0 ? "z" : "p" + place + "@" + std::to_string(offset));
    }
    void gave(const std::string& name, vexlor32::Table table) { keepOpen(name, std::move(table), tables, "n0"); }
    void gave(const std::string& name, vexlor32::File file) { keepOpen(name, std::move(file), files, "n-1"); }
    void liesIn(const std::string& place) { result_ = "p" + place + "@0"; }

    std::string answer() const { return result_ + others_; }

 private:
    void keep(const std::string& name, const std::string& value) {
        if (name == "result") {
            result_ = value;
        } else {
            others_ += " " + name + "=" + value;
        }
    }
    template <class Object>
    void keepOpen(const std::string& name, Object object, std::map<std::string, Object>& all, const char* none) {
        std::string word = object ? "n" + std::to_string(object.handle()) : none;
        if (object) all.insert_or_assign(word, std::move(object));
        keep(name, word);
    }

    std::vector<std::string> words_;
    std::vector<std::string> bytes_;
    std::string result_ = "v";
    std::string others_;
};

#include "bindings/tests/cpp_dispatch.h"

using vx::catalog::Entry;
using vx::catalog::Result;
using vx::catalog::Value;

std::string exactCall(const std::string& name, const std::vector<std::string>& words) {
    static const std::map<std::string, void*> functions(std::begin(exactFunctions), std::end(exactFunctions));
    auto found = functions.find(name);
    const Entry* entry = vx::catalog::find(name);
    if (!entry) throw std::runtime_error("there is no " + name);
    // A name that other libraries have, too, is not in the header: the call goes by the entry's own.
    if (found == functions.end()) {
        for (const char* other : entry->names) {
            if (found == functions.end()) found = functions.find(other);
        }
    }
    std::vector<std::string> memories(words.size());
    std::vector<Value> values(words.size());
    for (std::size_t i = 0; i < words.size(); ++i) {
        std::size_t at = words[i].find('@');
        if (words[i][0] == 'n') {
            values[i].number = std::stoll(words[i].substr(1));
        } else if (words[i][0] == 'm') {
            memories[i] = bytesOf(words[i].substr(1, at - 1));
            values[i].text = memories[i].data() + std::stoll(words[i].substr(at + 1));
        } else {
            values[i].text = words[i][0] == '=' ? values.at(std::stoul(words[i].substr(1, at))).text : nullptr;
        }
    }
    Value result;
    entry->invoke(reinterpret_cast<vx::catalog::Function>(found->second), values.data(), &result);
    std::string answer = "v";
    if (vx::catalog::isNumber(entry->result)) {
        answer = "n" + std::to_string(result.number);
    } else if (entry->result != Result::kVoid) {
        answer = result.text ? "t" : "z";
        for (std::size_t i = 0; i < words.size() && answer == "t"; ++i) {
            auto offset = result.text - memories[i].data();
            if (words[i][0] == 'm' && offset >= 0 && offset <= static_cast<std::ptrdiff_t>(memories[i].size()))
                answer = "p" + std::to_string(i) + "@" + std::to_string(offset);
        }
        if (answer == "t") answer += hex(result.text);
    }
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i][0] == 'm') answer += " m" + hex(memories[i]);
    }
    return answer;
}

std::string answerTo(const std::string& line) {
    std::istringstream stream(line);
    std::string what;
    std::string name;
    stream >> what >> name;
    std::vector<std::string> words;
    for (std::string word; stream >> word;) words.push_back(word);
    if (what == "enter") {
        std::filesystem::current_path(bytesOf(name));
        return "ok";
    }
    if (what == "call") return exactCall(name, words);
    Friendly call(words);
    friendlyCall(call, name);
    return call.answer();
}

}  // namespace

int main() {
    std::ios::sync_with_stdio(false);  // lines are long
    for (std::string line; std::getline(std::cin, line);) {
        try {
            std::cout << answerTo(line) << std::endl;
        } catch (const std::exception& error) {
            std::cout << "!" << error.what() << std::endl;
        }
    }
}
