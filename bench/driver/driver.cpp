// benchdriver: times request/reply exchanges with almread, or the same
// traffic through cat, which is what a pipe can do at best. One line of
// key=value results per run on stdout; bench/run gathers them.
//
//   benchdriver query ALMREAD PLAN TYPE [ARG...]       one query on a fresh server
//   benchdriver pipe FILE                               FILE's bytes through cat
//   benchdriver many N ALMREAD PLAN TYPE [ARG...]       N servers, one query each, at once
//   benchdriver manycat N FILE                          N cats of FILE, at once
//   benchdriver nop ALMREAD COUNT                       no-operation round trips
//   benchdriver echo COUNT                              24-byte round trips through cat
//   benchdriver needle PLAN OUT                         PLAN with its last job renamed NEEDLE
//   benchdriver floor PLAN                              what reading a V2 plan costs at least
//
// Every reply, and every cat's output, is drained through one reused 1 MiB
// buffer (faulted in before the timing), over pipes of the default size.
// Options before the command: --save FILE writes the whole reply there
// (query); --expect FILE checks every reply byte for byte against FILE
// (query, many).
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
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
#include "util/fdio.h"

namespace alm {
namespace {

constexpr std::size_t kHeaderBytes = 24;
constexpr std::size_t kDrainBytes = 1u << 20;
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
    double cpuSeconds = 0;  // known once finish() has reaped it

    void closeInput() {
        if (in >= 0) ::close(in);
        in = -1;
    }

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

// A read-only mapping of a whole file (empty when the file is).
class MappedFile {
public:
    explicit MappedFile(const std::string& path) {
        const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        struct stat st {};
        if (fd < 0 || ::fstat(fd, &st) != 0) die("open " + path);
        size_ = static_cast<std::size_t>(st.st_size);
        if (size_ > 0) {
            data_ = ::mmap(nullptr, size_, PROT_READ, MAP_SHARED, fd, 0);
            if (data_ == MAP_FAILED) die("mmap " + path);
        }
        ::close(fd);
    }
    ~MappedFile() {
        if (data_ != MAP_FAILED) ::munmap(data_, size_);
    }
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;
    const unsigned char* data() const { return static_cast<const unsigned char*>(data_); }
    std::size_t size() const { return size_; }

private:
    void* data_ = MAP_FAILED;
    std::size_t size_ = 0;
};

// The one drain buffer, faulted in before anything is timed.
unsigned char* drainBuffer() {
    static unsigned char* buffer = [] {
        void* p = ::mmap(nullptr, kDrainBytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_POPULATE,
                         -1, 0);
        if (p == MAP_FAILED) die("mmap");
        std::memset(p, 1, kDrainBytes);
        return static_cast<unsigned char*>(p);
    }();
    return buffer;
}

// One stream being drained: a server's reply (its length known from its
// header) or cat's output (known in advance).
struct Stream {
    int fd = -1;
    bool framed = true;
    std::size_t total = 0;  // framed: known once the header is in
    std::size_t got = 0;
    unsigned char head[kHeaderBytes] = {};
    std::FILE* save = nullptr;
    const MappedFile* expect = nullptr;
    bool differs = false;
    bool ended = false;  // end of input before the whole reply

