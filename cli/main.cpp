// vexlor: calls any function of the library from the shell.

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "cli/call.h"
#include "cli/errors.h"
#include "cli/examples.h"
#include "cli/explain.h"
#include "cli/library.h"
#include "cli/lines.h"
#include "cli/print.h"
#include "cli/table.h"
#include "version.h"

namespace vx::cli {
namespace {

constexpr char kUsageLines[] = R"(
Usage: vexlor [OPTIONS] NAME [ARGUMENTS...]
       vexlor --lines [OPTIONS] NAME [ARGUMENTS WITH {}...]
       vexlor --list [FAMILY|TEXT]
       vexlor --explain NAME
       vexlor --try NAME
       vexlor --table FILE.DBF
)";

constexpr char kDescription[] =
    "Calls any function of the Vexlor32 library by any of its names and shows what it gives back.";

constexpr char kFooter[] = R"(Options come before NAME; all that follows it is arguments, also what begins with '-'.

Arguments are given in the function's order, without destinations and memory blocks: those are supplied.
  numbers     decimal or 0x hexadecimal, 32 bits, signed or unsigned
  characters  one character of one byte, or its code: 0x2A or #42
  texts       as they are; @null passes NULL; with -e also \n \t \r \0 \\ \" \xHH
  bytes       as texts; where the call may read more than was given, the rest is zero

--raw prints the destination's text (or the text changed in place), else the result; of a length form the length; of a
memory block its bytes in hexadecimal.
In JSON a text that is valid UTF-8 is a string. Any other text, and every memory block, is an object: "text" has each
byte as the Latin-1 character of that code, "hex" two hexadecimal digits a byte. NULL is null.

Exit codes: 0 done; 1 the library or the function in it cannot be loaded, or input or output fails; 2 wrong usage.

Examples:
  vexlor AllTrim "  some text "
  vexlor ChrTrim "--a--" - -1
  vexlor --json --in-place LTrim "  x"
  vexlor -e IsSpace "\t " 2
  name=$(vexlor --raw AllTrim "$name")
  vexlor --lines UnTrim {} 20 . < names.txt
  vexlor --list trim
  vexlor --explain AllTrim
  vexlor --table CUSTOMER.DBF
)";

class HelpFormat : public CLI::Formatter {
 public:
    std::string make_usage(const CLI::App*, std::string) const override { return kUsageLines; }
};

struct CommandLine {
    std::string library;
    bool json = false, raw = false, lines = false, list = false, explain = false, tryOut = false, table = false,
         deleted = false;
    std::vector<std::string> contents;
    CallOptions call;
    std::vector<std::string> words;  // NAME and all that follows it
};

// The exit code, where the program ends at once.
std::optional<int> parse(int argc, char** argv, CommandLine& line) {
    CLI::App app(kDescription, "vexlor");
    app.formatter(std::make_shared<HelpFormat>());
    app.prefix_command();
    app.footer(kFooter);
    app.set_version_flag("--version", "vexlor " VX_VERSION);
    app.add_flag("--json", line.json, "Print one JSON object (a line each with --lines)");
    app.add_flag("--raw", line.raw, "Print the text or number alone, for scripts");
    app.add_flag("--in-place", line.call.inPlace, "Pass NULL for the destination, so that the text itself is changed");
    app.add_flag("-e,--escapes", line.call.escapes, "Read \\n \\t \\r \\0 \\\\ \\\" \\xHH in arguments");
    app.add_option("--set", line.contents,
                   "What a supplied argument holds at first (@null: pass NULL); may be repeated")
        ->option_text("ARGUMENT=TEXT")
        ->allow_extra_args(false);
    app.add_flag("--lines", line.lines, "Call once for each line of standard input, which {} stands for");
    app.add_option("--library", line.library, "Load this file (default: " VEXLOR_LIBRARY_FILE " beside this program)")
        ->option_text("PATH");
    app.add_flag("--list", line.list, "List the functions of a family, or those that a text finds, or all");
    app.add_flag("--explain", line.explain, "Show what a function does, takes and gives");
    app.add_flag("--try", line.tryOut, "Run a function's examples (exit code 1: one gives something else)");
    app.add_flag("--table", line.table, "Show the fields and records of a table (--json: an object a record)");
    app.add_flag("--deleted", line.deleted, "Show deleted records of a table, too, marked *");
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& done) {
        return app.exit(done);
    } catch (const CLI::ParseError& error) {
        throw UsageError(error.what());
    }
    line.words = app.remaining();
    if (!line.words.empty() && line.words.front() == "--") {
        line.words.erase(line.words.begin());
    } else if (!line.words.empty() && line.words.front().starts_with('-')) {
        throw UsageError("there is no option " + line.words.front() + " (vexlor --help shows all)");
    }
    return {};
}

