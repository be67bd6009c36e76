// Raw records of a plan file read by number through a block cache.
#include "plan/planrecords.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "util/fdio.h"

namespace alm {

PlanRecords::~PlanRecords() {
    if (fd_ >= 0) ::close(fd_);
}

int PlanRecords::open(const std::string& path) {
    fd_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd_ < 0) return errno_ = errno;
    struct stat st {};
    if (::fstat(fd_, &st) != 0) return errno_ = errno;
    if (!S_ISREG(st.st_mode)) return errno_ = S_ISDIR(st.st_mode) ? EISDIR : EINVAL;
    bytes_ = static_cast<std::uint64_t>(st.st_size);
    return 0;
}

void PlanRecords::setRecordSize(int bytes) { recSize_ = bytes; }

bool PlanRecords::remeasure() {
    struct stat st {};
    if (::fstat(fd_, &st) != 0) {
        errno_ = errno;
        return false;
    }
    const auto now = static_cast<std::uint64_t>(st.st_size);
    if (now == bytes_) return true;
    bytes_ = now;
    for (Block& b : blocks_) b.filled = 0;  // a short last block may have grown
    return true;
}

PlanRecords::Block* PlanRecords::load(std::uint64_t index) {
    Block* victim = &blocks_[0];
    for (Block& b : blocks_) {
        if (b.filled > 0 && b.index == index) {
            b.used = ++clock_;
            return &b;
        }
        // An empty slot first, else the one used longest ago.
        if (victim->filled > 0 && (b.filled == 0 || b.used < victim->used)) victim = &b;
    }
    if (!victim->bytes) victim->bytes = std::make_unique<unsigned char[]>(kBlockBytes);
    const ssize_t got = pread_full(fd_, victim->bytes.get(), kBlockBytes, static_cast<off_t>(index * kBlockBytes));
    if (got < 0) {
        errno_ = errno;
        victim->filled = 0;
        return nullptr;
    }
    victim->index = index;
    victim->filled = static_cast<std::size_t>(got);
    victim->used = ++clock_;
    return victim;
}

const unsigned char* PlanRecords::record(std::uint64_t n) {
    if (fd_ < 0) return nullptr;
    if (n >= records() && (!remeasure() || n >= records())) return nullptr;
    const std::uint64_t at = n * static_cast<std::uint64_t>(recSize_);
    const Block* b = load(at / kBlockBytes);
    if (b == nullptr) return nullptr;
    const std::size_t inBlock = at % kBlockBytes;
    // The file shrank under us: the record is no longer all there.
    if (inBlock + static_cast<std::size_t>(recSize_) > b->filled) return nullptr;
    return b->bytes.get() + inBlock;
}

}  // namespace alm
