#include "planlock.h"

#include <fcntl.h>
#include <unistd.h>

namespace alm {

long plan_lock_holder(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return -1;
    // The reader's presence lock: a read lock on byte 0.
    struct flock probe {};
    probe.l_type = F_RDLCK;
    probe.l_whence = SEEK_SET;
    probe.l_start = 0;
    probe.l_len = 1;
    const int rc = ::fcntl(fd, F_GETLK, &probe);
    ::close(fd);
    if (rc != 0) return -1;
    return probe.l_type == F_UNLCK ? 0 : static_cast<long>(probe.l_pid);
}

}  // namespace alm
