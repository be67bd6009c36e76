// Client side of the protocol: starting a server on pipes, sending requests, reading replies.
#include "client/almclient.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>

#include "util/fdio.h"

extern char** environ;

namespace alm {

namespace {

using Clock = std::chrono::steady_clock;

class Deadline {
public:
    explicit Deadline(int timeoutMs)
        : infinite_(timeoutMs < 0), end_(Clock::now() + std::chrono::milliseconds(timeoutMs)) {}
    bool infinite() const { return infinite_; }
    // Milliseconds left for poll(): -1 forever, 0 when passed.
    int left() const {
        if (infinite_) return -1;
        const auto ms = std::chrono::ceil<std::chrono::milliseconds>(end_ - Clock::now()).count();
        return ms > 0 ? static_cast<int>(ms) : 0;
    }
    bool passed() const { return !infinite_ && Clock::now() >= end_; }

private:
    bool infinite_;
    Clock::time_point end_;
};

// -1 error (errno set), 0 timeout, 1 readable or hung up.
int pollIn(int fd, const Deadline& deadline) {
    for (;;) {
        pollfd p{fd, POLLIN, 0};
        const int rc = ::poll(&p, 1, deadline.left());
        if (rc < 0 && errno == EINTR) continue;
        return rc < 0 ? -1 : (rc == 0 ? 0 : 1);
    }
}

// Writes with SIGPIPE held back, so a vanished server shows up as EPIPE.
int writeAllNoSigpipe(int fd, const char* data, std::size_t length) {
    sigset_t pipeSet;
    sigset_t oldMask;
    sigemptyset(&pipeSet);
    sigaddset(&pipeSet, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipeSet, &oldMask);
    sigset_t pending;
    sigpending(&pending);
    const bool wasPending = sigismember(&pending, SIGPIPE) == 1;

    const int err = write_full(fd, data, length);
    if (err == EPIPE && !wasPending) {
        const timespec zero{};
        while (sigtimedwait(&pipeSet, nullptr, &zero) < 0 && errno == EINTR) {
        }
    }
    pthread_sigmask(SIG_SETMASK, &oldMask, nullptr);
    return err;
}

std::string envName(const std::string& entry) { return entry.substr(0, entry.find('=')); }

}  // namespace

const char* clientStatusName(ClientStatus status) {
    switch (status) {
    case ClientStatus::Ok: return "Ok";
    case ClientStatus::Eof: return "Eof";
    case ClientStatus::Timeout: return "Timeout";
    case ClientStatus::IoError: return "IoError";
    case ClientStatus::BadGreeting: return "BadGreeting";
    case ClientStatus::BadFrame: return "BadFrame";
    case ClientStatus::NotRunning: return "NotRunning";
    case ClientStatus::SpawnFailed: return "SpawnFailed";
    }
    return "?";
}

std::vector<std::string> Reply::strings() const {
    std::vector<std::string> out;
    const auto* text = reinterpret_cast<const char*>(body_.get());
    std::size_t start = 0;
    for (std::size_t i = 0; i < bodySize_; ++i) {
        if (text[i] == '\0') {
            out.emplace_back(text + start, i - start);
            start = i + 1;
        }
    }
    if (start < bodySize_) out.emplace_back(text + start, bodySize_ - start);
    return out;
}

std::size_t Reply::recordCount() const {
    return header.bytesPerRecord ? bodySize_ / header.bytesPerRecord : 0;
}

const unsigned char* Reply::record(std::size_t i) const {
    if (i >= recordCount()) return nullptr;
    return body_.get() + i * header.bytesPerRecord;
}

AlmClient::~AlmClient() {
    closeFd(toServer_);
    closeFd(fromServer_);
    closeFd(errFromServer_);
    if (pid_ > 0) {
        ::kill(pid_, SIGKILL);
        int status = 0;
        while (::waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
        }
    }
}

void AlmClient::closeFd(int& fd) {
    if (fd >= 0) ::close(fd);
    fd = -1;
}

ClientStatus AlmClient::fail(int err) {
    errno_ = err;
    return ClientStatus::IoError;
}

namespace {

// The inherited environment less the names unsetEnv and extraEnv give, then
// extraEnv.
std::vector<std::string> childEnvironment(const SpawnOptions& options) {
    std::vector<std::string> env;
    for (char** e = environ; e && *e; ++e) {
        const std::string entry(*e);
        const std::string name = envName(entry);
        bool drop = false;
        for (const std::string& u : options.unsetEnv) drop = drop || u == name;
        for (const std::string& x : options.extraEnv) drop = drop || envName(x) == name;
        if (!drop) env.push_back(entry);
    }
    for (const std::string& x : options.extraEnv) env.push_back(x);
    return env;
}

std::vector<char*> pointersTo(std::vector<std::string>& strings) {
    std::vector<char*> out;
    for (std::string& s : strings) out.push_back(s.data());
    out.push_back(nullptr);
    return out;
}

// The pipes of one start: the child's stdin, stdout and stderr, and the
// one on which a failed exec reports its errno. All close-on-exec.
struct SpawnPipes {
    int in[2] = {-1, -1};
    int out[2] = {-1, -1};
    int err[2] = {-1, -1};
    int report[2] = {-1, -1};

