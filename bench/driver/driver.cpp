// benchdriver: times one request/reply exchange with almread, or the same
// traffic through cat, which is what a pipe can do at best. One line of
// key=value results per run on stdout; bench/run gathers them.
//
//   benchdriver query ALMREAD PLAN TYPE [ARG...]   one query on a fresh server
//   benchdriver pipe FILE                           FILE's bytes through cat
//   benchdriver nop ALMREAD COUNT                   no-operation round trips
//   benchdriver echo COUNT                          24-byte round trips through cat
//   benchdriver needle PLAN OUT                     PLAN with its last job renamed NEEDLE
//
// Options before the command: --reserve BYTES pre-faults a reply buffer of
// that size so that page faults stay out of the timing; --save FILE writes
// the reply body there (query only).
#include <fcntl.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "plan/almrecs.h"
#include "util/endian.h"

namespace alm {
namespace {

constexpr std::size_t kHeaderBytes = 24;
constexpr char kGreeting[] = "AlmRead Lives";

[[noreturn]] void die(const std::string& what) {
    std::fprintf(stderr, "benchdriver: %s%s%s\n", what.c_str(), errno ? ": " : "", errno ? std::strerror(errno) : "");
    std::exit(2);
}

double now() {
    timespec ts{};
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return static_cast<double>(ts.tv_sec) + static_cast<double>(ts.tv_nsec) * 1e-9;
}

void writeAll(int fd, const void* data, std::size_t length) {
    const auto* p = static_cast<const char*>(data);
    while (length > 0) {
        const ssize_t n = ::write(fd, p, length);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) die("write");
        p += n;
        length -= static_cast<std::size_t>(n);
    }
}

// Reads exactly length bytes; false at end of input before that.
bool readAll(int fd, void* data, std::size_t length) {
    auto* p = static_cast<char*>(data);
    while (length > 0) {
        const ssize_t n = ::read(fd, p, length);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) die("read");
        if (n == 0) return false;
        p += n;
        length -= static_cast<std::size_t>(n);
    }
    return true;
}

// A child with its standard input and output on pipes.
struct Child {
    pid_t pid = -1;
    int in = -1;   // we write its stdin
    int out = -1;  // we read its stdout

    void closeInput() {
        if (in >= 0) ::close(in);
        in = -1;
    }
    // CPU seconds the child used, known once finish() has reaped it.
    double cpuSeconds = 0;

    // Exit status after its input is closed; its output is drained first.
    int finish() {
        closeInput();
        char sink[4096];
        while (out >= 0 && ::read(out, sink, sizeof sink) > 0) {
        }
        if (out >= 0) ::close(out);
        out = -1;
        int status = 0;
        rusage usage{};
        while (::wait4(pid, &status, 0, &usage) < 0 && errno == EINTR) {
        }
        auto seconds = [](const timeval& tv) { return static_cast<double>(tv.tv_sec) + tv.tv_usec * 1e-6; };
        cpuSeconds = seconds(usage.ru_utime) + seconds(usage.ru_stime);
        pid = -1;
        return status;
    }
};

Child spawn(const std::vector<std::string>& argv) {
    int toChild[2];
    int fromChild[2];
    if (::pipe2(toChild, O_CLOEXEC) != 0 || ::pipe2(fromChild, O_CLOEXEC) != 0) die("pipe");
    std::vector<char*> args;
    for (const std::string& a : argv) args.push_back(const_cast<char*>(a.c_str()));
    args.push_back(nullptr);
    const pid_t pid = ::fork();
    if (pid < 0) die("fork");
    if (pid == 0) {
        ::dup2(toChild[0], 0);
        ::dup2(fromChild[1], 1);
        ::execv(args[0], args.data());
        std::_Exit(127);
    }
    ::close(toChild[0]);
    ::close(fromChild[1]);
    return Child{pid, toChild[1], fromChild[0]};
}

std::string request(std::uint32_t type, std::uint32_t id, const std::vector<std::string>& args) {
    std::string area;
    for (const std::string& a : args) {
        area += a;
        area.push_back('\0');
    }
    unsigned char header[kHeaderBytes];
    const std::uint32_t words[6] = {static_cast<std::uint32_t>(20 + area.size()), type, id,
                                    static_cast<std::uint32_t>(args.size()), 0, 0};
    for (int i = 0; i < 6; ++i) store_be32(header + 4 * i, words[i]);
    return std::string(reinterpret_cast<const char*>(header), kHeaderBytes) + area;
}

struct Header {
    std::uint32_t size, type, id, numData, bytesPerRecord, dataType;
};

