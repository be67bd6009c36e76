// Reading then writing gives the stored bytes back, for every record kind of
// both versions, wherever the fields can hold the values and, for V1 dates,
// in the numeric form the writer is set to.
#include <gtest/gtest.h>

#include <cstring>
#include <ostream>
#include <utility>
#include <vector>

#include "dates/date_helpers.h"
#include "forms/forms_helpers.h"
#include "plan/almforms.h"
#include "util/dateutil.h"
#include "util/endian.h"

namespace alm {
namespace {

using namespace alm::test;

struct DateAt {
    int date_off;
    int time_off;  // -1: the date goes with midnight
};

struct KindCase {
    const char* name;
    std::int16_t code;
    std::vector<int> v1_yymmdd;      // V1 offsets of yymmdd dates
    std::vector<int> v1_cal;         // V1 offsets of cal-form dates
    std::vector<DateAt> v2_dates;    // V2 date fields converted local <-> GMT
};
std::ostream& operator<<(std::ostream& os, const KindCase& k) { return os << k.name; }

const KindCase kKinds[] = {
    {"header", SH_CODE, {108, 112, 116}, {}, {{120, -1}, {124, -1}, {128, 202}}},
    {"workstation", SCI_CODE, {}, {}, {{56, 186}}},
    {"schedule", SS_CODE, {32, 112, 116}, {60}, {{324, -1}, {92, 84}, {328, 346}, {332, 348}}},
    {"job", SJ_CODE, {112, 116}, {60}, {{240, 156}, {244, 164}, {248, 166}}},
    {"prompt", SM_CODE, {}, {}, {{52, 64}, {56, 66}}},
    {"file", SF_CODE, {}, {}, {}},
    {"resource", SR_CODE, {}, {}, {}},
    {"calendar", SC_CODE, {}, {}, {}},
    {"string", ST_CODE, {}, {}, {}},
    {"dependency", SD_CODE, {}, {}, {}},
    {"purgeable", PJ_CODE, {}, {}, {}},
};

constexpr std::int32_t kYymmdd[] = {260305, 991231, 10101, 0, 32768, -32768, 270228};
constexpr std::uint16_t kCal[] = {64544, 0x8000, 0, 99 * 512 + 365, 127 * 512 + 1};
constexpr std::int16_t kTimes[] = {0, 1730, 2359, 945, 1};

class V1RoundTrip : public ::testing::TestWithParam<KindCase> {};

// Job union members in use, and the V1 bytes that the member leaves unused
// (these come back blank).
struct JobForm {
    std::uint16_t flags2_bits;
    bool external;
    bool submit;
    int unused_from, unused_to;    // in sj_fname_jname
    int unused2_from, unused2_to;  // in subdep
};
const JobForm kJobForms[] = {
    {0, false, false, 0, 0, 0, 0},
    {1u << sjf2_long_jcl, false, false, 0, 0, 0, 0},
    {1u << sjf2_alias, false, false, 24, 40, 0, 0},
    {0, false, true, 0, 0, 152, 256},
    {1u << sjf2_alias, true, true, 24, 40, 152, 256},
    {0, true, false, 0, 0, 200, 256},
    {(1u << sjf2_long_jcl) | (1u << sjf2_alias), true, false, 0, 0, 200, 256},
};

TEST_P(V1RoundTrip, ReadThenWriteGivesTheRecordBack) {
    const KindCase& k = GetParam();
    const bool is_job = k.code == SJ_CODE;
    const std::size_t forms = is_job ? std::size(kJobForms) : 1;
    for (const char* zone : {"UTC", "America/New_York"}) {
        ScopedTz tz(zone);
        for (int out_form : {0, 1}) {
            dte_out_fmt(out_form);
            for (unsigned seed = 1; seed <= 6; ++seed) {
                for (std::size_t f = 0; f < forms; ++f) {
                    SCOPED_TRACE(::testing::Message() << zone << " form " << out_form << " seed " << seed << " job form " << f);
                    ALMRECTYPE_INT in;
                    fill_pattern(in.bytes, sizeof in.bytes, seed * 31 + static_cast<unsigned>(f));
                    put16(&in, 0, static_cast<std::uint16_t>(k.code));
                    std::size_t i = seed;
                    std::vector<std::pair<int, std::int32_t>> full;  // where the century comes back
                    for (int off : k.v1_yymmdd) {
                        const std::int32_t d = kYymmdd[i++ % std::size(kYymmdd)];
                        put32(&in, off, static_cast<std::uint32_t>(d));
                        if (out_form == 0 && !is_no_date(d)) full.emplace_back(off, du_yy_ccyy(d / 10000) * 10000 + d % 10000);
                    }
                    for (int off : k.v1_cal) put16(&in, off, kCal[i++ % std::size(kCal)]);
                    unsigned char want[256];
                    std::memcpy(want, in.bytes, 256);
                    if (is_job) {
                        const JobForm& jf = kJobForms[f];
                        std::uint16_t flags2 = get16(&in, 66) & ~((1u << sjf2_long_jcl) | (1u << sjf2_alias));
                        put16(&in, 66, static_cast<std::uint16_t>(flags2 | jf.flags2_bits));
                        std::uint16_t re = get16(&in, 104) & ~(1u << sjrf_external);
                        put16(&in, 104, static_cast<std::uint16_t>(re | (jf.external ? 1u << sjrf_external : 0u)));
                        put16(&in, 134, jf.submit ? 0xFFFF : static_cast<std::uint16_t>(seed));
                        std::memcpy(want, in.bytes, 256);
                        std::memset(want + jf.unused_from, ' ', static_cast<std::size_t>(jf.unused_to - jf.unused_from));
                        std::memset(want + jf.unused2_from, ' ', static_cast<std::size_t>(jf.unused2_to - jf.unused2_from));
                    }
                    if (k.code == PJ_CODE) std::memset(want + 228, ' ', 28);
                    // Six-digit dates come back as stored only when the century
                    // is dropped (UNIDATESTRIP=0); otherwise they are written
                    // back with it.
                    for (const auto& [off, d] : full) store_le32(want + off, static_cast<std::uint32_t>(d));

                    ALMRECTYPE ext;
                    ASSERT_EQ(alm_i_2_e(&in, &ext, 0), 0);
                    ALMRECTYPE_INT back;
                    std::memset(back.bytes, 0, sizeof back.bytes);
                    ASSERT_EQ(alm_e_2_i(&ext, &back, 0), 0);
                    for (int b = 0; b < 256; ++b) ASSERT_EQ(back.bytes[b], want[b]) << "byte " << b;
                }
            }
        }
    }
    out_dte_fmt = -1;
}

INSTANTIATE_TEST_SUITE_P(Kinds, V1RoundTrip, ::testing::ValuesIn(kKinds),
                         [](const auto& info) { return std::string(info.param.name); });

struct Zone {
    const char* name;
    int winter_offset;  // hours east of UTC in January
    int summer_offset;  // and in July
};
const Zone kZones[] = {{"UTC", 0, 0}, {"America/New_York", -5, -4}, {"Pacific/Honolulu", -10, -10}};

class V2RoundTrip : public ::testing::TestWithParam<KindCase> {};

TEST_P(V2RoundTrip, DatesBecomeGmtDaysAndComeBack) {
    const KindCase& k = GetParam();
    for (const Zone& z : kZones) {
        ScopedTz tz(z.name);
        for (unsigned seed = 1; seed <= 8; ++seed) {
            SCOPED_TRACE(::testing::Message() << z.name << " seed " << seed);
            ALMRECTYPE_INT in;
            fill_pattern(in.bytes, sizeof in.bytes, seed);
            put16(&in, 0, static_cast<std::uint16_t>(k.code));
            std::vector<std::int32_t> want_gmt;
            std::size_t i = seed;
            for (const DateAt& d : k.v2_dates) {
                const std::int16_t hhmm = d.time_off < 0 ? 0 : kTimes[i % std::size(kTimes)];
                if (d.time_off >= 0) put16(&in, d.time_off, static_cast<std::uint16_t>(hhmm));
                const int pick = static_cast<int>(i++ % 5);
                std::int32_t stored;
                std::int32_t gmt;
                if (pick == 3) {
                    stored = gmt = (seed % 2) ? 32768 : 0;
                } else {
                    const bool summer = pick == 1;
                    gmt = summer ? utc(2026, 7, 4) : utc(2026, 1, 15 + pick);
                    const int offset = summer ? z.summer_offset : z.winter_offset;
                    stored = gmt + (hhmm / 100) * 3600 + (hhmm % 100) * 60 - offset * 3600;
                }
                put32(&in, d.date_off, static_cast<std::uint32_t>(stored));
                want_gmt.push_back(gmt);
            }
            ALMRECTYPE ext;
            ASSERT_EQ(alm_i_2_e(&in, &ext, 1), 0);
            for (std::size_t n = 0; n < k.v2_dates.size(); ++n)
                EXPECT_EQ(static_cast<std::int32_t>(get32(&ext, k.v2_dates[n].date_off)), want_gmt[n]) << "date " << n;
            // Everything else is copied as it stands.
            std::vector<bool> is_date(512, false);
            for (const DateAt& d : k.v2_dates)
                for (int b = 0; b < 4; ++b) is_date[static_cast<std::size_t>(d.date_off + b)] = true;
            for (int b = 0; b < 512; ++b) {
                if (!is_date[static_cast<std::size_t>(b)]) {
                    ASSERT_EQ(ext.bytes[b], in.bytes[b]) << "byte " << b;
                }
            }

            ALMRECTYPE_INT back;
            std::memset(back.bytes, 0, sizeof back.bytes);
            ASSERT_EQ(alm_e_2_i(&ext, &back, 1), 0);
            EXPECT_EQ(std::memcmp(back.bytes, in.bytes, 512), 0);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, V2RoundTrip, ::testing::ValuesIn(kKinds),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(V2Read, NoDateValuesWhateverTheTime) {
    ScopedTz tz("America/New_York");
    for (std::int32_t nd : {0, 32768, -32768}) {
        ALMRECTYPE_INT in;
        std::memset(in.bytes, 0, sizeof in.bytes);
        put16(&in, 0, static_cast<std::uint16_t>(SJ_CODE));
        put32(&in, 244, static_cast<std::uint32_t>(nd));  // sj_sched_date
        put16(&in, 164, 1730);                            // sj_start_time
        ALMRECTYPE ext;
        ASSERT_EQ(alm_i_2_e(&in, &ext, 1), 0);
        EXPECT_EQ(ext.sj.sj_sched_date, nd);
        ALMRECTYPE_INT back;
        ASSERT_EQ(alm_e_2_i(&ext, &back, 1), 0);
        EXPECT_EQ(static_cast<std::int32_t>(get32(&back, 244)), nd);
    }
}

}  // namespace
}  // namespace alm
