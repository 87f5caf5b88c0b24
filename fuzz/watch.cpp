#include "fuzz/watch.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

#include "fuzz/report.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <unistd.h>
#endif
#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif

namespace vx::fuzz {
namespace {

constexpr int kMostSeconds = 10;

std::atomic<const Call*> running{nullptr};
std::atomic<const char*> runningFor{""};
std::atomic<std::uint64_t> begun{0};
std::atomic<bool> stackUsedUp{false};
std::atomic_flag told;

// A static one: the stack may be what has run out.
Report report;

void tell(std::string_view what, const void* address) {
    if (told.test_and_set()) return;
    report << "\nrandom caller: " << what;
    if (const Call* call = running) {
        report << " in a call made as " << runningFor.load() << "\n";
        report.describe(*call, false);
        if (address) report.locate(*call, address);
    } else {
        report << ", between calls\n";
    }
    report.write();
}

[[noreturn]] void tellAndEnd(std::string_view what, const void* address) {
    tell(what, address);
    std::_Exit(1);
}

void onAbort(int) { tellAndEnd("abort", nullptr); }

#if defined(_WIN32)

LONG CALLBACK onException(EXCEPTION_POINTERS* exception) {
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    // Only the codes that mean an error: others are a debugger's and the runtime's affair.
    if ((record.ExceptionCode & 0xF0000000u) != 0xC0000000u) return EXCEPTION_CONTINUE_SEARCH;
    if (record.ExceptionCode == EXCEPTION_STACK_OVERFLOW) {
        stackUsedUp = true;  // the other thread has stack left to tell it
        Sleep(INFINITE);
    }
    bool hasAddress = record.ExceptionCode == EXCEPTION_ACCESS_VIOLATION && record.NumberParameters >= 2;
    tellAndEnd(hasAddress ? "access violation" : "crash",
               hasAddress ? reinterpret_cast<const void*>(record.ExceptionInformation[1]) : nullptr);
}

void catchCrashes() {
    AddVectoredExceptionHandler(1, onException);
    std::signal(SIGABRT, onAbort);
}

#elif defined(__SANITIZE_ADDRESS__)

// The sanitizers' own handlers tell more about the place; this adds the call.
void catchCrashes() {
    __sanitizer_set_death_callback([] { tell("sanitizer's complaint", nullptr); });
    std::signal(SIGABRT, onAbort);
}

#else

void onSignal(int number, siginfo_t* info, void*) {
    bool hasAddress = number == SIGSEGV || number == SIGBUS;
    tellAndEnd(hasAddress ? "access to inaccessible memory" : "crash", hasAddress ? info->si_addr : nullptr);
}

void catchCrashes() {
    static char ownStack[1 << 16];  // works after the call has used up its own
    stack_t stack{};
    stack.ss_sp = ownStack;
    stack.ss_size = sizeof ownStack;
    sigaltstack(&stack, nullptr);
    struct sigaction action {};
    action.sa_sigaction = onSignal;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    for (int number : {SIGSEGV, SIGBUS, SIGFPE, SIGILL}) sigaction(number, &action, nullptr);
    std::signal(SIGABRT, onAbort);
}

#endif

// Counts the seconds in which no other call has begun.
void catchHangs() {
    std::uint64_t last = 0;
    int seconds = 0;
    for (;;) {
        std::this_thread::sleep_for(std::chrono::seconds(1));
        if (stackUsedUp) tellAndEnd("stack overflow", nullptr);
        std::uint64_t now = begun;
        seconds = now == last && running ? seconds + 1 : 0;
        last = now;
        if (seconds > kMostSeconds) tellAndEnd("more than 10 seconds", nullptr);
    }
}

}  // namespace
}  // namespace vx::fuzz

#if defined(__SANITIZE_ADDRESS__)
// The undefined-behaviour sanitizer knows nothing of the death callback: its way to the call is an abort.
extern "C" __attribute__((visibility("default"))) const char* __ubsan_default_options() {
    return "abort_on_error=1:print_stacktrace=1";
}
#endif

namespace vx::fuzz {

void watch() {
    catchCrashes();
    std::thread(catchHangs).detach();
}

void beginCall(const Call& call, const char* purpose) {
    runningFor = purpose;
    ++begun;
    running = &call;
}

void endCall() { running = nullptr; }

}  // namespace vx::fuzz
