#include "damage.h"

#include <thread>

#include "plan/plancheck.h"

namespace alm {
namespace {

PlanCheckStatus first_problem(const std::string& path, bool withJobs, std::string& problem) {
    PlanCheckOptions options;
    options.jobChains = withJobs;
    options.counts = false;
    options.wholeRecords = false;
    auto onProblem = [&](const std::string& text) {
        problem = text;
        return false;
    };
    std::string error;
    return check_plan(path, options, onProblem, error);
}

}  // namespace

bool plan_damaged(const std::string& path, bool withJobs, std::string& problem) {
    if (first_problem(path, withJobs, problem) != PlanCheckStatus::Damaged) return false;
    // The scheduler updates a plan in place; a chain caught half relinked
    // is whole again a moment later, damage stays.
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    return first_problem(path, withJobs, problem) == PlanCheckStatus::Damaged;
}

}  // namespace alm
