#include "jobstates.h"

namespace alm {
namespace {

constexpr JobState kStates[] = {
    {"hold", STATE_HOLD, "ss_num_notrun"},  {"ready", STATE_READY, "ss_num_notrun"},
    {"exec", STATE_EXEC, "ss_num_exec"},    {"succ", STATE_SUCC, "ss_num_succ"},
    {"abend", STATE_ABEND, "ss_num_abend"}, {"fail", STATE_FAIL, "ss_num_failed"},
    {"skel", STATE_SKEL, "ss_num_skel"},    {"cancl", STATE_CANCL, nullptr},
};

}  // namespace

const JobState* find_state(std::string_view word) {
    for (const JobState& s : kStates) {
        if (word == s.word) return &s;
    }
    return nullptr;
}

const JobState* state_of_code(std::int16_t code) {
    for (const JobState& s : kStates) {
        if (code == s.code) return &s;
    }
    return nullptr;
}

}  // namespace alm
