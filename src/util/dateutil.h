// The scheduler's date and time forms and their conversions: day epochs,
// local epochs, hhmm times of day, yymmdd/ccyymmdd, yyjjj and the 16-bit cal
// form. No-date values (0, 32768, -32768) pass through every conversion.
#pragma once

#include <cstdint>
#include <ctime>

namespace alm {

// Numeric output form: -1 undecided, 0 keep the century, 1 drop it.
extern int out_dte_fmt;
// The locale's date format, fetched once, and its field order
// (0 year-month-day or unusable, 1 month-day-year, 2 day-month-year).
extern const char* DU_nl_dte_fmt;
extern short DU_nl_in_fmt;

constexpr bool is_no_date(std::int32_t e) { return e == 0 || e == 32768 || e == -32768; }

std::int32_t FixDateEpochToGMT(std::int32_t e);
std::int32_t GMT_to_localEpoch(std::int32_t e, std::int16_t hhmm);
std::int32_t local_to_GMTEpoch(std::int32_t e, std::int16_t hhmm);
std::int32_t date_epoch(std::int32_t e);
std::int32_t epoch_to_tm(std::int32_t e, std::int16_t hhmm, std::tm* tm);
int du_yy_ccyy(int yy);
std::int32_t yymmdd_to_tm(std::int32_t d, std::int16_t hhmm, std::tm* tm);
std::int32_t yyjjj_to_tm(std::int32_t v, std::int16_t hhmm, std::tm* tm);
std::int32_t yymmdd_to_epoch(std::int32_t d, std::int16_t hhmm);
std::int32_t epoch_to_yymmdd(std::int32_t e);
std::int32_t yyjjj_to_yymmdd(std::int32_t v);
std::uint16_t epoch_to_cal(std::int32_t e);
std::int32_t cal_to_epoch(std::uint16_t cal);
int valid_date(std::int32_t e);
int c_convert_date(std::int32_t e, char* buffer, int size, int style);
void date_time(std::int32_t* date, std::int16_t* hhmm);
// 0 or 1 sets the numeric output form; -1 decides it again from
// UNIDATESTRIP (six digits only when set to 0); any other value only reports.
int dte_out_fmt(int value);
short strfmt_datefmt(const char* format);
const char* get_nls_fmt();
// Status 0 and the variable's atoi value when it exists, 3 when it does not.
int findjcw(const char* name, int* value);

}  // namespace alm