// Nothing that asks about functions has an argument that looks like this one, so it may also come last.
void takeTrailingJson(CommandLine& line) {
    if (!line.words.empty() && line.words.back() == "--json") {
        line.words.pop_back();
        line.json = true;
    }
}

void write(std::string& text) {
    bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
    if (!written) throw SystemError("cannot write to standard output");
    text.clear();
}

void runLines(Call& call, const std::string& name, bool json) {
    if (!call.takesLine()) throw UsageError("--lines: no argument says {} where the line is to go");
    constexpr std::size_t kEnough = 1 << 16;
    std::string output;
    std::size_t number = 0;
    auto runLine = [&](std::string_view line) {
        ++number;
        append(output, json ? Style::kJson : Style::kRaw, name, call.run(line));
        if (output.size() >= kEnough) write(output);
    };
    try {
        forEachLine(0, runLine, [&] { write(output); });
    } catch (const UsageError& error) {
        write(output);
        throw UsageError("line " + std::to_string(number) + ": " + error.what());
    }
}

void callFunction(CommandLine& line) {
    static const std::string options[] = {"--json", "--raw", "--in-place", "-e", "--escapes", "--lines"};
    std::string name = line.words.front();
    std::vector<std::string> typed(std::next(line.words.begin()), line.words.end());
    for (const std::string& content : line.contents) {
        std::size_t equals = content.find('=');
        if (equals == content.npos) throw UsageError("--set takes ARGUMENT=TEXT, not " + content);
        line.call.contents[content.substr(0, equals)] = content.substr(equals + 1);
    }
    line.call.lines = line.lines;
    const catalog::Entry& entry = entryOf(name);
    catalog::Function function = Library(line.library).find(name);
    std::optional<Call> call;
    try {
        call.emplace(entry, name, function, typed, line.call);
    } catch (const UsageError& error) {
        auto misplaced = std::find_first_of(typed.begin(), typed.end(), std::begin(options), std::end(options));
        if (misplaced == typed.end()) throw;
        throw UsageError(std::string(error.what()) + "\n" + *misplaced + " is an option only before " + name);
    }
    if (line.lines) return runLines(*call, name, line.json);
    std::string output;
    append(output, line.json ? Style::kJson : line.raw ? Style::kRaw : Style::kHuman, name, call->run());
    write(output);
    std::fputs(call->remarks().c_str(), stderr);
}

// Enough for each text that the command line and the environment give to a called function. As one line, an argument
// may have gained a blank and quotes, and Windows knows neither more nor longer ones than this least room.
std::int64_t roomForHostTexts(char** argv) {
    std::int64_t room = 1 << 17;
    for (char** texts : {argv, environ}) {
        for (; texts && *texts; ++texts) room += static_cast<std::int64_t>(std::strlen(*texts)) + 4;
    }
    return room;
}

int run(int argc, char** argv) {
    catalog::setHostRoom(roomForHostTexts(argv));
    CommandLine line;
    if (std::optional<int> code = parse(argc, argv, line)) return *code;
    std::string output;
    if (line.list) {
        takeTrailingJson(line);
        std::string wanted;
        for (const std::string& word : line.words) wanted += (wanted.empty() ? "" : " ") + word;
        output = list(wanted, line.json);
        write(output);
    } else if (line.explain) {
        takeTrailingJson(line);
        if (line.words.size() != 1) throw UsageError("--explain takes the name of a function");
        output = explain(entryOf(line.words.front()), line.json);
        write(output);
    } else if (line.tryOut) {
        if (line.words.size() != 1) throw UsageError("--try takes the name of a function");
        Tried tried = tryExamples(entryOf(line.words.front()), Library(line.library));
        write(tried.text);
        if (!tried.allAsSaid) return kNoLibrary;
    } else if (line.table) {
        takeTrailingJson(line);
        if (line.words.size() != 1) throw UsageError("--table takes the name of a table's file");
        Library library(line.library);
        Table table(library, line.words.front());
        showTable(table, line.words.front(), {line.json, line.deleted}, write);
    } else if (line.words.empty()) {
        throw UsageError("the name of a function is missing (vexlor --help tells more, vexlor --list names all)");
    } else {
        callFunction(line);
    }
    return kDone;
}

}  // namespace
}  // namespace vx::cli

int main(int argc, char** argv) {
    try {
        return vx::cli::run(argc, argv);
    } catch (const vx::cli::UsageError& error) {
        std::fprintf(stderr, "vexlor: %s\n", error.what());
        return vx::cli::kUsage;
    } catch (const std::bad_alloc&) {
        std::fprintf(stderr, "vexlor: not enough memory\n");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vexlor: %s\n", error.what());
    }
    return vx::cli::kNoLibrary;
}
