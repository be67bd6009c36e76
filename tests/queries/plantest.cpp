#include "queries/plantest.h"

#include <stdlib.h>

#include <gtest/gtest.h>

#include <ctime>
#include <sstream>

#include "common/files.h"
#include "common/installhome.h"
#include "common/runprogram.h"
#include "plan/almfind.h"

namespace alm::qtest {

void useUtc() {
    ::setenv("TZ", "UTC", 1);
    ::tzset();
}

std::string buildPlan(const std::string& dir, const std::string& name, const std::string& desc, std::string* err,
                      bool v1) {
    const std::string planPath = dir + "/" + name;
    test::write_file(planPath + ".desc", desc);
    const test::RunResult r = test::build_plan(planPath + ".desc", planPath, v1);
    if (r.status != 0) {
        if (err) *err = r.out + r.err;
        return "";
    }
    return planPath;
}

std::vector<PlanField> planFields(const std::string& kind) {
    std::vector<PlanField> fields;
    const test::RunResult r = test::run_program(test::built_program("almplan"), {"fields", kind});
    if (r.status != 0) return fields;
    std::istringstream lines(r.out);
    std::string line;
    while (std::getline(lines, line)) {
        std::istringstream words(line);
        std::string k, type;
        PlanField f;
        if (!(words >> k >> f.name >> f.offset >> f.width >> f.count >> type >> f.role)) continue;
        f.text = type == "text";
        f.is_signed = type == "signed";
        fields.push_back(f);
    }
    return fields;
}

const std::string& serverHome() {
    static const TempDir home;
    static const bool made = test::install_home(home.path(), {"almread"});
    (void)made;  // a home that failed shows as a server that does not start
    return home.path();
}

Server::Server() {
    useUtc();
    SpawnOptions options;
    options.extraEnv = {"TZ=UTC"};
    options.captureStderr = true;
    ok_ = client_.start(serverHome() + "/bin/almread", {}, options) == ClientStatus::Ok &&
          client_.readGreeting(kWaitMs) == ClientStatus::Ok;
}

std::string Server::open(const std::string& path, std::string* err) {
    Reply r;
    if (ask(kOpen, 1, {path}, r) != ClientStatus::Ok) return "";
    const std::vector<std::string> s = r.strings();
    if (s.size() < 3 || s[0] != "0") {
        if (err) *err = s.size() >= 2 ? s[0] + " " + s[1] : "short open reply";
        return "";
    }
    return s[2];
}

ClientStatus Server::ask(std::uint32_t type, std::uint32_t id, const std::vector<std::string>& args, Reply& reply) {
    const ClientStatus sent = client_.send(type, id, args);
    if (sent != ClientStatus::Ok) return sent;
    return client_.readReply(reply, kWaitMs);
}

bool Server::nextIsNop(std::uint32_t id) {
    if (client_.send(kNop, id, {}) != ClientStatus::Ok) return false;
    FrameHeader h;
    if (client_.readHeader(h, kWaitMs) != ClientStatus::Ok) return false;
    return h.size == 20 && h.type == 0 && h.id == id && h.numData == 0 && h.dataType == 0;
}

int Server::finish(std::string* err) {
    client_.closeInput();
    std::string rest;
    client_.readAll(rest, kWaitMs);
    std::string stderrText;
    client_.readStderr(stderrText, kWaitMs);
    if (err) *err = stderrText;
    int code = -1000;
    if (client_.waitExit(code, kWaitMs) != ClientStatus::Ok) return -1000;
    return code;
}

Delivered::Delivered(const std::string& path) {
    useUtc();
    int status = 0;
    char errtext[ALM_ERRTEXT_SIZE] = {};
    ca_ = alm_open_session(path.c_str(), ALM_MODE_READ, &status, errtext);
}

std::vector<SCI_RECTYPE> Delivered::cpus(const char* cpu) {
    std::vector<SCI_RECTYPE> out;
    SCI_RECTYPE rec;
    std::uint32_t start = 0;
    while (ca_ && alm_find_cpu(ca_.get(), cpu, start, &rec) != NULL_REC) out.push_back(rec);
    return out;
}

std::vector<SS_RECTYPE> Delivered::schedules(const char* cpu, const char* sched) {
    std::vector<SS_RECTYPE> out;
    SS_RECTYPE rec;
    std::uint32_t start = 0;
    while (ca_ && alm_find_sched(ca_.get(), cpu, sched, start, &rec) != NULL_REC) out.push_back(rec);
    return out;
}

std::vector<SJ_RECTYPE> Delivered::jobs(const char* cpu, const char* sched, const char* job) {
    std::vector<SJ_RECTYPE> out;
    SJ_RECTYPE rec;
    std::uint32_t start = 0;
    while (ca_ && alm_find_job(ca_.get(), cpu, sched, job, start, &rec) != NULL_REC) out.push_back(rec);
    return out;
}

bool Delivered::read(std::uint32_t recnum, ALMRECTYPE& rec) { return ca_ && alm_read(ca_.get(), recnum, &rec) >= 0; }

// Offsets by form, from the field lists of each reply record.
const WireForms& cpuForms() {
    static const WireForms f{.be16 = {0, 2, 64, 66, 68, 112, 114, 186, 188, 190, 192, 194, 224, 226, 228},
                             .be32 = {52, 56, 60, 212, 216},
                             .low = {8, 48, 196, 200}};
    return f;
}

const WireForms& scheduleForms() {
    static const WireForms f{
        .be16 = {0, 2, 48, 50, 52, 72, 74, 76, 78, 80, 82, 84, 276, 294, 296, 312, 316, 320, 322, 344, 346, 348},
        .be32 = {8, 88, 92, 112, 324, 328, 332, 336, 340},
        .low = {96, 100, 104, 108}};
    return f;
}

const WireForms& jobForms() {
    static const WireForms f{.be16 = {0, 2, 154, 158, 160, 162, 164, 166, 168},
                             .be32 = {8, 240, 244, 248, 252, 256, 260, 264},
                             .low = {212, 216, 220, 224, 228, 232, 236}};
    return f;
}

const WireForms& promptForms() {
    static const WireForms f{.be16 = {0, 2, 60, 62, 64, 66}, .be32 = {8, 52, 56}, .low = {40, 44, 48}};
    return f;
}

const WireForms& fileForms() {
    static const WireForms f{.be16 = {0, 2, 156}, .be32 = {8}, .low = {32, 36}};
    return f;
}

const WireForms& resourceForms() {
    static const WireForms f{.be16 = {0, 2}, .be32 = {8}, .low = {40, 44, 48, 52, 56, 60}};
    return f;
}

namespace {

void lowHalf(Bytes& out, const unsigned char* d, int off) {
    out[off] = d[off + 1];
    out[off + 1] = d[off];
    out[off + 2] = 0;
    out[off + 3] = 0;
}

int boundedCount(std::int16_t n) { return n < 0 ? 0 : (n > 40 ? 40 : n); }

}  // namespace

Bytes expectedWire(const void* delivered, const WireForms& forms) {
    const auto* d = static_cast<const unsigned char*>(delivered);
    Bytes out(d, d + ALM_REC_SIZE_V2);
    for (int off : forms.be16) {
        out[off] = d[off + 1];
        out[off + 1] = d[off];
    }
    for (int off : forms.be32) {
        for (int k = 0; k < 4; ++k) out[off + k] = d[off + 3 - k];
    }
    for (int off : forms.low) lowHalf(out, d, off);
    return out;
}

Bytes expectedScheduleDep(const SS_RECTYPE& ss, std::uint16_t typeCode) {
    SS_RECTYPE copy = ss;
    if (typeCode) copy.alm_rec_type = static_cast<std::int16_t>(typeCode);
    const auto* d = reinterpret_cast<const unsigned char*>(&copy);
    Bytes out = expectedWire(&copy, scheduleForms());
    for (int i = 0; i < boundedCount(ss.ss_num_depends); ++i) lowHalf(out, d, 116 + 4 * i);
    return out;
}

Bytes expectedJobDep(const SJ_RECTYPE& sj, std::uint16_t typeCode) {
    SJ_RECTYPE copy = sj;
    if (typeCode) copy.alm_rec_type = static_cast<std::int16_t>(typeCode);
    const auto* d = reinterpret_cast<const unsigned char*>(&copy);
    Bytes out = expectedWire(&copy, jobForms());
    out[156] = d[157];  // sj_until_time big-endian
    out[157] = d[156];
    out[236] = d[236];  // sj_rec_ptrs: low 16 bits in host order
    out[237] = d[237];
    out[238] = 0;
    out[239] = 0;
    for (int i = 0; i < boundedCount(sj.sj_num_depends); ++i) lowHalf(out, d, 308 + 4 * i);
    return out;
}

void expectRecordReply(const Reply& r, std::uint32_t id, std::uint32_t count) {
    EXPECT_EQ(r.header.size, 20 + count * 512);
    EXPECT_EQ(r.header.type, 0u);
    EXPECT_EQ(r.header.id, id);
    EXPECT_EQ(r.header.numData, count);
    EXPECT_EQ(r.header.bytesPerRecord, 512u);
    EXPECT_EQ(r.header.dataType, 1u);
    EXPECT_EQ(r.bodySize(), count * 512u);
}

}  // namespace alm::qtest
