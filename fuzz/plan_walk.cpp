// Arbitrary bytes opened as a plan: every lookup with a few patterns, the
// typed reads and the messages must neither crash nor loop. A full walk may
// yield at most as many records as the file holds.
#include <fcntl.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "plan/almaccs.h"
#include "plan/almfind.h"

namespace {

const std::string& plan_path() {
    static const std::string path = [] {
        static char tmpl[] = "/tmp/fuzz-plan-walk-XXXXXX";
        int fd = ::mkstemp(tmpl);
        if (fd < 0) std::abort();
        ::close(fd);
        std::atexit([] { ::unlink(tmpl); });
        return std::string(tmpl);
    }();
    return path;
}

bool put_file(const std::string& path, const std::uint8_t* data, std::size_t size) {
    int fd = ::open(path.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
    if (fd < 0) return false;
    bool ok = true;
    while (size > 0) {
        ssize_t n = ::write(fd, data, size);
        if (n <= 0) {
            ok = false;
            break;
        }
        data += n;
        size -= static_cast<std::size_t>(n);
    }
    ::close(fd);
    return ok;
}

const char* const kPatterns[] = {"@", "A@", "?B", "B", "#1", "~^", "@@", "J@B?%"};

// A walk must end, and within the file's record count.
void check(long found, const alm::alm_comarea* ca) {
    if (found > static_cast<long>(ca->num_recs) + 1) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace alm;
    const std::string& path = plan_path();
    if (!put_file(path, data, size)) return 0;

    // The last byte of odd-sized inputs picks an exclusive session.
    const int mode = (size % 2 == 1 && data[size - 1] & 1) ? ALM_MODE_EXCLUSIVE : ALM_MODE_READ;
    char errtext[ALM_ERRTEXT_SIZE];
    SH_RECTYPE hdr{};
    alm_comarea* ca = nullptr;
    if (alm_open_text(path.c_str(), mode, 0, &ca, &hdr, errtext) != 0) return 0;

    for (const char* cpu : kPatterns) {
        SCI_RECTYPE sci{};
        std::uint32_t cur = 0;
        long n = 0;
        while (alm_find_cpu(ca, cpu, cur, &sci) != NULL_REC) check(++n, ca);
    }
    for (const char* cpu : {"@", "B", "#1", "ZZZZZZZZZZZZZZZZZZZZ"}) {
        for (const char* sched : {"@", "S@"}) {
            SS_RECTYPE ss{};
            std::uint32_t cur = 0;
            long n = 0;
            while (alm_find_sched(ca, cpu, sched, cur, &ss) != NULL_REC) check(++n, ca);
        }
    }
    for (const char* cpu : {"@", "B"}) {
        for (const char* job : {"@", "?B", "J@B?%"}) {
            SJ_RECTYPE sj{};
            std::uint32_t cur = 0;
            long n = 0;
            std::uint32_t rec;
            while ((rec = alm_find_job(ca, cpu, "@", job, cur, &sj)) != NULL_REC) {
                check(++n, ca);
                // Restart chains as the dependency query follows them.
                std::uint32_t next = sj.sj_restart_ptr;
                for (int steps = 0; next != NULL_REC && steps <= ca->num_recs; ++steps) {
                    SJ_RECTYPE r{};
                    if (alm_read_job(ca, next, &r) < 0) break;
                    next = r.sj_restart_ptr;
                }
            }
        }
    }
    // Jobs resumed from arbitrary cursors.
    for (std::uint32_t start : {1u, 2u, 3u, 7u, 32767u, 32769u, 0xFFFFFFFFu}) {
        SJ_RECTYPE sj{};
        std::uint32_t cur = start;
        long n = 0;
        while (alm_find_job(ca, "@", "@", "@", cur, &sj) != NULL_REC) check(++n, ca);
    }

    ALMRECTYPE rec;
    const std::uint32_t limit = ca->num_recs < 64 ? static_cast<std::uint32_t>(ca->num_recs) + 1 : 64;
    for (std::uint32_t r = 0; r < limit; ++r) {
        alm_read_header(ca, &rec.sh);
        alm_read_cpu_info(ca, r, &rec.sci);
        alm_read_sched(ca, r, &rec.ss);
        alm_read_job(ca, r, &rec.sj);
        alm_read_message(ca, r, &rec.sm);
        alm_read_file(ca, r, &rec.sf);
        alm_read_resource(ca, r, &rec.sr);
        alm_read_calendar(ca, r, &rec.sc);
    }
    alm_read(ca, NULL_REC, &rec);
    alm_read(ca, 0xFFFFFFFFu, &rec);
    alm_lock(ca, ALM_LOCK_READ_REC, 1);
    alm_lock(ca, ALM_LOCK_READ_REC, 2);

    char msg[ALM_ERRTEXT_SIZE];
    msg_almerr(ca, msg, sizeof msg);
    int err = 0;
    alm_close(ca, 0, &err, msg, sizeof msg);
    return 0;
}
