// Plan file sessions: open, lock, read and write records, close, error texts.
#include "plan/almaccs.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstring>
#include <iterator>
#include <new>
#include <utility>

#include "messages/codeset.h"
#include "messages/issuemsg.h"
#include "plan/almforms.h"
#include "util/bytecopy.h"
#include "util/dateutil.h"
#include "util/endian.h"
#include "util/fdio.h"
#include "util/patmatch.h"

namespace alm {

namespace {

constexpr char WILDCARDS[] = "@?%";
// The counted kinds, as the nine 16-bit words of these 18 bytes.
constexpr char KIND_WORDS[] = "RHRSRJRMRFRRRCJ\nIC";
static_assert(sizeof(KIND_WORDS) == 2 * ALM_NUM_KINDS + 1);

constexpr int VERSION_OFFSET = 254;  // sh_alm_version in both header layouts
constexpr int HALF_HEADER = 256;

void clear_error(alm_comarea* ca) {
    ca->err_type = 0;
    ca->err_num = 0;
}

int set_error(alm_comarea* ca, int code, int err_num, std::uint32_t recnum) {
    ca->err_type = code;
    ca->err_num = err_num;
    ca->last_recnum = static_cast<std::int32_t>(recnum);
    ca->expected_type = 0;
    ca->found_type = 0;
    return -1;
}

// Where a V2 job holds what a walk along job chains looks at, and what
// counting its dependencies needs; these fields read the same in the file as
// in the caller's record.
constexpr Place job_field(const char* name) { return find_spec(kJobFields, name)->v2; }
constexpr Place kJobLinks[] = {
    job_field("alm_rec_type"), job_field("sj_rec_num"), job_field("sj_job_name"),
    job_field("sj_sched_ptr"), job_field("sj_next_job_ptr"), job_field("sj_restart_ptr"),
    job_field("sj_num_depends"), job_field("sj_depend_flags"),
};

// One copy per field, each of a size the compiler knows.
template <std::size_t... I>
void copy_links(unsigned char* dst, const unsigned char* src, std::index_sequence<I...>) {
    (std::memcpy(dst + kJobLinks[I].off, src + kJobLinks[I].off, kJobLinks[I].size), ...);
}

std::int16_t version_of(const alm_comarea* ca) { return ca->sh_rec->sh_alm_version; }

int kind_slot(const alm_comarea* ca, std::int16_t code) {
    for (int i = 0; i < ALM_NUM_KINDS; ++i)
        if (ca->rec_types[i] == code) return i;
    return -1;
}

bool is_production_name(const char* path) {
    const char* base = path;
    for (const char* p = path; *p != '\0'; ++p)
        if (*p == '/' || *p == '\\') base = p + 1;
    return std::strcmp(base, "Almanack") == 0;
}

// fstat into num_recs; false (error 13 recorded by the caller) on failure.
bool measure(alm_comarea* ca) {
    struct stat st {};
    if (::fstat(ca->fnum, &st) != 0) return false;
    long long n = static_cast<long long>(st.st_size) / alm_rec_size(version_of(ca));
    ca->num_recs = n > INT32_MAX ? INT32_MAX : static_cast<std::int32_t>(n);
    return true;
}

// One record: position check, one read, conversion into buffer (a whole
// 512-byte record); returns the bytes read. The stored type code goes to
// *stored. A record of an unknown kind, or of a file version that has no
// conversion, leaves the buffer as it was. Of a V2 job read for its links
// only those fields are set: a walk that only follows them is spared the
// copy and the conversion of the rest.
int read_record(alm_comarea* ca, std::uint32_t recnum, unsigned char* buffer, std::int16_t* stored,
                alm_job_detail detail = alm_job_detail::dated) {
    clear_error(ca);
    ca->expected_type = 0;
    ca->found_type = 0;
    const std::int16_t version = version_of(ca);
    const int size = alm_rec_size(version);

    if (recnum == NULL_REC) return set_error(ca, ALM_E_NULLREC, ERANGE, recnum);
    if (recnum >= static_cast<std::uint32_t>(ca->num_recs)) {
        if (!ca->exclusive && !measure(ca)) return set_error(ca, ALM_E_FSTAT, errno, recnum);
        if (recnum >= static_cast<std::uint32_t>(ca->num_recs)) return set_error(ca, ALM_E_RANGE, 0, recnum);
    }

    // A whole V2 record found in what the session keeps is converted from
    // where it lies; anything else is read into raw first.
    ALMRECTYPE_INT raw;
    const unsigned char* src = nullptr;
    const off_t off = static_cast<off_t>(recnum) * size;
    ssize_t n = alm_pread_at(ca, raw.v2.bytes, static_cast<std::size_t>(size), off, &src);
    if (n < 0) {
        int e = errno;
        return set_error(ca, (e == EINVAL || e == EOVERFLOW || e == ESPIPE) ? ALM_E_SEEK : ALM_E_READ, e, recnum);
    }
    if (src == raw.v2.bytes || size < ALM_REC_SIZE_V2) {
        if (src != raw.v2.bytes) std::memcpy(raw.v2.bytes, src, static_cast<std::size_t>(n));
        // A record cut short (the file shrank since it was measured) is not
        // an error: what was read is converted, the missing bytes are zero.
        std::memset(raw.v2.bytes + n, 0, static_cast<std::size_t>(size - n));
        if (size < ALM_REC_SIZE_V2) std::memset(raw.v2.bytes + size, ' ', static_cast<std::size_t>(ALM_REC_SIZE_V2 - size));
        src = raw.v2.bytes;
    }

    *stored = static_cast<std::int16_t>(load_le16(src));
    if (detail == alm_job_detail::links && version == 1 && *stored == SJ_CODE) {
        copy_links(buffer, src, std::make_index_sequence<std::size(kJobLinks)>());
    } else {
        alm_i_2_e_bytes(src, buffer, version);
    }

    if (ca->production) {
        int slot = kind_slot(ca, *stored);
        if (slot >= 0) ++ca->rec_reads[slot];
    }
    return static_cast<int>(n);
}

// A read of one kind into a whole record's bytes, or into scratch for a
// null out.
int read_kind(alm_comarea* ca, std::uint32_t recnum, unsigned char* out, std::int16_t code,
              alm_job_detail detail = alm_job_detail::dated) {
    if (!alm_valid(ca)) return -1;
    // The record is converted straight into the caller's; what the read
    // leaves untouched stays as the caller had it.
    std::int16_t stored = 0;
    int n = 0;
    if (out != nullptr) {
        n = read_record(ca, recnum, out, &stored, detail);
    } else {
        ALMRECTYPE scratch{};
        n = read_record(ca, recnum, scratch.bytes, &stored, detail);
    }
    if (n < 0) {
        ca->expected_type = code;
        return -1;
    }
    if (stored != code) {
        set_error(ca, ALM_E_KIND, 0, recnum);
        ca->expected_type = code;
        ca->found_type = stored;
        return -1;
    }
    return n;
}

template <class Rec>
int read_typed(alm_comarea* ca, std::uint32_t recnum, Rec* out, std::int16_t code,
               alm_job_detail detail = alm_job_detail::dated) {
    static_assert(sizeof(Rec) == sizeof(ALMRECTYPE));
    return read_kind(ca, recnum, reinterpret_cast<unsigned char*>(out), code, detail);
}

void copy_text(const char* text, char* buffer, int len) {
    if (buffer == nullptr || len <= 0) return;
    std::size_t n = std::strlen(text);
    if (n > static_cast<std::size_t>(len - 1)) n = static_cast<std::size_t>(len - 1);
    std::memcpy(buffer, text, n);
    buffer[n] = '\0';
}

}  // namespace

bool alm_valid(const alm_comarea* alm_ca) { return alm_ca != nullptr && alm_ca->magic_num == ALM_MAGIC; }

int alm_rec_size_of(const alm_comarea* alm_ca) {
    return alm_valid(alm_ca) ? alm_rec_size(version_of(alm_ca)) : 0;
}

int alm_measure(alm_comarea* alm_ca) {
    if (!alm_valid(alm_ca)) return -1;
    clear_error(alm_ca);
    if (!measure(alm_ca)) return set_error(alm_ca, ALM_E_FSTAT, errno, 0);
    return alm_ca->num_recs;
}

namespace {

// A session for filename, not yet open: its header and name are the caller's
// or its own as the flags say. Null when memory runs out.
std::unique_ptr<alm_comarea> new_session(const char* filename, int mode, int flags, SH_RECTYPE* sh_rec) {
    std::unique_ptr<alm_comarea> ca;
    try {
        ca = std::make_unique<alm_comarea>();
        ca->mode = mode;
        ca->flags = flags;
        if ((flags & ALM_OPEN_CALLER_HDR) != 0 && sh_rec != nullptr) {
            ca->sh_rec = sh_rec;
        } else {
            ca->own_sh_rec = std::make_unique<SH_RECTYPE>();
            ca->sh_rec = ca->own_sh_rec.get();
        }
        if ((flags & ALM_OPEN_CALLER_NAME) != 0) {
            ca->filename = filename;
        } else {
            std::size_t n = std::strlen(filename) + 1;
            ca->own_filename = std::make_unique<char[]>(n);
            std::memcpy(ca->own_filename.get(), filename, n);
            ca->filename = ca->own_filename.get();
        }
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    ca->magic_num = ALM_MAGIC;
    ca->wildcards = WILDCARDS;
    ca->match = c_patternmatch;
    for (int i = 0; i < ALM_NUM_KINDS; ++i)
        ca->rec_types[i] = static_cast<std::int16_t>(load_le16(KIND_WORDS + 2 * i));
    return ca;
}

// Reads the header into the session (and sh_rec) through the same read path
// as every record; its first half tells the version, and so whether there
// is a second half. A short read is not an error here: the missing bytes
// stay zero. Returns 0 or the error code, errno telling why.
int read_open_header(alm_comarea* ca, SH_RECTYPE* sh_rec) {
    ALMRECTYPE_INT raw;
    std::memset(&raw, 0, sizeof raw);
    if (alm_pread(ca, raw.v2.bytes, HALF_HEADER, 0) < 0) return ALM_E_READ;
    const auto version = static_cast<std::int16_t>(load_le16(raw.v2.bytes + VERSION_OFFSET));
    if (version == 1 && alm_pread(ca, raw.v2.bytes + HALF_HEADER, HALF_HEADER, HALF_HEADER) < 0)
        return ALM_E_SEEK;

    // Versions without a conversion keep the header as stored, so that the
    // session still knows the file's record size.
    ALMRECTYPE ext;
    std::memcpy(&ext, &raw, sizeof ext);
    alm_i_2_e(&raw, &ext, version);
    std::memcpy(static_cast<void*>(ca->sh_rec), &ext.sh, sizeof(SH_RECTYPE));
    if (sh_rec != nullptr && sh_rec != ca->sh_rec) std::memcpy(static_cast<void*>(sh_rec), ca->sh_rec, sizeof *sh_rec);
    return ALM_OK;
}

}  // namespace

int alm_open_text(const char* filename, int mode, int flags, alm_comarea** alm_ca, SH_RECTYPE* sh_rec,
                  char* errtext) {
    char scratch[ALM_ERRTEXT_SIZE];
    if (errtext == nullptr) errtext = scratch;
    errtext[0] = '\0';
    if (alm_ca == nullptr) {
        msg_almerr(nullptr, errtext, ALM_ERRTEXT_SIZE);
        return ALM_E_HANDLE;
    }
    *alm_ca = nullptr;
    if (filename == nullptr) filename = "";

    std::unique_ptr<alm_comarea> ca = new_session(filename, mode, flags, sh_rec);
    if (!ca) {
        fs_error(-1, ENOMEM, errtext, ALM_ERRTEXT_SIZE);
        return ALM_E_NOMEM;
    }

    auto fail = [&](int code, int err_num) {
        ca->err_type = code;
        ca->err_num = err_num;
        if (errtext[0] == '\0') msg_almerr(ca.get(), errtext, ALM_ERRTEXT_SIZE);
        if (ca->fnum >= 0) ::close(ca->fnum);
        ca->fnum = -1;
        ca->magic_num = 0;
        return code;
    };

    int oflags = O_RDONLY;
    if ((mode & ALM_MODE_EXCLUSIVE) == ALM_MODE_EXCLUSIVE) {
        oflags = O_RDWR;
        ca->exclusive = 1;
    } else if ((mode & ALM_MODE_UPDATE) != 0) {
        oflags = O_RDWR | O_SYNC;
    }
    do {
        ca->fnum = ::open(ca->filename, oflags | O_CLOEXEC | O_NOCTTY);
    } while (ca->fnum < 0 && errno == EINTR);
    if (ca->fnum < 0) return fail(errno == ENOENT ? ALM_E_NOFILE : ALM_E_OPEN, errno);

    int fdflags = ::fcntl(ca->fnum, F_GETFD);
    if (fdflags < 0 || ::fcntl(ca->fnum, F_SETFD, fdflags | FD_CLOEXEC) < 0) return fail(ALM_E_CLOEXEC, errno);

    int lock = ca->exclusive ? ALM_LOCK_WRITE_FILE : ((mode & ALM_MODE_UPDATE) ? ALM_LOCK_UPDATER : ALM_LOCK_READER);
    if (alm_lock(ca.get(), lock, 0) != 0) return fail(ca->err_type, ca->err_num);

    if (const int code = read_open_header(ca.get(), sh_rec); code != ALM_OK) return fail(code, errno);
    if (!measure(ca.get())) return fail(ALM_E_FSTAT, errno);
    if (!ca->exclusive) ca->production = is_production_name(ca->filename) ? 1 : 0;

    ca->opened = 1;
    clear_error(ca.get());
    *alm_ca = ca.release();
    return ALM_OK;
}

int alm_lock(alm_comarea* alm_ca, int flags, std::uint32_t rec_num) {
    if (!alm_valid(alm_ca)) return -1;
    alm_comarea* ca = alm_ca;
    clear_error(ca);
    if (ca->locked) return set_error(ca, ALM_E_LOCKED, 0, rec_num);

    struct flock fl {};
    fl.l_whence = SEEK_SET;
    bool kept = true;
    const off_t size = alm_rec_size(version_of(ca));
    auto record_region = [&] {
        fl.l_start = static_cast<off_t>(rec_num) * size;
        fl.l_len = size;
        if (rec_num == 0) {  // the presence bytes 0 and 1 stay out of record locks
            fl.l_start = 2;
            fl.l_len = size - 2;
        }
    };
    if (flags & ALM_LOCK_READ_REC) {
        fl.l_type = F_RDLCK;
        record_region();
    } else if (flags & ALM_LOCK_WRITE_REC) {
        fl.l_type = F_WRLCK;
        record_region();
    } else if (flags & ALM_LOCK_WRITE_FILE) {
        fl.l_type = F_WRLCK;
        fl.l_start = 0;
        fl.l_len = 0;
    } else if (flags & ALM_LOCK_READER) {
        fl.l_type = F_RDLCK;
        fl.l_start = 0;
        fl.l_len = 1;
        kept = false;
    } else if (flags & ALM_LOCK_UPDATER) {
        fl.l_type = F_RDLCK;
        fl.l_start = 0;
        fl.l_len = 2;
        kept = false;
    } else {
        return set_error(ca, ALM_E_LOCKFLAG, 0, rec_num);
    }

    const int cmd = (flags & ALM_LOCK_WAIT) ? F_SETLKW : F_SETLK;
    if (::fcntl(ca->fnum, cmd, &fl) != 0) return set_error(ca, ALM_E_LOCK, errno, rec_num);
    if (kept) {
        ca->locked = 1;
        ca->lk_dscrpt = fl;
    }
    return 0;
}

int alm_unlock(alm_comarea* alm_ca) {
    if (!alm_valid(alm_ca)) return -1;
    clear_error(alm_ca);
    if (!alm_ca->locked) return 0;
    struct flock fl = alm_ca->lk_dscrpt;
    fl.l_type = F_UNLCK;
    if (::fcntl(alm_ca->fnum, F_SETLK, &fl) != 0)
        return set_error(alm_ca, ALM_E_LOCK, errno, static_cast<std::uint32_t>(alm_ca->last_recnum));
    alm_ca->locked = 0;
    alm_ca->lk_dscrpt = {};
    return 0;
}

int alm_read(alm_comarea* alm_ca, std::uint32_t recnum, ALMRECTYPE* buffer) {
    if (!alm_valid(alm_ca)) return -1;
    std::int16_t stored = 0;
    if (buffer == nullptr) {
        ALMRECTYPE scratch{};
        return read_record(alm_ca, recnum, scratch.bytes, &stored);
    }
    return read_record(alm_ca, recnum, buffer->bytes, &stored);
}

int alm_read_header(alm_comarea* alm_ca, SH_RECTYPE* sh_rec) {
    if (!alm_valid(alm_ca)) return -1;
    if (alm_ca->exclusive) {
        clear_error(alm_ca);
        if (sh_rec != nullptr) std::memmove(static_cast<void*>(sh_rec), alm_ca->sh_rec, sizeof *sh_rec);
        return alm_rec_size(version_of(alm_ca));
    }
    return read_typed(alm_ca, 0, sh_rec, SH_CODE);
}

int alm_read_cpu_info(alm_comarea* alm_ca, std::uint32_t recnum, SCI_RECTYPE* sci_rec) {
    return read_typed(alm_ca, recnum, sci_rec, SCI_CODE);
}
int alm_read_sched(alm_comarea* alm_ca, std::uint32_t recnum, SS_RECTYPE* ss_rec) {
    return read_typed(alm_ca, recnum, ss_rec, SS_CODE);
}
int alm_read_job(alm_comarea* alm_ca, std::uint32_t recnum, SJ_RECTYPE* sj_rec) {
    return read_typed(alm_ca, recnum, sj_rec, SJ_CODE);
}
int alm_read_job_bytes(alm_comarea* alm_ca, std::uint32_t recnum, unsigned char* rec) {
    return read_kind(alm_ca, recnum, rec, SJ_CODE);
}
int alm_read_job_links(alm_comarea* alm_ca, std::uint32_t recnum, SJ_RECTYPE* sj_rec) {
    return read_typed(alm_ca, recnum, sj_rec, SJ_CODE, alm_job_detail::links);
}
int alm_read_message(alm_comarea* alm_ca, std::uint32_t recnum, SM_RECTYPE* sm_rec) {
    return read_typed(alm_ca, recnum, sm_rec, SM_CODE);
}
int alm_read_file(alm_comarea* alm_ca, std::uint32_t recnum, SF_RECTYPE* sf_rec) {
    return read_typed(alm_ca, recnum, sf_rec, SF_CODE);
}
int alm_read_resource(alm_comarea* alm_ca, std::uint32_t recnum, SR_RECTYPE* sr_rec) {
    return read_typed(alm_ca, recnum, sr_rec, SR_CODE);
}
int alm_read_calendar(alm_comarea* alm_ca, std::uint32_t recnum, SC_RECTYPE* sc_rec) {
    return read_typed(alm_ca, recnum, sc_rec, SC_CODE);
}

int alm_write_header(alm_comarea* alm_ca, const SH_RECTYPE* sh_rec) {
    if (!alm_valid(alm_ca)) return -1;
    alm_comarea* ca = alm_ca;
    clear_error(ca);
    if (sh_rec == nullptr) return set_error(ca, ALM_E_WRITE, EFAULT, 0);
    const std::int16_t version = version_of(ca);
    const int size = alm_rec_size(version);

    ALMRECTYPE ext;
    std::memcpy(&ext.sh, sh_rec, sizeof ext.sh);
    ALMRECTYPE_INT raw;
    std::memcpy(&raw, &ext, sizeof raw);
    alm_e_2_i(&ext, &raw, version);

    ssize_t n = pwrite_retry(ca->fnum, &raw, static_cast<std::size_t>(size), 0);
    if (n < 0) return set_error(ca, ALM_E_WRITE, errno, 0);
    if (n != size) return set_error(ca, ALM_E_WRITE, EIO, 0);  // a short write, as an I/O error
    ++ca->rec_writes[ALM_SLOT_HEADER];
    if (sh_rec != ca->sh_rec) std::memcpy(static_cast<void*>(ca->sh_rec), sh_rec, sizeof *sh_rec);
    return size;
}

int alm_close(alm_comarea*& alm_ca, int flags, int* err_type, char* msg_buff, int msg_len) {
    int scratch = 0;
    if (err_type == nullptr) err_type = &scratch;
    if (!alm_valid(alm_ca)) {
        *err_type = ALM_E_HANDLE;
        msg_almerr(nullptr, msg_buff, msg_len);
        return *err_type;
    }
    std::unique_ptr<alm_comarea> ca(alm_ca);
    alm_ca = nullptr;
    *err_type = ALM_OK;
    if (msg_buff != nullptr && msg_len > 0) msg_buff[0] = '\0';

    if (ca->fnum >= 0) {
        // A header read that converts nothing leaves the session's copy.
        SH_RECTYPE hdr;
        std::memcpy(static_cast<void*>(&hdr), ca->sh_rec, sizeof hdr);
        const bool stamp_always = (ca->mode & ALM_MODE_STAMP) != 0;
        const bool update = (ca->mode & ALM_MODE_UPDATE) != 0;
        if (stamp_always || update) {
            bool have = alm_read_header(ca.get(), &hdr) != -1;
            if (!have && stamp_always) {
                std::memcpy(static_cast<void*>(&hdr), ca->sh_rec, sizeof hdr);
                have = true;
            }
            if (have) {
                date_time(&hdr.sh_last_date, &hdr.sh_last_time);
                alm_write_header(ca.get(), &hdr);
            }
        }
        if ((flags & ALM_CLOSE_MARK_OLD) != 0 && alm_read_header(ca.get(), &hdr) != -1) {
            hdr.sh_flags = static_cast<std::uint16_t>(hdr.sh_flags | (1u << shf_almanack_is_old));
            alm_write_header(ca.get(), &hdr);
        }
        if ((flags & ALM_CLOSE_REMOVE) != 0) {
            if (::unlink(ca->filename) != 0) {
                ca->err_type = ALM_E_REMOVE;
                ca->err_num = errno;
                *err_type = ALM_E_REMOVE;
                msg_almerr(ca.get(), msg_buff, msg_len);
            }
            ::close(ca->fnum);
        } else if (::close(ca->fnum) != 0) {
            int e = errno;
            ca->err_type = ALM_E_CLOSE;
            ca->err_num = e;
            *err_type = ALM_E_CLOSE;
            fs_error(ca->fnum, e, msg_buff, msg_len);
        }
        ca->fnum = -1;
    }
    ca->magic_num = 0;
    return *err_type;
}

int alm_close(alm_comarea** alm_ca, int flags, int* err_type, char* msg_buff, int msg_len) {
    alm_comarea* none = nullptr;
    return alm_close(alm_ca != nullptr ? *alm_ca : none, flags, err_type, msg_buff, msg_len);
}

int msg_almerr(const alm_comarea* alm_ca, char* buffer, int len) {
    if (buffer == nullptr || len <= 0) return 0;
    char text[4201];
    short msglen = len > 257 ? -1 : 256;
    if (!alm_valid(alm_ca)) {
        issuemsgtobuf(text, &msglen, ALM_MSG_SET, ALM_E_HANDLE, MSG_END);
    } else if (alm_ca->err_num != 0) {
        issuemsgtobuf(text, &msglen, ALM_MSG_SET, alm_ca->err_type, MSG_STR, alm_ca->filename, MSG_INT,
                      alm_ca->err_num, MSG_INT, static_cast<int>(alm_ca->expected_type), MSG_INT,
                      static_cast<int>(alm_ca->found_type), MSG_INT, alm_ca->last_recnum, MSG_END);
    } else {
        issuemsgtobuf(text, &msglen, ALM_MSG_SET, alm_ca->err_type, MSG_STR, alm_ca->filename, MSG_INT,
                      static_cast<int>(alm_ca->expected_type), MSG_INT, static_cast<int>(alm_ca->found_type),
                      MSG_INT, alm_ca->last_recnum, MSG_END);
    }
    text[sizeof text - 1] = '\0';
    copy_text(text, buffer, len);
    return static_cast<int>(std::strlen(buffer));
}

int fs_error(int /*fd*/, int err_num, char* buffer, int len) {
    if (buffer == nullptr || len <= 0) return 0;
    if (err_num == 0) err_num = errno;
    const char* text = std::strerror(err_num);
    buffer[0] = '\0';
    if (ils_to_utf8(nullptr, text, -1, buffer, len) < 0 || buffer[0] == '\0') copy_text(text, buffer, len);
    buffer[len - 1] = '\0';
    return static_cast<int>(std::strlen(buffer));
}

void alm_session_closer::operator()(alm_comarea* ca) const noexcept {
    int err = 0;
    alm_close(ca, 0, &err, nullptr, 0);
}

alm_session alm_open_session(const char* filename, int mode, int* status, char* errtext, SH_RECTYPE* sh_rec) {
    alm_comarea* ca = nullptr;
    int rc = alm_open_text(filename, mode, 0, &ca, sh_rec, errtext);
    if (status != nullptr) *status = rc;
    return alm_session(ca);
}

}  // namespace alm
