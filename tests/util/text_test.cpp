// Dates as text and the locale's date format.
#include <gtest/gtest.h>

#include <clocale>
#include <cstring>
#include <string>

#include "util/date_helpers.h"
#include "util/dateutil.h"

namespace alm {
namespace {

using test::ScopedTz;
using test::utc;

TEST(c_convert_date, Styles) {
    std::setlocale(LC_ALL, "C");
    struct Case {
        int style;
        const char* want;
    };
    const Case cases[] = {
        {1, "03/05/26"}, {2, "05/03/26"}, {3, "03/05/26"}, {0, "26/03/05"}, {4, "26/03/05"}, {-1, "26/03/05"},
    };
    // The day is that of the stored UTC day, wherever the process runs.
    for (const char* zone : {"UTC", "America/New_York", "Pacific/Kiritimati", "Pacific/Pago_Pago"}) {
        ScopedTz tz(zone);
        for (const auto& c : cases) {
            char buf[32];
            std::memset(buf, 'x', sizeof buf);
            EXPECT_EQ(c_convert_date(utc(2026, 3, 5), buf, sizeof buf, c.style), 8) << zone;
            EXPECT_STREQ(buf, c.want) << zone << " style " << c.style;
        }
    }
}

TEST(c_convert_date, InvalidDatesAndSmallBuffers) {
    ScopedTz tz("UTC");
    char buf[16];
    std::strcpy(buf, "junk");
    EXPECT_EQ(c_convert_date(0, buf, sizeof buf, 1), 0);
    EXPECT_STREQ(buf, "");
    std::strcpy(buf, "junk");
    EXPECT_EQ(c_convert_date(utc(2026, 3, 5), buf, 8, 1), 0);  // no room for the NUL
    EXPECT_STREQ(buf, "");
    EXPECT_EQ(c_convert_date(utc(2026, 3, 5), buf, 9, 1), 8);
    EXPECT_STREQ(buf, "03/05/26");
    EXPECT_EQ(c_convert_date(utc(2026, 3, 5), nullptr, 9, 1), 0);
    EXPECT_EQ(c_convert_date(utc(2026, 3, 5), buf, 0, 1), 0);
}

TEST(strfmt_datefmt, FieldOrder) {
    struct Case {
        const char* fmt;
        short want;
    };
    const Case cases[] = {
        {"%m/%d/%y", 1},   {"%B %d, %Y", 1}, {"%b-%d-%Y", 1},    {"%d/%m/%y", 2},      {"%d.%m.%Y", 2},
        {"%d %B %Y", 2},   {"%y/%m/%d", 0},  {"%Y-%m-%d", 0},    {"%m/%y/%d", 0},      {"%y%d%m", 0},
        {"%D", 0},         {"%m/%d/%y %D", 0}, {"%d/%d/%y", 0},  {"%m/%b/%d/%y", 0},   {"%y/%Y/%m/%d", 0},
        {"%m/%y", 0},      {"", 0},          {"no fields", 0},   {"%%d %m/%d/%y", 1},  {"%m/%d/%y%", 1},
        {"%H:%M %d/%m/%Y", 2},
    };
    for (const auto& c : cases) EXPECT_EQ(strfmt_datefmt(c.fmt), c.want) << c.fmt;
    EXPECT_EQ(strfmt_datefmt(nullptr), 0);
}

TEST(get_nls_fmt, FetchedOnceFromTheLocale) {
    std::setlocale(LC_ALL, "C");
    DU_nl_dte_fmt = nullptr;
    DU_nl_in_fmt = 0;
    const char* fmt = get_nls_fmt();
    ASSERT_NE(fmt, nullptr);
    EXPECT_STREQ(fmt, "%m/%d/%y");
    EXPECT_EQ(DU_nl_dte_fmt, fmt);
    EXPECT_EQ(DU_nl_in_fmt, 1);
    EXPECT_EQ(get_nls_fmt(), fmt);
}

// Day numbers within a year under the leap rules of 2000 and 2024, carried
// into the next year when past its end; day 0 is the eve of the year.
TEST(yyjjj_to_yymmdd, DayOfYear) {
    ScopedTz tz("UTC");
    dte_out_fmt(0);
    const std::int32_t cases[][2] = {{2026001, 20260101}, {2026060, 20260301}, {2024060, 20240229},
                                     {2000060, 20000229}, {2023366, 20240101}, {2024466, 20250409},
                                     {2026000, 20251231}, {2026365, 20261231}, {2024366, 20241231},
                                     {1000001, 29000101}};  // years up to 1000 count from 1900
    for (const auto& c : cases) EXPECT_EQ(yyjjj_to_yymmdd(c[0]), c[1]) << c[0];
    out_dte_fmt = -1;
}

}  // namespace
}  // namespace alm
