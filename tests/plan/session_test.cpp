#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fstream>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "common/child_process.h"
#include "plan/almaccs.h"
#include "plan/almfind.h"
#include "plan/almreadahead.h"
#include "plan_files.h"
#include "util/dateutil.h"
#include "util/endian.h"

namespace alm {
namespace {

using test::HoldingChild;
using test::Record;

void append(const std::string& path, const Record& r) {
    std::ofstream out(path, std::ios::binary | std::ios::app);
    out.write(reinterpret_cast<const char*>(r.data()), static_cast<std::streamsize>(r.size()));
}

std::string field(const char* f, std::size_t n) {
    std::string s(f, n);
    return s.substr(0, s.find_last_not_of(' ') + 1);
}

class SessionTest : public ::testing::Test {
protected:
    test::TempDir dir;
    char errtext[ALM_ERRTEXT_SIZE] = {};

    // A plan with two workstations, two schedules and three jobs:
    // 1 IC A, 2 IC B, 3 RS A/S1, 4 RJ J1, 5 RJ J2, 6 RS B/S2, 7 RJ J3.
    std::string small_plan(const std::string& name, bool v2 = true) {
        return test::make_plan(dir.file(name),
                               "workstation A\nworkstation B\nschedule A S1\njob J1\njob J2\n"
                               "schedule B S2\njob J3\n",
                               !v2);
    }

    alm_comarea* open_ok(const std::string& path, int mode = ALM_MODE_READ, SH_RECTYPE* hdr = nullptr) {
        alm_comarea* ca = nullptr;
        SH_RECTYPE local{};
        int rc = alm_open_text(path.c_str(), mode, 0, &ca, hdr != nullptr ? hdr : &local, errtext);
        EXPECT_EQ(rc, 0) << errtext;
        EXPECT_STREQ(errtext, "");
        return ca;
    }

