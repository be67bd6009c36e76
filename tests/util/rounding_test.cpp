// Rounding to a day and moving between local instants and stored days, in
// zones on both sides of the 11:00 UTC threshold.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "util/date_helpers.h"
#include "util/dateutil.h"

namespace alm {
namespace {

using test::ScopedTz;
using test::utc;

constexpr std::int32_t kNoDates[] = {0, 32768, -32768};

TEST(FixDateEpochToGMT, RoundsAtElevenUtc) {
    struct Case {
        std::int32_t in;
        std::int32_t want;
    };
    const Case cases[] = {
        {utc(2026, 3, 5), utc(2026, 3, 5)},
        {utc(2026, 3, 5, 10, 59, 59), utc(2026, 3, 5)},
        {utc(2026, 3, 5, 11, 0, 0), utc(2026, 3, 6)},
        {utc(2026, 3, 5, 23, 59, 59), utc(2026, 3, 6)},
        {utc(2024, 2, 28, 11), utc(2024, 2, 29)},
        {utc(2024, 2, 29, 13), utc(2024, 3, 1)},
        {utc(2023, 12, 31, 12), utc(2024, 1, 1)},
        {utc(1969, 12, 30, 1), utc(1969, 12, 30)},
        {utc(1969, 12, 30, 18), utc(1969, 12, 31)},
    };
    // Local time must not matter.
    for (const char* zone : {"UTC", "America/New_York", "Pacific/Kiritimati"}) {
        ScopedTz tz(zone);
        for (const auto& c : cases) EXPECT_EQ(FixDateEpochToGMT(c.in), c.want) << zone << " " << c.in;
    }
}

TEST(DateConversions, NoDateValuesPassThrough) {
    ScopedTz tz("America/New_York");
    for (std::int32_t e : kNoDates) {
        SCOPED_TRACE(e);
        EXPECT_EQ(FixDateEpochToGMT(e), e);
        EXPECT_EQ(GMT_to_localEpoch(e, 1730), e);
        EXPECT_EQ(local_to_GMTEpoch(e, 1730), e);
        EXPECT_EQ(date_epoch(e), e);
        EXPECT_EQ(epoch_to_yymmdd(e), e);
        EXPECT_EQ(yymmdd_to_epoch(e, 1200), e);
        std::tm tm{};
        EXPECT_EQ(epoch_to_tm(e, 0, &tm), e);
        EXPECT_EQ(valid_date(e), 0);
        char buf[32] = "x";
        EXPECT_EQ(c_convert_date(e, buf, sizeof buf, 1), 0);
        EXPECT_STREQ(buf, "");
    }
    EXPECT_EQ(epoch_to_cal(0), 0);
    EXPECT_EQ(epoch_to_cal(32768), 0x8000);
    EXPECT_EQ(epoch_to_cal(-32768), 0x8000);
    EXPECT_EQ(cal_to_epoch(0), 0);
    EXPECT_EQ(cal_to_epoch(0x8000), 32768);
}

// A stored day and the local instant it becomes at a given time of day, and
// back. Between 10:59 west and 13:00 east a local day maps back to itself;
// beyond that band (+14, -11) it lands on the neighbouring day.
TEST(LocalEpoch, ToLocalAndBack) {
    struct Case {
        const char* zone;
        std::int32_t day;
        std::int16_t hhmm;
        std::int32_t local;  // GMT_to_localEpoch(day, hhmm)
        std::int32_t back;   // local_to_GMTEpoch(local, hhmm)
    };
    const Case cases[] = {
        {"UTC", utc(2026, 3, 5), 1730, utc(2026, 3, 5, 17, 30), utc(2026, 3, 5)},
        {"UTC", utc(2026, 3, 5), 0, utc(2026, 3, 5), utc(2026, 3, 5)},
        {"UTC", utc(2026, 3, 5), -32768, utc(2026, 3, 5), utc(2026, 3, 5)},
        {"America/New_York", utc(2026, 3, 5), 1730, utc(2026, 3, 5, 22, 30), utc(2026, 3, 5)},
        {"America/New_York", utc(2026, 3, 5), 2359, utc(2026, 3, 6, 4, 59), utc(2026, 3, 5)},
        {"America/New_York", utc(2026, 3, 7), 1200, utc(2026, 3, 7, 17), utc(2026, 3, 7)},
        // Daylight saving starts 2026-03-08 and ends 2026-11-01.
        {"America/New_York", utc(2026, 3, 8), 1200, utc(2026, 3, 8, 16), utc(2026, 3, 8)},
        {"America/New_York", utc(2026, 3, 8), 0, utc(2026, 3, 8, 5), utc(2026, 3, 8)},
        {"America/New_York", utc(2026, 11, 1), 0, utc(2026, 11, 1, 4), utc(2026, 11, 1)},
        {"America/New_York", utc(2026, 11, 1), 1200, utc(2026, 11, 1, 17), utc(2026, 11, 1)},
        {"America/New_York", utc(2024, 2, 29), 800, utc(2024, 2, 29, 13), utc(2024, 2, 29)},
        {"Pacific/Tongatapu", utc(2026, 3, 5), 0, utc(2026, 3, 4, 11), utc(2026, 3, 5)},
        {"Pacific/Kiritimati", utc(2026, 3, 5), 1730, utc(2026, 3, 5, 3, 30), utc(2026, 3, 4)},
        {"Pacific/Kiritimati", utc(2026, 3, 5), 0, utc(2026, 3, 4, 10), utc(2026, 3, 4)},
        {"Pacific/Pago_Pago", utc(2026, 3, 5), 1730, utc(2026, 3, 6, 4, 30), utc(2026, 3, 6)},
        {"Pacific/Pago_Pago", utc(2026, 3, 5), 0, utc(2026, 3, 5, 11), utc(2026, 3, 6)},
        {"Pacific/Honolulu", utc(2026, 3, 5), 0, utc(2026, 3, 5, 10), utc(2026, 3, 5)},
        // Past the last second 32 bits hold: mktime's -1, which rounds to 0.
        {"America/New_York", utc(2038, 1, 19), 0, -1, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.zone << " day " << c.day << " at " << c.hhmm);
        ScopedTz tz(c.zone);
        EXPECT_EQ(GMT_to_localEpoch(c.day, c.hhmm), c.local);
        EXPECT_EQ(local_to_GMTEpoch(c.local, c.hhmm), c.back);
    }
}

TEST(GMT_to_localEpoch, KeepsTheSecondsOfTheStoredValue) {
    ScopedTz tz("UTC");
    EXPECT_EQ(GMT_to_localEpoch(utc(2026, 3, 5, 3, 4, 17), 1200), utc(2026, 3, 5, 12, 0, 17));
}

TEST(date_epoch, LocalCalendarDateRounded) {
    struct Case {
        const char* zone;
        std::int32_t in;
        std::int32_t want;
    };
    const Case cases[] = {
        {"UTC", utc(2026, 3, 5, 3), utc(2026, 3, 5)},
        {"UTC", utc(2026, 3, 5, 23, 59), utc(2026, 3, 5)},
        // 22:00 on the 4th in New York.
        {"America/New_York", utc(2026, 3, 5, 3), utc(2026, 3, 4)},
        {"America/New_York", utc(2026, 3, 8, 12), utc(2026, 3, 8)},
        // Local midnight at +14 is 10:00 UTC of the day before: rounds down.
        {"Pacific/Kiritimati", utc(2026, 3, 5, 12), utc(2026, 3, 5)},
        // Local midnight at -11 is 11:00 UTC: rounds up.
        {"Pacific/Pago_Pago", utc(2026, 3, 5, 12), utc(2026, 3, 6)},
    };
    for (const auto& c : cases) {
        ScopedTz tz(c.zone);
        EXPECT_EQ(date_epoch(c.in), c.want) << c.zone << " " << c.in;
    }
}

TEST(epoch_to_tm, DateOfTheRoundedDayAtLocalTime) {
    {
        ScopedTz tz("America/New_York");
        std::tm tm{};
        // 15:00 UTC rounds to the next day.
        EXPECT_EQ(epoch_to_tm(utc(2026, 3, 5, 15), 930, &tm), utc(2026, 3, 6, 14, 30));
        EXPECT_EQ(tm.tm_year, 126);
        EXPECT_EQ(tm.tm_mon, 2);
        EXPECT_EQ(tm.tm_mday, 6);
        EXPECT_EQ(tm.tm_hour, 9);
        EXPECT_EQ(tm.tm_min, 30);
        EXPECT_EQ(tm.tm_wday, 5);
        EXPECT_EQ(tm.tm_yday, 64);
    }
    {
        ScopedTz tz("Pacific/Kiritimati");
        std::tm tm{};
        EXPECT_EQ(epoch_to_tm(utc(2026, 3, 5), 0, &tm), utc(2026, 3, 4, 10));
        EXPECT_EQ(tm.tm_mday, 5);
    }
    ScopedTz tz("UTC");
    EXPECT_EQ(epoch_to_tm(utc(2026, 3, 5), 1200, nullptr), utc(2026, 3, 5, 12));
}

TEST(date_time, TodayAndNow) {
    ScopedTz tz("America/New_York");
    const std::time_t before = std::time(nullptr);
    std::int32_t date = 0;
    std::int16_t hhmm = -1;
    date_time(&date, &hhmm);
    const std::time_t after = std::time(nullptr);
    const std::int32_t d0 = date_epoch(static_cast<std::int32_t>(before));
    const std::int32_t d1 = date_epoch(static_cast<std::int32_t>(after));
    EXPECT_TRUE(date == d0 || date == d1);
    EXPECT_EQ(date % 86400, 0);
    std::tm lb{}, la{};
    localtime_r(&before, &lb);
    localtime_r(&after, &la);
    EXPECT_TRUE(hhmm == lb.tm_hour * 100 + lb.tm_min || hhmm == la.tm_hour * 100 + la.tm_min) << hhmm;
    date_time(nullptr, nullptr);
}

}  // namespace
}  // namespace alm
