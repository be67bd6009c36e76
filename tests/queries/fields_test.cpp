// End to end: one record of each kind whose every numeric field holds its own
// value, sent through the server, checked byte by byte against its wire form.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "queries/plansession.h"

namespace alm::qtest {
namespace {

// A value for element k of a field, of the field's width, whose bytes differ
// from each other so that any byte swap shows.
std::int64_t distinct(int width, int k) {
    const int b3 = 0x10 + k % 0x60;
    const int b2 = (0x56 + 3 * k) & 0xFF;
    const int b1 = (0x9A + 7 * k) & 0xFF;
    int b0 = (0x21 + 11 * k) & 0xFF;
    if (width == 1) return b0 ? b0 : 0x5A;
    if (width == 2) {
        if (b0 == b3) b0 ^= 0x80;
        return (b3 << 8) | b0;
    }
    return (std::int64_t{b3} << 24) | (b2 << 16) | (b1 << 8) | b0;
}

// "set" lines giving every field of the kind its own value, except the
// fields in skip and those listed in fixed, which get the value given there.
std::string everyField(const std::string& kind, const std::set<std::string>& skip,
                       const std::map<std::string, std::string>& fixed, int& k) {
    std::string lines;
    const std::vector<PlanField> fields = planFields(kind);
    EXPECT_FALSE(fields.empty()) << "almplan lists no fields for " << kind;
    for (const PlanField& f : fields) {
        if (f.role == "alias" || f.name == "alm_rec_type" || skip.count(f.name)) continue;
        if (auto it = fixed.find(f.name); it != fixed.end()) {
            lines += "set " + f.name + " " + it->second + "\n";
            continue;
        }
        for (int i = 0; i < f.count; ++i) {
            const std::string name = f.count > 1 ? f.name + "[" + std::to_string(i) + "]" : f.name;
            ++k;
            if (f.text) {
                std::string text = "t" + std::to_string(k) + "x";
                if (static_cast<int>(text.size()) > f.width) text.resize(f.width);
                lines += "set " + name + " " + text + "\n";
            } else {
                lines += "set " + name + " " + std::to_string(distinct(f.width, k)) + "\n";
            }
        }
    }
    return lines;
}

// Names come from the record lines; the links that the searches follow are
// left to the builder.
const std::set<std::string> kNames = {"sci_cpu_id", "ss_cpu_id",  "ss_sched_name",   "sj_cpu_id",
                                      "sj_job_name", "sj_schedule", "sm_msg_name", "sf_cpu_id",
                                      "sf_file_name", "sr_cpu_id", "sr_resource_name"};

std::set<std::string> skipping(std::initializer_list<std::string> links) {
    std::set<std::string> s = kNames;
    s.insert(links);
    return s;
}

class FieldForms : public PlanSession {
protected:
    static void SetUpTestSuite() {
        int k = 0;
        std::string desc = "workstation WS1\n";
        desc += everyField("workstation", skipping({"sci_next_cpu_ptr"}),
                           {{"sci_rec_num", "70000"}, {"sci_prev_domain_ptr", "5"}}, k);
        desc += "prompt P1\n" + everyField("prompt", kNames, {}, k);
        desc += "file WS1 /tmp/f1\n" + everyField("file", kNames, {}, k);
        desc += "resource WS1 R1\n" + everyField("resource", kNames, {{"sr_num_avail", "-1"}}, k);
        desc += "schedule WS1 DEPS\n"
                "dep localprompt P1\n"
                "dep file WS1 /tmp/f1\n"
                "dep resource WS1 R1 1\n"
                "dep sched WS1 SCHED1\n"
                "dep job WS1 SCHED1 JOB1\n";
        desc += "schedule WS1 SCHED1\n" +
                everyField("schedule", skipping({"ss_first_job", "ss_next_sch_ptr"}), {{"ss_rec_num", "70000"}}, k);
        desc += "job JOB1\n" + everyField("job", skipping({"sj_next_job_ptr", "sj_restart_ptr"}),
                                          {{"sj_rec_num", "70000"},
                                           {"sj_until_time", "1730"},
                                           {"sj_every_hhmm", "1730"},
                                           {"sj_rec_ptrs", "0x12345"}},
                                          k);
        desc += "schedule WS1 SCHED2\n"
                "set ss_dependencies[0] 3\n";
        buildSuitePlan(plan_, "fields", desc);
    }

