// Shared ground for the query tests: plans built by almplan from
// descriptions, a home holding a copy of the server, a server session over
// pipes, and the records as the plan library delivers them in this process.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "client/almclient.h"
#include "common/tempdir.h"
#include "plan/almaccs.h"
#include "plan/almrecs.h"

namespace alm::qtest {

inline constexpr int kWaitMs = 30000;

// Request types of the queries.
inline constexpr std::uint32_t kNop = 0;
inline constexpr std::uint32_t kOpen = 2;
inline constexpr std::uint32_t kClose = 3;
inline constexpr std::uint32_t kSchedules = 5;
inline constexpr std::uint32_t kJobs = 6;
inline constexpr std::uint32_t kDependencies = 7;
inline constexpr std::uint32_t kCpus = 8;

// Dates in records go through local time: the tests and the server both run
// in UTC so the records they see agree.
void useUtc();

using test::TempDir;

// Writes desc to DIR/NAME.desc and builds DIR/NAME with almplan; returns the
// plan's path, or "" with the tool's complaint in *err.
std::string buildPlan(const std::string& dir, const std::string& name, const std::string& desc, std::string* err,
                      bool v1 = false);

// One field as `almplan fields KIND` lists it.
struct PlanField {
    std::string name;
    int offset = 0;
    int width = 0;  // bytes of one element
    int count = 1;
    bool text = false;
    bool is_signed = false;
    std::string role;  // plain, recptr, alias
};
std::vector<PlanField> planFields(const std::string& kind);

// The home the server runs in: bin/almread and catalog/C, made once.
const std::string& serverHome();

// A server over pipes, greeted, in UTC.
class Server {
public:
    Server();
    AlmClient& client() { return client_; }
    bool ok() const { return ok_; }

    // Opens a plan; returns its handle text, or "" (with the reply's code and
    // text in *err).
    std::string open(const std::string& path, std::string* err = nullptr);
    // Sends a request and reads its reply.
    ClientStatus ask(std::uint32_t type, std::uint32_t id, const std::vector<std::string>& args, Reply& reply);
    // True when the next thing on the output is the reply to a no-operation
    // with this id (so nothing was written for the requests before it).
    bool nextIsNop(std::uint32_t id);
    // Ends the input and waits for the server to exit: its status (0 when it
    // ended cleanly, leak checks included), with what it wrote on standard
    // error in *err.
    int finish(std::string* err = nullptr);

private:
    AlmClient client_;
    bool ok_ = false;
};

// The plan opened in this process, for what the library delivers.
class Delivered {
public:
    explicit Delivered(const std::string& path);
    bool ok() const { return ca_ != nullptr; }
    alm_comarea* session() { return ca_.get(); }
    // All records matching the patterns, in search order.
    std::vector<SCI_RECTYPE> cpus(const char* cpu = "@");
    std::vector<SS_RECTYPE> schedules(const char* cpu = "@", const char* sched = "@");
    std::vector<SJ_RECTYPE> jobs(const char* cpu = "@", const char* sched = "@", const char* job = "@");
    // Record recnum as delivered; false when it cannot be read.
    bool read(std::uint32_t recnum, ALMRECTYPE& rec);

private:
    alm_session ca_;
};

using Bytes = std::vector<unsigned char>;
inline Bytes bytesOf(const void* p, std::size_t n) {
    const auto* b = static_cast<const unsigned char*>(p);
    return Bytes(b, b + n);
}
inline Bytes slice(const unsigned char* rec, std::size_t off, std::size_t n) { return Bytes(rec + off, rec + off + n); }

// Where the numeric fields of each record kind sit on the wire, by form:
// 16-bit big-endian, 32-bit big-endian, and low half (low 16 bits
// big-endian, then two zero bytes). Every other byte goes as delivered.
struct WireForms {
    std::vector<int> be16, be32, low;
};
const WireForms& cpuForms();
const WireForms& scheduleForms();
const WireForms& jobForms();
const WireForms& promptForms();
const WireForms& fileForms();
const WireForms& resourceForms();

// The wire bytes a delivered record must go out as.
Bytes expectedWire(const void* delivered, const WireForms& forms);
// The dependency listing's forms: schedules with their first ss_num_depends
// dependency entries in low half; jobs likewise, with sj_until_time
// big-endian and sj_rec_ptrs low half twice. typeCode replaces the record's
// type first when not 0.
Bytes expectedScheduleDep(const SS_RECTYPE& ss, std::uint16_t typeCode = 0);
Bytes expectedJobDep(const SJ_RECTYPE& sj, std::uint16_t typeCode = 0);

// Header words of a record reply.
void expectRecordReply(const Reply& r, std::uint32_t id, std::uint32_t count);

}  // namespace alm::qtest
