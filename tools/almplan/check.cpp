// `almplan check PLAN`: walks every chain of the plan and prints one line
// per problem, "PLAN: what is wrong". Exit 0 when there is none, 1 when
// there is (or the file cannot be read), 2 for bad usage.
#include "check.h"

#include <cstdio>
#include <cstring>
#include <string>

#include "plan/plancheck.h"

namespace alm {
namespace {

// Past this many lines only the number of further problems is told.
constexpr unsigned long kMaxLines = 1000;

}  // namespace

int almplan_check(int argc, char** argv) {
    if (argc != 2 || argv[1][0] == '\0' || (argv[1][0] == '-' && argv[1][1] != '\0')) {
        std::fputs("almplan: check takes one PLAN\nUsage: almplan check PLAN\n", stderr);
        return 2;
    }
    const std::string path = argv[1];
    unsigned long found = 0;
    auto onProblem = [&](const std::string& problem) {
        if (++found <= kMaxLines) std::printf("%s: %s\n", path.c_str(), problem.c_str());
        return true;
    };
    std::string error;
    const PlanCheckStatus status = check_plan(path, PlanCheckOptions{}, onProblem, error);
    if (found > kMaxLines) std::printf("%s: and %lu more problems\n", path.c_str(), found - kMaxLines);
    if (std::fflush(stdout) != 0) {
        std::perror("almplan: write");
        return 1;
    }
    if (status == PlanCheckStatus::Unreadable) {
        std::fprintf(stderr, "almplan: %s: %s\n", path.c_str(), error.c_str());
        return 1;
    }
    return status == PlanCheckStatus::Sound ? 0 : 1;
}

bool report_damage(const char* path) {
    std::string first;
    auto onProblem = [&](const std::string& problem) {
        first = problem;
        return false;
    };
    std::string error;
    if (check_plan(path, PlanCheckOptions{}, onProblem, error) != PlanCheckStatus::Damaged) return false;
    std::fprintf(stderr, "almplan: %s is damaged: %s (almplan check lists every problem)\n", path, first.c_str());
    return true;
}

}  // namespace alm
