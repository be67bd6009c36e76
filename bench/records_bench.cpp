// Reading plan records: one alm_read (position check, pread, conversion to
// the caller's form) and the conversion alone, for V2 and V1 records.
#include <benchmark/benchmark.h>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "plan/almaccs.h"
#include "plan/almforms.h"
#include "plan/almrecs.h"

namespace alm {
namespace {

constexpr std::uint32_t kJobs = 4096;
constexpr std::int32_t kDay = 1795392000;  // a day epoch in 2026

// A V2 plan of a header and kJobs job records in a temporary file, removed
// when the benchmarks end.
class PlanFile {
public:
    PlanFile() {
        char name[] = "/tmp/almbench-XXXXXX";
        const int fd = ::mkstemp(name);
        if (fd < 0) std::abort();
        path_ = name;
        ALMRECTYPE rec{};
        std::memset(rec.bytes, ' ', sizeof rec.bytes);
        rec.sh.alm_rec_type = SH_CODE;
        rec.sh.sh_alm_version = 1;
        rec.sh.sh_first_sched = NULL_REC;
        write(fd, rec);
        for (std::uint32_t i = 1; i <= kJobs; ++i) {
            std::memset(rec.bytes, ' ', sizeof rec.bytes);
            rec.sj.alm_rec_type = SJ_CODE;
            rec.sj.sj_rec_num = i;
            rec.sj.sj_sched_date = kDay;
            rec.sj.sj_start_time = 600;
            rec.sj.sj_until_date = kDay;
            rec.sj.sj_until_time = 1730;
            rec.sj.sj_date_started = kDay;
            rec.sj.sj_time_started = 612;
            rec.sj.sj_num_depends = 0;
            write(fd, rec);
        }
        ::close(fd);
    }
    ~PlanFile() { ::unlink(path_.c_str()); }
    const std::string& path() const { return path_; }

private:
    static void write(int fd, const ALMRECTYPE& rec) {
        if (::write(fd, rec.bytes, sizeof rec.bytes) != static_cast<ssize_t>(sizeof rec.bytes)) std::abort();
    }
    std::string path_;
};

const PlanFile& plan() {
    static const PlanFile file;
    return file;
}

alm_session open_plan() {
    int status = 0;
    char errtext[ALM_ERRTEXT_SIZE];
    alm_session s = alm_open_session(plan().path().c_str(), ALM_MODE_READ, &status, errtext);
    if (!s) std::abort();
    return s;
}

void BM_alm_read(benchmark::State& state) {
    alm_session s = open_plan();
    ALMRECTYPE rec;
    std::uint32_t n = 1;
    for (auto _ : state) {
        benchmark::DoNotOptimize(alm_read(s.get(), n, &rec));
        n = n == kJobs ? 1 : n + 1;
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * ALM_REC_SIZE_V2);
}

void BM_alm_read_job(benchmark::State& state) {
    alm_session s = open_plan();
    SJ_RECTYPE sj;
    std::uint32_t n = 1;
    for (auto _ : state) {
        benchmark::DoNotOptimize(alm_read_job(s.get(), n, &sj));
        n = n == kJobs ? 1 : n + 1;
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * ALM_REC_SIZE_V2);
}

// The same reads inside a read-ahead scope, as the queries make them.
void BM_alm_read_job_read_ahead(benchmark::State& state) {
    alm_session s = open_plan();
    const alm_read_ahead ahead(s.get());
    SJ_RECTYPE sj;
    std::uint32_t n = 1;
    for (auto _ : state) {
        benchmark::DoNotOptimize(alm_read_job(s.get(), n, &sj));
        n = n == kJobs ? 1 : n + 1;
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * ALM_REC_SIZE_V2);
}

// What a record costs beyond the system call: the same record again and
// again, always in the page cache and the processor's caches.
void BM_pread_record(benchmark::State& state) {
    alm_session s = open_plan();
    ALMRECTYPE rec;
    for (auto _ : state) {
        benchmark::DoNotOptimize(::pread(s->fnum, rec.bytes, sizeof rec.bytes, ALM_REC_SIZE_V2));
    }
}

ALMRECTYPE_INT v2_job() {
    ALMRECTYPE_INT r;
    std::memset(r.bytes, ' ', sizeof r.bytes);
    r.v2.sj.alm_rec_type = SJ_CODE;
    r.v2.sj.sj_sched_date = kDay;
    r.v2.sj.sj_start_time = 600;
    r.v2.sj.sj_until_date = kDay;
    r.v2.sj.sj_date_started = kDay;
    return r;
}

ALMRECTYPE_INT v1_job() {
    ALMRECTYPE_INT r;
    std::memset(r.bytes, ' ', sizeof r.bytes);
    r.sj.alm_rec_type = SJ_CODE;
    return r;
}

void i_2_e(benchmark::State& state, const ALMRECTYPE_INT& in, std::int16_t version) {
    ALMRECTYPE out;
    for (auto _ : state) {
        benchmark::DoNotOptimize(alm_i_2_e(&in, &out, version));
        benchmark::ClobberMemory();
    }
}

void BM_alm_i_2_e_job_v2(benchmark::State& state) { i_2_e(state, v2_job(), 1); }
void BM_alm_i_2_e_job_v1(benchmark::State& state) { i_2_e(state, v1_job(), 0); }

BENCHMARK(BM_alm_read);
BENCHMARK(BM_alm_read_job);
BENCHMARK(BM_alm_read_job_read_ahead);
BENCHMARK(BM_pread_record);
BENCHMARK(BM_alm_i_2_e_job_v2);
BENCHMARK(BM_alm_i_2_e_job_v1);

}  // namespace
}  // namespace alm
