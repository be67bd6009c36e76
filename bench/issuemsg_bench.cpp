// Formatting a numbered message from the product's catalogs into a buffer,
// as every failed plan open does for its reply.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>

#include "messages/issuemsg.h"
#include "util/stdfuncs.h"

namespace alm {
namespace {

// The build tree is a home: its catalog/ holds the compiled catalogs.
void use_build_home() {
    ::setenv("LANG", "C", 1);
    ::unsetenv("LC_ALL");
    ::unsetenv("LC_MESSAGES");
    ::unsetenv("NLSPATH");
    std::snprintf(QUAL_HOMEDIR, sizeof QUAL_HOMEDIR, "%s", ALM_BUILD_DIR);
}

void BM_issuemsgtobuf_plan_error(benchmark::State& state) {
    use_build_home();
    char buf[IM_BUFSIZE];
    for (auto _ : state) {
        short len = -1;
        issuemsgtobuf(buf, &len, 2072, 35, MSG_STR, "/home/ops/schedlog/Almanack", MSG_INT, 2, MSG_INT, 19026,
                      MSG_INT, 18770, MSG_INT, 417, MSG_END);
        benchmark::DoNotOptimize(buf);
    }
}

void BM_issuemsgtobuf_no_args(benchmark::State& state) {
    use_build_home();
    char buf[IM_SHORTBUF];
    for (auto _ : state) {
        short len = 0;
        issuemsgtobuf(buf, &len, 2072, 7, MSG_END);
        benchmark::DoNotOptimize(buf);
    }
}

BENCHMARK(BM_issuemsgtobuf_plan_error);
BENCHMARK(BM_issuemsgtobuf_no_args);

}  // namespace
}  // namespace alm
