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

// A value in room for its size and a terminator.
inline std::string valueOf(std::uint32_t table, int field) {
    Dest dest(lib().DbfFieldSize(table, field) + std::size_t{1});
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

// Number, whether before the first record, whether behind the last.
inline std::vector<std::int64_t> placeOf(std::uint32_t table) {
    return {lib().DbfRecno(table), lib().DbfBof(table), lib().DbfEof(table)};
}

class TableTest : public testing::Test {
 protected:
    using Texts = std::vector<std::string>;

    lab::FakePlatform fake{door()};
    lab::MadeUpDisk& disk = fake.disk;
    std::vector<std::uint32_t> opened;

    ~TableTest() override {
        disk.fault = {};
        for (std::uint32_t table : opened) lib().DbfClose(table);
        EXPECT_EQ(disk.openFiles(), 0u);
    }

    std::uint32_t open(const char* name = "T", std::int32_t mode = kPrivateMode) {
        opened.push_back(lib().DbfOpen(name, mode));
        return opened.back();
    }
    std::string& bytes(const std::string& name) { return disk.find(name)->data; }

    // Table T with a file of each kind of companion.
    void putFiles(int version, const char* fields, const Texts& records, const Texts& memos = {},
                  const Texts& blobs = {}) {
        disk.put("T.DBF", lab::tableBytes(version, fields, records));
        disk.put("T.DBT", lab::dbtBytes(memos));
        disk.put("T.FPT", lab::fptBytes(memos));
        disk.put("T.BLO", lab::bloBytes(blobs));
    }
};

}  // namespace vx::test
