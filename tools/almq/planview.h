// How plan values read to a person: state names, flag names, local dates and
// times, hhmm times.
#pragma once

#include <cstdint>
#include <string>

namespace alm {

// "HOLD", "READY", "EXEC", "SUCC", "ABEND", "FAIL", "SKEL", "CANCL", or the
// number for a code outside the plan builder's table.
std::string state_name(std::int64_t code);

enum class FlagWord { Workstation, Schedule, ScheduleRe, Job, Job2, JobRe };
// Names of the bits set in word (without their prefix), joined by ","; a bit
// without a name shows as "bitN"; "" when none is set.
std::string flag_names(FlagWord which, std::uint16_t word);
// Several flag texts joined by ","; "-" when all are empty.
std::string join_flags(std::initializer_list<std::string> parts);

// A wire date (GMT day epoch) with its hhmm time as local "YYYY-MM-DD HH:MM";
// "-" for a no-date value.
std::string local_date_time(std::int64_t dayEpoch, std::int64_t hhmm);
// The same as ISO 8601 text with the zone's offset, "YYYY-MM-DDTHH:MM:00+hh:mm";
// "" for a no-date value.
std::string iso_date_time(std::int64_t dayEpoch, std::int64_t hhmm);
// An hhmm value as "HH:MM".
std::string hhmm_text(std::int64_t hhmm);
// A plan date number from the open reply (yymmdd or ccyymmdd) as YYYY-MM-DD.
std::string plan_date_text(std::int64_t yymmdd);

}  // namespace alm
