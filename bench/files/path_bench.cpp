// File names out of paths, against the standard library's, and walking through a directory of 1000 files.
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>

#include "bench/support/pair.h"
#include "tests/support/library.h"
#include "tests/support/workplace.h"

namespace vx::bench {
namespace {

using test::lib;

void names() {
    struct Case {
        const char* name;
        std::string path;
    };
    for (const Case& c : {Case{"short", "C:\\dos\\edit.com"}, Case{"long", "C:" + std::string(10, '\\') + [] {
                                                                       std::string path;
                                                                       for (int i = 0; i < 20; ++i)
                                                                           path += "directory\\";
                                                                       return path + "some file.with.dots.txt";
                                                                   }()}}) {
        std::string other = c.path.substr(2);
        for (char& b : other) b = b == '\\' ? '/' : b;  // where the peer separates
        auto dest = std::make_shared<std::string>(600, '\0');
        pair(
            std::string("FParsef/") + c.name, 0,
            [=, call = lib().FParsef, path = c.path] { return call(path.c_str(), dest->data()); },
            [=] {
                std::string name = std::filesystem::path(other).filename().string();
                std::memcpy(dest->data(), name.c_str(), name.size() + 1);
                return dest->data();
            });
    }
}

void walks() {
    static test::Workplace place;
    for (int i = 0; i < 1000; ++i) place.put("file" + std::to_string(i) + ".txt", "x");
    auto block = std::make_shared<std::string>(1115, '\0');
    auto dest = std::make_shared<std::string>(514, '\0');
    std::string pattern = place.path("*.*");
    pair(
        "FindNext/1000", 0,
        [=, first = lib().FindFirst, next = lib().FindNext] {
            std::size_t size = 0;
            for (first(block->data(), pattern.c_str(), 0, dest->data()); (*dest)[0];
                 next(block->data(), dest->data())) {
                size += lib().FindSize(block->data());
            }
            return size;
        },
        [] {
            std::size_t size = 0;
            for (const auto& entry : std::filesystem::directory_iterator(place.native())) {
                if (entry.is_regular_file()) size += entry.file_size();
            }
            return size;
        });
}

const Cases cases([] {
    names();
    walks();
});

}  // namespace
}  // namespace vx::bench
