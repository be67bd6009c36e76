#include "civil.h"

namespace alm {
namespace {

bool digits(std::string_view s, int& out) {
    if (s.empty()) return false;
    int v = 0;
    for (char c : s) {
        if (c < '0' || c > '9') return false;
        v = v * 10 + (c - '0');
    }
    out = v;
    return true;
}

bool leap(int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

int month_days(int y, int m) {
    static constexpr int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return m == 2 && leap(y) ? 29 : kDays[m - 1];
}

// Days from 1970-01-01 to y-m-d in the proleptic Gregorian calendar.
std::int64_t days_from_civil(int y, int m, int d) {
    y -= m <= 2 ? 1 : 0;
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const std::int64_t yoe = y - era * 400;
    const std::int64_t doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const std::int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

}  // namespace

bool parse_civil_date(std::string_view text, CivilDate& out) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return false;
    CivilDate d{};
    if (!digits(text.substr(0, 4), d.year) || !digits(text.substr(5, 2), d.month) ||
        !digits(text.substr(8, 2), d.day)) {
        return false;
    }
    if (d.year < 1971 || d.year > 2037 || d.month < 1 || d.month > 12) return false;
    if (d.day < 1 || d.day > month_days(d.year, d.month)) return false;
    out = d;
    return true;
}

bool parse_hhmm(std::string_view text, std::int16_t& out) {
    if (text.size() != 5 || text[2] != ':') return false;
    int h = 0;
    int m = 0;
    if (!digits(text.substr(0, 2), h) || !digits(text.substr(3, 2), m)) return false;
    if (h > 23 || m > 59) return false;
    out = static_cast<std::int16_t>(h * 100 + m);
    return true;
}

std::int32_t day_epoch(const CivilDate& date) {
    return static_cast<std::int32_t>(days_from_civil(date.year, date.month, date.day) * 86400);
}

}  // namespace alm
