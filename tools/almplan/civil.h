// Calendar dates and times of day as a description writes them
// ("2026-11-22", "06:00"), and the day epochs of the external record form.
#pragma once

#include <cstdint>
#include <string_view>

namespace alm {

struct CivilDate {
    int year;
    int month;
    int day;
};

// YYYY-MM-DD, a real calendar date in 1971..2037 (so that its day epoch is
// positive, fits 32 bits and is never a no-date value).
bool parse_civil_date(std::string_view text, CivilDate& out);
// HH:MM from 00:00 to 23:59, returned as hhmm (hours times 100 plus minutes).
bool parse_hhmm(std::string_view text, std::int16_t& out);

// 00:00 UTC of the date in seconds since the epoch: no time zone is involved.
std::int32_t day_epoch(const CivilDate& date);

}  // namespace alm
