// Packed dates (yymmdd, ccyymmdd, yyjjj, cal), the century window and the
// numeric output form.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "dates/date_helpers.h"
#include "util/dateutil.h"

namespace alm {
namespace {

using test::ScopedEnv;
using test::ScopedTz;
using test::utc;

// Pins the numeric output form for one test and restores "undecided".
class OutForm {
public:
    explicit OutForm(int form) { dte_out_fmt(form); }
    ~OutForm() { out_dte_fmt = -1; }
    OutForm(const OutForm&) = delete;
    OutForm& operator=(const OutForm&) = delete;
};

TEST(du_yy_ccyy, FullAndOffsetYears) {
    EXPECT_EQ(du_yy_ccyy(1999), 1999);
    EXPECT_EQ(du_yy_ccyy(1001), 1001);
    EXPECT_EQ(du_yy_ccyy(2026), 2026);
    EXPECT_EQ(du_yy_ccyy(1000), 2900);
    EXPECT_EQ(du_yy_ccyy(126), 2026);
    EXPECT_EQ(du_yy_ccyy(100), 2000);
}

TEST(du_yy_ccyy, WindowMovesWithTheCurrentYear) {
    for (const char* zone : {"UTC", "Pacific/Kiritimati", "Pacific/Pago_Pago"}) {
        ScopedTz tz(zone);
        const int cy = test::current_local_year();
        for (int yy = 0; yy < 100; ++yy) {
            const int y = du_yy_ccyy(yy);
            EXPECT_EQ(y % 100, yy) << zone;
            EXPECT_LE(std::abs(y - cy), 50) << zone << " yy=" << yy;
        }
        // Fifty years ahead still counts forward; fifty-one goes back a century.
        EXPECT_EQ(du_yy_ccyy((cy + 50) % 100), cy + 50) << zone;
        EXPECT_EQ(du_yy_ccyy((cy + 51) % 100), cy - 49) << zone;
        EXPECT_EQ(du_yy_ccyy(cy % 100), cy) << zone;
    }
}

TEST(OutputForm, UnidatestripDecidesOnFirstUse) {
    struct Case {
        const char* value;  // nullptr: unset
        std::int32_t want;
    };
    const Case cases[] = {
        {"0", 260305}, {"abc", 260305}, {nullptr, 20260305}, {"1", 20260305}, {"7", 20260305},
    };
    ScopedTz tz("UTC");
    for (const auto& c : cases) {
        ScopedEnv env("UNIDATESTRIP", c.value);
        out_dte_fmt = -1;
        EXPECT_EQ(epoch_to_yymmdd(utc(2026, 3, 5)), c.want) << (c.value ? c.value : "(unset)");
        EXPECT_EQ(out_dte_fmt, c.want < 1000000 ? 1 : 0);
    }
    out_dte_fmt = -1;
}

TEST(OutputForm, ExplicitSettingAndReporting) {
    ScopedEnv env("UNIDATESTRIP", "0");
    out_dte_fmt = -1;
    EXPECT_EQ(dte_out_fmt(0), 0);
    EXPECT_EQ(epoch_to_yymmdd(utc(2026, 3, 5)), 20260305);
    EXPECT_EQ(dte_out_fmt(5), 0);  // reports only
    EXPECT_EQ(dte_out_fmt(1), 1);
    EXPECT_EQ(epoch_to_yymmdd(utc(2026, 3, 5)), 260305);
    EXPECT_EQ(dte_out_fmt(-7), 1);
    EXPECT_EQ(dte_out_fmt(-1), 1);  // looks the variable up again
    {
        ScopedEnv unset("UNIDATESTRIP", nullptr);
        EXPECT_EQ(dte_out_fmt(-1), 0);
    }
    out_dte_fmt = -1;
}

TEST(findjcw, StatusAndValue) {
    int v = -1;
    {
        ScopedEnv env("ALM_TEST_JCW", "42");
        EXPECT_EQ(findjcw("ALM_TEST_JCW", &v), 0);
        EXPECT_EQ(v, 42);
    }
    v = -1;
    EXPECT_EQ(findjcw("ALM_TEST_JCW", &v), 3);
    EXPECT_EQ(v, -1);
    EXPECT_EQ(findjcw(nullptr, &v), 3);
}

TEST(epoch_to_yymmdd, RoundsThenFormats) {
    OutForm form(0);
    for (const char* zone : {"UTC", "America/New_York", "Pacific/Kiritimati"}) {
        ScopedTz tz(zone);
        EXPECT_EQ(epoch_to_yymmdd(utc(2026, 3, 5, 10, 59, 59)), 20260305);
        EXPECT_EQ(epoch_to_yymmdd(utc(2026, 3, 5, 11)), 20260306);
        EXPECT_EQ(epoch_to_yymmdd(utc(2024, 2, 29)), 20240229);
        EXPECT_EQ(epoch_to_yymmdd(utc(1999, 12, 31)), 19991231);
    }
    OutForm strip(1);
    EXPECT_EQ(epoch_to_yymmdd(utc(2000, 1, 1)), 101);
    EXPECT_EQ(epoch_to_yymmdd(utc(1999, 12, 31)), 991231);
}

TEST(yymmdd_to_epoch, DayEpochPlusTime) {
    struct Case {
        const char* zone;
        std::int32_t d;
        std::int16_t hhmm;
        std::int32_t want;
    };
    const Case cases[] = {
        {"UTC", 260305, 0, utc(2026, 3, 5)},
        {"UTC", 20260305, 1730, utc(2026, 3, 5, 17, 30)},
        {"UTC", 20240229, 0, utc(2024, 2, 29)},
        {"UTC", 20230229, 0, utc(2023, 3, 1)},
        {"UTC", 19991231, -32768, utc(1999, 12, 31)},
        {"America/New_York", 260305, 0, utc(2026, 3, 5)},
        {"America/New_York", 260308, 1200, utc(2026, 3, 8, 12)},
        {"America/New_York", 261101, 0, utc(2026, 11, 1)},
        {"America/New_York", 20240229, 2359, utc(2024, 2, 29, 23, 59)},
        // Outside the band the local midnight rounds to the neighbour.
        {"Pacific/Kiritimati", 260305, 0, utc(2026, 3, 4)},
        {"Pacific/Pago_Pago", 260305, 0, utc(2026, 3, 6)},
        // A midnight that 32-bit seconds cannot hold is mktime's -1, which
        // rounds to no date (0); the time of day is still added.
        {"UTC", 20380119, 0, utc(2038, 1, 19)},
        {"UTC", 20380120, 0, 0},
        {"UTC", 20761122, 1730, 17 * 3600 + 30 * 60},
        {"America/New_York", 20761122, 0, 0},
        {"UTC", 18991231, 0, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.zone << " " << c.d << " at " << c.hhmm);
        ScopedTz tz(c.zone);
        std::tm tm{};
        EXPECT_EQ(yymmdd_to_tm(c.d, c.hhmm, &tm), c.want);
        EXPECT_EQ(yymmdd_to_epoch(c.d, c.hhmm), c.want);
    }
}

TEST(yymmdd_to_tm, BreaksDownTheRoundedDayInUtc) {
    ScopedTz tz("America/New_York");
    std::tm tm{};
    yymmdd_to_tm(20240229, 1730, &tm);
    EXPECT_EQ(tm.tm_year, 124);
    EXPECT_EQ(tm.tm_mon, 1);
    EXPECT_EQ(tm.tm_mday, 29);
    EXPECT_EQ(tm.tm_hour, 0);
}

TEST(yymmdd_to_epoch, TwoDigitYearsFollowTheWindow) {
    ScopedTz tz("UTC");
    const int cy = test::current_local_year();
    const int ahead = (cy + 1) % 100;
    const int behind = (cy + 60) % 100;
    EXPECT_EQ(yymmdd_to_epoch(ahead * 10000 + 101, 0), utc(cy + 1, 1, 1));
    EXPECT_EQ(yymmdd_to_epoch(behind * 10000 + 101, 0), utc(cy - 40, 1, 1));
}

TEST(yyjjj_to_yymmdd, DayOfYear) {
    OutForm form(0);
    ScopedTz tz("UTC");
    struct Case {
        std::int32_t v;
        std::int32_t want;
    };
    const Case cases[] = {
        {2026001, 20260101}, {2026060, 20260301}, {2024060, 20240229}, {2024366, 20241231},
        {2026365, 20261231},
        // Carried into the next year.
        {2023366, 20240101}, {2026400, 20270204},
        // Once a leap year is met, the following year counts as one too: day
        // 366 of 2025 exists and day 100 is April 9th.
        {2024732, 20251231}, {2024466, 20250409},
        // Day 0 is the last day of the year before.
        {2026000, 20251231},
    };
    for (const auto& c : cases) EXPECT_EQ(yyjjj_to_yymmdd(c.v), c.want) << c.v;
    EXPECT_EQ(yyjjj_to_yymmdd(126032), 20260201);
    OutForm strip(1);
    EXPECT_EQ(yyjjj_to_yymmdd(2024060), 240229);
}

TEST(yyjjj_to_tm, LocalTimeOfTheDay) {
    ScopedTz tz("America/New_York");
    std::tm tm{};
    EXPECT_EQ(yyjjj_to_tm(2026064, 1730, &tm), utc(2026, 3, 5, 22, 30));
    EXPECT_EQ(tm.tm_mon, 2);
    EXPECT_EQ(tm.tm_mday, 5);
    EXPECT_EQ(tm.tm_sec, 0);
}

TEST(CalForm, KnownValues) {
    for (const char* zone : {"UTC", "America/New_York", "Pacific/Kiritimati", "Pacific/Pago_Pago"}) {
        ScopedTz tz(zone);
        EXPECT_EQ(epoch_to_cal(utc(2026, 2, 1)), 64544) << zone;
        EXPECT_EQ(epoch_to_cal(utc(2026, 2, 1, 10, 59)), 64544) << zone;
        EXPECT_EQ(epoch_to_cal(utc(2026, 2, 1, 11)), 64545) << zone;
        EXPECT_EQ(epoch_to_cal(utc(2027, 12, 31)), 127 * 512 + 365) << zone;
        EXPECT_EQ(epoch_to_cal(utc(2024, 12, 31)), 124 * 512 + 366) << zone;
        EXPECT_EQ(epoch_to_cal(utc(1999, 1, 1)), 99 * 512 + 1) << zone;
        // Years since 1900 keep seven bits: 2028 wraps to 0.
        EXPECT_EQ(epoch_to_cal(utc(2028, 1, 1)), 1) << zone;
        EXPECT_EQ(epoch_to_cal(utc(2028, 3, 1)), 61) << zone;
    }
}

TEST(CalForm, NonPositiveEpochsKeepTheirLowBits) {
    EXPECT_EQ(epoch_to_cal(-86400), static_cast<std::uint16_t>(-86400));
    EXPECT_EQ(epoch_to_cal(-1), 0xFFFF);
}

// Cal years 100 to 127 are 2000 to 2027; lower ones come back through the
// century window, so the earliest year that survives depends on today.
TEST(CalForm, RoundTripsEveryDayUpTo2027) {
    OutForm form(0);
    const int first = std::max(1978, test::current_local_year() - 49);
    for (const char* zone : {"UTC", "America/New_York"}) {
        ScopedTz tz(zone);
        for (std::int64_t day = test::days_from_civil(first, 1, 1); day <= test::days_from_civil(2027, 12, 31);
             ++day) {
            const auto e = static_cast<std::int32_t>(day * 86400);
            const std::uint16_t cal = epoch_to_cal(e);
            ASSERT_EQ(cal_to_epoch(cal), e) << zone << " day " << day;
        }
    }
}

TEST(CalForm, WrappedYearsComeBackThroughTheWindow) {
    OutForm form(0);
    ScopedTz tz("UTC");
    // cal year bits 0 are read as two-digit year 00.
    const int y00 = du_yy_ccyy(0);
    EXPECT_EQ(cal_to_epoch(epoch_to_cal(utc(2028, 1, 1))), utc(y00, 1, 1));
    EXPECT_EQ(cal_to_epoch(64544), utc(2026, 2, 1));
    {
        OutForm strip(1);
        EXPECT_EQ(cal_to_epoch(64544), utc(2026, 2, 1));
        EXPECT_EQ(cal_to_epoch(99 * 512 + 365), utc(1999, 12, 31));
    }
}

TEST(valid_date, RealDatesOnly) {
    ScopedTz tz("UTC");
    for (int form : {0, 1}) {
        OutForm f(form);
        EXPECT_EQ(valid_date(utc(2000, 2, 29)), 1);
        EXPECT_EQ(valid_date(utc(2024, 2, 29)), 1);
        EXPECT_EQ(valid_date(utc(2026, 12, 31, 10)), 1);
        EXPECT_EQ(valid_date(utc(1999, 12, 31)), 1);
        EXPECT_EQ(valid_date(0), 0);
        EXPECT_EQ(valid_date(32768), 0);
        EXPECT_EQ(valid_date(-32768), 0);
    }
}

}  // namespace
}  // namespace alm