Header decode(const unsigned char* b) {
    return {load_be32(b), load_be32(b + 4), load_be32(b + 8), load_be32(b + 12), load_be32(b + 16), load_be32(b + 20)};
}

// The reply buffer: pre-faulted up to the reserve, grown (and faulted
// inside the timing) only when a reply is larger.
class Buffer {
public:
    explicit Buffer(std::size_t reserve) { grow(reserve); }
    ~Buffer() {
        if (data_ != MAP_FAILED) ::munmap(data_, size_);
    }
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;
    unsigned char* get(std::size_t need) {
        if (need > size_) grow(need);
        return static_cast<unsigned char*>(data_);
    }

private:
    void grow(std::size_t need) {
        if (need == 0) need = 1;
        if (data_ != MAP_FAILED) ::munmap(data_, size_);
        data_ = ::mmap(nullptr, need, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_POPULATE, -1, 0);
        if (data_ == MAP_FAILED) die("mmap");
        size_ = need;
    }
    void* data_ = MAP_FAILED;
    std::size_t size_ = 0;
};

// Peak resident memory of a live process, in KiB, from its status file.
long highWaterKiB(pid_t pid) {
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind("VmHWM:", 0) == 0) return std::strtol(line.c_str() + 6, nullptr, 10);
    return -1;
}

void expectGreeting(Child& server) {
    char greeting[sizeof kGreeting - 1];
    if (!readAll(server.out, greeting, sizeof greeting) || std::memcmp(greeting, kGreeting, sizeof greeting) != 0)
        die("no greeting from the server");
}

// Reads one whole reply; the body lands in buffer.
Header readReply(Child& server, Buffer& buffer, unsigned char** body) {
    unsigned char raw[kHeaderBytes];
    if (!readAll(server.out, raw, sizeof raw)) die("server ended before its reply");
    const Header h = decode(raw);
    if (h.size < 20) die("bad reply size");
    const std::size_t length = h.size - 20;
    *body = buffer.get(length);
    if (!readAll(server.out, *body, length)) die("server ended inside its reply");
    return h;
}

std::string openPlan(Child& server, const std::string& plan) {
    const std::string req = request(2, 1, {plan});
    writeAll(server.in, req.data(), req.size());
    Buffer small(4096);
    unsigned char* body = nullptr;
    const Header h = readReply(server, small, &body);
    std::vector<std::string> items;
    std::size_t start = 0;
    for (std::size_t i = 0; i < h.size - 20; ++i) {
        if (body[i] == '\0') {
            items.emplace_back(reinterpret_cast<const char*>(body) + start, i - start);
            start = i + 1;
        }
    }
    if (items.size() < 3 || items[0] != "0")
        die("open " + plan + " failed: " + (items.size() > 1 ? items[0] + " " + items[1] : std::string("?")));
    return items[2];
}

int cmdQuery(const std::vector<std::string>& a, std::size_t reserve, const std::string& save) {
    if (a.size() < 3) die("query ALMREAD PLAN TYPE [ARG...]");
    Child server = spawn({a[0]});
    expectGreeting(server);
    const std::string handle = openPlan(server, a[1]);
    std::vector<std::string> args{handle};
    args.insert(args.end(), a.begin() + 3, a.end());
    const std::string req = request(static_cast<std::uint32_t>(std::stoul(a[2])), 7, args);

    Buffer buffer(reserve);
    unsigned char* body = nullptr;
    const double t0 = now();
    writeAll(server.in, req.data(), req.size());
    const Header h = readReply(server, buffer, &body);
    const double t1 = now();

    const long hwm = highWaterKiB(server.pid);
    const std::size_t bytes = kHeaderBytes + (h.size - 20);
    if (!save.empty()) {
        std::ofstream f(save, std::ios::binary);
        f.write(reinterpret_cast<const char*>(body), static_cast<std::streamsize>(h.size - 20));
        if (!f) die("cannot write " + save);
    }
    const int status = server.finish();
    std::printf("bytes=%zu records=%u seconds=%.6f hwm_kib=%ld cpu=%.6f status=%d\n", bytes, h.numData, t1 - t0,
                hwm, server.cpuSeconds, WIFEXITED(status) ? WEXITSTATUS(status) : -1);
    return 0;
}