    static void close_ok(alm_comarea*& ca, int flags = 0) {
        int err = -1;
        char msg[300] = "junk";
        alm_close(ca, flags, &err, msg, sizeof msg);
        EXPECT_EQ(err, 0) << msg;
        EXPECT_EQ(ca, nullptr);
    }
};

TEST_F(SessionTest, UnopenableFileGives1) {
    alm_comarea* ca = nullptr;
    // A directory cannot be opened for writing (EISDIR).
    EXPECT_EQ(alm_open_text(dir.path().c_str(), ALM_MODE_UPDATE, 0, &ca, nullptr, errtext), ALM_E_OPEN);
    EXPECT_EQ(ca, nullptr);
    EXPECT_NE(std::string(errtext).find("20720001"), std::string::npos) << errtext;
}

TEST_F(SessionTest, OpenFillsTheSession) {
    std::string path = small_plan("plan");
    SH_RECTYPE hdr{};
    alm_comarea* ca = open_ok(path, ALM_MODE_READ, &hdr);
    ASSERT_NE(ca, nullptr);
    EXPECT_EQ(ca->magic_num, ALM_MAGIC);
    EXPECT_EQ(ca->opened, 1);
    EXPECT_EQ(ca->exclusive, 0);
    EXPECT_EQ(ca->production, 0);
    EXPECT_EQ(ca->locked, 0);  // the presence lock is not recorded
    EXPECT_EQ(ca->err_type, 0);
    EXPECT_EQ(ca->num_recs, 8);
    EXPECT_STREQ(ca->filename, path.c_str());
    EXPECT_NE(ca->filename, path.c_str());  // a private copy
    EXPECT_NE(ca->sh_rec, &hdr);

    int fdflags = ::fcntl(ca->fnum, F_GETFD);
    EXPECT_NE(fdflags & FD_CLOEXEC, 0);
    EXPECT_EQ(::fcntl(ca->fnum, F_GETFL) & O_ACCMODE, O_RDONLY);

    EXPECT_EQ(hdr.alm_rec_type, SH_CODE);
    EXPECT_EQ(hdr.sh_alm_version, 1);
    EXPECT_EQ(field(hdr.sh_cpu_id, 16), "A");
    EXPECT_EQ(hdr.sh_first_cpu, 1u);
    EXPECT_EQ(hdr.sh_first_sched, 3u);
    EXPECT_EQ(std::memcmp(&hdr, ca->sh_rec, sizeof hdr), 0);
    close_ok(ca);
}

TEST_F(SessionTest, OpenModesChooseAccessAndLocks) {
    std::string path = small_plan("plan");
    alm_comarea* ca = open_ok(path, ALM_MODE_UPDATE);
    ASSERT_NE(ca, nullptr);
    int fl = ::fcntl(ca->fnum, F_GETFL);
    EXPECT_EQ(fl & O_ACCMODE, O_RDWR);
    EXPECT_NE(fl & O_SYNC, 0);
    EXPECT_EQ(ca->exclusive, 0);
    close_ok(ca);

    ca = open_ok(path, ALM_MODE_EXCLUSIVE);
    ASSERT_NE(ca, nullptr);
    EXPECT_EQ(::fcntl(ca->fnum, F_GETFL) & O_ACCMODE, O_RDWR);
    EXPECT_EQ(ca->exclusive, 1);
    EXPECT_EQ(ca->locked, 1);  // the whole-file lock is kept
    EXPECT_EQ(ca->lk_dscrpt.l_type, F_WRLCK);
    EXPECT_EQ(ca->lk_dscrpt.l_start, 0);
    EXPECT_EQ(ca->lk_dscrpt.l_len, 0);
    close_ok(ca);
}

TEST_F(SessionTest, CallerBuffersAreKeptWhenFlagged) {
    std::string path = small_plan("plan");
    SH_RECTYPE hdr{};
    alm_comarea* ca = nullptr;
    ASSERT_EQ(alm_open_text(path.c_str(), 0, ALM_OPEN_CALLER_HDR | ALM_OPEN_CALLER_NAME, &ca, &hdr, errtext), 0);
    EXPECT_EQ(ca->sh_rec, &hdr);
    EXPECT_EQ(ca->filename, path.c_str());
    EXPECT_EQ(hdr.sh_first_cpu, 1u);
    close_ok(ca);
}

TEST_F(SessionTest, V1HeaderIsWidenedAndRecordsAre256Bytes) {
    std::string path = small_plan("plan1", false);
    SH_RECTYPE hdr{};
    alm_comarea* ca = open_ok(path, ALM_MODE_READ, &hdr);
    ASSERT_NE(ca, nullptr);
    EXPECT_EQ(hdr.sh_alm_version, 0);
    EXPECT_EQ(hdr.sh_cont_rec, NULL_REC);
    EXPECT_EQ(hdr.sh_rec_version, 0);
    EXPECT_EQ(hdr.sh_first_cpu, 1u);
    EXPECT_EQ(hdr.sh_first_cal, NULL_REC);
    EXPECT_EQ(ca->num_recs, 8);
    EXPECT_EQ(alm_rec_size_of(ca), 256);

    SJ_RECTYPE job{};
    EXPECT_EQ(alm_read_job(ca, 5, &job), 256);
    EXPECT_EQ(field(job.sj_job_name, 40), "J2");
    EXPECT_EQ(job.sj_rec_num, 5u);
    EXPECT_EQ(job.sj_next_job_ptr, NULL_REC);
    EXPECT_EQ(job.sj_sched_ptr, 3u);
    SJ_RECTYPE links{};  // a V1 job is read whole for its links too
    EXPECT_EQ(alm_read_job_links(ca, 5, &links), 256);
    EXPECT_EQ(std::memcmp(&job, &links, sizeof links), 0);
    close_ok(ca);
}

TEST_F(SessionTest, Version2FileIsReadWith512ByteRecordsLeftUnconverted) {
    auto recs = test::records(test::make_plan(dir.file("built"), "workstation A\n"));
    test::put16(recs[0], 254, 2);
    recs.push_back(Record(100, 'x'));  // a partial last record does not count
    std::string path = dir.file("plan");
    test::write_records(path, recs);

    SH_RECTYPE hdr{};
    alm_comarea* ca = open_ok(path, ALM_MODE_READ, &hdr);
    ASSERT_NE(ca, nullptr);
    EXPECT_EQ(ca->num_recs, 2);
    EXPECT_EQ(alm_rec_size_of(ca), 512);
    EXPECT_EQ(hdr.sh_alm_version, 2);
    EXPECT_EQ(hdr.alm_rec_type, SH_CODE);
    // Only the first half of the header was read.
    EXPECT_EQ(hdr.sh_filler3[0], 0);

    // No conversion for that version: the caller's buffer keeps what it held.
    SCI_RECTYPE cpu{};
    std::memset(&cpu, 0x5A, sizeof cpu);
    EXPECT_EQ(alm_read_cpu_info(ca, 1, &cpu), 512);
    const auto* bytes = reinterpret_cast<const unsigned char*>(&cpu);
    for (std::size_t i = 0; i < sizeof cpu; ++i) ASSERT_EQ(bytes[i], 0x5A) << i;
    close_ok(ca);
}

TEST_F(SessionTest, JobReadsDeliverWhatTheirDetailSays) {
    auto recs = test::records(small_plan("built"));
    Record& j1 = recs[4];
    test::put32(j1, offsetof(SJ_RECTYPE, sj_restart_ptr), 6);
    const std::string path = dir.file("plan");
    test::write_records(path, recs);
    alm_comarea* ca = open_ok(path);
    ASSERT_NE(ca, nullptr);

    // Of a links read only these fields are the record's; the rest is the caller's.
    SJ_RECTYPE links{};
    std::memset(&links, 0x5A, sizeof links);
    EXPECT_EQ(alm_read_job_links(ca, 4, &links), 512);
    const std::pair<std::size_t, std::size_t> kept[] = {
        {offsetof(SJ_RECTYPE, alm_rec_type), 2}, {offsetof(SJ_RECTYPE, sj_rec_num), 4}, {offsetof(SJ_RECTYPE, sj_job_name), 40},
        {offsetof(SJ_RECTYPE, sj_sched_ptr), 4}, {offsetof(SJ_RECTYPE, sj_next_job_ptr), 4},
        {offsetof(SJ_RECTYPE, sj_restart_ptr), 4}, {offsetof(SJ_RECTYPE, sj_num_depends), 2},
        {offsetof(SJ_RECTYPE, subdep.deps.sj_depend_flags), 40}};
    const auto* got = reinterpret_cast<const unsigned char*>(&links);
    for (std::size_t i = 0; i < sizeof links; ++i) {
        bool read = false;
        for (const auto& [off, size] : kept) read = read || (i >= off && i < off + size);
        ASSERT_EQ(got[i], read ? j1[i] : 0x5A) << i;
    }
    close_ok(ca);
}

TEST_F(SessionTest, RecordNumberErrors) {
    std::string path = small_plan("plan");
    alm_comarea* ca = open_ok(path);
    ASSERT_NE(ca, nullptr);
    ALMRECTYPE rec{};

    EXPECT_EQ(alm_read(ca, NULL_REC, &rec), -1);
    EXPECT_EQ(ca->err_type, ALM_E_NULLREC);
    EXPECT_EQ(ca->err_num, ERANGE);
    EXPECT_EQ(ca->last_recnum, 32768);

    EXPECT_EQ(alm_read(ca, 8, &rec), -1);
    EXPECT_EQ(ca->err_type, ALM_E_RANGE);
    EXPECT_EQ(ca->err_num, 0);
    EXPECT_EQ(ca->last_recnum, 8);

    EXPECT_EQ(alm_read(ca, 0xFFFFFFFFu, &rec), -1);
    EXPECT_EQ(ca->err_type, ALM_E_RANGE);

    EXPECT_EQ(alm_read(ca, 7, &rec), 512);
    EXPECT_EQ(ca->err_type, 0);
    EXPECT_EQ(rec.alm_rec_type, SJ_CODE);
    close_ok(ca);
}

TEST_F(SessionTest, Record32768IsRefusedEvenInsideTheFile) {
    std::string path = small_plan("plan");
    ASSERT_EQ(::truncate(path.c_str(), 40000LL * 512), 0);  // sparse
    alm_comarea* ca = open_ok(path);
    ASSERT_NE(ca, nullptr);
    EXPECT_EQ(ca->num_recs, 40000);
    ALMRECTYPE rec{};
    EXPECT_EQ(alm_read(ca, NULL_REC, &rec), -1);
    EXPECT_EQ(ca->err_type, ALM_E_NULLREC);
    EXPECT_EQ(alm_read(ca, 32767, &rec), 512);
    close_ok(ca);
}

TEST_F(SessionTest, GrowingFileIsReadPastItsFirstEnd) {
    std::string path = small_plan("plan");
    alm_comarea* ca = open_ok(path);
    ASSERT_NE(ca, nullptr);
    ASSERT_EQ(ca->num_recs, 8);

    auto extra = test::records(test::make_plan(dir.file("more"), "workstation Z\nschedule Z LATE\njob LATEJOB\n"));
    append(path, extra[3]);  // a job record becomes record 8

    SJ_RECTYPE job{};
    EXPECT_EQ(alm_read_job(ca, 8, &job), 512);
    EXPECT_EQ(field(job.sj_job_name, 40), "LATEJOB");
    EXPECT_EQ(ca->num_recs, 9);
    EXPECT_EQ(alm_read_job(ca, 9, &job), -1);
    EXPECT_EQ(ca->err_type, ALM_E_RANGE);
    close_ok(ca);
}

TEST_F(SessionTest, ExclusiveSessionDoesNotMeasureAgain) {
    std::string path = small_plan("plan");
    alm_comarea* ca = open_ok(path, ALM_MODE_EXCLUSIVE);
    ASSERT_NE(ca, nullptr);
    append(path, Record(512, 0));
    ALMRECTYPE rec{};
    EXPECT_EQ(alm_read(ca, 8, &rec), -1);
    EXPECT_EQ(ca->err_type, ALM_E_RANGE);
    EXPECT_EQ(ca->num_recs, 8);
    close_ok(ca);
}

// A record cut short after the open is read as far as it goes, the rest
// zero; one cut away whole reads as a record of kind 0, an unknown kind,
// which leaves the caller's buffer as it was.
TEST_F(SessionTest, ShortRecordIsReadAsFarAsItGoes) {
    std::string path = small_plan("plan");
    alm_comarea* ca = open_ok(path);
    ASSERT_NE(ca, nullptr);
    ASSERT_EQ(::truncate(path.c_str(), 6 * 512 + 100), 0);
    ALMRECTYPE rec;
    std::memset(&rec, 0x5A, sizeof rec);
    EXPECT_EQ(alm_read(ca, 6, &rec), 100);
    EXPECT_EQ(ca->err_type, 0);
    EXPECT_EQ(rec.alm_rec_type, SS_CODE);
    EXPECT_EQ(field(rec.ss.ss_sched_name, 16), "S2");
    for (std::size_t i = 100; i < sizeof rec; ++i) ASSERT_EQ(rec.bytes[i], 0) << i;

    SJ_RECTYPE job;
    std::memset(&job, 0x5A, sizeof job);
    const auto* bytes = reinterpret_cast<const unsigned char*>(&job);
    EXPECT_EQ(alm_read_job(ca, 7, &job), -1);
    EXPECT_EQ(ca->err_type, ALM_E_KIND);
    EXPECT_EQ(ca->found_type, 0);
    for (std::size_t i = 0; i < sizeof job; ++i) ASSERT_EQ(bytes[i], 0x5A) << i;
    close_ok(ca);
}

struct TypedCase {
    const char* name;
    std::uint32_t good_rec;
    std::int16_t code;
    int (*read)(alm_comarea*, std::uint32_t, ALMRECTYPE*);
};

const TypedCase kTyped[] = {
    {"cpu", 1, SCI_CODE, [](alm_comarea* ca, std::uint32_t n, ALMRECTYPE* r) { return alm_read_cpu_info(ca, n, &r->sci); }},
    {"sched", 7, SS_CODE, [](alm_comarea* ca, std::uint32_t n, ALMRECTYPE* r) { return alm_read_sched(ca, n, &r->ss); }},
    {"job", 8, SJ_CODE, [](alm_comarea* ca, std::uint32_t n, ALMRECTYPE* r) { return alm_read_job(ca, n, &r->sj); }},
    {"prompt", 4, SM_CODE, [](alm_comarea* ca, std::uint32_t n, ALMRECTYPE* r) { return alm_read_message(ca, n, &r->sm); }},
    {"file", 5, SF_CODE, [](alm_comarea* ca, std::uint32_t n, ALMRECTYPE* r) { return alm_read_file(ca, n, &r->sf); }},
    {"resource", 6, SR_CODE, [](alm_comarea* ca, std::uint32_t n, ALMRECTYPE* r) { return alm_read_resource(ca, n, &r->sr); }},
    {"calendar", 3, SC_CODE, [](alm_comarea* ca, std::uint32_t n, ALMRECTYPE* r) { return alm_read_calendar(ca, n, &r->sc); }},
};

TEST_F(SessionTest, TypedReadsCheckTheKind) {
    // 1 A, 2 B, 3 calendar, 4 prompt, 5 file, 6 resource, 7 A/S1, 8 J1, 9 J2, 10 B/S2.
    std::string path = test::make_plan(dir.file("plan"),
                                       "workstation A\nworkstation B\ncalendar CAL\nprompt P1\nfile A /tmp/f\n"
                                       "resource A TAPES\nschedule A S1\njob J1\njob J2\nschedule B S2\n");
    alm_comarea* ca = open_ok(path);
    ASSERT_NE(ca, nullptr);

    for (const TypedCase& c : kTyped) {
        SCOPED_TRACE(c.name);
        ALMRECTYPE rec{};
        EXPECT_EQ(c.read(ca, c.good_rec, &rec), 512);
        EXPECT_EQ(ca->err_type, 0);
        EXPECT_EQ(rec.alm_rec_type, c.code);

        // Record 10 is a schedule; for the schedule reader use a job.
        std::uint32_t wrong = c.code == SS_CODE ? 8 : 10;
        std::int16_t found = c.code == SS_CODE ? SJ_CODE : SS_CODE;
        EXPECT_EQ(c.read(ca, wrong, &rec), -1);
        EXPECT_EQ(ca->err_type, ALM_E_KIND);
        EXPECT_EQ(ca->expected_type, c.code);
        EXPECT_EQ(ca->found_type, found);
        EXPECT_EQ(ca->last_recnum, static_cast<std::int32_t>(wrong));
        EXPECT_EQ(rec.alm_rec_type, found);  // the buffer holds what was found

        EXPECT_EQ(c.read(ca, 500, &rec), -1);
        EXPECT_EQ(ca->err_type, ALM_E_RANGE);
        EXPECT_EQ(ca->expected_type, c.code);  // a failed read names the kind too
        EXPECT_EQ(ca->found_type, 0);
    }

    SH_RECTYPE hdr{};
    EXPECT_EQ(alm_read_header(ca, &hdr), 512);
    EXPECT_EQ(hdr.sh_first_cpu, 1u);
    close_ok(ca);
}

TEST_F(SessionTest, HeaderIsCachedOnlyWhenExclusive) {
    std::string path = small_plan("plan");
    alm_comarea* reader = open_ok(path);
    ASSERT_NE(reader, nullptr);

    // Changes the stored header behind the sessions' backs.
    auto set_first_cpu = [&](std::uint32_t v) {
        auto recs = test::records(path);
        test::put32(recs[0], offsetof(SH_RECTYPE, sh_first_cpu), v);
        test::write_records(path, recs);
    };
    set_first_cpu(2);
    SH_RECTYPE hdr{};
    EXPECT_EQ(alm_read_header(reader, &hdr), 512);
    EXPECT_EQ(hdr.sh_first_cpu, 2u);
    close_ok(reader);

    alm_comarea* excl = open_ok(path, ALM_MODE_EXCLUSIVE);
    ASSERT_NE(excl, nullptr);
    set_first_cpu(1);
    EXPECT_EQ(alm_read_header(excl, &hdr), 512);
    EXPECT_EQ(hdr.sh_first_cpu, 2u);  // the copy made at open
    close_ok(excl);
}

// Reads per kind are counted, each successful read once, for the file
// named Almanack opened shared only.
TEST_F(SessionTest, ProductionReadCounts) {
    const std::string prod = small_plan("p/Almanack");
    const std::string old = small_plan("p/Almanack.old");
    for (const auto& [path, mode, counted] : {std::tuple(prod, ALM_MODE_READ, true),
                                              std::tuple(old, ALM_MODE_READ, false),
                                              std::tuple(prod, ALM_MODE_EXCLUSIVE, false)}) {
        alm_comarea* ca = open_ok(path, mode);
        ASSERT_NE(ca, nullptr);
        EXPECT_EQ(ca->production, counted ? 1 : 0) << path;
        ALMRECTYPE rec{};
        for (std::uint32_t n = 0; n < 8; ++n) ASSERT_GT(alm_read(ca, n, &rec), 0);
        EXPECT_EQ(alm_read(ca, 99, &rec), -1);  // failed reads do not count
        const int want[] = {1, 2, 2, 3};
        const int slots[] = {ALM_SLOT_HEADER, ALM_SLOT_CPU, ALM_SLOT_SCHED, ALM_SLOT_JOB};
        for (int i = 0; i < 4; ++i) EXPECT_EQ(ca->rec_reads[slots[i]], counted ? want[i] : 0) << path << " " << i;
        EXPECT_EQ(ca->rec_reads[ALM_SLOT_MSG], 0);
        close_ok(ca);
    }
}

// Searches read what their answer needs: a plain workstation ends the
// schedule walk past its name, a wildcard does not, a lookup that goes on
// from its own cursor reads each record once, and inside a read-ahead scope
// plain names are looked up, reading only the schedule the walk ends on.
TEST_F(SessionTest, SearchesReadOnlyWhatTheirAnswerNeeds) {
    const std::string path = test::make_plan(dir.file("p/Almanack"),
                                             "workstation A\nworkstation B\nworkstation C\nschedule A S1\n"
                                             "job J1\nschedule A S2\njob J2\nschedule B S1\njob J3\n"
                                             "schedule B T2\njob J4\njob J5\nschedule C S3\njob J6\nschedule C S4\n");
    struct Case {
        const char *cpu, *sched, *job;
        bool scope;
        int found, scheds, jobs;
    };
    const Case cases[] = {
        {"B", "T@", nullptr, false, 1, 5, 0}, {"B@", "T@", nullptr, false, 1, 6, 0},
        {"B", "@", nullptr, false, 2, 5, 0},  {"B", "S1", nullptr, false, 1, 5, 0},
        {"B", "S1", nullptr, true, 1, 8, 0},  {"A", "S9", nullptr, true, 0, 7, 0},
        {"C", "S9", nullptr, true, 0, 7, 0},  {"B", "@", "J@", false, 3, 6, 3},
        {"@", "@", "J5", false, 1, 7, 6},     {"B", "T2", "@", true, 2, 9, 2},
    };
    for (const Case& c : cases) {
        alm_comarea* ca = open_ok(path);
        ASSERT_NE(ca, nullptr);
        {
            std::optional<alm_read_ahead> scope;
            if (c.scope) scope.emplace(ca);
            int found = 0;
            std::uint32_t cur = 0;
            SS_RECTYPE ss{};
            SJ_RECTYPE sj{};
            while ((c.job ? alm_find_job(ca, c.cpu, c.sched, c.job, cur, &sj)
                          : alm_find_sched(ca, c.cpu, c.sched, cur, &ss)) != NULL_REC)
                ++found;
            EXPECT_EQ(found, c.found) << c.cpu << " " << c.sched << " " << (c.job ? c.job : "") << " " << c.scope;
        }
        EXPECT_EQ(ca->rec_reads[ALM_SLOT_SCHED], c.scheds) << c.cpu << " " << c.sched << " " << c.scope;
        EXPECT_EQ(ca->rec_reads[ALM_SLOT_JOB], c.jobs) << c.cpu << " " << c.sched << " " << c.scope;
        close_ok(ca);
    }
}

TEST_F(SessionTest, WholeFileLockInAnotherProcessFailsTheOpenWith2) {
    std::string path = small_plan("plan");
    HoldingChild holder([&] {
        alm_comarea* ca = nullptr;
        return alm_open_text(path.c_str(), ALM_MODE_EXCLUSIVE, 0, &ca, nullptr, nullptr);
    });
    ASSERT_EQ(holder.report(), 0);

    alm_comarea* ca = nullptr;
    EXPECT_EQ(alm_open_text(path.c_str(), ALM_MODE_READ, 0, &ca, nullptr, errtext), ALM_E_LOCK);
    EXPECT_EQ(ca, nullptr);
    EXPECT_NE(std::string(errtext).find("20720002"), std::string::npos) << errtext;
    EXPECT_EQ(alm_open_text(path.c_str(), ALM_MODE_UPDATE, 0, &ca, nullptr, errtext), ALM_E_LOCK);

    holder.release();
    ca = open_ok(path);
    ASSERT_NE(ca, nullptr);
    close_ok(ca);
}

TEST_F(SessionTest, PresenceOfAReaderOrUpdaterBlocksExclusiveUse) {
    std::string path = small_plan("plan");
    for (int mode : {ALM_MODE_READ, ALM_MODE_UPDATE}) {
        SCOPED_TRACE(mode);
        HoldingChild holder([&] {
            alm_comarea* ca = nullptr;
            return alm_open_text(path.c_str(), mode, 0, &ca, nullptr, nullptr);
        });
        ASSERT_EQ(holder.report(), 0);
        alm_comarea* ca = nullptr;
        EXPECT_EQ(alm_open_text(path.c_str(), ALM_MODE_EXCLUSIVE, 0, &ca, nullptr, errtext), ALM_E_LOCK);
        EXPECT_EQ(ca, nullptr);
        // Readers and updaters share.
        ca = open_ok(path, ALM_MODE_READ);
        close_ok(ca);
        ca = open_ok(path, ALM_MODE_UPDATE);
        close_ok(ca);
    }
}

// Where another process's lock sits, as seen by F_GETLK.
struct flock probe(const std::string& path, short type, off_t start, off_t len) {
    int fd = ::open(path.c_str(), O_RDWR);
    struct flock fl {};
    fl.l_type = type;
    fl.l_whence = SEEK_SET;
    fl.l_start = start;
    fl.l_len = len;
    EXPECT_EQ(::fcntl(fd, F_GETLK, &fl), 0);
    ::close(fd);
    return fl;
}

TEST_F(SessionTest, RecordLockRegionsSpareThePresenceBytes) {
    for (bool v2 : {true, false}) {
        SCOPED_TRACE(v2 ? "V2" : "V1");
        const off_t size = v2 ? 512 : 256;
        std::string path = small_plan(v2 ? "plan2" : "plan1", v2);
        HoldingChild holder([&] {
            alm_comarea* ca = nullptr;
            if (alm_open_text(path.c_str(), ALM_MODE_UPDATE, 0, &ca, nullptr, nullptr) != 0) return -1;
            if (alm_lock(ca, ALM_LOCK_WRITE_REC, 0) != 0) return -2;
            return ca->locked == 1 && ca->lk_dscrpt.l_start == 2 && ca->lk_dscrpt.l_len == size - 2 ? 0 : -3;
        });
        ASSERT_EQ(holder.report(), 0);

        EXPECT_EQ(probe(path, F_RDLCK, 0, 2).l_type, F_UNLCK);  // presence bytes free for readers
        struct flock got = probe(path, F_WRLCK, 1, 1);          // the updater's presence only
        EXPECT_EQ(got.l_type, F_RDLCK);
        EXPECT_EQ(got.l_start, 0);
        EXPECT_EQ(got.l_len, 2);
        got = probe(path, F_RDLCK, 0, size);
        EXPECT_EQ(got.l_type, F_WRLCK);
        EXPECT_EQ(got.l_start, 2);
        EXPECT_EQ(got.l_len, size - 2);
        EXPECT_EQ(probe(path, F_WRLCK, size, size).l_type, F_UNLCK);

        // A reader can still open; someone wanting it all cannot.
        alm_comarea* ca = open_ok(path, ALM_MODE_READ);
        close_ok(ca);
        EXPECT_EQ(alm_open_text(path.c_str(), ALM_MODE_EXCLUSIVE, 0, &ca, nullptr, errtext), ALM_E_LOCK);
    }
}

TEST_F(SessionTest, RecordLocksOfOtherRecordsAndPresenceLocks) {
    std::string path = small_plan("plan");
    HoldingChild holder([&] {
        alm_comarea* ca = nullptr;
        if (alm_open_text(path.c_str(), ALM_MODE_READ, 0, &ca, nullptr, nullptr) != 0) return -1;
        return alm_lock(ca, ALM_LOCK_READ_REC, 3);
    });
    ASSERT_EQ(holder.report(), 0);
    struct flock got = probe(path, F_WRLCK, 0, 1);
    EXPECT_EQ(got.l_type, F_RDLCK);  // the reader's byte 0
    EXPECT_EQ(got.l_start, 0);
    EXPECT_EQ(got.l_len, 1);
    EXPECT_EQ(probe(path, F_WRLCK, 1, 3 * 512 - 1).l_type, F_UNLCK);
    got = probe(path, F_WRLCK, 1, 0);
    EXPECT_EQ(got.l_type, F_RDLCK);
    EXPECT_EQ(got.l_start, 3 * 512);
    EXPECT_EQ(got.l_len, 512);

    // Record 3 read-locked elsewhere: shared reads pass, a write lock fails
    // at once, or waits for the release.
    alm_comarea* ca = open_ok(path, ALM_MODE_UPDATE);
    ASSERT_NE(ca, nullptr);
    EXPECT_EQ(alm_lock(ca, ALM_LOCK_READ_REC, 3), 0);
    EXPECT_EQ(alm_unlock(ca), 0);
    EXPECT_EQ(alm_lock(ca, ALM_LOCK_WRITE_REC, 3), -1);
    EXPECT_EQ(ca->err_type, ALM_E_LOCK);
    EXPECT_TRUE(ca->err_num == EAGAIN || ca->err_num == EACCES) << ca->err_num;
    EXPECT_EQ(ca->last_recnum, 3);
    EXPECT_EQ(ca->locked, 0);
    EXPECT_EQ(alm_lock(ca, ALM_LOCK_WRITE_REC, 4), 0);
    EXPECT_EQ(alm_unlock(ca), 0);

    // A waiting lock returns once the holder has gone.
    holder.release_after(100);
    EXPECT_EQ(alm_lock(ca, ALM_LOCK_WRITE_REC | ALM_LOCK_WAIT, 3), 0);
    EXPECT_EQ(ca->locked, 1);
    EXPECT_EQ(ca->lk_dscrpt.l_type, F_WRLCK);
    EXPECT_EQ(ca->lk_dscrpt.l_start, 3 * 512);
    EXPECT_EQ(holder.release(), 0);
    close_ok(ca);
}

}  // namespace
}  // namespace alm
