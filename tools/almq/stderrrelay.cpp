#include "stderrrelay.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

namespace alm {

void StderrRelay::start(int fd, std::FILE* out) {
    if (fd < 0 || thread_.joinable()) return;
    fd_ = fd;
    out_ = out;
    stopping_ = false;
    thread_ = std::thread([this] { run(); });
}

void StderrRelay::stop() {
    if (!thread_.joinable()) return;
    stopping_ = true;
    thread_.join();
}

void StderrRelay::run() {
    // Wakes now and then to see whether it is asked to stop: a process the
    // server started may keep the pipe open after the server has ended.
    int readsAfterStop = 0;
    for (;;) {
        pollfd p{fd_, POLLIN, 0};
        const int ready = ::poll(&p, 1, 50);
        if (ready < 0 && errno != EINTR) break;
        if (ready > 0 && !pump()) break;
        // Once asked to stop, what is already there, but not for ever.
        if (stopping_ && (ready == 0 || ++readsAfterStop > 64)) break;
    }
    emit(true);
}

bool StderrRelay::pump() {
    char buf[4096];
    const ssize_t n = ::read(fd_, buf, sizeof buf);
    if (n < 0) return errno == EINTR || errno == EAGAIN;
    if (n == 0) return false;
    pending_.append(buf, static_cast<std::size_t>(n));
    emit(false);
    return true;
}

// Each whole line goes out with one write, so that it does not mix with
// almq's own lines; with all, a last line without its end too.
void StderrRelay::emit(bool all) {
    std::size_t start = 0;
    for (;;) {
        std::size_t end = pending_.find('\n', start);
        if (end == std::string::npos) {
            if (!all || start >= pending_.size()) break;
            end = pending_.size();
        }
        const std::string line = "almread: " + pending_.substr(start, end - start) + "\n";
        std::fwrite(line.data(), 1, line.size(), out_);
        start = end + 1;
    }
    pending_.erase(0, start < pending_.size() ? start : pending_.size());
    std::fflush(out_);
}

}  // namespace alm