    bool done() const { return ended || ((!framed || got >= kHeaderBytes) && got >= total); }
    std::uint32_t word(int i) const { return load_be32(head + 4 * i); }
};

void consume(Stream& s, const unsigned char* data, std::size_t n) {
    for (std::size_t i = 0; s.framed && s.got + i < kHeaderBytes && i < n; ++i) s.head[s.got + i] = data[i];
    if (s.save && std::fwrite(data, 1, n, s.save) != n) die("cannot save the reply");
    if (s.expect) {
        const std::size_t have = s.expect->size();
        if (s.got + n > have || std::memcmp(s.expect->data() + s.got, data, n) != 0) s.differs = true;
    }
    s.got += n;
    if (s.framed && s.got >= kHeaderBytes && s.total == 0) s.total = 4 + static_cast<std::size_t>(s.word(0));
}

// One read into the drain buffer; false once the stream is done.
bool drainStep(Stream& s) {
    const ssize_t n = ::read(s.fd, drainBuffer(), kDrainBytes);
    if (n < 0 && errno == EINTR) return true;
    if (n < 0) die("read");
    if (n == 0) s.ended = true;
    else consume(s, drainBuffer(), static_cast<std::size_t>(n));
    return !s.done();
}

// Drains every stream to its end; one stream is read without poll.
void drainAll(std::vector<Stream>& streams) {
    if (streams.size() == 1) {
        while (drainStep(streams[0])) {
        }
        return;
    }
    std::vector<pollfd> fds;
    for (;;) {
        fds.clear();
        for (const Stream& s : streams)
            if (!s.done()) fds.push_back({s.fd, POLLIN, 0});
        if (fds.empty()) return;
        if (::poll(fds.data(), fds.size(), -1) < 0) {
            if (errno == EINTR) continue;
            die("poll");
        }
        for (const pollfd& p : fds) {
            if (p.revents == 0) continue;
            for (Stream& s : streams)
                if (s.fd == p.fd) drainStep(s);
        }
    }
}

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

// Opens the plan on a greeted server; returns the handle.
std::string openPlan(Child& server, const std::string& plan) {
    const std::string req = request(2, 1, {plan});
    writeAll(server.in, req.data(), req.size());
    unsigned char raw[kHeaderBytes];
    if (!readAll(server.out, raw, sizeof raw)) die("server ended before its reply");
    const std::size_t length = load_be32(raw) - 20;
    std::string body(length, '\0');
    if (length > 4096 || !readAll(server.out, body.data(), length)) die("bad reply to open");
    std::vector<std::string> items;
    std::size_t start = 0;
    for (std::size_t i = 0; i < body.size(); ++i) {
        if (body[i] == '\0') {
            items.push_back(body.substr(start, i - start));
            start = i + 1;
        }
    }
    if (items.size() < 3 || items[0] != "0")
        die("open " + plan + " failed: " + (items.size() > 1 ? items[0] + " " + items[1] : std::string("?")));
    return items[2];
}

struct Options {
    std::string save;
    std::string expect;
};

// Servers started, greeted and with the plan open, and their requests.
struct Servers {
    std::vector<Child> children;
    std::vector<std::string> requests;
};

Servers startServers(std::size_t count, const std::vector<std::string>& a) {
    if (a.size() < 3) die("ALMREAD PLAN TYPE [ARG...]");
    Servers s;
    for (std::size_t i = 0; i < count; ++i) {
        s.children.push_back(spawn({a[0]}));
        expectGreeting(s.children.back());
        std::vector<std::string> args{openPlan(s.children.back(), a[1])};
        args.insert(args.end(), a.begin() + 3, a.end());
        s.requests.push_back(request(static_cast<std::uint32_t>(std::stoul(a[2])), 7, args));
    }
    return s;
}

// Sends every request, drains every reply; prints the totals.
int runServers(std::size_t count, const std::vector<std::string>& a, const Options& o) {
    Servers s = startServers(count, a);
    std::unique_ptr<MappedFile> expect;
    if (!o.expect.empty()) expect = std::make_unique<MappedFile>(o.expect);
    std::FILE* save = o.save.empty() ? nullptr : std::fopen(o.save.c_str(), "wb");
    if (!o.save.empty() && !save) die("cannot write " + o.save);
    std::vector<Stream> streams(count);
    for (std::size_t i = 0; i < count; ++i) {
        streams[i].fd = s.children[i].out;
        streams[i].expect = expect.get();
        streams[i].save = i == 0 ? save : nullptr;
    }
    drainBuffer();
    const double t0 = now();
    for (std::size_t i = 0; i < count; ++i) writeAll(s.children[i].in, s.requests[i].data(), s.requests[i].size());
    drainAll(streams);
    const double t1 = now();
    if (save && std::fclose(save) != 0) die("cannot write " + o.save);

    long hwm = 0;
    for (const Child& c : s.children) hwm = std::max(hwm, highWaterKiB(c.pid));
    std::size_t bytes = 0, lost = 0, differ = 0, errors = 0;
    double cpu = 0;
    for (std::size_t i = 0; i < count; ++i) {
        bytes += streams[i].got;
        lost += streams[i].ended ? 1 : 0;
        differ += (streams[i].differs || (expect && streams[i].got != expect->size())) ? 1 : 0;
        const int status = s.children[i].finish();
        errors += (!WIFEXITED(status) || WEXITSTATUS(status) != 0) ? 1 : 0;
        cpu += s.children[i].cpuSeconds;
    }
    std::printf("bytes=%zu records=%u seconds=%.6f hwm_kib=%ld cpu=%.6f lost=%zu differ=%zu errors=%zu\n", bytes,
                streams[0].word(3), t1 - t0, hwm, cpu, lost, differ, errors);
    return 0;
}

// Each cat sends a 24-byte frame that it echoes first, the counterpart of a
// request, then the file; the timing starts once every cat is known to be
// running and ends when the last byte is drained.
int runCats(std::size_t count, const std::string& file) {
    struct stat st {};
    if (::stat(file.c_str(), &st) != 0) die("stat " + file);
    const std::string frame = request(0, 1, {});
    std::vector<Child> cats;
    std::vector<Stream> streams(count);
    for (std::size_t i = 0; i < count; ++i) {
        cats.push_back(spawn({"/bin/cat", "-", file}));
        unsigned char echoed[kHeaderBytes];
        writeAll(cats.back().in, frame.data(), frame.size());
        if (!readAll(cats.back().out, echoed, sizeof echoed)) die("cat ended");
        streams[i].fd = cats.back().out;
        streams[i].framed = false;
        streams[i].total = static_cast<std::size_t>(st.st_size);
    }
    drainBuffer();
    const double t0 = now();
    for (Child& c : cats) c.closeInput();
    drainAll(streams);
    const double t1 = now();
    std::size_t bytes = 0, lost = 0;
    double cpu = 0;
    for (std::size_t i = 0; i < count; ++i) {
        bytes += streams[i].got;
        lost += streams[i].ended ? 1 : 0;
        cats[i].finish();
        cpu += cats[i].cpuSeconds;
    }
    std::printf("bytes=%zu seconds=%.6f cpu=%.6f lost=%zu\n", bytes, t1 - t0, cpu, lost);
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

// The least that the walks over a V2 plan cost on this machine, with no
// work besides the reads: the whole file read in 64 KiB blocks (what a walk
// over every job reads), and the schedule chain followed with one 512-byte
// read per schedule (what counting the schedules reads: each schedule names
// the next, so no read can start before the one before it ends).
int cmdFloor(const std::vector<std::string>& a) {
    if (a.size() != 1) die("floor PLAN");
    const int fd = ::open(a[0].c_str(), O_RDONLY);
    if (fd < 0) die("open " + a[0]);
    struct stat st {};
    if (::fstat(fd, &st) != 0) die("fstat " + a[0]);
    const auto records = static_cast<std::uint32_t>(st.st_size / ALM_REC_SIZE_V2);

    constexpr std::size_t kBlock = 64u << 10;
    std::vector<unsigned char> block(kBlock, 0);
    double t0 = now();
    for (off_t off = 0; pread_retry(fd, block.data(), kBlock, off) > 0; off += static_cast<off_t>(kBlock)) {
    }
    const double scan = now() - t0;

    constexpr std::size_t kFirst = find_spec(kHeaderFields, "sh_first_sched")->v2.off;
    constexpr std::size_t kNext = find_spec(kScheduleFields, "ss_next_sch_ptr")->v2.off;
    unsigned char rec[ALM_REC_SIZE_V2];
    t0 = now();
    std::uint32_t schedules = 0;
    bool ok = pread_full(fd, rec, sizeof rec, 0) == static_cast<ssize_t>(sizeof rec);
    for (std::uint32_t at = load_le32(rec + kFirst); ok && at != 0 && at != NULL_REC && schedules < records; ++schedules) {
        ok = pread_full(fd, rec, sizeof rec, static_cast<off_t>(at) * ALM_REC_SIZE_V2) == static_cast<ssize_t>(sizeof rec);
        at = load_le32(rec + kNext);
    }
    const double chase = now() - t0;
    ::close(fd);
    std::printf("records=%u scan_seconds=%.6f schedules=%u chase_seconds=%.6f\n", records, scan, schedules, chase);
    return 0;
}

std::size_t countOf(const std::string& n) {
    const unsigned long v = std::stoul(n);
    if (v < 1 || v > 256) die("a count of 1 to 256 clients");
    return v;
}

}  // namespace
}  // namespace alm

int main(int argc, char** argv) {
    using namespace alm;
    std::signal(SIGPIPE, SIG_IGN);
    std::vector<std::string> a(argv + 1, argv + argc);
    Options o;
    while (a.size() >= 2 && (a[0] == "--save" || a[0] == "--expect")) {
        (a[0] == "--save" ? o.save : o.expect) = a[1];
        a.erase(a.begin(), a.begin() + 2);
    }
    if (a.empty()) die("command: query, pipe, many, manycat, nop, echo, needle or floor");
    const std::string cmd = a[0];
    a.erase(a.begin());
    if (cmd == "query") return runServers(1, a, o);
    if (cmd == "pipe" && a.size() == 1) return runCats(1, a[0]);
    if (cmd == "many" && !a.empty()) return runServers(countOf(a[0]), {a.begin() + 1, a.end()}, o);
    if (cmd == "manycat" && a.size() == 2) return runCats(countOf(a[0]), a[1]);
    if (cmd == "nop") return cmdNop(a);
    if (cmd == "echo") return cmdEcho(a);
    if (cmd == "needle") return cmdNeedle(a);
    if (cmd == "floor") return cmdFloor(a);
    die("unknown command or arguments: " + cmd);
}
