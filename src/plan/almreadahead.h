// What a query may keep of the plan while it walks it. Inside an
// alm_read_ahead scope on a session:
// - a read that continues where the last one ended fetches the records that
//   follow with the same system call, and later reads of them are served
//   from memory;
// - a record read on its own is kept, so that reading it again (the records
//   that many dependencies name, the schedules every job lookup passes)
//   costs no system call;
// - the lookups keep an index of the schedule chain (plan/almfind.cpp).
// All of it is dropped when the scope closes: reads outside a scope, and
// every later request, see the file as it is. Within a scope the plan is
// seen as it was when each record was first read, a deliberate choice: one
// request answers from one view of each record.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace alm {

struct alm_comarea;

class alm_read_ahead {
public:
    // A null or invalid session is left alone. Scopes may nest; the
    // outermost one owns what is kept.
    explicit alm_read_ahead(alm_comarea* ca);
    ~alm_read_ahead();
    alm_read_ahead(const alm_read_ahead&) = delete;
    alm_read_ahead& operator=(const alm_read_ahead&) = delete;

private:
    alm_comarea* ca_ = nullptr;
};

// The schedule chain index of the lookups, defined with them.
struct alm_sched_index;
struct alm_sched_index_free {
    void operator()(alm_sched_index* index) const noexcept;
};

// What a session keeps while a scope is open, at most about 0.7 MiB. A
// short request touches little of it: the first block is small and each one
// after it twice as large, and a record read on its own is kept only when it
// is read a second time.
struct alm_read_ahead_state {
    // Two blocks of up to 128 V2 records, so that a walk looking one record
    // back across a block boundary still finds it. The kernel copies the
    // page cache fastest into a block this small, which stays in the cache
    // the copy writes through; larger ones were several times slower.
    static constexpr std::size_t kBlockBytes = 64 * 1024;
    static constexpr std::size_t kFirstBlockBytes = 8 * 1024;
    // Records read on their own, by position in the file modulo the count.
    static constexpr std::size_t kKeptRecords = 1024;
    static constexpr std::size_t kKeptBytes = 512;

    struct Block {
        off_t start = 0;
        std::size_t len = 0;  // 0: holds nothing
        unsigned long used = 0;
        bool prefaulted = false;
        std::unique_ptr<unsigned char[]> bytes;
    };
    struct KeptTag {
        off_t off = -1;  // -1: empty
        std::size_t len = 0;
        bool held = false;  // the bytes are kept, not only the last read noted
    };

    Block blocks[2];
    std::unique_ptr<KeptTag[]> kept_tags;
    std::unique_ptr<unsigned char[]> kept;
    std::size_t next_block_bytes = kFirstBlockBytes;
    unsigned single_reads = 0;
    off_t last_end = -1;
    unsigned long clock = 0;
    int depth = 0;
    std::unique_ptr<alm_sched_index, alm_sched_index_free> sched_index;
};

// pread of len bytes at off from the session's file, retried on EINTR,
// through what the session keeps when a scope is open. The result is what a
// single pread of those bytes would return (or returned when first read).
ssize_t alm_pread(alm_comarea* ca, void* buf, std::size_t len, off_t off);

// alm_pread without the copy where it can: when the bytes lie in what the
// session keeps, *at points at them there (valid until the session's next
// read) and buf is left alone; otherwise they are read into buf and *at is
// buf.
ssize_t alm_pread_at(alm_comarea* ca, void* buf, std::size_t len, off_t off, const unsigned char** at);

}  // namespace alm