    void SetUp() override {
        PlanSession::SetUp();
        if (HasFatalFailure()) return;
        ASSERT_TRUE(delivered_.ok());
    }

    Delivered delivered_{plan_};
};

TEST_F(FieldForms, Workstation) {
    const std::vector<SCI_RECTYPE> d = delivered_.cpus();
    ASSERT_EQ(d.size(), 1u);
    EXPECT_EQ(d[0].sci_rec_num, 70000u);
    EXPECT_NE(d[0].sci_console, 0);  // the plan holds what was set

    Reply r;
    ASSERT_EQ(server_.ask(kCpus, 11, {handle_, "@"}, r), ClientStatus::Ok);
    expectRecordReply(r, 11, 1);
    ASSERT_NE(r.record(0), nullptr);
    EXPECT_EQ(bytesOf(r.record(0), 512), expectedWire(&d[0], cpuForms()));
    EXPECT_EQ(slice(r.record(0), 8, 4), (Bytes{0x11, 0x70, 0x00, 0x00}));
    EXPECT_EQ(slice(r.record(0), 204, 4), (Bytes{0x05, 0x00, 0x00, 0x00}));
    EXPECT_EQ(slice(r.record(0), 200, 4), (Bytes{0x80, 0x00, 0x00, 0x00}));
}

TEST_F(FieldForms, Schedules) {
    const std::vector<SS_RECTYPE> d = delivered_.schedules("WS1", "SCHED@");
    ASSERT_EQ(d.size(), 2u);
    EXPECT_EQ(d[0].ss_rec_num, 70000u);

    Reply r;
    ASSERT_EQ(server_.ask(kSchedules, 12, {handle_, "WS1", "SCHED@"}, r), ClientStatus::Ok);
    expectRecordReply(r, 12, 2);
    ASSERT_NE(r.record(1), nullptr);
    EXPECT_EQ(bytesOf(r.record(0), 512), expectedWire(&d[0], scheduleForms()));
    EXPECT_EQ(bytesOf(r.record(1), 512), expectedWire(&d[1], scheduleForms()));
    EXPECT_EQ(slice(r.record(0), 8, 4), (Bytes{0x00, 0x01, 0x11, 0x70}));
    // A schedule without jobs: the end-of-chain mark in low half form.
    EXPECT_EQ(slice(r.record(1), 96, 4), (Bytes{0x80, 0x00, 0x00, 0x00}));
    // Dependency record numbers go as delivered in this query.
    EXPECT_EQ(slice(r.record(1), 116, 4), (Bytes{0x03, 0x00, 0x00, 0x00}));
}

TEST_F(FieldForms, Job) {
    const std::vector<SJ_RECTYPE> d = delivered_.jobs("WS1", "SCHED1", "@");
    ASSERT_EQ(d.size(), 1u);
    EXPECT_EQ(d[0].sj_rec_num, 70000u);
    EXPECT_EQ(d[0].sj_restart_ptr, NULL_REC);

    Reply r;
    ASSERT_EQ(server_.ask(kJobs, 13, {handle_, "@", "@", "JOB1"}, r), ClientStatus::Ok);
    expectRecordReply(r, 13, 1);
    ASSERT_NE(r.record(0), nullptr);
    EXPECT_EQ(bytesOf(r.record(0), 512), expectedWire(&d[0], jobForms()));
    EXPECT_EQ(slice(r.record(0), 8, 4), (Bytes{0x00, 0x01, 0x11, 0x70}));
    EXPECT_EQ(slice(r.record(0), 154, 4), (Bytes{0x06, 0xC2, 0xC2, 0x06}));
    EXPECT_EQ(slice(r.record(0), 232, 4), (Bytes{0x80, 0x00, 0x00, 0x00}));
    EXPECT_EQ(slice(r.record(0), 236, 4), (Bytes{0x23, 0x45, 0x00, 0x00}));
}

TEST_F(FieldForms, DependencyRecordsOfEveryKind) {
    const std::vector<SS_RECTYPE> deps = delivered_.schedules("WS1", "DEPS");
    ASSERT_EQ(deps.size(), 1u);
    ASSERT_EQ(deps[0].ss_num_depends, 5);
    ALMRECTYPE prompt, file, resource;
    ASSERT_TRUE(delivered_.read(deps[0].ss_dependencies[0], prompt));
    ASSERT_TRUE(delivered_.read(deps[0].ss_dependencies[1], file));
    ASSERT_TRUE(delivered_.read(deps[0].ss_dependencies[2], resource));
    const std::vector<SS_RECTYPE> sched1 = delivered_.schedules("WS1", "SCHED1");
    const std::vector<SJ_RECTYPE> job1 = delivered_.jobs("WS1", "SCHED1", "JOB1");
    ASSERT_EQ(sched1.size(), 1u);
    ASSERT_EQ(job1.size(), 1u);
    EXPECT_GT(sched1[0].ss_num_depends, 40);  // every entry of the array is converted, no more

    Reply r;
    ASSERT_EQ(server_.ask(kDependencies, 14, {handle_, "WS1", "DEPS", "@"}, r), ClientStatus::Ok);
    expectRecordReply(r, 14, 6);
    ASSERT_NE(r.record(5), nullptr);
    EXPECT_EQ(bytesOf(r.record(0), 512), expectedScheduleDep(deps[0]));
    EXPECT_EQ(slice(r.record(0), 116, 4), (Bytes{0x00, static_cast<unsigned char>(deps[0].ss_dependencies[0]), 0, 0}));
    EXPECT_EQ(bytesOf(r.record(1), 512), expectedWire(&prompt, promptForms()));
    EXPECT_EQ(bytesOf(r.record(2), 512), expectedWire(&file, fileForms()));
    EXPECT_EQ(bytesOf(r.record(3), 512), expectedWire(&resource, resourceForms()));
    EXPECT_EQ(slice(r.record(3), 48, 4), (Bytes{0xFF, 0xFF, 0x00, 0x00}));
    EXPECT_EQ(bytesOf(r.record(4), 512), expectedScheduleDep(sched1[0], 0x5344));
    EXPECT_EQ(slice(r.record(4), 0, 2), (Bytes{0x53, 0x44}));
    EXPECT_EQ(bytesOf(r.record(5), 512), expectedJobDep(job1[0], 0x4A44));
    EXPECT_EQ(slice(r.record(5), 0, 2), (Bytes{0x4A, 0x44}));
    EXPECT_EQ(slice(r.record(5), 154, 4), (Bytes{0x06, 0xC2, 0x06, 0xC2}));
    EXPECT_EQ(slice(r.record(5), 236, 4), (Bytes{0x45, 0x23, 0x00, 0x00}));
}

TEST_F(FieldForms, QueriedRecordsInTheListingKeepTheirTypeCodes) {
    const std::vector<SS_RECTYPE> s = delivered_.schedules("WS1", "SCHED1");
    const std::vector<SJ_RECTYPE> j = delivered_.jobs("WS1", "SCHED1", "JOB1");
    ASSERT_EQ(s.size(), 1u);
    ASSERT_EQ(j.size(), 1u);
    // The dependency entries of SCHED1 and JOB1 name records beyond the end
    // of the plan: counted, never sent.
    ASSERT_EQ(server_.client().send(kDependencies, 15, {handle_, "WS1", "SCHED1", "JOB1"}), ClientStatus::Ok);
    FrameHeader h;
    ASSERT_EQ(server_.client().readHeader(h, kWaitMs), ClientStatus::Ok);
    EXPECT_EQ(h.id, 15u);
    EXPECT_GT(h.numData, 2u);
    unsigned char rec[2][512];
    ASSERT_EQ(server_.client().readExact(rec, sizeof rec, kWaitMs), ClientStatus::Ok);
    EXPECT_EQ(bytesOf(rec[0], 512), expectedScheduleDep(s[0]));
    EXPECT_EQ(slice(rec[0], 0, 2), (Bytes{0x53, 0x52}));
    EXPECT_EQ(bytesOf(rec[1], 512), expectedJobDep(j[0]));
    EXPECT_EQ(slice(rec[1], 0, 2), (Bytes{0x4A, 0x52}));
    EXPECT_TRUE(server_.nextIsNop(16));
}

}  // namespace
}  // namespace alm::qtest
