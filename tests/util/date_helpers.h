// Test helpers: a scoped time zone and an independent civil-date calculator
// so that expectations never come from the code under test.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace alm::test {

// Sets TZ for the life of the object and restores the previous value.
class ScopedTz {
public:
    explicit ScopedTz(const char* zone) {
        if (const char* old = std::getenv("TZ")) old_ = old;
        setenv("TZ", zone, 1);
        tzset();
    }
    ~ScopedTz() {
        if (old_) setenv("TZ", old_->c_str(), 1);
        else unsetenv("TZ");
        tzset();
    }
    ScopedTz(const ScopedTz&) = delete;
    ScopedTz& operator=(const ScopedTz&) = delete;

private:
    std::optional<std::string> old_;
};

// Sets or clears an environment variable for the life of the object.
class ScopedEnv {
public:
    ScopedEnv(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        if (value != nullptr) setenv(name, value, 1);
        else unsetenv(name);
    }
    ~ScopedEnv() {
        if (old_) setenv(name_.c_str(), old_->c_str(), 1);
        else unsetenv(name_.c_str());
    }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

private:
    std::string name_;
    std::optional<std::string> old_;
};

// Days since 1970-01-01 of a proleptic Gregorian date.
constexpr std::int64_t days_from_civil(int y, int m, int d) {
    y -= m <= 2;
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const int yoe = static_cast<int>(y - era * 400);
    const int doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const int doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

// 00:00 UTC of a calendar day, plus optional hours/minutes/seconds.
constexpr std::int32_t utc(int y, int m, int d, int hh = 0, int mm = 0, int ss = 0) {
    return static_cast<std::int32_t>(days_from_civil(y, m, d) * 86400 + hh * 3600 + mm * 60 + ss);
}

static_assert(utc(1970, 1, 1) == 0);
static_assert(utc(2026, 2, 1) == 1769904000);
static_assert(utc(2000, 2, 29) == 951782400);

inline int current_local_year() {
    std::time_t now = std::time(nullptr);
    std::tm tm{};
    localtime_r(&now, &tm);
    return tm.tm_year + 1900;
}

}  // namespace alm::test
