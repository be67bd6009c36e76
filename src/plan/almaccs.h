// Plan file sessions: open, lock, read, write the header, close, and the
// messages of the session's last error. One alm_comarea per open file; every
// call takes it first and does nothing (without recording an error) when the
// handle is null or no longer valid.
#pragma once

#include <fcntl.h>

#include <cstdint>
#include <memory>

#include "plan/almreadahead.h"
#include "plan/almrecs.h"

namespace alm {

inline constexpr std::int32_t ALM_MAGIC = 21313;  // 0x5341 while the session is valid
inline constexpr int ALM_MSG_SET = 2072;          // error codes are message numbers here
inline constexpr int ALM_ERRTEXT_SIZE = 257;      // minimum size of alm_open_text's errtext

// Error codes kept in err_type.
enum alm_error : int {
    ALM_OK = 0,
    ALM_E_OPEN = 1,        // open failed (not "no such file")
    ALM_E_LOCK = 2,        // fcntl refused the lock
    ALM_E_NOMEM = 3,       // no memory for the session
    ALM_E_CLOEXEC = 4,     // close-on-exec could not be set
    ALM_E_CLOSE = 5,       // closing the descriptor failed
    ALM_E_REMOVE = 6,      // removing the file failed
    ALM_E_HANDLE = 7,      // invalid or null handle
    ALM_E_SEEK = 8,        // second header read failed; record could not be positioned
    ALM_E_READ = 9,        // read failed, or a record came back short
    ALM_E_WRITE = 10,      // writing a record failed
    ALM_E_NULLREC = 11,    // record number 32768
    ALM_E_FSTAT = 13,      // fstat failed
    ALM_E_RANGE = 14,      // record number beyond the end of the file
    ALM_E_KIND = 19,       // record of the wrong kind
    ALM_E_LOCKED = 25,     // the session already holds a lock
    ALM_E_LOCKFLAG = 26,   // no known lock flag
    ALM_E_NOFILE = 35,     // the file does not exist
    ALM_E_NOTFOUND = 36,   // empty chain or nothing found
};

// Open modes.
inline constexpr int ALM_MODE_READ = 0;
inline constexpr int ALM_MODE_UPDATE = 1;     // read-write, synchronous writes
inline constexpr int ALM_MODE_EXCLUSIVE = 3;  // read-write under a whole-file write lock
inline constexpr int ALM_MODE_STAMP = 4;      // stamp the header's last date and time at close

// Open flags.
inline constexpr int ALM_OPEN_CALLER_HDR = 1;   // the session keeps the caller's sh_rec
inline constexpr int ALM_OPEN_CALLER_NAME = 2;  // the session keeps the caller's file name

// Lock flags; the first of 4, 1, 2, 8, 16 present decides.
inline constexpr int ALM_LOCK_WRITE_REC = 1;
inline constexpr int ALM_LOCK_WRITE_FILE = 2;
inline constexpr int ALM_LOCK_READ_REC = 4;
inline constexpr int ALM_LOCK_READER = 8;    // byte 0: a reader is present
inline constexpr int ALM_LOCK_UPDATER = 16;  // bytes 0 and 1: an updater is present
inline constexpr int ALM_LOCK_WAIT = 32;

// Close flags.
inline constexpr int ALM_CLOSE_REMOVE = 1;    // unlink the file
inline constexpr int ALM_CLOSE_MARK_OLD = 4;  // set shf_almanack_is_old in the header

inline constexpr int ALM_NUM_KINDS = 9;

// Counted kinds in rec_types order.
enum alm_kind_slot : int {
    ALM_SLOT_HEADER, ALM_SLOT_SCHED, ALM_SLOT_JOB, ALM_SLOT_MSG, ALM_SLOT_FILE,
    ALM_SLOT_RESOURCE, ALM_SLOT_CAL, ALM_SLOT_PJ, ALM_SLOT_CPU,
};

using alm_match_fn = int (*)(const char* field, const char* pattern, int fieldlen, int patlen);

// Progress of a walk along a chain of records, so that a looping chain in a
// damaged plan ends: a walk takes at most num_recs steps. Every chain walk
// (the lookups, one per kind of lookup, and the followers of other links)
// takes its steps through step(). A lookup's walk restarts when the lookup
// gets cursor 0 or a cursor other than the one it handed out last; a
// resumed cursor thus keeps counting where the previous call stopped.
struct alm_walk {
    std::uint32_t cursor_out = 0;
    std::int64_t steps = 0;

    // One more record on this walk, or false when the walk has used up as
    // many steps as the file has records (measured again before giving up,
    // since the file may have grown). Defined with the lookups.
    bool step(alm_comarea* ca);
};

// A job walk also remembers where it stands, so that a call continuing from
// the cursor it handed out (with the same workstation and schedule patterns)
// reads only the records it moves over: the next schedule to visit, and
// whether cursor_out lies in the job chain of a qualifying schedule.
struct alm_job_walk : alm_walk {
    bool valid = false;
    bool in_chain = false;
    std::uint32_t next_sched = 0;
    char cpu[16] = {};
    char sched[16] = {};
    int cpu_len = -1;
    int sched_len = -1;
    // Where the job that the last successful lookup returned was read from
    // (its sj_rec_num need not say so in a damaged plan).
    std::uint32_t found_at = NULL_REC;
};

struct alm_comarea {
    std::int32_t magic_num = 0;
    const char* filename = nullptr;
    const char* wildcards = nullptr;
    std::int32_t fnum = -1;
    SH_RECTYPE* sh_rec = nullptr;
    std::int32_t flags = 0;
    std::int32_t mode = 0;
    std::int32_t locked = 0;
    std::int32_t opened = 0;
    std::int32_t exclusive = 0;
    std::int32_t mapped = 0;
    std::int32_t production = 0;
    std::int32_t err_type = 0;
    std::int32_t err_num = 0;
    std::int32_t num_recs = 0;
    std::int16_t rec_types[ALM_NUM_KINDS] = {};
    std::int32_t rec_reads[ALM_NUM_KINDS] = {};
    std::int32_t rec_writes[ALM_NUM_KINDS] = {};
    std::int16_t expected_type = 0;
    std::int16_t found_type = 0;
    std::int32_t last_recnum = 0;
    alm_match_fn match = nullptr;
    struct flock lk_dscrpt {};

