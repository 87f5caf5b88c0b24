// A directory of its own for a test, gone when the test ends.
#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>

namespace vx::test {

class Workplace {
 public:
    Workplace() {
        static std::atomic<unsigned> count{0};
        auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
        root_ = std::filesystem::temp_directory_path() /
                ("vexlor-" + std::to_string(ticks) + "-" + std::to_string(++count));
        std::filesystem::create_directories(root_);
    }
    ~Workplace() {
        std::error_code ignored;
        std::filesystem::remove_all(root_, ignored);
    }
    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;

    // Where a file is, for the test's own calls.
    std::filesystem::path native(const std::string& name = "") const { return root_ / name; }

    // The same in drive form, for the library.
    std::string path(const std::string& name = "") const {
        std::string text = (name.empty() ? root_ : root_ / name).string();
        std::replace(text.begin(), text.end(), '/', '\\');
#if !defined(_WIN32)
        text.insert(0, "C:");
#endif
        return text;
    }

    std::string put(const std::string& name, const std::string& content = "") const {
        std::ofstream(native(name), std::ios::binary) << content;
        return path(name);
    }

    std::string get(const std::string& name) const {
        std::ifstream file(native(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    bool has(const std::string& name) const { return std::filesystem::exists(native(name)); }

 private:
    std::filesystem::path root_;
};

}  // namespace vx::test
