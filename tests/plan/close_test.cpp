#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <vector>

#include "messages/issuemsg.h"
#include "plan/almaccs.h"
#include "plan_files.h"
#include "util/dateutil.h"
#include "util/endian.h"

namespace alm {
namespace {

using test::slurp;

bool fd_open(int fd) { return ::fcntl(fd, F_GETFD) != -1 || errno != EBADF; }

class CloseTest : public ::testing::Test {
protected:
    test::TempDir dir;
    char errtext[ALM_ERRTEXT_SIZE] = {};

    // 1 A, 2 A/S1, 3 J1.
    std::string plan(const std::string& name, bool v2 = true) {
        return test::make_plan(dir.file(name), "workstation A\nschedule A S1\njob J1\n", !v2);
    }
    alm_comarea* open(const std::string& path, int mode) {
        alm_comarea* ca = nullptr;
        EXPECT_EQ(alm_open_text(path.c_str(), mode, 0, &ca, nullptr, errtext), 0) << errtext;
        return ca;
    }
};

TEST_F(CloseTest, NullOrDeadHandleGives7) {
    int err = 0;
    char msg[300] = "";
    alm_comarea* ca = nullptr;
    EXPECT_EQ(alm_close(ca, 0, &err, msg, sizeof msg), ALM_E_HANDLE);
    EXPECT_EQ(err, ALM_E_HANDLE);
    EXPECT_NE(std::string(msg).find("20720007"), std::string::npos) << msg;
    char untouched[4] = "abc";  // a buffer of no length gets nothing
    EXPECT_EQ(alm_close(ca, 0, &err, untouched, 0), ALM_E_HANDLE);
    EXPECT_STREQ(untouched, "abc");

    alm_comarea fake;  // never opened: no magic
    alm_comarea* p = &fake;
    EXPECT_EQ(alm_close(p, 0, &err, msg, sizeof msg), ALM_E_HANDLE);
    EXPECT_EQ(p, &fake);
    EXPECT_EQ(alm_close(static_cast<alm_comarea**>(nullptr), 0, &err, nullptr, 0), ALM_E_HANDLE);

    // Every other call refuses a bad handle without touching it.
    ALMRECTYPE rec{};
    EXPECT_EQ(alm_read(&fake, 1, &rec), -1);
    EXPECT_EQ(alm_read_job(&fake, 1, &rec.sj), -1);
    EXPECT_EQ(alm_lock(&fake, ALM_LOCK_READER, 0), -1);
    EXPECT_EQ(alm_write_header(&fake, &rec.sh), -1);
    EXPECT_EQ(fake.err_type, 0);
}

TEST_F(CloseTest, ReadOnlyCloseLeavesTheFileAlone) {
    std::string path = plan("plan");
    auto before = slurp(path);
    alm_comarea* ca = open(path, ALM_MODE_READ);
    ASSERT_NE(ca, nullptr);
    int fd = ca->fnum;
    int err = -1;
    EXPECT_EQ(alm_close(ca, 0, &err, nullptr, 0), 0);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(ca, nullptr);
    EXPECT_FALSE(fd_open(fd));
    EXPECT_EQ(slurp(path), before);
}

TEST_F(CloseTest, UpdateCloseStampsTheHeader) {
    for (bool v2 : {true, false}) {
        SCOPED_TRACE(v2 ? "V2" : "V1");
        std::string path = plan(v2 ? "p2" : "p1", v2);
        std::int32_t d0 = 0;
        std::int16_t t0 = 0;
        date_time(&d0, &t0);
        alm_comarea* ca = open(path, ALM_MODE_UPDATE);
        ASSERT_NE(ca, nullptr);
        int err = -1;
        alm_close(ca, 0, &err, nullptr, 0);
        EXPECT_EQ(err, 0);
        std::int32_t d1 = 0;
        std::int16_t t1 = 0;
        date_time(&d1, &t1);

        SH_RECTYPE hdr{};
        ca = open(path, ALM_MODE_READ);
        ASSERT_NE(ca, nullptr);
        ASSERT_GT(alm_read_header(ca, &hdr), 0);
        EXPECT_TRUE(hdr.sh_last_date == d0 || hdr.sh_last_date == d1) << hdr.sh_last_date;
        EXPECT_TRUE(hdr.sh_last_time == t0 || hdr.sh_last_time == t1) << hdr.sh_last_time;
        EXPECT_EQ(ca->rec_writes[ALM_SLOT_HEADER], 0);
        EXPECT_EQ(hdr.sh_first_cpu, 1u);  // the rest survives the round trip
        alm_close(ca, 0, &err, nullptr, 0);
    }
}

TEST_F(CloseTest, MarkOldSetsTheHeaderFlag) {
    std::string path = plan("plan");
    alm_comarea* ca = open(path, ALM_MODE_EXCLUSIVE);
    ASSERT_NE(ca, nullptr);
    int err = -1;
    alm_close(ca, ALM_CLOSE_MARK_OLD, &err, nullptr, 0);
    EXPECT_EQ(err, 0);
    auto bytes = slurp(path);
    std::uint16_t flags = load_le16(bytes.data() + offsetof(SH_RECTYPE, sh_flags));
    EXPECT_TRUE(flag_set(flags, shf_almanack_is_old));
    EXPECT_NE(load_le32(bytes.data() + offsetof(SH_RECTYPE, sh_last_date)), 0u);  // stamped too
}

TEST_F(CloseTest, RemoveFlagDeletesTheFile) {
    std::string path = plan("plan");
    alm_comarea* ca = open(path, ALM_MODE_READ);
    ASSERT_NE(ca, nullptr);
    int fd = ca->fnum;
    int err = -1;
    EXPECT_EQ(alm_close(ca, ALM_CLOSE_REMOVE, &err, nullptr, 0), 0);
    EXPECT_NE(::access(path.c_str(), F_OK), 0);
    EXPECT_FALSE(fd_open(fd));

    // Removing a file that went away already gives 6, and still closes.
    path = plan("plan");
    ca = open(path, ALM_MODE_READ);
    ASSERT_NE(ca, nullptr);
    fd = ca->fnum;
    ASSERT_EQ(::unlink(path.c_str()), 0);
    char msg[300] = "";
    EXPECT_EQ(alm_close(ca, ALM_CLOSE_REMOVE, &err, msg, sizeof msg), ALM_E_REMOVE);
    EXPECT_EQ(err, ALM_E_REMOVE);
    EXPECT_EQ(ca, nullptr);
    EXPECT_FALSE(fd_open(fd));
    EXPECT_NE(std::string(msg).find("20720006"), std::string::npos) << msg;
}

TEST_F(CloseTest, WriteHeaderWritesRecordZeroAndCountsIt) {
    std::string path = plan("plan");
    alm_comarea* ca = open(path, ALM_MODE_UPDATE);
    ASSERT_NE(ca, nullptr);
    SH_RECTYPE hdr{};
    ASSERT_EQ(alm_read_header(ca, &hdr), 512);
    hdr.sh_job_fence = 42;
    EXPECT_EQ(alm_write_header(ca, &hdr), 512);
    EXPECT_EQ(ca->rec_writes[ALM_SLOT_HEADER], 1);
    EXPECT_EQ(ca->sh_rec->sh_job_fence, 42);
    auto bytes = slurp(path);
    EXPECT_EQ(load_le16(bytes.data() + offsetof(SH_RECTYPE, sh_job_fence)), 42);

    int err = -1;
    alm_close(ca, 0, &err, nullptr, 0);

    // Read-only sessions cannot write.
    ca = open(path, ALM_MODE_READ);
    ASSERT_NE(ca, nullptr);
    EXPECT_EQ(alm_write_header(ca, &hdr), -1);
    EXPECT_EQ(ca->err_type, ALM_E_WRITE);
    EXPECT_EQ(ca->err_num, EBADF);
    alm_close(ca, 0, &err, nullptr, 0);
}

TEST_F(CloseTest, LockFlagErrors) {
    std::string path = plan("plan");
    alm_comarea* ca = open(path, ALM_MODE_UPDATE);
    ASSERT_NE(ca, nullptr);
    EXPECT_EQ(alm_lock(ca, 0, 1), -1);
    EXPECT_EQ(ca->err_type, ALM_E_LOCKFLAG);
    EXPECT_EQ(alm_lock(ca, ALM_LOCK_WAIT, 1), -1);
    EXPECT_EQ(ca->err_type, ALM_E_LOCKFLAG);

    // Presence locks are not kept, so they never block a record lock.
    EXPECT_EQ(alm_lock(ca, ALM_LOCK_READER, 0), 0);
    EXPECT_EQ(ca->locked, 0);
    EXPECT_EQ(alm_lock(ca, ALM_LOCK_READ_REC | ALM_LOCK_WRITE_REC, 2), 0);  // 4 wins over 1
    EXPECT_EQ(ca->lk_dscrpt.l_type, F_RDLCK);
    EXPECT_EQ(ca->lk_dscrpt.l_start, 1024);
    EXPECT_EQ(alm_lock(ca, ALM_LOCK_WRITE_REC, 1), -1);
    EXPECT_EQ(ca->err_type, ALM_E_LOCKED);
    EXPECT_EQ(ca->last_recnum, 1);
    EXPECT_EQ(alm_unlock(ca), 0);
    EXPECT_EQ(alm_lock(ca, ALM_LOCK_WRITE_FILE | ALM_LOCK_READER, 0), 0);  // 2 wins over 8
    EXPECT_EQ(ca->lk_dscrpt.l_len, 0);
    EXPECT_EQ(ca->err_type, 0);
    int err = -1;
    alm_close(ca, 0, &err, nullptr, 0);
    EXPECT_EQ(err, 0);
}

TEST_F(CloseTest, MessagesCarryTheFileAndTheCode) {
    std::string path = plan("plan");
    alm_comarea* ca = open(path, ALM_MODE_READ);
    ASSERT_NE(ca, nullptr);
    SJ_RECTYPE job{};
    ASSERT_EQ(alm_read_job(ca, 2, &job), -1);
    char msg[ALM_ERRTEXT_SIZE];
    int n = msg_almerr(ca, msg, sizeof msg);
    EXPECT_EQ(n, static_cast<int>(std::strlen(msg)));
    EXPECT_NE(std::string(msg).find("20720019"), std::string::npos) << msg;
    EXPECT_NE(std::string(msg).find(path), std::string::npos) << msg;

    char tiny[8];
    EXPECT_EQ(msg_almerr(ca, tiny, sizeof tiny), 7);
    EXPECT_EQ(msg_almerr(ca, nullptr, 10), 0);

    EXPECT_GT(msg_almerr(nullptr, msg, sizeof msg), 0);
    EXPECT_NE(std::string(msg).find("20720007"), std::string::npos) << msg;
    int err = 0;
    alm_close(ca, 0, &err, nullptr, 0);

    char sys[100];
    int len = fs_error(-1, ENOENT, sys, sizeof sys);
    EXPECT_EQ(len, static_cast<int>(std::strlen(sys)));
    EXPECT_EQ(std::string(sys), std::strerror(ENOENT));
    EXPECT_EQ(fs_error(-1, ENOENT, sys, 5), 4);
}

TEST_F(CloseTest, OwningHandleClosesOnScopeExit) {
    std::string path = plan("plan");
    int fd = -1;
    {
        int status = -1;
        alm_session s = alm_open_session(path.c_str(), ALM_MODE_READ, &status, errtext);
        ASSERT_EQ(status, 0);
        ASSERT_TRUE(s);
        fd = s->fnum;
        EXPECT_TRUE(fd_open(fd));
    }
    EXPECT_FALSE(fd_open(fd));

    int status = -1;
    alm_session none = alm_open_session(dir.file("missing").c_str(), ALM_MODE_READ, &status, nullptr);
    EXPECT_EQ(status, ALM_E_NOFILE);
    EXPECT_FALSE(none);
}

}  // namespace
}  // namespace alm