// The file's bytes come out of cat after a 24-byte frame that it echoes
// first, the counterpart of a request header; the timing starts when cat is
// known to be running and ends when the last byte is in the buffer.
int cmdPipe(const std::vector<std::string>& a, std::size_t reserve) {
    if (a.size() != 1) die("pipe FILE");
    struct stat st {};
    if (::stat(a[0].c_str(), &st) != 0) die("stat " + a[0]);
    const auto length = static_cast<std::size_t>(st.st_size);
    Child cat = spawn({"/bin/cat", "-", a[0]});
    const std::string frame = request(0, 1, {});
    unsigned char echoed[kHeaderBytes];
    writeAll(cat.in, frame.data(), frame.size());
    if (!readAll(cat.out, echoed, sizeof echoed)) die("cat ended");

    Buffer buffer(reserve > length ? reserve : length);
    unsigned char* body = buffer.get(length);
    const double t0 = now();
    cat.closeInput();
    if (!readAll(cat.out, body, length)) die("cat ended early");
    const double t1 = now();
    cat.finish();
    std::printf("bytes=%zu seconds=%.6f cpu=%.6f\n", length + kHeaderBytes, t1 - t0, cat.cpuSeconds);
    return 0;
}

void roundTrips(Child& peer, const std::string& frame, long count, const char* what) {
    unsigned char reply[kHeaderBytes];
    // One exchange first, so that both sides are running and warm.
    writeAll(peer.in, frame.data(), frame.size());
    if (!readAll(peer.out, reply, sizeof reply)) die("no first reply");
    const double t0 = now();
    for (long i = 0; i < count; ++i) {
        writeAll(peer.in, frame.data(), frame.size());
        if (!readAll(peer.out, reply, sizeof reply)) die("peer ended");
    }
    const double t1 = now();
    std::printf("%s=%ld seconds=%.6f per_trip_us=%.3f", what, count, t1 - t0, (t1 - t0) / count * 1e6);
}

int cmdNop(const std::vector<std::string>& a) {
    if (a.size() != 2) die("nop ALMREAD COUNT");
    Child server = spawn({a[0]});
    expectGreeting(server);
    roundTrips(server, request(0, 3, {}), std::stol(a[1]), "trips");
    std::printf(" hwm_kib=%ld\n", highWaterKiB(server.pid));
    server.finish();
    return 0;
}

int cmdEcho(const std::vector<std::string>& a) {
    if (a.size() != 1) die("echo COUNT");
    Child cat = spawn({"/bin/cat"});
    roundTrips(cat, request(0, 3, {}), std::stol(a[0]), "trips");
    std::printf("\n");
    cat.finish();
    return 0;
}

// A copy of a plan in which one job, the last record of the file, has a
// name that no other job has: a job search for it reads every job.
int cmdNeedle(const std::vector<std::string>& a) {
    if (a.size() != 2) die("needle PLAN OUT");
    std::ifstream in(a[0], std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (bytes.size() < 2 * static_cast<std::size_t>(ALM_REC_SIZE_V2)) die("plan too small: " + a[0]);
    const std::size_t last = bytes.size() - ALM_REC_SIZE_V2;
    auto* rec = reinterpret_cast<unsigned char*>(bytes.data() + last);
    if (static_cast<std::int16_t>(load_le16(rec)) != SJ_CODE) die("the last record is not a job");
    constexpr std::size_t nameOff = offsetof(SJ_RECTYPE, sj_job_name);
    constexpr std::size_t nameLen = sizeof(SJ_RECTYPE::sj_job_name);
    std::memset(rec + nameOff, ' ', nameLen);
    std::memcpy(rec + nameOff, "NEEDLE", 6);
    std::ofstream out(a[1], std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!out) die("cannot write " + a[1]);
    return 0;
}

}  // namespace
}  // namespace alm

int main(int argc, char** argv) {
    using namespace alm;
    std::signal(SIGPIPE, SIG_IGN);
    std::vector<std::string> a(argv + 1, argv + argc);
    std::size_t reserve = 0;
    std::string save;
    while (a.size() >= 2 && (a[0] == "--reserve" || a[0] == "--save")) {
        if (a[0] == "--reserve") reserve = std::stoull(a[1]);
        else save = a[1];
        a.erase(a.begin(), a.begin() + 2);
    }
    if (a.empty()) die("command: query, pipe, nop, echo or needle");
    const std::string cmd = a[0];
    a.erase(a.begin());
    if (cmd == "query") return cmdQuery(a, reserve, save);
    if (cmd == "pipe") return cmdPipe(a, reserve);
    if (cmd == "nop") return cmdNop(a);
    if (cmd == "echo") return cmdEcho(a);
    if (cmd == "needle") return cmdNeedle(a);
    die("unknown command " + cmd);
}
