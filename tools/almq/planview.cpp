#include "planview.h"

#include <cstdio>
#include <ctime>

#include "plan/almrecs.h"
#include "util/dateutil.h"

namespace alm {
namespace {

// The state codes that plans carry, as the plan builder names them.
constexpr const char* kStates[] = {"HOLD", "READY", "EXEC", "SUCC", "ABEND", "FAIL", "SKEL", "CANCL"};

struct FlagName {
    int bit;
    const char* name;
};

constexpr FlagName kCpuFlags[] = {
    {scif_full_status, "full_status"}, {scif_auto_link, "auto_link"}, {scif_resolve_deps, "resolve_deps"}};

constexpr FlagName kSchedFlags[] = {
    {ssf_in_order, "in_order"},       {ssf_replicated, "replicated"},   {ssf_carried_fwd, "carried_fwd"},
    {ssf_carry_fwd, "carry_fwd"},     {ssf_dont_touch, "dont_touch"},   {ssf_until_used, "until_used"},
    {ssf_user_jobs, "user_jobs"},     {ssf_this_cpu, "this_cpu"},       {ssf_external, "external"},
    {ssf_free_2, "free_2"},           {ssf_needs_rsrc, "needs_rsrc"},   {ssf_has_rsrc, "has_rsrc"},
    {ssf_released, "released"},       {ssf_cancelled, "cancelled"},     {ssf_cancel_pend, "cancel_pend"},
    {ssf_every, "every"}};

constexpr FlagName kSchedReFlags[] = {{ssrf_held_by_user, "held_by_user"}};

constexpr FlagName kJobFlags[] = {
    {sjf1_re_job, "re_job"},         {sjf1_ignore, "ignore"},         {sjf1_buckujob, "buckujob"},
    {sjf1_dont_touch, "dont_touch"}, {sjf1_do_rerun, "do_rerun"},     {sjf1_until_used, "until_used"},
    {sjf1_user_job, "user_job"},     {sjf1_this_cpu, "this_cpu"},     {sjf1_succ_pend, "succ_pend"},
    {sjf1_needs_msg, "needs_msg"},   {sjf1_needs_rsrc, "needs_rsrc"}, {sjf1_has_rsrc, "has_rsrc"},
    {sjf1_released, "released"},     {sjf1_cancelled, "cancelled"},   {sjf1_showed_up, "showed_up"},
    {sjf1_every, "every"}};

constexpr FlagName kJobFlags2[] = {
    {sjf2_run_again, "run_again"},
    {sjf2_running, "running"},
    {sjf2_alias, "alias"},
    {sjf2_logged, "logged"},
    {sjf2_rstrt_flag, "rstrt_flag"},
    {sjf2_every_run, "every_run"},
    {sjf2_launchedby_ms, "launchedby_ms"},
    {sjf2_wildcarded, "wildcarded"},
    {sjf2_confirm_job, "confirm_job"},
    {sjf2_programmatic_job, "programmatic_job"},
    {sjf2_wait_for_taskherd, "wait_for_taskherd"},
    {sjf2_sched_same_cpu, "sched_same_cpu"},
    {sjf2_is_command, "is_command"},
    {sjf2_long_jcl, "long_jcl"},
    {sjf2_cancel_pend, "cancel_pend"},
    {sjf2_replicated, "replicated"}};

constexpr FlagName kJobReFlags[] = {
    {sjrf_type1, "type1"},           {sjrf_type2, "type2"},           {sjrf_step, "step"},
    {sjrf_gen_msg, "gen_msg"},       {sjrf_held_by_user, "held_by_user"}, {sjrf_interactive, "interactive"},
    {sjrf_external, "external"},     {sjrf_is_mpe_job, "is_mpe_job"}};

template <std::size_t N>
std::string names_of(const FlagName (&table)[N], std::uint16_t word) {
    std::string out;
    for (int bit = 0; bit < 16; ++bit) {
        if (!flag_set(word, bit)) continue;
        const char* name = nullptr;
        for (const FlagName& f : table) {
            if (f.bit == bit) name = f.name;
        }
        if (!out.empty()) out += ',';
        out += name != nullptr ? std::string(name) : "bit" + std::to_string(bit);
    }
    return out;
}

}  // namespace

std::string state_name(std::int64_t code) {
    if (code >= 1 && code <= static_cast<std::int64_t>(std::size(kStates))) return kStates[code - 1];
    return std::to_string(code);
}

std::string flag_names(FlagWord which, std::uint16_t word) {
    switch (which) {
        case FlagWord::Workstation: return names_of(kCpuFlags, word);
        case FlagWord::Schedule: return names_of(kSchedFlags, word);
        case FlagWord::ScheduleRe: return names_of(kSchedReFlags, word);
        case FlagWord::Job: return names_of(kJobFlags, word);
        case FlagWord::Job2: return names_of(kJobFlags2, word);
        case FlagWord::JobRe: return names_of(kJobReFlags, word);
    }
    return {};
}

std::string join_flags(std::initializer_list<std::string> parts) {
    std::string out;
    for (const std::string& p : parts) {
        if (p.empty()) continue;
        if (!out.empty()) out += ',';
        out += p;
    }
    return out.empty() ? "-" : out;
}

namespace {

// The wire date with its hhmm time in the local zone; false for a no-date value.
bool local_tm(std::int64_t dayEpoch, std::int64_t hhmm, std::tm& tm) {
    const auto day = static_cast<std::int32_t>(dayEpoch);
    if (dayEpoch != day || is_no_date(day)) return false;
    const std::time_t local = GMT_to_localEpoch(day, static_cast<std::int16_t>(hhmm));
    return localtime_r(&local, &tm) != nullptr;
}

}  // namespace

std::string local_date_time(std::int64_t dayEpoch, std::int64_t hhmm) {
    std::tm tm{};
    char buf[32];
    if (!local_tm(dayEpoch, hhmm, tm) || std::strftime(buf, sizeof buf, "%Y-%m-%d %H:%M", &tm) == 0) return "-";
    return buf;
}

std::string iso_date_time(std::int64_t dayEpoch, std::int64_t hhmm) {
    std::tm tm{};
    char buf[48];
    if (!local_tm(dayEpoch, hhmm, tm) || std::strftime(buf, sizeof buf, "%Y-%m-%dT%H:%M:%S", &tm) == 0) return {};
    // Zones lie within a day of UTC.
    const int offset = static_cast<int>(tm.tm_gmtoff / 60 % (24 * 60));
    const int minutes = offset < 0 ? -offset : offset;
    char zone[16];
    std::snprintf(zone, sizeof zone, "%c%02d:%02d", offset < 0 ? '-' : '+', minutes / 60, minutes % 60);
    return std::string(buf) + zone;
}

std::string hhmm_text(std::int64_t hhmm) {
    if (hhmm < 0 || hhmm > 2359) return std::to_string(hhmm);
    char buf[16];
    std::snprintf(buf, sizeof buf, "%02d:%02d", static_cast<int>(hhmm / 100), static_cast<int>(hhmm % 100));
    return buf;
}

std::string plan_date_text(std::int64_t yymmdd) {
    if (yymmdd <= 0 || yymmdd > 99991231) return "-";
    const int year = du_yy_ccyy(static_cast<int>(yymmdd / 10000));
    char buf[32];
    std::snprintf(buf, sizeof buf, "%04d-%02d-%02d", year, static_cast<int>(yymmdd / 100 % 100),
                  static_cast<int>(yymmdd % 100));
    return buf;
}

}  // namespace alm
