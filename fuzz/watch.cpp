#include "fuzz/watch.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <thread>

#if defined(_WIN32)
#include <io.h>
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
std::atomic_flag told;

// Allocates nothing and uses no stream: the heap may be what is broken.
void tell(const char* what) {
    if (told.test_and_set()) return;
    static char text[512];  // the stack may be what has run out
    int size = std::snprintf(text, sizeof text, "\nrandom caller: %s between calls\n", what);
    if (const Call* call = running) {
        const Turn& turn = call->plan().turn;
        size = std::snprintf(text, sizeof text,
                             "\nrandom caller: %s in a call of %s made as %s\n  again: --seed %llu --round %llu "
                             "(and --only %s, unless the calls before it matter; --print tells its arguments)\n",
                             what, call->entry().main(), runningFor.load(), static_cast<unsigned long long>(turn.seed),
                             static_cast<unsigned long long>(turn.round), call->plan().drawnFor->main());
    }
    [[maybe_unused]] auto written = ::write(2, text, static_cast<unsigned>(size));
}

[[noreturn]] void tellAndEnd(const char* what) {
    tell(what);
    std::_Exit(1);
}

void onSignal(int) { tellAndEnd("crash"); }

#if defined(_WIN32)

LONG CALLBACK onException(EXCEPTION_POINTERS* exception) {
    DWORD code = exception->ExceptionRecord->ExceptionCode;
    if (code == EXCEPTION_STACK_OVERFLOW) Sleep(INFINITE);  // the other thread has stack left to tell it
    // Only the codes that mean an error: others are a debugger's and the runtime's affair.
    if ((code & 0xF0000000u) == 0xC0000000u) tellAndEnd("crash");
    return EXCEPTION_CONTINUE_SEARCH;
}

void catchCrashes() { AddVectoredExceptionHandler(1, onException); }

#elif defined(__SANITIZE_ADDRESS__)

// The sanitizers' own handlers tell more about the place; this adds the call.
void catchCrashes() {
    __sanitizer_set_death_callback([] { tell("sanitizer's complaint"); });
}

#else

void catchCrashes() {
    static char ownStack[1 << 16];  // works after the call has used up its own
    stack_t stack{};
    stack.ss_sp = ownStack;
    stack.ss_size = sizeof ownStack;
    sigaltstack(&stack, nullptr);
    struct sigaction action {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_ONSTACK;
    for (int number : {SIGSEGV, SIGBUS, SIGFPE, SIGILL}) sigaction(number, &action, nullptr);
}

#endif

// Counts the seconds in which no other call has begun.
void catchHangs() {
    std::uint64_t last = 0;
    for (int seconds = 0; seconds <= kMostSeconds;) {
        std::this_thread::sleep_for(std::chrono::seconds(1));
        seconds = begun == last && running ? seconds + 1 : 0;
        last = begun;
    }
    tellAndEnd("more than 10 seconds");
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
    std::signal(SIGABRT, onSignal);
    std::thread(catchHangs).detach();
}

void beginCall(const Call& call, const char* purpose) {
    runningFor = purpose;
    ++begun;
    running = &call;
}

void endCall() { running = nullptr; }

}  // namespace vx::fuzz
