// Synthetic plans of any size for tests and measurements: workstations,
// schedules and jobs named by number, with an optional realistic mix of
// dependencies and restart chains. The same options give the same file.
#pragma once

#include <cstdint>
#include <string>

#include "civil.h"

namespace alm {

struct SynthOptions {
    std::uint32_t cpus = 0;    // workstations; the first is the master
    std::uint32_t scheds = 0;  // schedules per workstation
    std::uint32_t jobs = 0;    // jobs per schedule
    bool deps = false;         // prompts, files, resources, dependencies, restart chains
    std::int16_t alm_version = 1;
    CivilDate date{2026, 11, 22};  // the production day
};

// Refuses sizes the format cannot hold (16-bit counts, V1 record numbers)
// with `err` saying which; on failure nothing is written.
bool synth_plan(const SynthOptions& opt, const std::string& out, std::string& err);

}  // namespace alm
