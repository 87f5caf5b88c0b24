#include "tests/support/rows.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "rows/runner.h"
#include "tests/support/child.h"
#include "tests/support/library.h"

namespace vx::test {
namespace {

// A crash within a call has to tell which row makes it; the address sanitizer tells of crashes itself.
[[maybe_unused]] void tellRow(int signal) {
    if (const rows::Row* row = rows::current())
        std::fprintf(stderr, "%s:%d: signal %d in: %s\n", row->file.c_str(), row->line, signal, row->source.c_str());
    std::fflush(stderr);
    std::_Exit(1);
}

class RowsTest : public testing::Test {
 public:
    RowsTest(std::filesystem::path path, rows::Machine* machine) : path_(std::move(path)), machine_(machine) {}

    void TestBody() override {
        std::ifstream file(path_, std::ios::binary);
        std::string text{std::istreambuf_iterator<char>(file), {}};
        rows::Host host{[](const char* name) { return reinterpret_cast<catalog::Function>(address(name)); }, machine_};
        rows::Report report;
#if !defined(__SANITIZE_ADDRESS__)
        auto before = std::signal(SIGSEGV, tellRow);
#endif
        try {
            report = rows::run(rows::parse(path_.filename().string(), text), host);
        } catch (const rows::ScriptError& error) {
            FAIL() << error.what();
        }
#if !defined(__SANITIZE_ADDRESS__)
        std::signal(SIGSEGV, before);
#endif
        for (const std::string& failure : report.failures) ADD_FAILURE() << failure;
        EXPECT_GT(report.rows + report.left, 0) << path_ << " has no rows";
        RecordProperty("rows", report.rows);
        RecordProperty("calls", report.calls);
    }

 private:
    std::filesystem::path path_;
    rows::Machine* machine_;
};

}  // namespace

bool registerRows(rows::Machine* machine) {
    std::filesystem::path folder = std::filesystem::path(programPath()).parent_path() / "generated" / "rows";
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::filesystem::path path = entry.path();
        testing::RegisterTest("Rows", path.stem().string().c_str(), nullptr, nullptr, __FILE__, __LINE__,
                              [=]() -> testing::Test* { return new RowsTest(path, machine); });
        ++count;
    }
    return count > 0;
}

}  // namespace vx::test
