// The platform's own interface on the system itself, before any stand-in takes its place, in a directory of its own.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/seam/seam.h"
#include "tests/support/workplace.h"

namespace vx::test {

// Windows programs are tested on Wine, run by root, which refuses less and has other codes here and there.
#if defined(_WIN32)
inline constexpr bool kWine = true;
#else
inline constexpr bool kWine = false;
#endif

class SystemTest : public testing::Test {
 protected:
    platform::Platform system = *door()->platform;
    platform::Files& files = *system.files;
    platform::Tree& tree = *system.tree;
    platform::Volumes& volumes = *system.volumes;
    Workplace place;

    std::uint32_t error() { return system.process->lastError(); }
    // 0, or why not.
    template <typename Result>
    std::uint32_t reason(Result result) {
        return result ? 0 : error();
    }
    std::int32_t open(const std::string& name, std::uint32_t mode) {
        return files.open(place.path(name).c_str(), mode);
    }
    std::int32_t create(const std::string& name, std::uint32_t bits = 0) {
        return files.create(place.path(name).c_str(), bits);
    }
    std::string read(std::int32_t handle, std::uint32_t count) {
        std::string text(count, '~');
        std::int32_t done = files.read(handle, text.data(), count);
        return done < 0 ? "<" + std::to_string(error()) + ">" : text.substr(0, static_cast<std::size_t>(done));
    }
    std::int32_t write(std::int32_t handle, const std::string& text) {
        return files.write(handle, text.data(), static_cast<std::uint32_t>(text.size()));
    }
    std::uint32_t attributes(const std::string& name) { return tree.attributes(place.path(name).c_str()); }
    std::uint32_t set(const std::string& name, std::uint32_t bits) {
        return reason(tree.setAttributes(place.path(name).c_str(), bits));
    }
    std::uint32_t erase(const std::string& name) { return reason(tree.erase(place.path(name).c_str())); }
    std::uint32_t makeDirectory(const std::string& name) {
        return reason(tree.createDirectory(place.path(name).c_str()));
    }
    std::uint32_t removeDirectory(const std::string& name) {
        return reason(tree.removeDirectory(place.path(name).c_str()));
    }
    std::uint32_t move(const std::string& from, const std::string& to) {
        return reason(tree.move(place.path(from).c_str(), place.path(to).c_str()));
    }
    platform::FileInformation information(std::int32_t handle) {
        platform::FileInformation information{};
        EXPECT_TRUE(files.information(handle, information)) << error();
        return information;
    }
};

}  // namespace vx::test
