// A structural check of a plan file, read as raw records (both formats):
// the header is a header of a known format, the file holds whole records,
// and every chain the header starts (workstations, domains, schedules with
// their jobs, prompts, files, resources, calendars, strings) stays within
// the file, links only records of its kind, never loops, has back pointers
// that agree and ends where the header (or the schedule) says; counts agree
// with the chains. Memory is one bit per record whatever the plan's size.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace alm {

struct PlanCheckOptions {
    bool jobChains = true;     // walk the job chain of every schedule
    bool counts = true;        // compare the header's and schedules' counts
    bool wholeRecords = true;  // a partial last record is a problem (not while a file grows)
};

enum class PlanCheckStatus { Sound, Damaged, Unreadable };

// Receives each problem as one line of text; answers false to stop early.
using PlanProblemFn = std::function<bool(const std::string& problem)>;

// Checks the plan at path. Unreadable: the file could not be opened or
// read, with the reason in error.
PlanCheckStatus check_plan(const std::string& path, const PlanCheckOptions& options, const PlanProblemFn& onProblem,
                           std::string& error);

}  // namespace alm
