#include "planwriter.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>

#include "plan/almforms.h"
#include "recfields.h"
#include "util/endian.h"
#include "util/fdio.h"

namespace alm {
namespace {

constexpr std::size_t kBufferBytes = std::size_t{1} << 20;

std::string sys_error(const std::string& path) { return path + ": " + std::strerror(errno); }

void make_filler(ALMRECTYPE& rec) {
    init_record(RecKind::String, rec);
    store_le32(rec.bytes + offsetof(ST_RECTYPE, st_rec_num), NULL_REC);
}

// A record of unknown kind is left alone by alm_e_2_i: it goes out as given.
void to_internal(const ALMRECTYPE& ext, ALMRECTYPE_INT& internal, std::int16_t version) {
    std::memcpy(&internal, ext.bytes, sizeof ext.bytes);
    alm_e_2_i(&ext, &internal, version);
}

}  // namespace

PlanWriter::PlanWriter(std::int16_t alm_version)
    : version_(alm_version), rec_size_(alm_rec_size(alm_version)) {}

PlanWriter::~PlanWriter() { discard(); }

void PlanWriter::discard() {
    if (fd_ >= 0) {
        ::close(fd_);
        fd_ = -1;
    }
    if (!tmp_path_.empty()) {
        ::unlink(tmp_path_.c_str());
        tmp_path_.clear();
    }
}

bool PlanWriter::open(const std::string& path, std::string& err) {
    discard();
    path_ = path;
    std::string tmpl = path + ".tmpXXXXXX";
    const int fd = ::mkstemp(tmpl.data());
    if (fd < 0) {
        err = sys_error(path);
        return false;
    }
    fd_ = fd;
    tmp_path_ = tmpl;
    // mkstemp makes the file private; a plan is an ordinary file.
    const mode_t mask = ::umask(0);
    ::umask(mask);
    if (::fchmod(fd_, 0666 & ~mask) != 0) {
        err = sys_error(path);
        discard();
        return false;
    }
    buf_.clear();
    buf_.reserve(kBufferBytes);
    buf_.assign(static_cast<std::size_t>(rec_size_), 0);  // record 0 is filled in by commit
    written_ = 1;
    return true;
}

std::uint32_t PlanWriter::next_recnum() const {
    return static_cast<std::uint32_t>(written_ == NULL_REC ? written_ + 1 : written_);
}

bool PlanWriter::append(const ALMRECTYPE& ext, std::string& err) {
    ALMRECTYPE_INT internal;
    to_internal(ext, internal, version_);
    if (buf_.size() + static_cast<std::size_t>(rec_size_) > kBufferBytes && !flush(err)) return false;
    const auto* bytes = reinterpret_cast<const unsigned char*>(&internal);
    buf_.insert(buf_.end(), bytes, bytes + rec_size_);
    ++written_;
    return true;
}

bool PlanWriter::put(const ALMRECTYPE& ext, std::string& err) {
    if (fd_ < 0) {
        err = path_ + ": not open";
        return false;
    }
    if (written_ == NULL_REC) {
        if (version_ == 0) {
            err = path_ + ": a V1 plan holds at most 32768 records";
            return false;
        }
        ALMRECTYPE filler;
        make_filler(filler);
        if (!append(filler, err)) return false;
    }
    return append(ext, err);
}

bool PlanWriter::flush(std::string& err) {
    if (!buf_.empty() && write_full(fd_, buf_.data(), buf_.size()) != 0) {
        err = sys_error(path_);
        return false;
    }
    buf_.clear();
    return true;
}

bool PlanWriter::commit(const ALMRECTYPE& header, std::string& err) {
    if (fd_ < 0) {
        err = path_ + ": not open";
        return false;
    }
    ALMRECTYPE_INT internal;
    to_internal(header, internal, version_);
    bool ok = flush(err);
    if (ok && write_full(fd_, &internal, static_cast<std::size_t>(rec_size_), 0) != 0) {
        err = sys_error(path_);
        ok = false;
    }
    if (ok) {
        const int fd = fd_;
        fd_ = -1;
        if (::close(fd) != 0) {
            err = sys_error(path_);
            ok = false;
        }
    }
    if (ok && ::rename(tmp_path_.c_str(), path_.c_str()) != 0) {
        err = sys_error(path_);
        ok = false;
    }
    if (ok) tmp_path_.clear();
    discard();
    return ok;
}

}  // namespace alm
