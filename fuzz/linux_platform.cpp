// The platform of Linux under random and hostile names, patterns, volumes, locales and clocks, against slow twins, in a
// directory of its own.
#include <langinfo.h>
#include <regex.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <time.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <set>

#include "fuzz/texts.h"
#include "platform/linux/names.h"
#include "platform/linux/search.h"
#include "platform/linux/short_names.h"
#include "platform/linux/wildcards.h"
#include "platform/platform.h"
#include "rows/guarded_memory.h"
#include "rows/script.h"
#include "tests/support/workplace.h"

namespace {
struct statvfs volumeFed;
std::map<nl_item, std::array<char, 40>> localeFed;
}  // namespace

// The linker puts these in the place of the system's (--wrap).
extern "C" {
int __wrap_statvfs(const char*, struct statvfs* to) { return *to = volumeFed, 0; }
char* __wrap_nl_langinfo_l(nl_item item, locale_t) { return localeFed[item].data(); }
}

namespace vx::fuzz {
namespace {

using namespace platform;
using std::string, std::string_view;

std::uint64_t seed = 1, round = 1;

void expect(bool holds, string_view what, string_view given) {
    if (holds) return;
    std::fprintf(stderr, "linux platform: %.*s\n  given %s\n  again: --seed %ju --round %ju\n",
                 static_cast<int>(what.size()), what.data(), rows::inQuotes(given).c_str(), std::uintmax_t{seed},
                 std::uintmax_t{round});
    std::_Exit(1);
}

// The text that a call gives: the same with just the room that it needs, and nothing (0, or that room) with less; only
// the name of a month or day (MMM, ddd) is cut then.
string filled(const std::function<std::uint32_t(char*, std::uint32_t)>& fill, bool givesNeed, string_view given) {
    static rows::GuardedBuffer buffer;
    auto in = [&](std::uint32_t room) { return fill(buffer.place(room, false, '#'), room); };
    std::uint32_t size = in(20000);
    if (size == 0) return {};
    string text = buffer.data();
    auto room = static_cast<std::uint32_t>(text.size() + 1);
    expect(in(room) == size && text == buffer.data() && (size == room || size + 1 == room), "exact room", given);
    bool hasName = given.find("MMM") != given.npos || given.find("ddd") != given.npos;
    expect(room == 1 || in(room - 1) == (givesNeed ? room : 0) || hasName, "less room", given);
    return text;
}

string lower(string text) {
    std::transform(text.begin(), text.end(), text.begin(), lowered);
    return text;
}

string drawName(Random& random) {
    constexpr string_view kAlphabets[] = {"", "aAb.", "aB ~1.", "ab.*?\\:\n", "~1.A0", "\xE9z. "};
    string_view alphabet = random.of(kAlphabets);
    string name(1 + random.below(random.oneIn(12) ? 260 : 12), 'x');
    for (char& c : name) c = drawCharacter(random, alphabet);
    return name;
}

// A name as somebody else may write it.
string misspelt(Random& random, string name) {
    for (char& c : name) {
        if (random.oneIn(3)) c = random.oneIn(2) ? lowered(c) : raised(c);
    }
    return name + (random.oneIn(4) ? random.oneIn(2) ? "." : " ." : "");
}

string drawPattern(Random& random, const string& name) {
    string pattern = random.oneIn(2) ? name : string();
    for (std::uint32_t i = random.below(6); i > 0; --i) {
        std::size_t at = random.below(static_cast<std::uint32_t>(pattern.size()) + 1);
        pattern.replace(at, random.below(3), 1, random.of(string_view("*?*?.aB ~")));
    }
    std::erase_if(pattern, isSeparator);
    return random.oneIn(60) ? string(259, '*') : misspelt(random, pattern.substr(0, 257));
}

// How Windows matches, letter by letter and with all ways tried; what has failed is not tried again.
bool plainMatch(string pattern, const string& name) {
    bool noExtension = pattern.ends_with('.');
    pattern.resize(withoutEnd(pattern).size());
    if (pattern == "*.*") pattern = "*";
    std::size_t lastDot = name == "." || name == ".." ? name.npos : name.rfind('.');
    std::set<std::pair<std::size_t, std::size_t>> failed;
    std::function<bool(std::size_t, std::size_t)> match = [&](std::size_t p, std::size_t n) {
        bool atEnd = n == name.size();
        if (p == pattern.size() || failed.contains({p, n})) return atEnd && p == pattern.size();
        char c = pattern[p], next = p + 1 < pattern.size() ? pattern[p + 1] : noExtension ? '.' : 'x';
        bool skips =
            c == '*' || (c == '?' && (atEnd || name[n] == '.')) || (c == '.' && (next == '?' || next == '*') && atEnd);
        bool stays = c == '*' && !atEnd && !(next == '.' && n == lastDot);
        bool takes = c != '*' && !atEnd && (c == '?' ? name[n] != '.' : lowered(c) == lowered(name[n]));
        bool matches = (skips && match(p + 1, n)) || (stays && match(p, n + 1)) || (takes && match(p + 1, n + 1));
        if (!matches) failed.insert({p, n});
        return matches;
    };
    return match(0, 0);
}

void matchWildcards(Random& random) {
    for (int i = 0; i < 30; ++i) {
        string name = drawName(random), pattern = drawPattern(random, name);
        expect(Wildcards(pattern).match(name) == plainMatch(pattern, name), "wildcards", pattern + "\n" + name);
    }
}

void resolveNames(Random& random, const std::filesystem::path& current) {
    constexpr string_view kParts[] = {"", ".", "..", "C:", "d", "a.b.", " ", "...", "C:\\", "D:"};
    for (int i = 0; i < 20; ++i) {
        string name;
        for (std::uint32_t k = random.below(8); k > 0; --k) {
            name += random.oneIn(3) ? drawName(random) : string(random.of(kParts));
            if (!random.oneIn(8)) name += random.oneIn(2) ? '/' : '\\';
        }
        string plain = name;
        std::replace(plain.begin(), plain.end(), '\\', '/');
        bool hasDrive = plain.size() > 1 && plain[1] == ':' && lowered(plain[0]) >= 'a' && lowered(plain[0]) <= 'z';
        bool isValid = !plain.empty() && plain.size() < kPathSize && !hasWildcards(plain) && !plain.starts_with("//") &&
                       (!hasDrive || lowered(plain[0]) == 'c');
        if (hasDrive) plain.erase(0, 2);
        while (plain.starts_with("//")) plain.erase(0, 1);
        plain = (current / plain).lexically_normal().string();
        if (plain.size() > 1 && plain.ends_with('/')) plain.pop_back();
        SystemName path(name.c_str());
        expect(isValid ? path.makeAbsolute() && path.view() == plain : !path.valid(), "absolute path", name);
        auto full = [&](char* to, std::uint32_t room) { return systemTree().fullPath(name.c_str(), to, room); };
        filled(full, true, name);
    }
}

bool isShort(const string& name) {
    static regex_t shape;
    static const int compiled = ::regcomp(&shape, "^[A-Z0-9_!#$%&'()@^`{}~-]{1,8}([.][A-Z0-9_!#$%&'()@^`{}~-]{1,3})?$",
                                          REG_EXTENDED | REG_ICASE);
    return compiled == 0 && ::regexec(&shape, name.c_str(), 0, nullptr, 0) == 0;
}

string shortNameOf(const string& name) {
    char text[kShortNameSize];
    platform::shortNameOf(name, text);
    expect((*text == '\0') == isShort(name) && (*text == '\0' || isShort(text)), "short name", name);
    return text;
}

// What answers to a name best: as it is written, in another case, without its end, by its short name.
string plainLook(const std::vector<string>& names, const string& wanted) {
    string best[4], blind = lower(wanted), trimmed(withoutEnd(blind));
    for (const string& name : names) {
        string other = lower(name);
        bool answers[] = {name == wanted, other == blind, other == trimmed,
                          blind.find("~1") != blind.npos && lower(shortNameOf(name)) == blind};
        for (int way = 0; way < 4; ++way) {
            if (answers[way] && best[way].empty()) best[way] = name;
        }
    }
    return *std::find_if(best, best + 3, [](const string& name) { return !name.empty(); });
}

// Files, directories, links and pipes, made without the library; their names in byte order.
std::vector<string> fillDirectory(Random& random) {
    std::set<string> names;
    string last = "first";
    for (std::uint32_t i = random.below(14); i > 0; --i) {
        string name = random.oneIn(3) ? misspelt(random, last) : drawName(random);
        const char* text = name.c_str();
        std::uint32_t kind = random.below(8);
        if (name.find('/') != name.npos) continue;
        int failed = kind == 0   ? ::mkdir(text, 0777)
                     : kind == 1 ? ::symlink(last.c_str(), text)
                                 : ::mknod(text, (kind == 2 ? S_IFIFO : S_IFREG) | 0666, 0);
        if (failed) continue;
        if (kind > 2) std::filesystem::resize_file(name, random.below(1000));
        names.insert(last = name);
    }
    return {names.begin(), names.end()};
}

void lookForNames(Random& random, const std::vector<string>& names) {
    for (int i = 0; i < 10; ++i) {
        string name = names.empty() ? drawName(random) : random.of(names), given = shortNameOf(name);
        string wanted = misspelt(random, random.oneIn(3) && !given.empty() ? given : name);
        SystemName path(wanted.c_str());
        if (!path.valid() || path.view() != wanted || wanted.size() > NAME_MAX || wanted.front() == '.') continue;
        string best = plainLook(names, wanted);
        bool there = path.look() == SystemName::Found::kThere;
        expect(there == !best.empty() && (!there || path.view() == best), "what a name finds", wanted);
    }
}

void search(Random& random, const std::vector<string>& names) {
    string pattern = drawPattern(random, names.empty() ? "a" : random.of(names));
    if (pattern.find(':') != pattern.npos || !hasWildcards(pattern)) return;
    auto matches = [&](const string& name) {
        string given = shortNameOf(name);
        bool isTold = name.find_first_of("\\?*") == name.npos && (name.size() < 2 || name[1] != ':');
        bool byShort = pattern.find('~') != pattern.npos && !given.empty() && plainMatch(pattern, given);
        return isTold && (plainMatch(pattern, name) || byShort);
    };
    std::map<std::pair<string, string>, string> sorted;  // without regard to case
    for (const string& name : names) {
        string upper = name;
        std::transform(upper.begin(), upper.end(), upper.begin(), raised);
        if (matches(name)) sorted[{upper, name}] = name;
    }
    std::vector<string> expected{".", ".."};
    std::erase_if(expected, [&](const string& name) { return !plainMatch(pattern, name); });
    for (const auto& [key, name] : sorted) expected.push_back(name);
    FoundEntry entry{};
    std::int32_t handle = startSearch(pattern.c_str(), entry);
    expect((handle != -1) == !expected.empty(), "whether a search begins", pattern);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        expect(i == 0 || continueSearch(handle, entry), "a search that ends too early", pattern);
        const string& name = expected[i];
        struct stat own = {}, target = {};
        ::lstat(name.c_str(), &own);
        if (::stat(name.c_str(), &target) != 0) target = {};
        expect(entry.name == name && !(entry.attributes & kLink) == !S_ISLNK(own.st_mode) &&
                   !(entry.attributes & kDirectoryEntry) == !S_ISDIR(target.st_mode) &&
                   (!S_ISREG(target.st_mode) || entry.sizeLow == target.st_size) &&
                   (name == "." || name == ".." || entry.shortName == shortNameOf(name)),
               "found entry", name);
        SystemName path(entry.name);
        expect(path.look() == SystemName::Found::kThere && path.view() == name, "a name given back", name);
        // What goes meanwhile is passed over.
        auto next = expected.begin() + static_cast<std::ptrdiff_t>(i) + 1;
        if (next < expected.end() && random.oneIn(16) && std::remove(next->c_str()) == 0) expected.erase(next);
    }
    expect(!continueSearch(handle, entry) && endSearch(handle) == (handle != -1), "the end of a search", pattern);
    expect(!continueSearch(static_cast<std::int32_t>(random.next()), entry), "a made-up search", pattern);
}

void measureVolume(Random& random) {
    volumeFed.f_frsize = 512ul << random.below(22);
    volumeFed.f_blocks = random.next() >> random.below(64);
    volumeFed.f_bavail = (random.next() >> random.below(64)) % (volumeFed.f_blocks | 1);
    DiskSpace space;
    std::uint64_t bytes = 0;
    bool told = systemVolumes().space("C:\\", space) && systemVolumes().freeBytes("C:\\", bytes);
    __extension__ using Exact = unsigned __int128;
    Exact cluster = Exact{space.sectorsPerCluster} * space.bytesPerSector;
    auto isNear = [](Exact is, Exact is_, Exact step) {
        return is <= is_ && is + step >= std::min(is_, Exact{UINT64_MAX});
    };
    Exact total = Exact{volumeFed.f_frsize} * volumeFed.f_blocks, free = Exact{volumeFed.f_frsize} * volumeFed.f_bavail;
    expect(told && isNear(cluster * space.totalClusters, total, cluster) &&
               isNear(cluster * space.freeClusters, free, cluster) && isNear(bytes, free, 0),
           "the space of a volume", std::to_string(volumeFed.f_frsize));
}

// Locale data of the C library with texts of any length and bytes.
void writeByLocale(Random& random) {
    auto feed = [](nl_item item, const string& text) { localeFed[item][text.copy(localeFed[item].data(), 39)] = '\0'; };
    const nl_item separators[] = {RADIXCHAR, THOUSEP, __MON_THOUSANDS_SEP};
    static bool haveSeparators = false;  // they are looked at once
    for (nl_item item : separators) {
        if (!haveSeparators) feed(item, random.oneIn(3) ? "\u2019" : drawName(random).substr(0, random.below(3)));
    }
    haveSeparators = true;
    for (int i = 0; i < 12; ++i) {
        for (nl_item item : {ALTMON_1 + i, _NL_ABALTMON_1 + i, DAY_1 + i % 7}) feed(item, drawName(random));
    }
    feed(_NL_LOCALE_NAME(LC_TIME), "xx_XX");
    feed(T_FMT, drawText(random, "%%%HkIlMSRTrpEO :."));
    auto below = [&](std::uint32_t n) { return static_cast<std::uint16_t>(random.below(n)); };
    Moment moment{below(31000), below(14), 0, below(33), below(25), below(61), below(61), 0};
    Locale& locale = systemLocale();
    string picture = drawText(random, "dMy-/ ");
    auto date = [&](char* to, std::uint32_t room) { return locale.formatDate(moment, picture.c_str(), to, room); };
    auto time = [&](char* to, std::uint32_t room) { return locale.formatTime(moment, to, room); };
    filled(date, false, picture);
    filled(time, false, localeFed[T_FMT].data());

    auto name = [](nl_item first, std::uint16_t month) {
        string text = localeFed[first + month - 1].data();
        text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
        return text.substr(0, text.find_last_not_of(' ') + 1);
    };
    moment = {2001, static_cast<std::uint16_t>(1 + below(12)), 0, 3, 9, 5, 3, 0};
    string full = name(ALTMON_1, moment.month);
    picture = "MMM/MMMM";
    expect(filled(date, false, picture) == name(_NL_ABALTMON_1, moment.month) + "/" + full, "names of a month", full);
    // Cut behind a whole character.
    char part[40];
    std::size_t size = 1 + below(39);
    locale.formatDate(moment, "MMMM", part, static_cast<std::uint32_t>(size));
    while (size > 1 && size <= full.size() && (full[size - 1] & 0xC0) == 0x80) --size;
    expect(part == full.substr(0, size - 1), "a name that is cut", full);
    for (auto [format, text] :
         {std::pair("%I:%M:%S.%p %Z", "9:05:03"), {"%H點%M分%S秒", "09點05分03秒"}, {"ཚོད%Hམ%Mཆ%S", "ཚོད09མ05ཆ03"}}) {
        feed(T_FMT, format);
        expect(filled(time, false, format) == text, "a time", format);
    }

    string digits = drawText(random, "0123456789-.");
    auto format = [&](char* to, std::uint32_t room) { return locale.formatNumber(digits.c_str(), to, room); };
    filled(format, false, digits);
    std::uint64_t number = random.next() >> random.between(14, 60);  // with four decimals
    digits = std::to_string(number / 10000) + std::to_string(number % 10000 + 10000).replace(0, 1, ".");
    digits += string(random.below(80), '0');
    auto separator = [](nl_item item, char empty, char longer) {
        const char* fed = localeFed[item].data();
        return !*fed ? empty : string_view(fed) == "\u2019" ? '\'' : fed[1] ? longer : *fed;
    };
    const char point = separator(RADIXCHAR, '.', '.');
    char group = separator(THOUSEP, separator(__MON_THOUSANDS_SEP, '\0', ' '), ' ');
    if (group == point) group = '\0';
    number = (number + 50) / 100;
    string text = std::to_string(number % 100 + 100).replace(0, 1, 1, point);
    string whole = std::to_string(number / 100);
    for (std::size_t i = 0; i < whole.size(); ++i) {
        if (i > 0 && i % 3 == 0 && group) text.insert(0, 1, group);
        text.insert(0, 1, whole[whole.size() - 1 - i]);
    }
    expect(filled(format, false, digits) == text, "a number", digits);
}

void turnClocks(Random& random) {
    constexpr const char* kZones[] = {"Pacific/Apia",
                                      "Africa/Monrovia",
                                      "Asia/Manila",
                                      "America/St_Johns",
                                      "CET-1CEST,M3.5.0,M10.5.0/3",
                                      "<+1245>-12:45<+1345>,M9.5.0/2:45,M4.1.0/3:45"};
    bool isHostile = random.oneIn(4);
    string zone = isHostile ? drawText(random, "ABC<>+-0123456789:,./MJ") : random.of(kZones);
    ::setenv("TZ", zone.c_str(), 1);
    ::tzset();
    auto offsetAt = [](time_t time) {
        tm local{};
        ::localtime_r(&time, &local);
        return local.tm_gmtoff;
    };
    // Near the next change of clocks, where there is one within a year.
    constexpr time_t kDay = 86400;
    time_t time = time_t{random.below(2'000'000'000)} * (random.oneIn(8) ? 100 : 5) - kSecondsTo1970 + 2 * kDay;
    for (time_t end = time + 366 * kDay; time < end && offsetAt(time) == offsetAt(time + kDay);) time += kDay;
    for (time_t step = kDay / 2; step > 0; step /= 2) time += offsetAt(time) == offsetAt(time + step) ? step : 0;
    time += random.between(-10000, 10000);
    string given = zone + " " + std::to_string(time);

    Clock& clock = systemClock();
    FileTime stamp = static_cast<FileTime>(time + kSecondsTo1970) * kStepsPerSecond + random.below(1000) * 10000u;
    Moment moment, again;
    FileTime back = 0;
    auto turns = [&] { return clock.toFileTime(moment, back) && clock.toLocalTime(back, again); };
    bool works = clock.toLocalTime(stamp, moment) && isDate(moment) && isTimeOfDay(moment);
    expect(works && turns(), "local time", given);
    if (isHostile) return;
    std::chrono::sys_seconds local{std::chrono::seconds(time + offsetAt(time))};
    auto day = std::chrono::floor<std::chrono::days>(local);
    int second = (moment.hour * 60 + moment.minute) * 60 + moment.second;
    expect(dateOf(moment) == day && second == (local - day).count(), "the local date", given);
    expect(back <= stamp && again == moment, "there and back", given);
    for (FileTime minutes : {20, 30, 60, 120, 1440}) {
        bool isSame = clock.toLocalTime(back - minutes * 60 * kStepsPerSecond, again) && again == moment;
        expect(!isSame, "the first of two", given);
    }
    moment.minute = static_cast<std::uint16_t>(random.below(60));
    auto order = [](const Moment& m) { return std::tuple(m.year, m.month, m.day, m.hour, m.minute, m.second); };
    expect(turns() && order(again) >= order(moment), "what is skipped lies behind", given);
}

void runRound(Random random, const std::filesystem::path& directory) {
    std::filesystem::create_directory(directory);
    std::filesystem::current_path(directory);
    matchWildcards(random);
    resolveNames(random, directory);
    std::vector<string> names = fillDirectory(random);
    lookForNames(random, names);
    search(random, names);
    measureVolume(random);
    writeByLocale(random);
    turnClocks(random);
    std::filesystem::current_path(directory.parent_path());
    std::filesystem::remove_all(directory);
}

int run(int argc, char** argv) {
    std::uint64_t rounds = 500, seconds = 0;
    CLI::App app("Random and hostile names, patterns, volumes, locales and clocks for the platform of Linux.");
    app.add_option("--seed", seed, "The seed (1)");
    app.add_option("--round", round, "The first round (1)");
    app.add_option("--rounds", rounds, "So many rounds at least (500)");
    app.add_option("--seconds", seconds, "For so long at least (0)");
    CLI11_PARSE(app, argc, argv);
    test::Workplace place;
    std::signal(SIGALRM, [](int) { expect(false, "more than 20 seconds", ""); });
    time_t end = ::time(nullptr) + static_cast<time_t>(seconds);
    for (std::uint64_t done = 0; done < rounds || ::time(nullptr) < end; ++done, ++round) {
        ::alarm(20);
        runRound(Turn{seed, round, 0}.randomFor("the platform"), place.native("directory"));
    }
    std::printf("linux platform: up to round %ju, seed %ju\n", std::uintmax_t{round - 1}, std::uintmax_t{seed});
    return 0;
}

}  // namespace
}  // namespace vx::fuzz

// NOLINTNEXTLINE(bugprone-exception-escape): lack of memory may end it
int main(int argc, char** argv) { return vx::fuzz::run(argc, argv); }
