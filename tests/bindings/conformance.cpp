// Runs the rows of the tests, or the examples of the table, through a binding of another language.
//
//     vexlor_conformance [--friendly] -- PROGRAM ARGUMENT...
//
// The program answers as caller_process.h says. What it lacks it may tell by ending with 77 before it answers.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "rows/runner.h"
#include "tests/bindings/caller_process.h"

namespace {

using namespace vx;

constexpr std::size_t kMostShown = 20;
constexpr int kSkipped = 77;

std::filesystem::path folderOfRows(const char* program) {
    return std::filesystem::canonical(program).parent_path() / "generated" / "rows";
}

std::vector<rows::Block> allRows(const std::filesystem::path& folder) {
    std::vector<rows::Block> all;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::ifstream file(entry.path(), std::ios::binary);
        std::string text{std::istreambuf_iterator<char>(file), {}};
        for (rows::Block& block : rows::parse(entry.path().filename().string(), text)) all.push_back(std::move(block));
    }
    return all;
}

// Whether nobody can make the call by friendly functions: they have no length forms, make destinations themselves, and
// take open tables and files only.
bool isForExactOnly(const rows::Row& row, std::set<std::string>& closed) {
    const catalog::Entry* entry = catalog::find(row.name);
    if (!entry || entry->pointerForm >= 0) return entry;
    std::size_t next = 0;
    for (const catalog::Argument& argument : entry->arguments) {
        auto isGiven = [&](const auto& given) { return given.first == argument.name; };
        if (test::isMade(argument.kind)) {
            if (std::any_of(row.given.begin(), row.given.end(), isGiven)) return true;
        } else if (argument.kind != catalog::Kind::kBlock && next < row.arguments.size()) {
            const rows::Value& value = row.arguments[next];
            bool isObject = argument.kind == catalog::Kind::kTable || argument.kind == catalog::Kind::kHandle;
            if (isObject && (value.kind != rows::Value::Kind::kVariable || closed.contains(value.text))) return true;
            ++next;
        }
    }
    if (row.name == "DbfClose" || row.name == "FClose") closed.insert(row.arguments[0].text);
    return false;
}

std::vector<rows::Block> allExamples() {
    std::vector<rows::Block> all;
    for (const catalog::Entry& entry : catalog::allEntries()) {
        for (rows::Block& block : rows::parse("example", entry.examples)) {
            std::set<std::string> closed;
            std::erase_if(block.rows, [&](const rows::Row& row) { return isForExactOnly(row, closed); });
            all.push_back(std::move(block));
        }
    }
    return all;
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Runs rows through a binding of another language.");
    bool isFriendly = false;
    std::vector<std::string> command;
    app.add_flag("--friendly", isFriendly, "the examples of the table, by the friendly functions");
    app.add_option("command", command, "the program that makes the calls")->required();
    CLI11_PARSE(app, argc, argv);
    std::signal(SIGPIPE, SIG_IGN);  // a program that has ended shows in what it does not answer
    test::CallerProcess process(command, isFriendly);
    rows::Host host{.find = nullptr, .machine = nullptr, .remote = &process, .onlyRows = isFriendly};
    rows::Report report;
    try {
        report = rows::run(isFriendly ? allExamples() : allRows(folderOfRows(argv[0])), host);
    } catch (const std::exception& error) {
        report.failures.push_back(error.what());
    } catch (const std::string& error) {
        report.failures.push_back(error);
    }
    int code = process.end();
    if (code == kSkipped) return code;
    if (code != 0) report.failures.push_back("the calling process ended with " + std::to_string(code));
    for (std::size_t i = 0; i < report.failures.size() && i < kMostShown; ++i)
        std::fprintf(stderr, "%s\n", report.failures[i].c_str());
    std::printf("%d rows, %d calls, %zu failures; %d blocks left, which need a made-up machine or another system\n",
                report.rows, report.calls, report.failures.size(), report.left);
    return !report.failures.empty() || report.rows == 0;
}
