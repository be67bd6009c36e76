// Fields set by name land at their byte offsets in the written file, in both
// versions; the field list covers every layout exactly.
#include <cstddef>
#include <cstdlib>
#include <ctime>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "almplan/plantest.h"
#include "util/endian.h"

namespace almtest {
namespace {

using namespace alm;

// One record of every kind the builder makes; the comment is its record number.
const std::vector<std::string> kBaseLines{
    "workstation W",    // 1
    "calendar C",       // 2
    "prompt P",         // 3
    "file W /f",        // 4
    "resource W R",     // 5
    "schedule W S",     // 6
    "job J",            // 7
};

// The description with `line` added to record `rec` (0: the header).
std::string with_line(int rec, const std::string& line) {
    std::string text;
    if (rec == 0) text += "header\n  " + line + "\n";
    for (std::size_t i = 0; i < kBaseLines.size(); ++i) {
        text += kBaseLines[i] + "\n";
        if (static_cast<int>(i) + 1 == rec) text += "  " + line + "\n";
    }
    return text;
}

struct FieldCase {
    const char* line;
    int rec;
    std::size_t off;  // in the raw record of the file
    int width;        // bytes; text fields compare `text` blank-padded to this width
    std::uint64_t value;
    const char* text;
};

std::string padded(const char* text, int width) {
    std::string s(text);
    s.resize(static_cast<std::size_t>(width), ' ');
    return s;
}

void check_case(const FieldCase& c, bool v1) {
    TempDir dir;
    const std::string desc = dir.write("d.txt", with_line(c.rec, c.line));
    std::vector<std::string> args{"build"};
    if (v1) args.push_back("--v1");
    args.push_back(desc);
    args.push_back(dir.file("p"));
    const RunResult r = run_almplan(args);
    ASSERT_EQ(r.status, 0) << r.err;
    const std::string bytes = read_file(dir.file("p"));
    const std::size_t rec_size = v1 ? 256 : 512;
    ASSERT_EQ(bytes.size(), 8 * rec_size);
    const auto* raw = reinterpret_cast<const unsigned char*>(bytes.data()) + static_cast<std::size_t>(c.rec) * rec_size;
    if (c.text != nullptr) {
        EXPECT_EQ(std::string(reinterpret_cast<const char*>(raw) + c.off, static_cast<std::size_t>(c.width)),
                  padded(c.text, c.width));
        return;
    }
    std::uint64_t got = 0;
    for (int i = c.width - 1; i >= 0; --i) got = (got << 8) | raw[c.off + static_cast<std::size_t>(i)];
    EXPECT_EQ(got, c.value) << "at offset " << c.off;
}

// clang-format off
const FieldCase kV2Cases[] = {
    {"set sh_run_number 412", 0, offsetof(SH_RECTYPE, sh_run_number), 2, 412, nullptr},
    {"set sh_first_sched 32768", 0, offsetof(SH_RECTYPE, sh_first_sched), 4, 32768, nullptr},
    {"set sci_node_addr 0x0a000001", 1, offsetof(SCI_RECTYPE, sci_node_addr), 4, 0x0a000001, nullptr},
    {"set sci_rec_num 70000", 1, offsetof(SCI_RECTYPE, sci_rec_num), 4, 70000, nullptr},
    {"set sci_node_name node1.example.net", 1, offsetof(SCI_RECTYPE, sci_node_name), 52, 0, "node1.example.net"},
    {"set sc_cal_dates[5] 123", 2, offsetof(SC_RECTYPE, sc_cal_dates) + 20, 4, 123, nullptr},
    {"set sm_msg_no 42", 3, offsetof(SM_RECTYPE, sm_msg_no), 2, 42, nullptr},
    {"set sm_filler1[2] -2", 3, offsetof(SM_RECTYPE, sm_filler1) + 4, 2, 0xFFFE, nullptr},
    {"text \"Mount tape 7\"", 3, offsetof(SM_RECTYPE, sm_message), 80, 0, "Mount tape 7"},
    {"set timer2 -5", 4, offsetof(SF_RECTYPE, sf_timer) + 2, 2, 0xFFFB, nullptr},
    {"set sr_num_avail -1", 5, offsetof(SR_RECTYPE, sr_num_avail), 4, 0xFFFFFFFF, nullptr},
    {"set ss_depend_flags[3] 0x83", 6, offsetof(SS_RECTYPE, ss_depend_flags) + 3, 1, 0x83, nullptr},
    {"set ss_sched_pri.priority 99", 6, offsetof(SS_RECTYPE, ss_sched_pri), 1, 99, nullptr},
    {"set sj_dependencies[39] 0xdeadbeef", 7, offsetof(SJ_RECTYPE, subdep.deps.sj_dependencies) + 156, 4,
     0xdeadbeef, nullptr},
    {"set sj_rec_ptrs 0x12345", 7, offsetof(SJ_RECTYPE, sj_rec_ptrs), 4, 0x12345, nullptr},
    {"set jcl_file /x/run.sh", 7, offsetof(SJ_RECTYPE, sj_fname_jname), 24, 0, "/x/run.sh"},
    {"set jcl_loc.st_rec_num 44", 7, offsetof(SJ_RECTYPE, sj_fname_jname) + 36, 4, 44, nullptr},
    {"set sj_re_for_job RECOVER", 7, offsetof(SJ_RECTYPE, subdep.submit.sj_re_for_job), 40, 0, "RECOVER"},
    {"set sj_job_pri.orig_pri 3", 7, offsetof(SJ_RECTYPE, sj_job_pri) + 1, 1, 3, nullptr},
    {"set sj_job_user \"ops admin\"", 7, offsetof(SJ_RECTYPE, sj_job_user), 48, 0, "ops admin"},
    {"link sj_re_job_ptr prompt P", 7, offsetof(SJ_RECTYPE, sj_re_job_ptr), 4, 3, nullptr},
    {"link sm_job_ptr job W S J", 3, offsetof(SM_RECTYPE, sm_job_ptr), 4, 7, nullptr},
};

const FieldCase kV1Cases[] = {
    {"set sh_run_number 412", 0, offsetof(SH_RECTYPE_V1, sh_run_number), 2, 412, nullptr},
    {"set sci_node_name node1.example.net", 1, offsetof(SCI_RECTYPE_V1, sci_node_name), 52, 0,
     "node1.example.net"},
    {"set sci_rec_num 700", 1, offsetof(SCI_RECTYPE_V1, sci_rec_num), 2, 700, nullptr},
    {"set sr_num_avail -1", 5, offsetof(SR_RECTYPE_V1, sr_num_avail), 2, 0xFFFF, nullptr},
    {"set sr_holders[1] 300", 5, offsetof(SR_RECTYPE_V1, sr_holders) + 2, 2, 300, nullptr},
    {"set ss_dependencies[2] 0x1234", 6, offsetof(SS_RECTYPE_V1, ss_dependencies) + 4, 2, 0x1234, nullptr},
    {"set ss_depend_flags[3] 0x83", 6, offsetof(SS_RECTYPE_V1, ss_depend_flags) + 3, 1, 0x83, nullptr},
    {"set sj_dependencies[2] 0x2345", 7, offsetof(SJ_RECTYPE_V1, subdep.deps.sj_dependencies) + 4, 2, 0x2345,
     nullptr},
    {"set sj_rec_num 70000", 7, offsetof(SJ_RECTYPE_V1, sj_rec_num), 2, 70000 & 0xFFFF, nullptr},
    {"set jcl_file /x/run.sh", 7, offsetof(SJ_RECTYPE_V1, sj_fname_jname), 24, 0, "/x/run.sh"},
    {"set sj_job_user ops", 7, offsetof(SJ_RECTYPE_V1, sj_job_user), 8, 0, "ops"},
};
// clang-format on

class FieldByNameV2 : public ::testing::TestWithParam<FieldCase> {};
TEST_P(FieldByNameV2, LandsAtItsOffset) { check_case(GetParam(), false); }
INSTANTIATE_TEST_SUITE_P(Cases, FieldByNameV2, ::testing::ValuesIn(kV2Cases));

class FieldByNameV1 : public ::testing::TestWithParam<FieldCase> {};
TEST_P(FieldByNameV1, LandsAtItsOffset) { check_case(GetParam(), true); }
INSTANTIATE_TEST_SUITE_P(Cases, FieldByNameV1, ::testing::ValuesIn(kV1Cases));

TEST(FieldByName, BuilderDefaultsAreKeptUnlessGiven) {
    TempDir dir;
    const std::string desc = dir.write("d.txt", with_line(0, "set sh_num_cpus 0"));
    ASSERT_EQ(run_almplan({"build", desc, dir.file("p")}).status, 0);
    Plan p;
    ASSERT_TRUE(p.load(dir.file("p")));
    EXPECT_EQ(p.i16(0, offsetof(SH_RECTYPE, sh_num_cpus)), 0);  // as given
    EXPECT_EQ(p.u32(0, offsetof(SH_RECTYPE, sh_first_cpu)), 1u);  // as built
    EXPECT_EQ(p.i16(7, offsetof(SJ_RECTYPE, sj_status)), 1);      // a new job is on hold
    EXPECT_EQ(p.u32(7, offsetof(SJ_RECTYPE, sj_restart_ptr)), NULL_REC);
    EXPECT_EQ(p.u32(7, offsetof(SJ_RECTYPE, sj_cont_rec)), NULL_REC);
    EXPECT_EQ(p.text(7, offsetof(SJ_RECTYPE, sj_job_user), 48), "");
    EXPECT_EQ(p.ext(7).bytes[offsetof(SJ_RECTYPE, sj_job_user) + 47], ' ');  // blank-padded, not NUL
    EXPECT_EQ(p.text(3, offsetof(SM_RECTYPE, sm_cpu_id), 16), "W");          // prompts belong to the master
}

// Dates given as local date and time are stored as local epoch seconds in V2
// and as ccyymmdd or yymmdd in V1, and read back as the GMT day plus the
// time field.
class DateFields : public ::testing::Test {
protected:
    void SetUp() override {
        save("TZ", tz_);
        save("UNIDATESTRIP", strip_);
        ::setenv("TZ", "ALM-03:30", 1);  // 3 h 30 east of UTC, no daylight saving
        ::unsetenv("UNIDATESTRIP");
        ::tzset();
    }
    void TearDown() override {
        restore("TZ", tz_);
        restore("UNIDATESTRIP", strip_);
        ::tzset();
    }

private:
    static void save(const char* name, std::optional<std::string>& slot) {
        if (const char* v = std::getenv(name)) slot = v;
    }
    static void restore(const char* name, const std::optional<std::string>& slot) {
        if (slot) ::setenv(name, slot->c_str(), 1);
        else ::unsetenv(name);
    }
    std::optional<std::string> tz_;
    std::optional<std::string> strip_;
};

TEST_F(DateFields, StoredInTheFormOfTheVersion) {
    std::tm tm{};
    tm.tm_year = 2026 - 1900;
    tm.tm_mon = 10;
    tm.tm_mday = 22;
    const auto day = static_cast<std::int32_t>(timegm(&tm));
    TempDir dir;
    const std::string desc = dir.write("d.txt", with_line(7, "set sj_sched_date 2026-11-22 06:00"));
    ASSERT_EQ(run_almplan({"build", desc, dir.file("v2")}).status, 0);

    Plan v2;
    ASSERT_TRUE(v2.load(dir.file("v2")));
    EXPECT_EQ(static_cast<std::int32_t>(load_le32(v2.raw(7) + offsetof(SJ_RECTYPE, sj_sched_date))),
              day + 6 * 3600 - 3 * 3600 - 1800);
    EXPECT_EQ(load_le16(v2.raw(7) + offsetof(SJ_RECTYPE, sj_start_time)), 600);
    EXPECT_EQ(v2.i32(7, offsetof(SJ_RECTYPE, sj_sched_date)), day);

    // V1 keeps the century unless UNIDATESTRIP is 0; either reads back as
    // the same day.
    const struct {
        const char* strip;  // nullptr: unset
        std::int32_t stored;
    } cases[] = {{nullptr, 20261122}, {"0", 261122}, {"1", 20261122}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.strip != nullptr ? c.strip : "unset");
        if (c.strip != nullptr) ::setenv("UNIDATESTRIP", c.strip, 1);
        else ::unsetenv("UNIDATESTRIP");
        ASSERT_EQ(run_almplan({"build", "--v1", desc, dir.file("v1")}).status, 0);
        Plan v1;
        ASSERT_TRUE(v1.load(dir.file("v1")));
        EXPECT_EQ(static_cast<std::int32_t>(load_le32(v1.raw(7) + offsetof(SJ_RECTYPE_V1, sj_sched_date))), c.stored);
        EXPECT_EQ(load_le16(v1.raw(7) + offsetof(SJ_RECTYPE_V1, sj_start_time)), 600);
        EXPECT_EQ(v1.i32(7, offsetof(SJ_RECTYPE, sj_sched_date)), day);
    }
}

TEST(RawDependencies, FlagsAndRecordNumbersAsGiven) {
    TempDir dir;
    const std::string desc = dir.write("d.txt",
                                       "workstation W\n"
                                       "schedule W S\n"
                                       "  dep 0x83 sched W S2\n"
                                       "  dep 0x09 rec 7\n"
                                       "  dep 0x80 rec 32768\n"
                                       "  dep 4 rec 99999\n"
                                       "job A\n"
                                       "job B\n"
                                       "  link sj_next_job_ptr job W S A\n"
                                       "  dep 0x80 job W S A\n"
                                       "  dep resource W R 96\n"
                                       "resource W R\n"
                                       "schedule W S2\n");
    const RunResult r = run_almplan({"build", desc, dir.file("p")});
    ASSERT_EQ(r.status, 0) << r.err;
    Plan p;
    ASSERT_TRUE(p.load(dir.file("p")));
    // 0 header, 1 W, 2 R, then S 3 with A 4 and B 5, S2 6.
    ASSERT_EQ(p.count(), 7u);
    const unsigned char* s = p.raw(3);
    EXPECT_EQ(load_le16(s + offsetof(SS_RECTYPE, ss_num_depends)), 4);
    const std::uint8_t flags[] = {0x83, 0x09, 0x80, 0x04};
    const std::uint32_t recs[] = {6, 7, 32768, 99999};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(s[offsetof(SS_RECTYPE, ss_depend_flags) + i], flags[i]) << i;
        EXPECT_EQ(load_le32(s + offsetof(SS_RECTYPE, ss_dependencies) + 4 * i), recs[i]) << i;
    }
    const unsigned char* b = p.raw(5);
    EXPECT_EQ(load_le32(b + offsetof(SJ_RECTYPE, sj_next_job_ptr)), 4u);  // a loop back to A
    EXPECT_EQ(load_le32(p.raw(4) + offsetof(SJ_RECTYPE, sj_next_job_ptr)), 5u);
    EXPECT_EQ(b[offsetof(SJ_RECTYPE, subdep.deps.sj_depend_flags)], 0x80);
    EXPECT_EQ(b[offsetof(SJ_RECTYPE, subdep.deps.sj_depend_flags) + 1], 127);
    EXPECT_EQ(load_le32(b + offsetof(SJ_RECTYPE, subdep.deps.sj_dependencies) + 4), 2u);
    EXPECT_EQ(load_le16(p.raw(0) + offsetof(SH_RECTYPE, sh_num_depends)), 6);
}

