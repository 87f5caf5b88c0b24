// A made-up disk with tables on it, and what their tests ask of one.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/lab/table_bytes.h"
#include "tests/seam/seam.h"
#include "tests/support/text.h"

namespace vx::test {

inline constexpr std::int32_t kPrivateMode = 2;
inline constexpr std::int32_t kSharedMode = 66;
inline constexpr std::size_t kValueRoom = 65537;

inline std::string valueOf(std::uint32_t table, int field) {
    Dest dest(kValueRoom);
    std::uint32_t size = lib().strdbfFieldGet(table, field, dest);
    return {dest.get(), size};
}

// The current record's data.
inline std::string recordOf(std::uint32_t table) {
    auto size = static_cast<std::size_t>(lib().DbfRecordSize(table));
    Dest dest(size + 1);
    lib().DbfRecordGet(table, dest);
    EXPECT_EQ(dest.get()[size], '~') << "no terminator";
    return {dest.get(), size};
}

struct Place {
    int number;
    int bof;
    int eof;
    bool operator==(const Place&) const = default;
};
inline std::ostream& operator<<(std::ostream& to, const Place& place) {
    return to << place.number << " bof " << place.bof << " eof " << place.eof;
}
inline Place placeOf(std::uint32_t table) { return {lib().DbfRecno(table), lib().DbfBof(table), lib().DbfEof(table)}; }

class TableTest : public testing::Test {
 protected:
    lab::FakePlatform fake{door()};
    lab::MadeUpDisk& disk = fake.disk;
    std::vector<std::uint32_t> opened;

    ~TableTest() override {
        disk.fault = {};
        for (std::uint32_t table : opened) lib().DbfClose(table);
        EXPECT_EQ(disk.openFiles(), 0u);
    }

    std::uint32_t keep(std::uint32_t table) {
        opened.push_back(table);
        return table;
    }
    std::uint32_t open(const char* name, std::int32_t mode = kPrivateMode) { return keep(lib().DbfOpen(name, mode)); }
    std::uint32_t create(const char* name, const char* structure) { return keep(lib().DbfStrCreate(name, structure)); }
    std::string& bytes(const std::string& name) { return disk.find(name)->data; }
};

}  // namespace vx::test
