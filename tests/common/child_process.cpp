#include "common/child_process.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <stdexcept>

namespace alm::test {

namespace {

bool read_all(int fd, void* buf, std::size_t len) {
    auto* p = static_cast<char*>(buf);
    while (len > 0) {
        ssize_t n = ::read(fd, p, len);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        p += n;
        len -= static_cast<std::size_t>(n);
    }
    return true;
}

}  // namespace

HoldingChild::HoldingChild(const std::function<int()>& fn) {
    int up[2];
    int down[2];
    if (::pipe(up) != 0) throw std::runtime_error("pipe");
    if (::pipe(down) != 0) {
        ::close(up[0]);
        ::close(up[1]);
        throw std::runtime_error("pipe");
    }
    ::signal(SIGPIPE, SIG_IGN);  // a child that died early must not kill the test
    std::fflush(nullptr);
    pid_ = ::fork();
    if (pid_ < 0) throw std::runtime_error("fork");
    if (pid_ == 0) {
        ::close(up[0]);
        ::close(down[1]);
        int r = fn();
        if (::write(up[1], &r, sizeof r) != static_cast<ssize_t>(sizeof r)) ::_exit(2);
        char c;
        read_all(down[0], &c, 1);  // released, or the parent is gone
        ::_exit(0);
    }
    ::close(up[1]);
    ::close(down[0]);
    to_child_ = down[1];
    if (!read_all(up[0], &report_, sizeof report_)) report_ = -999;
    ::close(up[0]);
}

void HoldingChild::release_after(int ms) {
    if (pid_ <= 0 || timer_ > 0) return;
    std::fflush(nullptr);
    timer_ = ::fork();
    if (timer_ == 0) {
        ::usleep(static_cast<useconds_t>(ms) * 1000);
        char c = 'x';
        ssize_t n = ::write(to_child_, &c, 1);
        ::_exit(n == 1 ? 0 : 1);
    }
}

int HoldingChild::release() {
    if (pid_ <= 0) return -1;
    if (timer_ > 0) {
        while (::waitpid(timer_, nullptr, 0) < 0 && errno == EINTR) {
        }
        timer_ = -1;
    }
    char c = 'x';
    if (::write(to_child_, &c, 1) != 1) {
        // the child is gone already; reap it below
    }
    ::close(to_child_);
    to_child_ = -1;
    int status = 0;
    while (::waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
    }
    pid_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

HoldingChild::~HoldingChild() { release(); }

}  // namespace alm::test
