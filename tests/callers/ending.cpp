// A program that calls the library while it ends: from an exit handler, from a global object's destructor and, where it
// is given the plugin, from that one's destructor, which runs when the library's own end is over.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

#include "vexlor32.h"

#if !defined(_WIN32)
#include <dlfcn.h>
#endif

namespace {

constexpr size_t kRoom = 0x10000;
constexpr uint32_t kReadWrite = 2;

// What is used at the end must not be destroyed before.
char folder[kRoom], textsBefore[kRoom];
int32_t file;
uint32_t table;
bool endsInPlugin = false;
int failures = 0;

void check(bool holds, const char* when, const char* what) {
    if (holds) return;
    std::printf("failed: %s: %s\n", when, what);
    ++failures;
}

std::string in(const char* name) { return std::string(folder) + name; }

// What the library keeps for itself once it was asked: the locale's texts and the command line.
std::string texts() {
    static char room[kRoom];
    std::string all;
    auto add = [&all](const char* text) { all.append(text) += '|'; };
    add(Dtow(2450000, room));
    add(NumToMonth(2, room));
    add(IntToTime(13, 14, 15, room));
    add(Comma("1234567", room));
    add(Command(room));
    add(Arg(1, room));
    add(Param("-par", room));
    return all;
}

void callAll(const char* when, bool filesAreOpen) {
    check(texts() == textsBefore, when, "texts");
    check(FWrite(file, "abc", 3) == (filesAreOpen ? 3 : -1), when, "the file from before");
    check((DbfAppend(table, 1) != 0) == filesAreOpen, when, "the table from before");

    const std::string name = in("new.txt"), tableName = in("new.dbf");
    int32_t made = FCreate(name.c_str(), 0);
    check(FWrite(made, "abc", 3) == 3 && FClose(made), when, "a new file");
    static char found[kRoom];
    check(*FileFind("new.txt", folder, found) != '\0' && FErase(name.c_str()) == 0, when, "found again");
    uint32_t created = DbfStrCreate(tableName.c_str(), "NAME,C,20");
    check(DbfAppend(created, 1) == 1 && DbfClose(created) == 0, when, "a new table");
    uint32_t opened = DbfOpen(tableName.c_str(), kReadWrite);
    check(DbfLastrec(opened) == 1 && DbfClose(opened) == 0 && FErase(tableName.c_str()) == 0, when, "opened again");
}

[[noreturn]] void end() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    std::fflush(stdout);
    std::_Exit(failures != 0);
}

void inExitHandler() { callAll("exit handler", true); }

#if !defined(_WIN32)
void behindTheLibrary() {
    callAll("behind the library's end", false);
    end();
}
#endif

struct Global {
    ~Global() {
        callAll("global destructor", true);
        if (!endsInPlugin) end();
    }
} global;

}  // namespace

int main(int argc, char** argv) {
    std::atexit(inExitHandler);
    std::string name = (std::filesystem::temp_directory_path() / "vexlor-ending").string();
    name += std::to_string(reinterpret_cast<uintptr_t>(&argc) & 0xFFFFFF);
    std::filesystem::create_directories(name);
    std::strcpy(folder, (name + (name.find('/') == name.npos ? '\\' : '/')).c_str());

#if !defined(_WIN32)
    setenv("LC_ALL", "C.UTF-8", 1);  // one that is not built in
    if (argc > 2) {
        void* plugin = dlopen(argv[1], RTLD_NOW);
        if (!plugin) return puts(dlerror()), 2;
        using CallAtEnd = void (*)(void (*)());
        CallAtEnd callAtEnd = reinterpret_cast<CallAtEnd>(dlsym(plugin, "call_at_end"));
        if (!callAtEnd) return puts(dlerror()), 2;
        callAtEnd(behindTheLibrary);
        endsInPlugin = true;
    }
#else
    (void)argv;
#endif

    std::strcpy(textsBefore, texts().c_str());
    file = FCreate(in("kept.txt").c_str(), 0);
    table = DbfStrCreate(in("kept.dbf").c_str(), "NAME,C,20");
    check(file != -1 && table != 0 && std::strstr(textsBefore, "ameter"), "main", "files and texts");
    return 3;  // unless the last call says otherwise
}