    ~SpawnPipes() {
        for (int* p : {in, out, err, report})
            for (int i = 0; i < 2; ++i) closeOne(p[i]);
    }
    static void closeOne(int& fd) {
        if (fd >= 0) ::close(fd);
        fd = -1;
    }
    // Takes fd out of the set, which then no longer closes it.
    static int take(int& fd) {
        const int taken = fd;
        fd = -1;
        return taken;
    }
    bool open(const SpawnOptions& options) {
        return (options.stdinFd >= 0 || ::pipe2(in, O_CLOEXEC) == 0) && ::pipe2(out, O_CLOEXEC) == 0 &&
               (!options.captureStderr || ::pipe2(err, O_CLOEXEC) == 0) && ::pipe2(report, O_CLOEXEC) == 0;
    }
};

// In the child after fork: only async-signal-safe calls. Puts the pipes in
// place, restores SIGPIPE and the signal mask, and execs; a failure
// reports its errno on the report pipe.
[[noreturn]] void execChild(const std::string& program, char* const* argv, char* const* envp,
                            const SpawnOptions& options, const SpawnPipes& pipes) {
    auto place = [](int from, int to) {
        if (from == to) return ::fcntl(to, F_SETFD, 0) == 0;
        return ::dup2(from, to) == to;
    };
    bool ok = place(options.stdinFd < 0 ? pipes.in[0] : options.stdinFd, 0) && place(pipes.out[1], 1) &&
              (!options.captureStderr || place(pipes.err[1], 2));
    if (ok) {
        struct sigaction dfl {};
        dfl.sa_handler = SIG_DFL;
        sigaction(SIGPIPE, &dfl, nullptr);
        sigset_t none;
        sigemptyset(&none);
        sigprocmask(SIG_SETMASK, &none, nullptr);
        ok = options.workDir.empty() || ::chdir(options.workDir.c_str()) == 0;
    }
    if (ok) ::execve(program.c_str(), argv, envp);
    const int e = errno;
    [[maybe_unused]] ssize_t n = ::write(pipes.report[1], &e, sizeof e);
    ::_exit(127);
}

// Whether the child reported a failure (its errno in childErrno) before
// its exec closed the report pipe.
bool childFailed(SpawnPipes& pipes, int& childErrno) {
    SpawnPipes::closeOne(pipes.report[1]);
    return read_retry(pipes.report[0], &childErrno, sizeof childErrno) > 0;
}

}  // namespace

ClientStatus AlmClient::start(const std::string& program, const std::vector<std::string>& argv,
                              const SpawnOptions& options) {
    if (pid_ > 0 || toServer_ >= 0 || fromServer_ >= 0) {
        errno_ = EBUSY;
        return ClientStatus::SpawnFailed;
    }
    // Everything the child needs is built before fork: it only calls
    // async-signal-safe functions.
    std::vector<std::string> args = argv.empty() ? std::vector<std::string>{program} : argv;
    std::vector<std::string> env = childEnvironment(options);
    const std::vector<char*> cargv = pointersTo(args);
    const std::vector<char*> cenv = pointersTo(env);

    SpawnPipes pipes;
    if (!pipes.open(options)) {
        errno_ = errno;
        return ClientStatus::SpawnFailed;
    }
#ifdef F_SETPIPE_SZ
    // A larger pipe lets big replies stream with fewer wake-ups; best effort.
    ::fcntl(pipes.out[0], F_SETPIPE_SZ, 1 << 20);
#endif
    const pid_t child = ::fork();
    if (child < 0) {
        errno_ = errno;
        return ClientStatus::SpawnFailed;
    }
    if (child == 0) execChild(program, cargv.data(), cenv.data(), options, pipes);

    SpawnPipes::closeOne(pipes.in[0]);
    SpawnPipes::closeOne(pipes.out[1]);
    SpawnPipes::closeOne(pipes.err[1]);
    int childErrno = 0;
    if (childFailed(pipes, childErrno)) {
        int status = 0;
        while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
        }
        errno_ = childErrno;
        return ClientStatus::SpawnFailed;
    }
    pid_ = child;
    toServer_ = SpawnPipes::take(pipes.in[1]);
    fromServer_ = SpawnPipes::take(pipes.out[0]);
    errFromServer_ = SpawnPipes::take(pipes.err[0]);
    aheadPos_ = aheadLen_ = 0;
    return ClientStatus::Ok;
}

