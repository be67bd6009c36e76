// Status words of schedules and jobs in a description, their codes, and the
// schedule total (ss_num_...) that counts a job in each state.
#pragma once

#include <cstdint>
#include <string_view>

namespace alm {

struct JobState {
    const char* word;
    std::int16_t code;
    const char* counter;  // schedule field that counts jobs in this state, or null
};

inline constexpr std::int16_t STATE_HOLD = 1;  // new schedules and jobs
inline constexpr std::int16_t STATE_READY = 2;
inline constexpr std::int16_t STATE_EXEC = 3;
inline constexpr std::int16_t STATE_SUCC = 4;
inline constexpr std::int16_t STATE_ABEND = 5;
inline constexpr std::int16_t STATE_FAIL = 6;
inline constexpr std::int16_t STATE_SKEL = 7;
inline constexpr std::int16_t STATE_CANCL = 8;

// The schedule totals named in the table, each once.
inline constexpr const char* STATE_COUNTERS[] = {"ss_num_notrun", "ss_num_exec",   "ss_num_succ",
                                                 "ss_num_abend",  "ss_num_failed", "ss_num_skel"};

const JobState* find_state(std::string_view word);
// Null for a code outside the table: such jobs are counted in no total.
const JobState* state_of_code(std::int16_t code);

}  // namespace alm
