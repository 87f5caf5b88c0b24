// Calls every entry of the export table with random arguments in guarded memory, on a made-up machine.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <vector>

#include "fuzz/caller.h"
#include "fuzz/oddities.h"
#include "fuzz/watch.h"
#include "fuzz/world.h"
#include "tests/seam/seam.h"

namespace vx::fuzz {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::uint64_t kDefaultRounds = 200;
constexpr std::uint32_t kPasses = 4;  // of a round over all entries: what one opens, others go on with
constexpr const char* kUsage =
    "usage: vexlor_random_caller [--seed N] [--rounds N] [--seconds N] [--round N] [--only NAME] [--family F] "
    "[--print]\n"
    "  --seed N     the seed (otherwise the clock gives one)\n"
    "  --rounds N   so many rounds of 4 calls of each entry (200, if no seconds are given)\n"
    "  --seconds N  ends after that time; 0 goes on until it is interrupted\n"
    "  --round N    this round alone: what a report tells\n"
    "  --only NAME  this entry alone, by any of its names\n"
    "  --family F   the entries of this family alone\n"
    "  --print      tells each call before it is made\n";

struct Options {
    std::uint64_t seed = static_cast<std::uint32_t>(std::chrono::system_clock::now().time_since_epoch().count());
    std::optional<std::uint64_t> rounds;
    std::optional<std::uint64_t> seconds;
    std::optional<std::uint64_t> round;
    const catalog::Entry* only = nullptr;
    std::string_view family;
    bool print = false;
};

[[noreturn]] void refuse(const std::string& why) {
    std::fprintf(stderr, "random caller: %s\n%s", why.c_str(), kUsage);
    std::exit(2);
}

std::uint64_t numberOf(const char* text) {
    char* end = nullptr;
    std::uint64_t number = std::strtoull(text, &end, 10);
    if (*text < '0' || *text > '9' || *end) refuse(std::string("not a number: ") + text);
    return number;
}

Options optionsOf(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        std::string_view option = argv[i];
        if (option == "--print") {
            options.print = true;
            continue;
        }
        const char* value = ++i < argc ? argv[i] : nullptr;
        if (!value) refuse("nothing behind " + std::string(option));
        if (option == "--seed") {
            options.seed = numberOf(value);
        } else if (option == "--rounds") {
            options.rounds = numberOf(value);
        } else if (option == "--seconds") {
            options.seconds = numberOf(value);
        } else if (option == "--round") {
            options.round = numberOf(value);
        } else if (option == "--only") {
            options.only = catalog::find(value);
            if (!options.only) refuse(std::string("no entry of that name: ") + value);
        } else if (option == "--family") {
            options.family = value;
        } else {
            refuse("unknown option " + std::string(option));
        }
    }
    return options;
}

std::vector<const catalog::Entry*> chosenEntries(const Options& options) {
    std::vector<const catalog::Entry*> chosen;
    for (const catalog::Entry& entry : catalog::allEntries()) {
        if (options.only && options.only != &entry) continue;
        if (!options.family.empty() && options.family != entry.family) continue;
        if (const char* reason = whySkipped(entry))
            std::printf("random caller: %s is not called: %s\n", entry.main(), reason);
        else if (entry.arguments.size() > kMostArguments)
            refuse(std::string(entry.main()) + " has more arguments than kMostArguments");
        else
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
    for (const char* name : world.putTables()) {
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

catalog::Function addressOf(const catalog::Entry& entry) {
    static const std::vector<catalog::Function> addresses = [] {
        std::vector<catalog::Function> found;
        for (const catalog::Entry& e : catalog::allEntries())
            found.push_back(reinterpret_cast<catalog::Function>(test::address(e.main())));
        return found;
    }();
    return addresses[static_cast<std::size_t>(&entry - catalog::allEntries().data())];
}

int run(int argc, char** argv) {
    Options options = optionsOf(argc, argv);
    std::vector<const catalog::Entry*> entries = chosenEntries(options);
    test::loadLibrary(argv[0], VEXLOR_LIBRARY_FILE);
    // Never taken down: the library must not meet the machine when it is unloaded, either.
    static World& world = *new World(test::door());
    Caller caller(addressOf);
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

int main(int argc, char** argv) { return vx::fuzz::run(argc, argv); }
