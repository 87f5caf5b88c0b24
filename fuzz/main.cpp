// Calls every entry of the export table with random arguments in guarded memory, on a made-up machine.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "fuzz/caller.h"
#include "fuzz/watch.h"
#include "fuzz/world.h"
#include "tests/seam/seam.h"

namespace vx::fuzz {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::uint64_t kDefaultRounds = 200;
constexpr std::uint32_t kPasses = 4;  // of a round over all entries: what one opens, others go on with
struct Options {
    std::uint64_t seed = static_cast<std::uint32_t>(std::chrono::system_clock::now().time_since_epoch().count());
    std::optional<std::uint64_t> rounds;
    std::optional<std::uint64_t> seconds;
    std::optional<std::uint64_t> round;
    const catalog::Entry* only = nullptr;
    bool print = false;
};

[[noreturn]] void refuse(const std::string& why) {
    std::fprintf(stderr, "random caller: %s\n", why.c_str());
    std::exit(2);
}

Options optionsOf(int argc, char** argv) {
    Options options;
    std::string only;
    CLI::App app("Calls every entry of the export table with random arguments in guarded memory.",
                 "vexlor_random_caller");
    app.add_option("--seed", options.seed, "The seed (otherwise the clock gives one)")->option_text("N");
    app.add_option("--rounds", options.rounds, "So many rounds of 4 calls of each entry (200, if no seconds are given)")
        ->option_text("N");
    app.add_option("--seconds", options.seconds, "Ends after that time; 0 goes on until it is interrupted")
        ->option_text("N");
    app.add_option("--round", options.round, "This round alone: what a report tells")->option_text("N");
    app.add_option("--only", only, "This entry alone, by any of its names")->option_text("NAME");
    app.add_flag("--print", options.print, "Tells each call before it is made");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        std::exit(app.exit(error) == 0 ? 0 : 2);
    }
    options.only = only.empty() ? nullptr : catalog::find(only);
    if (!only.empty() && !options.only) refuse("no entry of that name: " + only);
    return options;
}

std::vector<const catalog::Entry*> chosenEntries(const Options& options) {
    std::vector<const catalog::Entry*> chosen;
    for (const catalog::Entry& entry : catalog::allEntries()) {
        if (options.only && options.only != &entry) continue;
        if (entry.arguments.size() > kMostArguments)
            refuse(std::string(entry.main()) + " has more arguments than kMostArguments");
        chosen.push_back(&entry);
    }
    if (chosen.empty()) refuse("no entry to call");
    return chosen;
}

void shuffle(std::vector<const catalog::Entry*>& entries, Random& random) {
    for (std::size_t i = entries.size(); i > 1; --i) {
        std::size_t other = random.below(static_cast<std::uint32_t>(i));
        std::swap(entries[i - 1], entries[other]);
    }
}

// Depends on seed and round alone, so that it can be run again by itself.
bool runRound(std::uint64_t seed, std::uint64_t round, std::vector<const catalog::Entry*> entries, Caller& caller,
              World& world) {
    Turn turn{seed, round, 0};
    Random random = turn.randomFor("the round");
    world.renew(random);
    caller.forget();
    for (const char* name : world.putTables(random)) {
        for (std::int32_t mode : {2, 66}) caller.adopt(test::lib().DbfOpen(name, mode));  // alone, shared
    }
    for (; turn.pass < kPasses; ++turn.pass) {
        shuffle(entries, random);
        for (const catalog::Entry* entry : entries) {
            if (!caller.tryEntry(*entry, turn)) return false;
        }
    }
    // The files of tables are on this round's disk.
    for (std::int64_t table : caller.tables()) test::lib().DbfClose(static_cast<std::uint32_t>(table));
    return true;
}

bool runRounds(const Options& options, const std::vector<const catalog::Entry*>& entries, Caller& caller,
               World& world) {
    std::uint64_t first = options.round.value_or(1);
    std::uint64_t rounds = options.round ? 1 : options.rounds.value_or(options.seconds ? UINT64_MAX : kDefaultRounds);
    auto end = Clock::now() + std::chrono::seconds(options.seconds.value_or(0));
    for (std::uint64_t done = 0; done < rounds; ++done) {
        if (options.seconds.value_or(0) > 0 && done > 0 && Clock::now() >= end) break;
        if (!runRound(options.seed, first + done, entries, caller, world)) return false;
    }
    return true;
}

int run(int argc, char** argv) {
    Options options = optionsOf(argc, argv);
    std::vector<const catalog::Entry*> entries = chosenEntries(options);
    test::loadLibrary(argv[0], VEXLOR_LIBRARY_FILE);
    // Never taken down: the library must not meet the machine when it is unloaded, either.
    static World& world = *new World(test::door());
    Caller caller(
        [](const catalog::Entry& entry) { return reinterpret_cast<catalog::Function>(test::address(entry.main())); });
    caller.printing = options.print;
    watch();
    if (!runRounds(options, entries, caller, world)) {
        std::fputs(caller.complaint().c_str(), stderr);
        return 1;
    }
    std::printf("random caller: %zu entries, %llu calls, seed %llu\n", entries.size(),
                static_cast<unsigned long long>(caller.callsMade()), static_cast<unsigned long long>(options.seed));
    return 0;
}

}  // namespace
}  // namespace vx::fuzz

// NOLINTNEXTLINE(bugprone-exception-escape): lack of memory may end it
int main(int argc, char** argv) { return vx::fuzz::run(argc, argv); }
