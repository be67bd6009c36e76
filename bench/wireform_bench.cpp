// Wire conversion of each record kind, as the queries apply it to every
// record they send. Each iteration copies a host-form record and converts
// the copy; BM_record_copy is that copy alone.
#include <benchmark/benchmark.h>

#include <cstring>

#include "plan/almrecs.h"
#include "queries/wireform.h"
#include "util/endian.h"

namespace alm {
namespace {

// A record with every byte set, so that no conversion finds zeros only;
// a dependency count of 8 as in the busier records of a plan.
ALMRECTYPE sample(std::int16_t code) {
    ALMRECTYPE r;
    for (std::size_t i = 0; i < sizeof r.bytes; ++i) r.bytes[i] = static_cast<unsigned char>(i * 7 + 1);
    r.alm_rec_type = code;
    if (code == SS_CODE) r.ss.ss_num_depends = 8;
    if (code == SJ_CODE) r.sj.sj_num_depends = 8;
    return r;
}

template <class Fn>
void convert(benchmark::State& state, std::int16_t code, Fn fn) {
    const ALMRECTYPE source = sample(code);
    ALMRECTYPE work;
    for (auto _ : state) {
        std::memcpy(&work, &source, sizeof work);
        fn(work);
        benchmark::DoNotOptimize(work.bytes);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * ALM_REC_SIZE_V2);
}

void BM_record_copy(benchmark::State& s) {
    convert(s, SJ_CODE, [](ALMRECTYPE&) {});
}
void BM_ConvertCpuReply(benchmark::State& s) {
    convert(s, SCI_CODE, [](ALMRECTYPE& r) { ConvertCpuReply(r.bytes); });
}
void BM_ConvertScheduleReply(benchmark::State& s) {
    convert(s, SS_CODE, [](ALMRECTYPE& r) { ConvertScheduleReply(r.bytes); });
}
void BM_ConvertJobReply(benchmark::State& s) {
    convert(s, SJ_CODE, [](ALMRECTYPE& r) { ConvertJobReply(r.bytes); });
}
void BM_ConvertSchedule(benchmark::State& s) {
    convert(s, SS_CODE, [](ALMRECTYPE& r) { ConvertSchedule(&r.ss); });
}
void BM_ConvertJob(benchmark::State& s) {
    convert(s, SJ_CODE, [](ALMRECTYPE& r) { ConvertJob(&r.sj); });
}
void BM_ConvertPrompt(benchmark::State& s) {
    convert(s, SM_CODE, [](ALMRECTYPE& r) { ConvertPrompt(&r.sm); });
}
void BM_ConvertFile(benchmark::State& s) {
    convert(s, SF_CODE, [](ALMRECTYPE& r) { ConvertFile(&r.sf); });
}
void BM_ConvertResource(benchmark::State& s) {
    convert(s, SR_CODE, [](ALMRECTYPE& r) { ConvertResource(&r.sr); });
}

BENCHMARK(BM_record_copy);
BENCHMARK(BM_ConvertCpuReply);
BENCHMARK(BM_ConvertScheduleReply);
BENCHMARK(BM_ConvertJobReply);
BENCHMARK(BM_ConvertSchedule);
BENCHMARK(BM_ConvertJob);
BENCHMARK(BM_ConvertPrompt);
BENCHMARK(BM_ConvertFile);
BENCHMARK(BM_ConvertResource);

}  // namespace
}  // namespace alm