    // Chain walks of the lookups, one per kind so that nested walks (jobs
    // inside a schedule walk) do not restart each other.
    alm_walk cpu_walk;
    alm_walk sched_walk;
    alm_job_walk job_walk;

    // Records read ahead while an alm_read_ahead scope is open.
    std::unique_ptr<alm_read_ahead_state> read_ahead;

    // Storage behind sh_rec and filename unless the caller's are kept.
    std::unique_ptr<SH_RECTYPE> own_sh_rec;
    std::unique_ptr<char[]> own_filename;
};

// True for a live session handle.
bool alm_valid(const alm_comarea* alm_ca);

// Opens a plan file. Returns 0 and a session in *alm_ca, or an error code
// with *alm_ca null and the message in errtext (at least ALM_ERRTEXT_SIZE
// bytes; empty on success). sh_rec receives the header in external form.
int alm_open_text(const char* filename, int mode, int flags, alm_comarea** alm_ca, SH_RECTYPE* sh_rec,
                  char* errtext);

// 0 or -1. The record region of record 0 spares the presence bytes 0 and 1.
int alm_lock(alm_comarea* alm_ca, int flags, std::uint32_t rec_num);
// Releases the record or whole-file lock the session holds; 0 or -1.
int alm_unlock(alm_comarea* alm_ca);

// Reads record recnum in external form. Returns the bytes read (the file's
// record size) or -1. A record beyond num_recs is looked for again after
// measuring the file, unless the session is exclusive.
int alm_read(alm_comarea* alm_ca, std::uint32_t recnum, ALMRECTYPE* buffer);

// How much of a V2 job a read delivers: the whole record with its dates
// converted, or only the fields that a walk along job chains looks at.
enum class alm_job_detail { dated, links };

// Typed reads: as alm_read, and -1 with error 19 when the record is not of
// the wanted kind (the buffer then holds the record that was found).
int alm_read_header(alm_comarea* alm_ca, SH_RECTYPE* sh_rec);
int alm_read_cpu_info(alm_comarea* alm_ca, std::uint32_t recnum, SCI_RECTYPE* sci_rec);
int alm_read_sched(alm_comarea* alm_ca, std::uint32_t recnum, SS_RECTYPE* ss_rec);
int alm_read_job(alm_comarea* alm_ca, std::uint32_t recnum, SJ_RECTYPE* sj_rec);
// As alm_read_job, into the 512 bytes of a job wherever they lie (a reply
// being gathered, say), so that the record is not copied on its way there.
int alm_read_job_bytes(alm_comarea* alm_ca, std::uint32_t recnum, unsigned char* rec);
// As alm_read_job, but of a V2 job only the type, record number,
// name, the schedule, next and restart pointers, and the dependency count and
// flags are set; the rest of the caller's record stays as it was. For walks
// that only count or locate jobs.
int alm_read_job_links(alm_comarea* alm_ca, std::uint32_t recnum, SJ_RECTYPE* sj_rec);
int alm_read_message(alm_comarea* alm_ca, std::uint32_t recnum, SM_RECTYPE* sm_rec);
int alm_read_file(alm_comarea* alm_ca, std::uint32_t recnum, SF_RECTYPE* sf_rec);
int alm_read_resource(alm_comarea* alm_ca, std::uint32_t recnum, SR_RECTYPE* sr_rec);
int alm_read_calendar(alm_comarea* alm_ca, std::uint32_t recnum, SC_RECTYPE* sc_rec);

// Writes record 0 from an external-form header; bytes written or -1.
int alm_write_header(alm_comarea* alm_ca, const SH_RECTYPE* sh_rec);

// Closes the session, frees it and nulls the handle. *err_type receives 0 or
// the error code (7, 5 or 6) and msg_buff its message. Returns *err_type.
int alm_close(alm_comarea*& alm_ca, int flags, int* err_type, char* msg_buff, int msg_len);
int alm_close(alm_comarea** alm_ca, int flags, int* err_type, char* msg_buff, int msg_len);

// Message of the session's last error (message 7 for a bad handle) into
// buffer; returns its length.
int msg_almerr(const alm_comarea* alm_ca, char* buffer, int len);
// The system's text for err_num (errno when 0), in UTF-8; returns its length.
int fs_error(int fd, int err_num, char* buffer, int len);

// Record size of the open file, from the session's header.
int alm_rec_size_of(const alm_comarea* alm_ca);
// Measures the file again; num_recs, or -1 with error 13.
int alm_measure(alm_comarea* alm_ca);

// Owning handle for C++ callers: closes with flags 0 when it goes away.
struct alm_session_closer {
    void operator()(alm_comarea* ca) const noexcept;
};
using alm_session = std::unique_ptr<alm_comarea, alm_session_closer>;

// alm_open_text into an owning handle; the code is returned in *status.
alm_session alm_open_session(const char* filename, int mode, int* status, char* errtext,
                             SH_RECTYPE* sh_rec = nullptr);

}  // namespace alm
