// The name matcher every lookup calls once per record it passes.
#include <benchmark/benchmark.h>

#include <cstring>

#include "util/patmatch.h"

namespace alm {
namespace {

// A job name field as the plan holds it: 40 bytes, blank-padded.
struct Field {
    char bytes[40];
    explicit Field(const char* name) {
        std::memset(bytes, ' ', sizeof bytes);
        std::memcpy(bytes, name, std::strlen(name));
    }
};

void match(benchmark::State& state, const char* name, const char* pattern) {
    const Field field(name);
    const int patlen = static_cast<int>(std::strlen(pattern));
    for (auto _ : state) {
        benchmark::DoNotOptimize(c_patternmatch(field.bytes, pattern, sizeof field.bytes, patlen));
    }
}

void BM_c_patternmatch_exact(benchmark::State& s) { match(s, "J0000200", "J0000200"); }
void BM_c_patternmatch_miss_first(benchmark::State& s) { match(s, "J0000200", "NEEDLE"); }
void BM_c_patternmatch_miss_last(benchmark::State& s) { match(s, "J0000200", "J0000201"); }
void BM_c_patternmatch_at(benchmark::State& s) { match(s, "J0000200", "@"); }
void BM_c_patternmatch_empty(benchmark::State& s) { match(s, "J0000200", ""); }
void BM_c_patternmatch_prefix_at(benchmark::State& s) { match(s, "J0000200", "J00@"); }
void BM_c_patternmatch_at_suffix(benchmark::State& s) { match(s, "J0000200", "@200"); }
void BM_c_patternmatch_digits(benchmark::State& s) { match(s, "J0000200", "J%%%%%%%"); }
void BM_c_patternmatch_long_retry(benchmark::State& s) {
    match(s, "AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAB", "@AAAAAAAAAAAAAAAAAAAAC");
}

BENCHMARK(BM_c_patternmatch_exact);
BENCHMARK(BM_c_patternmatch_miss_first);
BENCHMARK(BM_c_patternmatch_miss_last);
BENCHMARK(BM_c_patternmatch_at);
BENCHMARK(BM_c_patternmatch_empty);
BENCHMARK(BM_c_patternmatch_prefix_at);
BENCHMARK(BM_c_patternmatch_at_suffix);
BENCHMARK(BM_c_patternmatch_digits);
BENCHMARK(BM_c_patternmatch_long_retry);

}  // namespace
}  // namespace alm
