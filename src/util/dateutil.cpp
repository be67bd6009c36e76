// The scheduler's date and time forms and their conversions.
#include "util/dateutil.h"

#include <langinfo.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

namespace alm {

int out_dte_fmt = -1;
const char* DU_nl_dte_fmt = nullptr;
short DU_nl_in_fmt = 0;

namespace {

constexpr std::int32_t kSecsPerDay = 86400;
// Local midnights from 10:59 west to 13:00 east of UTC round to the same
// calendar date; the threshold is part of the stored form.
constexpr std::int32_t kRoundThreshold = 11 * 3600;

constexpr int days_of_months[2][12] = {
    {31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365},
    {31, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335, 366},
};
// February allows 29 here; leap years are checked separately.
constexpr int month_length[13] = {0, 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

constexpr const char* kDefaultDateFmt = "%y/%m/%d";

// Results are 32-bit like the stored forms; wider intermediates wrap.
constexpr std::int32_t to_i32(std::int64_t v) { return static_cast<std::int32_t>(v); }

bool is_leap(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

// An hhmm of 0x8000 counts as midnight.
int hhmm_hours(std::int16_t hhmm) { return hhmm == -32768 ? 0 : hhmm / 100; }
int hhmm_minutes(std::int16_t hhmm) { return hhmm == -32768 ? 0 : hhmm % 100; }
std::int64_t hhmm_seconds(std::int16_t hhmm) {
    return std::int64_t{hhmm_hours(hhmm)} * 3600 + std::int64_t{hhmm_minutes(hhmm)} * 60;
}

std::tm utc_breakdown(std::int32_t e) {
    std::tm tm{};
    const std::time_t t = e;
    gmtime_r(&t, &tm);
    return tm;
}

std::tm local_breakdown(std::time_t t) {
    std::tm tm{};
    localtime_r(&t, &tm);
    return tm;
}

// The stored forms are 32-bit seconds: an instant they cannot hold (after
// 2038-01-19, before 1901-12-13) is mktime's failure, -1, and goes through
// the caller's remaining steps as such, never as a wrapped value.
std::int32_t local_mktime(std::tm* tm) {
    tm->tm_isdst = -1;
    const std::time_t t = std::mktime(tm);
    if (t < INT32_MIN || t > INT32_MAX) return -1;
    return static_cast<std::int32_t>(t);
}

// Applies out_dte_fmt to a full-century numeric date.
std::int32_t apply_out_fmt(std::int32_t full, std::int32_t modulus) {
    if (out_dte_fmt == -1) dte_out_fmt(-1);
    return out_dte_fmt == 1 ? full % modulus : full;
}

std::string& nls_fmt_storage() {
    static std::string fmt;
    return fmt;
}

}  // namespace

int findjcw(const char* name, int* value) {
    const char* v = name != nullptr ? std::getenv(name) : nullptr;
    if (v == nullptr) return 3;
    if (value != nullptr) *value = std::atoi(v);
    return 0;
}

int dte_out_fmt(int value) {
    if (value == 0 || value == 1) {
        out_dte_fmt = value;
    } else if (value == -1) {
        int strip = 1;
        out_dte_fmt = (findjcw("UNIDATESTRIP", &strip) == 0 && strip == 0) ? 1 : 0;
    }
    return out_dte_fmt;
}

std::int32_t FixDateEpochToGMT(std::int32_t e) {
    if (is_no_date(e)) return e;
    const std::int64_t secs = ((std::int64_t{e} % kSecsPerDay) + kSecsPerDay) % kSecsPerDay;
    const std::int64_t day = std::int64_t{e} - secs;
    return to_i32(secs < kRoundThreshold ? day : day + kSecsPerDay);
}

std::int32_t GMT_to_localEpoch(std::int32_t e, std::int16_t hhmm) {
    if (is_no_date(e)) return e;
    std::tm tm = utc_breakdown(e);
    tm.tm_hour = hhmm_hours(hhmm);
    tm.tm_min = hhmm_minutes(hhmm);
    return local_mktime(&tm);
}

std::int32_t local_to_GMTEpoch(std::int32_t e, std::int16_t hhmm) {
    if (is_no_date(e)) return e;
    return FixDateEpochToGMT(to_i32(std::int64_t{e} - hhmm_seconds(hhmm)));
}

std::int32_t date_epoch(std::int32_t e) {
    if (is_no_date(e)) return e;
    std::tm tm = local_breakdown(e);
    tm.tm_hour = 0;
    tm.tm_min = 0;
    tm.tm_sec = 0;
    return FixDateEpochToGMT(local_mktime(&tm));
}

std::int32_t epoch_to_tm(std::int32_t e, std::int16_t hhmm, std::tm* tm) {
    std::tm scratch{};
    if (tm == nullptr) tm = &scratch;
    const std::tm utc = utc_breakdown(FixDateEpochToGMT(e));
    tm->tm_mday = utc.tm_mday;
    tm->tm_mon = utc.tm_mon;
    tm->tm_year = utc.tm_year;
    tm->tm_wday = utc.tm_wday;
    tm->tm_yday = utc.tm_yday;
    tm->tm_hour = hhmm_hours(hhmm);
    tm->tm_min = hhmm_minutes(hhmm);
    tm->tm_sec = utc.tm_sec;
    const std::int32_t local = local_mktime(tm);
    return is_no_date(e) ? e : local;
}

int du_yy_ccyy(int yy) {
    if (yy > 1000) return yy;
    if (yy >= 100) return yy + 1900;
    const int c = local_breakdown(std::time(nullptr)).tm_year;
    const int d = yy - c % 100;
    if (d > 50) return 1900 + c + d - 100;
    if (d < -50) return 1900 + c + d + 100;
    return 1900 + c + d;
}

std::int32_t yymmdd_to_tm(std::int32_t d, std::int16_t hhmm, std::tm* tm) {
    std::tm scratch{};
    if (tm == nullptr) tm = &scratch;
    if (is_no_date(d)) {
        *tm = utc_breakdown(d);
        return d;
    }
    std::tm mid{};
    mid.tm_year = du_yy_ccyy(d / 10000) - 1900;
    mid.tm_mon = d / 100 % 100 - 1;
    mid.tm_mday = d % 100;
    const std::int32_t day = FixDateEpochToGMT(local_mktime(&mid));
    *tm = utc_breakdown(day);
    return to_i32(std::int64_t{day} + hhmm_seconds(hhmm));
}

std::int32_t yymmdd_to_epoch(std::int32_t d, std::int16_t hhmm) {
    std::tm tm{};
    return yymmdd_to_tm(d, hhmm, &tm);
}

std::int32_t epoch_to_yymmdd(std::int32_t e) {
    if (is_no_date(e)) return e;
    const std::tm tm = utc_breakdown(FixDateEpochToGMT(e));
    const std::int64_t full = (std::int64_t{tm.tm_year} + 1900) * 10000 + (tm.tm_mon + 1) * 100 + tm.tm_mday;
    return apply_out_fmt(to_i32(full), 1000000);
}

std::int32_t yyjjj_to_tm(std::int32_t v, std::int16_t hhmm, std::tm* tm) {
    std::tm scratch{};
    if (tm == nullptr) tm = &scratch;
    int year = du_yy_ccyy(v / 1000);
    int j = v % 1000;
    // Once a leap year is met while carrying, it stays a leap year for the
    // rest of the call; j is below 1000, so this runs at most three times.
    bool leap = false;
    for (;;) {
        if (is_leap(year)) leap = true;
        const int len = leap ? 366 : 365;
        if (j <= len) break;
        j -= len;
        ++year;
    }
    const int* ends = days_of_months[leap ? 1 : 0];
    int month = 0;
    while (month < 11 && ends[month] < j) ++month;
    const int day = month == 0 ? j : j - ends[month - 1];

    *tm = std::tm{};
    tm->tm_year = year - 1900;
    tm->tm_mon = month;
    tm->tm_mday = day;
    tm->tm_hour = hhmm_hours(hhmm);
    tm->tm_min = hhmm_minutes(hhmm);
    tm->tm_sec = 0;
    return local_mktime(tm);
}

std::int32_t yyjjj_to_yymmdd(std::int32_t v) {
    std::tm tm{};
    yyjjj_to_tm(v, 0, &tm);
    const std::int64_t full = 19000000 + std::int64_t{tm.tm_year} * 10000 + (tm.tm_mon + 1) * 100 + tm.tm_mday;
    return apply_out_fmt(to_i32(full), 1000000);
}

std::uint16_t epoch_to_cal(std::int32_t e) {
    if (e < 1 || is_no_date(e)) return static_cast<std::uint16_t>(e);
    std::tm tm{};
    epoch_to_tm(e, 0, &tm);
    // Years since 1900 keep 7 bits: 2028 and later wrap to small values.
    const int yy = ((tm.tm_year % 128) + 128) % 128;
    return static_cast<std::uint16_t>(yy * 512 + tm.tm_yday + 1);
}

std::int32_t cal_to_epoch(std::uint16_t cal) {
    if (cal == 0 || cal == 0x8000) return cal;
    const std::int32_t yyjjj = (cal & 0x1FF) + (cal >> 9) * 1000;
    return yymmdd_to_epoch(yyjjj_to_yymmdd(yyjjj), 0);
}

int valid_date(std::int32_t e) {
    const std::int32_t v = epoch_to_yymmdd(e);
    if (v < 1) return 0;
    const int month = v / 100 % 100;
    const int day = v % 100;
    if (month < 1 || month > 12) return 0;
    if (day < 1 || day > month_length[month]) return 0;
    if (month == 2 && day == 29 && !is_leap(du_yy_ccyy(v / 10000))) return 0;
    return 1;
}

int c_convert_date(std::int32_t e, char* buffer, int size, int style) {
    if (buffer == nullptr || size <= 0) return 0;
    buffer[0] = '\0';
    if (!valid_date(e)) return 0;
    std::tm tm{};
    epoch_to_tm(e, 0, &tm);
    const char* fmt = kDefaultDateFmt;
    switch (style) {
        case 1: fmt = "%m/%d/%y"; break;
        case 2: fmt = "%d/%m/%y"; break;
        case 3: fmt = DU_nl_dte_fmt != nullptr ? DU_nl_dte_fmt : get_nls_fmt(); break;
        default: break;
    }
    const std::size_t n = std::strftime(buffer, static_cast<std::size_t>(size), fmt, &tm);
    if (n == 0) buffer[0] = '\0';
    return static_cast<int>(n);
}

void date_time(std::int32_t* date, std::int16_t* hhmm) {
    const std::time_t now = std::time(nullptr);
    if (date != nullptr) *date = date_epoch(to_i32(now));
    if (hhmm != nullptr) {
        const std::tm tm = local_breakdown(now);
        *hhmm = static_cast<std::int16_t>(tm.tm_hour * 100 + tm.tm_min);
    }
}

short strfmt_datefmt(const char* format) {
    if (format == nullptr || *format == '\0') return 0;
    int day = -1, month = -1, year = -1;
    int pos = 0;
    for (const char* p = format; *p != '\0'; ++p) {
        if (*p != '%') continue;
        const char c = p[1];
        if (c == '\0') break;
        ++p;
        int* field = nullptr;
        switch (c) {
            case 'd': field = &day; break;
            case 'm': case 'b': case 'B': field = &month; break;
            case 'y': case 'Y': field = &year; break;
            case 'D': return 0;
            default: break;
        }
        if (field == nullptr) continue;
        if (*field != -1) return 0;
        *field = pos++;
    }
    if (day < 0 || month < 0 || year < 0) return 0;
    if (month < day && day < year) return 1;
    if (day < month && month < year) return 2;
    return 0;
}

const char* get_nls_fmt() {
    if (DU_nl_dte_fmt != nullptr) return DU_nl_dte_fmt;
    const char* fmt = nl_langinfo(D_FMT);
    if (fmt == nullptr || *fmt == '\0') fmt = kDefaultDateFmt;
    std::string& stored = nls_fmt_storage();
    stored = fmt;
    DU_nl_dte_fmt = stored.c_str();
    DU_nl_in_fmt = strfmt_datefmt(DU_nl_dte_fmt);
    return DU_nl_dte_fmt;
}

}  // namespace alm