ClientStatus AlmClient::readGreeting(int timeoutMs) {
    char greeting[ALM_GREETING_BYTES];
    const ClientStatus st = readExact(greeting, sizeof greeting, timeoutMs);
    if (st != ClientStatus::Ok) return st;
    if (std::memcmp(greeting, ALM_GREETING, sizeof greeting) != 0) return ClientStatus::BadGreeting;
    return ClientStatus::Ok;
}

ClientStatus AlmClient::send(std::uint32_t type, std::uint32_t id,
                             const std::vector<std::string>& args) {
    return sendRaw(encodeRequest(type, id, args));
}

ClientStatus AlmClient::sendRaw(std::string_view bytes) {
    if (toServer_ < 0) return ClientStatus::NotRunning;
    const int e = writeAllNoSigpipe(toServer_, bytes.data(), bytes.size());
    return e ? fail(e) : ClientStatus::Ok;
}

ClientStatus AlmClient::closeInput() {
    if (toServer_ < 0) return ClientStatus::NotRunning;
    closeFd(toServer_);
    return ClientStatus::Ok;
}

ClientStatus AlmClient::closeOutput() {
    if (fromServer_ < 0) return ClientStatus::NotRunning;
    closeFd(fromServer_);
    aheadPos_ = aheadLen_ = 0;
    return ClientStatus::Ok;
}

std::size_t AlmClient::takeBuffered(unsigned char* dst, std::size_t length) {
    const std::size_t n = std::min(length, aheadLen_ - aheadPos_);
    if (n == 0) return 0;
    std::memcpy(dst, readAhead_.get() + aheadPos_, n);
    aheadPos_ += n;
    if (aheadPos_ == aheadLen_) aheadPos_ = aheadLen_ = 0;
    return n;
}

ClientStatus AlmClient::readExact(void* buffer, std::size_t length, int timeoutMs,
                                  std::size_t* got) {
    std::size_t done = 0;
    auto finish = [&](ClientStatus st) {
        if (got) *got = done;
        return st;
    };
    if (fromServer_ < 0) return finish(ClientStatus::NotRunning);
    const Deadline deadline(timeoutMs);
    auto* dst = static_cast<unsigned char*>(buffer);
    done = takeBuffered(dst, length);
    while (done < length) {
        if (!deadline.infinite()) {
            const int ready = pollIn(fromServer_, deadline);
            if (ready < 0) return finish(fail(errno));
            if (ready == 0) return finish(ClientStatus::Timeout);
        }
        // Large reads go straight to the caller; small ones fill the buffer.
        const bool direct = length - done >= kReadAheadBytes;
        if (!direct && !readAhead_) readAhead_ = std::make_unique_for_overwrite<unsigned char[]>(kReadAheadBytes);
        const ssize_t n = direct ? read_retry(fromServer_, dst + done, length - done)
                                 : read_retry(fromServer_, readAhead_.get(), kReadAheadBytes);
        if (n < 0) return finish(fail(errno));
        if (n == 0) return finish(ClientStatus::Eof);
        if (direct) {
            done += static_cast<std::size_t>(n);
        } else {
            aheadLen_ = static_cast<std::size_t>(n);
            done += takeBuffered(dst + done, length - done);
        }
    }
    return finish(ClientStatus::Ok);
}

