// A case measured twice in one run: through the library's export and with the best plain alternative.
#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <utility>
#include <vector>

namespace vx::bench {

// Registers `name/ours` and `name/peer`; each of the two does the work once and returns something to keep.
// `bytes` (0 for none) is what one pass reads, for a rate.
template <class Ours, class Peer>
void pair(const std::string& name, std::size_t bytes, Ours ours, Peer peer) {
    auto measured = [bytes](auto work) {
        return [bytes, work](benchmark::State& state) mutable {
            benchmark::DoNotOptimize(work());  // what the first call prepares is not measured
            for (auto _ : state) benchmark::DoNotOptimize(work());
            if (bytes) state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
        };
    };
    benchmark::RegisterBenchmark((name + "/ours").c_str(), measured(std::move(ours)));
    benchmark::RegisterBenchmark((name + "/peer").c_str(), measured(std::move(peer)));
}

// A family's cases: static const Cases cases([] { pair(...); });
// They are registered once the library has been loaded, so that they can keep its functions' addresses.
class Cases {
 public:
    explicit Cases(void (*add)()) { all().push_back(add); }

    static void registerAll() {
        for (void (*add)() : all()) add();
    }

 private:
    static std::vector<void (*)()>& all() {
        static std::vector<void (*)()> list;
        return list;
    }
};

}  // namespace vx::bench