struct ListedField {
    std::string name;
    unsigned offset, width, count;
    std::string type, role;
};

std::map<std::string, std::vector<ListedField>> list_fields() {
    const RunResult r = run_almplan({"fields"});
    EXPECT_EQ(r.status, 0) << r.err;
    std::map<std::string, std::vector<ListedField>> kinds;
    std::istringstream in(r.out);
    std::string kind;
    ListedField f;
    while (in >> kind >> f.name >> f.offset >> f.width >> f.count >> f.type >> f.role) kinds[kind].push_back(f);
    return kinds;
}

TEST(FieldList, CoversEveryLayoutExactly) {
    const auto kinds = list_fields();
    EXPECT_EQ(kinds.size(), 9u);
    for (const auto& [kind, fields] : kinds) {
        unsigned next = 0;
        for (const ListedField& f : fields) {
            const unsigned size = f.width * f.count;
            EXPECT_LE(f.offset + size, 512u) << kind << " " << f.name;
            if (f.role == "alias") continue;
            EXPECT_EQ(f.offset, next) << kind << " " << f.name << " leaves a gap or overlaps";
            next = f.offset + size;
            if (f.type != "text") {
                EXPECT_TRUE(f.width == 1 || f.width == 2 || f.width == 4) << kind << " " << f.name;
                EXPECT_EQ(f.offset % f.width, 0u) << kind << " " << f.name << " misaligned";
            }
        }
        EXPECT_EQ(next, 512u) << kind;
    }
}

}  // namespace
}  // namespace almtest