ClientStatus AlmClient::readHeader(FrameHeader& header, int timeoutMs) {
    unsigned char bytes[ALM_FRAME_HEADER_BYTES];
    const ClientStatus st = readExact(bytes, sizeof bytes, timeoutMs);
    if (st != ClientStatus::Ok) return st;
    header = decodeHeader(bytes);
    return ClientStatus::Ok;
}

ClientStatus AlmClient::readReply(Reply& reply, int timeoutMs) {
    const Deadline deadline(timeoutMs);
    reply.body_.reset();
    reply.bodySize_ = 0;
    ClientStatus st = readHeader(reply.header, timeoutMs);
    if (st != ClientStatus::Ok) return st;
    if (reply.header.size < ALM_FRAME_HEADER_AFTER_SIZE) return ClientStatus::BadFrame;
    const std::size_t length = reply.header.size - ALM_FRAME_HEADER_AFTER_SIZE;
    if (length > maxBodyBytes_) return ClientStatus::BadFrame;
    if (length == 0) return ClientStatus::Ok;
    reply.body_ = std::make_unique_for_overwrite<unsigned char[]>(length);
    st = readExact(reply.body_.get(), length, deadline.infinite() ? -1 : deadline.left(),
                   &reply.bodySize_);
    return st;
}

ClientStatus AlmClient::readFd(int fd, std::string& out, int timeoutMs) {
    out.clear();
    if (fd < 0) return ClientStatus::NotRunning;
    const Deadline deadline(timeoutMs);
    char chunk[65536];
    for (;;) {
        if (!deadline.infinite()) {
            const int ready = pollIn(fd, deadline);
            if (ready < 0) return fail(errno);
            if (ready == 0) return ClientStatus::Timeout;
        }
        const ssize_t n = read_retry(fd, chunk, sizeof chunk);
        if (n < 0) return fail(errno);
        if (n == 0) return ClientStatus::Ok;
        out.append(chunk, static_cast<std::size_t>(n));
    }
}

ClientStatus AlmClient::readAll(std::string& out, int timeoutMs) {
    std::string buffered;
    if (aheadPos_ < aheadLen_)
        buffered.assign(reinterpret_cast<const char*>(readAhead_.get()) + aheadPos_, aheadLen_ - aheadPos_);
    aheadPos_ = aheadLen_ = 0;
    const ClientStatus st = readFd(fromServer_, out, timeoutMs);
    out.insert(0, buffered);
    return st;
}

ClientStatus AlmClient::readStderr(std::string& out, int timeoutMs) {
    return readFd(errFromServer_, out, timeoutMs);
}

ClientStatus AlmClient::waitReadable(int timeoutMs) {
    if (fromServer_ < 0) return ClientStatus::NotRunning;
    if (aheadPos_ < aheadLen_) return ClientStatus::Ok;
    const int ready = pollIn(fromServer_, Deadline(timeoutMs));
    if (ready < 0) return fail(errno);
    return ready ? ClientStatus::Ok : ClientStatus::Timeout;
}

ClientStatus AlmClient::waitExit(int& exitCode, int timeoutMs) {
    if (pid_ <= 0) return ClientStatus::NotRunning;
    const Deadline deadline(timeoutMs);
    int status = 0;
    for (;;) {
        const pid_t r = ::waitpid(pid_, &status, deadline.infinite() ? 0 : WNOHANG);
        if (r == pid_) break;
        if (r < 0) {
            if (errno == EINTR) continue;
            return fail(errno);
        }
        if (deadline.passed()) return ClientStatus::Timeout;
        const timespec pause{0, 2'000'000};
        ::nanosleep(&pause, nullptr);
    }
    pid_ = -1;
    exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    return ClientStatus::Ok;
}

ClientStatus AlmClient::kill(int signal) {
    if (pid_ <= 0) return ClientStatus::NotRunning;
    return ::kill(pid_, signal) == 0 ? ClientStatus::Ok : fail(errno);
}

}  // namespace alm
